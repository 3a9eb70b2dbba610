// notebook.bas as the translator writes it.
#include "notes/notebook.h"

#include "VELTRuntime/platform/foundation/date.h"

namespace notes {

void Note::describe(velt::ClassBuilder<Note>& c) {
    c.property("text", &Note::text).property("title", &Note::title).property("changed", &Note::changed);
}

void Note::write(id value) {
    VELTS("notebook.bas", "Note.Write", "10", "");
    text = VELT__STRING(value);
    VELTS("notebook.bas", "Note.Write", "11", "");
    title = VELT__STRING("New Note"_v);
    VELTS("notebook.bas", "Note.Write", "12", "");
    id lines = VELT__NSMUTABLEARRAY(VELT_SPLIT(value, VELT_CHARACTER(number(10))));
    VELTS("notebook.bas", "Note.Write", "13", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("notebook.bas", "Note.Write", "14", "");
        id line = VELT__STRING(VELT_TRIM(VELT_NSMUTABLEARRAY_OBJECT(lines, i)));
        VELTS("notebook.bas", "Note.Write", "15", "");
        if (VELT_CBOOL(VELT_UNEQUAL(line, ""_v))) {
            VELTS("notebook.bas", "Note.Write", "16", "");
            title = VELT__STRING(line);
            VELTS("notebook.bas", "Note.Write", "17", "");
            break;
        }
    }
}

void Note::touch() {
    VELTS("notebook.bas", "Note.Touch", "24", "");
    changed = VELT__DOUBLE(
        VELT_PROPERTY(VELT_NSOBJECT_PERFORMSELECTOR0(ofClass<NSDate>(), "date"_v), "timeIntervalSinceReferenceDate"_v));
}

id Note::date() {
    VELTS("notebook.bas", "Note.Date", "28", "");
    return VELT_NSOBJECT_PERFORMSELECTOR1(ofClass<NSDate>(), "dateWithTimeIntervalSinceReferenceDate:"_v, changed);
}

id Note::dateText() {
    VELTS("notebook.bas", "Note.DateText", "33", "");
    return VELT__STRING(
        velt::send(date(), "descriptionWithCalendarFormat:timeZone:locale:", "%Y-%m-%d %H:%M"_v, nil, nil));
}

id Note::matches(id find) {
    VELTS("notebook.bas", "Note.Matches", "37", "");
    return VELT__BOOLEAN(VELT_ORELSE(VELT_EQUAL(find, ""_v), VELT_CONTAINS(text, find, boolean(false))));
}

id Note::record() {
    VELTS("notebook.bas", "Note.Record", "41", "");
    id kept = VELT__NSMUTABLEDICTIONARY(velt::make<NSMutableDictionary>());
    VELTS("notebook.bas", "Note.Record", "42", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(kept, "text"_v, text);
    VELTS("notebook.bas", "Note.Record", "43", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(kept, "changed"_v, date());
    VELTS("notebook.bas", "Note.Record", "44", "");
    return VELT__NSMUTABLEDICTIONARY(kept);
}

void Notebook::describe(velt::ClassBuilder<Notebook>& c) {
    c.property("path", &Notebook::path).property("notes", &Notebook::notes).property("edited", &Notebook::edited);
}

id Notebook::name() {
    VELTS("notebook.bas", "Notebook.Name", "55", "");
    if (VELT_CBOOL(VELT_EQUAL(path, ""_v))) return VELT__STRING("Untitled"_v);
    VELTS("notebook.bas", "Notebook.Name", "56", "");
    return VELT__STRING(VELT_FILENAME(path));
}

velt::Ref<Note> Notebook::add() {
    VELTS("notebook.bas", "Notebook.Add", "60", "");
    velt::Ref<Note> note = velt::make<Note>();
    VELTS("notebook.bas", "Notebook.Add", "61", "");
    note->write(VELT__STRING(""_v));
    VELTS("notebook.bas", "Notebook.Add", "62", "");
    note->touch();
    VELTS("notebook.bas", "Notebook.Add", "63", "");
    VELT_NSMUTABLEARRAY_APPEND(notes, note);
    VELTS("notebook.bas", "Notebook.Add", "64", "");
    edited = VELT__BOOLEAN(boolean(true));
    VELTS("notebook.bas", "Notebook.Add", "65", "");
    return note;
}

void Notebook::change(velt::Ref<Note> note, id text) {
    VELTS("notebook.bas", "Notebook.Change", "69", "");
    note->write(VELT__STRING(text));
    VELTS("notebook.bas", "Notebook.Change", "70", "");
    note->touch();
    VELTS("notebook.bas", "Notebook.Change", "71", "");
    edited = VELT__BOOLEAN(boolean(true));
}

void Notebook::remove(velt::Ref<Note> note) {
    VELTS("notebook.bas", "Notebook.Remove", "75", "");
    VELT_NSMUTABLEARRAY_REMOVEOBJECT(notes, note);
    VELTS("notebook.bas", "Notebook.Remove", "76", "");
    edited = VELT__BOOLEAN(boolean(true));
}

void Notebook::read(id from) {
    VELTS("notebook.bas", "Notebook.Read", "81", "");
    id records = VELT__NSARRAY(VELT_NSDICTIONARY_OBJECT(VELT_READDICTIONARY(from), "notes"_v));
    VELTS("notebook.bas", "Notebook.Read", "82", "");
    if (VELT_CBOOL(VELT_EQUAL(records, nil))) {
        VELT_EXCEPTION("NotesFailure"_v, "There are no notes in it."_v, nil);
    }
    VELTS("notebook.bas", "Notebook.Read", "83", "");
    id found = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("notebook.bas", "Notebook.Read", "84", "");
    const id last = VELT_SUB(VELT_NSARRAY_COUNT(records), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("notebook.bas", "Notebook.Read", "85", "");
        id record = VELT__NSDICTIONARY(VELT_NSARRAY_OBJECT(records, i));
        VELTS("notebook.bas", "Notebook.Read", "86", "");
        velt::Ref<Note> note = velt::make<Note>();
        VELTS("notebook.bas", "Notebook.Read", "87", "");
        note->write(VELT__STRING(VELT_CSTRING(VELT_NSDICTIONARY_OBJECT(record, "text"_v))));
        VELTS("notebook.bas", "Notebook.Read", "88", "");
        note->changed = VELT__DOUBLE(VELT_ID(VELT_CDOUBLE(
            VELT_PROPERTY(VELT_NSDICTIONARY_OBJECT(record, "changed"_v), "timeIntervalSinceReferenceDate"_v))));
        VELTS("notebook.bas", "Notebook.Read", "89", "");
        VELT_NSMUTABLEARRAY_APPEND(found, note);
    }
    VELTS("notebook.bas", "Notebook.Read", "91", "");
    notes = VELT__NSMUTABLEARRAY(found);
    VELTS("notebook.bas", "Notebook.Read", "92", "");
    path = VELT__STRING(from);
    VELTS("notebook.bas", "Notebook.Read", "93", "");
    edited = VELT__BOOLEAN(boolean(false));
}

id Notebook::save(id destination) {
    VELTS("notebook.bas", "Notebook.Save", "98", "");
    id records = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("notebook.bas", "Notebook.Save", "99", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(notes), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("notebook.bas", "Notebook.Save", "100", "");
        VELT_NSMUTABLEARRAY_APPEND(records, toNote(VELT_NSMUTABLEARRAY_OBJECT(notes, i))->record());
    }
    VELTS("notebook.bas", "Notebook.Save", "102", "");
    id content = VELT__NSMUTABLEDICTIONARY(velt::make<NSMutableDictionary>());
    VELTS("notebook.bas", "Notebook.Save", "103", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(content, "notes"_v, records);
    VELTS("notebook.bas", "Notebook.Save", "104", "");
    if (VELT_CBOOL(VELT_NOT(VELT_WRITEDICTIONARY(content, destination)))) return VELT__BOOLEAN(boolean(false));
    VELTS("notebook.bas", "Notebook.Save", "105", "");
    path = VELT__STRING(destination);
    VELTS("notebook.bas", "Notebook.Save", "106", "");
    edited = VELT__BOOLEAN(boolean(false));
    VELTS("notebook.bas", "Notebook.Save", "107", "");
    return VELT__BOOLEAN(boolean(true));
}

id Notebook::matching(id find, id key, id ascending) {
    VELTS("notebook.bas", "Notebook.Matching", "112", "");
    id sorted = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("notebook.bas", "Notebook.Matching", "113", "");
    const id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(notes), number(1));
    for (id i = number(0); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("notebook.bas", "Notebook.Matching", "114", "");
        if (VELT_CBOOL(toNote(VELT_NSMUTABLEARRAY_OBJECT(notes, i))->matches(VELT__STRING(find)))) {
            VELT_NSMUTABLEARRAY_INSERT(sorted, VELT_NSMUTABLEARRAY_OBJECT(notes, i),
                                       place(toNote(VELT_NSMUTABLEARRAY_OBJECT(notes, i)), sorted, key, ascending));
        }
    }
    VELTS("notebook.bas", "Notebook.Matching", "116", "");
    return VELT__NSMUTABLEARRAY(sorted);
}

id Notebook::place(velt::Ref<Note> note, id sorted, id key, id ascending) {
    VELTS("notebook.bas", "Notebook.Place", "121", "");
    id low = VELT__INTEGER(number(0));
    VELTS("notebook.bas", "Notebook.Place", "122", "");
    id high = VELT__INTEGER(VELT_NSMUTABLEARRAY_COUNT(sorted));
    while (VELTS("notebook.bas", "Notebook.Place", "123", ""), VELT_CBOOL(VELT_SMALLER(low, high))) {
        VELTS("notebook.bas", "Notebook.Place", "124", "");
        id middle = VELT__INTEGER(VELT_IDIV(VELT_ADD(low, high), number(2)));
        VELTS("notebook.bas", "Notebook.Place", "125", "");
        id compared = order(note, toNote(VELT_NSMUTABLEARRAY_OBJECT(sorted, middle)), key);
        VELTS("notebook.bas", "Notebook.Place", "126", "");
        if (VELT_CBOOL(VELT_NOT(ascending))) compared = VELT__INTEGER(VELT_MINUS(compared));
        VELTS("notebook.bas", "Notebook.Place", "127", "");
        if (VELT_CBOOL(VELT_SMALLER(compared, number(0)))) {
            VELTS("notebook.bas", "Notebook.Place", "128", "");
            high = VELT__INTEGER(middle);
        } else {
            VELTS("notebook.bas", "Notebook.Place", "130", "");
            low = VELT__INTEGER(VELT_ADD(middle, number(1)));
        }
    }
    VELTS("notebook.bas", "Notebook.Place", "133", "");
    return VELT__INTEGER(low);
}

id Notebook::order(velt::Ref<Note> first, velt::Ref<Note> second, id key) {
    VELTS("notebook.bas", "Notebook.Order", "137", "");
    if (VELT_CBOOL(VELT_EQUAL(key, "title"_v))) {
        return VELT__INTEGER(VELT_COMPARE(first->title, second->title, boolean(false)));
    }
    VELTS("notebook.bas", "Notebook.Order", "138", "");
    if (VELT_CBOOL(VELT_SMALLER(first->changed, second->changed))) return VELT__INTEGER(number(-1));
    VELTS("notebook.bas", "Notebook.Order", "139", "");
    if (VELT_CBOOL(VELT_GREATER(first->changed, second->changed))) return VELT__INTEGER(number(1));
    VELTS("notebook.bas", "Notebook.Order", "140", "");
    return VELT__INTEGER(number(0));
}

}  // namespace notes
