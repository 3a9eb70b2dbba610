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
    if (VELT_CBOOL(VELT_NSOBJECT_RESPONDSTOSELECTOR(view, "setShowsLineNumbers:"_v)))
        VELT_NSOBJECT_PERFORMSELECTOR1(view, "setShowsLineNumbers:"_v, settings->margin);
    VELTS("source.bas", "Source.Dress", "47", "");
    showName();
}

id Source::name() {
    VELTS("source.bas", "Source.Name", "51", "");
    if (VELT_CBOOL(VELT_EQUAL(path, ""_v))) return VELT__STRING(title);
    VELTS("source.bas", "Source.Name", "52", "");
    return VELT__STRING(VELT_FILENAME(path));
}

void Source::showName() {
    VELTS("source.bas", "Source.ShowName", "57", "");
    id label = VELT__STRING(name());
    VELTS("source.bas", "Source.ShowName", "58", "");
    if (VELT_CBOOL(edited)) label = VELT__STRING(VELT_CONCAT("• "_v, label));
    VELTS("source.bas", "Source.ShowName", "59", "");
    VELT_PROPERTY(item, "label"_v, label);
    VELTS("source.bas", "Source.ShowName", "60", "");
    VELT_PROPERTY(item, "toolTip"_v, path);
}

void Source::load(id location) {
    VELTS("source.bas", "Source.Load", "65", "");
    telling = VELT__BOOLEAN(boolean(true));
    try {
        VELTS("source.bas", "Source.Load", "67", "");
        VELT_VLTEXTVIEW_LOAD(view, location);
    } catch (const NSException&) {
        VELTS("source.bas", "Source.Load", "69", "");
        telling = VELT__BOOLEAN(boolean(false));
        VELTS("source.bas", "Source.Load", "70", "");
        throw;
    }
    VELTS("source.bas", "Source.Load", "72", "");
    telling = VELT__BOOLEAN(boolean(false));
    VELTS("source.bas", "Source.Load", "73", "");
    path = VELT__STRING(location);
    VELTS("source.bas", "Source.Load", "74", "");
    VELT_NSOBJECT_PERFORMSELECTOR2(view, "performSyntaxHighlighting::"_v, view, boolean(true));
    VELTS("source.bas", "Source.Load", "75", "");
    setEdited(boolean(false));
}

id Source::save(id location) {
    VELTS("source.bas", "Source.Save", "79", "");
    if (VELT_CBOOL(VELT_NOT(VELT_VLTEXTVIEW_SAVE(view, location)))) {
        VELTS("source.bas", "Source.Save", "80", "");
        VELT_VLTEXTVIEW_FILENAME(view, path);
        VELTS("source.bas", "Source.Save", "81", "");
        return VELT__BOOLEAN(boolean(false));
    }
    VELTS("source.bas", "Source.Save", "83", "");
    path = VELT__STRING(location);
    VELTS("source.bas", "Source.Save", "84", "");
    setEdited(boolean(false));
    VELTS("source.bas", "Source.Save", "85", "");
    return VELT__BOOLEAN(boolean(true));
}

void Source::setEdited(id flag) {
    VELTS("source.bas", "Source.SetEdited", "89", "");
    edited = VELT__BOOLEAN(flag);
    VELTS("source.bas", "Source.SetEdited", "90", "");
    showName();
    VELTS("source.bas", "Source.SetEdited", "91", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(owner, "sourceChanged:"_v, id(this));
}

id Source::isUntouched() {
    VELTS("source.bas", "Source.IsUntouched", "96", "");
    return VELT__BOOLEAN(VELT_ANDALSO(VELT_EQUAL(path, ""_v), VELT_NOT(edited)));
}

id Source::lineUpTo(id position) {
    VELTS("source.bas", "Source.LineUpTo", "101", "");
    id text = VELT__STRING(VELT_NSTEXTVIEW_VALUE(view));
    VELTS("source.bas", "Source.LineUpTo", "102", "");
    id start =
        VELT__INTEGER(VELT_ADD(VELT_INSTRREV(text, VELT_CHARACTER(number(10)),
                                             VELT_SUB(VELT_SUB(position, VELT_LEN(text)), number(1)), boolean(true)),
                               number(1)));
    VELTS("source.bas", "Source.LineUpTo", "103", "");
    return VELT__STRING(VELT_MID(text, start, VELT_SUB(position, start)));
}

id Source::lineNumber() {
    VELTS("source.bas", "Source.LineNumber", "108", "");
    id position = VELT__INTEGER(VELT_VLTEXTVIEW_POSITION(view));
    VELTS("source.bas", "Source.LineNumber", "109", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_ANDALSO(VELT_GREATER(position, number(0)),
                                             VELT_EQUAL(position, VELT_PROPERTY(view, "textStorage.length"_v))),
                                VELT_EQUAL(lineUpTo(VELT__INTEGER(position)), ""_v))))
        return VELT__INTEGER(VELT_ADD(VELT_VLTEXTVIEW_LINE(view), number(1)));
    VELTS("source.bas", "Source.LineNumber", "110", "");
    return VELT__INTEGER(VELT_MAX(number(1), VELT_VLTEXTVIEW_LINE(view)));
}

