// Colours, fonts, cursors and images: what looks like a value.
#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/archives.h"
#include "support/displays.h"
#include "support/generated.h"
#include "support/processes.h"
#include "support/values.h"

#include "VELTRuntime/platform/appkit/system_colors.h"

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <cmath>
#include <thread>

using namespace velt::test;
using velt::Ref;

namespace {

id color(double red, double green, double blue, double alpha = 1) {
    return VELT_NSCOLOR_INIT(nil, "", real(red), real(green), real(blue), real(alpha));
}
id named(const char* name) { return velt::send(NSColor::entry().object(), std::string_view(name)); }
std::string text(const id& value) { return velt::utf8(velt::description(value)); }

/// A desktop in other colours, for one test.
class OtherPalette {
public:
    OtherPalette(QPalette::ColorRole role, const QColor& color) : before_(QApplication::palette()) {
        QPalette palette = before_;
        palette.setColor(role, color);
        QApplication::setPalette(palette);
    }
    ~OtherPalette() { QApplication::setPalette(before_); }
    OtherPalette(const OtherPalette&) = delete;
    OtherPalette& operator=(const OtherPalette&) = delete;

private:
    QPalette before_;
};

/// Holds a font, as controls do.
class FontHolder : public NSObject {
    VELT_OBJECT(FontHolder, NSObject)

public:
    static void describe(velt::ClassBuilder<FontHolder>& c) { c.property("font", &FontHolder::font); }
    id font;
};

}  // namespace

TEST(Colors, AreMadeOfComponentsFromZeroToOne) {
    const id made = VELT_NSCOLOR_INIT(str("ignored"), "ignored", real(0.25), single(0.5F), integer(1), real(0.75));
    EXPECT_EQ("<NSColor 0.25 0.5 1 0.75>", text(made));
    EXPECT_VALUE("d 0.5", velt::send(made, "greenComponent"));
    EXPECT_EQ("<NSColor 0 1 1 0>", text(color(-1, 2, INFINITY, -INFINITY)));
}

TEST(Colors, AreRefusedWithoutNumbers) {
    EXPECT_RAISES("VLException: Function 'Color' failed", color(0, std::nan(""), 0));
    EXPECT_CAST_FAILURE("'Double' expected", VELT_NSCOLOR_INIT(nil, "", real(0), real(0), real(0), nil));
    EXPECT_CAST_FAILURE("'Double' expected", VELT_NSCOLOR_INIT(nil, "", real(0), real(0), array(), real(0)));
}

TEST(Colors, AreMadeOnAnyThread) {
    std::thread([] {
        const velt::ThreadScope scope;
        EXPECT_EQ("<NSColor 1 0 0 1>", text(color(1, 0, 0)));
    }).join();
}

TEST(Colors, AreEqualWhenTheirComponentsAre) {
    EXPECT_TRUE(velt::isEqual(color(0.1, 0.2, 0.3), color(0.1, 0.2, 0.3)));
    EXPECT_EQ(velt::hash(color(0.1, 0.2, 0.3)), velt::hash(color(0.1, 0.2, 0.3)));
    EXPECT_FALSE(velt::isEqual(color(0.1, 0.2, 0.3), color(0.1, 0.2, 0.3, 0.5)));
    EXPECT_FALSE(velt::isEqual(color(0, 0, 0), str("black")));
    EXPECT_TRUE(velt::isEqual(named("blackColor"), color(0, 0, 0)));
    EXPECT_FALSE(velt::isEqual(named("blackColor"), named("clearColor")));
}

TEST(Colors, OfTheDesktopFollowItsPalette) {
    velt::requireApplicationObject("a palette");
    const id window = named("windowBackgroundColor");
    const OtherPalette dark(QPalette::Window, QColor(51, 102, 153));
    EXPECT_EQ("<NSColor 0.2 0.4 0.6 1>", text(window));
    EXPECT_VALUE("'windowBackgroundColor'", velt::send(window, "colorNameComponent"));
    EXPECT_TRUE(velt::isEqual(window, named("windowBackgroundColor")));
    EXPECT_FALSE(velt::isEqual(window, named("controlColor")));
    EXPECT_FALSE(velt::isEqual(window, color(0.2, 0.4, 0.6)));
    for (const velt::SystemColor& row : velt::systemColors()) {
        EXPECT_EQ(std::string(row.name),
                  velt::utf8(velt::send(named(std::string(row.name).c_str()), "colorNameComponent")));
    }
}

