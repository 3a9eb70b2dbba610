// How the items of a toolbar share its width.
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/menus/menu_item.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/toolbars/toolbar_drag.h"
#include "VELTRuntime/platform/appkit/toolbars/toolbar_widget.h"

#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QToolButton>
#include <algorithm>
#include <cmath>

namespace velt {

namespace {

constexpr int kGap = 4;        // between items
constexpr int kMargin = 4;     // at both ends and above
constexpr int kSpace = 24;     // width of a space
constexpr int kSeparator = 9;  // width of a separator
constexpr int kLabelRise = 3;  // the labels of buttons stand that much above their edge
constexpr int kRegularIcon = 32, kSmallIcon = 22;
constexpr int kMost = 16777215;

/// Its sign says already that there is a menu.
class OverflowButton final : public QToolButton {
public:
    using QToolButton::QToolButton;

protected:
    void initStyleOption(QStyleOptionToolButton* option) const override {
        QToolButton::initStyleOption(option);
        option->features &= ~QStyleOptionToolButton::ToolButtonFeatures(QStyleOptionToolButton::HasMenu);
    }
};

}  // namespace

ToolbarStrip::ToolbarStrip(NSToolbar& toolbar) : toolbar_(&toolbar), overflow_(new OverflowButton(this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    overflow_->setAutoRaise(true);
    overflow_->setText(QStringLiteral("»"));
    overflow_->setPopupMode(QToolButton::InstantPopup);
    overflow_->setAccessibleName(QStringLiteral("More items"));
    overflow_->setToolTip(QStringLiteral("More items"));
    overflow_->setMenu(new QMenu(overflow_));
    overflow_->hide();
    connect(overflow_->menu(), &QMenu::aboutToShow, this, [this] { fillOverflow(); });
}

void ToolbarStrip::forget() {
    toolbar_ = nullptr;
    slots_.clear();
}

// Contents.

QWidget* ToolbarStrip::viewHolder(NSToolbarItem& item, ToolbarSlot& slot) {
    NSView& view = *item.viewPointer();
    QWidget& shown = view.widget();
    QWidget* holder = nullptr;
    // A view that stays keeps its place in the window, and the keyboard with it.
    for (ToolbarSlot& old : before_) {
        if (old.item.get() == &item && old.widget && shown.parentWidget() == old.widget) {
            holder = std::exchange(old.widget, nullptr);
        }
    }
    if (holder) {
        delete holder->findChild<QLabel*>(QStringLiteral("label"), Qt::FindDirectChildrenOnly);
    } else {
        holder = new QWidget(this);
        shown.setParent(holder);
        shown.show();
    }
    const NSSize least = item.minSize(), most = item.maxSize(), own = view.frame().size;
    slot.least = static_cast<int>(std::ceil(least.width > 0 ? least.width : own.width));
    slot.most = std::max(slot.least, static_cast<int>(std::ceil(std::min(most.width, double{kMost}))));
    const auto mode = static_cast<ToolbarDisplay>(toolbar_->displayMode());
    if (mode != ToolbarDisplay::IconOnly && !qtText(item.label()).isEmpty()) {
        auto* label = new QLabel(qtText(item.label()), holder);
        label->setObjectName(QStringLiteral("label"));
        label->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
        label->setEnabled(item.isEnabled());
        label->show();
        slot.least = std::max(slot.least, label->sizeHint().width());
        slot.most = std::max(slot.least, slot.most);
    }
    return holder;
}

ToolbarSlot ToolbarStrip::slotFor(NSToolbarItem& item, bool isSelectable) {
    ToolbarSlot slot;
    slot.item = Ref<NSToolbarItem>(&item);
    const auto mode = static_cast<ToolbarDisplay>(toolbar_->displayMode());
    if (item.isIdentifiedBy(kSeparatorItem)) {
        slot.least = slot.most = kSeparator;
    } else if (item.isIdentifiedBy(kSpaceItem)) {
        slot.least = slot.most = kSpace;
    } else if (item.isIdentifiedBy(kFlexibleSpaceItem)) {
        slot.most = kMost;
    } else if (item.viewPointer() && mode != ToolbarDisplay::LabelOnly) {
        slot.widget = viewHolder(item, slot);
    } else {
        auto* button = new QToolButton(this);
        const bool small = toolbar_->sizeMode() == static_cast<unsigned long>(ToolbarSize::Small);
        const int side = small ? kSmallIcon : kRegularIcon;
        const QIcon icon = toolbarIcon(item);
        QString text = qtText(item.label());
        button->setAutoRaise(true);
        button->setIcon(icon);
        button->setIconSize({side, side});
        button->setText(text.replace(u'&', QStringLiteral("&&")));
        // What has only one of the two shows that one.
        button->setToolButtonStyle(icon.isNull() || mode == ToolbarDisplay::LabelOnly   ? Qt::ToolButtonTextOnly
                                   : mode == ToolbarDisplay::IconOnly || text.isEmpty() ? Qt::ToolButtonIconOnly
                                                                                        : Qt::ToolButtonTextUnderIcon);
        button->setEnabled(item.isEnabled());
        button->setToolTip(qtText(item.toolTip()));
        button->setAccessibleName(toolbarName(item));
        button->setFocusPolicy(Qt::TabFocus);
        if (isSelectable) {
            button->setCheckable(true);
            button->setChecked(isEqual(toolbar_->selectedItemIdentifier(), item.itemIdentifier()));
        }
        connect(button, &QToolButton::clicked, this, [this, button, kept = slot.item] {
            if (!toolbar_) return;
            // The mark is the toolbar's, not the button's own.
            if (button->isCheckable()) {
                button->setChecked(isEqual(toolbar_->selectedItemIdentifier(), kept->itemIdentifier()));
            }
            toolbar_->clicked(*kept);
        });
        slot.widget = button;
        slot.least = slot.most = button->sizeHint().width();
    }
    return slot;
}

void ToolbarStrip::rebuild() {
    if (!toolbar_) return;
    const Ref<NSToolbar> kept(toolbar_);
    // Who is asked may change the toolbar: until the answer is there, the strip is rebuilt without it.
    std::vector<id> selectable;
    if (!std::exchange(asking_, true)) {
        const QPointer<ToolbarStrip> strip(this);
        runReported([&] { selectable = kept->selectableIdentifiers(); });
        if (!strip) return;
        asking_ = false;
        if (!toolbar_) return;
    }
    before_ = std::exchange(slots_, {});
    runReported([&] {
        const std::vector<Ref<NSToolbarItem>> items = kept->itemList();
        for (const Ref<NSToolbarItem>& item : items) {
            const id identifier = item->itemIdentifier();
            slots_.push_back(slotFor(*item, std::any_of(selectable.begin(), selectable.end(),
                                                        [&](const id& each) { return isEqual(each, identifier); })));
        }
    });
    for (const ToolbarSlot& slot : before_) {
        if (!slot.widget) continue;
        // The program's view outlives what held it.
        NSView* view = slot.item->viewPointer();
        QWidget* shown = view ? view->existingWidget() : nullptr;
        if (shown && shown->parentWidget() == slot.widget) {
            shown->hide();
            shown->setParent(nullptr);
        }
        slot.widget->hide();
        slot.widget->deleteLater();  // it may be the one whose click this is
    }
    before_.clear();
    height_ = overflow_->sizeHint().height();
    for (const ToolbarSlot& slot : slots_) {
        if (const auto* button = qobject_cast<QToolButton*>(slot.widget)) {
            height_ = std::max(height_, button->sizeHint().height());
        } else if (slot.widget) {
            const auto* label = slot.widget->findChild<QLabel*>(QStringLiteral("label"));
            const NSSize least = slot.item->minSize(), own = slot.item->viewPointer()->frame().size;
            const double high = least.height > 0 ? least.height : own.height;
            height_ = std::max(height_, static_cast<int>(std::ceil(high)) + (label ? label->sizeHint().height() : 0));
        }
    }
    height_ += kMargin;
    setFixedHeight(height_);
    updateGeometry();
    arrange();
    if (cover_) cover_->raise();
}

void ToolbarStrip::showEnabled(const NSToolbarItem& item) {
    for (const ToolbarSlot& slot : slots_) {
        if (slot.item.get() != &item || !slot.widget) continue;
        QWidget* label = slot.widget->findChild<QLabel*>(QStringLiteral("label"), Qt::FindDirectChildrenOnly);
        if (label) label->setEnabled(item.isEnabled());
        // The view itself was told by the item.
        if (qobject_cast<QToolButton*>(slot.widget)) slot.widget->setEnabled(item.isEnabled());
    }
}

// Layout.

void ToolbarStrip::resizeEvent(QResizeEvent*) {
    arrange();
    if (cover_) cover_->setGeometry(rect());
}

void ToolbarStrip::arrange() {
    const auto needed = [this] {
        int sum = 2 * kMargin, count = 0;
        for (const ToolbarSlot& slot : slots_) {
            if (!slot.isShown) continue;
            sum += slot.least;
            ++count;
        }
        return sum + std::max(0, count - 1) * kGap;
    };
    for (ToolbarSlot& slot : slots_) slot.isShown = true;
    int room = width();
    bool overflows = needed() > room;
    if (overflows) room -= overflow_->sizeHint().width() + kGap;
    while (needed() > room) {
        // The last one of the least important goes first.
        ToolbarSlot* out = nullptr;
        for (ToolbarSlot& slot : slots_) {
            if (slot.isShown && (!out || slot.item->visibilityPriority() <= out->item->visibilityPriority())) {
                out = &slot;
            }
        }
        if (!out) break;
        out->isShown = false;
    }
    // What is left over goes to the views that can grow, and then to the flexible spaces.
    std::vector<int> widths;
    for (const ToolbarSlot& slot : slots_) widths.push_back(slot.least);
    int left = std::max(0, room - needed());
    for (const bool spaces : {false, true}) {
        for (bool grown = true; grown && left > 0;) {
            grown = false;
            std::vector<std::size_t> growing;
            for (std::size_t at = 0; at < slots_.size(); ++at) {
                if (slots_[at].isShown && (slots_[at].widget == nullptr) == spaces && widths[at] < slots_[at].most) {
                    growing.push_back(at);
                }
            }
            for (std::size_t i = 0; i < growing.size() && left > 0; ++i) {
                const int share = std::max(1, left / static_cast<int>(growing.size() - i));
                const int more = std::min(share, slots_[growing[i]].most - widths[growing[i]]);
                widths[growing[i]] += more;
                left -= more;
                grown = grown || more > 0;
            }
        }
    }
    int x = kMargin;
    for (std::size_t at = 0; at < slots_.size(); ++at) {
        ToolbarSlot& slot = slots_[at];
        slot.rect = slot.isShown ? QRect(x, 0, widths[at], height_ - kMargin) : QRect();
        slot.rect = slot.isShown ? QStyle::visualRect(layoutDirection(), rect(), slot.rect) : QRect();
        if (slot.isShown) x += widths[at] + kGap;
        if (!slot.widget) continue;
        slot.widget->setGeometry(slot.rect);
        slot.widget->setVisible(slot.isShown);
        if (qobject_cast<QToolButton*>(slot.widget)) continue;
        auto* label = slot.widget->findChild<QLabel*>(QStringLiteral("label"));
        const int below = label ? label->sizeHint().height() : 0;
        NSView& view = *slot.item->viewPointer();
        const NSSize least = slot.item->minSize(), most = slot.item->maxSize();
        const int above = slot.rect.height() - below;
        double high = least.height > 0 ? least.height : view.frame().size.height;
        if (most.height > high) high = std::min(most.height, double(above));
        const int wide =
            std::min(slot.rect.width(), std::max(static_cast<int>(most.width), static_cast<int>(least.width)));
        const QRect place((slot.rect.width() - wide) / 2, std::max(0, (above - static_cast<int>(high)) / 2), wide,
                          static_cast<int>(high));
        runReported([&] { view.setFrame({{0, 0}, {double(place.width()), double(place.height())}}); });
        view.widget().setGeometry(place);
        if (label) label->setGeometry(0, above - kLabelRise, slot.rect.width(), below);
    }
    overflow_->setVisible(overflows);
    const QSize size = overflow_->sizeHint();
    const QRect end(width() - size.width(), 0, size.width(), height_ - kMargin);
    overflow_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), end));
    update();
}