id Source::column() {
    VELTS("source.bas", "Source.Column", "115", "");
    return VELT__INTEGER(VELT_ADD(VELT_LEN(lineUpTo(VELT__INTEGER(VELT_VLTEXTVIEW_POSITION(view)))), number(1)));
}

id Source::shouldChange(id, id range, id text) {
    VELTS("source.bas", "Source.ShouldChange", "120", "");
    if (VELT_CBOOL(telling)) return VELT__BOOLEAN(boolean(true));
    VELTS("source.bas", "Source.ShouldChange", "121", "");
    typed = text;
    VELTS("source.bas", "Source.ShouldChange", "122", "");
    place = VELT__INTEGER(VELT_RANGE_LOCATION(range));
    VELTS("source.bas", "Source.ShouldChange", "123", "");
    return VELT__BOOLEAN(boolean(true));
}

void Source::textDidChange(id) {
    VELTS("source.bas", "Source.TextDidChange", "127", "");
    if (VELT_CBOOL(telling)) return;
    VELTS("source.bas", "Source.TextDidChange", "128", "");
    if (VELT_CBOOL(VELT_NOT(edited))) setEdited(boolean(true));
    VELTS("source.bas", "Source.TextDidChange", "129", "");
    id what = typed;
    VELTS("source.bas", "Source.TextDidChange", "130", "");
    typed = nil;
    VELTS("source.bas", "Source.TextDidChange", "131", "");
    if (VELT_CBOOL(VELT_UNEQUAL(what, nil))) {
        VELTS("source.bas", "Source.TextDidChange", "132", "");
        if (VELT_CBOOL(VELT_EQUAL(VELT_LEN(what), number(1)))) tellOf(VELT__STRING(what));
    }
    VELTS("source.bas", "Source.TextDidChange", "134", "");
    colour();
}

void Source::tellOf(id what) {
    VELTS("source.bas", "Source.TellOf", "139", "");
    if (VELT_CBOOL(VELT_EQUAL(what, VELT_CHARACTER(number(10))))) {
        VELTS("source.bas", "Source.TellOf", "140", "");
        if (VELT_CBOOL(settings->formats)) tell(VELT__STRING(what));
    } else if (VELTS("source.bas", "Source.TellOf", "141", ""),
               VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(what, "."_v), VELT_EQUAL(what, "("_v)))) {
        VELTS("source.bas", "Source.TellOf", "142", "");
        if (VELT_CBOOL(knowsWhatFollows(VELT__STRING(what)))) {
            VELTS("source.bas", "Source.TellOf", "143", "");
            tell(VELT__STRING(what));
        } else {
            VELTS("source.bas", "Source.TellOf", "145", "");
            closeCompletion();
        }
    } else if (VELTS("source.bas", "Source.TellOf", "147", ""), VELT_CBOOL(VELT_EQUAL(what, " "_v))) {
        VELTS("source.bas", "Source.TellOf", "148", "");
        if (VELT_CBOOL(asksForType())) tellOfType();
    } else {
        VELTS("source.bas", "Source.TellOf", "150", "");
        tell(VELT__STRING(what));
    }
}

void Source::tell(id what) {
    VELTS("source.bas", "Source.Tell", "155", "");
    id change = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("source.bas", "Source.Tell", "156", "");
    VELT_NSMUTABLEARRAY_APPEND(change, place);
    VELTS("source.bas", "Source.Tell", "157", "");
    VELT_NSMUTABLEARRAY_APPEND(change, what);
    VELTS("source.bas", "Source.Tell", "158", "");
    telling = VELT__BOOLEAN(boolean(true));
    VELTS("source.bas", "Source.Tell", "159", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(view, "_ShouldChangeText:"_v, change);
    VELTS("source.bas", "Source.Tell", "160", "");
    telling = VELT__BOOLEAN(boolean(false));
}

id Source::asksForType() {
    VELTS("source.bas", "Source.AsksForType", "164", "");
    id part = VELT__STRING(lineUpTo(VELT__INTEGER(place)));
    VELTS("source.bas", "Source.AsksForType", "165", "");
    return VELT__BOOLEAN(VELT_ANDALSO(VELT_ENDSWITH(part, " as"_v, boolean(false)), goesOnAsCode(VELT__STRING(part))));
}

void Source::tellOfType() {
    VELTS("source.bas", "Source.TellOfType", "170", "");
    readSource();
    VELTS("source.bas", "Source.TellOfType", "171", "");
    id types = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("source.bas", "Source.TellOfType", "172", "");
    assistant->appendAll(types, assistant->language->types);
    VELTS("source.bas", "Source.TellOfType", "173", "");
    assistant->appendClasses(types);
    VELTS("source.bas", "Source.TellOfType", "174", "");
    VELT_VLTEXTVIEW_TYPES(view, types);
    VELTS("source.bas", "Source.TellOfType", "175", "");
    tell(VELT__STRING(" "_v));
    VELTS("source.bas", "Source.TellOfType", "176", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_PROPERTY(view, "completionTimer"_v), nil)))
        VELT_NSOBJECT_PERFORMSELECTOR0(view, "startCompletionTimer"_v);
}

