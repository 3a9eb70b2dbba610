// Views with a decorated background, dot by dot beside a slow drawing of their layers.
#include "VELTRuntime/drawing/background_layers.h"
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "windows/gradient_support.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

using namespace velt::test;
using velt::Ref;

namespace {

constexpr int kWidth = 60, kHeight = 44;

id message(const id& view, const char* selector, const id& a) { return velt::send(view, selector, a); }

Ref<VLBackgroundView> backgroundView() {
    Ref<VLBackgroundView> view = velt::make<VLBackgroundView>();
    view->setFrame({{0, 0}, {kWidth, kHeight}});
    return view;
}

QImage drawn(NSView& view, double ratio = 1) {
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
id picture(int width = 8, int height = 6, int alpha = 255, int ratio = 1) {
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

TEST(BackgroundViews, AreEmptyAtFirstAndAfterClearing) {
    SlowView full;
    full.color = velt::test::color(1, 0, 0);
    full.pattern = full.image = picture();
    full.gradient = {{1, 0, 0, 1, 0}};
    full.radius = 9;
    full.alpha = 0.5;
    full.imageAlpha = 0.25;
    full.angle = 12;
    const Ref<VLBackgroundView> view = full.made();
    const auto expectEmpty = [](const id& one) {
        for (const char* layer : {"backgroundColor", "backgroundPattern", "backgroundGradient", "backgroundImage"}) {
            EXPECT_VALUE("nil", velt::send(one, layer));
        }
        EXPECT_VALUE("f 90", velt::send(one, "gradientAngle"));
        EXPECT_VALUE("f 1", velt::send(one, "backgroundAlpha"));
        EXPECT_VALUE("f 1", velt::send(one, "backgroundImageAlpha"));
        EXPECT_VALUE("f 0", velt::send(one, "backgroundCornerRadius"));
    };
    EXPECT_VALUE("f 12", velt::send(view, "gradientAngle"));
    EXPECT_NE(qRgb(255, 255, 255), drawn(*view).pixel(30, 20));
    velt::send(view, "clearBackground");
    expectEmpty(view);
    expectEmpty(velt::make<KRBackgroundView>());
    EXPECT_EQ(qRgb(255, 255, 255), drawn(*view).pixel(30, 20));
}

TEST(BackgroundViews, NeverVanishAltogether) {
    const Ref<VLBackgroundView> view = backgroundView();
    message(view, "setBackgroundColor:", velt::test::color(0, 0, 0));
    message(view, "setBackgroundAlpha:", integer(0));
    EXPECT_VALUE("f 0.01", velt::send(view, "backgroundAlpha"));
    EXPECT_EQ(qRgb(252, 252, 252), drawn(*view).pixel(5, 5));
    velt::send(view, "setBackgroundImage:withAlpha:", picture(), integer(0));
    EXPECT_VALUE("f 0.01", velt::send(view, "backgroundImageAlpha"));
    message(view, "setBackgroundImage:", nil);
    EXPECT_VALUE("f 0.01", velt::send(view, "backgroundImageAlpha"));  // the next image's too
    message(view, "setBackgroundAlpha:", real(-1));
    EXPECT_EQ(qRgb(255, 255, 255), drawn(*view).pixel(5, 5));
}

TEST(BackgroundViews, LoseALayerWithNil) {
    SlowView full;
    full.color = velt::test::color(0, 0, 1);
    full.gradient = {{1, 0, 0, 1, 0}};
    const Ref<VLBackgroundView> view = full.made();
    EXPECT_EQ(qRgb(255, 0, 0), drawn(*view).pixel(5, 5));
    message(view, "setBackgroundGradient:", nil);
    EXPECT_EQ(qRgb(0, 0, 255), drawn(*view).pixel(5, 5));
    message(view, "setBackgroundColor:", nil);
    EXPECT_EQ(qRgb(255, 255, 255), drawn(*view).pixel(5, 5));
}

TEST(BackgroundViews, TakeOnlyWhatTheirLayersAreMadeOf) {
    const id view = backgroundView();
    EXPECT_CAST_FAILURE("'NSColor' expected", message(view, "setBackgroundColor:", str("red")));
    EXPECT_CAST_FAILURE("'NSImage' expected", message(view, "setBackgroundPattern:", str("red")));
    EXPECT_CAST_FAILURE("'PXGradient' expected", message(view, "setBackgroundGradient:", str("red")));
    EXPECT_CAST_FAILURE("'NSImage' expected", message(view, "setBackgroundImage:", integer(1)));
}

TEST(BackgroundViews, KeepTheAngleOfTheirGradient) {
    const id view = backgroundView();
    velt::send(view, "setBackgroundGradient:withAngle:", PXGradient::preset("rainbowGradient"), real(30));
    message(view, "setBackgroundGradient:", id(PXGradient::preset("unifiedDarkGradient")));
    EXPECT_VALUE("f 30", velt::send(view, "gradientAngle"));
}

TEST(BackgroundViews, HaveARoundedPathFromTheMiddleOfTheLowerEdge) {
    const Ref<VLBackgroundView> view = backgroundView();
    const auto pathOf = [&] { return velt::send(view, "createBezierPathForRect:", rect(10, 20, 40, 30)); };
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{10, 20}, {40, 30}}", velt::send(pathOf(), "bounds"));
    EXPECT_VALUE("c 1", velt::send(pathOf(), "containsPoint:", point(10.1, 20.1)));
    message(view, "setBackgroundCornerRadius:", real(8));
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{10, 20}, {40, 30}}", velt::send(pathOf(), "bounds"));
    EXPECT_VALUE("c 0", velt::send(pathOf(), "containsPoint:", point(12, 22)));
    EXPECT_VALUE("c 1", velt::send(pathOf(), "containsPoint:", point(12.5, 22.5)));
    EXPECT_VALUE("c 0", velt::send(pathOf(), "containsPoint:", point(48, 48)));
    EXPECT_VALUE("c 1", velt::send(pathOf(), "containsPoint:", point(47.5, 47.5)));
    EXPECT_VALUE("{CGPoint=dd} {30, 20}", velt::send(pathOf(), "currentPoint"));
    // Coordinates are Singles.
    message(view, "setBackgroundCornerRadius:", real(0));
    const id path = velt::send(view, "createBezierPathForRect:", rect(0.1, 0, 1, 1));
    EXPECT_DOUBLE_EQ(static_cast<double>(0.1F), VELT_CNSRECT(velt::send(path, "bounds")).origin.x);
}

TEST(BackgroundViews, DrawTheirPatternFromTheTop) {
    QImage tile(10, 10, QImage::Format_RGB32);
    tile.fill(Qt::red);
    for (int x = 0; x < 10; ++x) tile.setPixel(x, 0, qRgb(0, 0, 0));
    const Ref<VLBackgroundView> view = backgroundView();
    message(view, "setBackgroundPattern:", velt::make<NSImage>(tile));
    for (const double alpha : {1.0, 0.9}) {
        message(view, "setBackgroundAlpha:", real(alpha));
        for (const double height : {44.0, 47.0}) {
            view->setFrameSize({60, height});
            const QImage seen = drawn(*view);
            for (const int row : {0, 10, 40}) EXPECT_GT(60, qRed(seen.pixel(30, row))) << row << " of " << height;
            EXPECT_LT(200, qRed(seen.pixel(30, 1)));
        }
    }
}

TEST(BackgroundViews, AreTheSameInViewsWhoseYPointsDown) {
    class Flipped : public KRBackgroundView {
        bool isFlipped() const override { return true; }
    };
    SlowView all;
    all.pattern = picture(8, 6, 128);
    all.image = picture(20, 16);
    all.gradient = {{1, 0, 0, 0.5, 0}, {0, 0, 1, 0.5, 1}};
    all.radius = 9;
    const Ref<VLBackgroundView> up = all.made();
    const Ref<Flipped> down = velt::make<Flipped>();
    down->setFrame(up->frame());
    message(down, "setBackgroundPattern:", all.pattern);
    message(down, "setBackgroundImage:", all.image);
    message(down, "setBackgroundGradient:", velt::send(up, "backgroundGradient"));
    message(down, "setBackgroundCornerRadius:", real(9));
    EXPECT_EQ(drawn(*up), drawn(*down));
}

TEST(BackgroundViews, AreDrawnAnewOnlyWhenSomethingHasChanged) {
    SlowView all;
    all.color = NSColor::ofSystem("controlBackgroundColor");
    all.image = picture();
    all.gradient = {{1, 0, 0, 0.5, 0}, {0, 0, 1, 0.5, 1}};
    const Ref<VLBackgroundView> view = all.made();
    drawn(*view);
    drawn(*view);
    EXPECT_EQ(1, view->cache().drawnAnew());
    message(view, "setBackgroundCornerRadius:", real(4));
    drawn(*view);
    drawn(*view);
    EXPECT_EQ(2, view->cache().drawnAnew());
    view->setFrameSize({80, 40});
    drawn(*view);
    EXPECT_EQ(3, view->cache().drawnAnew());
    drawn(*view, 2);
    EXPECT_EQ(4, view->cache().drawnAnew());
    message(view, "setBackgroundAlpha:", real(0.5));
    message(view, "setBackgroundAlpha:", real(1));
    drawn(*view, 2);
    EXPECT_EQ(4, view->cache().drawnAnew());
    // The desktop's colours may change.
    const QPalette before = QApplication::palette();
    QPalette other = before;
    other.setColor(QPalette::Base, Qt::darkGreen);
    QApplication::setPalette(other);
    drawn(*view, 2);
    QApplication::setPalette(before);
    EXPECT_EQ(5, view->cache().drawnAnew());
}

TEST(BackgroundViews, TooLargeToKeepAreDrawnWhereTheyAreSeen) {
    SlowView all;
    all.color = velt::test::color(0, 1, 0);
    all.gradient = {{1, 0, 0, 1, 0}, {0, 0, 1, 1, 1}};
    all.mode = 1;
    all.angle = 0;
    const Ref<VLBackgroundView> view = all.made();
    view->setFrameSize({40'000, 40'000});
    QImage seen(20, 20, QImage::Format_RGB32);
    {
        QPainter painter(&seen);
        painter.translate(-20'000, 0);
        view->draw(painter, {{0, 0}, {40'000, 40'000}});
    }
    EXPECT_EQ(qRgb(0, 255, 0), seen.pixel(10, 10));
    EXPECT_EQ(0, view->cache().drawnAnew());
}

TEST(BackgroundViews, DrawAnyImageThroughAnyPath) {
    class Canvas : public KRBackgroundView {
    public:
        id image, path;
        void drawRect(NSRect) override { drawImage(velt::as<NSImage>(image), 0.5F, velt::as<NSBezierPath>(path)); }
    };
    QImage black(200, 200, QImage::Format_RGB32);
    black.fill(Qt::black);
    const Ref<Canvas> canvas = velt::make<Canvas>();
    canvas->setFrame({{0, 0}, {kWidth, kHeight}});
    canvas->image = velt::make<NSImage>(black);
    canvas->path = velt::send(NSBezierPath::entry().object(), "bezierPathWithRect:", rect(10, 0, 20, 10));
    const QImage seen = drawn(*canvas);
    EXPECT_NEAR(127, qRed(seen.pixel(10, 43)), 1);
    EXPECT_NEAR(127, qRed(seen.pixel(29, 34)), 1);
    for (const QPoint outside : {QPoint(9, 43), QPoint(30, 43), QPoint(15, 33)}) {
        EXPECT_EQ(qRgb(255, 255, 255), seen.pixel(outside));
    }
}

TEST(BackgroundViews, AreDrivenByProgramsWithThreeFunctions) {
    const Ref<VLBackgroundView> view = backgroundView();
    EXPECT_VALUE("nil", VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT(view, color(1, 0, 0), color(0, 0, 1)));
    const QImage upwards = drawn(*view);
    EXPECT_LT(240, qRed(upwards.pixel(30, 43)));
    EXPECT_LT(240, qBlue(upwards.pixel(30, 0)));
    QImage black(10, 10, QImage::Format_RGB32);
    black.fill(Qt::black);
    EXPECT_VALUE("nil", VELT_VLBACKGROUNDVIEW_SETBACKGROUNDIMAGE(view, velt::make<NSImage>(black), real(1)));
    EXPECT_EQ(qRgb(0, 0, 0), drawn(*view).pixel(30, 22));
    EXPECT_VALUE("nil", VELT_VLBACKGROUNDVIEW_SETBACKGROUNDCORNERRADIUS(view, integer(10)));
    EXPECT_EQ(qRgb(255, 255, 255), drawn(*view).pixel(0, 0));
    EXPECT_VALUE("f 10", velt::send(view, "backgroundCornerRadius"));
}

TEST(BackgroundViews, RefuseWhatIsNoColourImageOrNumber) {
    const id view = backgroundView();
    EXPECT_CAST_FAILURE("'NSColor' expected",
                        VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT(view, str("red"), color(0, 0, 1)));
    EXPECT_CAST_FAILURE("'NSColor' expected",
                        VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT(view, color(0, 0, 1), integer(1)));
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_VLBACKGROUNDVIEW_SETBACKGROUNDIMAGE(view, nil, real(1)));
    EXPECT_CAST_FAILURE("'Single' expected",
                        VELT_VLBACKGROUNDVIEW_SETBACKGROUNDIMAGE(view, picture(), emptyDictionary()));
    EXPECT_CAST_FAILURE("'Single' expected", VELT_VLBACKGROUNDVIEW_SETBACKGROUNDCORNERRADIUS(view, emptyDictionary()));
    EXPECT_VALUE("nil", velt::send(view, "backgroundGradient"));
    EXPECT_VALUE("nil", velt::send(view, "backgroundImage"));
    // Nil receivers are passed over.
    EXPECT_VALUE("nil", VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT(nil, nil, nil));
    EXPECT_VALUE("nil", VELT_VLBACKGROUNDVIEW_SETBACKGROUNDCORNERRADIUS(nil, integer(1)));
}

TEST(BackgroundViews, AreShownAgainWhenAProgramChangesThem) {
    const Ref<VLBackgroundView> view = backgroundView();
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_CONTENTSIZE(window, size(100, 100));
    VELT_NSWINDOW_APPEND(window, view);
    VELT_NSWINDOW_SHOW(window);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view->widget().window()));
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->cache().drawnAnew() > 0; }));
    const int before = view->cache().drawnAnew();
    VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT(view, color(1, 0, 0), color(0, 0, 1));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->cache().drawnAnew() > before; }));
    VELT_NSWINDOW_CLOSE(window);
}

