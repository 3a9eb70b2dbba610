// How long a menu of 10,000 items takes to be built by the wrappers, and then to be ready for the screen. Prints both
// in milliseconds.
#include <VELTRuntime/VELTRuntimeUI.h>

#include <QMenu>
#include <chrono>
#include <cstdio>

int main() {
    using Clock = std::chrono::steady_clock;
    constexpr long kItems = 10000;
    const auto since = [](Clock::time_point start) {
        return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    };
    NSApplication::sharedApplication();
    const auto start = Clock::now();
    const id menu = VELT_NSMENU_INIT(nil, "Many");
    for (long i = 0; i < kItems; ++i) VELT_NSMENU_APPEND(menu, VELT_ID(i));
    const double built = since(start);
    const auto shown = Clock::now();
    velt::as<NSMenu>(menu)->widget();
    std::printf("built %.1f ms, with the toolkit's items %.1f ms\n", built, built + since(shown));
    return VELT_CINTEGER(VELT_NSMENU_COUNT(menu)) == kItems ? 0 : 1;
}