void Source::readSource() {
    VELTS("source.bas", "Source.ReadSource", "180", "");
    assistant->source->read(VELT__STRING(VELT_NSTEXTVIEW_VALUE(view)));
}

id Source::knowsWhatFollows(id what) {
    VELTS("source.bas", "Source.KnowsWhatFollows", "185", "");
    if (VELT_CBOOL(VELT_NOT(goesOnAsCode(VELT__STRING(lineUpTo(VELT__INTEGER(place)))))))
        return VELT__BOOLEAN(boolean(false));
    VELTS("source.bas", "Source.KnowsWhatFollows", "186", "");
    readSource();
    VELTS("source.bas", "Source.KnowsWhatFollows", "187", "");
    VELT_NSOBJECT_PERFORMSELECTOR2(view, "getCompletion::"_v, place, VELT_NSTEXTVIEW_VALUE(view));
    VELTS("source.bas", "Source.KnowsWhatFollows", "188", "");
    id expression = VELT__STRING(VELT_PROPERTY(view, "sCompletion"_v));
    VELTS("source.bas", "Source.KnowsWhatFollows", "189", "");
    if (VELT_CBOOL(VELT_EQUAL(what, "("_v)))
        return VELT__BOOLEAN(
            VELT_UNEQUAL(assistant->signature(VELT__STRING(expression), VELT__INTEGER(lineNumber())), ""_v));
    VELTS("source.bas", "Source.KnowsWhatFollows", "190", "");
    return VELT__BOOLEAN(VELT_GREATER(
        VELT_NSMUTABLEARRAY_COUNT(assistant->choices(VELT__STRING(expression), VELT__INTEGER(lineNumber()))),
        number(0)));
}

void Source::closeCompletion() {
    VELTS("source.bas", "Source.CloseCompletion", "195", "");
    id open = VELT__NSARRAY(VELT_PROPERTY(view, "runningCompletions"_v));
    VELTS("source.bas", "Source.CloseCompletion", "196", "");
    if (VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(VELT_NSARRAY_COUNT(open), number(0)), VELT_EQUAL(myFloatingKeyWindow, nil))))
        return;
    VELTS("source.bas", "Source.CloseCompletion", "197", "");
    if (VELT_CBOOL(VELT_NOT(
            VELT_PROPERTY(VELT_NSARRAY_OBJECT(open, VELT_SUB(VELT_NSARRAY_COUNT(open), number(1))), "bClass"_v))))
        return;
    VELTS("source.bas", "Source.CloseCompletion", "198", "");
    id list = VELT__NSTABLEVIEW(VELT_PROPERTY(myFloatingKeyWindow, "contentView.documentView"_v));
    VELTS("source.bas", "Source.CloseCompletion", "199", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(VELT_PROPERTY(list, "dataSource"_v), "cancelOperation:"_v, view);
}

id Source::completion(id, id expression) {
    VELTS("source.bas", "Source.Completion", "204", "");
    readSource();
    VELTS("source.bas", "Source.Completion", "205", "");
    return VELT__NSMUTABLEARRAY(assistant->choices(VELT__STRING(expression), VELT__INTEGER(lineNumber())));
}

id Source::argumentHelp(id, id expression) {
    VELTS("source.bas", "Source.ArgumentHelp", "209", "");
    readSource();
    VELTS("source.bas", "Source.ArgumentHelp", "210", "");
    return VELT__STRING(assistant->signature(VELT__STRING(expression), VELT__INTEGER(lineNumber())));
}

void Source::colour() {
    VELTS("source.bas", "Source.Colour", "214", "");
    if (VELT_CBOOL(VELT_SMALLER(VELT_PROPERTY(view, "textStorage.length"_v), number(200000)))) {
        VELTS("source.bas", "Source.Colour", "215", "");
        VELT_NSOBJECT_PERFORMSELECTOR2(view, "performSyntaxHighlighting::"_v, view, boolean(true));
    } else {
        VELTS("source.bas", "Source.Colour", "217", "");
        VELT_VLTEXTVIEW_PERFORMSYNTAXHIGHLIGHTING(view);
    }
}

void Source::textViewDidChangeSelection(id) {
    VELTS("source.bas", "Source.TextViewDidChangeSelection", "222", "");
    VELT_NSOBJECT_PERFORMSELECTOR1(owner, "sourceMoved:"_v, id(this));
}

}  // namespace editor
