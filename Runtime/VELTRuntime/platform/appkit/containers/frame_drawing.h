// The frames of containers as the desktop's style draws them.
#pragma once

#include "VELTRuntime/values/structures.h"

#include <QColor>
#include <QRectF>

class NSView;
class QPainter;
class QPalette;

namespace velt {

/// While it exists, a painter that draws in a view's coordinates draws in those of its widget, y pointing down from the
/// upper left corner: the style draws in these.
class WidgetCoordinates {
public:
    WidgetCoordinates(QPainter& painter, const NSView& view);
    ~WidgetCoordinates();
    WidgetCoordinates(const WidgetCoordinates&) = delete;
    WidgetCoordinates& operator=(const WidgetCoordinates&) = delete;

private:
    QPainter& painter_;
};

/// How wide a border of a type (0 none, 1 line, 2 bezel, 3 groove) is on each side.
double frameWidth(unsigned long borderType);

/// The colour of lines that part and frame: seen on light and on dark ground.
QColor lineColor(const QPalette& palette);

/// Draws a border within a rectangle; nothing for type 0. The painter draws in widget coordinates.
void drawFrame(QPainter& painter, NSView& view, unsigned long borderType, QRectF rect);

/// Draws the frame of a group, paler for one of less weight.
void drawGroupFrame(QPainter& painter, NSView& view, QRectF rect, bool pale);

/// Draws a line through the middle of a rectangle, upright when it is higher than wide.
void drawSeparator(QPainter& painter, NSView& view, QRectF rect);

}  // namespace velt
