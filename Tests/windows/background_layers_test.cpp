// Views with a decorated background, dot by dot beside a slow drawing of their layers.
#include "windows/background_support.h"

using namespace velt::test;
using velt::Ref;

namespace {

// Steps of the screen by which dots may differ: four layers are rounded to them, one over the other. At the edge, which
// four layers have four times, the toolkit's arcs are short lines, less than an eighth of a dot within the circle.
constexpr int kWithin = 3, kEdge = 32, kEdges = 48;

}  // namespace

TEST(BackgroundViews, DrawTheirLayersAsASlowDrawingDoes) {
    SlowView color;
    color.color = velt::test::color(0.2, 0.5, 0.8);
    SlowView pattern;
    pattern.pattern = picture();
    SlowView gradient;
    gradient.gradient = {{1, 0, 0, 1, 0}, {0, 0, 1, 0.5, 1}};
    SlowView image, large;
    SlowView all = color;
    all.pattern = picture(8, 6, 128);
    all.gradient = {{1, 1, 0, 0.5, 0}, {0, 0, 1, 0.25, 1}};
    all.angle = 30;
    all.mode = 1;
    for (const int ratio : {1, 2}) {
        image.image = picture(20, 16, 255, ratio);
        large.image = picture(90, 80, 255, ratio);
        all.image = picture(20, 16, 200, ratio);
        for (const double radius : {0.0, 12.0}) {
            for (const double alpha : {1.0, 0.4}) {
                for (auto [view, name] :
                     {std::pair(&color, "colour"), std::pair(&pattern, "pattern"), std::pair(&gradient, "gradient"),
                      std::pair(&image, "image"), std::pair(&large, "large image"), std::pair(&all, "all")}) {
                    view->radius = radius;
                    view->alpha = alpha;
                    view->imageAlpha = 1.2 - alpha;
                    if (view->imageAlpha > 1 || view->image.isNil()) view->imageAlpha = 1;
                    view->compare(ratio, kWithin, view == &all ? kEdges : kEdge, name);
                }
            }
        }
    }
}

TEST(BackgroundViews, KeepTheEdgesOfEnlargedImages) {
    QImage halves(20, 16, QImage::Format_RGB32);
    halves.fill(Qt::red);
    for (int y = 0; y < 16; ++y) {
        for (int x = 10; x < 20; ++x) halves.setPixel(x, y, qRgb(0, 0, 255));
    }
    const Ref<VLBackgroundView> view = backgroundView();
    message(view, "setBackgroundImage:", velt::make<NSImage>(halves));
    const QImage seen = drawn(*view, 2);
    EXPECT_EQ(qRgb(255, 0, 0), seen.pixel(40, 28));
    EXPECT_EQ(qRgb(0, 0, 255), seen.pixel(79, 59));
    for (const QPoint outside : {QPoint(39, 40), QPoint(80, 40), QPoint(60, 27), QPoint(60, 60)}) {
        EXPECT_EQ(qRgb(255, 255, 255), seen.pixel(outside));
    }
}