TEST(BezierPaths, RoundTheAngleBetweenTwoLines) {
    const id path = velt::send(NSBezierPath::entry().object(), "bezierPath");
    const auto arc = [&](const id& corner, const id& toward, double radius) {
        velt::send(path, "appendBezierPathWithArcFromPoint:toPoint:radius:", corner, toward, real(radius));
    };
    EXPECT_RAISES("NSGenericException: appendBezierPathWithArcFromPoint:toPoint:radius:: the path has no current point",
                  arc(point(0, 0), point(1, 1), 1));
    velt::send(path, "moveToPoint:", point(0, 0));
    arc(point(10, 0), point(10, 10), 4);
    EXPECT_VALUE("{CGPoint=dd} {10, 4}", velt::send(path, "currentPoint"));
    arc(point(10, 20), point(10, 30), 4);  // straight on
    EXPECT_VALUE("{CGPoint=dd} {10, 20}", velt::send(path, "currentPoint"));
    arc(point(0, 20), point(0, 30), 0);
    EXPECT_VALUE("{CGPoint=dd} {0, 20}", velt::send(path, "currentPoint"));
    arc(point(-10, 20), point(-10, 10), 5);  // to the other side
    const NSPoint end = VELT_CNSPOINT(velt::send(path, "currentPoint"));
    EXPECT_NEAR(-10, end.x, 1e-9);
    EXPECT_NEAR(15, end.y, 1e-9);
}
