#include "VELTRuntime/platform/appkit/controls/token_field.h"

#include "VELTRuntime/platform/appkit/controls/token_widget.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/id_of.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>

using velt::Ref;

Ref<NSCell> NSTokenField::makeCell() const {
    Ref<NSTokenFieldCell> cell = velt::make<NSTokenFieldCell>();
    prepareCell(*cell);
    return cell;
}

std::unique_ptr<velt::FieldWidget> NSTokenField::makeFieldWidget() { return std::make_unique<velt::TokenWidget>(); }

id NSTokenField::editedText() const {
    const id pending = tokenCell().pendingText();
    return pending.isNil() ? velt::string(std::u16string_view()) : pending;
}

void NSTokenField::cellChanged(NSCell& cell) {
    selected_ = std::min(selected_, static_cast<long>(tokenCell().tokens().size()) - 1);
    NSTextField::cellChanged(cell);
}

bool NSTokenField::addTokens(const std::vector<id>& texts) {
    NSTokenFieldCell& cell = tokenCell();
    std::vector<id> made;
    made.reserve(texts.size());
    for (const id& text : texts) made.push_back(cell.tokenFor(text));
    const auto at = selected_ >= 0 ? static_cast<std::size_t>(selected_) : cell.tokens().size();
    const velt::Selector asks = VELT_SELECTOR("tokenField:shouldAddObjects:atIndex:");
    if (velt::respondsTo(delegate(), asks)) {
        const id offered = velt::make<NSArray>(std::span<const id>(made));
        const id taken = velt::send(delegate(), asks, velt::idOf(this), offered, VELT_ID(static_cast<long>(at)));
        const NSArray* list = velt::arrayOf(taken);
        made.clear();
        if (list) made.assign(list->items().begin(), list->items().end());
    }
    // A selected token makes place for the new ones.
    cell.replaceTokens(at, selected_ >= 0 ? 1 : 0, made);
    selected_ = -1;
    return !made.empty();
}

bool NSTokenField::makeTokens() {
    NSTokenFieldCell& cell = tokenCell();
    const velt::FieldEditor* shown = editor();
    const id text = shown ? velt::textValue(shown->text()) : cell.pendingText();
    if (text.isNil()) return false;
    const std::vector<id> pieces = cell.piecesOf(text);
    cell.takeTyped(velt::string(std::u16string_view()));
    if (!pieces.empty()) addTokens(pieces);
    changed();
    return !pieces.empty();
}

void NSTokenField::takeTyped() {
    const velt::FieldEditor* shown = editor();
    if (!shown) return;
    NSTokenFieldCell& cell = tokenCell();
    const QString text = shown->text();
    if (selected_ >= 0 && !text.isEmpty()) {
        // What is typed takes the place of the selected token.
        cell.replaceTokens(static_cast<std::size_t>(selected_), 1, {});
        selected_ = -1;
    }
    const bool complete =
        std::any_of(text.begin(), text.end(), [&cell](QChar unit) { return cell.isSeparator(unit.unicode()); });
    if (complete) {
        makeTokens();
    } else {
        cell.takeTyped(velt::textValue(text));
    }
}

void NSTokenField::textChanged() {
    changed();
    auto* shown = static_cast<velt::TokenWidget*>(fieldWidget());
    if (shown) shown->offerCompletions(tokenCell().completionDelay());
}

bool NSTokenField::endingEdit(Movement) {
    makeTokens();
    return true;
}

bool NSTokenField::removeSelected() {
    NSTokenFieldCell& cell = tokenCell();
    if (selected_ < 0 || !isEditable()) return false;
    if (!isEditing() && !delegateAllows("control:textShouldBeginEditing:")) return true;
    if (!isEditing()) beginEditing();
    if (selected_ >= static_cast<long>(cell.tokens().size())) return true;
    cell.replaceTokens(static_cast<std::size_t>(selected_), 1, {});
    selected_ = -1;
    changed();
    tell("controlTextDidChange:", "NSControlTextDidChangeNotification");
    return true;
}

