// The layers of a decorated background: a colour, a pattern, a gradient and an image, one over the other within a path.
#pragma once

#include "VELTRuntime/drawing/gradient.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/object/object.h"

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QTransform>

class QPainter;

namespace velt {

/// What a background shows; a layer that is not there is null or no colour.
struct BackgroundLayers {
    QColor color;
    Ref<NSImage> pattern, image;
    Ref<PXGradient> gradient;
    float gradientAngle = 0, alpha = 1, imageAlpha = 1;
    /// In coordinates whose y points up, from the lower left corner of the background.
    QPainterPath path;
    QSizeF size;
    bool operator==(const BackgroundLayers& other) const;
};

/// Draws all layers. The painter's coordinates are those of the path.
void drawLayers(QPainter& painter, const BackgroundLayers& layers);
/// Draws an image through a path, in the middle of what has that size; at its origin when the image is as large as the
/// path. It is upright where the painter's y points up and where it points down.
void drawThrough(QPainter& painter, const NSImage& image, double alpha, const QPainterPath& path, QSizeF size,
                 bool upwards);

/// A background as it was drawn the last time.
class BackgroundCache {
public:
    /// Draws the layers, or what they looked like when nothing has changed. On paper, turned, or too large for it they
    /// are drawn anew.
    void draw(QPainter& painter, const BackgroundLayers& layers);
    void clear() { drawn_ = QImage(); }
    /// How often the layers were drawn anew; for tests.
    int drawnAnew() const { return drawnAnew_; }

private:
    BackgroundLayers layers_;
    QTransform toDots_;  // of the painter, but for whole dots
    QImage drawn_;
    int drawnAnew_ = 0;
};

}  // namespace velt
