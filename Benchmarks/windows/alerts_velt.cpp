// A thousand alerts, each shown and answered with its default button: what one takes, and whether they leave something.
#include "form.h"

#include <VELTRuntime/VELTRuntimeUI.h>

#include "VELTRuntime/platform/foundation/run_loop.h"

namespace {

constexpr int kAlerts = 1'000;

void pressDefaultButton() {
    const id shown = NSApplication::sharedApplication().modalWindow();
    velt::send(VELT_NSWINDOW_DEFAULTBUTTONCELL(shown), "performClick:", shown);
}

bool showAndAnswer() {
    velt::RunLoop::main().after(0, pressDefaultButton);
    const id code = VELT_ALERTPANEL(velt::string("Save the changes?"), velt::string("They are lost otherwise."),
                                    velt::string("Save"), velt::string("Cancel"), velt::string("Discard"));
    return VELT_CINTEGER(code) == 1;
}

}  // namespace

int main() {
    NSApplication::sharedApplication();
    bool answered = true;
    form::Steps steps;
    for (int i = 0; i < kAlerts / 2; ++i) answered &= showAndAnswer();
    const long half = form::residentKilobytes();
    for (int i = 0; i < kAlerts / 2; ++i) answered &= showAndAnswer();
    steps.end("alerts");
    std::printf("resident %ld %ld\n", half, form::residentKilobytes());
    return answered ? 0 : 1;
}
