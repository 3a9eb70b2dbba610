#include "VELTRuntime/platform/appkit/accessibility/view_roles.h"

#include "VELTRuntime/platform/appkit/containers/box.h"
#include "VELTRuntime/platform/appkit/containers/divider.h"
#include "VELTRuntime/platform/appkit/containers/progress_indicator.h"
#include "VELTRuntime/platform/appkit/containers/split_view.h"
#include "VELTRuntime/platform/appkit/view_widget.h"
#include "VELTRuntime/platform/object/class.h"

#include <QAccessibleWidget>

namespace velt {

namespace {

template <class T> const T* shownAs(const QWidget* widget) {
    NSView* view = viewOf(widget);
    return view && is<T>(Ref<NSView>(view)) ? static_cast<const T*>(view) : nullptr;
}

/// A view's own widget. Which class the view is of is asked each time: the widget is there before it knows its view.
class ViewAccessible final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit ViewAccessible(QWidget* shown) : QAccessibleWidget(shown, QAccessible::Client) {}

    QAccessible::Role role() const override {
        if (const auto* box = shownAs<NSBox>(widget()))
            return box->boxType() == kSeparatorBox ? QAccessible::Separator : QAccessible::Grouping;
        if (progress()) return QAccessible::ProgressBar;
        if (shownAs<NSSplitView>(widget())) return QAccessible::Splitter;
        return QAccessibleWidget::role();
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const NSProgressIndicator* shown = progress();
        state.busy = shown && shown->isAnimating();
        if (shown) state.readOnly = true;
        return state;
    }
    // The parts that draw progress say nothing of their own.
    int childCount() const override { return progress() ? 0 : QAccessibleWidget::childCount(); }
    QAccessibleInterface* child(int index) const override {
        return progress() ? nullptr : QAccessibleWidget::child(index);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return progress() ? nullptr : QAccessibleWidget::childAt(x, y);
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        const NSProgressIndicator* shown = progress();
        // How far it has come is said only when it is known.
        if (type == QAccessible::ValueInterface)
            return shown && !shown->isIndeterminate() ? static_cast<QAccessibleValueInterface*>(this) : nullptr;
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return progress() ? progress()->doubleValue() : 0; }
    QVariant minimumValue() const override { return progress() ? progress()->minValue() : 0; }
    QVariant maximumValue() const override { return progress() ? progress()->maxValue() : 0; }
    QVariant minimumStepSize() const override { return 0; }
    void setCurrentValue(const QVariant&) override {}  // only the program knows how far it has come

private:
    const NSProgressIndicator* progress() const { return shownAs<NSProgressIndicator>(widget()); }
};

QAccessibleInterface* accessibleOf(const QString&, QObject* object) {
    if (auto* widget = dynamic_cast<ViewWidget*>(object)) return new ViewAccessible(widget);
    if (auto* divider = dynamic_cast<Divider*>(object)) return new QAccessibleWidget(divider, QAccessible::Separator);
    return nullptr;
}

}  // namespace

void installViewRoles() {
    [[maybe_unused]] static const bool installed = [] {
        QAccessible::installFactory(accessibleOf);
        return true;
    }();
}

}  // namespace velt