TEST(Colors, AreBlended) {
    const id red = color(1, 0, 0), blue = color(0, 0, 1, 0.5);
    EXPECT_EQ("<NSColor 0.75 0 0.25 0.875>",
              text(velt::send(red, "blendedColorWithFraction:ofColor:", real(0.25), blue)));
    EXPECT_EQ("<NSColor 1 0 0 1>", text(velt::send(red, "blendedColorWithFraction:ofColor:", real(-3), blue)));
    EXPECT_EQ("<NSColor 0 0 1 0.5>", text(velt::send(red, "blendedColorWithFraction:ofColor:", real(3), blue)));
    EXPECT_TRUE(velt::send(red, "blendedColorWithFraction:ofColor:", real(0.5), nil).isNil());
    EXPECT_EQ("<NSColor 1 0 0 0.5>", text(velt::send(red, "colorWithAlphaComponent:", real(0.5))));
    EXPECT_EQ("<NSColor 1 0 0 1>", text(red));
}

TEST(Colors, HaveHueSaturationAndBrightness) {
    const auto hsb = [](double hue, double saturation, double brightness) {
        return text(velt::send(NSColor::entry().object(), "colorWithCalibratedHue:saturation:brightness:alpha:",
                               real(hue), real(saturation), real(brightness), real(1)));
    };
    EXPECT_EQ("<NSColor 1 0 0 1>", hsb(0, 1, 1));
    EXPECT_EQ("<NSColor 1 0 0 1>", hsb(1, 1, 1));
    EXPECT_EQ("<NSColor 1 1 0 1>", hsb(1.0 / 6, 1, 1));
    EXPECT_EQ("<NSColor 0 1 0 1>", hsb(1.0 / 3, 1, 1));
    EXPECT_EQ("<NSColor 0 0 0.5 1>", hsb(2.0 / 3, 1, 0.5));
    EXPECT_EQ("<NSColor 0.5 0.5 0.5 1>", hsb(0.3, 0, 0.5));
    EXPECT_DOUBLE_EQ(0, velt::as<NSColor>(color(0, 0, 0))->saturationComponent());
    EXPECT_DOUBLE_EQ(1.0 / 3, velt::as<NSColor>(color(0, 1, 0))->hueComponent());
}

namespace {
class GeneratedColors : public Generated {
protected:
    double part() { return static_cast<double>(bits() >> 11) / static_cast<double>(1L << 53); }
};
}  // namespace

TEST_F(GeneratedColors, AreTheSameThroughHueSaturationAndBrightness) {
    for (int i = iterations(2000); i > 0; --i) {
        const id one = color(part(), part(), part(), part());
        const NSColor& c = *velt::as<NSColor>(one);
        const Ref<NSColor> other =
            NSColor::deviceHsb(c.hueComponent(), c.saturationComponent(), c.brightnessComponent(), c.alphaComponent());
        ASSERT_NEAR(c.redComponent(), other->redComponent(), 1e-12) << text(one);
        ASSERT_NEAR(c.greenComponent(), other->greenComponent(), 1e-12) << text(one);
        ASSERT_NEAR(c.blueComponent(), other->blueComponent(), 1e-12) << text(one);
    }
}

TEST_F(GeneratedColors, ComeBackFromArchivesAsTheyWere) {
    for (int i = iterations(500); i > 0; --i) {
        const id one = color(part(), part(), part(), i % 2 ? 1 : part());
        ASSERT_TRUE(velt::isEqual(one, roundTrip(one))) << text(one);
    }
}

TEST(Colors, OfTheDesktopComeBackFromArchivesByName) {
    const id back = roundTrip(named("selectedTextColor"));
    EXPECT_TRUE(velt::isEqual(named("selectedTextColor"), back));
    EXPECT_VALUE("'selectedTextColor'", velt::send(back, "colorNameComponent"));
}

namespace {

/// What is read from an archive of one colour with such content.
template <class... Values> id readColor(long space, const Values&... content) {
    return unarchived(archiveOf(dictionary(str("$class"), uid(2), str("NSColorSpace"), integer(space), content...),
                                archivedClass("NSColor", "NSObject")));
}
id bytes(std::string_view text) { return velt::test::data(std::string(text) + '\0'); }

}  // namespace

