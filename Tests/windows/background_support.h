// Views with a decorated background, and a slow drawing of their layers, dot by dot.
#pragma once

#include "VELTRuntime/drawing/background_layers.h"
#include "windows/gradient_support.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

namespace velt::test {

constexpr int kWidth = 60, kHeight = 44;

inline id message(const id& view, const char* selector, const id& a) { return velt::send(view, selector, a); }

inline Ref<VLBackgroundView> backgroundView() {
    Ref<VLBackgroundView> view = velt::make<VLBackgroundView>();
    view->setFrame({{0, 0}, {kWidth, kHeight}});
    return view;
}

inline QImage drawn(NSView& view, double ratio = 1) {
    const NSSize size = view.frame().size;
    QImage image(static_cast<int>(size.width * ratio), static_cast<int>(size.height * ratio),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    view.widget().resize(static_cast<int>(size.width), static_cast<int>(size.height));
    view.widget().render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

/// A picture of 8 by 6 with a colour of its own in every dot, of which so many make a unit.
inline id picture(int width = 8, int height = 6, int alpha = 255, int ratio = 1) {
    width *= ratio;
    height *= ratio;
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixelColor(x, y, QColor(255 * x / width, 255 * y / height, (x * 7 + y * 13) % 256, alpha));
        }
    }
    return velt::make<NSImage>(image);
}

// The second, slow drawing. All in doubles, one dot after the other.

struct SlowView {
    double radius = 0, alpha = 1, imageAlpha = 1, angle = 90;
    std::vector<SlowStop> gradient;
    id color, pattern, image;
    int mode = 0;

    bool isInside(double x, double y) const {
        const double cx = std::clamp(x, radius, kWidth - radius), cy = std::clamp(y, radius, kHeight - radius);
        return x >= 0 && y >= 0 && x <= kWidth && y <= kHeight && std::hypot(x - cx, y - cy) <= radius + 1e-12;
    }
    /// In the square around one of the round corners.
    bool isInCorner(double x, double y) const {
        return std::min(x, kWidth - x) < radius && std::min(y, kHeight - y) < radius;
    }
    double coverage(int x, int y, double ratio) const {
        if (!isInCorner((x + 0.5) / ratio, (y + 0.5) / ratio)) return 1;
        constexpr int kParts = 16;
        int hits = 0;
        for (int i = 0; i < kParts * kParts; ++i) {
            hits += isInside((x + (i % kParts + 0.5) / kParts) / ratio, (y + (i / kParts + 0.5) / kParts) / ratio);
        }
        return hits / double{kParts * kParts};
    }
    /// At most one dot from the arc of a corner.
    bool isNearArc(int x, int y, double ratio) const {
        const double px = (x + 0.5) / ratio, py = (y + 0.5) / ratio;
        const double cx = std::clamp(px, radius, kWidth - radius), cy = std::clamp(py, radius, kHeight - radius);
        return std::abs(std::hypot(px - cx, py - cy) - radius) * ratio <= 1;
    }
    static void over(double* ground, const double* part, double alpha) {
        for (int k = 0; k < 3; ++k) ground[k] += (part[k] - ground[k]) * alpha;
    }
    static void overDot(double* ground, const QImage& image, double x, double y, double alpha) {
        const double each = image.devicePixelRatio();
        const int left = static_cast<int>(std::floor(x * each)), top = static_cast<int>(std::floor(y * each));
        if (left < 0 || top < 0 || left >= image.width() || top >= image.height()) return;
        const QColor dot = image.pixelColor(left, top);
        const double part[] = {dot.redF(), dot.greenF(), dot.blueF()};
        over(ground, part, alpha * dot.alphaF());
    }
    /// What the dot is on a white ground.
    QColor at(int dotX, int dotY, double ratio) const {
        double ground[3] = {1, 1, 1};
        const double covered = coverage(dotX, dotY, ratio), x = (dotX + 0.5) / ratio, y = (dotY + 0.5) / ratio;
        if (!color.isNil()) {
            const auto parts = velt::as<NSColor>(color)->components();
            const double part[] = {parts.red, parts.green, parts.blue};
            over(ground, part, covered * alpha);
        }
        if (!pattern.isNil()) {
            const QImage& tile = velt::as<NSImage>(pattern)->picture();
            overDot(ground, tile, std::fmod(x, tile.width()), std::fmod(y, tile.height()), covered * alpha);
        }
        if (!gradient.empty()) {
            const double a = angle * std::acos(-1) / 180;
            const double length = kWidth * std::abs(std::cos(a)) + kHeight * std::abs(std::sin(a));
            const double position =
                ((x - kWidth / 2.0) * std::cos(a) - (y - kHeight / 2.0) * std::sin(a)) / length + 0.5;
            const SlowColor slow = slowColorAt(gradient, mode, std::clamp(position, 0.0, 1.0));
            over(ground, slow.part, covered * alpha * slow.part[3]);
        }
        if (!image.isNil()) {
            const QImage& shown = velt::as<NSImage>(image)->picture();
            const QSizeF own = shown.deviceIndependentSize();
            overDot(ground, shown, x - (kWidth - own.width()) / 2, y - (kHeight - own.height()) / 2,
                    covered * imageAlpha);
        }
        return QColor::fromRgbF(static_cast<float>(ground[0]), static_cast<float>(ground[1]),
                                static_cast<float>(ground[2]));
    }
    Ref<VLBackgroundView> made() const {
        Ref<VLBackgroundView> view = backgroundView();
        message(view, "setBackgroundColor:", color);
        message(view, "setBackgroundPattern:", pattern);
        if (!gradient.empty()) {
            velt::send(view, "setBackgroundGradient:withAngle:", gradientOf(gradient, mode), real(angle));
        }
        velt::send(view, "setBackgroundImage:withAlpha:", image, real(imageAlpha));
        message(view, "setBackgroundAlpha:", real(alpha));
        message(view, "setBackgroundCornerRadius:", real(radius));
        return view;
    }
    /// Within: the largest difference of dots that are wholly inside or outside. Edge: of the others.
    void compare(double ratio, int within, int edge, const std::string& what) const {
        const QImage quick = drawn(*made(), ratio);
        for (int y = 0; y < quick.height(); ++y) {
            for (int x = 0; x < quick.width(); ++x) {
                const QColor slow = at(x, y, ratio), dot = quick.pixelColor(x, y);
                const bool isAtEdge = isInCorner((x + 0.5) / ratio, (y + 0.5) / ratio) && isNearArc(x, y, ratio);
                const int allowed = isAtEdge ? edge : within;
                const int most = std::max({std::abs(slow.red() - dot.red()), std::abs(slow.green() - dot.green()),
                                           std::abs(slow.blue() - dot.blue())});
                ASSERT_GE(allowed, most) << what << " at scale " << ratio << ": " << x << ", " << y << " slow "
                                         << slow.name().toStdString() << " drawn " << dot.name().toStdString();
            }
        }
    }
};

}  // namespace velt::test
