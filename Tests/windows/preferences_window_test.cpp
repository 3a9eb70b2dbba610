// Preferences windows: panes by a toolbar, a window that takes each pane's size, defaults that are watched.
#include "preferences_support.h"

#include "VELTRuntime/platform/appkit/toolbars/toolbar_widget.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/user_defaults.h"
#include "support/displays.h"
#include "support/patience.h"

#include <cmath>

using namespace velt::test;
using velt::Ref;

namespace {

Ref<NSView> pane(double width, double height) {
    Ref<NSView> view = velt::make<NSView>(NSRect{{0, 0}, {width, height}});
    const id field = VELT_NSTEXTFIELD_INIT(nil, "");
    velt::as<NSView>(field)->setFrame({{10, 10}, {80, 22}});
    view->addSubview(velt::as<NSView>(field));
    return view;
}

/// Two panes; how many of them it adds can be said.
struct TwoPanes : public KRPrefsWindowController {
    VELT_OBJECT(TwoPanes, KRPrefsWindowController)

public:
    void addPanes() {
        ++setups;
        const id self(static_cast<NSObject*>(this));
        if (count > 0) velt::send(self, "addView:label:", id(first), str("General"));
        if (count > 1) velt::send(self, "addView:label:", id(second), str("Colours"));
    }
    static void describe(velt::ClassBuilder<TwoPanes>& c) { c.method("setupToolbar", &TwoPanes::addPanes); }

    Ref<NSView> first = pane(300, 120), second = pane(420, 260);
    int setups = 0, count = 2;
};

struct ShownPrefs {
    explicit ShownPrefs(int count = 2) {
        prefs->count = count;
        velt::send(id(prefs), "initWithWindowNibName:", str("Preferences"));
    }
    ~ShownPrefs() { prefs->close(); }
    ShownPrefs(const ShownPrefs&) = delete;
    ShownPrefs& operator=(const ShownPrefs&) = delete;

    NSWindow& show() {
        velt::send(id(prefs), "showWindow:", nil);
        return window();
    }
    NSWindow& window() const { return *velt::as<NSWindow>(prefs->window()); }
    NSView& page() const { return *velt::as<NSView>(window().contentView()); }
    std::vector<Ref<NSView>> hosted() const { return page().subviewList().at(0)->subviewList(); }
    bool shows(const Ref<NSView>& view) const { return hosted().size() == 1 && hosted()[0].get() == view.get(); }
    void click(const char* label, Qt::KeyboardModifiers held = Qt::NoModifier) const {
        clickPane(window(), label, held);
    }

    Ref<TwoPanes> prefs = velt::make<TwoPanes>();
};

}  // namespace

TEST(WindowControllers, ReadTheirWindowFromItsDescriptionWhenSomebodyWantsIt) {
    const Ref<NSWindowController> controller = velt::make<NSWindowController>();
    velt::send(id(controller), "initWithWindowNibName:", str("Preferences"));
    EXPECT_FALSE(controller->isWindowLoaded());
    const id window = controller->window();
    EXPECT_TRUE(controller->isWindowLoaded());
    EXPECT_EQ("Preferences", velt::utf8(VELT_NSWINDOW_TITLE(window)));
    EXPECT_EQ(id(controller), velt::as<NSWindow>(window)->nextResponder());
    controller->setWindow(nil);
    EXPECT_TRUE(velt::as<NSWindow>(window)->nextResponder().isNil());
}

TEST(WindowControllers, SayWhatIsWrongWithTheDescription) {
    const Ref<NSWindowController> controller = velt::make<NSWindowController>();
    velt::send(id(controller), "initWithWindowNibName:", str("no such window"));
    const std::string said = raised([&] { controller->window(); });
    EXPECT_TRUE(said.starts_with("NSInternalInconsistencyException: The window of 'NSWindowController' cannot be "
                                 "loaded: there is no "))
        << said;
    EXPECT_TRUE(said.ends_with("/no such window.ui")) << said;
}

namespace {

/// Is interrupted before its window is read for the first time.
struct Interrupted : public NSWindowController {
    VELT_OBJECT(Interrupted, NSWindowController)

public:
    void windowWillLoad() {
        if (++begun == 1) velt::raise("NotYet", "later");
    }
    static void describe(velt::ClassBuilder<Interrupted>& c) {
        c.method("windowWillLoad", &Interrupted::windowWillLoad);
    }
    int begun = 0;
};

}  // namespace

