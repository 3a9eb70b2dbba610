// Gradients as they are drawn, dot by dot beside a slow computation of where each dot lies on the axis.
#include "VELTRuntime/drawing/gradient_axis.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "support/generated.h"
#include "windows/gradient_support.h"

#include <QImage>
#include <QPainter>
#include <QPicture>

#include <functional>
#include <numbers>

using namespace velt::test;

namespace {

constexpr double kWidth = 60, kHeight = 40;
const NSRect kPlace{{7, 5}, {41, 29}};

/// Draws as in a view of that size whose y points up.
void drawIn(QPaintDevice& device, const std::function<void(QPainter&)>& draw) {
    QPainter painter(&device);
    const velt::GraphicsContext context(painter);
    painter.translate(0, kHeight);
    painter.scale(1, -1);
    draw(painter);
}

QImage ground(double ratio) {
    QImage image(static_cast<int>(kWidth * ratio), static_cast<int>(kHeight * ratio),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    return image;
}

QImage drawn(double ratio, const std::function<void(QPainter&)>& draw) {
    QImage image = ground(ratio);
    drawIn(image, draw);
    return image;
}

/// What a gradient has between its ends at a point.
using PositionOf = std::function<double(double x, double y)>;

double length(double angle) {
    const double a = angle * std::numbers::pi / 180;
    return kPlace.size.width * std::abs(std::cos(a)) + kPlace.size.height * std::abs(std::sin(a));
}

PositionOf along(double angle) {
    return [angle](double x, double y) {
        const double a = angle * std::numbers::pi / 180;
        const double cx = kPlace.origin.x + kPlace.size.width / 2, cy = kPlace.origin.y + kPlace.size.height / 2;
        return ((x - cx) * std::cos(a) + (y - cy) * std::sin(a)) / length(angle) + 0.5;
    };
}

struct Look {
    const char* name;
    std::vector<SlowStop> stops;
    int mode;
    int steps = 2;  // by which dots may differ
};

const std::vector<Look>& looks() {
    static const std::vector<Look> all{
        {"none", {}, 0},
        {"plain", {{1, 0, 0, 1, 0}, {0, 0, 1, 1, 1}}, 0},
        {"clear", {{1, 0.5, 0, 1, 0}, {0, 0, 1, 0, 1}}, 0},
        {"inner", {{0, 0, 0, 1, 0.25}, {1, 1, 1, 1, 0.75}}, 0},
        {"edge", {{1, 0, 0, 1, 0}, {1, 1, 0, 1, 0.5}, {0, 0, 1, 1, 0.5}, {0, 1, 1, 1, 1}}, 0},
        {"hues", {{1, 0, 0, 1, 0}, {0, 0, 1, 1, 1}}, 1},
        {"hues back", {{1, 0, 0, 1, 0}, {0, 0, 1, 0.5, 1}}, 2},
        {"hues and grey",
         {{0.5, 0.5, 0.5, 1, 0}, {0, 0, 1, 1, 0.4}, {1, 0.5, 0, 1, 1}},
         1,
         5},  // a degree is left out at red
    };
    return all;
}

/// The largest difference of a component from the slow computation over a rectangle, in steps of the screen. Dots at
/// most one dot from an edge between two colours are left out; so are the outermost of the picture.
int difference(const QImage& picture, double ratio, const Look& look, const PositionOf& positionOf, double dots) {
    int most = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const double px = (x + 0.5) / ratio, py = kHeight - (y + 0.5) / ratio;
            const auto [origin, size] = kPlace;
            const bool inside =
                px > origin.x && px < origin.x + size.width && py > origin.y && py < origin.y + size.height;
            const QRgb dot = picture.pixel(x, y);
            if (!inside) {
                most = std::max(most, qAlpha(dot));
                continue;
            }
            const double position = std::clamp(positionOf(px, py), 0.0, 1.0);
            bool isAtEdge = false;
            for (std::size_t i = 1; i < look.stops.size(); ++i) {
                isAtEdge |= look.stops[i].position == look.stops[i - 1].position &&
                            std::abs(look.stops[i].position - position) * dots <= 1;
            }
            if (isAtEdge) continue;
            const SlowColor slow = slowColorAt(look.stops, look.mode, position);
            const double alpha = slow.part[3];
            const QRgb held = reinterpret_cast<const QRgb*>(picture.constScanLine(y))[x];
            const int parts[] = {qRed(held), qGreen(held), qBlue(held)};
            for (int k = 0; k < 3; ++k) {
                most = std::max(most, std::abs(parts[k] - static_cast<int>(slow.part[k] * alpha * 255 + 0.5)));
            }
            most = std::max(most, std::abs(qAlpha(held) - static_cast<int>(alpha * 255 + 0.5)));
        }
    }
    return most;
}

