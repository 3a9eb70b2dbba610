// Attributed strings drawn where a control, a cell or a label shows them.
#pragma once

#include <QColor>
#include <QFont>
#include <QSizeF>

class NSAttributedString;
class QPainter;
class QRectF;

namespace velt {

/// How a text is laid out where it is drawn.
struct RichTextStyle {
    QFont font;    // of the parts that name none
    QColor color;  // of the parts that name none
    Qt::LayoutDirection direction = Qt::LeftToRight;
    /// Across by the direction, unless it is absolute; down at the top unless it says otherwise.
    Qt::Alignment alignment = Qt::AlignLeading;
    bool wraps = false;
    /// Where a single line that is too long is shortened.
    Qt::TextElideMode elided = Qt::ElideNone;
    /// What cannot be worked loses its own colours.
    bool faded = false;
};

/// The size that a text takes when its lines are at most so wide; any width for 0.
QSizeF richTextSize(const NSAttributedString& text, const RichTextStyle& style, double width = 0);
/// Draws a text within a rectangle, and nothing beside it.
void drawRichText(QPainter& painter, const QRectF& rect, const NSAttributedString& text, const RichTextStyle& style);

}  // namespace velt