TEST(WindowControllers, ReadTheirWindowAtTheNextWishWhenTheyWereInterrupted) {
    const Ref<Interrupted> controller = velt::make<Interrupted>();
    velt::send(id(controller), "initWithWindowNibName:", str("Preferences"));
    EXPECT_RAISES("NotYet: later", controller->window());
    EXPECT_FALSE(controller->isWindowLoaded());
    EXPECT_TRUE(velt::is<NSWindow>(controller->window()));
    EXPECT_EQ(2, controller->begun);
}

TEST(PreferencesWindows, PutALargeWindowOfTheirOwnInThePlaceOfTheDescribedOne) {
    const ShownPrefs shown;
    const NSWindow& window = shown.window();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ((NSRect{{0, 0}, {1000, 1022}}), window.frame());
    ASSERT_EQ(1U, shown.page().subviewList().size());
    const NSView& host = *shown.page().subviewList()[0];
    EXPECT_EQ((NSRect{{0, 0}, {1000, 1000}}), host.frame());
    EXPECT_EQ(velt::kWidthSizable | velt::kMinYMargin, host.autoresizingMask());
    EXPECT_TRUE(shown.hosted().empty());
}

TEST(PreferencesWindows, TakeNoWindowThatTheyAreGiven) {
    const Ref<TwoPanes> prefs = velt::make<TwoPanes>();
    velt::send(id(prefs), "initWithWindow:", VELT_NSWINDOW_INIT(nil, ""));
    EXPECT_VALUE("nil", prefs->window());
}

TEST(PreferencesWindows, GiveEachPaneAToolbarItemWithItsLabelAndImage) {
    const ShownPrefs shown;
    KRPrefsWindowController& prefs = *shown.prefs;
    const id label = str("Letters"), image = velt::make<NSImage>(QImage(8, 8, QImage::Format_RGB32));
    velt::send(id(shown.prefs), "addView:label:image:", pane(80, 60), label, image);
    velt::send(label, "appendString:", str(" and more"));
    velt::send(id(shown.prefs), "addView:label:", pane(80, 60), str("NSCaution"));
    const id identifiers = prefs.toolbarIdentifiers(nil);
    ASSERT_EQ(2U, velt::arrayOf(identifiers)->count());
    EXPECT_VALUE("'Letters'", velt::arrayOf(identifiers)->at(0));
    const id first = prefs.toolbarItem(nil, str("Letters"), true),
             second = prefs.toolbarItem(nil, str("NSCaution"), true);
    EXPECT_VALUE("'Letters'", velt::send(first, "label"));
    EXPECT_EQ(image, velt::send(first, "image"));
    EXPECT_EQ(id(shown.prefs), velt::send(first, "target"));
    EXPECT_VALUE("'toggleActivePreferenceView:'", velt::send(first, "action"));
    EXPECT_TRUE(velt::is<NSImage>(velt::send(second, "image")));
}

TEST(PreferencesWindows, TakeTheSizeOfTheirFirstPane) {
    ShownPrefs shown;
    NSWindow& window = shown.show();
    EXPECT_EQ("General", velt::utf8(window.title()));
    EXPECT_TRUE(shown.shows(shown.prefs->first));
    EXPECT_EQ(300, shown.page().frame().size.width);
    EXPECT_EQ(120, shown.page().frame().size.height);
    EXPECT_EQ(id(shown.prefs->first), window.initialFirstResponder());
    EXPECT_EQ(velt::kTitledWindow | velt::kClosableWindow | velt::kMiniaturizableWindow, window.styleMask());
    EXPECT_FALSE(window.showsToolbarButton());
    EXPECT_TRUE(window.isVisible());
}

TEST(PreferencesWindows, HaveAToolbarOfTheirPanes) {
    ShownPrefs shown;
    const id bar = shown.show().toolbar();
    NSToolbar& toolbar = *velt::as<NSToolbar>(bar);
    EXPECT_EQ("KRPreferencesToolbar", velt::utf8(toolbar.identifier()));
    EXPECT_FALSE(toolbar.allowsUserCustomization());
    EXPECT_FALSE(toolbar.autosavesConfiguration());
    EXPECT_EQ(1U, toolbar.displayMode());
    EXPECT_EQ(0U, toolbar.sizeMode());
    EXPECT_EQ(id(shown.prefs), toolbar.delegate());
    ASSERT_EQ(2U, toolbar.itemList().size());
    EXPECT_EQ("General", velt::utf8(toolbar.itemList()[0]->label()));
    EXPECT_EQ("Colours", velt::utf8(toolbar.itemList()[1]->label()));
    const std::vector<id> selectable = toolbar.selectableIdentifiers();
    ASSERT_EQ(2U, selectable.size());
    EXPECT_VALUE("'Colours'", selectable[1]);
    EXPECT_EQ("General", velt::utf8(toolbar.selectedItemIdentifier()));
}

