// The margin beside a source text: the numbers of the lines, their breakpoints and separators. It asks for the lines
// that are seen, and for no others.
#pragma once

#include "VELTRuntime/editor/view/source_view.h"

#include <QWidget>

namespace velt {

class TextWidget;

class SourceMargin final : public QWidget {
public:
    explicit SourceMargin(TextWidget& text);

    /// The margin of a text's widget; null without one.
    static SourceMargin* of(const TextWidget& text);
    /// Shows the breakpoints and separators of a view anew, if it has a margin.
    static void listsChanged(const VLTextView& view);
    /// Gives the text its room back, and ends when its own events are over.
    void leave();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    VLTextView* view() const;
    /// The lines that hold entries of a list, in order.
    static std::vector<std::size_t> linesOf(const VLTextView& view, const id& list);
    int markWidth() const;
    int wantedWidth() const;
    void takeRoom(int width);
    void place();
    void describe(const std::vector<std::size_t>& broken);
    void drawMark(QPainter& painter, const QRect& place) const;

    TextWidget& text_;
};

}  // namespace velt
