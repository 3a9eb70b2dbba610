// source.bas as the translator writes it.
#include "editor/source.h"

#include "editor/source_text.h"

namespace editor {

velt::Ref<Source> toSource(const id& value) { return velt::Ref<Source>(velt::to<Source>(value)); }

void Source::describe(velt::ClassBuilder<Source>& c) {
    c.property("owner", &Source::owner)
        .property("view", &Source::view)
        .property("item", &Source::item)
        .property("path", &Source::path)
        .property("edited", &Source::edited)
        .property("typed", &Source::typed)
        .owns(&Source::assistant)
        .owns(&Source::settings)
        .method("textView:shouldChangeTextInRange:replacementString:", &Source::shouldChange)
        .method("textDidChange:", &Source::textDidChange)
        .method("textViewDidChangeSelection:", &Source::textViewDidChangeSelection)
        .method("__TextView_GetCompletion::", &Source::completion)
        .method("__TextView_GetCompletion2::", &Source::argumentHelp);
}

void Source::build(id window, velt::Ref<Language> language, velt::Ref<Settings> prepared) {
    VELTS("source.bas", "Source.Build", "20", "");
    owner = window;
    VELTS("source.bas", "Source.Build", "21", "");
    settings = prepared;
    VELTS("source.bas", "Source.Build", "22", "");
    assistant->language = language;
    VELTS("source.bas", "Source.Build", "23", "");
    view = VELT_VLTEXTVIEW_INIT(id(this), "");
    VELTS("source.bas", "Source.Build", "24", "");
    VELT_VLTEXTVIEW_KEYWORDS(view, language->keywords);
    VELTS("source.bas", "Source.Build", "25", "");
    VELT_VLTEXTVIEW_COMMANDS(view, language->builtins);
    VELTS("source.bas", "Source.Build", "26", "");
    VELT_VLTEXTVIEW_TYPES(view, language->types);
    VELTS("source.bas", "Source.Build", "27", "");
    VELT_NSTEXTVIEW_RICHTEXT(view, boolean(false));
    VELTS("source.bas", "Source.Build", "28", "");
    VELT_NSTEXTVIEW_ALLOWSUNDO(view, boolean(true));
    VELTS("source.bas", "Source.Build", "29", "");
    VELT_VLTEXTVIEW_TURNONAUTOINDENT(view);
    VELTS("source.bas", "Source.Build", "30", "");
    id around = VELT_NSSCROLLVIEW_INIT(id(this), "");
    VELTS("source.bas", "Source.Build", "31", "");
    VELT_NSVIEW_FRAME(around, newRect(0, 0, 600, 400));
    VELTS("source.bas", "Source.Build", "32", "");
    VELT_NSVIEW_FRAME(view, newRect(0, 0, 600, 400));
    VELTS("source.bas", "Source.Build", "33", "");
    VELT_NSSCROLLVIEW_HASVERTICALSCROLLER(around, boolean(true));
    VELTS("source.bas", "Source.Build", "34", "");
    VELT_NSSCROLLVIEW_DOCUMENTVIEW(around, view);
    VELTS("source.bas", "Source.Build", "35", "");
    VELT_VLTEXTVIEW_TURNOFFWRAPPING(view);
    VELTS("source.bas", "Source.Build", "36", "");
    item = velt::make<NSTabViewItem>();
    VELTS("source.bas", "Source.Build", "37", "");
    VELT_PROPERTY(item, "identifier"_v, id(this));
    VELTS("source.bas", "Source.Build", "38", "");
    VELT_PROPERTY(item, "view"_v, around);
    VELTS("source.bas", "Source.Build", "39", "");
    VELT_PROPERTY(item, "initialFirstResponder"_v, view);
    VELTS("source.bas", "Source.Build", "40", "");
    dress();
}

void Source::dress() {
    VELTS("source.bas", "Source.Dress", "45", "");
    VELT_NSTEXTVIEW_FONT(
        view, VELT_NSOBJECT_PERFORMSELECTOR1(ofClass<NSFont>(), "userFixedPitchFontOfSize:"_v, settings->fontSize));
    VELTS("source.bas", "Source.Dress", "46", "");
    VELT_PROPERTY(view, "backgroundColor"_v, VELT_NSOBJECT_PERFORMSELECTOR0(ofClass<NSColor>(), "whiteColor"_v));
    VELTS("source.bas", "Source.Dress", "47", "");
    VELT_PROPERTY(view, "textColor"_v, VELT_NSOBJECT_PERFORMSELECTOR0(ofClass<NSColor>(), "blackColor"_v));
    VELTS("source.bas", "Source.Dress", "48", "");
    if (VELT_CBOOL(VELT_NSOBJECT_RESPONDSTOSELECTOR(view, "setShowsLineNumbers:"_v)))
        VELT_NSOBJECT_PERFORMSELECTOR1(view, "setShowsLineNumbers:"_v, settings->margin);
    VELTS("source.bas", "Source.Dress", "49", "");
    showName();
}

id Source::name() {
    VELTS("source.bas", "Source.Name", "53", "");
    if (VELT_CBOOL(VELT_EQUAL(path, ""_v))) return VELT__STRING(title);
    VELTS("source.bas", "Source.Name", "54", "");
    return VELT__STRING(VELT_FILENAME(path));
}

void Source::showName() {
    VELTS("source.bas", "Source.ShowName", "59", "");
    id label = VELT__STRING(name());
    VELTS("source.bas", "Source.ShowName", "60", "");
    if (VELT_CBOOL(edited)) label = VELT__STRING(VELT_CONCAT("• "_v, label));
    VELTS("source.bas", "Source.ShowName", "61", "");
    VELT_PROPERTY(item, "label"_v, label);
    VELTS("source.bas", "Source.ShowName", "62", "");
    VELT_PROPERTY(item, "toolTip"_v, path);
}

void Source::load(id location) {
    VELTS("source.bas", "Source.Load", "67", "");
    telling = VELT__BOOLEAN(boolean(true));
    try {
        VELTS("source.bas", "Source.Load", "69", "");
        VELT_VLTEXTVIEW_LOAD(view, location);
    } catch (const NSException&) {
        VELTS("source.bas", "Source.Load", "71", "");
        telling = VELT__BOOLEAN(boolean(false));
        VELTS("source.bas", "Source.Load", "72", "");
        throw;
    }
    VELTS("source.bas", "Source.Load", "74", "");
    telling = VELT__BOOLEAN(boolean(false));
    VELTS("source.bas", "Source.Load", "75", "");
    path = VELT__STRING(location);
    VELTS("source.bas", "Source.Load", "76", "");
    VELT_NSOBJECT_PERFORMSELECTOR2(view, "performSyntaxHighlighting::"_v, view, boolean(true));
    VELTS("source.bas", "Source.Load", "77", "");
    setEdited(boolean(false));
}

id Source::save(id location) {
    VELTS("source.bas", "Source.Save", "81", "");
    if (VELT_CBOOL(VELT_NOT(VELT_VLTEXTVIEW_SAVE(view, location)))) {
        VELTS("source.bas", "Source.Save", "82", "");
        VELT_VLTEXTVIEW_FILENAME(view, path);
        VELTS("source.bas", "Source.Save", "83", "");
        return VELT__BOOLEAN(boolean(false));
    }
    VELTS("source.bas", "Source.Save", "85", "");
    path = VELT__STRING(location);
    VELTS("source.bas", "Source.Save", "86", "");
    setEdited(boolean(false));
    VELTS("source.bas", "Source.Save", "87", "");
    return VELT__BOOLEAN(boolean(true));
}

void Source::setEdited(id flag) {
    VELTS("source.bas", "Source.SetEdited", "91", "");
    edited = VELT__BOOLEAN(flag);
    VELTS("source.bas", "Source.SetEdited", "92", "");
    showName();
    VELTS("source.bas", "Source.SetEdited", "93", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(owner, "sourceChanged:"_v, id(this));
}

id Source::isUntouched() {
    VELTS("source.bas", "Source.IsUntouched", "98", "");
    return VELT__BOOLEAN(VELT_ANDALSO(VELT_EQUAL(path, ""_v), VELT_NOT(edited)));
}

id Source::lineUpTo(id position) {
    VELTS("source.bas", "Source.LineUpTo", "103", "");
    id text = VELT__STRING(VELT_NSTEXTVIEW_VALUE(view));
    VELTS("source.bas", "Source.LineUpTo", "104", "");
    id start =
        VELT__INTEGER(VELT_ADD(VELT_INSTRREV(text, VELT_CHARACTER(number(10)),
                                             VELT_SUB(VELT_SUB(position, VELT_LEN(text)), number(1)), boolean(true)),
                               number(1)));
    VELTS("source.bas", "Source.LineUpTo", "105", "");
    return VELT__STRING(VELT_MID(text, start, VELT_SUB(position, start)));
}

id Source::lineNumber() {
    VELTS("source.bas", "Source.LineNumber", "110", "");
    id position = VELT__INTEGER(VELT_VLTEXTVIEW_POSITION(view));
    VELTS("source.bas", "Source.LineNumber", "111", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_ANDALSO(VELT_GREATER(position, number(0)),
                                             VELT_EQUAL(position, VELT_PROPERTY(view, "textStorage.length"_v))),
                                VELT_EQUAL(lineUpTo(VELT__INTEGER(position)), ""_v))))
        return VELT__INTEGER(VELT_ADD(VELT_VLTEXTVIEW_LINE(view), number(1)));
    VELTS("source.bas", "Source.LineNumber", "112", "");
    return VELT__INTEGER(VELT_MAX(number(1), VELT_VLTEXTVIEW_LINE(view)));
}