TEST(Colors, AreReadAsOthersWriteThem) {
    EXPECT_EQ("<NSColor 0.5 0.25 1 1>", text(readColor(1, str("NSRGB"), bytes("0.5 0.25 1"))));
    EXPECT_EQ("<NSColor 0.5 0.25 1 0.75>", text(readColor(2, str("NSRGB"), bytes("0.5 0.25 1 0.75"))));
    EXPECT_EQ("<NSColor 0.5 0.25 1 1>", text(readColor(2, str("NSRGB"), data("0.5 0.25 1"))));
    EXPECT_EQ("<NSColor 0.5 0.5 0.5 0.25>", text(readColor(3, str("NSWhite"), bytes("0.5 0.25"))));
    EXPECT_EQ("<NSColor 1 0.5 0 1>", text(readColor(5, str("NSCMYK"), bytes("0 0.5 1 0"))));
    EXPECT_EQ("<NSColor 1 0 0 1>", text(readColor(2, str("NSRGB"), bytes("7 -7 0"))));
}

TEST(Colors, AreNotReadWithoutComponents) {
    const std::string none = "<a colour has no components>";
    EXPECT_EQ(none, velt::utf8(readColor(2)));
    EXPECT_EQ(none, velt::utf8(readColor(2, str("NSRGB"), data(""))));
    EXPECT_EQ(none, velt::utf8(readColor(2, str("NSRGB"), bytes("x y z"))));
    EXPECT_EQ(none, velt::utf8(readColor(2, str("NSRGB"), bytes("0 nan 0"))));
    EXPECT_EQ(none, velt::utf8(readColor(3, str("NSWhite"), bytes("0.5 0.25 1"))));
    EXPECT_EQ(none, velt::utf8(readColor(6)));
    EXPECT_EQ("<a colour is of no known colour space>", velt::utf8(readColor(99)));
}

TEST(Fonts, AreFoundByFamilyAndStyle) {
    const id plain = VELT_NSFONT_INIT(str("ignored"), "ignored", str("DejaVu Sans"), real(14.5));
    EXPECT_VALUE("'DejaVu Sans'", velt::send(plain, "fontName"));
    EXPECT_VALUE("d 14.5", velt::send(plain, "pointSize"));
    EXPECT_VALUE("Q 0", velt::send(plain, "traits"));
    for (const char* name : {"DejaVu Sans-Bold", "DejaVuSans-Bold", "dejavu sans-bold"}) {
        const id bold = VELT_NSFONT_INIT(nil, "", str(name), integer(20));
        EXPECT_VALUE("'DejaVu Sans-Bold'", velt::send(bold, "fontName"));
        EXPECT_VALUE("'DejaVu Sans'", velt::send(bold, "familyName"));
        EXPECT_VALUE("c 1", velt::send(bold, "isBold"));
    }
    EXPECT_VALUE("d 12", velt::send(VELT_NSFONT_INIT(nil, "", str("DejaVu Sans"), real(0)), "pointSize"));
    EXPECT_VALUE("c 1", velt::send(VELT_NSFONT_INIT(nil, "", str("DejaVu Sans Mono"), real(9)), "isFixedPitch"));
}

TEST(Fonts, OfUnknownNamesAreRefused) {
    for (const char* name : {"No Such Font", "", "-", "DejaVu Sans-", "DejaVu Sans-Curly", "-Bold"}) {
        EXPECT_RAISES("VLException: Function 'Font' failed", VELT_NSFONT_INIT(nil, "", str(name), real(12))) << name;
    }
    EXPECT_CAST_FAILURE("'Double' expected", VELT_NSFONT_INIT(nil, "", str("DejaVu Sans"), nil));
    EXPECT_RAISES("VLException: nil has no text: a string cannot be made from it",
                  VELT_NSFONT_INIT(nil, "", nil, real(12)));
}

