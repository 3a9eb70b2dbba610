// What every constructor of a view or control makes, and what all of them do alike.
#include "support/control_window.h"

using namespace velt::test;
using velt::Ref;

namespace {

struct Constructor {
    const char* name;
    id (*make)(const id&, const char*);
    const char* className;
    bool hasAction = true;
};

constexpr bool kNoAction = false;

const Constructor kConstructors[] = {
    {"PUSHBUTTON", VELT_PUSHBUTTON_INIT, "NSButton"},
    {"BEVELBUTTON", VELT_BEVELBUTTON_INIT, "NSButton"},
    {"DISCLOSURETRIANGLE", VELT_DISCLOSURETRIANGLE_INIT, "NSButton"},
    {"SQUAREBUTTON", VELT_SQUAREBUTTON_INIT, "NSButton"},
    {"TEXTUREDBUTTON", VELT_TEXTUREDBUTTON_INIT, "NSButton"},
    {"HELPBUTTON", VELT_HELPBUTTON_INIT, "NSButton"},
    {"GRADIENTBUTTON", VELT_GRADIENTBUTTON_INIT, "NSButton"},
    {"ROUNDEDTEXTUREDBUTTON", VELT_ROUNDEDTEXTUREDBUTTON_INIT, "NSButton"},
    {"ROUNDEDRECTBUTTON", VELT_ROUNDEDRECTBUTTON_INIT, "NSButton"},
    {"RECESSEDBUTTON", VELT_RECESSEDBUTTON_INIT, "NSButton"},
    {"DISCLOSUREBUTTON", VELT_DISCLOSUREBUTTON_INIT, "NSButton"},
    {"ROUNDBUTTON", VELT_ROUNDBUTTON_INIT, "NSButton"},
    {"CHECKBOX", VELT_CHECKBOX_INIT, "NSButton"},
    {"RADIOBUTTON", VELT_RADIOBUTTON_INIT, "NSButton"},
    {"NSBUTTON", VELT_NSBUTTON_INIT, "NSButton"},
    {"LABEL", VELT_LABEL_INIT, "NSTextField"},
    {"NSTEXTFIELD", VELT_NSTEXTFIELD_INIT, "NSTextField"},
    {"NSSECURETEXTFIELD", VELT_NSSECURETEXTFIELD_INIT, "NSSecureTextField"},
    {"NSSEARCHFIELD", VELT_NSSEARCHFIELD_INIT, "NSSearchField"},
    {"NSTOKENFIELD", VELT_NSTOKENFIELD_INIT, "NSTokenField"},
    {"NSTEXTVIEW", VELT_NSTEXTVIEW_INIT, "NSTextView", kNoAction},
    {"NSSEGMENTEDCONTROL", VELT_NSSEGMENTEDCONTROL_INIT, "NSSegmentedControl"},
    {"NSSLIDER", VELT_NSSLIDER_INIT, "NSSlider"},
    {"CIRCULARSLIDER", VELT_CIRCULARSLIDER_INIT, "NSSlider"},
    {"NSPROGRESSINDICATOR", VELT_NSPROGRESSINDICATOR_INIT, "NSProgressIndicator", kNoAction},
    {"INDETERMINATEPROGRESSINDICATOR", VELT_INDETERMINATEPROGRESSINDICATOR_INIT, "NSProgressIndicator", kNoAction},
    {"CIRCULARPROGRESSINDICATOR", VELT_CIRCULARPROGRESSINDICATOR_INIT, "NSProgressIndicator", kNoAction},
    {"NSLEVELINDICATOR", VELT_NSLEVELINDICATOR_INIT, "NSLevelIndicator"},
    {"NSSTEPPER", VELT_NSSTEPPER_INIT, "NSStepper"},
    {"NSDATEPICKER", VELT_NSDATEPICKER_INIT, "NSDatePicker"},
    {"NSCOLORWELL", VELT_NSCOLORWELL_INIT, "NSColorWell"},
    {"NSPATHCONTROL", VELT_NSPATHCONTROL_INIT, "NSPathControl"},
    {"NSPOPUPBUTTON", VELT_NSPOPUPBUTTON_INIT, "NSPopUpButton"},
    {"NSCOMBOBOX", VELT_NSCOMBOBOX_INIT, "NSComboBox"},
    {"NSBROWSER", VELT_NSBROWSER_INIT, "NSBrowser"},
    {"NSOUTLINEVIEW", VELT_NSOUTLINEVIEW_INIT, "NSOutlineView"},
    {"NSIMAGEVIEW", VELT_NSIMAGEVIEW_INIT, "NSImageView"},
    {"NSVIEW", VELT_NSVIEW_INIT, "NSView", kNoAction},
    {"CUSTOMVIEW", VELT_CUSTOMVIEW_INIT, "NSView", kNoAction},
    {"NSBOX", VELT_NSBOX_INIT, "NSBox", kNoAction},
    {"VERTICALLINE", VELT_VERTICALLINE_INIT, "NSBox", kNoAction},
    {"HORIZONTALLINE", VELT_HORIZONTALLINE_INIT, "NSBox", kNoAction},
    {"NSTABVIEW", VELT_NSTABVIEW_INIT, "NSTabView", kNoAction},
    {"NSSCROLLVIEW", VELT_NSSCROLLVIEW_INIT, "NSScrollView", kNoAction},
    {"NSSPLITVIEW", VELT_NSSPLITVIEW_INIT, "NSSplitView", kNoAction},
    {"VERTICALSPLITVIEW", VELT_VERTICALSPLITVIEW_INIT, "NSSplitView", kNoAction},
    {"HORIZONTALSPLITVIEW", VELT_HORIZONTALSPLITVIEW_INIT, "NSSplitView", kNoAction},
};

}  // namespace

