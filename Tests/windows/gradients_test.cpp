// Gradients as values: their stops, the colours between them, what changes one, archives.
#include "support/archives.h"
#include "support/generated.h"
#include "windows/gradient_support.h"

#include <limits>
#include <set>

using namespace velt::test;

namespace {

std::string at(const id& gradient, double position) {
    return velt::utf8(velt::description(velt::send(gradient, "colorAtPosition:", real(position))));
}
id between(const id& first, const id& last) {
    return velt::send(gradientClass(), "gradientWithBeginningColor:endingColor:", first, last);
}
id inMode(const id& gradient, int mode) { return velt::send(gradient, "gradientWithBlendingMode:", integer(mode)); }
long stopsOf(const id& gradient) { return static_cast<long>(velt::as<PXGradient>(gradient)->stops().stops().size()); }

const id kRed = color(1, 0, 0), kGreen = color(0, 1, 0), kBlue = color(0, 0, 1);

}  // namespace

TEST(Gradients, AreOpaqueWhiteWithoutStops) {
    const id none = velt::send(velt::make<PXGradient>(), "init");
    for (const int mode : {0, 1, 2}) {
        EXPECT_EQ("<NSColor 1 1 1 1>", at(inMode(none, mode), 0.3));
    }
    EXPECT_VALUE("q 0", velt::send(none, "blendingMode"));
}

TEST(Gradients, MixTheirColoursInAStraightLine) {
    const id two = between(color(1, 0, 0.5, 1), color(0, 1, 0.5, 0));
    EXPECT_EQ("<NSColor 1 0 0.5 1>", at(two, 0));
    EXPECT_EQ("<NSColor 0.75 0.25 0.5 0.75>", at(two, 0.25));
    EXPECT_EQ("<NSColor 0 1 0.5 0>", at(two, 1));
    EXPECT_EQ("<NSColor 1 0 0.5 1>", at(two, -7));
    EXPECT_EQ("<NSColor 0 1 0.5 0>", at(two, 7));
}

TEST(Gradients, HaveOneColourEverywhereWithOneStop) {
    const id one = gradientOf({{0, 0, 1, 1, 0.5}});
    for (const double position : {0.0, 0.5, 1.0}) EXPECT_EQ("<NSColor 0 0 1 1>", at(one, position));
    EXPECT_EQ("<NSColor 0 0 1 1>", at(inMode(one, 1), 0.7));
}

TEST(Gradients, GoUpwardsThroughTheHues) {
    const id hues = inMode(between(kRed, kBlue), 1);
    EXPECT_EQ("<NSColor 0 1 0 1>", at(hues, 0.5));
    EXPECT_EQ("<NSColor 1 1 0 1>", at(hues, 0.25));
    EXPECT_EQ("<NSColor 0 0 1 1>", at(hues, 1));
}

TEST(Gradients, GoDownwardsThroughTheHuesWhenInverse) {
    // From red at 360 degrees, one less where the circle closes too early.
    EXPECT_EQ("<NSColor 1 0 1 1>", at(inMode(between(kRed, kBlue), 2), 0.5));
    EXPECT_EQ("<NSColor 0 1 0 1>", at(inMode(between(kBlue, kRed), 2), 0.5));
}

TEST(Gradients, CloseTheCircleOfHuesAtADegreeTooFew) {
    // From blue upwards over red (360 degrees, which counts as 1) to green (480, which counts as 121).
    const id around = inMode(between(kBlue, kGreen), 1);
    EXPECT_EQ("<NSColor 1 0.01667 0 1>", at(around, 0.5));
    EXPECT_EQ("<NSColor 0 1 0.01667 1>", at(around, 1));
    EXPECT_EQ("<NSColor 1 0.01667 0 1>", at(inMode(between(kRed, kBlue), 2), 0));
}

TEST(Gradients, GiveGreysTheHueOfTheirNeighbour) {
    const id fromGrey = inMode(between(color(0.5, 0.5, 0.5), kBlue), 1);
    EXPECT_EQ("<NSColor 0.375 0.375 0.75 1>", at(fromGrey, 0.5));
    EXPECT_EQ("<NSColor 0.375 0.375 0.75 1>", at(inMode(between(kBlue, color(0.5, 0.5, 0.5)), 2), 0.5));
    EXPECT_EQ("<NSColor 0.5 0.5 0.5 1>", at(inMode(between(color(0, 0, 0), color(1, 1, 1)), 1), 0.5));
}

