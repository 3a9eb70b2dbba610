// What an open completion does with keys.
#include "VELTRuntime/editor/completion_popup.h"

#include "VELTRuntime/editor/argument_help.h"
#include "VELTRuntime/values/text/utf.h"

#include <algorithm>
#include <iterator>
#include <unicode/uchar.h>

namespace velt {

namespace {

using std::u16string_view;

constexpr u16string_view kOpening = u"(";

enum class When { Always, InArguments, OutsideArguments, InMembers, WithCommand };

bool holds(When when, CompletionModes modes, bool withCommand) {
    switch (when) {
    case When::Always: return true;
    case When::InArguments: return modes.arguments;
    case When::OutsideArguments: return !modes.arguments;
    case When::InMembers: return modes.members;
    case When::WithCommand: return withCommand;
    }
    return false;
}

bool isTypable(char32_t codePoint) {
    constexpr auto kTypable = U_GC_L_MASK | U_GC_M_MASK | U_GC_ND_MASK | U_GC_P_MASK | U_GC_S_MASK;
    return (U_GET_GC_MASK(static_cast<UChar32>(codePoint)) & kTypable) != 0;
}

void append(std::u16string& text, char32_t codePoint) {
    if (codePoint < 0x10000) {
        text += static_cast<char16_t>(codePoint);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
}

/// Length in units of the last character of a text that is not empty.
std::size_t lastLength(u16string_view text) {
    return text.size() > 1 && text::codePointAt(text, text.size() - 2).length == 2 ? 2 : 1;
}

}  // namespace

struct CompletionPopup::KeyRule {
    char32_t key;
    When when;
    void (CompletionPopup::*action)(char32_t key);
};

// The first row that fits decides; a character without one is typed when it can be.
const CompletionPopup::KeyRule CompletionPopup::kKeyRules[] = {
    {3, When::InArguments, &CompletionPopup::finishArguments},
    {3, When::OutsideArguments, &CompletionPopup::choose},
    {U'\n', When::InArguments, &CompletionPopup::finishArguments},
    {U'\n', When::OutsideArguments, &CompletionPopup::choose},
    {U'\r', When::InArguments, &CompletionPopup::finishArguments},
    {U'\r', When::OutsideArguments, &CompletionPopup::choose},
    {8, When::Always, &CompletionPopup::deleteBackward},
    {127, When::Always, &CompletionPopup::deleteBackward},
    {27, When::Always, &CompletionPopup::cancel},
    {U' ', When::InArguments, &CompletionPopup::type},
    {U' ', When::OutsideArguments, &CompletionPopup::leave},
    {U'(', When::InMembers, &CompletionPopup::openArguments},
    {U')', When::InArguments, &CompletionPopup::closeArguments},
    {U'v', When::WithCommand, &CompletionPopup::paste},
    {63232, When::OutsideArguments, &CompletionPopup::moveUp},
    {63233, When::OutsideArguments, &CompletionPopup::moveDown},
};

CompletionPopup::CompletionPopup(EditTarget& target, PopupWindow& window, Owner& owner,
                                 std::vector<std::u16string> candidates, std::size_t location, std::ptrdiff_t length,
                                 CompletionModes modes)
    : target_(target), window_(window), owner_(owner), modes_(modes),
      candidates_(modes.arguments ? Candidates::asGiven(std::move(candidates))
                                  : Candidates::sortedUnique(std::move(candidates))) {
    const auto& text = target.buffer();
    if (length > 0 && location <= text.length() && static_cast<std::size_t>(length) <= text.length() - location) {
        typed_ = text.substring({location, static_cast<std::size_t>(length)});
    }
    if (modes.arguments) {
        showArgument();
    } else if (candidates_.beginningWith(typed_).empty()) {
        typed_.clear();
    }
    follow();
}

void CompletionPopup::keyTyped(u16string_view characters, bool withCommand) {
    text::CodePoint character{};
    for (std::size_t at = 0; at < characters.size() && !result_; at += character.length) {
        character = text::codePointAt(characters, at);
        const char32_t key = character.value;
        const auto* rule = std::find_if(std::begin(kKeyRules), std::end(kKeyRules), [&](const KeyRule& row) {
            return row.key == key && holds(row.when, modes_, withCommand);
        });
        if (rule != std::end(kKeyRules)) {
            (this->*rule->action)(key);
        } else if (isTypable(key)) {
            type(key);
        } else {
            beep(key);
        }
    }
}

void CompletionPopup::selectRow(std::optional<std::size_t> row) {
    selected_ = row && *row < shown_.size() ? row : std::nullopt;
    window_.popupChanged(*this);
}

void CompletionPopup::doubleClicked() {
    if (modes_.arguments)
        finishArguments(0);
    else
        choose(0);
}

void CompletionPopup::end(PopupResult result) {
    result_ = result;
    window_.popupEnded(*this);
}

bool CompletionPopup::holdsParenthesesInPairs() const {
    return std::count(typed_.begin(), typed_.end(), u'(') == std::count(typed_.begin(), typed_.end(), u')');
}

void CompletionPopup::showArgument() {
    if (candidates_.count() == 0) return;
    const auto parameter = static_cast<std::size_t>(std::count(typed_.begin(), typed_.end(), u','));
    candidates_ = Candidates::asGiven({argumentHelp(candidates_.name(0), parameter)});
}

void CompletionPopup::follow() {
    selected_.reset();
    selectedName_.clear();
    if (modes_.arguments || typed_.empty()) {
        shown_ = candidates_.all();
    } else {
        shown_ = candidates_.beginningWith(typed_);
        // Capitals that are typed select nothing: the names are looked at in lower case. Programs rely on it.
        const auto first = std::find_if(shown_.begin(), shown_.end(), [this](std::size_t index) {
            return candidates_.lowered(index).starts_with(typed_);
        });
        if (first != shown_.end()) {
            selected_ = static_cast<std::size_t>(first - shown_.begin());
            selectedName_ = candidates_.name(*first);
        }
    }
    window_.popupChanged(*this);
}

void CompletionPopup::insert(char32_t character) {
    std::u16string text;
    append(text, character);
    typed_ += text;
    target_.insertText(text);
    if (modes_.arguments) showArgument();
    follow();
}

void CompletionPopup::deleteFromText() {
    const NSRange caret = target_.selectedRange();
    NSRange deleted = caret;
    if (caret.length == 0) {
        if (caret.location == 0) return;
        const std::size_t from = caret.location - std::min<std::size_t>(2, caret.location);
        deleted.length = lastLength(target_.buffer().view(rangeBetween(from, caret.location)));
        deleted.location -= deleted.length;
    }
    if (target_.change(deleted, {})) target_.select({deleted.location, 0});
}

void CompletionPopup::insertChoice(u16string_view terminator) {
    if (!selected_) return;
    const std::u16string choice = row(*selected_);
    const CommandScope scope(target_);
    for (u16string_view left = typed_; !left.empty(); left.remove_suffix(lastLength(left))) deleteFromText();
    const std::size_t found = choice.find(terminator);
    const bool hasTerminator = found != choice.npos;
    // The terminator is typed by itself, so that it can begin a completion of its own.
    if (modes_.types) {
        target_.insertText(choice);
        if (hasTerminator) target_.insertText(terminator);
    } else if (modes_.members) {
        target_.insertText(u16string_view(choice).substr(0, found));
        if (hasTerminator) target_.insertText(choice.find(u"()") != choice.npos ? u"()" : terminator);
    }
}

void CompletionPopup::type(char32_t character) { insert(character); }

void CompletionPopup::beep(char32_t) { target_.beep(); }

void CompletionPopup::cancel(char32_t) { end(PopupResult::Cancelled); }

void CompletionPopup::choose(char32_t) {
    insertChoice(kOpening);
    owner_.popupChose();
    end(PopupResult::Chosen);
}

void CompletionPopup::finishArguments(char32_t) {
    if (holdsParenthesesInPairs()) insert(U')');
    end(PopupResult::Cancelled);
}

void CompletionPopup::deleteBackward(char32_t) {
    if (typed_.empty()) return end(PopupResult::Cancelled);
    typed_.resize(typed_.size() - lastLength(typed_));
    deleteFromText();
    if (modes_.arguments) showArgument();
    follow();
}

/// A space ends a name: it belongs to the text, and there is nothing more to complete.
void CompletionPopup::leave(char32_t space) {
    std::u16string text;
    append(text, space);
    target_.insertText(text);
    if (!result_) end(PopupResult::Cancelled);
}

void CompletionPopup::openArguments(char32_t parenthesis) {
    if (holdsParenthesesInPairs())
        choose(parenthesis);
    else
        insert(parenthesis);
}

void CompletionPopup::closeArguments(char32_t parenthesis) {
    const bool areArgumentsClosed = holdsParenthesesInPairs();
    insert(parenthesis);
    if (areArgumentsClosed) end(PopupResult::Cancelled);
}

void CompletionPopup::paste(char32_t) { window_.paste(); }

void CompletionPopup::moveUp(char32_t) { moveSelection(false); }
void CompletionPopup::moveDown(char32_t) { moveSelection(true); }

void CompletionPopup::moveSelection(bool down) {
    if (shown_.empty()) return;
    const std::size_t last = shown_.size() - 1;
    if (!selected_)
        selectRow(down ? 0 : last);
    else if (down)
        selectRow(std::min(*selected_ + 1, last));
    else
        selectRow(*selected_ - std::min<std::size_t>(1, *selected_));
}

}  // namespace velt
