// The keyboard in a window: who has it, where Tab takes it, which keys press a button.
#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/menus/menu_bar.h"
#include "VELTRuntime/platform/appkit/toolbars/toolbar.h"
#include "VELTRuntime/platform/appkit/window.h"
#include "VELTRuntime/platform/appkit/window_widget.h"
#include "VELTRuntime/platform/object/id_of.h"
#include "VELTRuntime/values/string.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <algorithm>
#include <utility>

using velt::Ref;

namespace {

constexpr int kMostSteps = 10'000;  // a loop of key views need not come back to where it began

/// All views of a tree that may take part in the key loop, in reading order: from the top, then from where lines begin.
void collectKeyViews(NSView& view, std::vector<NSView*>& found) {
    std::vector<NSView*> views;
    for (const Ref<NSView>& subview : view.subviewList()) views.push_back(subview.get());
    const bool flipped = view.isFlipped();
    std::stable_sort(views.begin(), views.end(), [flipped](const NSView* a, const NSView* b) {
        const NSRect fa = a->frame(), fb = b->frame();
        const double topA = flipped ? fa.origin.y : -(fa.origin.y + fa.size.height);
        const double topB = flipped ? fb.origin.y : -(fb.origin.y + fb.size.height);
        // Views of about one height stand in a row.
        constexpr double kRow = 4;
        if (topA + kRow < topB || topB + kRow < topA) return topA < topB;
        if (QGuiApplication::isRightToLeft()) return fa.origin.x + fa.size.width > fb.origin.x + fb.size.width;
        return fa.origin.x < fb.origin.x;
    });
    for (NSView* subview : views) {
        if (VELT_CBOOL(velt::send(velt::idOf(subview), VELT_SELECTOR("acceptsFirstResponder"))))
            found.push_back(subview);
        collectKeyViews(*subview, found);
    }
}

/// The first view behind one in its key loop that takes the keyboard; null when there is none.
NSView* nextValidKeyView(NSView& from, bool next) {
    NSView* view = &from;
    for (int i = 0; i < kMostSteps; ++i) {
        const id following = next ? view->nextKeyView() : view->previousKeyView();
        if (!velt::is<NSView>(following)) return nullptr;
        view = velt::as<NSView>(following);
        if (view == &from) return nullptr;
        if (view->canBecomeKeyView()) return view;
    }
    return nullptr;
}

/// The view that shows a button's cell; nil for a program's own object that stands for one.
id controlViewOf(const id& cell) {
    const velt::Selector asks = velt::Selector::named("controlView");
    return velt::respondsTo(cell, asks) ? velt::send(cell, asks) : nil;
}

/// A button's cell can be pressed in a window: its button is seen there, or it has none.
bool isWithin(const id& cell, const NSWindow& window) {
    if (cell.isNil()) return false;
    const id shown = controlViewOf(cell);
    if (!velt::is<NSView>(shown)) return true;
    const NSView* view = velt::as<NSView>(shown);
    return view->windowPointer() == &window && !view->isHiddenOrHasHiddenAncestor();
}

}  // namespace

id velt::firstKeyView(const NSWindow& window) {
    id first = window.initialFirstResponder();
    if (!is<NSView>(first) || as<NSView>(first)->canBecomeKeyView()) return first;
    std::vector<NSView*> within;
    collectKeyViews(*as<NSView>(first), within);
    const auto taker =
        std::find_if(within.begin(), within.end(), [](NSView* view) { return view->canBecomeKeyView(); });
    return taker == within.end() ? first : idOf(*taker);
}

id NSWindow::firstResponder() const {
    QWidget* focus = velt::behindMenuBar(widget_ ? widget_->focusWidget() : nullptr);
    // A control's widget may hand the keyboard to a part of itself.
    for (; focus && focus != widget_; focus = focus->parentWidget()) {
        if (NSView* view = velt::viewOf(focus)) return velt::idOf(view);
    }
    return velt::idOf(this);
}

bool NSWindow::makeFirstResponder(const id& responder) {
    const id before = firstResponder();
    if (velt::is<NSView>(responder) && velt::as<NSView>(responder)->windowPointer() != this) return false;
    if (responder == before && !responder.isNil()) return true;
    const auto agrees = [](const id& asked, const char* selector) {
        return VELT_CBOOL(velt::send(asked, velt::Selector::named(selector)));
    };
    if (velt::is<NSView>(before) && !agrees(before, "resignFirstResponder")) return false;
    if (!velt::is<NSView>(responder)) {
        if (QWidget* focus = widget_ ? widget_->focusWidget() : nullptr) focus->clearFocus();
        return responder.isNil() || responder == velt::idOf(this);
    }
    NSView& view = *velt::as<NSView>(responder);
    if (!view.canBecomeKeyView() || !agrees(responder, "becomeFirstResponder")) return false;
    widget();  // the view's widget is within the window's from now on
    view.widget().setFocus(Qt::OtherFocusReason);
    return true;
}