TEST(Constructors, MakeAViewOfNoSizeInNoWindow) {
    for (const Constructor& constructor : kConstructors) {
        const id view = constructor.make(nil, "");
        EXPECT_EQ(constructor.className, velt::classOf(view)->name()) << constructor.name;
        EXPECT_EQ(NSRect{}, VELT_CNSRECT(VELT_NSVIEW_FRAME(view))) << constructor.name;
        EXPECT_TRUE(ask(view, "superview").isNil()) << constructor.name;
        EXPECT_TRUE(VELT_NSVIEW_WINDOW(view).isNil()) << constructor.name;
    }
}

TEST(Constructors, SetAnActionThatTheOwnerHas) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    for (const Constructor& constructor : kConstructors) {
        if (!constructor.hasAction) continue;
        const id view = constructor.make(owner, "act:");
        EXPECT_VALUE("'act:'", ask(view, "action")) << constructor.name;
        EXPECT_EQ(id(owner), VELT_NSCONTROL_TARGET(view)) << constructor.name;
    }
}

TEST(Constructors, SetNeitherActionNorTargetWhenTheOwnerLacksTheAction) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    for (const Constructor& constructor : kConstructors) {
        const id view = constructor.make(owner, "unknown:");
        if (!constructor.hasAction) continue;
        EXPECT_TRUE(ask(view, "action").isNil()) << constructor.name;
        EXPECT_TRUE(VELT_NSCONTROL_TARGET(view).isNil()) << constructor.name;
        // No target: nothing is bound until there is one.
        VELT_NSCONTROL_ACTIONNAME(view, str("act"));
        EXPECT_TRUE(ask(view, "action").isNil()) << constructor.name;
        VELT_NSCONTROL_TARGET(view, owner);
        VELT_NSCONTROL_ACTIONNAME(view, str("act"));
        EXPECT_VALUE("'act:'", ask(view, "action")) << constructor.name;
        EXPECT_VALUE("''", VELT_NSCONTROL_ACTIONNAME(view)) << constructor.name;
    }
}

TEST(Constructors, MakeTheOwnerTheDelegateOfWhatTextIsTypedInto) {
    const Ref<ActionCounter> owner = velt::make<ActionCounter>();
    for (const auto make : {VELT_LABEL_INIT, VELT_NSTEXTFIELD_INIT, VELT_NSSECURETEXTFIELD_INIT,
                            VELT_NSSEARCHFIELD_INIT, VELT_NSTOKENFIELD_INIT}) {
        EXPECT_EQ(id(owner), VELT_NSTEXTFIELD_DELEGATE(make(owner, "")));
    }
    EXPECT_EQ(id(owner), VELT_NSTEXTVIEW_DELEGATE(VELT_NSTEXTVIEW_INIT(owner, "")));
}

