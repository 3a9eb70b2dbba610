// settings.bas as the translator writes it.
#include "preferences/settings.h"

namespace reader {

id keptColor(id key) {
    VELTS("settings.bas", "KeptColor", "5", "");
    id parts = VELT__NSARRAY(VELT_NSUSERDEFAULTS_GET(nil, key));
    VELTS("settings.bas", "KeptColor", "6", "");
    return VELT__NSCOLOR(VELT_NSCOLOR_INIT(nil, "", VELT_NSARRAY_OBJECT(parts, number(0)),
                                           VELT_NSARRAY_OBJECT(parts, number(1)), VELT_NSARRAY_OBJECT(parts, number(2)),
                                           VELT_ID(1.0)));
}

id colorParts(id red, id green, id blue) {
    VELTS("settings.bas", "ColorParts", "10", "");
    id parts = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("settings.bas", "ColorParts", "11", "");
    VELT_NSMUTABLEARRAY_APPEND(parts, red);
    VELTS("settings.bas", "ColorParts", "12", "");
    VELT_NSMUTABLEARRAY_APPEND(parts, green);
    VELTS("settings.bas", "ColorParts", "13", "");
    VELT_NSMUTABLEARRAY_APPEND(parts, blue);
    VELTS("settings.bas", "ColorParts", "14", "");
    return VELT__NSMUTABLEARRAY(parts);
}

void ReaderPreferences::describe(velt::ClassBuilder<ReaderPreferences>& c) {
    c.property("owner", &ReaderPreferences::owner)
        .property("panes", &ReaderPreferences::panes)
        .property("name", &ReaderPreferences::name)
        .property("size", &ReaderPreferences::size)
        .property("textColor", &ReaderPreferences::textColor)
        .property("paperColor", &ReaderPreferences::paperColor)
        .method("PreferencesItemIdentifiers", &ReaderPreferences::itemIdentifiers)
        .method("PreferencesItems", &ReaderPreferences::items)
        .method("PreferencesDefaults", &ReaderPreferences::defaults)
        .method("PreferencesChanged:", &ReaderPreferences::changed)
        .method("controlTextDidChange:", &ReaderPreferences::controlTextDidChange)
        .method("takeColor:", &ReaderPreferences::takeColor)
        .method("forget:", &ReaderPreferences::forget);
}

id ReaderPreferences::itemIdentifiers() {
    VELTS("settings.bas", "ReaderPreferences.PreferencesItemIdentifiers", "26", "");
    return VELT__NSARRAY(VELT_SPLIT("General Appearance Advanced"_v, " "_v));
}

id ReaderPreferences::items() {
    VELTS("settings.bas", "ReaderPreferences.PreferencesItems", "30", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(panes), number(0)))) {
        VELTS("settings.bas", "ReaderPreferences.PreferencesItems", "31", "");
        buildGeneral(addPane(number(400), number(148)));
        VELTS("settings.bas", "ReaderPreferences.PreferencesItems", "32", "");
        buildAppearance(addPane(number(440), number(188)));
        VELTS("settings.bas", "ReaderPreferences.PreferencesItems", "33", "");
        buildAdvanced(addPane(number(400), number(130)));
        VELTS("settings.bas", "ReaderPreferences.PreferencesItems", "34", "");
        showValues();
    }
    VELTS("settings.bas", "ReaderPreferences.PreferencesItems", "36", "");
    return VELT__NSMUTABLEARRAY(panes);
}

id ReaderPreferences::defaults() {
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "40", "");
    id usual = VELT__NSMUTABLEDICTIONARY(velt::make<NSMutableDictionary>());
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "41", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "Name"_v, ""_v);
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "42", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "Greets"_v, boolean(true));
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "43", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "ShowsClock"_v, boolean(true));
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "44", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "ShowsSeconds"_v, boolean(false));
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "45", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "Typeface"_v, number(0));
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "46", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "FontSize"_v, VELT_ID(14.0));
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "47", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "TextColor"_v, colorParts(VELT_ID(0.16), VELT_ID(0.15), VELT_ID(0.13)));
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "48", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "PaperColor"_v, colorParts(VELT_ID(0.99), VELT_ID(0.97), VELT_ID(0.92)));
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "49", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "AsksToClose"_v, boolean(false));
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "50", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "KeepsFrame"_v, boolean(true));
    VELTS("settings.bas", "ReaderPreferences.PreferencesDefaults", "51", "");
    return VELT__NSMUTABLEDICTIONARY(usual);
}

