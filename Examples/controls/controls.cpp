// controls.bas as the translator writes it: the gallery of all controls.
#include "support/screenshot.h"

namespace {

class Gallery : public NSObject {
    VELT_OBJECT(Gallery, NSObject)

public:
    id window, log, names, row = VELT_ID(0L), column = VELT_ID(0L);

    static void describe(velt::ClassBuilder<Gallery>& c) {
        c.property("window", &Gallery::window)
            .property("log", &Gallery::log)
            .property("names", &Gallery::names)
            .property("row", &Gallery::row)
            .property("column", &Gallery::column)
            .method("pressed:", &Gallery::pressed);
    }

    void pressed(const id& sender) {
        VELTS("controls.bas", "Gallery.Pressed", "12", "");
        VELT_NSTEXTVIEW_APPEND(
            log,
            VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_NSMUTABLEARRAY_OBJECT(names, VELT_NSCONTROL_TAG(sender)), ": "_v),
                                    VELT_NSCONTROL_STRINGVALUE(sender)),
                        VELT_CHARACTER(VELT_ID(10L))));
    }

    void place(id view, id name, id width, id height) {
        VELTS("controls.bas", "Gallery.Place", "17", "");
        id x = VELT__INTEGER(VELT_ADD(VELT_ID(16L), VELT_MUL(column, VELT_ID(240L))));
        VELTS("controls.bas", "Gallery.Place", "18", "");
        id y = VELT__INTEGER(VELT_SUB(VELT_ID(760L), VELT_MUL(row, VELT_ID(52L))));
        VELTS("controls.bas", "Gallery.Place", "19", "");
        id caption = VELT_LABEL_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Place", "20", "");
        VELT_NSCONTROL_STRINGVALUE(caption, name);
        VELTS("controls.bas", "Gallery.Place", "21", "");
        VELT_NSVIEW_FRAME(caption, VELT_RECT_INIT(nil, "", x, VELT_ADD(y, VELT_ID(4L)), VELT_ID(84L), VELT_ID(17L)));
        VELTS("controls.bas", "Gallery.Place", "22", "");
        VELT_NSCONTROL_ALIGNMENT(caption, VELT_ID(1L));
        VELTS("controls.bas", "Gallery.Place", "23", "");
        VELT_NSWINDOW_APPEND(window, caption);
        VELTS("controls.bas", "Gallery.Place", "24", "");
        VELT_NSVIEW_FRAME(view, VELT_RECT_INIT(nil, "", VELT_ADD(x, VELT_ID(92L)),
                                               VELT_SUB(VELT_ADD(y, VELT_ID(12L)), VELT_DIV(height, VELT_ID(2L))),
                                               width, height));
        VELTS("controls.bas", "Gallery.Place", "25", "");
        VELT_NSWINDOW_APPEND(window, view);
        VELTS("controls.bas", "Gallery.Place", "26", "");
        row = VELT__INTEGER(VELT_ADD(row, VELT_ID(1L)));
        VELTS("controls.bas", "Gallery.Place", "27", "");
        if (VELT_CBOOL(VELT_EQUAL(row, VELT_ID(12L)))) {
            VELTS("controls.bas", "Gallery.Place", "28", "");
            row = VELT__INTEGER(VELT_ID(0L));
            VELTS("controls.bas", "Gallery.Place", "29", "");
            column = VELT__INTEGER(VELT_ADD(column, VELT_ID(1L)));
        }
    }

    void placeControl(id control, id name, id width, id height) {
        VELTS("controls.bas", "Gallery.PlaceControl", "35", "");
        VELT_NSCONTROL_TAG(control, VELT_NSMUTABLEARRAY_COUNT(names));
        VELTS("controls.bas", "Gallery.PlaceControl", "36", "");
        VELT_NSMUTABLEARRAY_APPEND(names, name);
        VELTS("controls.bas", "Gallery.PlaceControl", "37", "");
        place(control, name, width, height);
    }

    void placeButton(id button, id name, id title, id width, id height) {
        VELTS("controls.bas", "Gallery.PlaceButton", "41", "");
        VELT_NSBUTTON_TITLE(button, title);
        VELTS("controls.bas", "Gallery.PlaceButton", "42", "");
        placeControl(button, name, width, height);
    }

    void buttons() {
        VELTS("controls.bas", "Gallery.Buttons", "46", "");
        placeButton(VELT_PUSHBUTTON_INIT(id(this), "pressed:"), "Push"_v, "Save"_v, VELT_ID(110L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Buttons", "47", "");
        placeButton(VELT_BEVELBUTTON_INIT(id(this), "pressed:"), "Bevel"_v, "Bevel"_v, VELT_ID(110L), VELT_ID(28L));
        VELTS("controls.bas", "Gallery.Buttons", "48", "");
        placeButton(VELT_SQUAREBUTTON_INIT(id(this), "pressed:"), "Square"_v, "Square"_v, VELT_ID(110L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Buttons", "49", "");
        placeButton(VELT_TEXTUREDBUTTON_INIT(id(this), "pressed:"), "Textured"_v, "Textured"_v, VELT_ID(110L),
                    VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Buttons", "50", "");
        placeButton(VELT_ROUNDEDTEXTUREDBUTTON_INIT(id(this), "pressed:"), "Soft"_v, "Rounded"_v, VELT_ID(110L),
                    VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Buttons", "51", "");
        placeButton(VELT_ROUNDEDRECTBUTTON_INIT(id(this), "pressed:"), "Pill"_v, "Filter"_v, VELT_ID(110L),
                    VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Buttons", "52", "");
        placeButton(VELT_RECESSEDBUTTON_INIT(id(this), "pressed:"), "Recessed"_v, "Recent"_v, VELT_ID(110L),
                    VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Buttons", "53", "");
        placeButton(VELT_GRADIENTBUTTON_INIT(id(this), "pressed:"), "Gradient"_v, "+"_v, VELT_ID(28L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Buttons", "54", "");
        placeButton(VELT_ROUNDBUTTON_INIT(id(this), "pressed:"), "Round"_v, "1"_v, VELT_ID(32L), VELT_ID(32L));
        VELTS("controls.bas", "Gallery.Buttons", "55", "");
        placeButton(VELT_HELPBUTTON_INIT(id(this), "pressed:"), "Help"_v, ""_v, VELT_ID(26L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Buttons", "56", "");
        placeButton(VELT_DISCLOSURETRIANGLE_INIT(id(this), "pressed:"), "Triangle"_v, ""_v, VELT_ID(20L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Buttons", "57", "");
        placeButton(VELT_DISCLOSUREBUTTON_INIT(id(this), "pressed:"), "Disclosure"_v, ""_v, VELT_ID(28L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Buttons", "58", "");
        placeButton(VELT_CHECKBOX_INIT(id(this), "pressed:"), "Check box"_v, "Wrap lines"_v, VELT_ID(110L),
                    VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Buttons", "59", "");
        id mixed = VELT_CHECKBOX_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Buttons", "60", "");
        VELT_NSBUTTON_ALLOWSMIXEDSTATE(mixed, VELT_ID(BOOL{1}));
        VELTS("controls.bas", "Gallery.Buttons", "61", "");
        VELT_NSBUTTON_STATE(mixed, VELT_ID(-1L));
        VELTS("controls.bas", "Gallery.Buttons", "62", "");
        placeButton(mixed, "Mixed"_v, "Some"_v, VELT_ID(110L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Buttons", "63", "");
        id first = VELT_RADIOBUTTON_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Buttons", "64", "");
        VELT_NSBUTTON_STATE(first, VELT_ID(1L));
        VELTS("controls.bas", "Gallery.Buttons", "65", "");
        placeButton(first, "Radio"_v, "Left"_v, VELT_ID(110L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Buttons", "66", "");
        placeButton(VELT_RADIOBUTTON_INIT(id(this), "pressed:"), "Radio"_v, "Right"_v, VELT_ID(110L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Buttons", "67", "");
        placeControl(VELT_NSSEGMENTEDCONTROL_INIT(id(this), "pressed:"), "Segments"_v, VELT_ID(136L), VELT_ID(24L));
    }

    void fields() {
        VELTS("controls.bas", "Gallery.Fields", "71", "");
        id field = VELT_NSTEXTFIELD_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Fields", "72", "");
        VELT_NSCONTROL_STRINGVALUE(field, "Ada Lovelace"_v);
        VELTS("controls.bas", "Gallery.Fields", "73", "");
        placeControl(field, "Text"_v, VELT_ID(136L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Fields", "74", "");
        id secret = VELT_NSSECURETEXTFIELD_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Fields", "75", "");
        VELT_NSCONTROL_STRINGVALUE(secret, "secret"_v);
        VELTS("controls.bas", "Gallery.Fields", "76", "");
        placeControl(secret, "Secure"_v, VELT_ID(136L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Fields", "77", "");
        placeControl(VELT_NSSEARCHFIELD_INIT(id(this), "pressed:"), "Search"_v, VELT_ID(136L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Fields", "78", "");
        id tokens = VELT_NSTOKENFIELD_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Fields", "79", "");
        VELT_NSCONTROL_OBJECTVALUE(tokens, VELT_SPLIT("ink,pen"_v, ","_v));
        VELTS("controls.bas", "Gallery.Fields", "80", "");
        placeControl(tokens, "Tokens"_v, VELT_ID(136L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Fields", "81", "");
        id combo = VELT_NSCOMBOBOX_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Fields", "82", "");
        VELT_NSCONTROL_STRINGVALUE(combo, "Basic"_v);
        VELTS("controls.bas", "Gallery.Fields", "83", "");
        placeControl(combo, "Combo box"_v, VELT_ID(136L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Fields", "84", "");
        placeControl(VELT_NSPOPUPBUTTON_INIT(id(this), "pressed:"), "Pop-up"_v, VELT_ID(136L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Fields", "85", "");
        placeControl(VELT_NSDATEPICKER_INIT(id(this), "pressed:"), "Date"_v, VELT_ID(136L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Fields", "86", "");
        id path = VELT_NSPATHCONTROL_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Fields", "87", "");
        VELT_NSCONTROL_STRINGVALUE(path, "/usr/share"_v);
        VELTS("controls.bas", "Gallery.Fields", "88", "");
        placeControl(path, "Path"_v, VELT_ID(136L), VELT_ID(24L));
    }

    void values() {
        VELTS("controls.bas", "Gallery.Values", "92", "");
        id slider = VELT_NSSLIDER_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "93", "");
        VELT_NSCONTROL_DOUBLEVALUE(slider, VELT_ID(0.3));
        VELTS("controls.bas", "Gallery.Values", "94", "");
        placeControl(slider, "Slider"_v, VELT_ID(136L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Values", "95", "");
        id knob = VELT_CIRCULARSLIDER_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "96", "");
        VELT_NSCONTROL_DOUBLEVALUE(knob, VELT_ID(0.6));
        VELTS("controls.bas", "Gallery.Values", "97", "");
        placeControl(knob, "Knob"_v, VELT_ID(40L), VELT_ID(40L));
        VELTS("controls.bas", "Gallery.Values", "98", "");
        placeControl(VELT_NSSTEPPER_INIT(id(this), "pressed:"), "Stepper"_v, VELT_ID(20L), VELT_ID(28L));
        VELTS("controls.bas", "Gallery.Values", "99", "");
        id level = VELT_NSLEVELINDICATOR_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "100", "");
        VELT_NSCONTROL_INTEGERVALUE(level, VELT_ID(4L));
        VELTS("controls.bas", "Gallery.Values", "101", "");
        placeControl(level, "Level"_v, VELT_ID(136L), VELT_ID(18L));
        VELTS("controls.bas", "Gallery.Values", "102", "");
        placeControl(VELT_NSCOLORWELL_INIT(id(this), "pressed:"), "Colour"_v, VELT_ID(44L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Values", "103", "");
        id bar = VELT_NSPROGRESSINDICATOR_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Values", "104", "");
        VELT_NSPROGRESSINDICATOR_DOUBLEVALUE(bar, VELT_ID(60L));
        VELTS("controls.bas", "Gallery.Values", "105", "");
        place(bar, "Progress"_v, VELT_ID(136L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Values", "106", "");
        place(VELT_INDETERMINATEPROGRESSINDICATOR_INIT(id(this), ""), "Busy"_v, VELT_ID(136L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Values", "107", "");
        place(VELT_CIRCULARPROGRESSINDICATOR_INIT(id(this), ""), "Spinning"_v, VELT_ID(24L), VELT_ID(24L));
    }

    void containers() {
        VELTS("controls.bas", "Gallery.Containers", "111", "");
        id picture = VELT_NSIMAGEVIEW_INIT(id(this), "pressed:", "sample.png"_v);
        VELTS("controls.bas", "Gallery.Containers", "112", "");
        placeControl(picture, "Image"_v, VELT_ID(48L), VELT_ID(48L));
        VELTS("controls.bas", "Gallery.Containers", "113", "");
        id box = VELT_NSBOX_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "114", "");
        VELT_NSBOX_TITLE(box, "Box"_v);
        VELTS("controls.bas", "Gallery.Containers", "115", "");
        place(box, "Box"_v, VELT_ID(136L), VELT_ID(46L));
        VELTS("controls.bas", "Gallery.Containers", "116", "");
        id line = VELT_HORIZONTALLINE_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "117", "");
        VELT_NSBOX_BOXTYPE(line, VELT_ID(2L));
        VELTS("controls.bas", "Gallery.Containers", "118", "");
        place(line, "Line"_v, VELT_ID(136L), VELT_ID(4L));
        VELTS("controls.bas", "Gallery.Containers", "119", "");
        id scroll = VELT_NSSCROLLVIEW_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "120", "");
        VELT_NSSCROLLVIEW_HASVERTICALSCROLLER(scroll, VELT_ID(BOOL{1}));
        VELTS("controls.bas", "Gallery.Containers", "121", "");
        id page = VELT_NSVIEW_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "122", "");
        VELT_NSVIEW_FRAME(page, VELT_RECT_INIT(nil, "", VELT_ID(0L), VELT_ID(0L), VELT_ID(90L), VELT_ID(120L)));
        VELTS("controls.bas", "Gallery.Containers", "123", "");
        VELT_NSSCROLLVIEW_DOCUMENTVIEW(scroll, page);
        VELTS("controls.bas", "Gallery.Containers", "124", "");
        place(scroll, "Scroll"_v, VELT_ID(136L), VELT_ID(46L));
        VELTS("controls.bas", "Gallery.Containers", "125", "");
        id split = VELT_VERTICALSPLITVIEW_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "126", "");
        VELT_NSVIEW_APPEND(split, VELT_NSVIEW_INIT(id(this), ""));
        VELTS("controls.bas", "Gallery.Containers", "127", "");
        VELT_NSVIEW_APPEND(split, VELT_NSVIEW_INIT(id(this), ""));
        VELTS("controls.bas", "Gallery.Containers", "128", "");
        place(split, "Split"_v, VELT_ID(136L), VELT_ID(46L));
        VELTS("controls.bas", "Gallery.Containers", "129", "");
        place(VELT_NSTABVIEW_INIT(id(this), ""), "Tabs"_v, VELT_ID(136L), VELT_ID(46L));
        VELTS("controls.bas", "Gallery.Containers", "130", "");
        place(VELT_NSBROWSER_INIT(id(this), "pressed:"), "Browser"_v, VELT_ID(136L), VELT_ID(46L));
        VELTS("controls.bas", "Gallery.Containers", "131", "");
        place(VELT_NSOUTLINEVIEW_INIT(id(this), "pressed:"), "Outline"_v, VELT_ID(136L), VELT_ID(46L));
    }

    /// Presses the first button and the first check box, as a person would.
    void work() {
        for (const char* tag : {"0", "12"}) {
            velt::send(
                velt::send(VELT_NSWINDOW_CONTENTVIEW(window), "viewWithTag:", velt::string(std::string_view(tag))),
                "performClick:", nil);
        }
    }

    void open() {
        VELTS("controls.bas", "Gallery.Open", "135", "");
        names = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
        VELTS("controls.bas", "Gallery.Open", "136", "");
        window = VELT__NSWINDOW(VELT_NSWINDOW_INIT(id(this), ""));
        VELTS("controls.bas", "Gallery.Open", "137", "");
        VELT_NSWINDOW_TITLE(window, "Controls"_v);
        VELTS("controls.bas", "Gallery.Open", "138", "");
        VELT_NSWINDOW_CONTENTSIZE(window, VELT_SIZE_INIT(nil, "", VELT_ID(984L), VELT_ID(812L)));
        VELTS("controls.bas", "Gallery.Open", "139", "");
        buttons();
        VELTS("controls.bas", "Gallery.Open", "140", "");
        fields();
        VELTS("controls.bas", "Gallery.Open", "141", "");
        values();
        VELTS("controls.bas", "Gallery.Open", "142", "");
        containers();
        VELTS("controls.bas", "Gallery.Open", "143", "");
        log = VELT__NSTEXTVIEW(VELT_NSTEXTVIEW_INIT(id(this), ""));
        VELTS("controls.bas", "Gallery.Open", "144", "");
        VELT_NSVIEW_FRAME(log, VELT_RECT_INIT(nil, "", VELT_ID(16L), VELT_ID(16L), VELT_ID(952L), VELT_ID(150L)));
        VELTS("controls.bas", "Gallery.Open", "145", "");
        VELT_NSTEXT_EDITABLE(log, VELT_ID(BOOL{0}));
        VELTS("controls.bas", "Gallery.Open", "146", "");
        VELT_NSVIEW_AUTORESIZINGMASK(log, VELT_ID(2L));
        VELTS("controls.bas", "Gallery.Open", "147", "");
        VELT_NSVIEW_TOOLTIP(log, "What the controls sent"_v);
        VELTS("controls.bas", "Gallery.Open", "148", "");
        VELT_NSWINDOW_APPEND(window, log);
        VELTS("controls.bas", "Gallery.Open", "149", "");
        VELT_NSWINDOW_RECALCULATEKEYVIEWLOOP(window);
        VELTS("controls.bas", "Gallery.Open", "150", "");
        VELT_NSWINDOW_CENTERANDSHOW(window);
    }
};

int program(int, char**) {
    VELTS("controls.bas", "Main", "155", "");
    const velt::Ref<Gallery> gallery = velt::make<Gallery>();
    VELTS("controls.bas", "Main", "156", "");
    gallery->open();
    example::shotWhenAsked(gallery->window, [gallery] { gallery->work(); });
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return example::runShowing("controls", program, count, arguments); }
