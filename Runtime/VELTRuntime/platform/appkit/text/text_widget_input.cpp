// What a person does in a text view's widget, as messages to the view.
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/menus/menu_bar.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/text/find_bar.h"
#include "VELTRuntime/platform/appkit/text/rich_text.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"
#include "VELTRuntime/platform/appkit/text/text_widget.h"
#include "VELTRuntime/platform/appkit/view_events.h"
#include "VELTRuntime/platform/foundation/attribute_names.h"
#include "VELTRuntime/platform/foundation/dictionary.h"

#include <QDesktopServices>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>
#include <algorithm>
#include <iterator>

namespace velt {

namespace {

/// A key of the desktop and the command that it stands for.
struct KeyCommand {
    QKeySequence::StandardKey key;
    const char* command;
    bool edits;
};
constexpr KeyCommand kKeyCommands[] = {
    {QKeySequence::Undo, "undo:", true},
    {QKeySequence::Redo, "redo:", true},
    {QKeySequence::Cut, "cut:", true},
    {QKeySequence::Copy, "copy:", false},
    {QKeySequence::Paste, "paste:", true},
    {QKeySequence::SelectAll, "selectAll:", false},
    {QKeySequence::Delete, "deleteForward:", true},
    {QKeySequence::Backspace, "deleteBackward:", true},
    {QKeySequence::DeleteStartOfWord, "deleteWordBackward:", true},
    {QKeySequence::DeleteEndOfWord, "deleteWordForward:", true},
    {QKeySequence::DeleteEndOfLine, "deleteToEndOfLine:", true},
    {QKeySequence::DeleteCompleteLine, "deleteParagraph:", true},
    {QKeySequence::InsertParagraphSeparator, "insertNewline:", true},
    {QKeySequence::InsertLineSeparator, "insertLineBreak:", true},
};

/// The first so many rows are commands that every program's Edit menu has.
constexpr std::ptrdiff_t kEverywhere = 6;

struct KeyFind {
    QKeySequence::StandardKey key;
    long action;
};
constexpr KeyFind kKeyFinds[] = {
    {QKeySequence::Find, 1}, {QKeySequence::Replace, 1}, {QKeySequence::FindNext, 2}, {QKeySequence::FindPrevious, 3}};

// Where the plus sign needs the shift key, its key counts without it too.
struct KeyZoom {
    Qt::Key key;
    const char* command;
};
constexpr KeyZoom kKeyZooms[] = {
    {Qt::Key_Plus, "zoomIn:"}, {Qt::Key_Equal, "zoomIn:"}, {Qt::Key_Minus, "zoomOut:"}, {Qt::Key_0, "resetZoom:"}};

struct Movement {
    const char* command;
    QTextCursor::MoveOperation operation;
};
constexpr Movement kMovements[] = {
    {"moveLeft", QTextCursor::Left},
    {"moveRight", QTextCursor::Right},
    {"moveUp", QTextCursor::Up},
    {"moveDown", QTextCursor::Down},
    {"moveBackward", QTextCursor::PreviousCharacter},
    {"moveForward", QTextCursor::NextCharacter},
    {"moveWordLeft", QTextCursor::WordLeft},
    {"moveWordRight", QTextCursor::WordRight},
    {"moveWordBackward", QTextCursor::PreviousWord},
    {"moveWordForward", QTextCursor::NextWord},
    {"moveToBeginningOfLine", QTextCursor::StartOfLine},
    {"moveToEndOfLine", QTextCursor::EndOfLine},
    {"moveToBeginningOfParagraph", QTextCursor::StartOfBlock},
    {"moveToEndOfParagraph", QTextCursor::EndOfBlock},
    {"moveToBeginningOfDocument", QTextCursor::Start},
    {"moveToEndOfDocument", QTextCursor::End},
};

constexpr Qt::KeyboardModifiers kCommandModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

/// The key types a text. The third level of a keyboard may come with Control and Alt.
bool typesText(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty()) return false;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & kCommandModifiers;
    if (modifiers == Qt::ControlModifier) return false;
    const QChar first = text.front();
    return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_Format ||
           first.category() == QChar::Other_PrivateUse;
}

}  // namespace

