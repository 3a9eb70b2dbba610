// find_sheet.bas as the translator writes it.
#include "editor/find_sheet.h"

namespace editor {

void FindSheet::describe(velt::ClassBuilder<FindSheet>& c) {
    c.property("owner", &FindSheet::owner)
        .property("view", &FindSheet::view)
        .property("window", &FindSheet::window)
        .property("needle", &FindSheet::needle)
        .property("replacement", &FindSheet::replacement)
        .property("ignoresCase", &FindSheet::ignoresCase)
        .property("selectedOnly", &FindSheet::selectedOnly)
        .property("wholeWords", &FindSheet::wholeWords)
        .property("message", &FindSheet::message)
        .owns(&FindSheet::search)
        .method("findNext:", &FindSheet::findNext)
        .method("findPrevious:", &FindSheet::findPrevious)
        .method("replaceAll:", &FindSheet::replaceAll)
        .method("leave:", &FindSheet::leave)
        .method("sheetDidEnd:returnCode:contextInfo:", &FindSheet::sheetDidEnd);
}

void FindSheet::build(id editor, velt::Ref<Search> sought) {
    VELTS("find_sheet.bas", "FindSheet.Build", "16", "");
    owner = editor;
    VELTS("find_sheet.bas", "FindSheet.Build", "17", "");
    search = sought;
    VELTS("find_sheet.bas", "FindSheet.Build", "18", "");
    window = VELT_NSPANEL_INIT(id(this), "");
    VELTS("find_sheet.bas", "FindSheet.Build", "19", "");
    VELT_NSWINDOW_TITLE(window, "Find"_v);
    VELTS("find_sheet.bas", "FindSheet.Build", "20", "");
    VELT_NSWINDOW_CONTENTSIZE(window, newSize(500, 190));
    VELTS("find_sheet.bas", "FindSheet.Build", "21", "");
    needle = addField(VELT__STRING("Find:"_v), VELT__INTEGER(number(150)));
    VELTS("find_sheet.bas", "FindSheet.Build", "22", "");
    replacement = addField(VELT__STRING("Replace with:"_v), VELT__INTEGER(number(116)));
    VELTS("find_sheet.bas", "FindSheet.Build", "23", "");
    ignoresCase = addBox(VELT__STRING("Ignore case"_v), VELT__INTEGER(number(124)), VELT__INTEGER(number(110)));
    VELTS("find_sheet.bas", "FindSheet.Build", "24", "");
    wholeWords = addBox(VELT__STRING("Whole words"_v), VELT__INTEGER(number(234)), VELT__INTEGER(number(110)));
    VELTS("find_sheet.bas", "FindSheet.Build", "25", "");
    selectedOnly = addBox(VELT__STRING("Selected text only"_v), VELT__INTEGER(number(344)), VELT__INTEGER(number(140)));
    VELTS("find_sheet.bas", "FindSheet.Build", "26", "");
    message = VELT_LABEL_INIT(id(this), "");
    VELTS("find_sheet.bas", "FindSheet.Build", "27", "");
    VELT_NSVIEW_FRAME(message, newRect(16, 52, 468, 20));
    VELTS("find_sheet.bas", "FindSheet.Build", "28", "");
    VELT_NSWINDOW_APPEND(window, message);
    VELTS("find_sheet.bas", "FindSheet.Build", "29", "");
    addButton(VELT__STRING("Next"_v), VELT__STRING("findNext:"_v), VELT__INTEGER(number(398)),
              VELT__INTEGER(number(86)), VELT__STRING(VELT_CHARACTER(number(13))));
    VELTS("find_sheet.bas", "FindSheet.Build", "30", "");
    addButton(VELT__STRING("Previous"_v), VELT__STRING("findPrevious:"_v), VELT__INTEGER(number(306)),
              VELT__INTEGER(number(86)), VELT__STRING(""_v));
    VELTS("find_sheet.bas", "FindSheet.Build", "31", "");
    addButton(VELT__STRING("Replace All"_v), VELT__STRING("replaceAll:"_v), VELT__INTEGER(number(188)),
              VELT__INTEGER(number(112)), VELT__STRING(""_v));
    VELTS("find_sheet.bas", "FindSheet.Build", "32", "");
    addButton(VELT__STRING("Close"_v), VELT__STRING("leave:"_v), VELT__INTEGER(number(16)), VELT__INTEGER(number(86)),
              VELT__STRING(VELT_CHARACTER(number(27))));
    VELTS("find_sheet.bas", "FindSheet.Build", "33", "");
    VELT_NSWINDOW_INITIALFIRSTRESPONDER(window, needle);
    VELTS("find_sheet.bas", "FindSheet.Build", "34", "");
    VELT_NSWINDOW_RECALCULATEKEYVIEWLOOP(window);
}

id FindSheet::addField(id caption, id y) {
    VELTS("find_sheet.bas", "FindSheet.AddField", "38", "");
    id words = VELT_LABEL_INIT(id(this), "");
    VELTS("find_sheet.bas", "FindSheet.AddField", "39", "");
    VELT_NSCONTROL_STRINGVALUE(words, caption);
    VELTS("find_sheet.bas", "FindSheet.AddField", "40", "");
    VELT_NSVIEW_FRAME(words, VELT_RECT_INIT(nil, "", number(16), y, number(104), number(22)));
    VELTS("find_sheet.bas", "FindSheet.AddField", "41", "");
    VELT_NSWINDOW_APPEND(window, words);
    VELTS("find_sheet.bas", "FindSheet.AddField", "42", "");
    id field = VELT_NSTEXTFIELD_INIT(id(this), "");
    VELTS("find_sheet.bas", "FindSheet.AddField", "43", "");
    VELT_NSVIEW_FRAME(field, VELT_RECT_INIT(nil, "", number(124), y, number(360), number(26)));
    VELTS("find_sheet.bas", "FindSheet.AddField", "44", "");
    VELT_NSVIEW_TOOLTIP(field, caption);
    VELTS("find_sheet.bas", "FindSheet.AddField", "45", "");
    VELT_NSWINDOW_APPEND(window, field);
    VELTS("find_sheet.bas", "FindSheet.AddField", "46", "");
    return VELT__NSTEXTFIELD(field);
}

id FindSheet::addBox(id caption, id x, id width) {
    VELTS("find_sheet.bas", "FindSheet.AddBox", "50", "");
    id box = VELT_CHECKBOX_INIT(id(this), "");
    VELTS("find_sheet.bas", "FindSheet.AddBox", "51", "");
    VELT_NSBUTTON_TITLE(box, caption);
    VELTS("find_sheet.bas", "FindSheet.AddBox", "52", "");
    VELT_NSVIEW_FRAME(box, VELT_RECT_INIT(nil, "", x, number(84), width, number(22)));
    VELTS("find_sheet.bas", "FindSheet.AddBox", "53", "");
    VELT_NSWINDOW_APPEND(window, box);
    VELTS("find_sheet.bas", "FindSheet.AddBox", "54", "");
    return box;
}

void FindSheet::addButton(id caption, id action, id x, id width, id key) {
    VELTS("find_sheet.bas", "FindSheet.AddButton", "58", "");
    id button = VELT_PUSHBUTTON_INIT(id(this), "");
    VELTS("find_sheet.bas", "FindSheet.AddButton", "59", "");
    VELT_PROPERTY(button, "target"_v, id(this));
    VELTS("find_sheet.bas", "FindSheet.AddButton", "60", "");
    VELT_PROPERTY(button, "action"_v, action);
    VELTS("find_sheet.bas", "FindSheet.AddButton", "61", "");
    VELT_NSBUTTON_TITLE(button, caption);
    VELTS("find_sheet.bas", "FindSheet.AddButton", "62", "");
    VELT_NSVIEW_FRAME(button, VELT_RECT_INIT(nil, "", x, number(14), width, number(28)));
    VELTS("find_sheet.bas", "FindSheet.AddButton", "63", "");
    VELT_NSBUTTON_KEYEQUIVLANET(button, key);
    VELTS("find_sheet.bas", "FindSheet.AddButton", "64", "");
    VELT_NSWINDOW_APPEND(window, button);
}

void FindSheet::show(id shown) {
    VELTS("find_sheet.bas", "FindSheet.Show", "68", "");
    view = shown;
    VELTS("find_sheet.bas", "FindSheet.Show", "69", "");
    VELT_NSCONTROL_STRINGVALUE(needle, search->needle);
    VELTS("find_sheet.bas", "FindSheet.Show", "70", "");
    VELT_NSCONTROL_STRINGVALUE(replacement, search->replacement);
    VELTS("find_sheet.bas", "FindSheet.Show", "71", "");
    VELT_NSBUTTON_STATE(ignoresCase, search->ignoresCase);
    VELTS("find_sheet.bas", "FindSheet.Show", "72", "");
    VELT_NSBUTTON_STATE(selectedOnly, search->selectedOnly);
    VELTS("find_sheet.bas", "FindSheet.Show", "73", "");
    VELT_NSBUTTON_STATE(wholeWords, search->wholeWords);
    VELTS("find_sheet.bas", "FindSheet.Show", "74", "");
    VELT_NSCONTROL_STRINGVALUE(message, ""_v);
    VELTS("find_sheet.bas", "FindSheet.Show", "75", "");
    VELT_BEGINSHEET(id(this), window, "find"_v);
    VELTS("find_sheet.bas", "FindSheet.Show", "76", "");
    VELT_NSTEXTFIELD_SELECTTEXT(needle);
}

void FindSheet::take() {
    VELTS("find_sheet.bas", "FindSheet.Take", "80", "");
    search->needle = VELT__STRING(VELT_NSCONTROL_STRINGVALUE(needle));
    VELTS("find_sheet.bas", "FindSheet.Take", "81", "");
    search->replacement = VELT__STRING(VELT_NSCONTROL_STRINGVALUE(replacement));
    VELTS("find_sheet.bas", "FindSheet.Take", "82", "");
    search->ignoresCase = VELT__BOOLEAN(VELT_EQUAL(VELT_NSBUTTON_STATE(ignoresCase), number(1)));
    VELTS("find_sheet.bas", "FindSheet.Take", "83", "");
    search->selectedOnly = VELT__BOOLEAN(VELT_EQUAL(VELT_NSBUTTON_STATE(selectedOnly), number(1)));
    VELTS("find_sheet.bas", "FindSheet.Take", "84", "");
    search->wholeWords = VELT__BOOLEAN(VELT_EQUAL(VELT_NSBUTTON_STATE(wholeWords), number(1)));
}

void FindSheet::answer(id found) {
    VELTS("find_sheet.bas", "FindSheet.Answer", "89", "");
    if (VELT_CBOOL(found)) {
        VELTS("find_sheet.bas", "FindSheet.Answer", "90", "");
        VELT_ENDSHEET(window, number(1));
    } else {
        VELTS("find_sheet.bas", "FindSheet.Answer", "92", "");
        VELT_NSCONTROL_STRINGVALUE(message, VELT_CONCAT(VELT_CONCAT("“"_v, search->needle), "” was not found."_v));
        VELTS("find_sheet.bas", "FindSheet.Answer", "93", "");
        VELT_NSTEXTFIELD_SELECTTEXT(needle);
    }
}

void FindSheet::findNext(id) {
    VELTS("find_sheet.bas", "FindSheet.FindNext", "98", "");
    take();
    VELTS("find_sheet.bas", "FindSheet.FindNext", "99", "");
    answer(VELT__BOOLEAN(search->findNext(view)));
}

void FindSheet::findPrevious(id) {
    VELTS("find_sheet.bas", "FindSheet.FindPrevious", "103", "");
    take();
    VELTS("find_sheet.bas", "FindSheet.FindPrevious", "104", "");
    answer(VELT__BOOLEAN(search->findPrevious(view)));
}

void FindSheet::replaceAll(id) {
    VELTS("find_sheet.bas", "FindSheet.ReplaceAll", "108", "");
    take();
    VELTS("find_sheet.bas", "FindSheet.ReplaceAll", "109", "");
    id count = VELT__INTEGER(search->replaceAll(view));
    VELTS("find_sheet.bas", "FindSheet.ReplaceAll", "110", "");
    if (VELT_CBOOL(VELT_GREATER(count, number(0)))) VELT_NSOBJECT_PERFORMSELECTOR1(owner, "replaced:"_v, count);
    VELTS("find_sheet.bas", "FindSheet.ReplaceAll", "111", "");
    answer(VELT__BOOLEAN(VELT_GREATER(count, number(0))));
}

void FindSheet::leave(id) {
    VELTS("find_sheet.bas", "FindSheet.Leave", "116", "");
    take();
    VELTS("find_sheet.bas", "FindSheet.Leave", "117", "");
    VELT_ENDSHEET(window, number(0));
}

void FindSheet::sheetDidEnd(id, id, id) {
    VELTS("find_sheet.bas", "FindSheet.SheetDidEnd", "121", "");
    VELT_NSWINDOW_HIDE(window);
}

}  // namespace editor
