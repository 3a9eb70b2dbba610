// The source editor: a text view that keeps breakpoints and line separators, colours its text, formats it while it is
// typed and works on whole lines. The editor's logic knows only an edit target; this view is one.
#pragma once

#include "VELTRuntime/editor/search_commands.h"
#include "VELTRuntime/editor/vocabulary.h"
#include "VELTRuntime/platform/appkit/text/text_view.h"

namespace velt {
class SourceLayer;
}

class VELT_EXPORT VLTextView : public NSTextView {
    VELT_OBJECT(VLTextView, NSTextView)
public:
    VLTextView() : VLTextView(NSRect{}) {}
    explicit VLTextView(NSRect frame);
    ~VLTextView() override;

    // Files.
    /// Shows the text of a file (a path), a byte order mark and its line ends included. Raises "VLException" with
    /// "TextView.Load failed" when it cannot be read or is not UTF-8, and changes nothing then.
    bool load(const id& path);
    /// Writes the text to a file as UTF-8, as a whole or not at all. Whether it could.
    bool save(const id& path) const;

    // What the environment says of the source. A setter keeps the object that it is given.
    id filename() const { return filename_; }
    void setFilename(const id& path) { filename_ = path; }
    id lineSeparators() const { return lineSeparators_; }
    void setLineSeparators(const id& positions);
    id breakpoints() const { return breakpoints_; }
    void setBreakpoints(const id& positions);
    id keywordList() const { return keywords_; }
    void setKeywordList(const id& words) { keywords_ = words; }
    id builtinList() const { return builtins_; }
    void setBuiltinList(const id& words) { builtins_ = words; }
    id typeList() const { return types_; }
    void setTypeList(const id& words) { types_ = words; }
    bool findOptionIgnoreCase() const { return find_.ignoresCase; }
    void setFindOptionIgnoreCase(bool flag) { find_.ignoresCase = flag; }
    bool findOptionSelectedTextOnly() const { return find_.selectedTextOnly; }
    void setFindOptionSelectedTextOnly(bool flag) { find_.selectedTextOnly = flag; }
    bool findOptionWholeWordsOnly() const { return find_.wholeWordsOnly; }
    void setFindOptionWholeWordsOnly(bool flag) { find_.wholeWordsOnly = flag; }
    // Kept for programs; the view itself sends no action.
    id action() const { return action_; }
    void setAction(const id& name) { action_ = name; }
    id target() const { return target_; }
    void setTarget(const id& target) { target_ = target; }

    // Places.
    /// The number of the line in which the selection begins, from 1 on; 0 for an empty text.
    long line() const;
    /// Where the selection begins; 0 for an empty text.
    long position() const;
    /// Selects a line, counted from 1, and shows it; a beep when there is none.
    void goToLine(long line);
    /// Removes the breakpoint of the selection's line or adds one, and colours the text anew.
    void toggleBreakpoint();

    /// The same for a line, counted from 1, as a person sees it: whatever breakpoints it shows are removed, or else one
    /// is added. The selection stays. Nothing happens for a line that there is not.
    void toggleBreakpointAtLine(long line);

    // How it is shown.
    /// A margin beside the text with the numbers of the lines, the breakpoints and the line separators; a click there
    /// toggles the line's breakpoint by the message "toggleBreakpointAtLine:". Off in a new view.
    bool showsLineNumbers() const { return showsLineNumbers_; }
    void setShowsLineNumbers(bool flag);
    /// How large the text is shown: 1 is its own size, from 0.2 to 5. The text's fonts stay as they are.
    double zoomFactor() const { return zoomFactor_; }
    void setZoomFactor(double factor);
    /// A tenth more or less; the text's own size.
    void zoomIn(const id& sender);
    void zoomOut(const id& sender);
    void resetZoom(const id& sender);

    /// Colours the text of an editor view, all of it or the lines that are seen.
    void performSyntaxHighlighting(const id& view, bool whole);
    void highlight(bool whole);