// Keys.

bool TextWidget::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // The program's own use of a key comes first; what everyone undoes, copies and pastes with means the same
        // there.
        const auto& key = static_cast<QKeyEvent&>(*event);
        const bool isEverywhere = std::any_of(std::begin(kKeyCommands), std::begin(kKeyCommands) + kEverywhere,
                                              [&](const KeyCommand& row) { return key.matches(row.key); });
        if (!isEverywhere && (key.modifiers() & kCommandModifiers) && mainMenuHasKey(key)) return event->ignore(), true;
        for (const KeyFind& find : kKeyFinds) {
            if (key.matches(find.key)) return event->accept(), true;
        }
    }
    return QPlainTextEdit::event(event);
}

void TextWidget::keyPressEvent(QKeyEvent* event) {
    NSTextView* shown = view();
    if (!shown) return QPlainTextEdit::keyPressEvent(event);
    const Ref<NSTextView> kept(shown);
    loadAll();
    runReported([&] { kept->commandBegins(); });
    event->accept();
    QKeyEvent* outer = std::exchange(key_, event);
    deliver(*kept, VELT_SELECTOR("keyDown:"), NSEvent::ofKey(NSEvent::Type::KeyDown, *event, kept->windowPointer()));
    key_ = outer;
}

void TextWidget::keyReleaseEvent(QKeyEvent* event) {
    if (NSTextView* shown = view()) {
        deliver(*shown, VELT_SELECTOR("keyUp:"), NSEvent::ofKey(NSEvent::Type::KeyUp, *event, shown->windowPointer()));
    }
    QPlainTextEdit::keyReleaseEvent(event);
}

bool TextWidget::interpretKey() {
    QKeyEvent& event = *key_;
    const bool taken = pressKey(event);
    event.setAccepted(taken);
    return taken;
}

bool TextWidget::pressKey(QKeyEvent& event) {
    NSTextView& shown = *view();
    const bool edits = !isReadOnly();
    const auto command = [&](const char* selector) { return shown.doCommand(string(std::string_view(selector))); };
    for (const KeyFind& find : kKeyFinds) {
        if (event.matches(find.key)) return shown.find(find.action), true;
    }
    for (const KeyCommand& row : kKeyCommands) {
        if (event.matches(row.key)) return row.edits && !edits ? false : command(row.command);
    }
    const bool plain = !(event.modifiers() & kCommandModifiers);
    if ((event.modifiers() & kCommandModifiers) == Qt::ControlModifier) {
        for (const KeyZoom& row : kKeyZooms) {
            if (event.key() == row.key && command(row.command)) return true;
        }
    }
    switch (event.key()) {
    case Qt::Key_Escape:
        if (isFindBarShown()) return command("cancelOperation:");
        // The text itself has no use for it; a button of the window may have one.
        return plain && shown.delegateDoes(string(u"cancelOperation:"));
    case Qt::Key_Tab: return edits && plain && command("insertTab:");
    case Qt::Key_Backtab: return edits && plain && command("insertBacktab:");
    default: break;
    }
    // Some keyboards have two of them, one with a modifier of its own.
    if (edits && plain && event.key() == Qt::Key_Enter) return command("insertNewline:");
    if (edits && plain && event.key() == Qt::Key_Backspace) return command("deleteBackward:");
    if (edits && plain && event.key() == Qt::Key_Delete) return command("deleteForward:");
    if (edits && typesText(event)) {
        send(id(static_cast<NSObject*>(&shown)), VELT_SELECTOR("insertText:"), textValue(event.text()));
        return true;
    }
    QPlainTextEdit::keyPressEvent(&event);  // moving about
    return event.isAccepted();
}

