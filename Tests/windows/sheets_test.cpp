// Sheets on their windows, alone and with sessions and alerts around them.
#include "panels_support.h"
#include "support/patience.h"

using namespace velt::test;
using velt::Ref;

namespace {

NSRect frameOf(const id& window) { return VELT_CNSRECT(VELT_NSWINDOW_FRAME(window)); }

struct ToolbarStandIn : public NSObject {
    VELT_OBJECT(ToolbarStandIn, NSObject)

public:
    void Show() { ++shown; }
    static void describe(velt::ClassBuilder<ToolbarStandIn>& c) { c.method("Show", &ToolbarStandIn::Show); }
    int shown = 0;
};

}  // namespace

TEST(AlertSheets, TellTheirDelegateTheButtonAndTheContext) {
    const ControlWindow window({{50, 60}, {480, 300}});
    window.show();
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    for (const auto& [title, code] : {std::pair("Save", 1000), std::pair("Cancel", 1001), std::pair("Discard", 1002)}) {
        EXPECT_TRUE(VELT_BEGINALERTSHEET(delegate, "Save?"_v, "It is lost otherwise."_v, integer(12), "Save"_v,
                                         "Cancel"_v, "Discard"_v)
                        .isNil());
        Ref<NSWindow> sheet = waitForSheet(window.window);
        ASSERT_TRUE(sheet);
        EXPECT_EQ("Save?|It is lost otherwise.|[Save][Cancel][Discard]", readAlert(*sheet));
        keepPicture(sheet->widget(), "alert-sheet");
        clickButton(*sheet, title);
        EXPECT_EQ("NSAlert q " + std::to_string(code) + " '12' ", std::exchange(delegate->heard, ""));
        EXPECT_FALSE(sheet->isVisible());
        EXPECT_TRUE(velt::as<NSWindow>(window.window)->attachedSheet().isNil());
    }
}

TEST(AlertSheets, AreFollowedByWhatTheirDelegateBegins) {
    const ControlWindow window({{50, 60}, {480, 300}});
    window.show();
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    const auto begin = [&](const char* message) {
        VELT_BEGINALERTSHEET(delegate, str(message), "I"_v, "c"_v, "Yes"_v, nil, nil);
    };
    begin("First");
    delegate->then = [&] { begin("Second"); };
    Ref<NSWindow> first = waitForSheet(window.window);
    ASSERT_TRUE(first);
    pressKey(*first, Qt::Key_Return);
    Ref<NSWindow> second = waitForSheet(window.window);
    ASSERT_TRUE(second);
    EXPECT_EQ("Second|I|[Yes]", readAlert(*second));
    EXPECT_FALSE(first->isVisible());
    pressKey(*second, Qt::Key_Return);
    EXPECT_TRUE(hasKeyboard(*velt::as<NSWindow>(window.window)));
    EXPECT_TRUE(velt::as<NSWindow>(window.window)->attachedSheet().isNil());
}

TEST(AlertSheets, HaveTheButtonsThatAreNotNilInTheirOrder) {
    const ControlWindow window;
    window.show();
    VELT_BEGINALERTSHEET(nil, "M"_v, "I"_v, "c"_v, nil, "Two"_v, integer(3));
    Ref<NSWindow> sheet = waitForSheet(window.window);
    ASSERT_TRUE(sheet);
    EXPECT_EQ("M|I|[Two][3]", readAlert(*sheet));
    pressKey(*sheet, Qt::Key_Return);
    EXPECT_FALSE(sheet->isVisible());
    VELT_BEGINALERTSHEET(nil, "M"_v, "I"_v, "c"_v, nil, nil, nil);
    sheet = waitForSheet(window.window);
    ASSERT_TRUE(sheet);
    EXPECT_EQ("M|I|[OK]", readAlert(*sheet));
    pressKey(*sheet, Qt::Key_Return);
}

