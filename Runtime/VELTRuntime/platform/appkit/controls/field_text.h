// What programs see of the editor in a field while a person types: its text and selection.
#pragma once

#include "VELTRuntime/platform/appkit/responder.h"
#include "VELTRuntime/values/structures.h"

class NSTextField;

namespace velt {

/// Works on its field's editor; answers with an empty text when the field has gone.
class VELT_EXPORT FieldText final : public NSResponder {
public:
    static Class& entry();
    Class& isa() const override { return entry(); }

    explicit FieldText(NSTextField& field) : field_(&field) {}
    void forget() { field_ = nullptr; }

    id string() const;
    /// Changes the text as a person would: the field's delegate hears of it.
    void setString(const id& text);
    NSRange selectedRange() const;
    /// Raises "NSRangeException" when the range goes beyond the end.
    void setSelectedRange(NSRange range);
    /// Puts a text in the place of the selection, as if it were typed.
    void insertText(const id& text);
    id delegate() const;
    bool isFieldEditor() const { return true; }
    void selectAll(const id& sender);
    void cut(const id& sender);
    void copyText(const id& sender);
    void paste(const id& sender);
    void deleteText(const id& sender);
    void undo(const id& sender);
    void redo(const id& sender);
    static void describe(ClassBuilder<FieldText>& c);

protected:
    id ownNextResponder() const override { return delegate(); }

private:
    NSTextField* field_;  // clears this when it goes
};

}  // namespace velt