bool NSTokenField::perform(std::string_view selector) {
    velt::FieldEditor* shown = editor();
    const long count = static_cast<long>(tokenCell().tokens().size());
    const bool atStart = shown && shown->selectionStart() == 0 && shown->selectionLength() == 0;
    // Where the tokens stand, "left" is toward the first of them in either direction of writing.
    const bool fromRight = fieldWidget() && fieldWidget()->layoutDirection() == Qt::RightToLeft;
    const std::string_view back = fromRight ? "moveRight:" : "moveLeft:",
                           forth = fromRight ? "moveLeft:" : "moveRight:";
    if (selector == "insertNewline:" && shown && !shown->text().trimmed().isEmpty()) {
        makeTokens();
        tell("controlTextDidChange:", "NSControlTextDidChangeNotification");
        return true;
    }
    if (selector == "deleteBackward:" || selector == "deleteForward:") {
        if (selected_ >= 0) return removeSelected();
        if (selector == "deleteForward:" || !atStart || count == 0) return false;
        selectToken(count - 1);
        return true;
    }
    if (selector == back && (selected_ >= 0 || atStart)) {
        if (count > 0) selectToken(selected_ < 0 ? count - 1 : std::max(0L, selected_ - 1));
        return true;
    }
    if (selector == forth && selected_ >= 0) {
        selectToken(selected_ + 1 < count ? selected_ + 1 : -1);
        return true;
    }
    if (selector == "cancelOperation:" && selected_ >= 0) {
        selectToken(-1);
        return true;
    }
    return NSTextField::perform(selector);
}

void NSTokenField::selectToken(long index) noexcept {
    selected_ = index;
    velt::runReported([this] { changed(); });
}

// Cut, copy and paste, as text.

void NSTokenField::copyText(const id& sender) {
    const NSTokenFieldCell& cell = tokenCell();
    velt::FieldEditor* shown = editor();
    if (selected_ >= 0 && selected_ < static_cast<long>(cell.tokens().size())) {
        QGuiApplication::clipboard()->setText(
            velt::qtText(cell.textOf(cell.tokens()[static_cast<std::size_t>(selected_)])));
    } else if (shown && shown->selectionLength() == static_cast<int>(shown->text().size()) && !cell.tokens().empty()) {
        // All of the text is selected, or there is none: all of the field.
        QGuiApplication::clipboard()->setText(velt::qtText(stringValue()));
    } else {
        NSTextField::copyText(sender);
    }
}

void NSTokenField::cutText(const id& sender) {
    if (!isEditable()) return;
    if (selected_ < 0) {
        NSTextField::cutText(sender);
        return;
    }
    copyText(sender);
    removeSelected();
}

void NSTokenField::deleteText(const id& sender) {
    if (!removeSelected()) NSTextField::deleteText(sender);
}

void NSTokenField::pasteText(const id&) {
    velt::FieldEditor* shown = editor();
    if (!shown || !isEditable()) return;
    // A text of several lines holds a token a line.
    QString text = QGuiApplication::clipboard()->text();
    const id separators = tokenizingCharacterSet();
    const std::u16string_view units = velt::textOf(separators);
    if (!units.empty()) text.replace(QLatin1Char('\n'), QChar(units.front()));
    shown->insert(text);
}

// Completion.

id NSTokenField::completions() noexcept {
    id found;
    const Ref<NSTokenField> kept(this);
    velt::runReported([&] {
        const velt::FieldEditor* shown = editor();
        const velt::Selector asks =
            VELT_SELECTOR("tokenField:completionsForSubstring:indexOfToken:indexOfSelectedItem:");
        if (!shown || shown->text().trimmed().isEmpty() || !velt::respondsTo(delegate(), asks)) return;
        const id text = velt::textValue(shown->text().trimmed());
        const auto index = static_cast<long>(tokenCell().tokens().size());
        found = velt::send(delegate(), asks, velt::idOf(this), text, VELT_ID(index), VELT_ID(0L));
    });
    return found;
}

void NSTokenField::completeWith(const id& text) noexcept {
    const Ref<NSTokenField> kept(this);
    velt::runReported([&] {
        // The list goes, and its text with it.
        const id chosen = text;  // NOLINT(performance-unnecessary-copy-initialization)
        velt::FieldEditor* shown = editor();
        if (!shown || !velt::isString(chosen)) return;
        tokenCell().takeTyped(velt::string(std::u16string_view()));
        addTokens({chosen});
        changed();
        tell("controlTextDidChange:", "NSControlTextDidChangeNotification");
    });
}

void NSTokenField::describe(velt::ClassBuilder<NSTokenField>& c) {
    c.property("tokenizingCharacterSet", &NSTokenField::tokenizingCharacterSet,
               &NSTokenField::setTokenizingCharacterSet)
        .property("completionDelay", &NSTokenField::completionDelay, &NSTokenField::setCompletionDelay);
}
