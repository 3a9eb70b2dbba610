#include "VELTRuntime/platform/appkit/controls/field_editor_keys.h"

#include "VELTRuntime/platform/appkit/controls/text_field.h"
#include "VELTRuntime/platform/appkit/view_events.h"

#include <QKeyEvent>
#include <QWidget>

namespace velt {

namespace {

struct KeyCommand {
    QKeySequence::StandardKey key;
    std::string_view selector;
};

/// Moves of the caret and deletions under the desktop's own keys.
constexpr KeyCommand kCommands[] = {
    {QKeySequence::MoveToNextChar, "moveRight:"},
    {QKeySequence::MoveToPreviousChar, "moveLeft:"},
    {QKeySequence::SelectNextChar, "moveRightAndModifySelection:"},
    {QKeySequence::SelectPreviousChar, "moveLeftAndModifySelection:"},
    {QKeySequence::MoveToNextWord, "moveWordRight:"},
    {QKeySequence::MoveToPreviousWord, "moveWordLeft:"},
    {QKeySequence::SelectNextWord, "moveWordRightAndModifySelection:"},
    {QKeySequence::SelectPreviousWord, "moveWordLeftAndModifySelection:"},
    {QKeySequence::MoveToStartOfLine, "moveToBeginningOfLine:"},
    {QKeySequence::MoveToEndOfLine, "moveToEndOfLine:"},
    {QKeySequence::SelectStartOfLine, "moveToBeginningOfLineAndModifySelection:"},
    {QKeySequence::SelectEndOfLine, "moveToEndOfLineAndModifySelection:"},
    {QKeySequence::MoveToStartOfDocument, "moveToBeginningOfDocument:"},
    {QKeySequence::MoveToEndOfDocument, "moveToEndOfDocument:"},
    {QKeySequence::MoveToPreviousLine, "moveUp:"},
    {QKeySequence::MoveToNextLine, "moveDown:"},
    {QKeySequence::MoveToPreviousPage, "pageUp:"},
    {QKeySequence::MoveToNextPage, "pageDown:"},
    {QKeySequence::DeleteStartOfWord, "deleteWordBackward:"},
    {QKeySequence::DeleteEndOfWord, "deleteWordForward:"},
    {QKeySequence::Delete, "deleteForward:"},
};

/// The keyboard is only borrowed: by a menu, or by another window.
bool comesBack(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

/// The command that programs know for a key; empty for one that types.
std::string_view commandFor(const QKeyEvent& event) {
    constexpr auto kOthers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (event.modifiers() & (Qt::AltModifier | Qt::ShiftModifier)) return "insertNewlineIgnoringFieldEditor:";
        return event.modifiers() & kOthers ? "" : "insertNewline:";
    case Qt::Key_Tab: return event.modifiers() & kOthers ? "" : "insertTab:";
    case Qt::Key_Backtab: return event.modifiers() & kOthers ? "" : "insertBacktab:";
    case Qt::Key_Escape: return event.modifiers() & kOthers ? "" : "cancelOperation:";
    case Qt::Key_Backspace:
        if (!(event.modifiers() & kOthers)) return "deleteBackward:";
        break;
    default: break;
    }
    for (const KeyCommand& command : kCommands) {
        if (event.matches(command.key)) return command.selector;
    }
    return "";
}

}  // namespace

NSTextField* fieldOf(const QWidget& editor) {
    NSView* view = viewAround(&editor);
    return view && is<NSTextField>(id(static_cast<NSObject*>(view))) ? static_cast<NSTextField*>(view) : nullptr;
}

bool offerKey(const QWidget& editor, QKeyEvent& event) {
    const std::string_view command = commandFor(event);
    NSTextField* field = command.empty() ? nullptr : fieldOf(editor);
    return field && field->command(command);
}

bool isForWindow(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Escape;
}

bool isTab(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) &&
           !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

void tellKeyboardLeft(QWidget& editor, const QFocusEvent& event) {
    if (comesBack(event.reason())) return;
    NSTextField* field = fieldOf(editor);
    if (!field || field->keyboardLeft()) return;
    QMetaObject::invokeMethod(
        &editor, [&editor] { editor.setFocus(Qt::MouseFocusReason); }, Qt::QueuedConnection);
}

QString oneLine(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (QChar& unit : text) {
        if (unit == QLatin1Char('\n') || unit == QLatin1Char('\r') || unit == QChar::ParagraphSeparator ||
            unit == QChar::LineSeparator) {
            unit = QLatin1Char(' ');
        }
    }
    return text;
}

bool KeyboardStay::begins(Qt::FocusReason reason) {
    const bool began = !std::exchange(going_, true);
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason ||
           reason == Qt::OtherFocusReason || (began && reason == Qt::ActiveWindowFocusReason);
}

bool KeyboardStay::ends(Qt::FocusReason reason) {
    if (comesBack(reason)) return false;
    going_ = false;
    return true;
}

}  // namespace velt
