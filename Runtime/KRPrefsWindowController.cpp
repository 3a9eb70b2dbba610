#include "KRPrefsWindowController.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/image.h"
#include "VELTRuntime/platform/appkit/toolbars/toolbar.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/string.h"

#include <QGuiApplication>

using velt::Ref;

namespace {

constexpr double kFadeTime = 0.25, kSlowFadeTime = 1.25;  // seconds
constexpr double kRoom = 1000;                            // points, before a pane gives the window its size
constexpr unsigned long kPrefsStyle = velt::kTitledWindow | velt::kClosableWindow | velt::kMiniaturizableWindow;

velt::Ref<KRPrefsWindowController>& shared() {
    static auto& one = *new Ref<KRPrefsWindowController>;
    return one;
}

/// In the event that is being worked on; a click on a toolbar's item comes as none of the program's.
bool isShiftHeld() {
    const id event = NSApplication::sharedApplication().currentEvent();
    if (velt::is<NSEvent>(event)) return velt::as<NSEvent>(event)->modifierFlags() & NSEvent::kShift;
    return QGuiApplication::keyboardModifiers() & Qt::ShiftModifier;
}

NSSize sizeOf(const id& view) { return velt::as<NSView>(view)->frame().size; }

}  // namespace

KRPrefsWindowController::KRPrefsWindowController() { reset(); }

void KRPrefsWindowController::reset() {
    identifiers_ = velt::make<NSMutableArray>();
    views_ = velt::make<NSMutableDictionary>();
    items_ = velt::make<NSMutableDictionary>();
}

id KRPrefsWindowController::sharedPrefsWindowController(const id& cls) {
    velt::requireMainThread("sharedPrefsWindowController");
    if (!shared()) {
        const id made = velt::send(velt::send(cls, VELT_SELECTOR("alloc")), VELT_SELECTOR("initWithWindowNibName:"),
                                   velt::send(cls, VELT_SELECTOR("nibName")));
        shared() = Ref<KRPrefsWindowController>(velt::to<KRPrefsWindowController>(made));
    }
    return shared();
}

id KRPrefsWindowController::nibName() { return "Preferences"_v; }

id KRPrefsWindowController::initWithWindow(const id&) {
    reset();
    animation_ = velt::make<NSViewAnimation>();
    animation_->setAnimationBlockingMode(1);
    animation_->setAnimationCurve(static_cast<unsigned long>(velt::AnimationCurve::EaseInOut));
    animation_->setDelegate(self());
    setCrossFade(true);
    setShiftSlowsAnimation(true);
    return self();
}

void KRPrefsWindowController::windowDidLoad() {
    const NSRect room{{0, 0}, {kRoom, kRoom}};
    const Ref<NSWindow> window = velt::make<NSWindow>(room, kPrefsStyle);
    // The controller has it for as long as it lives itself.
    window->setReleasedWhenClosed(false);
    setWindow(window);
    content_ = velt::make<NSView>(room);
    content_->setAutoresizingMask(velt::kWidthSizable | velt::kMinYMargin);
    const id page = window->contentView();
    velt::as<NSView>(page)->addSubview(content_.get());
    window->setShowsToolbarButton(false);
}

// Panes.

void KRPrefsWindowController::addViewLabelImage(const id& view, const id& label, const id& image) {
    if (view.isNil()) {
        velt::raise(velt::kInternalInconsistencyException,
                    "Attempted to add a nil view when calling -addView:label:image:.");
    }
    velt::to<NSView>(view);
    const id identifier = velt::send(VELT_CSTRING(label), VELT_SELECTOR("copy"));
    const Ref<NSToolbarItem> item = velt::make<NSToolbarItem>(identifier);
    item->setLabel(identifier);
    item->setImage(image);
    item->setTarget(self());
    item->setActionName("toggleActivePreferenceView:"_v);
    velt::as<NSMutableArray>(identifiers_)->append(identifier);
    velt::as<NSMutableDictionary>(views_)->setObject(view, identifier);
    velt::as<NSMutableDictionary>(items_)->setObject(item, identifier);
}

