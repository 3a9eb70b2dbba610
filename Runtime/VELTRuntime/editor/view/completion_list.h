// The list of a completion, its window, and who makes them work: what programs see of an open completion.
#pragma once

#include "VELTRuntime/editor/completion_popup.h"
#include "VELTRuntime/platform/appkit/tables/table_view.h"
#include "VELTRuntime/platform/appkit/window_controller.h"

class QEventLoop;
class VLTextView;

/// A borderless window, yet one that may have the keyboard. While it is open the editor keeps the keyboard and hands
/// the keys on, so that nothing depends on how the desktop gives the keyboard to such windows.
class VELT_EXPORT FloatingKeyWindow final : public NSWindow {
    VELT_OBJECT(FloatingKeyWindow, NSWindow)
public:
    FloatingKeyWindow() : NSWindow(NSRect{}, 0) {}
    bool canBecomeKeyWindow() const { return true; }
    static void describe(velt::ClassBuilder<FloatingKeyWindow>& c);
};

/// The window of the completion that is open now; nil without one.
VELT_EXPORT extern id myFloatingKeyWindow;

class Autocompletion;

/// The names of a completion. Its keys and clicks go to the completion.
class VELT_EXPORT AutoCompleteList final : public NSTableView {
    VELT_OBJECT(AutoCompleteList, NSTableView)
public:
    bool as = false, dot = false, bracket = false;
    id typed;

    void keyDown(const id& event);
    void visitOwned(velt::OwnedVisitor& visitor) override;
    static void describe(velt::ClassBuilder<AutoCompleteList>& c);
};

/// A completion that is being shown, or a program's own. Its window is there while the list is open.
class VELT_EXPORT Autocompletion final : public NSWindowController {
    VELT_OBJECT(Autocompletion, NSWindowController)
public:
    Autocompletion();
    /// Shows a popup of the editor's.
    Autocompletion(VLTextView& view, velt::CompletionPopup& popup);
    ~Autocompletion() override;

    /// Candidates, the view, the range that is typed of them, and whether types, members or arguments are completed.
    id initWithCompletions(const id& candidates, const id& view, NSRange typed, bool as, bool dot, bool bracket);
    /// Shows the list below a point of the screen until it ends; returns its code.
    long popupAssistantAt(NSPoint point, const id& view);

    /// Cancels an open list; it is not only out of sight.
    void close();

    void myInsert(const id& sender, const id& terminator);
    void insertText(const id& text);
    void deleteBackward(const id& sender);
    void insertNewline(const id& sender);
    void cancelOperation(const id& sender);
    void showContextHelp(const id& sender);
    void updateTypeSelection();
    void updateBracket();
    long numberOfRows(const id& table) const;
    id objectValue(const id& table, const id& column, long row) const;

    // What the list and the loop report.
    void keyDown(const id& event);
    void selectionChanged(const id& notification);
    void doubleClicked(const id& sender);
    void popupChanged();
    void popupEnded();
    VLTextView* view() const;
    const id& list() const { return list_; }

    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<Autocompletion>& c);

private:
    struct OwnWindow;
    void makeList();
    void type(std::u16string_view keys);
    NSRect frameFor(long rows) const;
    void place(NSPoint point);
    void fit();

    id view_, list_;
    NSPoint foot_;  // of the insertion point, on the screen
    bool isAbove_ = false;
    velt::CompletionPopup* popup_ = nullptr;
    std::unique_ptr<OwnWindow> ownWindow_;
    std::unique_ptr<velt::CompletionPopup> ownPopup_;
    QEventLoop* loop_ = nullptr;
    bool syncing_ = false;
};