TEST(PreferencesWindows, CrossFadeToThePaneThatIsClickedAndKeepTheirUpperEdge) {
    ShownPrefs shown;
    NSWindow& window = shown.show();
    ASSERT_TRUE(comesIntoView(&window.widget()));
    ASSERT_TRUE(frameIsKnown(window.widget()));
    const double top = window.frame().origin.y + window.frame().size.height;
    const double around = window.frame().size.height - 120;
    shown.click("Colours");
    EXPECT_EQ(2U, shown.hosted().size()) << "the old pane is still there while it fades";
    EXPECT_EQ("Colours", velt::utf8(window.title()));
    ASSERT_TRUE(comesTrue([&] { return shown.shows(shown.prefs->second); }));
    // A window system may still report the steps on the way.
    const auto upperEdge = [&] { return window.frame().origin.y + window.frame().size.height; };
    EXPECT_TRUE(comesTrue([&] { return window.frame().size.height == 260 + around && upperEdge() == top; }))
        << window.frame().size.height << " " << upperEdge();
    EXPECT_EQ(420, window.frame().size.width);
    EXPECT_FALSE(shown.prefs->second->isHidden());
    EXPECT_EQ(nullptr, shown.prefs->second->widget().graphicsEffect());
    EXPECT_EQ(0, shown.prefs->second->frame().origin.y + 260 - shown.page().subviewList().at(0)->frame().size.height);

    shown.click("General");
    ASSERT_TRUE(comesTrue([&] { return shown.shows(shown.prefs->first); }));
    EXPECT_FALSE(shown.prefs->first->isHidden());
    EXPECT_TRUE(comesTrue([&] { return window.frame().size.height == 120 + around; })) << window.frame().size.height;
}

TEST(PreferencesWindows, SwitchQuicklyBackAndForthWithoutLosingAPane) {
    ShownPrefs shown;
    NSWindow& window = shown.show();
    ASSERT_TRUE(comesIntoView(&window.widget()));
    for (int i = 0; i < 6; ++i) shown.click(i % 2 ? "General" : "Colours");
    ASSERT_TRUE(comesTrue([&] { return shown.shows(shown.prefs->first); }));
    EXPECT_FALSE(shown.prefs->first->isHidden());
    EXPECT_EQ("General", velt::utf8(window.title()));
}

TEST(PreferencesWindows, KeepThePaneThatIsSetWhileAnotherOneFadesIn) {
    ShownPrefs shown;
    NSWindow& window = shown.show();
    ASSERT_TRUE(comesIntoView(&window.widget()));
    ASSERT_TRUE(frameIsKnown(window.widget()));
    const double around = window.frame().size.height - 120;
    shown.click("Colours");
    ASSERT_EQ(2U, shown.hosted().size());
    velt::send(id(shown.prefs), "displayViewForIdentifier:animate:", str("General"), boolean(false));
    QTest::qWait(400);  // longer than the fade
    EXPECT_TRUE(shown.shows(shown.prefs->first));
    EXPECT_TRUE(comesTrue([&] { return window.frame().size.height == 120 + around; })) << window.frame().size.height;
    EXPECT_EQ("General", velt::utf8(window.title()));
}

TEST(PreferencesWindows, DoNothingForThePaneThatIsShown) {
    ShownPrefs shown;
    NSWindow& window = shown.show();
    const std::string before = show(VELT_ID(window.frame()));
    velt::send(id(shown.prefs), "displayViewForIdentifier:animate:", str("General"), boolean(true));
    EXPECT_TRUE(shown.shows(shown.prefs->first));
    EXPECT_EQ(before, show(VELT_ID(window.frame())));
    velt::send(id(shown.prefs), "displayViewForIdentifier:animate:", str("Nowhere"), boolean(true));
    EXPECT_TRUE(shown.shows(shown.prefs->first));
}

