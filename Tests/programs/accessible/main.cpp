// A window with the kinds of controls that the gallery leaves out, and controls in other states than there: what a
// screen reader hears of them is looked at from outside.
#include <VELTRuntime/VELTRuntimeUI.h>

namespace {

using velt::send;
using velt::string;

id window;

void place(const id& view, double x, double y, double width, double height) {
    VELT_NSVIEW_FRAME(view, VELT_ID(NSRect{{x, y}, {width, height}}));
    VELT_NSWINDOW_APPEND(window, view);
}

void label(const char* text, double x, double y, double width) {
    const id made = VELT_LABEL_INIT(nil, "");
    VELT_NSCONTROL_STRINGVALUE(made, string(text));
    place(made, x, y, width, 17);
}

id onlyWithHelp(const id& view, const char* help) {
    VELT_NSVIEW_TOOLTIP(view, string(help));
    return view;
}

void tabs() {
    const id tabs = VELT_NSTABVIEW_INIT(nil, "");
    for (const char* name : {"First", "Second"}) {
        const id item = velt::make<NSTabViewItem>();
        send(item, "setLabel:", string(name));
        send(tabs, "addTabViewItem:", item);
    }
    VELT_NSTABVIEW_SELECT(tabs, VELT_ID(1L));
    place(tabs, 220, 20, 160, 90);
}

void values() {
    label("Slots:", 10, 360, 80);
    const id rating = VELT_NSLEVELINDICATOR_INIT(nil, "");
    send(rating, "setEditable:", VELT_ID(BOOL{0}));
    send(rating, "setMaxValue:", VELT_ID(8.0));
    VELT_NSCONTROL_INTEGERVALUE(rating, VELT_ID(3L));
    place(rating, 94, 360, 100, 18);

    // A label above its control.
    label("Loudness", 10, 330, 100);
    const id slider = VELT_NSSLIDER_INIT(nil, "");
    send(slider, "setMaxValue:", VELT_ID(11.0));
    VELT_NSCONTROL_DOUBLEVALUE(slider, VELT_ID(5.5));
    place(slider, 10, 302, 180, 24);

    const id scroller = onlyWithHelp(velt::make<NSScroller>(), "");
    send(scroller, "setKnobProportion:", VELT_ID(0.5));
    send(scroller, "setEnabled:", VELT_ID(BOOL{1}));
    send(scroller, "setDoubleValue:", VELT_ID(0.25));
    place(scroller, 10, 270, 180, 16);
}

void choices() {
    const id list = onlyWithHelp(VELT_NSPOPUPBUTTON_INIT(nil, ""), "Fruit");
    for (const char* name : {"Apple", "Pear"}) VELT_NSPOPUPBUTTON_APPEND(list, string(name));
    VELT_NSPOPUPBUTTON_SELECT(list, VELT_ID(1L));
    place(list, 220, 360, 120, 24);

    const id row = onlyWithHelp(VELT_NSSEGMENTEDCONTROL_INIT(nil, ""), "Alignment");
    send(row, "setLabel:forSegment:", string("Left"), VELT_ID(0L));
    send(row, "setLabel:forSegment:", string("Right"), VELT_ID(1L));
    send(row, "setSelectedSegment:", VELT_ID(1L));
    place(row, 220, 320, 150, 24);

    const id well = onlyWithHelp(VELT_NSCOLORWELL_INIT(nil, ""), "Ink");
    send(well, "setColor:", VELT_NSCOLOR_INIT(nil, "", VELT_ID(1.0), VELT_ID(0.0), VELT_ID(0.0), VELT_ID(1.0)));
    place(well, 220, 280, 44, 24);
}

void buttons() {
    const id off = VELT_PUSHBUTTON_INIT(nil, "");
    VELT_NSBUTTON_TITLE(off, string("Never"));
    VELT_NSCONTROL_ENABLED(off, VELT_ID(BOOL{0}));
    place(off, 10, 220, 100, 24);

    const id on = VELT_CHECKBOX_INIT(nil, "");
    VELT_NSBUTTON_TITLE(on, string("Always"));
    VELT_NSBUTTON_STATE(on, VELT_ID(1L));
    place(on, 10, 190, 100, 20);

    const id box = VELT_NSBOX_INIT(nil, "");
    VELT_NSBOX_TITLE(box, string("Address"));
    place(box, 10, 20, 200, 150);
    const id street = VELT_NSTEXTFIELD_INIT(nil, "");
    send(VELT_NSCONTROL_CELL(street), "setPlaceholderString:", string("Street"));
    VELT_NSVIEW_FRAME(street, VELT_ID(NSRect{{10, 10}, {150, 24}}));
    VELT_NSVIEW_APPEND(box, street);
}

int program(int, char**) {
    window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_TITLE(window, string("Accessible"));
    VELT_NSWINDOW_FRAME(window, VELT_ID(NSRect{{60, 60}, {400, 420}}));
    tabs();
    values();
    choices();
    buttons();
    VELT_NSWINDOW_SHOW(window);
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return velt::runApplication(program, count, arguments); }
