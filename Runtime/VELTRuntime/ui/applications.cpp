#include "VELTRuntime/ui/applications.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/process/window_activation.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/load_state.h"
#include "VELTRuntime/values/string.h"

#include <chrono>
#include <csignal>
#include <thread>

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/applications.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;
using ui::ValueKind;

id VELT_NSAPPLICATION_HIDESPOTLIGHTFORHELP(const id& application) {
    requireMainThread("VELT_NSAPPLICATION_HIDESPOTLIGHTFORHELP");
    if (VELT_mSuppressSpotlightForHelp.isNil()) VELT_mSuppressSpotlightForHelp = Class::known("NSMenu").newObject();
    send(application, VELT_SELECTOR("setHelpMenu:"), VELT_CNSMENU(VELT_mSuppressSpotlightForHelp));
    return nil;
}

namespace {

/// Asks until the process has a window, as long as it lives and somebody could tell of one. A process may never show
/// any, so there is an end to it.
int bringToFront(pid_t process) {
    using namespace std::chrono;
    constexpr auto kBetweenTries = milliseconds(10);
    constexpr auto kPatience = seconds(5);
    const auto end = steady_clock::now() + kPatience;
    const WindowActivation activation;
    for (;;) {
        const int status = activation.bringToFront(process);
        if (status != kProcessNotFound || !activation.isPossible()) return status;
        if (process <= 0 || kill(process, 0) != 0 || steady_clock::now() >= end) return status;
        std::this_thread::sleep_for(kBetweenTries);
    }
}

}  // namespace

id VELT_NSAPPLICATION_SHOWOTHERAPPLICATION(const id&, const id& process) {
    requireMainThread("VELT_NSAPPLICATION_SHOWOTHERAPPLICATION");
    const int status = bringToFront(static_cast<pid_t>(VELT_CBYTE(process)));
    return status < 0 ? VELT_ID(static_cast<long>(status)) : id();
}

id VELT_NSEVENT_INIT(const id&, const char*) {
    requireMainThread("VELT_NSEVENT_INIT");
    return make<NSEvent>();
}

id VELT_NSEVENT_KEY(const id& event) {
    const id characters = ui::get(event, VELT_WRAPPER(NSEVENT_KEY, "characters"), ValueKind::Text);
    if (!isString(characters) || textOf(characters).empty()) return VELT_ID(0L);
    return VELT_ID(static_cast<unsigned short>(textOf(characters).front()));
}

id VELT_NSIMAGE_INIT(const id&, const char*) { return make<NSImage>(); }
id VELT_NSIMAGE_INIT(const id&, const char*, const id& source) { return VELT_CNSIMAGE(source); }

namespace {

[[noreturn]] void raiseFailed(const char* function) {
    raise(kRuntimeException, "Function '" + std::string(function) + "' failed");
}

}  // namespace

id VELT_NSCOLOR_INIT(const id&, const char*, const id& red, const id& green, const id& blue, const id& alpha) {
    const double r = VELT_CDOUBLE(red), g = VELT_CDOUBLE(green), b = VELT_CDOUBLE(blue), a = VELT_CDOUBLE(alpha);
    Ref<NSColor> color = NSColor::deviceRgb(r, g, b, a);
    if (!color) raiseFailed("Color");
    return color;
}

id VELT_NSFONT_INIT(const id&, const char*, const id& name, const id& size) {
    requireMainThread("VELT_NSFONT_INIT");
    const id text = VELT_CSTRING(name);
    Ref<NSFont> font = NSFont::named(text, VELT_CDOUBLE(size));
    if (!font) raiseFailed("Font");
    return font;
}

id VELT_NSFONT_FONT(const id& receiver) {
    return VELT_CNSFONT(ui::get(receiver, VELT_WRAPPER(NSFONT_FONT, "font"), ValueKind::Object));
}
