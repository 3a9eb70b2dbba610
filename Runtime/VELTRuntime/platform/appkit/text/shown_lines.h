// The lines of a text as they are drawn: broken into rows, with their looks and places. Only lines that were asked for
// are laid out, and those far from what is seen are forgotten again, so that a long text costs what a screen of it
// does.
//
// A line is one of the text's own; a row is what stands beside each other of it on the screen. Positions are the
// text's.
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/values/structures.h"
#include "VELTRuntime/values/text/line_index.h"

#include <QTextCursor>
#include <QTextLayout>
#include <map>
#include <memory>
#include <optional>
#include <tuple>

namespace velt {

/// What is laid out.
class LineSource {
public:
    virtual std::u16string_view shownText() const = 0;
    /// The looks of a range, counted from its begin; later ones win.
    virtual QList<QTextLayout::FormatRange> formatsOf(NSRange range) const = 0;

protected:
    ~LineSource() = default;
};

/// How a text is laid out where its own looks say nothing else.
struct LineStyle {
    QFont font;
    Qt::Alignment alignment = Qt::AlignLeading;
    Qt::LayoutDirection direction = Qt::LeftToRight;  // of lines without a direction of their own
    double tabDistance = 80;
    double width = 0;  // that a row may take; lines that do not break are aligned in it
    bool breaks = true;
    friend bool operator==(const LineStyle&, const LineStyle&) = default;
};

/// Text that an input method composes, shown at a position of the text without being part of it.
struct ComposedText {
    std::size_t position = 0;
    QString text;
    QList<QTextLayout::FormatRange> formats;  // counted from the composed text's begin
    int caret = 0;                            // within it
    bool hidesCaret = false;
};

class VELT_EXPORT ShownLines {
public:
    /// A laid out line.
    struct Line {
        QTextLayout layout;
        double height = 0, width = 0;
        std::size_t rows = 1;
        std::uint64_t looks = 0;  // as they were then
    };
    /// A row of a line.
    struct Row {
        std::size_t line = 0, row = 0;
        friend bool operator==(const Row&, const Row&) = default;
        friend bool operator<(const Row& a, const Row& b) { return std::tie(a.line, a.row) < std::tie(b.line, b.row); }
    };
    /// Which lines an edit has touched, as they are now, how many more there are, and how high these were; nothing
    /// where not all were laid out.
    struct Change {
        std::size_t first = 0, last = 0;
        std::ptrdiff_t added = 0;
        std::optional<double> heightBefore;
    };

    explicit ShownLines(const LineSource& source) : source_(source) {}

    /// The source's text; an empty one where the source has another than it last told of, as when it has none any more.
    std::u16string_view text() const;
    const LineIndex& index() const { return index_; }
    const LineStyle& style() const { return style_; }
    /// False when it is the same as before.
    bool setStyle(const LineStyle& style);
    const ComposedText& composed() const { return composed_; }
    void setComposed(ComposedText composed);

    /// Another text.
    void reset();
    /// A range of the text has become another one of that length; the source has it already.
    Change replace(NSRange range, std::size_t newLength);
    /// The looks of lines have changed as far as their size may be another one.
    void forget(std::size_t first, std::size_t last);
    void forgetAll();
    /// Keeps what is laid out within some lines and at the text's end, where much else is laid out.
    void trim(std::size_t first, std::size_t last);

    /// A line, laid out. Valid until something changes or is trimmed.
    Line& line(std::size_t number);
    /// The looks of lines may be others by now.
    void looksChanged() { ++looks_; }
    /// Gives a laid out line its looks anew where they are others by now; whether they were.
    bool refresh(std::size_t number);
    /// A line without its line end.
    NSRange content(std::size_t number) const;
    /// Where the line is drawn from, within what the rows may take.
    double leftOf(const Line& line) const;
    /// As wide as the widest line that was laid out, and as high as the highest row.
    double widest() const { return widest_; }
    double highestRow() const { return highestRow_; }

    // Rows. A line that was not laid out yet counts as one.
    std::size_t rowCount() const { return index_.count() + extraRows_; }
    std::size_t rowsBefore(const Row& row) const;
    Row rowAt(std::size_t number) const;
    Row rowOf(std::size_t position);
    QTextLine lineOf(const Row& row) { return line(row.line).layout.lineAt(static_cast<int>(row.row)); }

    // Places within a row, from where rows begin.
    double xOf(std::size_t position);
    std::size_t positionAt(const Row& row, double x);
    /// The insertion point's place in its line's layout, which may hold composed text.
    int placeInLayout(std::size_t position) const;
    /// Where a movement leads from a position, for a caret that keeps to a place across.
    std::size_t moved(std::size_t position, QTextCursor::MoveOperation operation, double across);

private:
    bool isComposing(std::size_t number) const;
    /// How high lines are; nothing where not all are laid out.
    std::optional<double> heightOf(std::size_t first, std::size_t last) const;
    std::size_t positionInText(std::size_t number, int place) const;
    QList<QTextLayout::FormatRange> formatsOfLine(std::size_t number) const;
    void layOut(std::size_t number, Line& line);
    void setRows(std::size_t number, std::size_t rows);
    Qt::Alignment alignmentOf(const Line& line) const;
    bool isRightToLeft(const Line& line) const;
    std::size_t movedByStep(std::size_t position, bool forward, QTextLayout::CursorMode mode);
    std::size_t movedByRow(std::size_t position, bool down, double across);

    const LineSource& source_;
    LineIndex index_;
    LineStyle style_;
    ComposedText composed_;
    std::map<std::size_t, std::unique_ptr<Line>> lines_;
    std::map<std::size_t, std::size_t> broken_;  // how many rows beyond one the lines have that have several
    std::size_t extraRows_ = 0;                  // all of these
    double widest_ = 0, highestRow_ = 0;
    std::uint64_t looks_ = 0;
};

}  // namespace velt