TEST(AlertSheets, RaiseBeforeAnythingIsShown) {
    const ControlWindow window;
    window.show();
    const std::string failure = raised([] { VELT_CSTRING(nil); });
    EXPECT_RAISES(failure, VELT_BEGINALERTSHEET(nil, "M"_v, "I"_v, nil, nil, nil, nil));
    EXPECT_RAISES(failure, VELT_BEGINALERTSHEET(nil, nil, "I"_v, "c"_v, nil, nil, nil));
    EXPECT_RAISES(failure, VELT_BEGINALERTSHEET(nil, "M"_v, nil, "c"_v, nil, nil, nil));
    EXPECT_TRUE(velt::as<NSWindow>(window.window)->attachedSheet().isNil());
}

TEST(Sheets, EndWithACodeOrWithoutOne) {
    const ControlWindow window({{50, 60}, {480, 300}});
    window.show();
    const id sheet = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_CONTENTSIZE(sheet, size(200, 100));
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    VELT_BEGINSHEET(delegate, sheet, "context"_v);
    ASSERT_EQ(velt::as<NSWindow>(sheet), waitForSheet(window.window).get());
    EXPECT_TRUE(velt::as<NSWindow>(sheet)->isSheet());
    EXPECT_TRUE(VELT_ENDSHEET(sheet, integer(7)).isNil());
    EXPECT_EQ("NSWindow q 7 'context' ", std::exchange(delegate->heard, ""));
    EXPECT_FALSE(velt::as<NSWindow>(sheet)->isSheet());
    EXPECT_VALUE("c 0", VELT_NSWINDOW_VISIBLE(sheet));
    VELT_BEGINSHEET(delegate, sheet, "again"_v);
    ASSERT_TRUE(waitForSheet(window.window));
    VELT_ENDSHEET(sheet, nil);
    EXPECT_EQ("NSWindow q -1000 'again' ", delegate->heard);
    // It is no sheet any more: nothing happens.
    VELT_ENDSHEET(sheet, integer(1));
    VELT_ENDSHEET(nil, integer(1));
    EXPECT_EQ("NSWindow q -1000 'again' ", delegate->heard);
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_ENDSHEET(sheet, array()));
    EXPECT_CAST_FAILURE("'NSWindow' expected", VELT_ENDSHEET("sheet"_v, nil));
}

TEST(Sheets, StayOnTheScreenUntilTheDelegateTakesThemAway) {
    const ControlWindow window({{50, 60}, {480, 300}});
    window.show();
    const ControlWindow sheet;
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    delegate->ordersOut = false;
    VELT_BEGINSHEET(delegate, sheet.window, ""_v);
    ASSERT_TRUE(waitForSheet(window.window));
    VELT_ENDSHEET(sheet.window, nil);
    EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(sheet.window));
    EXPECT_EQ(Qt::NonModal, sheet.widget().windowModality());
}

TEST(Sheets, LieAtTheTopOfTheirWindowAndFollowIt) {
    const ControlWindow window({{100, 100}, {480, 322}});
    window.show();
    const ControlWindow sheet({{0, 0}, {200, 122}});
    VELT_BEGINSHEET(nil, sheet.window, ""_v);
    ASSERT_TRUE(waitForSheet(window.window));
    const auto expectAtTheTop = [&] {
        // The window system may report where it had put the sheet before.
        EXPECT_TRUE(comesTrue([&] {
            const NSRect frame = frameOf(window.window), own = frameOf(sheet.window);
            return frame.origin.x + (frame.size.width - own.size.width) / 2 == own.origin.x &&
                   frame.origin.y + frame.size.height == own.origin.y + own.size.height;
        })) << show(VELT_ID(frameOf(window.window)))
            << show(VELT_ID(frameOf(sheet.window)));
    };
    expectAtTheTop();
    VELT_NSWINDOW_MOVE(window.window, point(140, 160));
    expectAtTheTop();
    VELT_NSWINDOW_FRAME(window.window, rect(80, 90, 600, 400));
    expectAtTheTop();
    VELT_ENDSHEET(sheet.window, nil);
}