    /// Formatting begins; it is never turned off.
    void turnOnAutoIndent();
    bool formatsWhileTyping() const;
    /// A text has been typed: an array of its place, the text, and in a pass over many lines the line's number in it,
    /// from 0 on. A line end formats the line before it.
    void shouldChangeText(const id& change);
    using NSTextView::shouldChangeText;
    /// The level of indentation from which a pass over the text goes on.
    long indentationLevel() const;
    /// Formats the selected lines, or all.
    void autoFormat();
    void turnOffWrapping();

    // Commands, each undone in one step.
    void shiftRight();
    void shiftLeft();
    void comment();
    void uncomment();
    void lowercase();
    void uppercase();
    /// The text of the first selection.
    id selectedText() const;
    /// 1 or 0 as a Boolean; the number 0 when the text or the needle is empty.
    id findNext(const id& needle);
    id findPrevious(const id& needle);
    id replaceAndFind(const id& needle, const id& with);
    bool replaceSelection(const id& with);
    /// The number of replacements.
    long replaceAll(const id& needle, const id& with);

    // Completion.
    /// Opens what was asked for when typing has rested for a while; asking again begins the while anew.
    void startCompletionTimer();
    void stopCompletionTimer();
    /// The timer's action: asks the environment and shows what it offers, until that ends.
    void doCompletion(const id& timer);
    /// Works out the expression that ends at a place of a text.
    void getCompletion(long end, const id& text);
    void popupCompletionAtInsertion(const id& candidates, NSRange typed);
    void setCompletionType(bool as, bool members, bool arguments);
    /// Where the insertion point's foot is on the screen.
    NSPoint insertionPointGlobalCoordinate() const;
    id completionTimer() const { return completionTimer_; }
    id completedExpression() const;
    long completionsRunning() const;
    bool completesTypes() const;
    bool completesMembers() const;
    bool completesArguments() const;
    unsigned long lastInsertion() const;
    unsigned long nextInsertion() const;
    unsigned long beforeNextInsertion() const;
    /// The completions that are open, the lowest first, in a new array.
    id runningCompletions() const;

    // Printing.
    /// Prints the text with a header on each page that names the project and the file, after asking the person when
    /// wanted.
    void print(const id& projectName, const id& projectFile, bool showsPanel);
    /// Draws the header of the page that is being printed, whose size is in points.
    void drawPageBorder(NSSize page);
    /// The settings of the last printing; nil before the first.
    id printInfo() const { return printInfo_; }

    // What the view adds to a text view's own ways.
    void insertTab(const id& sender) override;
    void insertNewline(const id& sender) override;
    void keyDown(const id& event) override;
    void keyUp(const id& event) override;
    /// As a view whose lines do not break has it: none. A scroll view's room is filled nevertheless, since the text
    /// scrolls within the view.
    unsigned long shownAutoresizingMask() const { return wraps_ ? autoresizingMask() : 0; }

    // What the editor's parts use.
    const velt::SourceBuffer& buffer() const;
    velt::WordLists wordLists() const { return {keywords_, builtins_, types_}; }
    /// Moves breakpoints and line separators from a position on.
    void moveEntriesFrom(std::size_t position, int by);

    id undoManager() override;
    void visitOwned(velt::OwnedVisitor& visitor) override;
    void dissolve() override;
    static void describe(velt::ClassBuilder<VLTextView>& c);

protected:
    void syncWidget(QWidget& widget) override;
    void textNeeded() const override;
    double shownScale() const override { return zoomFactor_; }

private:
    struct Parts;
    static void describeCompletion(velt::ClassBuilder<VLTextView>& c);
    static void describeMargin(velt::ClassBuilder<VLTextView>& c);
    static void describePrinting(velt::ClassBuilder<VLTextView>& c);
    /// All fields as in a new view.
    void resetFields();
    id initialized();
    template <class Command> auto look(Command&& command);
    template <class Command> auto run(Command&& command);

    velt::SourceLayer* layer_;      // the layout manager's
    std::shared_ptr<Parts> parts_;  // who works with them shares them, should the view be set up anew meanwhile
    id lineSeparators_, breakpoints_, keywords_, builtins_, types_, filename_, action_, target_, completionTimer_;
    id printInfo_, projectName_, projectFile_;
    velt::FindOptions find_;
    double zoomFactor_ = 1;
    bool wraps_ = true, showsLineNumbers_ = false;
};