void KRPrefsWindowController::addViewLabel(const id& view, const id& label) {
    const id name = VELT_CSTRING(label);
    const Ref<NSImage> image = NSImage::named(velt::utf8(name));
    velt::send(self(), VELT_SELECTOR("addView:label:image:"), view, name, velt::boxResult(image));
}

void KRPrefsWindowController::showWindow(const id& sender) {
    const Ref<KRPrefsWindowController> kept(this);
    const id own = self(), shown = velt::send(own, VELT_SELECTOR("window"));
    reset();
    velt::send(own, VELT_SELECTOR("setupToolbar"));
    const id identifiers = identifiers_;
    if (velt::as<NSMutableArray>(identifiers)->count() == 0) {
        velt::raise(velt::kInternalInconsistencyException, "No items were added to the toolbar in -setupToolbar.");
    }
    const Ref<NSWindow> window(velt::to<NSWindow>(shown));
    if (!window) return;
    if (window->toolbar().isNil()) {
        const Ref<NSToolbar> toolbar = velt::make<NSToolbar>("KRPreferencesToolbar"_v);
        toolbar->setAllowsUserCustomization(false);
        toolbar->setAutosavesConfiguration(false);
        toolbar->setSizeMode(static_cast<unsigned long>(velt::ToolbarSize::Default));
        toolbar->setDisplayMode(static_cast<unsigned long>(velt::ToolbarDisplay::IconAndLabel));
        toolbar->setDelegate(own);
        window->setToolbar(toolbar);
    }
    const id first = velt::as<NSMutableArray>(identifiers)->at(0), bar = window->toolbar();
    velt::as<NSToolbar>(bar)->setSelectedItemIdentifier(first);
    velt::send(own, VELT_SELECTOR("displayViewForIdentifier:animate:"), first, velt::boxResult(false));
    window->center();
    NSWindowController::showWindow(sender);
}

// Switching.

void KRPrefsWindowController::toggleActivePreferenceView(const id& sender) {
    const id identifier = velt::send(sender, VELT_SELECTOR("itemIdentifier"));
    velt::send(self(), VELT_SELECTOR("displayViewForIdentifier:animate:"), identifier, velt::boxResult(true));
}

void KRPrefsWindowController::keepFrontOnly() {
    if (!content_) return;
    const std::vector<Ref<NSView>> views = content_->subviewList();
    for (std::size_t i = 0; i + 1 < views.size(); ++i) views[i]->removeFromSuperview();
}

void KRPrefsWindowController::displayViewForIdentifier(const id& identifier, bool animate) {
    const Ref<KRPrefsWindowController> kept(this);
    const Ref<NSWindow> window(windowPointer());
    const id shown = velt::as<NSMutableDictionary>(views_)->objectForKey(identifier);
    if (!window || !content_ || shown.isNil()) return;
    keepFrontOnly();
    const Ref<NSView> before =
        content_->subviewList().empty() ? Ref<NSView>() : Ref<NSView>(content_->subviewList().front());
    const Ref<NSView> view(velt::as<NSView>(shown));
    if (before.get() == view.get()) return;
    view->setFrameOrigin({view->frame().origin.x, content_->frame().size.height - view->frame().size.height});
    const bool fades = animate && crossFade_ && before;
    // It is seen when it fades in.
    view->setHidden(fades);
    content_->addSubview(view.get());
    window->setInitialFirstResponder(shown);
    if (fades) {
        velt::send(self(), VELT_SELECTOR("crossFadeView:withView:"), velt::boxResult(before), shown);
    } else {
        // A fade that is under way would give the window another pane's size in the end.
        if (animation_) animation_->stopAnimation();
        if (before) before->removeFromSuperview();
        const NSRect frame = VELT_CNSRECT(velt::send(self(), VELT_SELECTOR("frameForView:"), shown));
        animate ? window->setFrameAnimated(frame) : window->setFrame(frame);
    }
    const id item = velt::as<NSMutableDictionary>(items_)->objectForKey(identifier);
    window->setTitle(velt::send(item, VELT_SELECTOR("label")));
}

NSRect KRPrefsWindowController::frameForView(const id& view) {
    const Ref<NSWindow> window(windowPointer());
    if (!window || !velt::is<NSView>(view)) return {};
    const NSRect frame = window->frame();
    const NSSize page = sizeOf(window->contentView()), size = sizeOf(view);
    const double height = size.height + frame.size.height - page.height;
    return {{frame.origin.x, frame.origin.y + frame.size.height - height}, {size.width, height}};
}

