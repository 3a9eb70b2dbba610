// preferences.bas as the translator writes it.
#include "editor/preferences.h"

namespace editor {

void Preferences::describe(velt::ClassBuilder<Preferences>& c) {
    c.property("owner", &Preferences::owner)
        .property("window", &Preferences::window)
        .property("fontSizes", &Preferences::fontSizes)
        .property("formats", &Preferences::formats)
        .property("margin", &Preferences::margin)
        .owns(&Preferences::settings)
        .method("done:", &Preferences::done)
        .method("leave:", &Preferences::leave)
        .method("sheetDidEnd:returnCode:contextInfo:", &Preferences::sheetDidEnd);
}

void Preferences::build(id editor, velt::Ref<Settings> kept) {
    VELTS("preferences.bas", "Preferences.Build", "12", "");
    owner = editor;
    VELTS("preferences.bas", "Preferences.Build", "13", "");
    settings = kept;
    VELTS("preferences.bas", "Preferences.Build", "14", "");
    window = VELT_NSPANEL_INIT(id(this), "");
    VELTS("preferences.bas", "Preferences.Build", "15", "");
    VELT_NSWINDOW_TITLE(window, "Preferences"_v);
    VELTS("preferences.bas", "Preferences.Build", "16", "");
    VELT_NSWINDOW_CONTENTSIZE(window, newSize(360, 160));
    VELTS("preferences.bas", "Preferences.Build", "17", "");
    id words = VELT_LABEL_INIT(id(this), "");
    VELTS("preferences.bas", "Preferences.Build", "18", "");
    VELT_NSCONTROL_STRINGVALUE(words, "Size of the text:"_v);
    VELTS("preferences.bas", "Preferences.Build", "19", "");
    VELT_NSVIEW_FRAME(words, newRect(16, 120, 120, 22));
    VELTS("preferences.bas", "Preferences.Build", "20", "");
    VELT_NSWINDOW_APPEND(window, words);
    VELTS("preferences.bas", "Preferences.Build", "21", "");
    fontSizes = VELT_NSPOPUPBUTTON_INIT(id(this), "");
    VELTS("preferences.bas", "Preferences.Build", "22", "");
    VELT_NSVIEW_FRAME(fontSizes, newRect(144, 118, 90, 28));
    VELTS("preferences.bas", "Preferences.Build", "23", "");
    VELT_NSVIEW_TOOLTIP(fontSizes, "Size of the text"_v);
    VELTS("preferences.bas", "Preferences.Build", "24", "");
    for (id i = number(6); VELT_CBOOL(VELT_SMALLEREQUAL(i, number(48))); i = VELT_ADD(i, number(1))) {
        VELTS("preferences.bas", "Preferences.Build", "25", "");
        VELT_NSPOPUPBUTTON_APPEND(fontSizes, VELT_CSTRING(i));
    }
    VELTS("preferences.bas", "Preferences.Build", "27", "");
    VELT_NSWINDOW_APPEND(window, fontSizes);
    VELTS("preferences.bas", "Preferences.Build", "28", "");
    formats = addBox(VELT__STRING("Format lines while they are typed"_v), VELT__INTEGER(number(88)));
    VELTS("preferences.bas", "Preferences.Build", "29", "");
    margin = addBox(VELT__STRING("Show line numbers and breakpoints"_v), VELT__INTEGER(number(62)));
    VELTS("preferences.bas", "Preferences.Build", "30", "");
    addButton(VELT__STRING("OK"_v), VELT__STRING("done:"_v), VELT__INTEGER(number(262)),
              VELT__STRING(VELT_CHARACTER(number(13))));
    VELTS("preferences.bas", "Preferences.Build", "31", "");
    addButton(VELT__STRING("Cancel"_v), VELT__STRING("leave:"_v), VELT__INTEGER(number(176)),
              VELT__STRING(VELT_CHARACTER(number(27))));
    VELTS("preferences.bas", "Preferences.Build", "32", "");
    VELT_NSWINDOW_INITIALFIRSTRESPONDER(window, fontSizes);
    VELTS("preferences.bas", "Preferences.Build", "33", "");
    VELT_NSWINDOW_RECALCULATEKEYVIEWLOOP(window);
}

id Preferences::addBox(id caption, id y) {
    VELTS("preferences.bas", "Preferences.AddBox", "37", "");
    id box = VELT_CHECKBOX_INIT(id(this), "");
    VELTS("preferences.bas", "Preferences.AddBox", "38", "");
    VELT_NSBUTTON_TITLE(box, caption);
    VELTS("preferences.bas", "Preferences.AddBox", "39", "");
    VELT_NSVIEW_FRAME(box, VELT_RECT_INIT(nil, "", number(16), y, number(328), number(22)));
    VELTS("preferences.bas", "Preferences.AddBox", "40", "");
    VELT_NSWINDOW_APPEND(window, box);
    VELTS("preferences.bas", "Preferences.AddBox", "41", "");
    return box;
}

void Preferences::addButton(id caption, id action, id x, id key) {
    VELTS("preferences.bas", "Preferences.AddButton", "45", "");
    id button = VELT_PUSHBUTTON_INIT(id(this), "");
    VELTS("preferences.bas", "Preferences.AddButton", "46", "");
    VELT_PROPERTY(button, "target"_v, id(this));
    VELTS("preferences.bas", "Preferences.AddButton", "47", "");
    VELT_PROPERTY(button, "action"_v, action);
    VELTS("preferences.bas", "Preferences.AddButton", "48", "");
    VELT_NSBUTTON_TITLE(button, caption);
    VELTS("preferences.bas", "Preferences.AddButton", "49", "");
    VELT_NSVIEW_FRAME(button, VELT_RECT_INIT(nil, "", x, number(14), number(82), number(28)));
    VELTS("preferences.bas", "Preferences.AddButton", "50", "");
    VELT_NSBUTTON_KEYEQUIVLANET(button, key);
    VELTS("preferences.bas", "Preferences.AddButton", "51", "");
    VELT_NSWINDOW_APPEND(window, button);
}

void Preferences::show() {
    VELTS("preferences.bas", "Preferences.Show", "55", "");
    VELT_NSPOPUPBUTTON_SELECT(fontSizes, VELT_SUB(VELT_ROUND(settings->fontSize, number(0)), number(6)));
    VELTS("preferences.bas", "Preferences.Show", "56", "");
    VELT_NSBUTTON_STATE(formats, settings->formats);
    VELTS("preferences.bas", "Preferences.Show", "57", "");
    VELT_NSBUTTON_STATE(margin, settings->margin);
    VELTS("preferences.bas", "Preferences.Show", "58", "");
    VELT_BEGINSHEET(id(this), window, "preferences"_v);
}

void Preferences::done(id) {
    VELTS("preferences.bas", "Preferences.Done", "62", "");
    settings->setFontSize(VELT__DOUBLE(VELT_ADD(VELT_NSPOPUPBUTTON_SELECTED(fontSizes), number(6))));
    VELTS("preferences.bas", "Preferences.Done", "63", "");
    settings->formats = VELT__BOOLEAN(VELT_EQUAL(VELT_NSBUTTON_STATE(formats), number(1)));
    VELTS("preferences.bas", "Preferences.Done", "64", "");
    settings->margin = VELT__BOOLEAN(VELT_EQUAL(VELT_NSBUTTON_STATE(margin), number(1)));
    VELTS("preferences.bas", "Preferences.Done", "65", "");
    settings->keep();
    VELTS("preferences.bas", "Preferences.Done", "66", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(owner, "settingsChanged:"_v, id(this));
    VELTS("preferences.bas", "Preferences.Done", "67", "");
    VELT_ENDSHEET(window, number(1));
}

void Preferences::leave(id) {
    VELTS("preferences.bas", "Preferences.Leave", "71", "");
    VELT_ENDSHEET(window, number(0));
}

void Preferences::sheetDidEnd(id, id, id) {
    VELTS("preferences.bas", "Preferences.SheetDidEnd", "75", "");
    VELT_NSWINDOW_HIDE(window);
}

}  // namespace editor
