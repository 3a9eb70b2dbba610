#include "VELTRuntime/drawing/gradient_shading.h"

#include "VELTRuntime/platform/appkit/qt_values.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace velt {

namespace {

QRgb dotOf(const GradientColor& color) {
    // Never below zero, and asked for every dot.
    // NOLINTNEXTLINE(bugprone-incorrect-roundings)
    const auto byte = [](double part) { return static_cast<int>(part * 255 + 0.5); };
    const double alpha = color.alpha;
    return qRgba(byte(color.red * alpha), byte(color.green * alpha), byte(color.blue * alpha), byte(alpha));
}

// The toolkit's gradients.

/// The toolkit's table of colours is as fine as the gradient: no colour changes by more than a screen's step between
/// two of its entries.
bool isServedByToolkit(const GradientStops& stops) {
    if (stops.isChromatic()) return false;
    constexpr double kEntries = 1024, kSteps = 255;
    const std::vector<ColorStop>& list = stops.stops();
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (list[i].position < 0 || list[i].position > 1) return false;
        if (i == 0) continue;
        const GradientColor &a = list[i - 1].color, &b = list[i].color;
        const double change = std::max({std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue),
                                        std::abs(a.alpha - b.alpha)});
        if (change * kSteps > (list[i].position - list[i - 1].position) * kEntries) return false;
    }
    return true;
}

QColor qtColor(const GradientColor& color) {
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

/// The toolkit's stops, each behind the last one: it would put one in the place of another at the same position.
class ToolkitStops {
public:
    /// Positions are moved to where they are on the way from the centre of a radial gradient: 0 to the first, 1 to 1.
    explicit ToolkitStops(double first) : first_(first) {}
    void add(double position, const GradientColor& color) {
        double moved = first_ + position * (1 - first_);
        if (!list_.empty()) moved = std::max(moved, std::nextafter(list_.constLast().first, 2));
        if (moved >= 0 && moved <= 1) list_.append({moved, qtColor(color)});
    }
    const QGradientStops& list() const { return list_; }

private:
    double first_;
    QGradientStops list_;
};

/// Stops between which mixing red, green and blue gives the gradient's own colours.
QGradientStops toolkitStops(const GradientStops& stops, double first) {
    ToolkitStops result(first);
    const std::vector<ColorStop>& list = stops.stops();
    if (list.empty() || list.front().position > 0) result.add(0, stops.colorAt(0));
    for (std::size_t i = 0; i < list.size(); ++i) {
        const double begin = list[i].position, span = i + 1 < list.size() ? list[i + 1].position - begin : 0;
        if (!stops.isChromatic()) result.add(begin, list[i].color);
        if (!stops.isChromatic() || span <= 0) continue;
        constexpr int kParts = 240;
        // The colour on this side of the stop: another one may be on its other side.
        result.add(begin, stops.colorAt(std::nextafter(begin, 2)));
        for (int part = 1; part <= kParts; ++part) {
            const double position = begin + span * part / kParts;
            result.add(position, stops.colorAt(part == kParts ? list[i + 1].position : position));
        }
    }
    result.add(1, stops.colorAt(1));
    return result.list();
}

QBrush toolkitBrush(QGradient& gradient, const GradientStops& stops, double first) {
    gradient.setInterpolationMode(QGradient::ComponentInterpolation);
    gradient.setStops(toolkitStops(stops, first));
    return gradient;
}

// Dots of our own.

bool hasDots(const QPainter& painter) {
    const QPaintEngine* engine = painter.paintEngine();
    return engine && engine->type() == QPaintEngine::Raster && painter.deviceTransform().isAffine();
}

/// The dots of an area that can be seen.
QRect dotsOf(const QPainter& painter, const QRectF& area) {
    QRectF seen = painter.deviceTransform().mapRect(area);
    if (painter.hasClipping()) seen &= painter.deviceTransform().mapRect(painter.clipBoundingRect());
    const QPaintDevice* device = painter.device();
    const double ratio = device->devicePixelRatio();
    // A widget is drawn with the dots of its window, wherever it lies in it; it is the only one not measured in dots.
    const QPointF shift = painter.deviceTransform().map(QPointF()) - painter.combinedTransform().map(QPointF());
    const double unit = device->devType() == QInternal::Widget ? ratio : 1;
    seen &= QRectF(shift, QSizeF(device->width(), device->height()) * unit);
    return seen.isEmpty() ? QRect() : seen.toAlignedRect().adjusted(-1, -1, 1, 1);
}

/// The brush that puts dots to their places.
QBrush placed(const QImage& dots, QPoint origin, const QPainter& painter) {
    QBrush brush(dots);
    brush.setTransform(QTransform::fromTranslate(origin.x(), origin.y()) * painter.deviceTransform().inverted());
    return brush;
}

/// Colours of positions from 0 to 1, so many that no dot is off by more than an eighth of one.
class ColorTable {
public:
    ColorTable(const GradientStops& stops, double dots)
        : last_(static_cast<float>(std::clamp(dots * 4, 1024.0, 65536.0))) {
        const auto count = static_cast<std::size_t>(last_) + 1;
        colors_.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            colors_.push_back(dotOf(stops.colorAt(static_cast<double>(i) / static_cast<double>(count - 1))));
        }
    }
    QRgb at(float position) const {
        const float place = std::max(0.0F, std::min(position, 1.0F));
        return colors_[static_cast<std::size_t>(place * last_ + 0.5F)];  // NOLINT(bugprone-incorrect-roundings)
    }

private:
    float last_;
    std::vector<QRgb> colors_;
};