void ToolbarStrip::fillOverflow() {
    QMenu& menu = *overflow_->menu();
    menu.clear();
    if (!toolbar_) return;
    std::vector<Ref<NSToolbarItem>> hidden;
    for (const ToolbarSlot& slot : slots_) {
        if (!slot.isShown && !slot.item->isSpace()) hidden.push_back(slot.item);
    }
    for (const Ref<NSToolbarItem>& item : hidden) {
        if (const id form = item->menuFormRepresentation(); is<NSMenuItem>(form)) {
            menu.addAction(&as<NSMenuItem>(form)->toolkitAction());
            continue;
        }
        // Asked now: the toolbar asks only for what can be seen. Who is asked may change the item.
        runReported([&] {
            if (item->autovalidates()) item->validate();
        });
        QString text = qtText(item->label());
        if (text.isEmpty()) text = toolbarName(*item);
        QAction* action = menu.addAction(toolbarIcon(*item), text.replace(u'&', QStringLiteral("&&")));
        action->setEnabled(item->isEnabled());
        connect(action, &QAction::triggered, this, [this, item] {
            if (toolbar_) toolbar_->clicked(*item);
        });
    }
}

void ToolbarStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (const ToolbarSlot& slot : slots_) {
        if (!slot.isShown || slot.widget) continue;
        if (slot.item->isIdentifiedBy(kSeparatorItem)) {
            QStyleOption option;
            option.initFrom(this);
            option.rect = slot.rect;
            option.state |= QStyle::State_Horizontal;
            style()->drawPrimitive(QStyle::PE_IndicatorToolBarSeparator, &option, &painter, this);
        } else if (cover_) {
            painter.setPen(QPen(palette().color(QPalette::Mid), 1, Qt::DashLine));
            painter.drawRect(slot.rect.adjusted(1, 1, -2, -2));
        }
    }
}

