#include "VELTRuntime/platform/appkit/accessibility/names.h"

#include "VELTRuntime/platform/appkit/controls/text_field.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/object/class.h"

#include <QAccessible>
#include <QApplication>
#include <QTimer>
#include <QVariant>
#include <QWidget>
#include <cmath>
#include <limits>

namespace velt {

namespace {

/// The name that a widget was given from outside; that one may be replaced.
constexpr const char* kGivenName = "veltGivenName";
/// How far a label may be from what it names, in points.
constexpr double kBeside = 40, kAbove = 14;
constexpr double kTouching = 2;

const NSTextField* asLabel(const NSView& view) {
    if (!is<NSTextField>(Ref<NSView>(const_cast<NSView*>(&view)))) return nullptr;
    const auto& field = static_cast<const NSTextField&>(view);
    return !field.isHidden() && field.textCell().isLabel() ? &field : nullptr;
}

double middle(double start, double length) { return start + length / 2; }

/// How far a label stands from a control that it may name; infinite when it is not placed like one that does.
double distance(NSRect label, NSRect control, bool fromRight, bool flipped) {
    const double labelEnd = label.origin.x + label.size.width, controlEnd = control.origin.x + control.size.width;
    const double beside = fromRight ? label.origin.x - controlEnd : control.origin.x - labelEnd;
    const double across =
        std::abs(middle(label.origin.y, label.size.height) - middle(control.origin.y, control.size.height));
    const bool inLine = across <= std::max(label.size.height, control.size.height) / 2;
    if (inLine && beside >= -kTouching && beside <= kBeside) return std::abs(beside);
    const double labelTop = label.origin.y + label.size.height, controlTop = control.origin.y + control.size.height;
    const double above = flipped ? control.origin.y - labelTop : label.origin.y - controlTop;
    const bool overIt = label.origin.x < controlEnd && labelEnd > control.origin.x;
    // One in the same line is nearer in meaning than one above.
    if (overIt && above >= -kTouching && above <= kAbove) return kBeside + std::abs(above);
    return std::numeric_limits<double>::infinity();
}

QString labelFor(const NSView& control, bool fromRight) {
    const NSView* around = control.superviewPointer();
    if (!around) return {};
    const NSTextField* nearest = nullptr;
    double least = std::numeric_limits<double>::infinity();
    for (const Ref<NSView>& view : around->subviewList()) {
        const NSTextField* label = view.get() == &control ? nullptr : asLabel(*view);
        if (!label) continue;
        for (const bool side : {fromRight, false}) {
            const double away = distance(label->frame(), control.frame(), side, around->isFlipped());
            if (away >= least) continue;
            least = away;
            nearest = label;
        }
    }
    if (!nearest) return {};
    QString text = qtText(nearest->stringValue()).simplified();
    while (text.endsWith(QLatin1Char(':'))) text.chop(1);
    return text;
}

void giveName(QWidget& widget, const QString& name) {
    if (!widget.accessibleName().isEmpty() && widget.accessibleName() != widget.property(kGivenName).toString()) return;
    if (widget.accessibleName() == name) return;
    widget.setProperty(kGivenName, name);
    widget.setAccessibleName(name);
}

void nameAll() {
    for (QWidget* widget : QApplication::allWidgets()) {
        const NSView* view = viewOf(widget);
        if (!view || asLabel(*view)) continue;
        QString name = widget->toolTip();
        if (name.isEmpty()) name = labelFor(*view, widget->isRightToLeft());
        giveName(*widget, name);
        // The part that a person works in the view's place.
        QWidget* part = widget->focusProxy();
        if (part && !viewOf(part)) giveName(*part, widget->accessibleName());
    }
}

/// Names are looked for when somebody begins to listen.
class Listening final : public QAccessible::ActivationObserver {
    void accessibilityActiveChanged(bool active) override {
        if (active) namesMayHaveChanged();
    }
};

}  // namespace

void setOwnName(QWidget& widget, const QString& name) {
    if (name.isEmpty() && widget.accessibleName() == widget.property(kGivenName).toString()) return;
    if (widget.accessibleName() != name) widget.setAccessibleName(name);
}

void namesMayHaveChanged() {
    static Listening* const listening = [] {
        auto* made = new Listening;  // as long as the process
        QAccessible::installActivationObserver(made);
        return made;
    }();
    if (!listening || !QAccessible::isActive() || !qApp) return;
    static QTimer* const pause = [] {
        auto* made = new QTimer(qApp);
        made->setSingleShot(true);
        QObject::connect(made, &QTimer::timeout, made, nameAll);
        return made;
    }();
    pause->start(0);
}

}  // namespace velt