TEST(Gradients, MixInAStraightLineInAModeThatIsNone) {
    const id strange = inMode(between(kRed, kBlue), 7);
    EXPECT_EQ("<NSColor 0.5 0 0.5 1>", at(strange, 0.5));
    EXPECT_VALUE("q 7", velt::send(strange, "blendingMode"));
}

TEST(Gradients, KeepStopsOfOnePositionInTheirOrder) {
    const id stripes = gradientOf({{0, 0, 0, 1, 0.5}, {1, 1, 1, 1, 1}, {0, 0, 1, 1, 0}, {1, 0, 0, 1, 0.5}});
    EXPECT_EQ("<NSColor 0 0 1 1>", velt::utf8(velt::description(velt::send(stripes, "colorStopAtIndex:", integer(0)))));
    EXPECT_EQ("<NSColor 0 0 0 1>", velt::utf8(velt::description(velt::send(stripes, "colorStopAtIndex:", integer(1)))));
    EXPECT_EQ("<NSColor 1 0 0 1>", velt::utf8(velt::description(velt::send(stripes, "colorStopAtIndex:", integer(2)))));
    EXPECT_EQ("<NSColor 0 0 0 1>", at(stripes, 0.5));
    EXPECT_EQ("<NSColor 1 0.5 0.5 1>", at(stripes, 0.75));
}

TEST(Gradients, DoNotChangeWhenOthersAreMadeOfThem) {
    const id two = between(kRed, kBlue);
    const id clear = velt::send(two, "gradientWithAlphaComponent:", real(0.25));
    EXPECT_EQ("<NSColor 0.5 0 0.5 0.25>", at(clear, 0.5));
    const id three = velt::send(two, "addColorStop:atPosition:", kGreen, real(0.5));
    EXPECT_EQ("<NSColor 0 1 0 1>", at(three, 0.5));
    const id again = velt::send(three, "removeColorStopAtIndex:", integer(1));
    EXPECT_TRUE(velt::isEqual(two, again));
    EXPECT_EQ(velt::hash(two), velt::hash(again));
    EXPECT_TRUE(velt::isEqual(two, velt::send(three, "removeColorStopAtPosition:", real(0.5))));
    EXPECT_EQ("<NSColor 0.5 0 0.5 1>", at(two, 0.5));
    EXPECT_EQ(3, stopsOf(three));
    EXPECT_FALSE(velt::isEqual(two, three));
    EXPECT_FALSE(velt::isEqual(two, inMode(two, 1)));
    EXPECT_FALSE(velt::isEqual(two, clear));
    EXPECT_FALSE(velt::isEqual(two, str("gradient")));
}

TEST(Gradients, TakeOpacitiesFromZeroToOne) {
    const id two = between(kRed, kBlue);
    EXPECT_EQ("<NSColor 1 0 0 1>", at(velt::send(two, "gradientWithAlphaComponent:", real(3)), 0));
    EXPECT_EQ("<NSColor 1 0 0 0>", at(velt::send(two, "gradientWithAlphaComponent:", real(-3)), 0));
    EXPECT_EQ("<NSColor 1 0 0 0>", at(velt::send(two, "gradientWithAlphaComponent:", real(std::nan(""))), 0));
}

TEST(Gradients, TakeNilForAColourThatLetsEverythingThrough) {
    EXPECT_EQ("<NSColor 0 0 0.5 0.5>", at(between(nil, kBlue), 0.5));
    EXPECT_CAST_FAILURE("'NSColor' expected", between(str("red"), kBlue));
    EXPECT_CAST_FAILURE("'NSColor' expected",
                        velt::send(between(kRed, kBlue), "addColorStop:atPosition:", integer(1), real(0)));
}

TEST(Gradients, KeepAColourOfTheDesktopAsItIsNow) {
    const id desktop = NSColor::ofSystem("selectedTextColor");
    const id made = between(desktop, kBlue);
    EXPECT_TRUE(velt::as<NSColor>(velt::send(made, "colorStopAtIndex:", integer(0)))->colorNameComponent().isNil());
}

