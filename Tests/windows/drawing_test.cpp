// Drawing into custom views: paths, colours, clipping, pictures and texts, all with y pointing up.
#include "support/values.h"
#include "windows/containers_support.h"

#include <functional>

using namespace velt::test;
using velt::Ref;

namespace {

/// Draws what a test tells it to.
class Canvas : public NSView {
    VELT_OBJECT(Canvas, NSView)

public:
    void drawRect(NSRect) override { draw(); }
    bool isFlipped() const override { return flipped; }
    std::function<void()> draw;
    bool flipped = false;
};

id cls(const char* name) { return velt::Class::known(name).object(); }
void use(const char* color) { velt::send(velt::send(cls("NSColor"), color), "set"); }
id path() { return velt::send(cls("NSBezierPath"), "bezierPath"); }
void fillRect(double x, double y, double width, double height) {
    velt::send(cls("NSBezierPath"), "fillRect:", rect(x, y, width, height));
}

/// What is drawn on a white ground of 40 by 40.
QImage drawn(std::function<void()> draw, bool flipped = false, double ratio = 1) {
    const Ref<Canvas> canvas = velt::make<Canvas>();
    canvas->flipped = flipped;
    canvas->setFrame({{0, 0}, {40, 40}});
    canvas->draw = [&] {
        use("whiteColor");
        fillRect(0, 0, 40, 40);
        use("blackColor");
        draw();
    };
    canvas->widget().resize(40, 40);
    QImage image(static_cast<int>(40 * ratio), static_cast<int>(40 * ratio), QImage::Format_ARGB32);
    image.setDevicePixelRatio(ratio);
    canvas->widget().render(&image);
    return image;
}

bool isDark(const QImage& image, int x, int y) { return qGray(image.pixel(x, y)) < 100; }
bool isWhite(const QImage& image, int x, int y) { return qGray(image.pixel(x, y)) > 250; }

int darkDots(const QImage& image, QRect within) {
    int count = 0;
    for (int y = within.top(); y <= within.bottom(); ++y) {
        for (int x = within.left(); x <= within.right(); ++x) count += isDark(image, x, y);
    }
    return count;
}

}  // namespace

TEST(Drawing, CountsFromTheLowerLeftCorner) {
    const QImage up = drawn([] { fillRect(0, 0, 10, 5); });
    EXPECT_TRUE(isDark(up, 0, 39));
    EXPECT_TRUE(isDark(up, 9, 35));
    EXPECT_TRUE(isWhite(up, 10, 39));
    EXPECT_TRUE(isWhite(up, 0, 34));
    const QImage down = drawn([] { fillRect(0, 0, 10, 5); }, true);
    EXPECT_TRUE(isDark(down, 9, 4));
    EXPECT_TRUE(isWhite(down, 9, 5));
}

TEST(Drawing, UsesEveryDotOfADenseScreen) {
    const QImage image = drawn([] { fillRect(0, 0, 10.5, 5.5); }, false, 2);
    EXPECT_TRUE(isDark(image, 20, 79));
    EXPECT_TRUE(isWhite(image, 21, 79));
    EXPECT_TRUE(isDark(image, 0, 69));
    EXPECT_TRUE(isWhite(image, 0, 68));
}

TEST(Drawing, StrokesWithWidthColourAndDashes) {
    const QImage image = drawn([] {
        const id line = path();
        velt::send(line, "setLineWidth:", integer(4));
        velt::send(line, "moveToPoint:", point(0, 20));
        velt::send(line, "lineToPoint:", point(40, 20));
        velt::send(line, "setLineDash:count:phase:", array(integer(10), integer(5)), integer(2), integer(0));
        velt::send(velt::send(cls("NSColor"), "redColor"), "setStroke");
        velt::send(velt::send(cls("NSColor"), "blueColor"), "setFill");
        velt::send(line, "stroke");
    });
    EXPECT_EQ(qRgb(255, 0, 0), image.pixel(5, 20));
    EXPECT_EQ(qRgb(255, 0, 0), image.pixel(5, 18));
    EXPECT_TRUE(isWhite(image, 5, 17));
    EXPECT_TRUE(isWhite(image, 12, 20));
    EXPECT_EQ(qRgb(255, 0, 0), image.pixel(17, 20));
}

TEST(Drawing, KeepsTheDashesWhenOthersAreRefused) {
    const auto stroked = [](bool refuses) {
        return drawn([refuses] {
            const id line = path();
            velt::send(line, "moveToPoint:", point(0, 20));
            velt::send(line, "lineToPoint:", point(40, 20));
            velt::send(line, "setLineWidth:", integer(4));
            velt::send(line, "setLineDash:count:phase:", array(integer(10), integer(5)), integer(2), integer(0));
            if (refuses) {
                EXPECT_CAST_FAILURE("'Double' expected",
                                    velt::send(line, "setLineDash:count:phase:", array(integer(3), emptyDictionary()),
                                               integer(2), integer(7)));
            }
            velt::send(line, "stroke");
        });
    };
    EXPECT_EQ(stroked(false), stroked(true));
}

