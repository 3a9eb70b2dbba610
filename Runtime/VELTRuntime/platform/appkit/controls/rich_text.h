// Attributed strings drawn in a small place, such as a button's title.
#pragma once

#include <QFont>
#include <QSize>
#include <Qt>

class NSAttributedString;
class QPainter;
class QRect;

namespace velt {

/// The size of all lines; the font is that of the parts that name none.
QSize richTextSize(const NSAttributedString& text, const QFont& font);

/// Draws the lines in the middle of a rectangle, with the painter's pen where the text names no colour. A faded text
/// loses its own colours.
void drawRichText(QPainter& painter, const QRect& rect, const NSAttributedString& text, const QFont& font,
                  Qt::LayoutDirection direction, Qt::Alignment alignment, bool enabled);

}  // namespace velt