TEST(Fonts, OfTheSystemComeInEverySize) {
    const id fonts = NSFont::entry().object();
    EXPECT_VALUE("d 13", velt::send(velt::send(fonts, "systemFontOfSize:", real(0)), "pointSize"));
    EXPECT_VALUE("c 1", velt::send(velt::send(fonts, "boldSystemFontOfSize:", real(30)), "isBold"));
    EXPECT_VALUE("c 0", velt::send(velt::send(fonts, "systemFontOfSize:", real(30)), "isBold"));
    EXPECT_VALUE("c 1", velt::send(velt::send(fonts, "userFixedPitchFontOfSize:", real(11)), "isFixedPitch"));
    EXPECT_VALUE("d 1000000", velt::send(velt::send(fonts, "systemFontOfSize:", real(1e6)), "pointSize"));
    const Ref<NSFont> usual = NSFont::system(20);
    const NSFont& font = *usual;
    EXPECT_LT(0, font.ascender());
    EXPECT_GT(0, font.descender());
    EXPECT_NEAR(font.ascender() - font.descender(), font.lineHeight(), 1.5);
}

TEST(Fonts, ComeBackFromArchivesOrOthersStandInForThem) {
    for (const char* name : {"DejaVu Sans", "DejaVu Sans-Bold", "DejaVu Sans Mono"}) {
        const id font = VELT_NSFONT_INIT(nil, "", str(name), real(14.5));
        EXPECT_TRUE(velt::isEqual(font, roundTrip(font))) << name;
        EXPECT_EQ(velt::hash(font), velt::hash(roundTrip(font)));
    }
    const id bold = velt::send(NSFont::entry().object(), "boldSystemFontOfSize:", real(15));
    EXPECT_VALUE("c 1", velt::send(roundTrip(bold), "isBold"));
    EXPECT_VALUE("d 15", velt::send(roundTrip(bold), "pointSize"));
}

TEST(Fonts, AreSetAndReadBack) {
    const Ref<FontHolder> holder = velt::make<FontHolder>();
    const id font = VELT_NSFONT_INIT(nil, "", str("DejaVu Sans"), real(12));
    EXPECT_TRUE(VELT_NSFONT_FONT(holder).isNil());
    VELT_NSFONT_FONT(holder, font);
    EXPECT_EQ(font, VELT_NSFONT_FONT(holder));
    EXPECT_EQ(font, VELT_NSCONTROL_FONT(holder));
    EXPECT_EQ(font, VELT_NSCELL_FONT(holder));
    EXPECT_CAST_FAILURE("'NSFont' expected", VELT_NSFONT_FONT(holder, str("no font")));
    EXPECT_EQ(font, VELT_NSFONT_FONT(holder));
    holder->font = str("no font");
    EXPECT_CAST_FAILURE("'NSFont' expected", VELT_NSFONT_FONT(holder));
    EXPECT_CAST_FAILURE("'NSFont' expected", VELT_NSCONTROL_FONT(holder));
    EXPECT_CAST_FAILURE("'NSFont' expected", VELT_NSCELL_FONT(holder));
    EXPECT_TRUE(VELT_NSFONT_FONT(nil).isNil());
}

TEST(Cursors, AreShownOverTheProgramsWindows) {
    const auto standard = [](const char* name) {
        return velt::send(NSCursor::entry().object(), std::string_view(name));
    };
    VELT_NSCURSOR_SET(standard("crosshairCursor"));
    ASSERT_TRUE(QApplication::overrideCursor());
    EXPECT_EQ(Qt::CrossCursor, QApplication::overrideCursor()->shape());
    velt::send(standard("IBeamCursor"), "push");
    EXPECT_EQ(Qt::IBeamCursor, QApplication::overrideCursor()->shape());
    velt::send(standard("openHandCursor"), "set");  // in place of the one that was pushed
    velt::send(NSCursor::entry().object(), "hide");
    EXPECT_EQ(Qt::BlankCursor, QApplication::overrideCursor()->shape());
    velt::send(NSCursor::entry().object(), "unhide");
    velt::send(NSCursor::entry().object(), "unhide");  // one too many
    EXPECT_EQ(Qt::OpenHandCursor, QApplication::overrideCursor()->shape());
    velt::send(NSCursor::entry().object(), "pop");
    EXPECT_EQ(Qt::CrossCursor, QApplication::overrideCursor()->shape());
    VELT_NSCURSOR_SET(standard("arrowCursor"));
    EXPECT_FALSE(QApplication::overrideCursor());
    velt::send(NSCursor::entry().object(), "pop");
    velt::send(NSCursor::entry().object(), "pop");  // nothing is left
    EXPECT_EQ(Qt::ArrowCursor, NSCursor::currentCursor()->cursor().shape());
    EXPECT_TRUE(VELT_NSCURSOR_SET(nil).isNil());
}