TEST(Drawing, FillsByTheWindingRule) {
    const auto rings = [](long rule) {
        return drawn([rule] {
            const id shape = path();
            velt::send(shape, "appendBezierPathWithOvalInRect:", rect(0, 0, 40, 40));
            velt::send(shape, "appendBezierPathWithOvalInRect:", rect(10, 10, 20, 20));
            velt::send(shape, "setWindingRule:", integer(rule));
            velt::send(shape, "fill");
        });
    };
    EXPECT_TRUE(isDark(rings(0), 20, 20));
    EXPECT_TRUE(isWhite(rings(1), 20, 20));
    EXPECT_TRUE(isDark(rings(1), 20, 4));
    EXPECT_TRUE(isWhite(rings(1), 1, 1));
}

TEST(Drawing, DrawsArcsAgainstTheClock) {
    const auto arc = [](bool clockwise) {
        return drawn([clockwise] {
            const id shape = path();
            velt::send(shape, "moveToPoint:", point(20, 20));
            velt::send(shape, "appendBezierPathWithArcWithCenter:radius:startAngle:endAngle:clockwise:", point(20, 20),
                       integer(20), integer(0), integer(90), boolean(clockwise));
            velt::send(shape, "closePath");
            velt::send(shape, "fill");
        });
    };
    EXPECT_TRUE(isDark(arc(false), 26, 14));  // the upper right quarter
    EXPECT_TRUE(isWhite(arc(false), 14, 14));
    EXPECT_TRUE(isWhite(arc(false), 26, 26));
    EXPECT_TRUE(isWhite(arc(true), 26, 14));  // the other three
    EXPECT_TRUE(isDark(arc(true), 14, 14));
    EXPECT_TRUE(isDark(arc(true), 26, 26));
}

TEST(Drawing, KeepsToItsClipUntilTheStateIsRestored) {
    const QImage image = drawn([] {
        const id context = velt::send(cls("NSGraphicsContext"), "currentContext");
        velt::send(context, "saveGraphicsState");
        velt::send(cls("NSBezierPath"), "clipRect:", rect(0, 0, 20, 40));
        use("redColor");
        fillRect(0, 20, 40, 20);
        velt::send(context, "restoreGraphicsState");
        fillRect(0, 0, 40, 10);
        velt::send(context, "restoreGraphicsState");  // one too many
        velt::send(context, "saveGraphicsState");     // and one too few
        velt::send(cls("NSBezierPath"), "clipRect:", rect(0, 0, 1, 1));
    });
    EXPECT_EQ(qRgb(255, 0, 0), image.pixel(10, 5));
    EXPECT_TRUE(isWhite(image, 30, 5));
    EXPECT_EQ(qRgb(0, 0, 0), image.pixel(30, 35));
}

TEST(Drawing, PutsPicturesUpright) {
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    picture.setPixel(0, 0, qRgb(255, 0, 0));  // the upper left dot
    const id image = velt::make<NSImage>(picture);
    for (const bool flipped : {false, true}) {
        const QImage whole = drawn([&] { velt::send(image, "drawInRect:", rect(0, 0, 40, 40)); }, flipped);
        EXPECT_EQ(qRgb(255, 0, 0), whole.pixel(2, 2)) << flipped;
        EXPECT_EQ(qRgb(0, 0, 255), whole.pixel(37, 37));
    }
    const QImage part = drawn([&] {
        velt::send(image, "drawInRect:fromRect:operation:fraction:", rect(0, 0, 20, 20), rect(0, 1, 1, 1), integer(2),
                   real(1));
        velt::send(image, "drawAtPoint:fromRect:operation:fraction:", point(30, 30), rect(0, 0, 0, 0), integer(2),
                   real(0.5));
    });
    EXPECT_EQ(qRgb(255, 0, 0), part.pixel(10, 30));
    EXPECT_TRUE(isWhite(part, 30, 30));
    EXPECT_NE(qRgb(0, 0, 255), part.pixel(31, 9));
    EXPECT_FALSE(part.pixel(31, 9) == qRgb(255, 255, 255));
}