TEST(Sheets, KeepAPersonFromTheirWindowAlone) {
    const ControlWindow window({{50, 60}, {300, 300}}), other({{400, 60}, {300, 300}}), sheet({{0, 0}, {100, 80}});
    const auto addButton = [](const ControlWindow& shown) {
        const id button = VELT_PUSHBUTTON_INIT(shown.listener, "click:");
        VELT_NSBUTTON_TITLE(button, "Press"_v);
        VELT_NSVIEW_FRAME(button, rect(10, 10, 100, 30));
        VELT_NSWINDOW_APPEND(shown.window, button);
        return button;
    };
    const id first = addButton(window), second = addButton(other);
    other.show();
    window.show();
    VELT_BEGINSHEET(nil, sheet.window, ""_v);
    ASSERT_TRUE(waitForSheet(window.window));
    clickAt(velt::as<NSView>(first)->widget());
    EXPECT_EQ("", window.heard());
    clickAt(velt::as<NSView>(second)->widget());
    EXPECT_EQ("Press ", other.heard());
    VELT_ENDSHEET(sheet.window, nil);
    VELT_NSWINDOW_HIDE(sheet.window);
    clickAt(velt::as<NSView>(first)->widget());
    EXPECT_EQ("Press ", window.heard());
}

TEST(Sheets, WaitForTheOneBeforeThem) {
    const ControlWindow window({{50, 60}, {480, 300}}), first, second;
    window.show();
    NSApplication& application = NSApplication::sharedApplication();
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    NSWindow* leader = velt::as<NSWindow>(window.window);
    for (const id& sheet : {first.window, second.window}) {
        application.beginSheet(velt::as<NSWindow>(sheet), leader, delegate, "sheetDidEnd:returnCode:contextInfo:"_v,
                               nil);
    }
    EXPECT_EQ(first.window, leader->attachedSheet());
    EXPECT_VALUE("c 0", VELT_NSWINDOW_VISIBLE(second.window));
    VELT_ENDSHEET(first.window, integer(1));
    EXPECT_EQ(second.window, leader->attachedSheet());
    EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(second.window));
    VELT_ENDSHEET(second.window, integer(2));
    EXPECT_EQ("NSWindow q 1 nil NSWindow q 2 nil ", delegate->heard);
}

TEST(Sheets, MayHaveSheetsOfTheirOwn) {
    const ControlWindow window({{50, 60}, {480, 300}}), first({{0, 0}, {300, 200}});
    window.show();
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    VELT_BEGINSHEET(delegate, first.window, "outer"_v);
    ASSERT_TRUE(waitForSheet(window.window));
    VELT_BEGINALERTSHEET(delegate, "Sure?"_v, "I"_v, "inner"_v, "Yes"_v, nil, nil);
    Ref<NSWindow> inner = waitForSheet(first.window);
    ASSERT_TRUE(inner);
    pressKey(*inner, Qt::Key_Return);
    VELT_ENDSHEET(first.window, integer(3));
    EXPECT_EQ("NSAlert q 1000 'inner' NSWindow q 3 'outer' ", delegate->heard);
}

TEST(Sheets, MayBeBegunByTheDelegateOfTheOneBefore) {
    const ControlWindow window({{50, 60}, {480, 300}}), next;
    window.show();
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    delegate->then = [&] {
        NSApplication::sharedApplication().beginSheet(velt::as<NSWindow>(next.window),
                                                      velt::as<NSWindow>(window.window), delegate,
                                                      "sheetDidEnd:returnCode:contextInfo:"_v, "next"_v);
    };
    VELT_BEGINALERTSHEET(delegate, "M"_v, "I"_v, "first"_v, "OK"_v, nil, nil);
    Ref<NSWindow> sheet = waitForSheet(window.window);
    ASSERT_TRUE(sheet);
    pressKey(*sheet, Qt::Key_Return);
    EXPECT_EQ(velt::as<NSWindow>(next.window), waitForSheet(window.window).get());
    VELT_ENDSHEET(next.window, integer(4));
    EXPECT_EQ("NSAlert q 1000 'first' NSWindow q 4 'next' ", delegate->heard);
}

