// Drawers: panels that slide out from under an edge of a window, and go where it goes.
#pragma once

#include "VELTRuntime/platform/appkit/panels/drawer_geometry.h"
#include "VELTRuntime/platform/appkit/panels/window_follower.h"
#include "VELTRuntime/platform/appkit/window.h"

#include <memory>
#include <string_view>

class QVariantAnimation;

namespace velt {
class DrawerWindow;
}

class VELT_EXPORT NSDrawer : public NSResponder, private velt::WindowFollower {
    VELT_OBJECT(NSDrawer, NSResponder)
public:
    enum State : long { Closed = 0, Opening = 1, Open = 2, Closing = 3 };

    /// A closed drawer of 100 by 100 at the right edge.
    NSDrawer() : NSDrawer({100, 100}, static_cast<long>(velt::Edge::Right)) {}
    NSDrawer(NSSize contentSize, long preferredEdge);
    ~NSDrawer() override;

    /// The window that it slides from; nil for none. A drawer that is given another one is closed at once.
    id parentWindow() const { return parentWindow_; }
    void setParentWindow(NSWindow* window);
    id contentView() const { return contentView_; }
    void setContentView(NSView* view);
    NSSize contentSize() const { return contentSize_; }
    void setContentSize(NSSize size);
    NSSize minContentSize() const { return minSize_; }
    void setMinContentSize(NSSize size);
    NSSize maxContentSize() const { return maxSize_; }
    void setMaxContentSize(NSSize size);
    /// 0 left, 1 bottom, 2 right, 3 top; other numbers change nothing. It counts at the next opening.
    long preferredEdge() const { return static_cast<long>(preferred_); }
    void setPreferredEdge(long edge);
    /// Where it is out, or was last.
    long edge() const { return static_cast<long>(edge_); }
    /// From the window's top or left end, and from the other one.
    double leadingOffset() const { return leading_; }
    void setLeadingOffset(double offset);
    double trailingOffset() const { return trailing_; }
    void setTrailingOffset(double offset);
    id delegate() const { return delegate_; }
    void setDelegate(const id& delegate) { delegate_ = delegate; }

    long state() const { return state_; }
    /// Opens at the preferred edge, or at the one across when only that has room on the screen. Nothing happens without
    /// a window, or when the delegate refuses ("drawerShouldOpen:").
    void open() { openAt(velt::Edge::Left, true); }
    void openOnEdge(long edge);
    void close();
    void toggle(const id& sender);

    void dissolve() override;
    static void describe(velt::ClassBuilder<NSDrawer>& c);

protected:
    id ownNextResponder() const override { return parentWindow_; }

private:
    void openAt(velt::Edge edge, bool choose);
    void leaderChanged(velt::LeaderChange change) override;
    NSWindow* parent() const;
    NSSize fullSize() const;
    void place();
    void layOut();
    void slide(double target);
    void arrive();
    void show();
    void hide();
    bool allowed(std::string_view selector);
    void tell(std::string_view selector, std::string_view notification);

    NSSize contentSize_, minSize_{}, maxSize_{1e6, 1e6};
    velt::Edge preferred_ = velt::Edge::Right, edge_ = velt::Edge::Right;
    double leading_ = 0, trailing_ = 0;
    double part_ = 0;  // how much of it is out
    State state_ = Closed;
    id parentWindow_, delegate_;
    velt::Ref<NSView> contentView_;
    velt::Ref<velt::DrawerWindow> window_;
    QVariantAnimation* animation_ = nullptr;
};
