// A program with windows outside the project: it says what its window is called and ends.
#include <VELTRuntime/VELTRuntimeUI.h>
#include <cstdio>

static int program(int, char**) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_TITLE(window, "Outside"_v);
    VELT_NSWINDOW_CENTERANDSHOW(window);
    std::puts(velt::utf8(VELT_NSWINDOW_TITLE(window)).c_str());
    VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(&NSApplication::sharedApplication(), "terminate:"_v, nil);
    return 0;
}

int main(int count, char** arguments) { return velt::runApplication(program, count, arguments); }