TEST(Gradients, SayWhichStopIsNotThere) {
    const id two = between(kRed, kBlue);
    const auto index = [&](long which) { return velt::send(two, "removeColorStopAtIndex:", integer(which)); };
    EXPECT_RAISES("NSRangeException: -[PXGradient removeColorStopAtIndex:]: index (2) beyond bounds", index(2));
    EXPECT_RAISES("NSRangeException: -[PXGradient removeColorStopAtIndex:]: index (-1) beyond bounds", index(-1));
    EXPECT_RAISES("NSRangeException: -[PXGradient removeColorStopAtIndex:]: index (0) beyond bounds",
                  velt::send(velt::make<PXGradient>(), "removeColorStopAtIndex:", integer(0)));
    EXPECT_RAISES(
        "NSRangeException: -[PXGradient removeColorStopAtPosition:]: no such colorStop at position (0.500000)",
        velt::send(two, "removeColorStopAtPosition:", real(0.5)));
    // The largest numbers are said whole too.
    const std::string largest = "179769313486231570814527423731704356798070567525844996598917476803157260780028538760"
                                "589558632766878171540458953514382464234321326889464182768467546703537516986049910576"
                                "551282076245490090389328944075868508455133942304583236903222948165808559332123348274"
                                "797826204144723168738177180919299881250404026184124858368.000000";
    EXPECT_RAISES("NSRangeException: -[PXGradient removeColorStopAtPosition:]: no such colorStop at position (" +
                      largest + ")",
                  velt::send(two, "removeColorStopAtPosition:", real(std::numeric_limits<double>::max())));
    EXPECT_RAISES("NSRangeException: 'PXGradient' colorStopAtIndex:: index 2 is out of range; the count is 2",
                  velt::send(two, "colorStopAtIndex:", integer(2)));
    for (const double position : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_RAISES(
            "NSInvalidArgumentException: 'PXGradient' addColorStop:atPosition:: the position is not a finite number",
            velt::send(two, "addColorStop:atPosition:", kRed, real(position)));
    }
}

TEST(Gradients, AreTheirOwnCopies) {
    const id two = between(kRed, kBlue);
    EXPECT_EQ(two.object(), velt::copy(two).object());
    EXPECT_EQ(two.object(), velt::send(two, "copyWithZone:", nil).object());
}

TEST(Gradients, AreReadyMadeUnderTheirNames) {
    struct Preset {
        const char* name;
        long stops, mode;
    };
    const Preset presets[] = {
        {"aquaSelectedGradient", 4, 0},    {"aquaNormalGradient", 4, 0},         {"aquaPressedGradient", 4, 0},
        {"unifiedSelectedGradient", 2, 0}, {"unifiedNormalGradient", 2, 0},      {"unifiedPressedGradient", 2, 0},
        {"unifiedDarkGradient", 2, 0},     {"sourceListSelectedGradient", 2, 0}, {"sourceListUnselectedGradient", 2, 0},
        {"rainbowGradient", 2, 1},         {"hydrogenSpectrumGradient", 14, 1},
    };
    std::set<std::string> looks;
    for (const Preset& preset : presets) {
        const id made = velt::send(gradientClass(), preset.name);
        EXPECT_EQ(preset.stops, stopsOf(made)) << preset.name;
        EXPECT_VALUE(std::string("q ").append(std::to_string(preset.mode)), velt::send(made, "blendingMode"))
            << preset.name;
        looks.insert(at(made, 0.1) + at(made, 0.38) + at(made, 0.9));
        EXPECT_TRUE(velt::as<PXGradient>(made)->stops().isOpaque());
    }
    EXPECT_EQ(std::size(presets), looks.size());
    EXPECT_EQ("<NSColor 0 1 0 1>", at(velt::send(gradientClass(), "rainbowGradient"), 0.4));
    EXPECT_FALSE(PXGradient::preset("init"));
}

TEST(Gradients, ComeBackFromArchives) {
    const id made = gradientOf({{0.1, 0.2, 0.3, 0.4, 0.5}, {1, 0, 1 / 3.0, 1, 0.25}, {0, 0, 0, 0, 0.5}}, 2);
    const id back = roundTrip(made);
    EXPECT_TRUE(velt::isEqual(made, back));
    EXPECT_NE(made.object(), back.object());
    EXPECT_TRUE(velt::isEqual(velt::make<PXGradient>(), roundTrip(velt::make<PXGradient>())));
}