void ReaderPreferences::changed(id) {
    VELTS("settings.bas", "ReaderPreferences.PreferencesChanged", "55", "");
    if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(panes), number(0)))) showValues();
    VELTS("settings.bas", "ReaderPreferences.PreferencesChanged", "56", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(owner, "dress"_v);
}

void ReaderPreferences::buildGeneral(id pane) {
    VELTS("settings.bas", "ReaderPreferences.BuildGeneral", "60", "");
    name = VELT_NSTEXTFIELD_INIT(id(this), "");
    VELTS("settings.bas", "ReaderPreferences.BuildGeneral", "61", "");
    VELT_NSTEXTFIELD_DELEGATE(name, id(this));
    VELTS("settings.bas", "ReaderPreferences.BuildGeneral", "62", "");
    addRow(pane, VELT__STRING("Your name:"_v), name, VELT__INTEGER(number(106)), VELT__INTEGER(number(250)));
    VELTS("settings.bas", "ReaderPreferences.BuildGeneral", "63", "");
    addBox(pane, VELT__STRING("Greet me by it"_v), VELT__STRING("Greets"_v), VELT__INTEGER(number(74)));
    VELTS("settings.bas", "ReaderPreferences.BuildGeneral", "64", "");
    addBox(pane, VELT__STRING("Show the time of day"_v), VELT__STRING("ShowsClock"_v), VELT__INTEGER(number(46)));
    VELTS("settings.bas", "ReaderPreferences.BuildGeneral", "65", "");
    addBox(pane, VELT__STRING("With seconds"_v), VELT__STRING("ShowsSeconds"_v), VELT__INTEGER(number(18)));
}

void ReaderPreferences::buildAppearance(id pane) {
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "69", "");
    id typeface = VELT_NSPOPUPBUTTON_INIT(id(this), "");
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "70", "");
    VELT_NSPOPUPBUTTON_APPEND(typeface, "Plain"_v);
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "71", "");
    VELT_NSPOPUPBUTTON_APPEND(typeface, "Bold"_v);
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "72", "");
    VELT_NSPOPUPBUTTON_APPEND(typeface, "All characters of one width"_v);
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "73", "");
    VELT_NSOBJECT_BIND(typeface, "integerValue"_v, VELT_id_NSUSERDEFAULTS, "Typeface"_v, nil);
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "74", "");
    addRow(pane, VELT__STRING("Letters:"_v), typeface, VELT__INTEGER(number(144)), VELT__INTEGER(number(240)));
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "75", "");
    id slider = VELT_NSSLIDER_INIT(id(this), "");
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "76", "");
    VELT_PROPERTY(slider, "minValue"_v, number(10));
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "77", "");
    VELT_PROPERTY(slider, "maxValue"_v, number(32));
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "78", "");
    VELT_PROPERTY(slider, "numberOfTickMarks"_v, number(12));
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "79", "");
    VELT_PROPERTY(slider, "allowsTickMarkValuesOnly"_v, boolean(true));
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "80", "");
    VELT_PROPERTY(slider, "continuous"_v, boolean(true));
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "81", "");
    VELT_NSOBJECT_BIND(slider, "doubleValue"_v, VELT_id_NSUSERDEFAULTS, "FontSize"_v, nil);
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "82", "");
    addRow(pane, VELT__STRING("Size:"_v), slider, VELT__INTEGER(number(102)), VELT__INTEGER(number(240)));
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "83", "");
    size = VELT_LABEL_INIT(id(this), "");
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "84", "");
    VELT_NSVIEW_FRAME(size, newRect(374, 104, 60, 22));
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "85", "");
    VELT_NSVIEW_APPEND(pane, size);
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "86", "");
    textColor = VELT_NSCOLORWELL_INIT(id(this), "takeColor:");
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "87", "");
    addRow(pane, VELT__STRING("Text:"_v), textColor, VELT__INTEGER(number(60)), VELT__INTEGER(number(60)));
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "88", "");
    paperColor = VELT_NSCOLORWELL_INIT(id(this), "takeColor:");
    VELTS("settings.bas", "ReaderPreferences.BuildAppearance", "89", "");
    addRow(pane, VELT__STRING("Paper:"_v), paperColor, VELT__INTEGER(number(18)), VELT__INTEGER(number(60)));
}