void KRPrefsWindowController::crossFadeView(const id& from, const id& to) {
    const Ref<KRPrefsWindowController> kept(this);
    const id window = windowPointer() ? velt::boxResult(windowPointer()) : id();
    if (!animation_ || window.isNil()) return;
    animation_->stopAnimation();
    animation_->setDuration(shiftSlows_ && isShiftHeld() ? kSlowFadeTime : kFadeTime);
    const auto row = [](std::string_view key, const id& value) { return std::pair(velt::string(key), value); };
    const auto animated = [](std::initializer_list<std::pair<id, id>> rows) {
        const Ref<NSMutableDictionary> entry = velt::make<NSMutableDictionary>();
        for (const auto& [key, value] : rows) entry->setObject(value, key);
        return id(entry);
    };
    const Ref<NSMutableArray> all = velt::make<NSMutableArray>();
    all->append(
        animated({row(velt::kAnimationTarget, from), row(velt::kAnimationEffect, velt::string(velt::kFadeOut))}));
    all->append(animated({row(velt::kAnimationTarget, to), row(velt::kAnimationEffect, velt::string(velt::kFadeIn))}));
    const NSRect start = windowPointer()->frame();
    all->append(animated({row(velt::kAnimationTarget, window), row(velt::kAnimationStartFrame, VELT_ID(start)),
                          row(velt::kAnimationEndFrame, velt::send(self(), VELT_SELECTOR("frameForView:"), to))}));
    animation_->setViewAnimations(all);
    animation_->startAnimation();
}

void KRPrefsWindowController::animationDidEnd(const id&) {
    keepFrontOnly();
    if (animation_) animation_->setViewAnimations(nil);
    if (windowPointer()) windowPointer()->makeFirstResponder(nil);
}

// The toolbar.

id KRPrefsWindowController::toolbarIdentifiers(const id&) const { return identifiers_; }

id KRPrefsWindowController::toolbarItem(const id&, const id& identifier, bool) const {
    return velt::as<NSMutableDictionary>(items_)->objectForKey(identifier);
}

void KRPrefsWindowController::describe(velt::ClassBuilder<KRPrefsWindowController>& c) {
    using Prefs = KRPrefsWindowController;
    c.classMethod("sharedPrefsWindowController",
                  [](const id& cls, const id*) { return sharedPrefsWindowController(cls); })
        .classMethod("nibName", [](const id&, const id*) { return nibName(); })
        .method("initWithWindow:", &Prefs::initWithWindow)
        .method("windowDidLoad", &Prefs::windowDidLoad)
        .method("setupToolbar", &Prefs::setupToolbar)
        .method("addView:label:image:", &Prefs::addViewLabelImage)
        .method("addView:label:", &Prefs::addViewLabel)
        .method("showWindow:", &Prefs::showWindow)
        .method("toggleActivePreferenceView:", &Prefs::toggleActivePreferenceView)
        .method("displayViewForIdentifier:animate:", &Prefs::displayViewForIdentifier)
        .method("frameForView:", &Prefs::frameForView)
        .method("crossFadeView:withView:", &Prefs::crossFadeView)
        .property("crossFade", &Prefs::crossFade, &Prefs::setCrossFade)
        .property("shiftSlowsAnimation", &Prefs::shiftSlowsAnimation, &Prefs::setShiftSlowsAnimation)
        .method("toolbarDefaultItemIdentifiers:", &Prefs::toolbarIdentifiers)
        .method("toolbarAllowedItemIdentifiers:", &Prefs::toolbarIdentifiers)
        .method("toolbarSelectableItemIdentifiers:", &Prefs::toolbarIdentifiers)
        .method("toolbar:itemForItemIdentifier:willBeInsertedIntoToolbar:", &Prefs::toolbarItem)
        .method("animationDidEnd:", &Prefs::animationDidEnd)
        .owns(&Prefs::identifiers_)
        .owns(&Prefs::views_)
        .owns(&Prefs::items_)
        .owns(&Prefs::animation_)
        .owns(&Prefs::content_);
}
