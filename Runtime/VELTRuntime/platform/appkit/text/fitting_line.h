// One line of plain text in a place that may be too narrow for it.
#pragma once

#include <QString>

class QFont;
class QPainter;
class QRect;

namespace velt {

/// Sizes of controls are whole, those of texts are not: what is wider by a part of a dot is not too long.
inline constexpr double kWidthTolerance = 0.99;

/// The line, or what of it has room with a sign for the rest. A place of exactly the text's size has room for all of
/// it.
QString fittingLine(const QString& line, const QFont& font, Qt::TextElideMode elided, double width);

/// Draws a line in the middle of a rectangle's height with the painter's font and pen. A line that is too long is
/// shortened; with nothing to shorten it by, its beginning is seen, whatever its alignment.
void drawLine(QPainter& painter, const QRect& rect, const QString& line, Qt::Alignment alignment,
              Qt::TextElideMode elided);

}  // namespace velt
