#include "VELTRuntime/platform/appkit/controls/field_text.h"

#include "VELTRuntime/platform/appkit/controls/field_editor.h"
#include "VELTRuntime/platform/appkit/controls/text_field.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/object/exception.h"

namespace velt {

namespace {

FieldEditor* editorOf(const NSTextField* field) { return field ? field->editor() : nullptr; }

}  // namespace

Class& FieldText::entry() {
    static Class& cls = declareClass<FieldText>("VLFieldEditor", &NSResponder::entry());
    return cls;
}

id FieldText::string() const {
    const FieldEditor* editor = editorOf(field_);
    return editor ? textValue(editor->text()) : velt::string(std::u16string_view());
}

void FieldText::setString(const id& text) {
    const id given = VELT_CSTRING(text);
    if (FieldEditor* editor = editorOf(field_)) {
        editor->selectAll();
        editor->insert(qtText(given));
    }
}

NSRange FieldText::selectedRange() const {
    const FieldEditor* editor = editorOf(field_);
    if (!editor) return {};
    return {static_cast<unsigned long>(editor->selectionStart()),
            static_cast<unsigned long>(editor->selectionLength())};
}

void FieldText::setSelectedRange(NSRange range) {
    FieldEditor* editor = editorOf(field_);
    if (!editor) return;
    const auto length = static_cast<std::size_t>(editor->text().size());
    if (range.location > length || range.length > length - range.location) {
        raiseRange("'VLFieldEditor' setSelectedRange:", range.location, range.length, length);
    }
    editor->select(static_cast<int>(range.location), static_cast<int>(range.length));
}

void FieldText::insertText(const id& text) {
    const id given = VELT_CSTRING(text);
    if (FieldEditor* editor = editorOf(field_)) editor->insert(qtText(given));
}

id FieldText::delegate() const { return id(static_cast<NSObject*>(field_)); }

void FieldText::selectAll(const id& sender) {
    if (field_) field_->selectAllText(sender);
}
void FieldText::cut(const id& sender) {
    if (field_) field_->cutText(sender);
}
void FieldText::copyText(const id& sender) {
    if (field_) field_->copyText(sender);
}
void FieldText::paste(const id& sender) {
    if (field_) field_->pasteText(sender);
}
void FieldText::deleteText(const id& sender) {
    if (field_) field_->deleteText(sender);
}
void FieldText::undo(const id& sender) {
    if (field_) field_->undoTyping(sender);
}
void FieldText::redo(const id& sender) {
    if (field_) field_->redoTyping(sender);
}

void FieldText::describe(ClassBuilder<FieldText>& c) {
    c.property("string", &FieldText::string, &FieldText::setString)
        .property("selectedRange", &FieldText::selectedRange, &FieldText::setSelectedRange)
        .property("delegate", &FieldText::delegate)
        .method("isFieldEditor", &FieldText::isFieldEditor)
        .method("insertText:", &FieldText::insertText)
        .method("selectAll:", &FieldText::selectAll)
        .method("cut:", &FieldText::cut)
        .method("copy:", &FieldText::copyText)
        .method("paste:", &FieldText::paste)
        .method("delete:", &FieldText::deleteText)
        .method("undo:", &FieldText::undo)
        .method("redo:", &FieldText::redo);
}

}  // namespace velt
