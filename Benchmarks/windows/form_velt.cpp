// A form of a thousand controls: made, shown, resized, closed; ten thousand small forms; the time of one getter.
#include "form.h"

#include <QApplication>
#include <QMainWindow>
#include <VELTRuntime/VELTRuntimeUI.h>
#include <VELTRuntime/platform/foundation/run_loop.h>
#include <VELTRuntime/platform/object/cycles.h>

namespace {

id frame(double x, double y, double width, double height) { return VELT_ID(NSRect{{x, y}, {width, height}}); }

/// Lets the window system draw what there is to be drawn.
void settle() {
    QApplication::processEvents();
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

id place(const id& window, const id& view, const id& where, long mask = 0) {
    VELT_NSVIEW_FRAME(view, where);
    if (mask) VELT_NSVIEW_AUTORESIZINGMASK(view, VELT_ID(mask));
    VELT_NSWINDOW_APPEND(window, view);
    return view;
}

class Form : public NSObject {
    VELT_OBJECT(Form, NSObject)
public:
    id window, field;
    long pressedCount = 0;
    void pressed(const id&) { ++pressedCount; }
    static void describe(velt::ClassBuilder<Form>& c) {
        c.property("window", &Form::window).property("field", &Form::field).method("pressed:", &Form::pressed);
    }

    void make(int rows) {
        const id self(this);
        window = VELT_NSWINDOW_INIT(self, "");
        VELT_NSWINDOW_DELEGATE(window, self);
        VELT_NSWINDOW_CONTENTSIZE(window, VELT_ID(NSSize{600, static_cast<double>(rows * form::kRowHeight)}));
        for (int row = 0; row < rows; ++row) {
            const double y = (rows - 1 - row) * form::kRowHeight;
            const id label = place(window, VELT_LABEL_INIT(self, ""), frame(4, y, 120, 22));
            VELT_NSCONTROL_STRINGVALUE(label, velt::string("Label " + std::to_string(row)));
            field = place(window, VELT_NSTEXTFIELD_INIT(self, "pressed:"), frame(130, y, 200, 22), 2);
            VELT_NSCONTROL_STRINGVALUE(field, velt::string("Text " + std::to_string(row)));
            const id check = place(window, VELT_CHECKBOX_INIT(self, "pressed:"), frame(340, y, 120, 22), 1);
            VELT_NSBUTTON_TITLE(check, velt::string("Option " + std::to_string(row)));
            const id button = place(window, VELT_PUSHBUTTON_INIT(self, "pressed:"), frame(470, y, 120, 22), 1);
            VELT_NSBUTTON_TITLE(button, velt::string("Button " + std::to_string(row)));
        }
    }
};

void bigForm(int resizes) {
    velt::Ref<Form> form = velt::make<Form>();
    NSApplication::sharedApplication();
    const long before = form::residentKilobytes();
    form::Steps steps;
    form->make(form::kRows);
    steps.end("made");
    VELT_NSWINDOW_SHOW(form->window);
    settle();
    steps.end("shown");
    for (int i = 0; i < resizes; ++i) {
        VELT_NSWINDOW_CONTENTSIZE(form->window,
                                  VELT_ID(NSSize{600.0 + 10 * i, static_cast<double>(form::kRows * form::kRowHeight)}));
        settle();
    }
    steps.end("resized");
    std::printf("memory %ld\n", form::residentKilobytes() - before);
    VELT_NSWINDOW_CLOSE(form->window);
    form = velt::Ref<Form>();
    velt::collectCycles();
    settle();
    steps.end("closed");
}

void manyForms(int count) {
    const auto turn = [] {
        const velt::Ref<Form> form = velt::make<Form>();
        form->make(5);
        VELT_NSWINDOW_SHOW(form->window);
        VELT_NSCONTROL_STRINGVALUE(form->field, "used"_v);
        VELT_NSWINDOW_CLOSE(form->window);
        velt::RunLoop::current().runOnce(0);
    };
    // What waits for the next collection, and what the allocator keeps for it, reach their height in the first half.
    for (int i = 0; i < count / 2; ++i) turn();
    const long early = form::residentKilobytes();
    for (int i = count / 2; i < count; ++i) turn();
    std::printf("forms %ld %ld\n", early, form::residentKilobytes());
}

void getter() {
    const id button = VELT_PUSHBUTTON_INIT(nil, "");
    long sum = 0;
    const double time = form::nanosecondsOf([&] { sum += VELT_CBOOL(VELT_NSCONTROL_ENABLED(button)); });
    std::printf("getter %.3f %ld\n", time, sum);
}

void smallWindow() {
    const velt::Ref<Form> form = velt::make<Form>();
    form->make(3);
    VELT_NSWINDOW_SHOW(form->window);
    settle();
    std::printf("painted %.6f\n", form::now());
}

}  // namespace

int main(int count, char** arguments) {
    const std::string work = count > 1 ? arguments[1] : "form";
    if (work == "form") bigForm(count > 2 ? std::atoi(arguments[2]) : form::kResizes);
    if (work == "forms") manyForms(10'000);
    if (work == "getter") getter();
    if (work == "small") smallWindow();
    return 0;
}
