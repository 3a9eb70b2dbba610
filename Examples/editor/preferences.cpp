// preferences.bas as the translator writes it.
#include "editor/preferences.h"

namespace editor {

void Preferences::describe(velt::ClassBuilder<Preferences>& c) {
    c.property("owner", &Preferences::owner)
        .property("panes", &Preferences::panes)
        .property("size", &Preferences::size)
        .method("PreferencesItemIdentifiers", &Preferences::itemIdentifiers)
        .method("PreferencesItems", &Preferences::items)
        .method("PreferencesDefaults", &Preferences::defaults)
        .method("PreferencesChanged:", &Preferences::changed);
}

id Preferences::itemIdentifiers() {
    VELTS("preferences.bas", "Preferences.PreferencesItemIdentifiers", "10", "");
    return VELT__NSARRAY(VELT_SPLIT("Text Editing"_v, " "_v));
}

id Preferences::items() {
    VELTS("preferences.bas", "Preferences.PreferencesItems", "14", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(panes), number(0)))) {
        VELTS("preferences.bas", "Preferences.PreferencesItems", "15", "");
        buildText(addPane(VELT__INTEGER(number(90))));
        VELTS("preferences.bas", "Preferences.PreferencesItems", "16", "");
        buildEditing(addPane(VELT__INTEGER(number(90))));
        VELTS("preferences.bas", "Preferences.PreferencesItems", "17", "");
        showSize();
    }
    VELTS("preferences.bas", "Preferences.PreferencesItems", "19", "");
    return VELT__NSMUTABLEARRAY(panes);
}

id Preferences::defaults() {
    VELTS("preferences.bas", "Preferences.PreferencesDefaults", "23", "");
    id usual = VELT__NSMUTABLEDICTIONARY(velt::make<NSMutableDictionary>());
    VELTS("preferences.bas", "Preferences.PreferencesDefaults", "24", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "EditorFontSize"_v, VELT_ID(12.0));
    VELTS("preferences.bas", "Preferences.PreferencesDefaults", "25", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "EditorMargin"_v, boolean(true));
    VELTS("preferences.bas", "Preferences.PreferencesDefaults", "26", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "EditorFormats"_v, boolean(true));
    VELTS("preferences.bas", "Preferences.PreferencesDefaults", "27", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "EditorCompletes"_v, boolean(true));
    VELTS("preferences.bas", "Preferences.PreferencesDefaults", "28", "");
    return VELT__NSMUTABLEDICTIONARY(usual);
}

void Preferences::changed(id) {
    VELTS("preferences.bas", "Preferences.PreferencesChanged", "32", "");
    if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(panes), number(0)))) showSize();
    VELTS("preferences.bas", "Preferences.PreferencesChanged", "33", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(owner, "settingsChanged:"_v, id(this));
}

void Preferences::buildText(id pane) {
    VELTS("preferences.bas", "Preferences.BuildText", "37", "");
    id words = VELT_LABEL_INIT(id(this), "");
    VELTS("preferences.bas", "Preferences.BuildText", "38", "");
    VELT_NSCONTROL_STRINGVALUE(words, "Size of the text:"_v);
    VELTS("preferences.bas", "Preferences.BuildText", "39", "");
    VELT_NSVIEW_FRAME(words, newRect(24, 50, 124, 22));
    VELTS("preferences.bas", "Preferences.BuildText", "40", "");
    VELT_NSVIEW_APPEND(pane, words);
    VELTS("preferences.bas", "Preferences.BuildText", "41", "");
    size = VELT_LABEL_INIT(id(this), "");
    VELTS("preferences.bas", "Preferences.BuildText", "42", "");
    VELT_NSCONTROL_ALIGNMENT(size, number(1));
    VELTS("preferences.bas", "Preferences.BuildText", "43", "");
    VELT_NSVIEW_FRAME(size, newRect(148, 50, 48, 22));
    VELTS("preferences.bas", "Preferences.BuildText", "44", "");
    VELT_NSVIEW_APPEND(pane, size);
    VELTS("preferences.bas", "Preferences.BuildText", "45", "");
    id stepper = VELT_NSSTEPPER_INIT(id(this), "");
    VELTS("preferences.bas", "Preferences.BuildText", "46", "");
    VELT_NSVIEW_FRAME(stepper, newRect(204, 47, 22, 28));
    VELTS("preferences.bas", "Preferences.BuildText", "47", "");
    VELT_NSVIEW_TOOLTIP(stepper, "Size of the text"_v);
    VELTS("preferences.bas", "Preferences.BuildText", "48", "");
    VELT_PROPERTY(stepper, "minValue"_v, number(6));
    VELTS("preferences.bas", "Preferences.BuildText", "49", "");
    VELT_PROPERTY(stepper, "maxValue"_v, number(48));
    VELTS("preferences.bas", "Preferences.BuildText", "50", "");
    VELT_PROPERTY(stepper, "valueWraps"_v, boolean(false));
    VELTS("preferences.bas", "Preferences.BuildText", "51", "");
    VELT_NSOBJECT_BIND(stepper, "doubleValue"_v, VELT_id_NSUSERDEFAULTS, "EditorFontSize"_v, nil);
    VELTS("preferences.bas", "Preferences.BuildText", "52", "");
    VELT_NSVIEW_APPEND(pane, stepper);
    VELTS("preferences.bas", "Preferences.BuildText", "53", "");
    addBox(pane, VELT__STRING("Show line numbers and breakpoints"_v), VELT__STRING("EditorMargin"_v),
           VELT__INTEGER(number(16)));
}

