// The widget of a toolbar: lays its items out, puts what has no room into a menu, lets a person rearrange them.
#pragma once

#include "VELTRuntime/platform/appkit/toolbars/toolbar.h"

#include <QPointer>
#include <QToolBar>

class QLabel;
class QToolButton;

namespace velt {

class CustomizationSheet;

/// One item in the strip.
struct ToolbarSlot {
    Ref<NSToolbarItem> item;
    QWidget* widget = nullptr;  // null for spaces and separators
    int least = 0, most = 0;    // widths
    bool isShown = false;
    QRect rect;
};

/// The items side by side.
class VELT_EXPORT ToolbarStrip final : public QWidget {
public:
    explicit ToolbarStrip(NSToolbar& toolbar);
    void forget();
    void rebuild();
    void showEnabled(const NSToolbarItem& item);
    const std::vector<ToolbarSlot>& places() const { return slots_; }
    QToolButton& overflow() const { return *overflow_; }
    QSize sizeHint() const override { return {0, height_}; }
    QSize minimumSizeHint() const override { return {0, height_}; }

    // While a person customizes.
    void setCustomizing(bool flag);
    /// The item at a point of the strip, -1 for none; where an item dropped there would stand.
    int placeAt(QPoint point) const;
    int insertionAt(QPoint point) const;
    /// Marks where a dragged item would stand; -1 takes the mark away.
    void markInsertion(int place);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void arrange();
    void fillOverflow();
    ToolbarSlot slotFor(NSToolbarItem& item, bool isSelectable);
    QWidget* viewHolder(NSToolbarItem& item, ToolbarSlot& slot);

    NSToolbar* toolbar_;
    std::vector<ToolbarSlot> slots_;
    std::vector<ToolbarSlot> before_;  // while the strip is rebuilt
    QToolButton* overflow_;
    QPointer<QWidget> cover_;
    int height_ = 0, insertion_ = -1;
    bool asking_ = false;  // the delegate, which items stay chosen
};

class VELT_EXPORT ToolbarWidget final : public QToolBar {
public:
    explicit ToolbarWidget(NSToolbar& toolbar);
    ~ToolbarWidget() override;
    /// The toolbar has gone; this widget follows.
    void forget();
    void toolbarChanged();
    bool shows(const NSToolbarItem& item) const;
    ToolbarStrip& strip() const { return *strip_; }
    NSToolbar* toolbar() const { return toolbar_; }
    void startCustomizing();
    void endCustomizing();
    CustomizationSheet* sheet() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void validateSoon();

    NSToolbar* toolbar_;
    ToolbarStrip* strip_;
    QPointer<QWidget> sheet_;
    bool validating_ = false;
};

/// The button of an item, also for those who look at it in a palette.
QIcon toolbarIcon(const NSToolbarItem& item);
/// What a person calls an item.
QString toolbarName(const NSToolbarItem& item);

}  // namespace velt
