// settings.bas as the translator writes it.
#include "editor/settings.h"

namespace editor {

void Settings::describe(velt::ClassBuilder<Settings>& c) {
    c.property("fontSize", &Settings::fontSize)
        .property("formats", &Settings::formats)
        .property("margin", &Settings::margin)
        .property("recent", &Settings::recent)
        .property("frame", &Settings::frame);
}

void Settings::restore() {
    VELTS("settings.bas", "Settings.Restore", "11", "");
    id usual = VELT__NSMUTABLEDICTIONARY(velt::make<NSMutableDictionary>());
    VELTS("settings.bas", "Settings.Restore", "12", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "EditorFontSize"_v, VELT_ID(12.0));
    VELTS("settings.bas", "Settings.Restore", "13", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "EditorFormats"_v, boolean(true));
    VELTS("settings.bas", "Settings.Restore", "14", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "EditorMargin"_v, boolean(true));
    VELTS("settings.bas", "Settings.Restore", "15", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "EditorRecentFiles"_v, velt::make<NSMutableArray>());
    VELTS("settings.bas", "Settings.Restore", "16", "");
    VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(nil, usual);
    VELTS("settings.bas", "Settings.Restore", "17", "");
    fontSize = VELT__DOUBLE(VELT_NSUSERDEFAULTS_GET(nil, "EditorFontSize"_v));
    VELTS("settings.bas", "Settings.Restore", "18", "");
    formats = VELT__BOOLEAN(VELT_NSUSERDEFAULTS_GET(nil, "EditorFormats"_v));
    VELTS("settings.bas", "Settings.Restore", "19", "");
    margin = VELT__BOOLEAN(VELT_NSUSERDEFAULTS_GET(nil, "EditorMargin"_v));
    VELTS("settings.bas", "Settings.Restore", "20", "");
    frame = VELT__NSARRAY(VELT_NSUSERDEFAULTS_GET(nil, "EditorFrame"_v));
    VELTS("settings.bas", "Settings.Restore", "21", "");
    id kept = VELT__NSARRAY(VELT_NSUSERDEFAULTS_GET(nil, "EditorRecentFiles"_v));
    VELTS("settings.bas", "Settings.Restore", "22", "");
    recent = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("settings.bas", "Settings.Restore", "23", "");
    const id last = VELT_SUB(VELT_NSARRAY_COUNT(kept), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("settings.bas", "Settings.Restore", "24", "");
        VELT_NSMUTABLEARRAY_APPEND(recent, VELT_NSARRAY_OBJECT(kept, i));
    }
}

void Settings::keep() {
    VELTS("settings.bas", "Settings.Keep", "29", "");
    VELT_NSUSERDEFAULTS_SET(nil, "EditorFontSize"_v, fontSize);
    VELTS("settings.bas", "Settings.Keep", "30", "");
    VELT_NSUSERDEFAULTS_SET(nil, "EditorFormats"_v, formats);
    VELTS("settings.bas", "Settings.Keep", "31", "");
    VELT_NSUSERDEFAULTS_SET(nil, "EditorMargin"_v, margin);
    VELTS("settings.bas", "Settings.Keep", "32", "");
    VELT_NSUSERDEFAULTS_SET(nil, "EditorRecentFiles"_v, recent);
    VELTS("settings.bas", "Settings.Keep", "33", "");
    if (VELT_CBOOL(VELT_UNEQUAL(frame, nil))) VELT_NSUSERDEFAULTS_SET(nil, "EditorFrame"_v, frame);
    VELTS("settings.bas", "Settings.Keep", "34", "");
    VELT_NSUSERDEFAULTS_SYNCHRONIZE(nil);
}

void Settings::remember(id path) {
    VELTS("settings.bas", "Settings.Remember", "39", "");
    if (VELT_CBOOL(VELT_NSMUTABLEARRAY_CONTAINS(recent, path))) VELT_NSMUTABLEARRAY_REMOVEOBJECT(recent, path);
    VELTS("settings.bas", "Settings.Remember", "40", "");
    VELT_NSMUTABLEARRAY_INSERT(recent, path, number(0));
    VELTS("settings.bas", "Settings.Remember", "41", "");
    if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(recent), number(10))))
        VELT_NSMUTABLEARRAY_REMOVE(recent, number(10));
    VELTS("settings.bas", "Settings.Remember", "42", "");
    keep();
}

void Settings::setFontSize(id size) {
    VELTS("settings.bas", "Settings.SetFontSize", "46", "");
    fontSize = VELT__DOUBLE(VELT_MAX(VELT_ID(6.0), VELT_MIN(VELT_ID(48.0), size)));
}

}  // namespace editor