TEST(PreferencesWindows, SwitchAtOnceWithoutACrossFade) {
    ShownPrefs shown;
    NSWindow& window = shown.show();
    shown.prefs->setCrossFade(false);
    velt::send(id(shown.prefs), "displayViewForIdentifier:animate:", str("Colours"), boolean(false));
    EXPECT_TRUE(shown.shows(shown.prefs->second));
    EXPECT_EQ(420, window.frame().size.width);
    EXPECT_EQ("Colours", velt::utf8(window.title()));
}

TEST(PreferencesWindows, FadeSlowlyWithShiftAlone) {
    ShownPrefs shown;
    NSWindow& window = shown.show();
    ASSERT_TRUE(comesIntoView(&window.widget()));
    EXPECT_TRUE(shown.prefs->crossFade());
    EXPECT_TRUE(shown.prefs->shiftSlowsAnimation());
    const auto fade = [&](const char* label, Qt::KeyboardModifiers held) {
        shown.click(label, held);
        return shown.prefs->fadeTime();
    };
    EXPECT_EQ(1.25, fade("Colours", Qt::ShiftModifier));
    ASSERT_TRUE(comesTrue([&] { return shown.shows(shown.prefs->second); }));
    EXPECT_EQ(0.25, fade("General", Qt::NoModifier));
    ASSERT_TRUE(comesTrue([&] { return shown.shows(shown.prefs->first); }));
    shown.prefs->setShiftSlowsAnimation(false);
    EXPECT_EQ(0.25, fade("Colours", Qt::ShiftModifier));
    ASSERT_TRUE(comesTrue([&] { return shown.shows(shown.prefs->second); }));
}

TEST(PreferencesWindows, AreSetUpAnewEachTimeTheyAreShown) {
    ShownPrefs shown;
    const id bar = shown.show().toolbar();
    shown.prefs->close();
    EXPECT_FALSE(shown.window().isVisible());
    EXPECT_EQ(bar, shown.show().toolbar());
    EXPECT_TRUE(shown.window().isVisible());
    EXPECT_EQ(2, shown.prefs->setups);
    EXPECT_TRUE(shown.shows(shown.prefs->first));
}

TEST(PreferencesWindows, RefuseToBeWithoutAPane) {
    ShownPrefs shown(0);
    EXPECT_RAISES("NSInternalInconsistencyException: No items were added to the toolbar in -setupToolbar.",
                  shown.show());
}

TEST(PreferencesWindows, RefusePanesWithoutAView) {
    ShownPrefs shown;
    EXPECT_RAISES("NSInternalInconsistencyException: Attempted to add a nil view when calling -addView:label:image:.",
                  velt::send(id(shown.prefs), "addView:label:image:", nil, str("General"), nil));
    EXPECT_RAISES("NSInternalInconsistencyException: Attempted to add a nil view when calling -addView:label:image:.",
                  velt::send(id(shown.prefs), "addView:label:", nil, str("General")));
}

namespace {

/// What a program's own subclass looks like.
struct OwnPreferences : public VLPreferences {
    VELT_OBJECT(OwnPreferences, VLPreferences)

public:
    id items() {
        const Ref<NSMutableArray> list = velt::make<NSMutableArray>();
        list->append(panes);
        return list;
    }
    id identifiers() {
        const Ref<NSMutableArray> list = velt::make<NSMutableArray>();
        list->append(str("Greeting"));
        if (!fits) list->append(str("Nothing"));
        return list;
    }
    id defaults() {
        const Ref<NSMutableDictionary> all = velt::make<NSMutableDictionary>();
        all->setObject(str("hello"), str("PrefsTestGreeting"));
        return all;
    }
    void changedDefault(const id& key) { heard += velt::utf8(key) + " "; }
    static void describe(velt::ClassBuilder<OwnPreferences>& c) {
        c.method("PreferencesItems", &OwnPreferences::items)
            .method("PreferencesItemIdentifiers", &OwnPreferences::identifiers)
            .method("PreferencesDefaults", &OwnPreferences::defaults)
            .method("PreferencesChanged:", &OwnPreferences::changedDefault);
    }

    id panes = pane(200, 100);
    std::string heard;
    bool fits = true;
};

void setDefault(const char* key, const char* value) {
    NSUserDefaults::standardUserDefaults().setObject(str(value), str(key));
}

}  // namespace

