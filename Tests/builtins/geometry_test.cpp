#include "support/generated.h"
#include "support/values.h"

using namespace velt::test;

namespace {
std::string rectText(std::string_view fields) {
    std::string text = "{CGRect={CGPoint=dd}{CGSize=dd}} ";
    return text.append(fields);
}
}  // namespace

TEST(GeometryConstructors, CutFractionsOff) {
    EXPECT_VALUE("{CGPoint=dd} {1, -1}", VELT_POINT_INIT(nil, nullptr, real(1.9), real(-1.9)));
    EXPECT_VALUE("{CGSize=dd} {3, 4}", VELT_SIZE_INIT(nil, "x", str("3.7"), integer(4)));
    EXPECT_VALUE("{_NSRange=QQ} {18446744073709551615, 2}", VELT_RANGE_INIT(nil, "", integer(-1), integer(2)));
    EXPECT_VALUE(rectText("{{1, 2}, {3, 4}}"), VELT_RECT_INIT(nil, "", integer(1), integer(2), integer(3), integer(4)));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_POINT_INIT(nil, "", nil, integer(1)));
}

TEST(GeometrySetters, ReplaceOneFieldAndKeepTheOthersFraction) {
    id variable = point(5.5, 6.5);
    const id old = variable;
    const id result = VELT_POINT_X(&variable, real(2.7));
    EXPECT_VALUE("{CGPoint=dd} {2, 6.5}", variable);
    EXPECT_TRUE(result == variable);
    EXPECT_VALUE("{CGPoint=dd} {5.5, 6.5}", old);
    variable = rect(1, 2, 3, 4);
    VELT_RECT_ORIGIN(&variable, point(9.5, 8));
    VELT_RECT_SIZE(&variable, size(7, 6.5));
    EXPECT_VALUE(rectText("{{9.5, 8}, {7, 6.5}}"), variable);
    variable = range(1, 2);
    VELT_RANGE_LENGTH(&variable, integer(-1));
    EXPECT_VALUE("{_NSRange=QQ} {1, 18446744073709551615}", variable);
}

TEST(GeometryFields, RejectOtherKindsAndLeaveTheVariable) {
    id variable = size(1, 2);
    const id before = variable;
    EXPECT_CAST_FAILURE("'Point' expected", VELT_POINT_X(&variable, integer(1)));
    EXPECT_CAST_FAILURE("'Point' expected", VELT_POINT_Y(&variable, integer(1)));
    EXPECT_CAST_FAILURE("'Rect' expected", VELT_RECT_ORIGIN(&variable, point(1, 1)));
    EXPECT_CAST_FAILURE("'Rect' expected", VELT_RECT_SIZE(&variable, size(1, 1)));
    EXPECT_CAST_FAILURE("'Range' expected", VELT_RANGE_LOCATION(&variable, integer(1)));
    EXPECT_CAST_FAILURE("'Range' expected", VELT_RANGE_LENGTH(&variable, integer(1)));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_SIZE_WIDTH(&variable, nil));
    EXPECT_TRUE(variable == before);
    EXPECT_CAST_FAILURE("'Point' expected", VELT_POINT_X(size(1, 2)));
    EXPECT_CAST_FAILURE("'Size' expected", VELT_SIZE_WIDTH(point(1, 2)));
    EXPECT_CAST_FAILURE("'Size' expected", VELT_SIZE_HEIGHT(nil));
    EXPECT_CAST_FAILURE("'Rect' expected", VELT_RECT_SIZE(integer(1)));
    EXPECT_CAST_FAILURE("'Range' expected", VELT_RANGE_LENGTH(str("x")));
    id rectangle = rect(1, 2, 3, 4);
    EXPECT_CAST_FAILURE("'Point' expected", VELT_RECT_ORIGIN(&rectangle, str("x")));
}

TEST(GeometryGetters, BoxTheirFields) {
    EXPECT_VALUE("d 1.5", VELT_POINT_X(point(1.5, 2)));
    EXPECT_VALUE("d 2", VELT_POINT_Y(NSPoint{1.5, 2}));
    EXPECT_VALUE("d 3", VELT_SIZE_WIDTH(size(3, 4)));
    EXPECT_VALUE("d 4", VELT_SIZE_HEIGHT(NSSize{3, 4}));
    EXPECT_VALUE("{CGPoint=dd} {1, 2}", VELT_RECT_ORIGIN(rect(1, 2, 3, 4)));
    EXPECT_VALUE("{CGSize=dd} {3, 4}", VELT_RECT_SIZE(NSRect{{1, 2}, {3, 4}}));
    EXPECT_VALUE("Q 18446744073709551615", VELT_RANGE_LOCATION(VELT_RANGE_INIT(nil, "", integer(-1), integer(0))));
    EXPECT_VALUE("Q 2", VELT_RANGE_LENGTH(NSRange{1, 2}));
}