void ReaderPreferences::buildAdvanced(id pane) {
    VELTS("settings.bas", "ReaderPreferences.BuildAdvanced", "93", "");
    addCaption(pane, VELT__STRING("Window:"_v), VELT__INTEGER(number(88)));
    VELTS("settings.bas", "ReaderPreferences.BuildAdvanced", "94", "");
    addBox(pane, VELT__STRING("Ask before it is closed"_v), VELT__STRING("AsksToClose"_v), VELT__INTEGER(number(88)));
    VELTS("settings.bas", "ReaderPreferences.BuildAdvanced", "95", "");
    addBox(pane, VELT__STRING("Open it where it was closed"_v), VELT__STRING("KeepsFrame"_v),
           VELT__INTEGER(number(60)));
    VELTS("settings.bas", "ReaderPreferences.BuildAdvanced", "96", "");
    id button = VELT_PUSHBUTTON_INIT(id(this), "forget:");
    VELTS("settings.bas", "ReaderPreferences.BuildAdvanced", "97", "");
    VELT_NSBUTTON_TITLE(button, "Use the Usual Settings"_v);
    VELTS("settings.bas", "ReaderPreferences.BuildAdvanced", "98", "");
    VELT_NSVIEW_FRAME(button, newRect(126, 16, 200, 28));
    VELTS("settings.bas", "ReaderPreferences.BuildAdvanced", "99", "");
    VELT_NSVIEW_APPEND(pane, button);
}

id ReaderPreferences::addPane(id width, id height) {
    VELTS("settings.bas", "ReaderPreferences.AddPane", "103", "");
    id pane = VELT_NSVIEW_INIT(id(this), "");
    VELTS("settings.bas", "ReaderPreferences.AddPane", "104", "");
    VELT_NSVIEW_FRAME(pane, VELT_RECT_INIT(nil, "", number(0), number(0), width, height));
    VELTS("settings.bas", "ReaderPreferences.AddPane", "105", "");
    VELT_NSMUTABLEARRAY_APPEND(panes, pane);
    VELTS("settings.bas", "ReaderPreferences.AddPane", "106", "");
    return VELT__NSVIEW(pane);
}

void ReaderPreferences::addCaption(id pane, id caption, id y) {
    VELTS("settings.bas", "ReaderPreferences.AddCaption", "110", "");
    id words = VELT_LABEL_INIT(id(this), "");
    VELTS("settings.bas", "ReaderPreferences.AddCaption", "111", "");
    VELT_NSCONTROL_STRINGVALUE(words, caption);
    VELTS("settings.bas", "ReaderPreferences.AddCaption", "112", "");
    VELT_NSCONTROL_ALIGNMENT(words, number(1));
    VELTS("settings.bas", "ReaderPreferences.AddCaption", "113", "");
    VELT_NSVIEW_FRAME(words, VELT_RECT_INIT(nil, "", number(16), y, number(100), number(22)));
    VELTS("settings.bas", "ReaderPreferences.AddCaption", "114", "");
    VELT_NSVIEW_APPEND(pane, words);
}

void ReaderPreferences::addRow(id pane, id caption, id control, id y, id width) {
    VELTS("settings.bas", "ReaderPreferences.AddRow", "118", "");
    addCaption(pane, caption, VELT__INTEGER(VELT_ADD(y, number(2))));
    VELTS("settings.bas", "ReaderPreferences.AddRow", "119", "");
    VELT_NSVIEW_FRAME(control, VELT_RECT_INIT(nil, "", number(126), y, width, number(26)));
    VELTS("settings.bas", "ReaderPreferences.AddRow", "120", "");
    VELT_NSVIEW_TOOLTIP(control, VELT_LEFT(caption, VELT_SUB(VELT_LEN(caption), number(1))));
    VELTS("settings.bas", "ReaderPreferences.AddRow", "121", "");
    VELT_NSVIEW_APPEND(pane, control);
}

