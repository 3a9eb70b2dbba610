// Shows a window and ends by itself; without a display it cannot get so far.
#include <VELTRuntime/VELTRuntimeUI.h>

#include <cstdio>

namespace {

int program(int, char**) {
    std::puts("before");
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_SHOW(window);
    std::puts("shown");
    VELT_NSWINDOW_CLOSE(window);
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
