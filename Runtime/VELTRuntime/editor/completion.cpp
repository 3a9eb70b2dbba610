// When completions open, wait, give way to each other and come back.
#include "VELTRuntime/editor/completion.h"

#include "VELTRuntime/editor/completion_expression.h"
#include "VELTRuntime/values/text/casing.h"

#include <utility>

namespace velt {

namespace {

constexpr std::u16string_view kAs = u" as";

/// The three units that end one before a position are " as", in any case.
bool isBehindAs(const EditTarget& target, std::size_t position) {
    const auto& text = target.buffer();
    if (position < kAs.size() + 1 || position - 1 > text.length()) return false;
    return text::lowered(text.view({position - 1 - kAs.size(), kAs.size()})) == kAs;
}

/// The popup that is shown while it lives, however its window is left.
class ShownPopup {
public:
    ShownPopup(CompletionPopup*& shown, CompletionPopup* popup) : shown_(shown), below_(std::exchange(shown, popup)) {}
    ~ShownPopup() { shown_ = below_; }
    ShownPopup(const ShownPopup&) = delete;
    ShownPopup& operator=(const ShownPopup&) = delete;

private:
    CompletionPopup*& shown_;
    CompletionPopup* below_;
};

}  // namespace

void Completion::textTyped(std::size_t position, std::u16string_view typed) {
    lastInsertion_ = position + typed.size();
    const bool isDot = typed == u".", isParenthesis = typed == u"(";
    if (isDot || isParenthesis) {
        ++request_;
        modes_ = {.members = isDot, .arguments = isParenthesis};
        nextInsertion_ = lastInsertion_;
        const auto& text = target_.buffer();
        const std::size_t end = std::min(position, text.length());
        expression_ = expressionAtEnd(text.view(rangeBetween(text.lineRangeAt(end).location, end)));
        giveWay();
        startTimer();
        return;
    }
    if (position >= kAs.size() + 1 && isBehindAs(target_, lastInsertion_)) modes_ = {.types = true};
    // Types stay asked for until something else is: any later space opens them. Programs rely on it.
    if (!modes_.types || typed != u" ") return;
    ++request_;
    nextInsertion_ = lastInsertion_;
    giveWay();
    if (runningCount_ == 0) startTimer();
}

void Completion::requestAll() {
    ++request_;
    expression_ = kEveryName;
    modes_ = {.members = true};
    lastInsertion_ = nextInsertion_ = target_.selectedRange().location + 2;
    startTimer();
}

void Completion::startTimer() {
    stopTimer();
    if (isAsked_) ++replacedTimers_;
    ++runningCount_;
    isAsked_ = isTimerPending_ = true;
    host_.startTimer(kDelay);
}

void Completion::stopTimer() {
    isTimerPending_ = false;
    host_.stopTimer();
}

std::optional<std::vector<std::u16string>> Completion::askHost() {
    if (modes_.types) return host_.types();
    if (modes_.members) return host_.members(expression_);
    if (modes_.arguments) return std::vector{host_.signature(expression_), std::u16string()};
    return std::nullopt;
}

void Completion::timerFired() {
    stopTimer();
    runningCount_ -= std::exchange(replacedTimers_, 0);
    for (;;) {
        const unsigned long asked = request_;
        std::optional<std::vector<std::u16string>> candidates = askHost();
        if (asked == request_) {
            isAsked_ = false;
            if (candidates) open(std::move(*candidates), nextInsertion_, lengthFrom(nextInsertion_, lastInsertion_));
            return;
        }
        // A host may let the person type on while it looks for an answer: the answer is to what nobody asks any more.
        if (isTimerPending_ || !isAsked_) return;
    }
}

void Completion::giveWay() {
    if (popup_) popup_->end(PopupResult::Chosen);
}

void Completion::popTop() {
    if (!running_.empty()) running_.pop_back();
}

void Completion::open(std::vector<std::u16string> candidates, std::size_t location, std::ptrdiff_t length) {
    running_.push_back({modes_, location, length, candidates});
    const CompletionModes modes = std::exchange(modes_, {});
    CompletionPopup popup(target_, window_, *this, std::move(candidates), location, length, modes);
    {
        const ShownPopup shown(popup_, &popup);
        window_.run(popup);
    }
    popupEnded(popup.result().value_or(PopupResult::Cancelled));
}

void Completion::popupEnded(PopupResult result) {
    const bool isChosen = result == PopupResult::Chosen;
    if (isChosen) --runningCount_;
    if (!isChosen && runningCount_ > 0 && running_.size() > 1) {
        popTop();
        Running below = std::move(running_.back());
        popTop();
        modes_ = below.modes;
        if (runningCount_ >= 2) --runningCount_;
        // What was typed meanwhile, and one unit more, is what the popup below goes on with. Programs rely on it.
        open(std::move(below.candidates), below.location, lengthFrom(below.location, lastInsertion_ + 1));
    } else if (runningCount_ >= 2 || (runningCount_ == 1 && !isChosen)) {
        popTop();
        --runningCount_;
    }
}

}  // namespace velt
