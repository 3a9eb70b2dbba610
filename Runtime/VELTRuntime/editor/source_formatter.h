// Formatting while typing and of whole texts: the house style applied to the lines of a document.
#pragma once

#include "VELTRuntime/editor/edit_target.h"
#include "VELTRuntime/editor/line_formatter.h"

namespace velt {

/// What all editors of a process share.
struct VELT_EXPORT FormatterState {
    /// Made from the lists of the editor that formats first, and never again. Programs rely on it.
    std::optional<Recasing> words;
    /// A branch of the current select is open.
    bool isCaseOpen = false;

    static FormatterState& ofProcess();
};

/// What the formatter asks of the editor around it.
class VELT_EXPORT FormatterHost {
public:
    /// The view's lists.
    virtual WordLists wordLists() = 0;
    /// A line end was typed while the selection began there: stored positions from there on move by one.
    virtual void lineEndTyped(std::size_t selectionLocation) = 0;
    /// A change has been dealt with; the text at the position may have changed meanwhile.
    virtual void changeHandled(std::size_t position, std::u16string_view typed) = 0;

protected:
    ~FormatterHost() = default;
};

/// Formats the lines of one document.
class VELT_EXPORT SourceFormatter {
public:
    explicit SourceFormatter(EditTarget& target, FormatterHost& host,
                             FormatterState& shared = FormatterState::ofProcess())
        : target_(target), host_(host), shared_(shared) {}

    /// Nothing is formatted before this.
    void turnOn() { isOn_ = true; }
    bool isOn() const { return isOn_; }

    /// A text that was typed is in the document now and begins at a position. When it is one "\n" or "\r", the line
    /// that it ends is formatted, the new line indented, and the caret put behind its indentation.
    void textTyped(std::size_t position, std::u16string_view typed);

    /// One line of a pass over many: a line end that stands at a position, and the line's number in the pass. The line
    /// of number 0 begins at level 1.
    void passedLine(std::size_t position, std::u16string_view lineEnd, std::int64_t number);

    /// Formats the lines of the text, up to the last that ends with "\n", as one command. With a selection it begins
    /// with the selection's first line and at level 1; else it goes on at the level that the last pass left. Programs
    /// rely on it.
    void formatText();

    /// The level of indentation at which the next pass goes on, in units.
    int level() const { return level_; }
    void setLevel(int level) { level_ = level; }

private:
    void lineEndTyped(std::size_t position, bool isPass);
    std::size_t behindLineEnd(std::size_t from) const;
    std::size_t lineBegin(std::size_t position) const;
    const Recasing& words();

    EditTarget& target_;
    FormatterHost& host_;
    FormatterState& shared_;
    int level_ = 0;
    bool isOn_ = false;
};

}  // namespace velt
