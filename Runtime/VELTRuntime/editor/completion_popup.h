// One open completion: what its list shows, what is selected in it, and what its keys do. Its window only draws it and
// hands on keys and clicks.
#pragma once

#include "VELTRuntime/editor/completion_candidates.h"
#include "VELTRuntime/editor/edit_target.h"

namespace velt {

/// What a completion offers; each trigger sets one.
struct CompletionModes {
    bool types = false;      ///< behind "as "
    bool members = false;    ///< behind "." or Escape
    bool arguments = false;  ///< help behind "("
    friend bool operator==(const CompletionModes&, const CompletionModes&) = default;
};

/// How a popup ended.
enum class PopupResult : int {
    Chosen = 999,  ///< a choice was inserted, or the popup gives way to a newer one
    Cancelled = -1001,
};

class CompletionPopup;

/// The window of a popup.
class VELT_EXPORT PopupWindow {
public:
    /// Shows a popup at the caret and returns when it has ended.
    virtual void run(CompletionPopup& popup) = 0;
    /// The list or its selection is another one.
    virtual void popupChanged(const CompletionPopup&) {}
    /// The popup has ended; run() returns as soon as it can.
    virtual void popupEnded(const CompletionPopup&) {}
    /// Pastes into the text.
    virtual void paste() = 0;

protected:
    ~PopupWindow() = default;
};

class VELT_EXPORT CompletionPopup {
public:
    /// What a popup tells of itself.
    class Owner {
    public:
        /// A choice is being made: the popup gives up its place among the open ones.
        virtual void popupChose() = 0;

    protected:
        ~Owner() = default;
    };

    /// Begins with the text of the range as typed, if that lies within the text.
    CompletionPopup(EditTarget& target, PopupWindow& window, Owner& owner, std::vector<std::u16string> candidates,
                    std::size_t location, std::ptrdiff_t length, CompletionModes modes);

    CompletionModes modes() const { return modes_; }
    /// What was typed since the popup opened.
    const std::u16string& typed() const { return typed_; }
    std::size_t rowCount() const { return shown_.size(); }
    /// The most rows that there can be.
    std::size_t candidateCount() const { return candidates_.count(); }
    /// The text of a row; in argument help HTML.
    const std::u16string& row(std::size_t index) const { return candidates_.name(shown_[index]); }
    std::optional<std::size_t> selectedRow() const { return selected_; }
    /// The name that the typed text leads to; empty when there is none.
    const std::u16string& selectedName() const { return selectedName_; }

    /// A key event's characters, with the Command key held or not.
    void keyTyped(std::u16string_view characters, bool withCommand);
    /// A click on a row, or beside all.
    void selectRow(std::optional<std::size_t> row);
    /// As Return.
    void doubleClicked();

    /// Puts the selected name in the place of what was typed; a part of it from a terminator on is typed by itself.
    void insertChoice(std::u16string_view terminator);
    /// Marks the parameter that the typed text has come to.
    void showArgument();
    /// Shows and selects what the typed text leads to.
    void follow();

    /// Ends the popup; the last result before its window closes counts.
    void end(PopupResult result);
    /// Nothing while it is open.
    std::optional<PopupResult> result() const { return result_; }

private:
    struct KeyRule;
    static const KeyRule kKeyRules[];

    bool holdsParenthesesInPairs() const;
    void insert(char32_t character);
    void deleteFromText();
    void moveSelection(bool down);

    // What keys do.
    void type(char32_t character);
    void beep(char32_t);
    void cancel(char32_t);
    void choose(char32_t);
    void finishArguments(char32_t);
    void deleteBackward(char32_t);
    void leave(char32_t space);
    void openArguments(char32_t parenthesis);
    void closeArguments(char32_t parenthesis);
    void paste(char32_t);
    void moveUp(char32_t);
    void moveDown(char32_t);

    EditTarget& target_;
    PopupWindow& window_;
    Owner& owner_;
    CompletionModes modes_;
    Candidates candidates_;
    std::vector<std::size_t> shown_;
    std::optional<std::size_t> selected_;
    std::u16string typed_, selectedName_;
    std::optional<PopupResult> result_;
};

}  // namespace velt