TEST(Constructors, GiveEachKindItsExtraSettings) {
    const id label = VELT_LABEL_INIT(nil, "");
    for (const char* flag : {"isEditable", "isSelectable", "isBezeled", "isBordered"}) {
        EXPECT_VALUE("c 0", ask(label, flag)) << flag;
    }
    EXPECT_VALUE("q 3", ask(VELT_NSSEGMENTEDCONTROL_INIT(nil, ""), "segmentCount"));
    EXPECT_VALUE("Q 1", ask(VELT_NSCONTROL_CELL(VELT_CIRCULARSLIDER_INIT(nil, "")), "sliderType"));
    EXPECT_VALUE("c 0", ask(VELT_NSPROGRESSINDICATOR_INIT(nil, ""), "isIndeterminate"));
    EXPECT_VALUE("c 1", ask(VELT_INDETERMINATEPROGRESSINDICATOR_INIT(nil, ""), "isIndeterminate"));
    EXPECT_VALUE("Q 1", ask(VELT_CIRCULARPROGRESSINDICATOR_INIT(nil, ""), "style"));
    EXPECT_VALUE("c 1", ask(VELT_VERTICALSPLITVIEW_INIT(nil, ""), "isVertical"));
    EXPECT_VALUE("c 0", ask(VELT_HORIZONTALSPLITVIEW_INIT(nil, ""), "isVertical"));
    // A line is a plain box until the program sets its type: programs rely on it.
    EXPECT_VALUE("Q 0", VELT_NSBOX_BOXTYPE(VELT_VERTICALLINE_INIT(nil, "")));
    EXPECT_VALUE("Q 0", VELT_NSBOX_BOXTYPE(VELT_HORIZONTALLINE_INIT(nil, "")));
}

TEST(Constructors, OfWindowsGiveThemTheirButtons) {
    const id window = VELT_NSWINDOW_INIT(nil, "anything:");
    EXPECT_VALUE("Q 15", VELT_NSWINDOW_STYLEMASK(window));
    EXPECT_EQ(window, VELT_NSWINDOW_DELEGATE(window));
    const id panel = VELT_NSPANEL_INIT(nil, "anything:");
    EXPECT_VALUE("Q 11", VELT_NSWINDOW_STYLEMASK(panel));
    EXPECT_TRUE(VELT_NSWINDOW_DELEGATE(panel).isNil());
}

TEST(WindowRectangles, AreZeroForNoWindow) {
    EXPECT_EQ(NSRect{}, VELT_CNSRECT(VELT_NSWINDOW_FRAME(nil)));
    EXPECT_EQ(NSRect{}, VELT_CNSRECT(VELT_NSWINDOW_CONTENTRECTFORFRAMERECT(nil, rect(1, 2, 300, 400))));
    EXPECT_EQ(NSRect{}, VELT_CNSRECT(VELT_NSWINDOW_FRAMERECTFORCONTENTRECT(nil, rect(1, 2, 300, 400))));
    EXPECT_VALUE("d 0", VELT_NSWINDOW_X(nil));
    EXPECT_VALUE("d 0", VELT_NSWINDOW_WIDTH(nil));
    EXPECT_CAST_FAILURE("'Rect' expected", VELT_NSWINDOW_CONTENTRECTFORFRAMERECT(nil, str("x")));
}

TEST(WindowRectangles, OfFrameAndContentAreEachOthersOpposite) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    const id content = rect(30, 40, 300, 200);
    const id frame = VELT_NSWINDOW_FRAMERECTFORCONTENTRECT(window, content);
    EXPECT_EQ((NSRect{{30, 40}, {300, 200}}), VELT_CNSRECT(VELT_NSWINDOW_CONTENTRECTFORFRAMERECT(window, frame)));
    EXPECT_LT(200, VELT_CNSRECT(frame).size.height) << "a titled window's frame is higher than its content";
}

TEST(WindowTitles, NeedMoreRoomTheLongerTheyAre) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    const id little = VELT_NSWINDOW_MINFRAMEWIDTHWITHTITLE(window, str("a"));
    const id much = VELT_NSWINDOW_MINFRAMEWIDTHWITHTITLE(window, str("a title of a good many words"));
    EXPECT_LT(VELT_CDOUBLE(little), VELT_CDOUBLE(much));
}

TEST(DocumentIcons, BelongToTheWindowsDocumentButton) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    EXPECT_TRUE(VELT_NSWINDOW_DOCUMENTICON(nil).isNil());
    const id image = velt::make<NSImage>();
    VELT_NSWINDOW_DOCUMENTICON(window, image);
    EXPECT_EQ(image, VELT_NSWINDOW_DOCUMENTICON(window));
    EXPECT_CAST_FAILURE("'NSImage' expected", VELT_NSWINDOW_DOCUMENTICON(window, integer(1)));
    EXPECT_EQ(image, VELT_NSWINDOW_DOCUMENTICON(window));
}