// Customization.

void ToolbarStrip::setCustomizing(bool flag) {
    delete cover_;
    if (flag && toolbar_) {
        cover_ = new ToolbarCover(*this);
        cover_->setGeometry(rect());
        cover_->show();
        cover_->raise();
    }
    insertion_ = -1;
    update();
}

int ToolbarStrip::placeAt(QPoint point) const {
    for (std::size_t at = 0; at < slots_.size(); ++at) {
        if (slots_[at].isShown && slots_[at].rect.contains(point)) return static_cast<int>(at);
    }
    return -1;
}

int ToolbarStrip::insertionAt(QPoint point) const {
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    for (std::size_t at = 0; at < slots_.size(); ++at) {
        if (!slots_[at].isShown) continue;
        const int middle = slots_[at].rect.center().x();
        if (mirrored ? point.x() > middle : point.x() < middle) return static_cast<int>(at);
    }
    return static_cast<int>(slots_.size());
}

void ToolbarStrip::markInsertion(int place) {
    if (std::exchange(insertion_, place) == place || !cover_) return;
    int x = -1;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    if (place >= 0 && place < static_cast<int>(slots_.size())) {
        const QRect& at = slots_[static_cast<std::size_t>(place)].rect;
        x = mirrored ? at.right() + kGap / 2 : at.left() - kGap / 2;
    } else if (place >= 0 && !slots_.empty()) {
        const QRect& at = slots_.back().rect;
        x = mirrored ? at.left() - kGap / 2 : at.right() + kGap / 2;
    } else if (place >= 0) {
        x = mirrored ? width() - kMargin : kMargin;
    }
    static_cast<ToolbarCover*>(cover_.data())->setMark(x);
}

}  // namespace velt