id Source::column() {
    VELTS("source.bas", "Source.Column", "117", "");
    return VELT__INTEGER(VELT_ADD(VELT_LEN(lineUpTo(VELT__INTEGER(VELT_VLTEXTVIEW_POSITION(view)))), number(1)));
}

id Source::shouldChange(id, id range, id text) {
    VELTS("source.bas", "Source.ShouldChange", "122", "");
    if (VELT_CBOOL(telling)) return VELT__BOOLEAN(boolean(true));
    VELTS("source.bas", "Source.ShouldChange", "123", "");
    typed = text;
    VELTS("source.bas", "Source.ShouldChange", "124", "");
    place = VELT__INTEGER(VELT_RANGE_LOCATION(range));
    VELTS("source.bas", "Source.ShouldChange", "125", "");
    return VELT__BOOLEAN(boolean(true));
}

void Source::textDidChange(id) {
    VELTS("source.bas", "Source.TextDidChange", "129", "");
    if (VELT_CBOOL(telling)) return;
    VELTS("source.bas", "Source.TextDidChange", "130", "");
    if (VELT_CBOOL(VELT_NOT(edited))) setEdited(boolean(true));
    VELTS("source.bas", "Source.TextDidChange", "131", "");
    id what = typed;
    VELTS("source.bas", "Source.TextDidChange", "132", "");
    typed = nil;
    VELTS("source.bas", "Source.TextDidChange", "133", "");
    if (VELT_CBOOL(VELT_UNEQUAL(what, nil))) {
        VELTS("source.bas", "Source.TextDidChange", "134", "");
        if (VELT_CBOOL(VELT_EQUAL(VELT_LEN(what), number(1)))) tellOf(VELT__STRING(what));
    }
    VELTS("source.bas", "Source.TextDidChange", "136", "");
    colour();
}