TEST(Drawing, WritesTextsUprightAtTheirLowerLeftCorner) {
    const id font = velt::send(cls("NSFont"), "systemFontOfSize:", integer(16));
    const Ref<NSMutableDictionary> attributes = velt::make<NSMutableDictionary>();
    attributes->setObject(font, str("NSFont"));
    const NSSize size = VELT_CNSSIZE(velt::send(str("L"), "sizeWithAttributes:", id(attributes)));
    EXPECT_LT(5, size.width);
    EXPECT_LT(10, size.height);
    EXPECT_NEAR(2 * size.height, VELT_CNSSIZE(velt::send(str("L\nL"), "sizeWithAttributes:", id(attributes))).height,
                2);
    EXPECT_EQ(size.height, VELT_CNSSIZE(velt::send(str(""), "sizeWithAttributes:", id(attributes))).height);
    for (const bool flipped : {false, true}) {
        const QImage image =
            drawn([&] { velt::send(str("L"), "drawAtPoint:withAttributes:", point(5, 5), id(attributes)); }, flipped);
        const int top = flipped ? 5 : 35 - static_cast<int>(size.height);
        const QRect around(5, top, static_cast<int>(size.width) + 1, static_cast<int>(size.height));
        const int all = darkDots(image, image.rect());
        EXPECT_LT(5, all);
        EXPECT_EQ(all, darkDots(image, around)) << flipped;
        // The foot of the letter is below.
        const QRect lower = around.adjusted(0, around.height() / 2, 0, 0);
        EXPECT_GT(darkDots(image, lower), all - darkDots(image, lower)) << flipped;
    }
    attributes->setObject(velt::send(cls("NSColor"), "redColor"), str("NSColor"));
    attributes->setObject(velt::send(cls("NSColor"), "yellowColor"), str("NSBackgroundColor"));
    const QImage coloured =
        drawn([&] { velt::send(str("LL"), "drawInRect:withAttributes:", rect(0, 0, 40, 40), id(attributes)); });
    EXPECT_EQ(qRgb(255, 255, 0), coloured.pixel(0, 0));  // from the top
    EXPECT_TRUE(isWhite(coloured, 39, 39));
}

TEST(Drawing, DoesNothingWhenNothingIsDrawn) {
    use("redColor");
    fillRect(0, 0, 10, 10);
    velt::send(path(), "stroke");
    velt::send(path(), "setClip");
    velt::send(str("text"), "drawAtPoint:withAttributes:", point(0, 0), nil);
    EXPECT_TRUE(velt::send(cls("NSGraphicsContext"), "currentContext").isNil());
    velt::send(cls("NSGraphicsContext"), "restoreGraphicsState");
}

TEST(Paths, AnswerWhatTheyHold) {
    const id shape = path();
    EXPECT_VALUE("c 1", velt::send(shape, "isEmpty"));
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{0, 0}, {0, 0}}", velt::send(shape, "bounds"));
    EXPECT_RAISES("NSGenericException: lineToPoint:: the path has no current point",
                  velt::send(shape, "lineToPoint:", point(1, 1)));
    EXPECT_RAISES("NSGenericException: currentPoint: the path has no current point", velt::send(shape, "currentPoint"));
    velt::send(shape, "closePath");
    velt::send(shape, "moveToPoint:", point(10, 10));
    velt::send(shape, "relativeLineToPoint:", point(20, 0));
    velt::send(shape, "lineToPoint:", point(20, 30));
    velt::send(shape, "closePath");
    EXPECT_VALUE("{CGRect={CGPoint=dd}{CGSize=dd}} {{10, 10}, {20, 20}}", velt::send(shape, "bounds"));
    EXPECT_VALUE("c 1", velt::send(shape, "containsPoint:", point(20, 15)));
    EXPECT_VALUE("c 0", velt::send(shape, "containsPoint:", point(11, 29)));
    const id other = velt::copy(shape);
    velt::send(shape, "removeAllPoints");
    EXPECT_VALUE("c 1", velt::send(shape, "isEmpty"));
    EXPECT_VALUE("c 0", velt::send(other, "isEmpty"));
    velt::send(shape, "appendBezierPath:", other);
    velt::send(shape, "appendBezierPath:", shape);
    velt::send(shape, "curveToPoint:controlPoint1:controlPoint2:", point(0, 0), point(5, 5), point(6, 6));
    EXPECT_VALUE("{CGPoint=dd} {0, 0}", velt::send(shape, "currentPoint"));
    velt::send(shape, "setLineWidth:", integer(-3));
    EXPECT_VALUE("d 0", velt::send(shape, "lineWidth"));
    EXPECT_CAST_FAILURE("'Point' expected", velt::send(shape, "lineToPoint:", str("here")));
}

TEST(Colors, AreTheDesktopsWhenTheyAreNamedForAPart) {
    const QColor window = QApplication::palette().color(QPalette::Window);
    const id color = velt::send(cls("NSColor"), "windowBackgroundColor");
    EXPECT_EQ(window.rgb(), QColor::fromRgbF(static_cast<float>(velt::as<NSColor>(color)->redComponent()),
                                             static_cast<float>(velt::as<NSColor>(color)->greenComponent()),
                                             static_cast<float>(velt::as<NSColor>(color)->blueComponent()))
                                .rgb());
    EXPECT_VALUE("d 0.5", velt::send(velt::send(color, "colorWithAlphaComponent:", real(0.5)), "alphaComponent"));
    EXPECT_TRUE(velt::isEqual(velt::send(cls("NSColor"), "whiteColor"),
                              velt::send(cls("NSColor"), "colorWithDeviceWhite:alpha:", integer(1), integer(1))));
}