void NSWindow::viewLeaves(NSView& view) {
    const id left = velt::idOf(&view);
    if (initialFirstResponder_ == left) initialFirstResponder_ = nil;
    QWidget* widget = view.existingWidget();
    if (widget && widget->hasFocus()) widget->clearFocus();
}

void NSWindow::recalculateKeyViewLoop() {
    std::vector<NSView*> views;
    // The toolbar is above the content. What a program puts into it is reached by keys as well.
    const NSToolbar* bar = velt::is<NSToolbar>(toolbar_) ? velt::as<NSToolbar>(toolbar_) : nullptr;
    for (std::size_t i = 0; bar && i < bar->itemList().size(); ++i) {
        NSView* view = bar->itemList()[i]->viewPointer();
        if (!view) continue;
        if (VELT_CBOOL(velt::send(velt::idOf(view), VELT_SELECTOR("acceptsFirstResponder")))) views.push_back(view);
        collectKeyViews(*view, views);
    }
    const std::size_t above = views.size();
    collectKeyViews(*contentView_, views);
    for (std::size_t i = 0; i < views.size(); ++i) views[i]->setNextKeyView(views[(i + 1) % views.size()]);
    // A person begins in the content.
    if (initialFirstResponder_.isNil() && !views.empty()) {
        initialFirstResponder_ = velt::idOf(above < views.size() ? views[above] : views.front());
    }
}

void NSWindow::selectNextKeyView(const id&) {
    const id now = firstResponder();
    if (velt::is<NSView>(now)) {
        selectKeyViewFollowingView(velt::as<NSView>(now));
    } else {
        makeFirstResponder(velt::firstKeyView(*this));
    }
}
void NSWindow::selectPreviousKeyView(const id&) {
    const id now = firstResponder();
    if (velt::is<NSView>(now)) {
        selectKeyViewPrecedingView(velt::as<NSView>(now));
    } else {
        makeFirstResponder(velt::firstKeyView(*this));
    }
}
void NSWindow::selectKeyViewFollowingView(NSView* view) {
    if (view) moveKeyView(*view, true);
}
void NSWindow::selectKeyViewPrecedingView(NSView* view) {
    if (view) moveKeyView(*view, false);
}

bool NSWindow::moveKeyView(NSView& from, bool next) {
    NSView* view = nextValidKeyView(from, next);
    if (!view || !makeFirstResponder(velt::idOf(view))) return false;
    // Who moves by keys sees where the keyboard is.
    view->widget().window()->setAttribute(Qt::WA_KeyboardFocusChange);
    view->widget().update();
    return true;
}

void NSWindow::setDefaultButtonCell(const id& cell) {
    const id before = std::exchange(defaultButtonCell_, cell);
    // Both are drawn anew.
    for (const id& button : {before, cell}) {
        if (!button.isNil()) velt::send(controlViewOf(button), VELT_SELECTOR("setNeedsDisplay:"), VELT_ID(BOOL{1}));
    }
}

void NSWindow::setToolbar(const id& toolbar) {
    if (toolbar == toolbar_) return;
    const id before = std::exchange(toolbar_, toolbar);
    if (velt::is<NSToolbar>(before)) velt::as<NSToolbar>(before)->moveToWindow(nullptr);
    if (!velt::is<NSToolbar>(toolbar)) return;
    auto& bar = *velt::as<NSToolbar>(toolbar);
    // A toolbar is in one window at most.
    if (NSWindow* other = bar.windowPointer(); other && other != this) other->setToolbar(nil);
    bar.moveToWindow(this);
}

bool NSWindow::performKeyEquivalent(NSEvent& event) {
    const id told = velt::idOf(&event);
    // Views are asked from the content view inward, the one in front first.
    const auto ask = [&](const auto& self, NSView& view) -> bool {
        if (view.isHidden()) return false;
        const std::vector<Ref<NSView>> views = view.subviewList();
        for (auto at = views.rbegin(); at != views.rend(); ++at) {
            if (self(self, **at)) return true;
        }
        const velt::Selector asks = velt::Selector::named("performKeyEquivalent:");
        return velt::respondsTo(velt::idOf(&view), asks) && VELT_CBOOL(velt::send(velt::idOf(&view), asks, told));
    };
    if (ask(ask, *contentView_)) return true;
    const id characters = event.characters();
    const bool isReturn = velt::isString(characters) && velt::textOf(characters) == u"\r";
    constexpr unsigned long kAny = NSEvent::kCommand | NSEvent::kAlternate | NSEvent::kControl;
    if (isReturn && defaultButtonWorks_ && isWithin(defaultButtonCell_, *this) && !(event.modifierFlags() & kAny)) {
        velt::send(defaultButtonCell_, VELT_SELECTOR("performClick:"), velt::idOf(this));
        return true;
    }
    return false;
}