TEST(Gradients, AreOnlyForCodersWithKeys) {
    const char* reason = "NSInvalidArgumentException: Only supports NSKeyedArchiver coders";
    const id made = between(kRed, kBlue);
    for (const id& coder : {id(velt::make<NSCoder>()), id(), str("coder")}) {
        EXPECT_RAISES(reason, velt::send(made, "encodeWithCoder:", coder));
        EXPECT_RAISES(reason, velt::send(velt::make<PXGradient>(), "initWithCoder:", coder));
    }
    EXPECT_VALUE("c 0", velt::send(velt::make<NSCoder>(), "allowsKeyedCoding"));
    EXPECT_VALUE("c 1", velt::send(velt::make<NSKeyedArchiver>(), "allowsKeyedCoding"));
}

namespace {

/// What is read from an archive of one gradient with such content.
template <class... Values> std::string readGradient(const Values&... content) {
    return velt::utf8(velt::description(
        unarchived(archiveOf(dictionary(str("$class"), uid(2), content...), archivedClass("PXGradient", "NSObject")))));
}
id record(double red, double position) {
    std::string bytes;
    for (const double part : {red, 0.0, 0.0, 1.0, position}) {
        bytes.append(reinterpret_cast<const char*>(&part), sizeof part);
    }
    return velt::test::data(bytes);
}
const id kCount = str("PXGradientElementCount"), kMode = str("PXGradientBlendingMode"),
         kFirst = str("PXGradientElement0");

}  // namespace

TEST(Gradients, AreNotReadFromDamagedArchives) {
    EXPECT_EQ("<a gradient lacks a stop>", readGradient(kCount, integer(1), kMode, integer(0)));
    EXPECT_EQ("<a gradient lacks a stop>", readGradient(kCount, integer(2), kMode, integer(0), kFirst, record(1, 0)));
    EXPECT_EQ("<a gradient lacks a stop>", readGradient(kCount, integer(1), kMode, integer(0), kFirst, data("red")));
    EXPECT_EQ("<a gradient's stop is not of numbers>",
              readGradient(kCount, integer(1), kMode, integer(0), kFirst, record(0, std::nan(""))));
    EXPECT_EQ("<a gradient's stop is not of numbers>",
              readGradient(kCount, integer(1), kMode, integer(0), kFirst, record(INFINITY, 0)));
    EXPECT_EQ("<a gradient has no number of stops>", readGradient(kCount, integer(-1), kMode, integer(0)));
    EXPECT_EQ("<the value under key 'PXGradientElementCount' is no number of 32 bits>",
              readGradient(kCount, integer(1L << 32), kMode, integer(0)));
}

class GeneratedGradients : public Generated {
protected:
    double part() {
        // Whole and equal components are the cases of their own.
        if (const std::size_t kind = below(4); kind < 2) return static_cast<double>(kind);
        return static_cast<double>(bits() >> 11) * 0x1p-53;
    }
    SlowStop stop() { return {part(), part(), part(), part(), part()}; }
};

TEST_F(GeneratedGradients, HaveTheColoursThatASlowComputationGives) {
    for (int i = iterations(10'000); i > 0; --i) {
        std::vector<SlowStop> stops(below(18));
        for (SlowStop& one : stops) one = stop();
        const int mode = static_cast<int>(below(3));
        const id made = gradientOf(stops, mode);
        std::vector<double> positions{-0.5, 0, 1, 1.5, part(), part(), part()};
        for (const SlowStop& one : stops) positions.push_back(one.position);
        for (const double position : positions) {
            const SlowColor slow = slowColorAt(stops, mode, position);
            const auto parts = velt::as<NSColor>(velt::send(made, "colorAtPosition:", real(position)))->components();
            const double quick[] = {parts.red, parts.green, parts.blue, parts.alpha};
            for (int k = 0; k < 4; ++k) {
                ASSERT_NEAR(slow.part[k], quick[k], 1e-9) << "mode " << mode << " at " << position << " part " << k;
            }
        }
    }
}

TEST_F(GeneratedGradients, ComeBackFromArchivesAsTheyWere) {
    for (int i = iterations(300); i > 0; --i) {
        std::vector<SlowStop> stops(below(8));
        for (SlowStop& one : stops) one = stop();
        const id made = gradientOf(stops, static_cast<int>(below(3)));
        ASSERT_TRUE(velt::isEqual(made, roundTrip(made)));
    }
}