TEST(ProgramPreferences, TakeTheirPanesFromTheProgramsMethods) {
    const Ref<OwnPreferences> prefs = velt::make<OwnPreferences>();
    velt::send(id(prefs), "initWithWindowNibName:", str("Preferences"));
    velt::send(id(prefs), "showWindow:", nil);
    const id window = prefs->window();
    EXPECT_EQ("Greeting", velt::utf8(VELT_NSWINDOW_TITLE(window)));
    EXPECT_FALSE(prefs->crossFade());
    EXPECT_FALSE(prefs->shiftSlowsAnimation());
    prefs->fits = false;
    EXPECT_RAISES("NSInternalInconsistencyException: No items were added to the toolbar in -setupToolbar.",
                  velt::send(id(prefs), "showWindow:", nil))
        << "as many labels as views, or none is added";
    prefs->close();
}

TEST(ProgramPreferences, HaveNoPanesOfTheirOwn) {
    const Ref<VLPreferences> prefs = velt::make<VLPreferences>();
    velt::send(id(prefs), "initWithWindowNibName:", str("Preferences"));
    EXPECT_RAISES("NSInternalInconsistencyException: No items were added to the toolbar in -setupToolbar.",
                  velt::send(id(prefs), "showWindow:", nil));
    EXPECT_EQ(0U, velt::arrayOf(velt::send(id(prefs), "PreferencesItems"))->count());
    EXPECT_EQ(0U, velt::arrayOf(velt::send(id(prefs), "PreferencesItemIdentifiers"))->count());
    EXPECT_EQ(0U, velt::dictionaryOf(velt::send(id(prefs), "PreferencesDefaults"))->count());
}

TEST(ProgramPreferences, HearOfTheirDefaultsFromTheNextTurnOn) {
    const Ref<OwnPreferences> prefs = velt::make<OwnPreferences>();
    velt::send(id(prefs), "initWithWindow:", nil);
    setDefault("PrefsTestGreeting", "too early");
    EXPECT_EQ("", prefs->heard);
    QTest::qWait(20);
    setDefault("PrefsTestGreeting", "good morning");
    EXPECT_EQ("PrefsTestGreeting ", prefs->heard);
    setDefault("PrefsTestOther", "x");
    EXPECT_EQ("PrefsTestGreeting ", prefs->heard);
    velt::send(id(prefs), "finalize");
    setDefault("PrefsTestGreeting", "good night");
    EXPECT_EQ("PrefsTestGreeting ", prefs->heard);
}

TEST(ProgramPreferences, MayGoWhileTheirDefaultsChange) {
    {
        const Ref<OwnPreferences> prefs = velt::make<OwnPreferences>();
        velt::send(id(prefs), "initWithWindow:", nil);
        QTest::qWait(20);
    }
    setDefault("PrefsTestGreeting", "nobody listens");
    EXPECT_EQ("nobody listens",
              velt::utf8(NSUserDefaults::standardUserDefaults().objectForKey(str("PrefsTestGreeting"))));
}

TEST(ProgramPreferences, AreOneForTheProcess) {
    const id made = velt::send(OwnPreferences::entry().object(), "sharedPrefsWindowController");
    EXPECT_TRUE(velt::is<OwnPreferences>(made));
    EXPECT_EQ(made, velt::send(OwnPreferences::entry().object(), "sharedPrefsWindowController"));
    EXPECT_EQ(made, velt::send(TwoPanes::entry().object(), "sharedPrefsWindowController"));
    EXPECT_EQ("Preferences", velt::utf8(velt::send(OwnPreferences::entry().object(), "nibName")));
    EXPECT_EQ(made, VELT_CVLPREFERENCES(made));
}

namespace {

struct AnimationListener : public NSObject {
    VELT_OBJECT(AnimationListener, NSObject)

public:
    bool mayStart(const id&) { return allowed; }
    void ended(const id&) { heard += "end "; }
    void stopped(const id&) { heard += "stop "; }
    static void describe(velt::ClassBuilder<AnimationListener>& c) {
        c.method("animationShouldStart:", &AnimationListener::mayStart)
            .method("animationDidEnd:", &AnimationListener::ended)
            .method("animationDidStop:", &AnimationListener::stopped);
    }
    std::string heard;
    bool allowed = true;
};

id animated(const id& target, std::string_view key, const id& value) {
    const Ref<NSMutableDictionary> entry = velt::make<NSMutableDictionary>();
    entry->setObject(target, velt::string(velt::kAnimationTarget));
    entry->setObject(value, velt::string(key));
    return entry;
}

/// A view in a window, and an animation of it.
struct AnimatedView : ControlWindow {
    AnimatedView() {
        velt::as<NSView>(velt::as<NSWindow>(window)->contentView())->addSubview(view.get());
        show();
        animation->setDelegate(listener);
        animation->setDuration(0.05);
    }
    void animate(std::string_view key, const id& value) {
        const Ref<NSMutableArray> all = velt::make<NSMutableArray>();
        all->append(animated(id(view), key, value));
        velt::send(id(animation), "setViewAnimations:", id(all));
    }