void Source::tellOf(id what) {
    VELTS("source.bas", "Source.TellOf", "141", "");
    if (VELT_CBOOL(VELT_EQUAL(what, VELT_CHARACTER(number(10))))) {
        VELTS("source.bas", "Source.TellOf", "142", "");
        if (VELT_CBOOL(settings->formats)) tell(VELT__STRING(what));
    } else if (VELTS("source.bas", "Source.TellOf", "143", ""),
               VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(what, "."_v), VELT_EQUAL(what, "("_v)))) {
        VELTS("source.bas", "Source.TellOf", "144", "");
        if (VELT_CBOOL(VELT_ANDALSO(settings->completes, knowsWhatFollows(VELT__STRING(what))))) {
            VELTS("source.bas", "Source.TellOf", "145", "");
            tell(VELT__STRING(what));
        } else {
            VELTS("source.bas", "Source.TellOf", "147", "");
            closeCompletion();
        }
    } else if (VELTS("source.bas", "Source.TellOf", "149", ""), VELT_CBOOL(VELT_EQUAL(what, " "_v))) {
        VELTS("source.bas", "Source.TellOf", "150", "");
        if (VELT_CBOOL(VELT_ANDALSO(settings->completes, asksForType()))) tellOfType();
    } else {
        VELTS("source.bas", "Source.TellOf", "152", "");
        tell(VELT__STRING(what));
    }
}

void Source::tell(id what) {
    VELTS("source.bas", "Source.Tell", "157", "");
    id change = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("source.bas", "Source.Tell", "158", "");
    VELT_NSMUTABLEARRAY_APPEND(change, place);
    VELTS("source.bas", "Source.Tell", "159", "");
    VELT_NSMUTABLEARRAY_APPEND(change, what);
    VELTS("source.bas", "Source.Tell", "160", "");
    telling = VELT__BOOLEAN(boolean(true));
    VELTS("source.bas", "Source.Tell", "161", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(view, "_ShouldChangeText:"_v, change);
    VELTS("source.bas", "Source.Tell", "162", "");
    telling = VELT__BOOLEAN(boolean(false));
}

id Source::asksForType() {
    VELTS("source.bas", "Source.AsksForType", "166", "");
    id part = VELT__STRING(lineUpTo(VELT__INTEGER(place)));
    VELTS("source.bas", "Source.AsksForType", "167", "");
    return VELT__BOOLEAN(VELT_ANDALSO(VELT_ENDSWITH(part, " as"_v, boolean(false)), goesOnAsCode(VELT__STRING(part))));
}

void Source::tellOfType() {
    VELTS("source.bas", "Source.TellOfType", "172", "");
    readSource();
    VELTS("source.bas", "Source.TellOfType", "173", "");
    id types = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("source.bas", "Source.TellOfType", "174", "");
    assistant->appendAll(types, assistant->language->types);
    VELTS("source.bas", "Source.TellOfType", "175", "");
    assistant->appendClasses(types);
    VELTS("source.bas", "Source.TellOfType", "176", "");
    VELT_VLTEXTVIEW_TYPES(view, types);
    VELTS("source.bas", "Source.TellOfType", "177", "");
    tell(VELT__STRING(" "_v));
    VELTS("source.bas", "Source.TellOfType", "178", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_PROPERTY(view, "completionTimer"_v), nil)))
        VELT_NSOBJECT_PERFORMSELECTOR0(view, "startCompletionTimer"_v);
}