void Preferences::buildEditing(id pane) {
    VELTS("preferences.bas", "Preferences.BuildEditing", "57", "");
    addBox(pane, VELT__STRING("Format lines while they are typed"_v), VELT__STRING("EditorFormats"_v),
           VELT__INTEGER(number(50)));
    VELTS("preferences.bas", "Preferences.BuildEditing", "58", "");
    addBox(pane, VELT__STRING("Offer names while they are typed"_v), VELT__STRING("EditorCompletes"_v),
           VELT__INTEGER(number(16)));
}

id Preferences::addPane(id height) {
    VELTS("preferences.bas", "Preferences.AddPane", "62", "");
    id pane = VELT_NSVIEW_INIT(id(this), "");
    VELTS("preferences.bas", "Preferences.AddPane", "63", "");
    VELT_NSVIEW_FRAME(pane, VELT_RECT_INIT(nil, "", number(0), number(0), number(380), height));
    VELTS("preferences.bas", "Preferences.AddPane", "64", "");
    VELT_NSMUTABLEARRAY_APPEND(panes, pane);
    VELTS("preferences.bas", "Preferences.AddPane", "65", "");
    return VELT__NSVIEW(pane);
}

void Preferences::addBox(id pane, id caption, id key, id y) {
    VELTS("preferences.bas", "Preferences.AddBox", "69", "");
    id box = VELT_CHECKBOX_INIT(id(this), "");
    VELTS("preferences.bas", "Preferences.AddBox", "70", "");
    VELT_NSBUTTON_TITLE(box, caption);
    VELTS("preferences.bas", "Preferences.AddBox", "71", "");
    VELT_NSVIEW_FRAME(box, VELT_RECT_INIT(nil, "", number(22), y, number(334), number(24)));
    VELTS("preferences.bas", "Preferences.AddBox", "72", "");
    VELT_NSOBJECT_BIND(box, "state"_v, VELT_id_NSUSERDEFAULTS, key, nil);
    VELTS("preferences.bas", "Preferences.AddBox", "73", "");
    VELT_NSVIEW_APPEND(pane, box);
}

void Preferences::showSize() {
    VELTS("preferences.bas", "Preferences.ShowSize", "77", "");
    VELT_NSCONTROL_STRINGVALUE(
        size,
        VELT_CONCAT(VELT_CSTRING(VELT_ID(VELT_CINTEGER(VELT_NSUSERDEFAULTS_GET(nil, "EditorFontSize"_v)))), " pt"_v));
}

id Preferences::closeIfKey() {
    VELTS("preferences.bas", "Preferences.CloseIfKey", "82", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(panes), number(0)))) return VELT__BOOLEAN(boolean(false));
    VELTS("preferences.bas", "Preferences.CloseIfKey", "83", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSWINDOW_ISKEYWINDOW(VELT_NSOBJECT_PERFORMSELECTOR0(id(this), "window"_v)))))
        return VELT__BOOLEAN(boolean(false));
    VELTS("preferences.bas", "Preferences.CloseIfKey", "84", "");
    VELT_NSOBJECT_PERFORMSELECTOR0(id(this), "close"_v);
    VELTS("preferences.bas", "Preferences.CloseIfKey", "85", "");
    return VELT__BOOLEAN(boolean(true));
}

}  // namespace editor
