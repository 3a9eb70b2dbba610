// Views with a decorated background: what they keep, refuse, draw anew, and how programs drive them.
#include "VELTRuntime/platform/appkit/graphics_context.h"
#include "support/patience.h"
#include "windows/background_support.h"

using namespace velt::test;
using velt::Ref;

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

namespace {

/// A black image of that size drawn through a rectangle, half seen.
QImage drawnThrough(int width, int height, const id& rectangle) {
    class Canvas : public KRBackgroundView {
    public:
        id image, path;
        void drawRect(NSRect) override { drawImage(velt::as<NSImage>(image), 0.5F, velt::as<NSBezierPath>(path)); }
    };
    QImage black(width, height, QImage::Format_RGB32);
    black.fill(Qt::black);
    const Ref<Canvas> canvas = velt::make<Canvas>();
    canvas->setFrame({{0, 0}, {kWidth, kHeight}});
    canvas->image = velt::make<NSImage>(black);
    canvas->path = velt::send(NSBezierPath::entry().object(), "bezierPathWithRect:", rectangle);
    return drawn(*canvas);
}

}  // namespace

TEST(BackgroundViews, DrawAnyImageThroughAnyPath) {
    const QImage seen = drawnThrough(200, 200, rect(10, 0, 20, 10));
    EXPECT_NEAR(127, qRed(seen.pixel(10, 43)), 1);
    EXPECT_NEAR(127, qRed(seen.pixel(29, 34)), 1);
    for (const QPoint outside : {QPoint(9, 43), QPoint(30, 43), QPoint(15, 33)}) {
        EXPECT_EQ(qRgb(255, 255, 255), seen.pixel(outside));
    }
}

TEST(BackgroundViews, DrawAnImageAsLargeAsThePathFromTheOrigin) {
    // The image lies from 0 to 20 and from 0 to 10, the path from 10 to 30 and from 5 to 15.
    const QImage seen = drawnThrough(20, 10, rect(10, 5, 20, 10));
    EXPECT_NEAR(127, qRed(seen.pixel(10, 38)), 1);
    EXPECT_NEAR(127, qRed(seen.pixel(19, 34)), 1);
    for (const QPoint outside : {QPoint(9, 38), QPoint(20, 38), QPoint(15, 33), QPoint(15, 39), QPoint(30, 22)}) {
        EXPECT_EQ(qRgb(255, 255, 255), seen.pixel(outside));
    }
}

TEST(BackgroundViews, DrawImagesUprightOnPaperToo) {
    class Canvas : public KRBackgroundView {
    public:
        id image, path;
        bool pointsDown = false;
        bool isFlipped() const override { return pointsDown; }
        void drawRect(NSRect) override { drawImage(velt::as<NSImage>(image), 1, velt::as<NSBezierPath>(path)); }
    };
    QImage halves(20, 20, QImage::Format_RGB32);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x) halves.setPixel(x, y, y < 10 ? qRgb(0, 0, 0) : qRgb(255, 0, 0));
    }
    const NSRect whole{{0, 0}, {kWidth, kHeight}};
    const Ref<Canvas> canvas = velt::make<Canvas>();
    canvas->setFrame(whole);
    canvas->image = velt::make<NSImage>(halves);
    canvas->path = velt::send(NSBezierPath::entry().object(), "bezierPathWithRect:", VELT_ID(whole));
    for (const bool pointsDown : {false, true}) {
        canvas->pointsDown = pointsDown;
        // A painter that is a little slanted has no dots to go by, as on paper.
        for (const double slant : {0.0, 1e-6}) {
            QImage seen(kWidth, kHeight, QImage::Format_RGB32);
            seen.fill(Qt::white);
            {
                QPainter painter(&seen);
                painter.shear(slant, 0);
                canvas->draw(painter, whole);
            }
            EXPECT_EQ(qRgb(0, 0, 0), seen.pixel(30, 15)) << pointsDown << " " << slant;
            EXPECT_EQ(qRgb(255, 0, 0), seen.pixel(30, 28)) << pointsDown << " " << slant;
            EXPECT_EQ(qRgb(255, 255, 255), seen.pixel(30, 8)) << pointsDown << " " << slant;
        }
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
    ASSERT_TRUE(comesIntoView(view->widget().window()));
    ASSERT_TRUE(comesTrue([&] { return view->cache().drawnAnew() > 0; }));
    const int before = view->cache().drawnAnew();
    VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT(view, color(1, 0, 0), color(0, 0, 1));
    EXPECT_TRUE(comesTrue([&] { return view->cache().drawnAnew() > before; }));
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
