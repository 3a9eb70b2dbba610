// When completions open, wait, give way to each other and come back.
#pragma once

#include "VELTRuntime/editor/completion_popup.h"

namespace velt {

/// What completion asks of the editor around it.
class VELT_EXPORT CompletionHost {
public:
    /// Calls timerFired() once after some seconds.
    virtual void startTimer(double seconds) = 0;
    virtual void stopTimer() = 0;

    /// The names of types.
    virtual std::vector<std::u16string> types() = 0;
    /// The members of what an expression gives; all names for one that is no expression.
    virtual std::vector<std::u16string> members(const std::u16string& expression) = 0;
    /// The built-in that an expression calls, with its parameters.
    virtual std::u16string signature(const std::u16string& expression) = 0;

protected:
    ~CompletionHost() = default;
};

/// The completions of one editor.
class VELT_EXPORT Completion : private CompletionPopup::Owner {
public:
    /// So long typing has to rest before a popup opens, in seconds.
    static constexpr double kDelay = 0.5;
    /// Stands for every name when it is asked for members.
    static constexpr std::u16string_view kEveryName = u"!§$%&/()=?";

    Completion(EditTarget& target, CompletionHost& host, PopupWindow& window)
        : target_(target), host_(host), window_(window) {}

    /// A text that was typed has been dealt with; it began at a position. Some texts ask for a completion.
    void textTyped(std::size_t position, std::u16string_view typed);
    /// Asks for every name (the Escape key).
    void requestAll();
    /// Opens the completion that was asked for, and returns when it has ended.
    void timerFired();

    /// Opens a popup over candidates, in the present modes, which are over then. The range of the text is what is typed
    /// of them. Returns when the popup has ended.
    void open(std::vector<std::u16string> candidates, std::size_t location, std::ptrdiff_t length);

    /// A timer more counts as started; one that runs is stopped, and counts as answered when the new one is.
    void startTimer();
    void stopTimer();

    CompletionModes modes() const { return modes_; }
    void setModes(CompletionModes modes) { modes_ = modes; }
    /// What is completed.
    const std::u16string& expression() const { return expression_; }
    void setExpression(std::u16string expression) { expression_ = std::move(expression); }
    /// Number of timers that were started and are not answered yet.
    long runningCount() const { return runningCount_; }
    void setRunningCount(long count) { runningCount_ = count; }
    /// The position behind what was typed last.
    std::size_t lastInsertion() const { return lastInsertion_; }
    /// The position behind what asked for the completion, and two before it.
    std::size_t nextInsertion() const { return nextInsertion_; }
    std::size_t beforeNextInsertion() const { return nextInsertion_ - 2; }

    /// A popup that is open, or that gave way to one above it.
    struct Running {
        CompletionModes modes;
        std::size_t location;
        std::ptrdiff_t length;
        std::vector<std::u16string> candidates;
    };
    /// The lowest first.
    const std::vector<Running>& running() const { return running_; }
    /// The popup that is shown now, if any.
    const CompletionPopup* popup() const { return popup_; }

private:
    std::optional<std::vector<std::u16string>> askHost();
    void popupChose() override { popTop(); }
    void popTop();
    void giveWay();
    void popupEnded(PopupResult result);
    std::ptrdiff_t lengthFrom(std::size_t location, std::size_t end) const {
        return static_cast<std::ptrdiff_t>(end) - static_cast<std::ptrdiff_t>(location);
    }

    EditTarget& target_;
    CompletionHost& host_;
    PopupWindow& window_;
    CompletionModes modes_;
    std::u16string expression_;
    std::size_t lastInsertion_ = 0, nextInsertion_ = 0;
    long runningCount_ = 0;
    long replacedTimers_ = 0;                        // started, and given up for another one before an answer came
    unsigned long request_ = 0;                      // counts what was asked for
    bool isTimerPending_ = false, isAsked_ = false;  // isAsked_: no popup has answered the last request yet
    std::vector<Running> running_;
    CompletionPopup* popup_ = nullptr;
};

}  // namespace velt
