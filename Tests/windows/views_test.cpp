// The wrappers of views that are unlike the convention.
#include "support/values.h"
#include "windows/containers_support.h"

#include <thread>

using namespace velt::test;
using velt::Ref;

namespace {

const std::string kRectCode = "{CGRect={CGPoint=dd}{CGSize=dd}} ";

}  // namespace

TEST(ViewWrappers, MakeViewsOfNoSizeInNoView) {
    for (const auto make : {VELT_NSVIEW_INIT, VELT_CUSTOMVIEW_INIT}) {
        const id view = make(str("owner"), "clicked:");
        EXPECT_EQ("NSView", velt::classOf(view)->name());
        EXPECT_EQ(kRectCode + "{{0, 0}, {0, 0}}", show(VELT_NSVIEW_FRAME(view)));
        EXPECT_TRUE(VELT_NSVIEW_WINDOW(view).isNil());
        EXPECT_VALUE("c 1", VELT_NSVIEW_VISIBLE(view));
        EXPECT_VALUE("q -1", VELT_NSVIEW_TAG(view));
    }
}

TEST(ViewWrappers, RemoveAViewFromWhateverHoldsIt) {
    const id one = VELT_NSVIEW_INIT(nil, ""), other = VELT_NSVIEW_INIT(nil, ""), inner = VELT_NSVIEW_INIT(nil, "");
    VELT_NSVIEW_APPEND(one, inner);
    VELT_NSVIEW_REMOVE(other, inner);
    EXPECT_TRUE(velt::as<NSView>(inner)->superview().isNil());
    VELT_NSVIEW_APPEND(one, inner);
    VELT_NSVIEW_REMOVE(str("not looked at"), inner);
    EXPECT_TRUE(velt::as<NSView>(inner)->superview().isNil());
    VELT_NSVIEW_REMOVE(nil, inner);  // it is in none
    VELT_NSVIEW_REMOVE(one, nil);
    EXPECT_CAST_FAILURE("'NSView' expected", VELT_NSVIEW_REMOVE(one, str("view")));
}

TEST(ViewWrappers, ReplaceAView) {
    const id outer = VELT_NSVIEW_INIT(nil, ""), old = VELT_NSVIEW_INIT(nil, ""), with = VELT_NSVIEW_INIT(nil, "");
    VELT_NSVIEW_APPEND(outer, old);
    VELT_NSVIEW_APPEND(outer, VELT_NSVIEW_INIT(nil, ""));
    EXPECT_CAST_FAILURE("'NSView' expected", VELT_NSVIEW_REPLACE(outer, str("old"), with));
    EXPECT_CAST_FAILURE("'NSView' expected", VELT_NSVIEW_REPLACE(outer, old, integer(1)));
    VELT_NSVIEW_REPLACE(outer, old, with);
    EXPECT_EQ(with, id(velt::as<NSView>(outer)->subviewList().front()));
    EXPECT_TRUE(velt::as<NSView>(old)->superview().isNil());
    VELT_NSVIEW_REPLACE(outer, old, VELT_NSVIEW_INIT(nil, ""));  // it is there no more
    EXPECT_EQ(2u, velt::as<NSView>(outer)->subviewList().size());
    VELT_NSVIEW_REPLACE(nil, old, with);
}

TEST(ViewWrappers, SetPartsOfTheFrameAsWholeNumbers) {
    const id view = VELT_NSVIEW_INIT(nil, "");
    VELT_NSVIEW_FRAME(view, rect(1.5, 2.5, 30.5, 40.5));
    VELT_NSVIEW_WIDTH(view, real(120.75));
    VELT_NSVIEW_X(view, str("7.9"));
    VELT_NSVIEW_Y(view, real(-3.9));
    VELT_NSVIEW_HEIGHT(view, boolean(true));
    EXPECT_EQ(kRectCode + "{{7, -3}, {120, 1}}", show(VELT_NSVIEW_FRAME(view)));
    EXPECT_VALUE("d 7", VELT_NSVIEW_X(view));
    EXPECT_VALUE("d 0", VELT_NSVIEW_WIDTH(nil));
    EXPECT_TRUE(VELT_NSVIEW_WIDTH(nil, integer(5)).isNil());
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_NSVIEW_X(view, velt::make<NSObject>()));
    VELT_NSVIEW_MOVE(view, point(1.5, 2.5));
    VELT_NSVIEW_RESIZE(view, size(3.5, 4.5));
    EXPECT_EQ(kRectCode + "{{1.5, 2.5}, {3.5, 4.5}}", show(VELT_NSVIEW_FRAME(view)));
    std::thread([&] {
        const velt::ThreadScope scope;
        EXPECT_RAISES(
            "NSInternalInconsistencyException: VELT_NSVIEW_HEIGHT was called on another thread than the main one, to "
            "which windows and views belong",
            VELT_NSVIEW_HEIGHT(view, integer(1)));
    }).join();
}

TEST(ViewWrappers, ShowAndHide) {
    const id view = VELT_NSVIEW_INIT(nil, "");
    const Shown window(view, {100, 100});
    QWidget& widget = velt::as<NSView>(view)->widget();
    VELT_NSVIEW_HIDE(view);
    EXPECT_VALUE("c 0", VELT_NSVIEW_VISIBLE(view));
    EXPECT_FALSE(widget.isVisible());
    VELT_NSVIEW_VISIBLE(view, str("true"));
    EXPECT_TRUE(widget.isVisible());
    VELT_NSVIEW_VISIBLE(view, integer(0));
    EXPECT_FALSE(widget.isVisible());
    VELT_NSVIEW_SHOW(view);
    EXPECT_VALUE("c 1", VELT_NSVIEW_VISIBLE(view));
    EXPECT_CAST_FAILURE("'Boolean' expected", VELT_NSVIEW_VISIBLE(view, velt::make<NSObject>()));
    EXPECT_VALUE("c 0", VELT_NSVIEW_VISIBLE(nil));
    VELT_NSVIEW_REDRAW(view);
    EXPECT_TRUE(VELT_NSVIEW_DRAWRECT(view, rect(0, 0, 1, 1)).isNil());
}

TEST(ViewWrappers, RefuseToChangeTagAndWindow) {
    const id view = VELT_NSVIEW_INIT(nil, "");
    for (const id& value : {integer(5), view, id()}) {
        EXPECT_CAST_FAILURE("'Tag' could be changed (read only property)", VELT_NSVIEW_TAG(view, value));
        EXPECT_CAST_FAILURE("'Tag' could be changed (read only property)", VELT_NSVIEW_TAG(nil, value));
        EXPECT_CAST_FAILURE("'Window' could be changed (read only property)", VELT_NSVIEW_WINDOW(view, value));
    }
}