TEST(Cursors, AreMadeOfPictures) {
    QImage picture(24, 24, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    const Ref<NSImage> image = velt::make<NSImage>(picture);
    const id cursor = velt::send(velt::make<NSCursor>(), "initWithImage:hotSpot:", id(image), point(3, 5));
    EXPECT_EQ(id(image), velt::send(cursor, "image"));
    EXPECT_VALUE("{CGPoint=dd} {3, 5}", velt::send(cursor, "hotSpot"));
    EXPECT_RAISES("VLCastException: 'NSImage' expected",
                  velt::send(velt::make<NSCursor>(), "initWithImage:hotSpot:", nil, point(3, 5)));
    const id empty =
        velt::send(velt::make<NSCursor>(), "initWithImage:hotSpot:", VELT_NSIMAGE_INIT(nil, ""), point(0, 0));
    EXPECT_EQ(Qt::ArrowCursor, velt::as<NSCursor>(empty)->cursor().shape());
}

TEST(Images, AreEmptyAtFirst) {
    const id image = VELT_NSIMAGE_INIT(str("ignored"), "ignored");
    EXPECT_VALUE("{CGSize=dd} {0, 0}", velt::send(image, "size"));
    EXPECT_VALUE("c 0", velt::send(image, "isValid"));
    EXPECT_TRUE(velt::send(image, "PNGRepresentation").isNil());
}

TEST(Images, AreMadeFromImagesAndFiles) {
    const TemporaryFolder folder;
    QImage picture(4, 3, QImage::Format_ARGB32);
    picture.fill(QColor(10, 20, 30, 40));
    ASSERT_TRUE(picture.save(QString::fromStdString(folder.file("a.png"))));
    const id image = VELT_NSIMAGE_INIT(nil, "", str(folder.file("a.png")));
    EXPECT_VALUE("{CGSize=dd} {4, 3}", velt::send(image, "size"));
    EXPECT_EQ(image, VELT_NSIMAGE_INIT(nil, "", image));
    EXPECT_TRUE(VELT_NSIMAGE_INIT(nil, "", str("no-such-resource.png")).isNil());
    EXPECT_TRUE(VELT_NSIMAGE_INIT(nil, "", str(folder.file("none.png"))).isNil());
    EXPECT_TRUE(VELT_NSIMAGE_INIT(nil, "", str(folder.write("text.png", "no picture"))).isNil());
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_NSIMAGE_INIT(nil, "", integer(1)));
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_NSIMAGE_INIT(nil, "", nil));
    const id again = velt::send(velt::make<NSImage>(), "initWithContentsOfFile:", str(folder.file("a.png")));
    EXPECT_VALUE("{CGSize=dd} {4, 3}", velt::send(again, "size"));
}

TEST(Images, ComeBackFromTheirPngRepresentation) {
    QImage picture(4, 3, QImage::Format_ARGB32);
    picture.fill(QColor(10, 20, 30, 40));
    const id png = velt::send(velt::make<NSImage>(picture), "PNGRepresentation");
    const id image = velt::send(velt::make<NSImage>(), "initWithData:", png);
    ASSERT_TRUE(velt::is<NSImage>(image));
    EXPECT_EQ(picture.pixel(3, 2), velt::as<NSImage>(image)->picture().pixel(3, 2));
    EXPECT_TRUE(velt::send(velt::make<NSImage>(), "initWithData:", data("no picture")).isNil());
    EXPECT_TRUE(velt::send(velt::make<NSImage>(), "initWithData:", nil).isNil());
}

TEST(Images, HaveTheDesktopsIconsByName) {
    const auto icon = [](const char* name) { return velt::send(NSImage::entry().object(), "imageNamed:", str(name)); };
    for (const char* name : {"NSFolder", "NSCaution", "NSComputer", "NSGoRightTemplate"}) {
        const id image = icon(name);
        ASSERT_TRUE(velt::is<NSImage>(image)) << name;
        const NSSize size = velt::as<NSImage>(image)->size();
        EXPECT_TRUE(size.width > 0 && size.width <= 32 && size.height > 0 && size.height <= 32) << name;
    }
    EXPECT_TRUE(icon("no such icon").isNil());
    EXPECT_TRUE(icon("").isNil());
}