bool TextWidget::move(const QString& command) {
    loadAll();
    QString name = command.chopped(1);
    const QString extending = QStringLiteral("AndModifySelection");
    const bool extends = name.endsWith(extending);
    if (extends) name.chop(extending.size());
    for (const Movement& movement : kMovements) {
        if (name != QLatin1String(movement.command)) continue;
        moveCursor(movement.operation, extends ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
        return true;
    }
    return false;
}

void TextWidget::inputMethodEvent(QInputMethodEvent* event) {
    loadAll();
    NSTextView* shown = view();
    if (!shown || isReadOnly()) return QPlainTextEdit::inputMethodEvent(event);
    const Ref<NSTextView> kept(shown);
    runReported([&] {
        const bool commits = !event->commitString().isEmpty() || event->replacementLength() > 0;
        if (commits) {
            QInputMethodEvent ends;
            QPlainTextEdit::inputMethodEvent(&ends);  // what was being composed makes room for what came of it
            NSRange range = kept->selectedRange();
            if (event->replacementLength() > 0) {
                const auto begin = static_cast<long>(range.location) + event->replacementStart();
                range = {static_cast<unsigned long>(std::max(0L, begin)),
                         static_cast<unsigned long>(event->replacementLength())};
                kept->insertTextInRange(textValue(event->commitString()), range);
            } else {
                send(kept, VELT_SELECTOR("insertText:"), textValue(event->commitString()));
            }
        } else if (!event->preeditString().isEmpty() && kept->selectedRange().length > 0) {
            kept->deleteSelection(nil);
        }
    });
    if (!event->preeditString().isEmpty() && textCursor().hasSelection()) return;  // it may not be replaced
    QInputMethodEvent composing(event->preeditString(), event->attributes());
    QPlainTextEdit::inputMethodEvent(&composing);
    event->accept();
}

// The mouse.

bool TextWidget::viewportEvent(QEvent* event) {
    NSTextView* shown = view();
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        if (shown && offerToProgram(*shown, *viewport(), *event)) return true;
        break;
    default: break;
    }
    return QPlainTextEdit::viewportEvent(event);
}

void TextWidget::wheelEvent(QWheelEvent* event) {
    NSTextView* shown = view();
    const bool zooms = shown && event->modifiers() == Qt::ControlModifier &&
                       respondsTo(id(static_cast<NSObject*>(shown)), VELT_SELECTOR("zoomIn:"));
    if (!zooms) return QPlainTextEdit::wheelEvent(event);
    const Ref<NSTextView> kept(shown);
    event->accept();
    // Fine wheels add up to the steps of coarse ones.
    const int turn = event->angleDelta().y();
    if ((turn > 0) != (turned_ > 0)) turned_ = 0;
    turned_ += turn;
    for (; std::abs(turned_) >= QWheelEvent::DefaultDeltasPerStep;
         turned_ -= turned_ > 0 ? QWheelEvent::DefaultDeltasPerStep : -QWheelEvent::DefaultDeltasPerStep) {
        const bool larger = turned_ > 0;
        runReported([&] { kept->doCommand(larger ? "zoomIn:"_v : "zoomOut:"_v); });
    }
}

void TextWidget::mousePressEvent(QMouseEvent* event) {
    loadAll();
    if (NSTextView* shown = view()) runReported([&] { shown->commandBegins(); });
    QPlainTextEdit::mousePressEvent(event);
}

void TextWidget::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    NSTextView* shown = view();
    const bool follows = isReadOnly() || event->modifiers() & Qt::ControlModifier;
    if (!shown || event->button() != Qt::LeftButton || textCursor().hasSelection() || !follows) return;
    if (anchorAt(event->pos()).isEmpty()) return;
    const Ref<NSTextView> kept(shown);
    runReported([&] {
        const auto place = static_cast<long>(cursorForPosition(event->pos()).position());
        if (place >= static_cast<long>(kept->shown().length())) return;
        const id link = kept->shown().attributeAt(attribute::link(), place);
        const Selector asks = Selector::named("textView:clickedOnLink:atIndex:");
        if (respondsTo(kept->delegate(), asks) &&
            VELT_CBOOL(send(kept->delegate(), asks, id(kept), link, VELT_ID(place)))) {
            return;
        }
        QDesktopServices::openUrl(QUrl(qtText(description(link))));
    });
}

