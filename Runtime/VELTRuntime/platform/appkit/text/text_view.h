// The text view: a text that a person reads, edits, searches, and can take back what he did.
//
// The text lives in the view's storage (or, in a subclass, wherever it keeps it); the widget shows it unit by unit. All
// that a person does comes back as messages by name ("insertText:", "deleteBackward:", "paste:", ...), so that a
// program's subclass may answer them in its own way, and every change of the text goes through
// shouldChangeTextInRange:replacementString:, replaceCharactersInRange:withString: and didChangeText.
#pragma once

#include "VELTRuntime/platform/appkit/text/layout_manager.h"
#include "VELTRuntime/platform/appkit/text/text.h"
#include "VELTRuntime/platform/appkit/text/text_storage.h"
#include "VELTRuntime/platform/foundation/undo_manager.h"

namespace velt {
struct FindRequest;
class TextWidget;
}  // namespace velt

class VELT_EXPORT NSTextView : public NSText, private velt::StorageWatcher {
    VELT_OBJECT(NSTextView, NSText)
public:
    NSTextView() : NSTextView(NSRect{}) {}
    explicit NSTextView(NSRect frame);
    ~NSTextView() override;

    // The text. A subclass that keeps it elsewhere overrides these.
    id string() const override;
    void setString(const id& text) override;
    void replaceCharacters(NSRange range, const id& text) override;
    virtual void replaceCharactersWithAttributed(NSRange range, const NSAttributedString& text);
    virtual id textStorage() const { return storage(); }
    virtual std::size_t textLength() const { return storage()->length(); }
    /// The text; valid until it is changed.
    virtual std::u16string_view text() const { return storage()->view(); }
    virtual id attributedPart(NSRange range) const { return storage()->attributedSubstring(range); }
    virtual id undoManager();

    // The selection; further ranges are shown, and copied with the first one. They are in order; what overlaps or
    // touches is one range.
    NSRange selectedRange() const override;
    void setSelectedRange(NSRange range) override;
    virtual id selectedRanges() const;
    /// Raises "NSInvalidArgumentException" for no ranges, "NSRangeException" beyond the end.
    virtual void setSelectedRanges(const id& ranges);
    void scrollRangeToVisible(NSRange range) override;

    // Editing as a person does it: nothing happens where it is not allowed.
    /// Puts a text (a string or an attributed string) in the place of the selection.
    virtual void insertText(const id& text);
    void insertTextInRange(const id& text, NSRange range);
    /// Asks the delegate. False when the text cannot be edited.
    virtual bool shouldChangeText(NSRange range, const id& replacement);
    /// Tells the delegate and everyone; ends a change that shouldChangeText began.
    virtual void didChangeText();
    void cut(const id& sender) override;
    void copySelection(const id& sender) override;
    void paste(const id& sender) override;
    void deleteSelection(const id& sender) override;
    void selectAll(const id& sender) override;
    void undo(const id& sender);
    void redo(const id& sender);
    virtual void insertTab(const id& sender);
    virtual void insertNewline(const id& sender);
    void insertLineBreak(const id& sender);
    void deleteBackward(const id& sender);
    void deleteForward(const id& sender);
    /// What the keys ask for by the name of a selector: the delegate's first, then the view's own. False when neither
    /// knows it.
    bool doCommand(const id& selectorName);
    /// The delegate's part of that: it did what a command stands for.
    bool delegateDoes(const id& selectorName) const;
    virtual void keyDown(const id& event);
    virtual void keyUp(const id& event);

    /// Finds and replaces, by the sender's tag: 1 shows the find bar, 2 and 3 find the next and the previous match, 4
    /// replaces all, 5 the selected one, 6 that and finds the next, 7 takes the selection as what to find, 8 replaces
    /// all in the selection, 9 and 10 select all matches in the text and in the selection.
    virtual void performFindPanelAction(const id& sender);
    /// Whether a person can do now what a menu item stands for: undo needs something to undo, cut a selection.
    virtual bool validateMenuItem(const id& item);
    /// The same for a command by its name ("undo:"); true for one that the text knows nothing of.
    bool canDo(std::string_view command);
    /// The same by the number, with what to find. False when there was nothing to do; the desktop's alert says so.
    bool find(long action);
    velt::FindRequest& findRequest() const;
    /// Closes the find bar; another Escape goes to who is next.
    void cancelOperation(const id& sender);

