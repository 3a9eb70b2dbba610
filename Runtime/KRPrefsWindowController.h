// A preferences window: a toolbar of panes across the top, one view a pane, and a window that takes each pane's size.
#pragma once

#include "VELTRuntime/platform/appkit/view_animation.h"
#include "VELTRuntime/platform/appkit/window_controller.h"

/// A program's own subclass answers "setupToolbar" and adds its panes there; whoever wants the window sends the
/// class "sharedPrefsWindowController", and what it gives "showWindow:".
class VELT_EXPORT KRPrefsWindowController : public NSWindowController {
    VELT_OBJECT(KRPrefsWindowController, NSWindowController)
public:
    KRPrefsWindowController();

    /// The process's one controller; made by the class that is asked first, from the window description that its
    /// "nibName" names.
    static id sharedPrefsWindowController(const id& cls);
    /// "Preferences", a string.
    static id nibName();

    /// The window comes from the description; the argument does not matter.
    id initWithWindow(const id& ignored);
    /// Puts a window of the controller's own in the place of the described one, with the view that hosts the panes.
    void windowDidLoad();
    /// Where a subclass adds its panes; none here.
    void setupToolbar() {}
    /// Adds a pane: its view, its label (also its identifier) and the image of its toolbar item. A nil view raises
    /// "NSInternalInconsistencyException".
    void addViewLabelImage(const id& view, const id& label, const id& image);
    /// The same with the image that is named like the label.
    void addViewLabel(const id& view, const id& label);
    /// Sets the panes up anew, shows the first one and brings the window up. Raises "NSInternalInconsistencyException"
    /// when there is no pane.
    void showWindow(const id& sender);

    /// Switches to the pane of a toolbar item.
    void toggleActivePreferenceView(const id& sender);
    /// Switches to a pane; nothing happens when it is shown already, or when there is none of that identifier.
    void displayViewForIdentifier(const id& identifier, bool animate);
    /// The window's frame with that view as its content: the upper edge stays.
    NSRect frameForView(const id& view);
    /// Lets one view give way to another while the window takes the other's size: in a quarter of a second, in 1.25
    /// seconds when the Shift key is held and slows it down.
    void crossFadeView(const id& from, const id& to);
    bool crossFade() const { return crossFade_; }
    void setCrossFade(bool flag) { crossFade_ = flag; }
    bool shiftSlowsAnimation() const { return shiftSlows_; }
    void setShiftSlowsAnimation(bool flag) { shiftSlows_ = flag; }

    /// Seconds that the last fade was given.
    double fadeTime() const { return animation_ ? animation_->duration() : 0; }

    // What the toolbar and the animation ask and tell.
    id toolbarIdentifiers(const id& toolbar) const;
    id toolbarItem(const id& toolbar, const id& identifier, bool inserted) const;
    void animationDidEnd(const id& animation);

    static void describe(velt::ClassBuilder<KRPrefsWindowController>& c);

private:
    void reset();
    void keepFrontOnly();

    id identifiers_, views_, items_;
    velt::Ref<NSViewAnimation> animation_;
    velt::Ref<NSView> content_;  // hosts the pane
    bool crossFade_ = true, shiftSlows_ = true;
};
