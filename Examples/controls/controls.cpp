// controls.bas as the translator writes it: the gallery of all controls. --dark shows it in dark colours on whatever
// desktop, --reverse as those see it who read from right to left.
#include "support/screenshot.h"

namespace {

class Gallery : public NSObject {
    VELT_OBJECT(Gallery, NSObject)

public:
    id window, log, names, x = VELT_ID(0L), y = VELT_ID(0L);

    static void describe(velt::ClassBuilder<Gallery>& c) {
        c.property("window", &Gallery::window)
            .property("log", &Gallery::log)
            .property("names", &Gallery::names)
            .property("x", &Gallery::x)
            .property("y", &Gallery::y)
            .method("pressed:", &Gallery::pressed)
            .method("outlineView:numberOfChildrenOfItem:", &Gallery::childCount)
            .method("outlineView:child:ofItem:", &Gallery::child)
            .method("outlineView:isItemExpandable:", &Gallery::isGroup)
            .method("outlineView:objectValueForTableColumn:byItem:", &Gallery::itemText)
            .method("browser:numberOfRowsInColumn:", &Gallery::rowCount)
            .method("browser:willDisplayCell:atRow:column:", &Gallery::willDisplay);
    }

    void pressed(const id& sender) {
        VELTS("controls.bas", "Gallery.Pressed", "12", "");
        VELT_NSTEXTVIEW_APPEND(
            log,
            VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(VELT_NSMUTABLEARRAY_OBJECT(names, VELT_NSCONTROL_TAG(sender)), ": "_v),
                                    VELT_NSCONTROL_STRINGVALUE(sender)),
                        VELT_CHARACTER(VELT_ID(10L))));
    }

    void group(id title, id left) {
        VELTS("controls.bas", "Gallery.Group", "17", "");
        x = VELT__INTEGER(left);
        VELTS("controls.bas", "Gallery.Group", "18", "");
        y = VELT__INTEGER(VELT_ID(700L));
        VELTS("controls.bas", "Gallery.Group", "19", "");
        id heading = VELT_LABEL_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Group", "20", "");
        VELT_NSCONTROL_ATTRIBUTEDSTRINGVALUE(heading, VELT_CONCAT(VELT_CONCAT("<b>"_v, title), "</b>"_v));
        VELTS("controls.bas", "Gallery.Group", "21", "");
        VELT_NSVIEW_FRAME(heading, VELT_RECT_INIT(nil, "", x, y, VELT_ID(230L), VELT_ID(20L)));
        VELTS("controls.bas", "Gallery.Group", "22", "");
        VELT_NSWINDOW_APPEND(window, heading);
        VELTS("controls.bas", "Gallery.Group", "23", "");
        y = VELT__INTEGER(VELT_SUB(y, VELT_ID(12L)));
    }

    void place(id view, id name, id width, id height) {
        VELTS("controls.bas", "Gallery.Place", "28", "");
        id room = VELT__INTEGER(VELT_MAX(height, VELT_ID(24L)));
        VELTS("controls.bas", "Gallery.Place", "29", "");
        y = VELT__INTEGER(VELT_SUB(y, room));
        VELTS("controls.bas", "Gallery.Place", "30", "");
        id caption = VELT_LABEL_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Place", "31", "");
        VELT_NSCONTROL_STRINGVALUE(caption, name);
        VELTS("controls.bas", "Gallery.Place", "32", "");
        VELT_NSVIEW_FRAME(caption,
                          VELT_RECT_INIT(nil, "", x, VELT_SUB(VELT_ADD(y, VELT_DIV(room, VELT_ID(2L))), VELT_ID(9L)),
                                         VELT_ID(82L), VELT_ID(18L)));
        VELTS("controls.bas", "Gallery.Place", "33", "");
        VELT_NSCONTROL_ALIGNMENT(caption, VELT_ID(1L));
        VELTS("controls.bas", "Gallery.Place", "34", "");
        VELT_NSWINDOW_APPEND(window, caption);
        VELTS("controls.bas", "Gallery.Place", "35", "");
        VELT_NSVIEW_FRAME(view,
                          VELT_RECT_INIT(nil, "", VELT_ADD(x, VELT_ID(92L)),
                                         VELT_ADD(y, VELT_DIV(VELT_SUB(room, height), VELT_ID(2L))), width, height));
        VELTS("controls.bas", "Gallery.Place", "36", "");
        if (VELT_CBOOL(VELT_EQUAL(VELT_NSVIEW_TOOLTIP(view), ""_v))) VELT_NSVIEW_TOOLTIP(view, name);
        VELTS("controls.bas", "Gallery.Place", "37", "");
        VELT_NSWINDOW_APPEND(window, view);
        VELTS("controls.bas", "Gallery.Place", "38", "");
        y = VELT__INTEGER(VELT_SUB(y, VELT_ID(16L)));
    }

    void placeControl(id control, id name, id width, id height) {
        VELTS("controls.bas", "Gallery.PlaceControl", "43", "");
        VELT_NSCONTROL_TAG(control, VELT_NSMUTABLEARRAY_COUNT(names));
        VELTS("controls.bas", "Gallery.PlaceControl", "44", "");
        VELT_NSMUTABLEARRAY_APPEND(names, name);
        VELTS("controls.bas", "Gallery.PlaceControl", "45", "");
        place(control, name, width, height);
    }

    void placeButton(id button, id name, id title, id width, id height) {
        VELTS("controls.bas", "Gallery.PlaceButton", "49", "");
        VELT_NSBUTTON_TITLE(button, title);
        VELTS("controls.bas", "Gallery.PlaceButton", "50", "");
        placeControl(button, name, width, height);
    }

    void buttons() {
        VELTS("controls.bas", "Gallery.Buttons", "54", "");
        group("Buttons"_v, VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Buttons", "55", "");
        id save = VELT_PUSHBUTTON_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Buttons", "56", "");
        VELT_NSBUTTON_KEYEQUIVLANET(save, VELT_CHARACTER(VELT_ID(13L)));
        VELTS("controls.bas", "Gallery.Buttons", "57", "");
        placeButton(save, "Default"_v, "Save"_v, VELT_ID(120L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Buttons", "58", "");
        placeButton(VELT_PUSHBUTTON_INIT(id(this), "pressed:"), "Push"_v, "Cancel"_v, VELT_ID(120L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Buttons", "59", "");
        placeButton(VELT_BEVELBUTTON_INIT(id(this), "pressed:"), "Bevel"_v, "Bevel"_v, VELT_ID(120L), VELT_ID(28L));
        VELTS("controls.bas", "Gallery.Buttons", "60", "");
        placeButton(VELT_SQUAREBUTTON_INIT(id(this), "pressed:"), "Square"_v, "Square"_v, VELT_ID(120L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Buttons", "61", "");
        placeButton(VELT_TEXTUREDBUTTON_INIT(id(this), "pressed:"), "Textured"_v, "Textured"_v, VELT_ID(120L),
                    VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Buttons", "62", "");
        placeButton(VELT_ROUNDEDTEXTUREDBUTTON_INIT(id(this), "pressed:"), "Soft"_v, "Rounded"_v, VELT_ID(120L),
                    VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Buttons", "63", "");
        placeButton(VELT_ROUNDEDRECTBUTTON_INIT(id(this), "pressed:"), "Pill"_v, "Filter"_v, VELT_ID(120L),
                    VELT_ID(22L));
        VELTS("controls.bas", "Gallery.Buttons", "64", "");
        placeButton(VELT_RECESSEDBUTTON_INIT(id(this), "pressed:"), "Recessed"_v, "Recent"_v, VELT_ID(120L),
                    VELT_ID(22L));
        VELTS("controls.bas", "Gallery.Buttons", "65", "");
        placeButton(VELT_GRADIENTBUTTON_INIT(id(this), "pressed:"), "Gradient"_v, "+"_v, VELT_ID(28L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Buttons", "66", "");
        placeButton(VELT_ROUNDBUTTON_INIT(id(this), "pressed:"), "Round"_v, "1"_v, VELT_ID(32L), VELT_ID(32L));
        VELTS("controls.bas", "Gallery.Buttons", "67", "");
        placeButton(VELT_HELPBUTTON_INIT(id(this), "pressed:"), "Help"_v, ""_v, VELT_ID(26L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Buttons", "68", "");
        placeButton(VELT_DISCLOSURETRIANGLE_INIT(id(this), "pressed:"), "Triangle"_v, ""_v, VELT_ID(20L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Buttons", "69", "");
        placeButton(VELT_DISCLOSUREBUTTON_INIT(id(this), "pressed:"), "Disclosure"_v, ""_v, VELT_ID(28L), VELT_ID(24L));
    }

    void choices() {
        VELTS("controls.bas", "Gallery.Choices", "73", "");
        group("Choices and text"_v, VELT_ID(260L));
        VELTS("controls.bas", "Gallery.Choices", "74", "");
        placeButton(VELT_CHECKBOX_INIT(id(this), "pressed:"), "Check box"_v, "Wrap lines"_v, VELT_ID(150L),
                    VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Choices", "75", "");
        id mixed = VELT_CHECKBOX_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Choices", "76", "");
        VELT_NSBUTTON_ALLOWSMIXEDSTATE(mixed, VELT_ID(BOOL{1}));
        VELTS("controls.bas", "Gallery.Choices", "77", "");
        VELT_NSBUTTON_STATE(mixed, VELT_ID(-1L));
        VELTS("controls.bas", "Gallery.Choices", "78", "");
        placeButton(mixed, "Mixed"_v, "Some of them"_v, VELT_ID(150L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Choices", "79", "");
        id first = VELT_RADIOBUTTON_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Choices", "80", "");
        VELT_NSBUTTON_STATE(first, VELT_ID(1L));
        VELTS("controls.bas", "Gallery.Choices", "81", "");
        placeButton(first, "Radio"_v, "Left"_v, VELT_ID(150L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Choices", "82", "");
        placeButton(VELT_RADIOBUTTON_INIT(id(this), "pressed:"), "Radio"_v, "Right"_v, VELT_ID(150L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Choices", "83", "");
        id segments = VELT_NSSEGMENTEDCONTROL_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Choices", "84", "");
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, VELT_ID(2L))); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("controls.bas", "Gallery.Choices", "85", "");
            VELT_NSOBJECT_PERFORMSELECTOR2(segments, "setLabel:forSegment:"_v,
                                           VELT_NSMUTABLEARRAY_OBJECT(VELT_SPLIT("Day Week Month"_v, " "_v), i), i);
        }
        VELTS("controls.bas", "Gallery.Choices", "87", "");
        VELT_PROPERTY(segments, "selectedSegment"_v, VELT_ID(1L));
        VELTS("controls.bas", "Gallery.Choices", "88", "");
        placeControl(segments, "Segments"_v, VELT_ID(170L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Choices", "89", "");
        id menu = VELT_NSPOPUPBUTTON_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Choices", "90", "");
        VELT_NSPOPUPBUTTON_APPEND(menu, "Landscape"_v);
        VELTS("controls.bas", "Gallery.Choices", "91", "");
        VELT_NSPOPUPBUTTON_APPEND(menu, "Portrait"_v);
        VELTS("controls.bas", "Gallery.Choices", "92", "");
        placeControl(menu, "Pop-up"_v, VELT_ID(170L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Choices", "93", "");
        id combo = VELT_NSCOMBOBOX_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Choices", "94", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(combo, "addItemsWithObjectValues:"_v, VELT_SPLIT("Basic,C,Pascal"_v, ","_v));
        VELTS("controls.bas", "Gallery.Choices", "95", "");
        VELT_NSCONTROL_STRINGVALUE(combo, "Basic"_v);
        VELTS("controls.bas", "Gallery.Choices", "96", "");
        placeControl(combo, "Combo box"_v, VELT_ID(170L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Choices", "97", "");
        id field = VELT_NSTEXTFIELD_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Choices", "98", "");
        VELT_NSCONTROL_STRINGVALUE(field, "Ada Lovelace"_v);
        VELTS("controls.bas", "Gallery.Choices", "99", "");
        placeControl(field, "Text"_v, VELT_ID(170L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Choices", "100", "");
        id rich = VELT_NSTEXTFIELD_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Choices", "101", "");
        VELT_NSCONTROL_ATTRIBUTEDSTRINGVALUE(rich, "<b>Bold</b>, <u>lined</u>, <font color='#c0392b'>red</font>"_v);
        VELTS("controls.bas", "Gallery.Choices", "102", "");
        placeControl(rich, "Rich text"_v, VELT_ID(170L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Choices", "103", "");
        id secret = VELT_NSSECURETEXTFIELD_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Choices", "104", "");
        VELT_NSCONTROL_STRINGVALUE(secret, "secret"_v);
        VELTS("controls.bas", "Gallery.Choices", "105", "");
        placeControl(secret, "Secure"_v, VELT_ID(170L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Choices", "106", "");
        id search = VELT_NSSEARCHFIELD_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Choices", "107", "");
        VELT_NSCONTROL_STRINGVALUE(search, "notes"_v);
        VELTS("controls.bas", "Gallery.Choices", "108", "");
        placeControl(search, "Search"_v, VELT_ID(170L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Choices", "109", "");
        id tokens = VELT_NSTOKENFIELD_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Choices", "110", "");
        VELT_NSCONTROL_OBJECTVALUE(tokens, VELT_SPLIT("ink,pen,paper"_v, ","_v));
        VELTS("controls.bas", "Gallery.Choices", "111", "");
        placeControl(tokens, "Tokens"_v, VELT_ID(170L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Choices", "112", "");
        placeControl(VELT_NSDATEPICKER_INIT(id(this), "pressed:"), "Date"_v, VELT_ID(170L), VELT_ID(26L));
    }

    void values() {
        VELTS("controls.bas", "Gallery.Values", "116", "");
        group("Values"_v, VELT_ID(550L));
        VELTS("controls.bas", "Gallery.Values", "117", "");
        id slider = VELT_NSSLIDER_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "118", "");
        VELT_NSCONTROL_DOUBLEVALUE(slider, VELT_ID(0.3));
        VELTS("controls.bas", "Gallery.Values", "119", "");
        placeControl(slider, "Slider"_v, VELT_ID(150L), VELT_ID(24L));
        VELTS("controls.bas", "Gallery.Values", "120", "");
        id ticks = VELT_NSSLIDER_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "121", "");
        VELT_PROPERTY(ticks, "numberOfTickMarks"_v, VELT_ID(6L));
        VELTS("controls.bas", "Gallery.Values", "122", "");
        VELT_NSCONTROL_DOUBLEVALUE(ticks, VELT_ID(0.6));
        VELTS("controls.bas", "Gallery.Values", "123", "");
        placeControl(ticks, "Steps"_v, VELT_ID(150L), VELT_ID(28L));
        VELTS("controls.bas", "Gallery.Values", "124", "");
        id knob = VELT_CIRCULARSLIDER_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "125", "");
        VELT_NSCONTROL_DOUBLEVALUE(knob, VELT_ID(0.6));
        VELTS("controls.bas", "Gallery.Values", "126", "");
        placeControl(knob, "Knob"_v, VELT_ID(40L), VELT_ID(40L));
        VELTS("controls.bas", "Gallery.Values", "127", "");
        placeControl(VELT_NSSTEPPER_INIT(id(this), "pressed:"), "Stepper"_v, VELT_ID(20L), VELT_ID(28L));
        VELTS("controls.bas", "Gallery.Values", "128", "");
        id relevance = VELT_NSLEVELINDICATOR_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "129", "");
        VELT_PROPERTY(relevance, "levelIndicatorStyle"_v, VELT_ID(0L));
        VELTS("controls.bas", "Gallery.Values", "130", "");
        VELT_PROPERTY(relevance, "maxValue"_v, VELT_ID(100L));
        VELTS("controls.bas", "Gallery.Values", "131", "");
        VELT_NSCONTROL_DOUBLEVALUE(relevance, VELT_ID(60L));
        VELTS("controls.bas", "Gallery.Values", "132", "");
        placeControl(relevance, "Relevance"_v, VELT_ID(150L), VELT_ID(18L));
        VELTS("controls.bas", "Gallery.Values", "133", "");
        id capacity = VELT_NSLEVELINDICATOR_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "134", "");
        VELT_PROPERTY(capacity, "levelIndicatorStyle"_v, VELT_ID(1L));
        VELTS("controls.bas", "Gallery.Values", "135", "");
        VELT_PROPERTY(capacity, "maxValue"_v, VELT_ID(100L));
        VELTS("controls.bas", "Gallery.Values", "136", "");
        VELT_NSCONTROL_DOUBLEVALUE(capacity, VELT_ID(60L));
        VELTS("controls.bas", "Gallery.Values", "137", "");
        placeControl(capacity, "Capacity"_v, VELT_ID(150L), VELT_ID(18L));
        VELTS("controls.bas", "Gallery.Values", "138", "");
        id level = VELT_NSLEVELINDICATOR_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "139", "");
        VELT_PROPERTY(level, "levelIndicatorStyle"_v, VELT_ID(2L));
        VELTS("controls.bas", "Gallery.Values", "140", "");
        VELT_PROPERTY(level, "maxValue"_v, VELT_ID(5L));
        VELTS("controls.bas", "Gallery.Values", "141", "");
        VELT_NSCONTROL_DOUBLEVALUE(level, VELT_ID(4L));
        VELTS("controls.bas", "Gallery.Values", "142", "");
        placeControl(level, "Level"_v, VELT_ID(150L), VELT_ID(18L));
        VELTS("controls.bas", "Gallery.Values", "143", "");
        id rating = VELT_NSLEVELINDICATOR_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "144", "");
        VELT_PROPERTY(rating, "levelIndicatorStyle"_v, VELT_ID(3L));
        VELTS("controls.bas", "Gallery.Values", "145", "");
        VELT_PROPERTY(rating, "maxValue"_v, VELT_ID(5L));
        VELTS("controls.bas", "Gallery.Values", "146", "");
        VELT_NSCONTROL_DOUBLEVALUE(rating, VELT_ID(3L));
        VELTS("controls.bas", "Gallery.Values", "147", "");
        placeControl(rating, "Rating"_v, VELT_ID(150L), VELT_ID(18L));
        VELTS("controls.bas", "Gallery.Values", "148", "");
        id paint = VELT_NSCOLORWELL_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "149", "");
        VELT_PROPERTY(paint, "color"_v, VELT_NSOBJECT_PERFORMSELECTOR0(NSColor::entry().object(), "orangeColor"_v));
        VELTS("controls.bas", "Gallery.Values", "150", "");
        placeControl(paint, "Colour"_v, VELT_ID(44L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Values", "151", "");
        id bar = VELT_NSPROGRESSINDICATOR_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Values", "152", "");
        VELT_NSPROGRESSINDICATOR_DOUBLEVALUE(bar, VELT_ID(60L));
        VELTS("controls.bas", "Gallery.Values", "153", "");
        place(bar, "Progress"_v, VELT_ID(150L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Values", "154", "");
        place(VELT_INDETERMINATEPROGRESSINDICATOR_INIT(id(this), ""), "Busy"_v, VELT_ID(150L), VELT_ID(20L));
        VELTS("controls.bas", "Gallery.Values", "155", "");
        place(VELT_CIRCULARPROGRESSINDICATOR_INIT(id(this), ""), "Spinning"_v, VELT_ID(26L), VELT_ID(26L));
        VELTS("controls.bas", "Gallery.Values", "156", "");
        id path = VELT_NSPATHCONTROL_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Values", "157", "");
        VELT_NSCONTROL_STRINGVALUE(path, "/usr/share"_v);
        VELTS("controls.bas", "Gallery.Values", "158", "");
        placeControl(path, "Path"_v, VELT_ID(150L), VELT_ID(24L));
    }

    void containers() {
        VELTS("controls.bas", "Gallery.Containers", "162", "");
        group("Views"_v, VELT_ID(822L));
        VELTS("controls.bas", "Gallery.Containers", "163", "");
        id picture = VELT_NSIMAGEVIEW_INIT(id(this), "pressed:", "sample.png"_v);
        VELTS("controls.bas", "Gallery.Containers", "164", "");
        placeControl(picture, "Image"_v, VELT_ID(48L), VELT_ID(48L));
        VELTS("controls.bas", "Gallery.Containers", "165", "");
        id box = VELT_NSBOX_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "166", "");
        VELT_NSBOX_TITLE(box, "Box"_v);
        VELTS("controls.bas", "Gallery.Containers", "167", "");
        place(box, "Box"_v, VELT_ID(170L), VELT_ID(46L));
        VELTS("controls.bas", "Gallery.Containers", "168", "");
        id line = VELT_HORIZONTALLINE_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "169", "");
        VELT_NSBOX_BOXTYPE(line, VELT_ID(2L));
        VELTS("controls.bas", "Gallery.Containers", "170", "");
        place(line, "Line"_v, VELT_ID(170L), VELT_ID(4L));
        VELTS("controls.bas", "Gallery.Containers", "171", "");
        id scroll = VELT_NSSCROLLVIEW_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "172", "");
        VELT_NSSCROLLVIEW_HASVERTICALSCROLLER(scroll, VELT_ID(BOOL{1}));
        VELTS("controls.bas", "Gallery.Containers", "173", "");
        VELT_NSSCROLLVIEW_HASHORIZONTALSCROLLER(scroll, VELT_ID(BOOL{1}));
        VELTS("controls.bas", "Gallery.Containers", "174", "");
        VELT_PROPERTY(scroll, "borderType"_v, VELT_ID(2L));
        VELTS("controls.bas", "Gallery.Containers", "175", "");
        id page = VELT_NSIMAGEVIEW_INIT(id(this), "", "sample.png"_v);
        VELTS("controls.bas", "Gallery.Containers", "176", "");
        VELT_NSIMAGEVIEW_IMAGESCALING(page, VELT_ID(3L));
        VELTS("controls.bas", "Gallery.Containers", "177", "");
        VELT_NSVIEW_FRAME(page, VELT_RECT_INIT(nil, "", VELT_ID(0L), VELT_ID(0L), VELT_ID(220L), VELT_ID(220L)));
        VELTS("controls.bas", "Gallery.Containers", "178", "");
        VELT_NSSCROLLVIEW_DOCUMENTVIEW(scroll, page);
        VELTS("controls.bas", "Gallery.Containers", "179", "");
        place(scroll, "Scroll"_v, VELT_ID(170L), VELT_ID(70L));
        VELTS("controls.bas", "Gallery.Containers", "180", "");
        id split = VELT_VERTICALSPLITVIEW_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "181", "");
        id left = VELT_LABEL_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "182", "");
        VELT_NSCONTROL_STRINGVALUE(left, "Left"_v);
        VELTS("controls.bas", "Gallery.Containers", "183", "");
        id right = VELT_LABEL_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "184", "");
        VELT_NSCONTROL_STRINGVALUE(right, "Right"_v);
        VELTS("controls.bas", "Gallery.Containers", "185", "");
        VELT_NSVIEW_FRAME(left, VELT_RECT_INIT(nil, "", VELT_ID(0L), VELT_ID(0L), VELT_ID(80L), VELT_ID(30L)));
        VELTS("controls.bas", "Gallery.Containers", "186", "");
        VELT_NSVIEW_FRAME(right, VELT_RECT_INIT(nil, "", VELT_ID(90L), VELT_ID(0L), VELT_ID(80L), VELT_ID(30L)));
        VELTS("controls.bas", "Gallery.Containers", "187", "");
        VELT_NSVIEW_FRAME(split, VELT_RECT_INIT(nil, "", VELT_ID(0L), VELT_ID(0L), VELT_ID(170L), VELT_ID(30L)));
        VELTS("controls.bas", "Gallery.Containers", "188", "");
        VELT_NSVIEW_APPEND(split, left);
        VELTS("controls.bas", "Gallery.Containers", "189", "");
        VELT_NSVIEW_APPEND(split, right);
        VELTS("controls.bas", "Gallery.Containers", "190", "");
        place(split, "Split"_v, VELT_ID(170L), VELT_ID(30L));
        VELTS("controls.bas", "Gallery.Containers", "191", "");
        id tabs = VELT_NSTABVIEW_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Containers", "192", "");
        id general = velt::make<NSTabViewItem>();
        VELTS("controls.bas", "Gallery.Containers", "193", "");
        VELT_PROPERTY(general, "label"_v, "General"_v);
        VELTS("controls.bas", "Gallery.Containers", "194", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(tabs, "addTabViewItem:"_v, general);
        VELTS("controls.bas", "Gallery.Containers", "195", "");
        id colours = velt::make<NSTabViewItem>();
        VELTS("controls.bas", "Gallery.Containers", "196", "");
        VELT_PROPERTY(colours, "label"_v, "Colours"_v);
        VELTS("controls.bas", "Gallery.Containers", "197", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(tabs, "addTabViewItem:"_v, colours);
        VELTS("controls.bas", "Gallery.Containers", "198", "");
        place(tabs, "Tabs"_v, VELT_ID(170L), VELT_ID(64L));
        VELTS("controls.bas", "Gallery.Containers", "199", "");
        id browser = VELT_NSBROWSER_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Containers", "200", "");
        VELT_PROPERTY(browser, "titled"_v, VELT_ID(BOOL{0}));
        VELTS("controls.bas", "Gallery.Containers", "201", "");
        VELT_NSCONTROL_DELEGATE(browser, id(this));
        VELTS("controls.bas", "Gallery.Containers", "202", "");
        placeControl(browser, "Browser"_v, VELT_ID(170L), VELT_ID(76L));
        VELTS("controls.bas", "Gallery.Containers", "203", "");
        id outline = VELT_NSOUTLINEVIEW_INIT(id(this), "pressed:");
        VELTS("controls.bas", "Gallery.Containers", "204", "");
        id column = velt::make<NSTableColumn>();
        VELTS("controls.bas", "Gallery.Containers", "205", "");
        VELT_PROPERTY(column, "title"_v, "Name"_v);
        VELTS("controls.bas", "Gallery.Containers", "206", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(outline, "addTableColumn:"_v, column);
        VELTS("controls.bas", "Gallery.Containers", "207", "");
        VELT_PROPERTY(outline, "outlineTableColumn"_v, column);
        VELTS("controls.bas", "Gallery.Containers", "208", "");
        VELT_PROPERTY(outline, "dataSource"_v, id(this));
        VELTS("controls.bas", "Gallery.Containers", "209", "");
        placeControl(outline, "Outline"_v, VELT_ID(170L), VELT_ID(84L));
        VELTS("controls.bas", "Gallery.Containers", "210", "");
        VELT_NSOBJECT_PERFORMSELECTOR1(outline, "expandItem:"_v, nil);
    }

    id childCount(const id&, const id& item) {
        VELTS("controls.bas", "Gallery.ChildCount", "215", "");
        if (VELT_CBOOL(VELT_EQUAL(item, "Fruit"_v))) return VELT_ID(3L);
        VELTS("controls.bas", "Gallery.ChildCount", "216", "");
        if (VELT_CBOOL(VELT_EQUAL(item, nil))) return VELT_ID(2L);
        VELTS("controls.bas", "Gallery.ChildCount", "217", "");
        return VELT_ID(0L);
    }

    id child(const id&, const id& index, const id& item) {
        VELTS("controls.bas", "Gallery.Child", "221", "");
        if (VELT_CBOOL(VELT_EQUAL(item, nil)))
            return VELT_NSMUTABLEARRAY_OBJECT(VELT_SPLIT("Fruit Bread"_v, " "_v), index);
        VELTS("controls.bas", "Gallery.Child", "222", "");
        return VELT_NSMUTABLEARRAY_OBJECT(VELT_SPLIT("Apple Cherry Pear"_v, " "_v), index);
    }

    id isGroup(const id&, const id& item) {
        VELTS("controls.bas", "Gallery.IsGroup", "226", "");
        return VELT_EQUAL(item, "Fruit"_v);
    }

    id itemText(const id&, const id&, const id& item) {
        VELTS("controls.bas", "Gallery.ItemText", "230", "");
        return item;
    }

    id rowCount(const id&, const id& column) {
        VELTS("controls.bas", "Gallery.RowCount", "235", "");
        return VELT_SUB(VELT_ID(3L), column);
    }

    void willDisplay(const id&, const id& cell, const id& row, const id& column) {
        VELTS("controls.bas", "Gallery.WillDisplay", "239", "");
        VELT_NSCELL_STRINGVALUE(cell, VELT_NSMUTABLEARRAY_OBJECT(VELT_SPLIT("Plants Animals Stones"_v, " "_v), row));
        VELTS("controls.bas", "Gallery.WillDisplay", "240", "");
        VELT_PROPERTY(cell, "leaf"_v, VELT_GREATER(column, VELT_ID(0L)));
    }

    /// Presses the first button and the first check box, as a person would.
    void work() {
        for (const long tag : {1L, 13L}) {
            velt::send(velt::send(VELT_NSWINDOW_CONTENTVIEW(window), "viewWithTag:", VELT_ID(tag)),
                       "performClick:", nil);
        }
    }

    void open() {
        VELTS("controls.bas", "Gallery.Open", "244", "");
        names = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
        VELTS("controls.bas", "Gallery.Open", "245", "");
        window = VELT__NSWINDOW(VELT_NSWINDOW_INIT(id(this), ""));
        VELTS("controls.bas", "Gallery.Open", "246", "");
        VELT_NSWINDOW_TITLE(window, "Controls"_v);
        VELTS("controls.bas", "Gallery.Open", "247", "");
        VELT_NSWINDOW_CONTENTSIZE(window, VELT_SIZE_INIT(nil, "", VELT_ID(1104L), VELT_ID(732L)));
        VELTS("controls.bas", "Gallery.Open", "248", "");
        buttons();
        VELTS("controls.bas", "Gallery.Open", "249", "");
        choices();
        VELTS("controls.bas", "Gallery.Open", "250", "");
        values();
        VELTS("controls.bas", "Gallery.Open", "251", "");
        containers();
        VELTS("controls.bas", "Gallery.Open", "252", "");
        log = VELT__NSTEXTVIEW(VELT_NSTEXTVIEW_INIT(id(this), ""));
        VELTS("controls.bas", "Gallery.Open", "253", "");
        VELT_NSTEXT_EDITABLE(log, VELT_ID(BOOL{0}));
        VELTS("controls.bas", "Gallery.Open", "254", "");
        VELT_NSVIEW_TOOLTIP(log, "What the controls sent"_v);
        VELTS("controls.bas", "Gallery.Open", "255", "");
        id page = VELT_NSSCROLLVIEW_INIT(id(this), "");
        VELTS("controls.bas", "Gallery.Open", "256", "");
        VELT_NSSCROLLVIEW_HASVERTICALSCROLLER(page, VELT_ID(BOOL{1}));
        VELTS("controls.bas", "Gallery.Open", "257", "");
        VELT_NSSCROLLVIEW_AUTOHIDESSCROLLERS(page, VELT_ID(BOOL{1}));
        VELTS("controls.bas", "Gallery.Open", "258", "");
        VELT_PROPERTY(page, "borderType"_v, VELT_ID(2L));
        VELTS("controls.bas", "Gallery.Open", "259", "");
        VELT_NSVIEW_FRAME(page, VELT_RECT_INIT(nil, "", VELT_ID(20L), VELT_ID(16L), VELT_ID(1064L), VELT_ID(84L)));
        VELTS("controls.bas", "Gallery.Open", "260", "");
        VELT_NSVIEW_AUTORESIZINGMASK(page, VELT_ID(2L));
        VELTS("controls.bas", "Gallery.Open", "261", "");
        VELT_NSSCROLLVIEW_DOCUMENTVIEW(page, log);
        VELTS("controls.bas", "Gallery.Open", "262", "");
        VELT_NSWINDOW_APPEND(window, page);
        VELTS("controls.bas", "Gallery.Open", "263", "");
        VELT_NSWINDOW_RECALCULATEKEYVIEWLOOP(window);
        VELTS("controls.bas", "Gallery.Open", "264", "");
        VELT_NSWINDOW_CENTERANDSHOW(window);
    }
};

int program(int count, char** arguments) {
    example::dressAsAsked(count, arguments);
    VELTS("controls.bas", "Main", "269", "");
    const velt::Ref<Gallery> gallery = velt::make<Gallery>();
    VELTS("controls.bas", "Main", "270", "");
    gallery->open();
    example::shotWhenAsked(gallery->window, [gallery] { gallery->work(); });
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return example::runShowing("controls", program, count, arguments); }