void ReaderPreferences::addBox(id pane, id caption, id key, id y) {
    VELTS("settings.bas", "ReaderPreferences.AddBox", "125", "");
    id box = VELT_CHECKBOX_INIT(id(this), "");
    VELTS("settings.bas", "ReaderPreferences.AddBox", "126", "");
    VELT_NSBUTTON_TITLE(box, caption);
    VELTS("settings.bas", "ReaderPreferences.AddBox", "127", "");
    VELT_NSVIEW_FRAME(box, VELT_RECT_INIT(nil, "", number(126), y, number(264), number(24)));
    VELTS("settings.bas", "ReaderPreferences.AddBox", "128", "");
    VELT_NSOBJECT_BIND(box, "state"_v, VELT_id_NSUSERDEFAULTS, key, nil);
    VELTS("settings.bas", "ReaderPreferences.AddBox", "129", "");
    VELT_NSVIEW_APPEND(pane, box);
}

void ReaderPreferences::showValues() {
    VELTS("settings.bas", "ReaderPreferences.ShowValues", "134", "");
    if (VELT_CBOOL(VELT_UNEQUAL(VELT_NSCONTROL_STRINGVALUE(name), VELT_NSUSERDEFAULTS_GET(nil, "Name"_v))))
        VELT_NSCONTROL_STRINGVALUE(name, VELT_NSUSERDEFAULTS_GET(nil, "Name"_v));
    VELTS("settings.bas", "ReaderPreferences.ShowValues", "135", "");
    VELT_NSCONTROL_STRINGVALUE(
        size, VELT_CONCAT(VELT_CSTRING(VELT_ID(VELT_CINTEGER(VELT_NSUSERDEFAULTS_GET(nil, "FontSize"_v)))), " pt"_v));
    VELTS("settings.bas", "ReaderPreferences.ShowValues", "136", "");
    VELT_PROPERTY(textColor, "color"_v, keptColor(VELT__STRING("TextColor"_v)));
    VELTS("settings.bas", "ReaderPreferences.ShowValues", "137", "");
    VELT_PROPERTY(paperColor, "color"_v, keptColor(VELT__STRING("PaperColor"_v)));
}

void ReaderPreferences::controlTextDidChange(id) {
    VELTS("settings.bas", "ReaderPreferences.ControlTextDidChange", "141", "");
    VELT_NSUSERDEFAULTS_SET(nil, "Name"_v, VELT_NSCONTROL_STRINGVALUE(name));
}

void ReaderPreferences::takeColor(id well) {
    VELTS("settings.bas", "ReaderPreferences.TakeColor", "145", "");
    id key = VELT__STRING("TextColor"_v);
    VELTS("settings.bas", "ReaderPreferences.TakeColor", "146", "");
    if (VELT_CBOOL(VELT_EQUALEQUAL(well, paperColor))) key = VELT__STRING("PaperColor"_v);
    VELTS("settings.bas", "ReaderPreferences.TakeColor", "147", "");
    id color = VELT_PROPERTY(well, "color"_v);
    VELTS("settings.bas", "ReaderPreferences.TakeColor", "148", "");
    VELT_NSUSERDEFAULTS_SET(nil, key,
                            colorParts(VELT__DOUBLE(velt::valueForKey(color, "redComponent")),
                                       VELT__DOUBLE(velt::valueForKey(color, "greenComponent")),
                                       VELT__DOUBLE(velt::valueForKey(color, "blueComponent"))));
}

void ReaderPreferences::forget(id) {
    VELTS("settings.bas", "ReaderPreferences.Forget", "152", "");
    id keys = VELT__NSARRAY(VELT_NSMUTABLEDICTIONARY_KEYS(defaults()));
    VELTS("settings.bas", "ReaderPreferences.Forget", "153", "");
    const id last = VELT_SUB(VELT_NSARRAY_COUNT(keys), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("settings.bas", "ReaderPreferences.Forget", "154", "");
        VELT_NSUSERDEFAULTS_REMOVE(nil, VELT_NSARRAY_OBJECT(keys, i));
    }
}

id ReaderPreferences::closeIfKey() {
    VELTS("settings.bas", "ReaderPreferences.CloseIfKey", "160", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(panes), number(0)))) return VELT__BOOLEAN(boolean(false));
    VELTS("settings.bas", "ReaderPreferences.CloseIfKey", "161", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSWINDOW_ISKEYWINDOW(VELT_NSOBJECT_PERFORMSELECTOR0(id(this), "window"_v)))))
        return VELT__BOOLEAN(boolean(false));
    VELTS("settings.bas", "ReaderPreferences.CloseIfKey", "162", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(id(this), "close"_v);
    VELTS("settings.bas", "ReaderPreferences.CloseIfKey", "163", "");
    return VELT__BOOLEAN(boolean(true));
}

}  // namespace reader