void Source::readSource() {
    VELTS("source.bas", "Source.ReadSource", "182", "");
    assistant->source->read(VELT__STRING(VELT_NSTEXTVIEW_VALUE(view)));
}

id Source::knowsWhatFollows(id what) {
    VELTS("source.bas", "Source.KnowsWhatFollows", "187", "");
    if (VELT_CBOOL(VELT_NOT(goesOnAsCode(VELT__STRING(lineUpTo(VELT__INTEGER(place)))))))
        return VELT__BOOLEAN(boolean(false));
    VELTS("source.bas", "Source.KnowsWhatFollows", "188", "");
    readSource();
    VELTS("source.bas", "Source.KnowsWhatFollows", "189", "");
    VELT_NSOBJECT_PERFORMSELECTOR2(view, "getCompletion::"_v, place, VELT_NSTEXTVIEW_VALUE(view));
    VELTS("source.bas", "Source.KnowsWhatFollows", "190", "");
    id expression = VELT__STRING(VELT_PROPERTY(view, "sCompletion"_v));
    VELTS("source.bas", "Source.KnowsWhatFollows", "191", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "("_v)))
        return VELT__BOOLEAN(
            VELT_UNEQUAL(assistant->signature(VELT__STRING(expression), VELT__INTEGER(lineNumber())), ""_v));
    VELTS("source.bas", "Source.KnowsWhatFollows", "192", "");
    return VELT__BOOLEAN(VELT_GREATER(
        VELT_NSMUTABLEARRAY_COUNT(assistant->choices(VELT__STRING(expression), VELT__INTEGER(lineNumber()))),
        number(0)));
}

void Source::closeCompletion() {
    VELTS("source.bas", "Source.CloseCompletion", "197", "");
    id open = VELT__NSARRAY(VELT_PROPERTY(view, "runningCompletions"_v));
    VELTS("source.bas", "Source.CloseCompletion", "198", "");
    if (VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(VELT_NSARRAY_COUNT(open), number(0)), VELT_EQUAL(myFloatingKeyWindow, nil))))
        return;
    VELTS("source.bas", "Source.CloseCompletion", "199", "");
    if (VELT_CBOOL(VELT_NOT(
            VELT_PROPERTY(VELT_NSARRAY_OBJECT(open, VELT_SUB(VELT_NSARRAY_COUNT(open), number(1))), "bClass"_v))))
        return;
    VELTS("source.bas", "Source.CloseCompletion", "200", "");
    id list = VELT__NSTABLEVIEW(VELT_PROPERTY(myFloatingKeyWindow, "contentView.documentView"_v));
    VELTS("source.bas", "Source.CloseCompletion", "201", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(VELT_PROPERTY(list, "dataSource"_v), "cancelOperation:"_v, view);
}

id Source::completion(id, id expression) {
    VELTS("source.bas", "Source.Completion", "206", "");
    readSource();
    VELTS("source.bas", "Source.Completion", "207", "");
    return VELT__NSMUTABLEARRAY(assistant->choices(VELT__STRING(expression), VELT__INTEGER(lineNumber())));
}

id Source::argumentHelp(id, id expression) {
    VELTS("source.bas", "Source.ArgumentHelp", "211", "");
    readSource();
    VELTS("source.bas", "Source.ArgumentHelp", "212", "");
    return VELT__STRING(assistant->signature(VELT__STRING(expression), VELT__INTEGER(lineNumber())));
}

void Source::colour() {
    VELTS("source.bas", "Source.Colour", "216", "");
    if (VELT_CBOOL(VELT_SMALLER(VELT_PROPERTY(view, "textStorage.length"_v), number(200000)))) {
        VELTS("source.bas", "Source.Colour", "217", "");
        VELT_NSOBJECT_PERFORMSELECTOR2(view, "performSyntaxHighlighting::"_v, view, boolean(true));
    } else {
        VELTS("source.bas", "Source.Colour", "219", "");
        VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(view);
    }
}

void Source::textViewDidChangeSelection(id) {
    VELTS("source.bas", "Source.TextViewDidChangeSelection", "224", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(owner, "sourceMoved:"_v, id(this));
}

}  // namespace editor
