// notebook.bas: notes, and the file that keeps them.
#pragma once

#include "notes/values.h"

namespace notes {

class Note : public NSObject {
    VELT_OBJECT(Note, NSObject)

public:
    id text = VELT__STRING(""_v), title = VELT__STRING(""_v), changed = VELT_ID(0.0);

    static void describe(velt::ClassBuilder<Note>& c);
    void write(id value);
    void touch();
    id date();
    id dateText();
    id matches(id find);
    id record();
};

/// What a variable of the class takes: nil and notes.
inline velt::Ref<Note> toNote(const id& value) { return velt::Ref<Note>(velt::to<Note>(value)); }

class Notebook : public NSObject {
    VELT_OBJECT(Notebook, NSObject)

public:
    id path = VELT__STRING(""_v), notes = velt::make<NSMutableArray>(), edited = boolean(false);

    static void describe(velt::ClassBuilder<Notebook>& c);
    id name();
    velt::Ref<Note> add();
    void change(velt::Ref<Note> note, id text);
    void remove(velt::Ref<Note> note);
    void read(id from);
    id save(id destination);
    id matching(id find, id key, id ascending);
    id place(velt::Ref<Note> note, id sorted, id key, id ascending);
    id order(velt::Ref<Note> first, velt::Ref<Note> second, id key);
};

}  // namespace notes