TEST(Rectangles, FollowTheirEdgeRules) {
    const id inset = VELT_INSETRECT(rect(0, 0, 10, 10), integer(6), real(6.9));
    EXPECT_VALUE(rectText("{{6, 6}, {-2, -2}}"), inset);
    EXPECT_VALUE("c 1", VELT_ISEMPTYRECT(inset));
    EXPECT_VALUE("c 0", VELT_POINTINRECT(point(10, 5), rect(0, 0, 10, 10)));
    EXPECT_VALUE("c 1", VELT_POINTINRECT(point(0, 0), rect(0, 0, 10, 10)));
    EXPECT_VALUE("c 0", VELT_INTERSECTSRECT(rect(0, 0, 10, 10), rect(10, 0, 5, 5)));
    EXPECT_VALUE(rectText("{{0, 0}, {0, 0}}"), VELT_INTERSECTIONRECT(rect(0, 0, 10, 10), rect(10, 0, 5, 5)));
    EXPECT_VALUE("c 0", VELT_CONTAINSRECT(rect(0, 0, 10, 10), rect(1, 1, 0, 5)));
    EXPECT_VALUE("c 1", VELT_CONTAINSRECT(rect(0, 0, 10, 10), rect(0, 0, 10, 10)));
    EXPECT_VALUE(rectText("{{1.5, 4}, {3, 4}}"), VELT_OFFSETRECT(rect(0.5, 2, 3, 4), real(1.9), integer(2)));
    EXPECT_VALUE(rectText("{{0, 0}, {0, 0}}"), VELT_UNIONRECT(rect(1, 1, 0, 0), rect(2, 2, -1, 5)));
    EXPECT_VALUE(rectText("{{3, 3}, {1, 1}}"), VELT_UNIONRECT(rect(1, 1, 0, 0), rect(3, 3, 1, 1)));
    EXPECT_CAST_FAILURE("'Rect' expected", VELT_UNIONRECT(str("x"), rect(3, 3, 1, 1)));
    EXPECT_CAST_FAILURE("'Point' expected", VELT_POINTINRECT(nil, rect(3, 3, 1, 1)));
}

class GeneratedRectangles : public Generated {};

TEST_F(GeneratedRectangles, OverlapAsTheirUnitSquaresDo) {
    const auto holds = [](const NSRect& r, int x, int y) {
        return r.origin.x <= x && x < r.origin.x + r.size.width && r.origin.y <= y && y < r.origin.y + r.size.height;
    };
    for (int round = 0; round < iterations(5'000); ++round) {
        const auto any = [this] {
            return NSRect{{double(below(6)), double(below(6))}, {double(below(6)), double(below(6))}};
        };
        const NSRect a = any(), b = any();
        const NSRect both = VELT_CNSRECT(VELT_INTERSECTIONRECT(VELT_ID(a), VELT_ID(b)));
        const NSRect around = VELT_CNSRECT(VELT_UNIONRECT(VELT_ID(a), VELT_ID(b)));
        bool overlap = false, bInA = true, bEmpty = true;
        for (int x = 0; x < 12; ++x) {
            for (int y = 0; y < 12; ++y) {
                const bool inA = holds(a, x, y), inB = holds(b, x, y);
                overlap |= inA && inB;
                bInA &= inA || !inB;
                bEmpty &= !inB;
                ASSERT_EQ(inA && inB, holds(both, x, y));
                ASSERT_TRUE(!(inA || inB) || holds(around, x, y));
            }
        }
        ASSERT_EQ(overlap, VELT_CBOOL(VELT_INTERSECTSRECT(VELT_ID(a), VELT_ID(b))));
        ASSERT_EQ(!bEmpty && bInA, VELT_CBOOL(VELT_CONTAINSRECT(VELT_ID(a), VELT_ID(b))));
    }
}