void TextWidget::contextMenuEvent(QContextMenuEvent* event) {
    NSTextView* shown = view();
    if (!shown) return;
    struct Item {
        const char* title;
        const char* command;
        bool enabled;
    };
    const bool edits = !isReadOnly(), selected = textCursor().hasSelection();
    const bool undoes = shown->allowsUndo() && edits;
    auto* manager = to<NSUndoManager>(shown->undoManager());
    const Item items[] = {
        {"Undo", "undo:", undoes && manager && manager->canUndo()},
        {"Redo", "redo:", undoes && manager && manager->canRedo()},
        {nullptr, nullptr, false},
        {"Cut", "cut:", edits && selected},
        {"Copy", "copy:", selected},
        {"Paste", "paste:", edits && canPaste()},
        {"Delete", "delete:", edits && selected},
        {nullptr, nullptr, false},
        {"Select All", "selectAll:", shown->shown().length() > 0},
    };
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Item& item : items) {
        if (!item.title) {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(QString::fromLatin1(item.title));
        action->setEnabled(item.enabled);
        connect(action, &QAction::triggered, this, [this, command = item.command] {
            NSTextView* asked = view();
            if (!asked) return;
            const Ref<NSTextView> kept(asked);
            runReported([&] {
                kept->commandBegins();
                kept->doCommand(string(std::string_view(command)));
            });
        });
    }
    menu->popup(event->globalPos());
}

// Clipboard and drags.

id textFrom(const QMimeData& source, bool rich) {
    if (rich && source.hasHtml()) return attributedFromHtml(source.html());
    return source.hasText() ? textValue(source.text()) : id();
}

std::unique_ptr<QMimeData> mimeDataOf(const NSAttributedString& text, bool rich, const QFont& font) {
    auto data = std::make_unique<QMimeData>();
    const std::u16string_view units = text.view();
    data->setText(QString(reinterpret_cast<const QChar*>(units.data()), static_cast<qsizetype>(units.size())));
    const auto runs = text.runs().runs();
    const bool plain = runs.empty() || (runs.size() == 1 && runs[0].attributes.isNil());
    if (rich && !plain) data->setHtml(htmlOf(text, font));
    return data;
}

QMimeData* TextWidget::createMimeDataFromSelection() const {
    NSTextView* shown = view();
    if (!shown) return nullptr;
    const id part = shown->shown().attributedSubstring(shown->selectedRange());
    return mimeDataOf(*attributedStringOf(part), shown->isRichText(), document()->defaultFont()).release();
}

bool TextWidget::canInsertFromMimeData(const QMimeData* source) const {
    return !isReadOnly() && (source->hasText() || source->hasHtml());
}

void TextWidget::insertFromMimeData(const QMimeData* source) {
    NSTextView* shown = view();
    if (!shown) return;
    const Ref<NSTextView> kept(shown);
    runReported([&] {
        const id text = textFrom(*source, kept->isRichText());
        kept->commandBegins();
        if (!text.isNil()) send(kept, VELT_SELECTOR("insertText:"), text);
    });
}

void TextWidget::dropEvent(QDropEvent* event) {
    loadAll();
    QDragLeaveEvent leave;
    QPlainTextEdit::dragLeaveEvent(&leave);  // the drop's caret goes
    NSTextView* shown = view();
    if (!shown || !canInsertFromMimeData(event->mimeData())) return event->ignore();
    const Ref<NSTextView> kept(shown);
    auto place = static_cast<unsigned long>(cursorForPosition(event->position().toPoint()).position());
    const bool moves = event->dropAction() == Qt::MoveAction && event->source() == viewport();
    event->acceptProposedAction();
    runReported([&] {
        const id text = textFrom(*event->mimeData(), kept->isRichText());
        const NSRange from = kept->selectedRange();
        if (text.isNil() || (moves && place >= from.location && place <= from.location + from.length)) return;
        kept->commandBegins();
        if (moves) {
            if (!kept->change(from, ""_v)) return;
            if (place > from.location) place -= from.length;
        }
        if (!kept->change({place, 0}, text)) return;
        const std::size_t length = isString(text) ? textOf(text).size() : attributedStringOf(text)->length();
        kept->setSelectedRange({place, length});
    });
    setFocus(Qt::OtherFocusReason);
}

}  // namespace velt
