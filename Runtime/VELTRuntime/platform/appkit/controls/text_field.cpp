#include "VELTRuntime/platform/appkit/controls/text_field.h"

#include "VELTRuntime/platform/appkit/controls/field_text.h"
#include "VELTRuntime/platform/appkit/controls/field_widget.h"
#include "VELTRuntime/platform/appkit/controls/secret_text.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <QFontMetricsF>
#include <QWidget>

using velt::Ref;

NSTextField::~NSTextField() { NSTextField::dissolve(); }

void NSTextField::dissolve() {
    editing_ = false;
    if (!fieldText_.isNil()) velt::as<velt::FieldText>(fieldText_)->forget();
    NSControl::dissolve();
}

void NSTextField::prepareCell(NSTextFieldCell& cell) {
    cell.setEditable(true);
    cell.setBezeled(true);
    cell.setDrawsBackground(true);
}

Ref<NSCell> NSTextField::makeCell() const {
    Ref<NSTextFieldCell> cell = velt::make<NSTextFieldCell>();
    prepareCell(*cell);
    return cell;
}

// The widget.

std::unique_ptr<velt::FieldWidget> NSTextField::makeFieldWidget() { return std::make_unique<velt::FieldWidget>(); }

std::unique_ptr<QWidget> NSTextField::makeWidget() {
    std::unique_ptr<velt::FieldWidget> made = makeFieldWidget();
    watchEvents(*made);
    return made;
}

velt::FieldWidget* NSTextField::fieldWidget() const { return static_cast<velt::FieldWidget*>(existingWidget()); }

velt::FieldEditor* NSTextField::editor() const {
    const velt::FieldWidget* shown = fieldWidget();
    return shown ? shown->editor() : nullptr;
}

void NSTextField::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    static_cast<velt::FieldWidget&>(widget).sync(*this);
}

void NSTextField::cellChanged(NSCell& cell) {
    const velt::FieldEditor* shown = editor();
    // What the program sets while a person types stands, also against Escape.
    if (editing_ && !telling_ && shown && !shown->shows(velt::qtText(editedText()))) before_ = cell.objectValue();
    NSControl::cellChanged(cell);
}

bool NSTextField::isSecret() const { return velt::isSecret(textCell()); }

bool NSTextField::showsSeveralLines() const {
    const NSTextFieldCell& cell = textCell();
    using LineBreak = NSTextFieldCell::LineBreak;
    const bool wraps = cell.wraps() && cell.lineBreakMode() <= static_cast<long>(LineBreak::CharWrap);
    if (isSecret() || !wraps || cell.usesSingleLineMode()) return false;
    const double line = QFontMetricsF(velt::as<NSFont>(cell.font())->font()).lineSpacing();
    constexpr double kLines = 1.9;  // a font's lines stand a little apart
    return frame().size.height - (cell.isBezeled() ? 4 : 0) >= kLines * line;
}

// The keyboard.

bool NSTextField::resignFirstResponder() { return leave(Movement::Other); }

void NSTextField::selectText(const id&) {
    NSWindow* window = windowPointer();
    if (!window || !isSelectable()) return;
    if (!window->makeFirstResponder(id(static_cast<NSObject*>(this)))) return;
    if (velt::FieldEditor* shown = editor()) shown->selectAll();
}

id NSTextField::currentEditor() const {
    velt::FieldEditor* shown = editor();
    if (!shown || !(shown->widget().hasFocus() || editing_)) return nil;
    if (fieldText_.isNil()) fieldText_ = velt::make<velt::FieldText>(const_cast<NSTextField&>(*this));
    return fieldText_;
}

void NSTextField::moveToWindow(NSWindow* window) {
    // A field that is taken away keeps what was typed; nobody is told at a moment when views come and go.
    if (!window && editing_) {
        editing_ = false;
        before_ = nil;
        textCell().dropTyping();
    }
    NSControl::moveToWindow(window);
}

// Edits.

void NSTextField::cutText(const id&) {
    if (velt::FieldEditor* shown = editor(); shown && isEditable() && !isSecret()) shown->cut();
}
void NSTextField::copyText(const id&) {
    if (velt::FieldEditor* shown = editor(); shown && !isSecret()) shown->copy();
}
void NSTextField::pasteText(const id&) {
    if (velt::FieldEditor* shown = editor(); shown && isEditable()) shown->paste();
}
void NSTextField::deleteText(const id&) {
    if (velt::FieldEditor* shown = editor(); shown && isEditable() && shown->selectionLength() > 0) shown->insert({});
}
void NSTextField::selectAllText(const id&) {
    if (velt::FieldEditor* shown = editor()) shown->selectAll();
}
void NSTextField::undoTyping(const id&) {
    if (velt::FieldEditor* shown = editor(); shown && isEditable() && !isSecret()) shown->undo();
}
void NSTextField::redoTyping(const id&) {
    if (velt::FieldEditor* shown = editor(); shown && isEditable() && !isSecret()) shown->redo();
}

void NSTextField::describe(velt::ClassBuilder<NSTextField>& c) {
    c.flag("editable", &NSTextField::isEditable, &NSTextField::setEditable)
        .flag("selectable", &NSTextField::isSelectable, &NSTextField::setSelectable)
        .flag("bezeled", &NSTextField::isBezeled, &NSTextField::setBezeled)
        .flag("bordered", &NSTextField::isBordered, &NSTextField::setBordered)
        .property("bezelStyle", &NSTextField::bezelStyle, &NSTextField::setBezelStyle)
        .property("drawsBackground", &NSTextField::drawsBackground, &NSTextField::setDrawsBackground)
        .property("textColor", &NSTextField::textColor, &NSTextField::setTextColor)
        .property("backgroundColor", &NSTextField::backgroundColor, &NSTextField::setBackgroundColor)
        .property("placeholderString", &NSTextField::placeholderString, &NSTextField::setPlaceholderString)
        .property("lineBreakMode", &NSTextField::lineBreakMode, &NSTextField::setLineBreakMode)
        .property("allowsEditingTextAttributes", &NSTextField::allowsEditingTextAttributes,
                  &NSTextField::setAllowsEditingTextAttributes)
        .property("formatter", &NSTextField::formatter, &NSTextField::setFormatter)
        .property("currentEditor", &NSTextField::currentEditor)
        .method("isEditing", &NSTextField::isEditing)
        .method("selectText:", &NSTextField::selectText)
        .method("abortEditing", &NSTextField::abortEditing)
        .method("validateEditing", &NSTextField::validateEditing)
        .method("cut:", &NSTextField::cutText)
        .method("copy:", &NSTextField::copyText)
        .method("paste:", &NSTextField::pasteText)
        .method("delete:", &NSTextField::deleteText)
        .method("selectAll:", &NSTextField::selectAllText)
        .method("undo:", &NSTextField::undoTyping)
        .method("redo:", &NSTextField::redoTyping)
        .owns(&NSTextField::before_)
        .owns(&NSTextField::fieldText_);
}