/// The colours of dots along a line on which positions grow evenly, each exact.
void shadeExactly(const GradientStops& stops, double position, double step, QRgb* dots, int count) {
    for (int i = 0; i < count; ++i) dots[i] = dotOf(stops.colorAt(std::clamp(position + step * i, 0.0, 1.0)));
}

QImage blank(int width, int height, const GradientStops& stops) {
    return QImage(width, height, stops.isOpaque() ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
}

QRgb* row(QImage& image, int y) { return reinterpret_cast<QRgb*>(image.scanLine(y)); }

/// How the position along an axis changes from dot to dot: position = origin + right x + down y.
struct Slope {
    double origin = 0, right = 0, down = 0;
};

Slope slopeOf(const GradientAxis& axis, const QTransform& toDots) {
    // The axis's own coordinates of the dots; where it has no length, everything is at its end.
    const QPointF from = qtPoint(axis.from), way = qtPoint(axis.to) - from;
    const double square = QPointF::dotProduct(way, way);
    if (square == 0) return {1, 0, 0};
    const QTransform fromDots = toDots.inverted();
    const auto positionOf = [&](double x, double y) {
        return QPointF::dotProduct(fromDots.map(QPointF(x, y)) - from, way) / square;
    };
    const double origin = positionOf(0, 0);
    return {origin, positionOf(1, 0) - origin, positionOf(0, 1) - origin};
}

/// A slope that changes nothing by more than a fraction of a dot's own step across the whole of the screen.
bool isFlat(double slope, double other) { return std::abs(slope) * 1e6 < std::abs(other); }

}  // namespace

QBrush axialBrush(const GradientStops& stops, const GradientAxis& axis, const QPainter& painter, const QRectF& area) {
    const bool dotted = hasDots(painter);
    const auto [origin, right, down] = dotted ? slopeOf(axis, painter.deviceTransform()) : Slope{};
    const bool rows = dotted && isFlat(down, right), columns = dotted && isFlat(right, down);
    if (!rows && !columns && (!dotted || isServedByToolkit(stops))) {
        QLinearGradient gradient(qtPoint(axis.from), qtPoint(axis.to));
        return toolkitBrush(gradient, stops, 0);
    }
    const QRect dots = dotsOf(painter, area);
    if (dots.isEmpty()) return {};
    const double begin = origin + right * (dots.x() + 0.5) + down * (dots.y() + 0.5);
    // Along the dots' own rows or columns one line serves for all, more exactly than any table and in less time.
    if (rows) {
        QImage line = blank(dots.width(), 1, stops);
        shadeExactly(stops, begin, right, row(line, 0), dots.width());
        return placed(line, dots.topLeft(), painter);
    }
    if (columns) {
        constexpr int kRun = 64;  // laid side by side in runs that are worth it
        QImage lines = blank(kRun, dots.height(), stops);
        std::vector<QRgb> colors(static_cast<std::size_t>(dots.height()));
        shadeExactly(stops, begin, down, colors.data(), dots.height());
        for (int y = 0; y < dots.height(); ++y) std::fill_n(row(lines, y), kRun, colors[static_cast<std::size_t>(y)]);
        return placed(lines, dots.topLeft(), painter);
    }
    const ColorTable table(stops, 1 / std::hypot(right, down));
    QImage image = blank(dots.width(), dots.height(), stops);
    for (int y = 0; y < dots.height(); ++y) {
        QRgb* colors = row(image, y);
        const auto first = static_cast<float>(begin + down * y), step = static_cast<float>(right);
        for (int x = 0; x < dots.width(); ++x) colors[x] = table.at(first + step * static_cast<float>(x));
    }
    return placed(image, dots.topLeft(), painter);
}

QBrush radialBrush(const GradientStops& stops, const GradientCircles& circles, const QPainter& painter,
                   const QRectF& area) {
    // The toolkit's circles begin at the centre, and grow.
    const bool grows = circles.outer > circles.inner;
    if (grows && (!hasDots(painter) || isServedByToolkit(stops))) {
        QRadialGradient gradient(qtPoint(circles.center), circles.outer);
        return toolkitBrush(gradient, stops, circles.inner / circles.outer);
    }
    if (!hasDots(painter)) return qtColor(stops.colorAt(circles.inner > circles.outer ? 0 : 1));
    const QRect dots = dotsOf(painter, area);
    if (dots.isEmpty()) return {};
    const QTransform fromDots = painter.deviceTransform().inverted();
    const double scale = std::sqrt(std::abs(painter.deviceTransform().determinant()));
    const ColorTable table(stops, std::abs(circles.outer - circles.inner) * scale);
    const auto inner = static_cast<float>(circles.inner), span = static_cast<float>(circles.outer - circles.inner);
    const float share = span == 0 ? 1e9F : 1 / span;
    QImage image = blank(dots.width(), dots.height(), stops);
    for (int y = 0; y < dots.height(); ++y) {
        QRgb* colors = row(image, y);
        const QPointF begin = fromDots.map(QPointF(dots.x() + 0.5, dots.y() + y + 0.5)) - qtPoint(circles.center);
        const auto x0 = static_cast<float>(begin.x()), y0 = static_cast<float>(begin.y());
        const auto dx = static_cast<float>(fromDots.m11()), dy = static_cast<float>(fromDots.m12());
        for (int x = 0; x < dots.width(); ++x) {
            const float right = x0 + dx * static_cast<float>(x), up = y0 + dy * static_cast<float>(x);
            colors[x] = table.at((std::sqrt(right * right + up * up) - inner) * share);
        }
    }
    return placed(image, dots.topLeft(), painter);
}

}  // namespace velt
