// source.bas: one source with its page and file.
#pragma once

#include "editor/assistant.h"
#include "editor/settings.h"
#include "support/window_values.h"

namespace editor {

class Source : public NSObject {
    VELT_OBJECT(Source, NSObject)

public:
    id owner, view, item, typed;
    id path = VELT__STRING(""_v), title = VELT__STRING(""_v);
    id edited = boolean(false), telling = boolean(false), place = number(0);
    velt::Ref<Assistant> assistant = velt::make<Assistant>();
    velt::Ref<Settings> settings;

    static void describe(velt::ClassBuilder<Source>& c);
    void build(id window, velt::Ref<Language> language, velt::Ref<Settings> prepared);
    void dress();
    id name();
    void showName();
    void load(id location);
    id save(id location);
    void setEdited(id flag);
    id isUntouched();
    id lineUpTo(id position);
    id lineNumber();
    id column();

    id shouldChange(id sender, id range, id text);
    void textDidChange(id notification);
    void tellOf(id what);
    void tell(id what);
    id asksForType();
    void tellOfType();
    void readSource();
    id knowsWhatFollows(id what);
    void closeCompletion();
    id completion(id sender, id expression);
    id argumentHelp(id sender, id expression);
    void colour();
    void textViewDidChangeSelection(id notification);
};

velt::Ref<Source> toSource(const id& value);

}  // namespace editor
