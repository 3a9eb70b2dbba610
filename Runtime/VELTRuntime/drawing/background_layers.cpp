#include "VELTRuntime/drawing/background_layers.h"

#include "VELTRuntime/drawing/gradient_shading.h"

#include <QPaintEngine>
#include <QPainter>
#include <cmath>

namespace velt {

namespace {

void fill(QPainter& painter, const QPainterPath& path, const QBrush& brush, double alpha) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(painter.opacity() * alpha);
    painter.fillPath(path, brush);
    painter.restore();
}

/// A picture as a brush, its upper left corner at that of a rectangle as it is seen. The brush's y points up or down.
QBrush pictureBrush(const NSImage& image, const QRectF& place, bool upwards) {
    const QPointF corner = upwards ? place.bottomLeft() : place.topLeft();
    QImage picture = image.picture();
    const double ratio = picture.devicePixelRatio();
    picture.setDevicePixelRatio(1);
    QBrush brush(picture);
    brush.setTransform(QTransform::fromScale(1 / ratio, (upwards ? -1 : 1) / ratio) *
                       QTransform::fromTranslate(corner.x(), corner.y()));
    return brush;
}

/// Where a rectangle lies among the painter's dots, moved to whole ones; empty when they are turned or there are none.
QRect dotsOf(const QPainter& painter, const QRectF& place) {
    const QPaintEngine* engine = painter.paintEngine();
    const QTransform toDots = painter.deviceTransform();
    if (!engine || engine->type() != QPaintEngine::Raster || toDots.type() > QTransform::TxScale) return {};
    const QRectF mapped = toDots.mapRect(place);
    return {mapped.topLeft().toPoint(), mapped.size().toSize()};
}

/// How many dots a dot of the image takes.
double dotsEach(const NSImage& image, const QPainter& painter) {
    return std::sqrt(std::abs(painter.deviceTransform().determinant())) / image.picture().devicePixelRatio();
}

bool isThere(const Ref<NSImage>& image) { return image && image->isValid(); }

}  // namespace

bool BackgroundLayers::operator==(const BackgroundLayers& other) const {
    return color == other.color && pattern.get() == other.pattern.get() && image.get() == other.image.get() &&
           gradient.get() == other.gradient.get() && gradientAngle == other.gradientAngle && alpha == other.alpha &&
           imageAlpha == other.imageAlpha && size == other.size && path == other.path;
}

void drawThrough(QPainter& painter, const NSImage& image, double alpha, const QPainterPath& path, QSizeF size,
                 bool upwards) {
    const NSSize own = image.size();
    // One that is as large as the path lies at the origin wherever the path is; programs rely on it.
    const bool fits = path.boundingRect().size() == QSizeF(own.width, own.height);
    const QPointF corner = fits ? QPointF() : QPointF((size.width() - own.width) / 2, (size.height() - own.height) / 2);
    const QRectF place(corner, QSizeF(own.width, own.height));
    const QRect dots = dotsOf(painter, place);
    painter.save();
    QBrush brush = pictureBrush(image, place, upwards);
    if (dots.isEmpty()) {
        painter.setClipRect(place, Qt::IntersectClip);
    } else {
        // In dots of the screen's own size, so that its edges stay sharp: a brush goes on with the opposite edge.
        QImage picture = image.picture();
        if (picture.size() != dots.size()) {
            picture = picture.scaled(dots.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        }
        picture.setDevicePixelRatio(1);
        const QTransform toDots = painter.deviceTransform();
        brush = QBrush(picture);
        brush.setTransform(QTransform::fromTranslate(dots.x(), dots.y()) * toDots.inverted());
        painter.setClipRect(toDots.inverted().mapRect(QRectF(dots)), Qt::IntersectClip);
    }
    fill(painter, path, brush, alpha);
    painter.restore();
}

void drawLayers(QPainter& painter, const BackgroundLayers& layers) {
    const auto alpha = static_cast<double>(layers.alpha);
    const QRectF area(QPointF(), layers.size);
    // The opacity is the background's, whatever the colour's own; programs rely on it.
    if (layers.color.isValid()) {
        QColor color = layers.color;
        color.setAlphaF(layers.alpha);
        fill(painter, layers.path, color, 1);
    }
    // A pattern begins at the top.
    if (isThere(layers.pattern)) {
        // Its dots become squares where that is possible.
        const double each = dotsEach(*layers.pattern, painter);
        painter.setRenderHint(QPainter::SmoothPixmapTransform, each != std::round(each));
        fill(painter, layers.path, pictureBrush(*layers.pattern, area, true), alpha);
    }
    if (layers.gradient) {
        const NSRect rect{{0, 0}, {area.width(), area.height()}};
        const GradientAxis axis = axisAcross(rect, static_cast<double>(layers.gradientAngle));
        fill(painter, layers.path, axialBrush(layers.gradient->stops(), axis, painter, area), alpha);
    }
    if (isThere(layers.image)) {
        drawThrough(painter, *layers.image, static_cast<double>(layers.imageAlpha), layers.path, layers.size, true);
    }
}

namespace {

/// Every dot lets nothing through.
bool isOpaque(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        const auto* dots = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        QRgb all = 0xFF000000;
        for (int x = 0; x < image.width(); ++x) all &= dots[x];
        if (qAlpha(all) != 0xFF) return false;
    }
    return true;
}

}  // namespace

void BackgroundCache::draw(QPainter& painter, const BackgroundLayers& layers) {
    constexpr double kMostDots = 32e6;
    const QTransform toDots = painter.deviceTransform();
    const QRectF covered = toDots.mapRect(QRectF(QPointF(), layers.size).united(layers.path.boundingRect()));
    const QPaintEngine* engine = painter.paintEngine();
    const bool isKept = engine && engine->type() == QPaintEngine::Raster && toDots.type() <= QTransform::TxScale &&
                        covered.width() * covered.height() <= kMostDots;
    if (!isKept) {
        drawLayers(painter, layers);
        return;
    }
    const QRect place = covered.toAlignedRect();
    const QTransform own = toDots * QTransform::fromTranslate(-place.x(), -place.y());
    if (drawn_.size() != place.size() || own != toDots_ || !(layers == layers_)) {
        drawn_ = QImage(place.size(), QImage::Format_ARGB32_Premultiplied);
        if (drawn_.isNull()) return;
        drawn_.fill(Qt::transparent);
        QPainter inner(&drawn_);
        inner.setTransform(own);
        drawLayers(inner, layers);
        inner.end();
        // What lets nothing through is only copied when it is shown.
        if (isOpaque(drawn_)) drawn_.reinterpretAsFormat(QImage::Format_RGB32);
        layers_ = layers;
        toDots_ = own;
        ++drawnAnew_;
    }
    painter.save();
    painter.setWorldTransform(toDots.inverted() * painter.worldTransform());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(place.topLeft(), drawn_);
    painter.restore();
}

}  // namespace velt