    // Looks and behaviour.
    id font() const override;
    void setFont(const id& font) override;
    id textColor() const override { return textColor_; }
    void setTextColor(const id& color) override;
    void setRichText(bool flag) override;
    /// Changes of the text can be undone. After one that cannot, what was done before it cannot either.
    bool allowsUndo() const { return allowsUndo_; }
    void setAllowsUndo(bool flag) { allowsUndo_ = flag; }
    id layoutManager() const { return layoutManager_; }
    id textContainer() const { return container_; }

    // What the library's own classes use.
    void layoutChanged() { changed(); }
    void temporaryAttributesChanged();
    const velt::TemporaryLayer& temporaryLayer() const { return layoutManager_->temporaryLayer(); }
    NSRange charactersIn(NSRect rect) const;
    velt::TextWidget* existingTextWidget() const;
    const NSAttributedString& shown() const { return *storage(); }
    // For a subclass that changes many places before anybody looks: the selection goes ahead, as if the text had been
    // changed, and the text comes behind it as one.
    void moveSelectionAhead(NSRange range, std::size_t newLength);
    void selectAhead(std::vector<NSRange> ranges);
    void catchUp(NSRange range, const NSAttributedString& text);
    /// What was done to the text until now cannot be undone any more.
    void forgetUndo();
    // The widget's reports.
    void selectedByWidget(std::size_t anchor, std::size_t position);
    void keyboardComes();
    void keyboardGoes();
    /// A person begins something else: what follows is undone apart from what was before.
    void commandBegins();
    /// Replaces a range as a person does it, with the insertion point behind it when asked for, before anybody hears of
    /// the change. False when it was not allowed.
    bool change(NSRange range, const id& text, bool goesBehind = false);
    /// What is typed next is undone apart from what was typed before.
    void typingBegins() { last_ = {}; }

    void moveToWindow(NSWindow* window) override;
    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<NSTextView>& c);

protected:
    std::unique_ptr<QWidget> makeWidget() override;
    void syncWidget(QWidget& widget) override;
    /// The text or what shows it is about to be used.
    virtual void textNeeded() const {}
    /// How many times its size the text is shown.
    virtual double shownScale() const { return 1; }

private:
    friend class velt::ClassBuilder<NSTextView>;
    /// Changes that a person makes one after the other are undone at once.
    enum class Joins { No, Typing, Deleting };
    struct Undoable {
        std::uint64_t registration = 0;
        Joins kind = Joins::No;
        NSRange range;  // of what is there now
        id before;      // what was there, an attributed string
    };

    const velt::Ref<NSTextStorage>& storage() const { return textNeeded(), storage_; }
    void storageChanged(NSRange range, std::size_t newLength, bool textChanged) override;
    /// What the delegate gives to undo by; nil when it leaves that to the view.
    id delegatesUndoManager() const;
    void registerUndo(NSRange range, std::size_t newLength);
    bool joinUndo(NSRange range, std::size_t newLength, const id& before);
    void restore(const id& range, const id& text);
    void requireRange(const char* operation, NSRange range) const;
    void select(std::vector<NSRange> ranges, bool forward);
    void showSelection();
    bool replaceMatches(NSRange within);
    bool selectMatches(NSRange within);
    bool findNext(bool backward);
    void fillScrollView();

    velt::Ref<NSTextStorage> storage_;
    velt::Ref<NSLayoutManager> layoutManager_;
    velt::Ref<NSTextContainer> container_;
    velt::Ref<NSUndoManager> undoManager_;
    id font_, textColor_;
    std::vector<NSRange> ranges_{NSRange{}};
    bool forward_ = true;  // the insertion point is at the end of the selection
    bool allowsUndo_ = true, editing_ = false, begun_ = false;
    bool isSelectionAhead_ = false;  // of a change of the storage that is under way
    Joins joins_ = Joins::No;
    Undoable last_;
};
