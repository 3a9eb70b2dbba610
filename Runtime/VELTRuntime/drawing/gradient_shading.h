// Gradients as what the toolkit fills with.
//
// The toolkit's own gradients mix red, green and blue, by a table of 1024 colours. Where that gives the same picture it
// is left to them. Where it does not (hues are mixed, colours change faster than the table's steps) the dots to be
// filled are reckoned here, each from its own place. On paper, where there are no dots yet, hues become many stops.
#pragma once

#include "VELTRuntime/drawing/gradient_axis.h"
#include "VELTRuntime/drawing/gradient_stops.h"

#include <QBrush>
#include <QRectF>

class QPainter;

namespace velt {

/// What fills an area, in the painter's present coordinates, with a gradient along an axis. It is good for that
/// painter, until its coordinates change, and for what of the area can be seen through its clipping.
QBrush axialBrush(const GradientStops& stops, const GradientAxis& axis, const QPainter& painter, const QRectF& area);
/// The same with a gradient from one circle to another, which goes on within and outside of them.
QBrush radialBrush(const GradientStops& stops, const GradientCircles& circles, const QPainter& painter,
                   const QRectF& area);

}  // namespace velt