    Ref<NSView> view = velt::make<NSView>(NSRect{{10, 10}, {40, 40}});
    Ref<AnimationListener> listener = velt::make<AnimationListener>();
    Ref<NSViewAnimation> animation = velt::make<NSViewAnimation>();
};

}  // namespace

TEST(ViewAnimations, ReturnWhenAllHasArrivedUnlessTheyAreToGoOnByThemselves) {
    AnimatedView shown;
    shown.animate(velt::kAnimationEndFrame, VELT_ID(NSRect{{100, 50}, {60, 20}}));
    velt::send(id(shown.animation), "startAnimation");
    EXPECT_EQ("end ", shown.listener->heard);
    EXPECT_EQ(show(VELT_ID(NSRect{{100, 50}, {60, 20}})), show(VELT_ID(shown.view->frame())));

    shown.animation->setAnimationBlockingMode(1);
    shown.animate(velt::kAnimationEndFrame, VELT_ID(NSRect{{10, 10}, {60, 20}}));
    shown.animation->startAnimation();
    EXPECT_TRUE(shown.animation->isAnimating());
    EXPECT_EQ("end ", shown.listener->heard);
    EXPECT_TRUE(comesTrue([&] { return shown.listener->heard == "end end "; }));
    EXPECT_FALSE(shown.animation->isAnimating());
    EXPECT_EQ(10, shown.view->frame().origin.x);
}

TEST(ViewAnimations, HideWhatFadesOutAndShowWhatFadesIn) {
    AnimatedView shown;
    shown.animate(velt::kAnimationEffect, velt::string(velt::kFadeOut));
    shown.animation->startAnimation();
    EXPECT_TRUE(shown.view->isHidden());
    shown.animate(velt::kAnimationEffect, velt::string(velt::kFadeIn));
    shown.animation->startAnimation();
    EXPECT_FALSE(shown.view->isHidden());
    EXPECT_EQ(nullptr, shown.view->widget().graphicsEffect());
}

TEST(ViewAnimations, LastUpToAMillionSeconds) {
    const Ref<NSViewAnimation> animation = velt::make<NSViewAnimation>();
    for (const auto& [given, kept] : {std::pair{1e12, 1e6}, {-1.0, 0.0}, {std::nan(""), 0.0}, {2.5, 2.5}}) {
        animation->setDuration(given);
        EXPECT_EQ(kept, animation->duration());
    }
}

TEST(ViewAnimations, StayWhereTheyWereStopped) {
    AnimatedView shown;
    shown.animation->setAnimationBlockingMode(1);
    shown.animation->setDuration(60);
    shown.animate(velt::kAnimationEndFrame, VELT_ID(NSRect{{100, 50}, {60, 20}}));
    shown.animation->startAnimation();
    QTest::qWait(50);
    shown.animation->stopAnimation();
    EXPECT_EQ("stop ", shown.listener->heard);
    EXPECT_FALSE(shown.animation->isAnimating());
    EXPECT_LT(shown.view->frame().origin.x, 90);
    shown.animation->stopAnimation();
    EXPECT_EQ("stop ", shown.listener->heard);
}

TEST(ViewAnimations, AskTheirDelegate) {
    AnimatedView shown;
    shown.listener->allowed = false;
    shown.animate(velt::kAnimationEndFrame, VELT_ID(NSRect{{100, 50}, {60, 20}}));
    shown.animation->startAnimation();
    EXPECT_EQ(10, shown.view->frame().origin.x);
    EXPECT_EQ("", shown.listener->heard);
}

TEST(ViewAnimations, LiveUntilTheyHaveEnded) {
    AnimatedView shown;
    shown.animation->setAnimationBlockingMode(1);
    shown.animate(velt::kAnimationEndFrame, VELT_ID(NSRect{{100, 50}, {60, 20}}));
    shown.animation->startAnimation();
    shown.animation = Ref<NSViewAnimation>();
    EXPECT_TRUE(comesTrue([&] { return shown.listener->heard == "end "; }));
    EXPECT_EQ(100, shown.view->frame().origin.x);
}