void fill(const id& gradient, double angle) { velt::send(gradient, "fillRect:angle:", VELT_ID(kPlace), real(angle)); }

}  // namespace

TEST(GradientFills, HaveEveryDotsOwnColourAtEveryAngleAndScale) {
    for (const Look& look : looks()) {
        const id gradient = gradientOf(look.stops, look.mode);
        for (const double ratio : {1.0, 2.0}) {
            for (const double angle : {0.0, 90.0, 180.0, 270.0, 30.0, 45.0, 60.0, 135.0, 200.0, -20.0, 405.0}) {
                const QImage picture = drawn(ratio, [&](QPainter&) { fill(gradient, angle); });
                EXPECT_GE(look.steps, difference(picture, ratio, look, along(angle), length(angle) * ratio))
                    << look.name << " at " << angle << ", scale " << ratio;
            }
        }
    }
}

TEST(GradientFills, SpreadFromTheMiddleToHalfOfTheLongerSide) {
    const double outer = kPlace.size.width / 2;
    const PositionOf position = [outer](double x, double y) {
        const double cx = kPlace.origin.x + kPlace.size.width / 2, cy = kPlace.origin.y + kPlace.size.height / 2;
        return (std::hypot(x - cx, y - cy) - 1) / (outer - 1);
    };
    for (const Look& look : looks()) {
        const id gradient = gradientOf(look.stops, look.mode);
        for (const double ratio : {1.0, 2.0}) {
            const QImage picture =
                drawn(ratio, [&](QPainter&) { velt::send(gradient, "radialFillRect:", VELT_ID(kPlace)); });
            EXPECT_GE(look.steps + 1, difference(picture, ratio, look, position, outer * ratio))
                << look.name << ", scale " << ratio;
        }
    }
}

TEST(GradientFills, AreTheSameWhenTheyAreKeptAndDrawnLater) {
    for (const Look& look : looks()) {
        if (look.name == std::string("edge")) continue;  // its edge lies within the toolkit's table of colours
        const id gradient = gradientOf(look.stops, look.mode);
        QPicture kept;
        drawIn(kept, [&](QPainter&) { fill(gradient, 30); });
        QImage picture = ground(1);
        QPainter painter(&picture);
        painter.drawPicture(0, 0, kept);
        painter.end();
        EXPECT_GE(look.steps + 2, difference(picture, 1, look, along(30), length(30))) << look.name;
    }
}

TEST(GradientFills, AreTurnedAndStretchedWithTheDrawing) {
    const Look& look = looks()[5];
    const id gradient = gradientOf(look.stops, look.mode);
    const QImage picture = drawn(1, [&](QPainter& painter) {
        painter.translate(60, 0);
        painter.rotate(90);
        velt::send(gradient, "fillRect:angle:", rect(0, 0, 40, 60), real(0));
    });
    // What ran to the right runs upwards.
    for (int y = 0; y < 40; ++y) {
        const SlowColor slow = slowColorAt(look.stops, look.mode, (39.5 - y) / 40);
        EXPECT_NEAR(slow.part[0] * 255, qRed(picture.pixel(30, y)), 3) << y;
        EXPECT_NEAR(slow.part[1] * 255, qGreen(picture.pixel(30, y)), 8) << y;
        EXPECT_EQ(picture.pixel(0, y), picture.pixel(59, y));
    }
}

TEST(GradientFills, StayWithinWhatIsClipped) {
    for (const Look& look : looks()) {
        const QImage picture = drawn(1, [&](QPainter& painter) {
            painter.setClipRect(QRectF(10, 10, 5, 5));
            fill(gradientOf(look.stops, look.mode), 30);
        });
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const bool inside = x >= 10 && x < 15 && y >= 25 && y < 30;
                ASSERT_TRUE(inside || qAlpha(picture.pixel(x, y)) == 0) << look.name << " " << x << ", " << y;
            }
        }
        EXPECT_LT(0, qAlpha(picture.pixel(11, 29))) << look.name;
    }
}

