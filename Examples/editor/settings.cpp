// settings.bas as the translator writes it.
#include "editor/settings.h"

namespace editor {

void Settings::describe(velt::ClassBuilder<Settings>& c) {
    c.property("fontSize", &Settings::fontSize)
        .property("formats", &Settings::formats)
        .property("completes", &Settings::completes)
        .property("margin", &Settings::margin)
        .property("recent", &Settings::recent)
        .property("frame", &Settings::frame);
}

void Settings::restore(id usual) {
    VELTS("settings.bas", "Settings.Restore", "12", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(usual, "EditorRecentFiles"_v, velt::make<NSMutableArray>());
    VELTS("settings.bas", "Settings.Restore", "13", "");
    VELT_NSUSERDEFAULTS_REGISTERDEFAULTS(nil, usual);
    VELTS("settings.bas", "Settings.Restore", "14", "");
    adopt();
    VELTS("settings.bas", "Settings.Restore", "15", "");
    frame = VELT__NSARRAY(VELT_NSUSERDEFAULTS_GET(nil, "EditorFrame"_v));
    VELTS("settings.bas", "Settings.Restore", "16", "");
    id kept = VELT__NSARRAY(VELT_NSUSERDEFAULTS_GET(nil, "EditorRecentFiles"_v));
    VELTS("settings.bas", "Settings.Restore", "17", "");
    recent = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("settings.bas", "Settings.Restore", "18", "");
    const id last = VELT_SUB(VELT_NSARRAY_COUNT(kept), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("settings.bas", "Settings.Restore", "19", "");
        VELT_NSMUTABLEARRAY_APPEND(recent, VELT_NSARRAY_OBJECT(kept, i));
    }
}

void Settings::adopt() {
    VELTS("settings.bas", "Settings.Adopt", "25", "");
    fontSize = VELT__DOUBLE(VELT_NSUSERDEFAULTS_GET(nil, "EditorFontSize"_v));
    VELTS("settings.bas", "Settings.Adopt", "26", "");
    formats = VELT__BOOLEAN(VELT_NSUSERDEFAULTS_GET(nil, "EditorFormats"_v));
    VELTS("settings.bas", "Settings.Adopt", "27", "");
    completes = VELT__BOOLEAN(VELT_NSUSERDEFAULTS_GET(nil, "EditorCompletes"_v));
    VELTS("settings.bas", "Settings.Adopt", "28", "");
    margin = VELT__BOOLEAN(VELT_NSUSERDEFAULTS_GET(nil, "EditorMargin"_v));
}

void Settings::keep() {
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
    VELT_NSUSERDEFAULTS_SET(nil, "EditorFontSize"_v, VELT_MAX(VELT_ID(6.0), VELT_MIN(VELT_ID(48.0), size)));
}

}  // namespace editor