TEST(Sheets, AndSessionsNestInEveryOrder) {
    const ControlWindow window({{50, 60}, {480, 300}}), sheet({{0, 0}, {300, 200}});
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    std::string order;
    // A sheet on the window of a session, an alert above the sheet.
    onceAsked([&](NSWindow& shown) {
        VELT_BEGINSHEET(delegate, sheet.window, "on a session"_v);
        onceThat([&] { return velt::as<NSWindow>(sheet.window)->isKeyWindow(); },
                 [&] {
                     onceAsked([&](NSWindow& panel) {
                         order += readAlert(panel) + " ";
                         pressKey(panel, Qt::Key_Return);
                     });
                     order += show(VELT_MSGBOX("above"_v, nil)) + " ";
                     EXPECT_EQ(&shown, modalWindow());
                     VELT_ENDSHEET(sheet.window, integer(8));
                     VELT_ENDMODAL(integer(9));
                 });
    });
    order += show(VELT_BEGINMODAL(window.window));
    EXPECT_EQ("-|above|[OK] q 1 q 9", order);
    EXPECT_EQ("NSWindow q 8 'on a session' ", delegate->heard);
    EXPECT_TRUE(velt::as<NSWindow>(window.window)->attachedSheet().isNil());
}

TEST(Sheets, EndWithTheirWindow) {
    const ControlWindow sheet;
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    {
        const ControlWindow window({{50, 60}, {480, 300}});
        window.show();
        VELT_BEGINSHEET(delegate, sheet.window, "c"_v);
        ASSERT_TRUE(waitForSheet(window.window));
        VELT_NSWINDOW_HIDE(window.window);
        EXPECT_VALUE("c 0", VELT_NSWINDOW_VISIBLE(sheet.window));
        VELT_NSWINDOW_SHOW(window.window);
        EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(sheet.window));
        EXPECT_EQ("", delegate->heard);
    }
    EXPECT_EQ("NSWindow q -1001 'c' ", delegate->heard);
    EXPECT_VALUE("c 0", VELT_NSWINDOW_VISIBLE(sheet.window));
}

TEST(Sheets, StandAloneWithoutAKeyWindow) {
    const id sheet = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_CONTENTSIZE(sheet, size(200, 100));
    const Ref<SheetListener> delegate = velt::make<SheetListener>();
    NSApplication::sharedApplication().beginSheet(velt::as<NSWindow>(sheet), nullptr, delegate,
                                                  "sheetDidEnd:returnCode:contextInfo:"_v, nil);
    EXPECT_VALUE("c 1", VELT_NSWINDOW_VISIBLE(sheet));
    EXPECT_FALSE(velt::as<NSWindow>(sheet)->isSheet());
    VELT_ENDSHEET(sheet, integer(1));
    EXPECT_EQ("NSWindow q 1 nil ", delegate->heard);
}

TEST(Sheets, TellTheirToolbarToShow) {
    const ControlWindow window({{50, 60}, {480, 300}}), sheet;
    window.show();
    const Ref<ToolbarStandIn> toolbar = velt::make<ToolbarStandIn>();
    velt::as<NSWindow>(sheet.window)->setToolbar(toolbar);
    VELT_BEGINSHEET(nil, sheet.window, ""_v);
    EXPECT_EQ(0, toolbar->shown);
    EXPECT_TRUE(comesTrue([&] { return toolbar->shown == 1; }));
    VELT_ENDSHEET(sheet.window, nil);
    velt::as<NSWindow>(sheet.window)->setToolbar(nil);
}
