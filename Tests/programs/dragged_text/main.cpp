// Two texts side by side that a person drags words between. A word of the left one is selected.
#include <VELTRuntime/VELTRuntimeUI.h>

namespace {

using velt::string;

id textOf(double x, const char* name, std::string_view text) {
    const id view = VELT_NSTEXTVIEW_INIT(nil, "");
    VELT_NSVIEW_FRAME(view, VELT_ID(NSRect{{x, 20}, {210, 220}}));
    VELT_NSVIEW_TOOLTIP(view, string(std::string_view(name)));
    VELT_NSTEXTVIEW_VALUE(view, string(text));
    return view;
}

int program(int, char**) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_FRAME(window, VELT_ID(NSRect{{100, 200}, {460, 282}}));
    VELT_NSWINDOW_TITLE(window, string("Texts"));
    const id left = textOf(10, "Left", "alpha beta"), right = textOf(240, "Right", "one two");
    VELT_NSWINDOW_APPEND(window, left);
    VELT_NSWINDOW_APPEND(window, right);
    VELT_NSWINDOW_SHOW(window);
    VELT_NSWINDOW_MAKEFIRSTRESPONDER(window, left);
    velt::send(left, "setSelectedRange:", VELT_ID(NSRange{0, 5}));
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return velt::runApplication(program, count, arguments); }
