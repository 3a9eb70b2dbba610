// The frames of containers as the desktop's style draws them.
#pragma once

#include "VELTRuntime/values/structures.h"

class NSView;
class QPainter;

namespace velt {

class GraphicsContext;

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

/// Draws a border within a rectangle in widget coordinates; nothing for type 0.
void drawFrame(GraphicsContext& context, NSView& view, unsigned long borderType, NSRect rect);

/// Draws a line through the middle of a rectangle in widget coordinates, upright when it is higher than wide.
void drawSeparator(GraphicsContext& context, NSView& view, NSRect rect);

}  // namespace velt