TEST(GradientFills, LeaveTheDrawingAsItWas) {
    drawn(1, [](QPainter& painter) {
        painter.setOpacity(0.5);
        const QTransform before = painter.transform();
        fill(gradientOf(looks()[5].stops, 1), 30);
        EXPECT_EQ(before, painter.transform());
        EXPECT_EQ(0.5, painter.opacity());
        EXPECT_FALSE(painter.hasClipping());
    });
}

TEST(GradientFills, DrawNothingWhereThereIsNothingToFill) {
    const id gradient = gradientOf(looks()[5].stops, 1);
    const QImage picture = drawn(1, [&](QPainter&) {
        for (const id& none : {rect(10, 10, 0, 20), rect(10, 10, 20, -1), rect(std::nan(""), 0, 20, 20),
                               rect(0, 0, INFINITY, 20), rect(500, 500, 20, 20)}) {
            velt::send(gradient, "fillRect:angle:", none, real(30));
            velt::send(gradient, "radialFillRect:", none);
            velt::send(gradient, "drawSwatchInRect:", none);
        }
        velt::send(gradient, "fillRect:angle:", VELT_ID(kPlace), real(INFINITY));
    });
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) ASSERT_EQ(0, qAlpha(picture.pixel(x, y)));
    }
    EXPECT_EQ("nothing", raised([&] { fill(gradient, 30); }));  // nothing is being drawn
}

TEST(GradientFills, FillTheSmallestCircles) {
    // Circles of one dot or less: everything lies outside of them, or inwards.
    const id gradient = gradientOf({{1, 0, 0, 1, 0}, {0, 0, 1, 1, 1}}, 1);
    const QImage picture = drawn(8, [&](QPainter&) {
        velt::send(gradient, "radialFillRect:", rect(4, 4, 2, 2));
        velt::send(gradient, "radialFillRect:", rect(8, 4, 1, 1));
    });
    EXPECT_EQ(qRgb(0, 0, 255), picture.pixel(4 * 8 + 1, 320 - 4 * 8 - 2));
    EXPECT_EQ(qRgb(255, 0, 0), picture.pixel(5 * 8, 320 - 5 * 8));
    EXPECT_EQ(255, qAlpha(picture.pixel(8 * 8 + 4, 320 - 4 * 8 - 4)));
}

TEST(GradientFills, ShowWhatASwatchLetsThrough) {
    const auto swatch = [](double alpha) {
        return drawn(1, [&](QPainter&) {
            velt::send(gradientOf({{1, 0, 0, alpha, 0}, {0, 0, 1, alpha, 1}}), "drawSwatchInRect:", VELT_ID(kPlace));
        });
    };
    const QImage clear = swatch(0), solid = swatch(1);
    EXPECT_NE(clear.pixel(9, 30), clear.pixel(14, 30));  // squares
    EXPECT_EQ(255, qAlpha(clear.pixel(9, 30)));
    EXPECT_LT(230, qRed(solid.pixel(9, 20)));
    EXPECT_LT(230, qBlue(solid.pixel(45, 20)));
    EXPECT_GT(qRed(solid.pixel(8, 20)), qRed(solid.pixel(7, 20)));  // the frame
    EXPECT_EQ(0, qAlpha(solid.pixel(6, 20)));
    EXPECT_EQ(0, qAlpha(solid.pixel(48, 20)));
}

TEST(GradientAxes, CrossTheRectangleAsTheAngleSays) {
    const NSRect place{{10, 20}, {100, 50}};
    const auto axis = [&](double angle) { return velt::axisAcross(place, angle); };
    EXPECT_EQ((NSPoint{10, 20}), axis(0).from);
    EXPECT_EQ((NSPoint{110, 20}), axis(0).to);
    EXPECT_EQ((NSPoint{10, 20}), axis(90).from);
    EXPECT_EQ((NSPoint{10, 70}), axis(90).to);
    // At 45 degrees the ends lie where lines across the axis meet the corners.
    EXPECT_NEAR(22.5, axis(45).from.x, 1e-5);
    EXPECT_NEAR(7.5, axis(45).from.y, 1e-5);
    EXPECT_NEAR(97.5, axis(45).to.x, 1e-5);
    EXPECT_NEAR(82.5, axis(45).to.y, 1e-5);
    EXPECT_NEAR(110, axis(180).from.x, 1e-5);
    EXPECT_NEAR(10, axis(180).to.x, 1e-5);
    EXPECT_NEAR(45, axis(180).to.y, 1e-5);
    EXPECT_NEAR(70, axis(270).from.y, 1e-5);
    EXPECT_NEAR(20, axis(270).to.y, 1e-5);
}
