#include "VELTRuntime/platform/appkit/controls/control.h"

#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/font.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/matrix.h"
#include "VELTRuntime/platform/appkit/view_events.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/class_casts.h"

#include <QWidget>

using velt::Ref;

NSControl::~NSControl() { NSControl::dissolve(); }

void NSControl::dissolve() {
    if (cell_) cell_->control_ = nullptr;
    NSView::dissolve();
}

void NSControl::adopt(Ref<NSCell> cell) const {
    if (cell_) cell_->control_ = nullptr;
    cell_ = std::move(cell);
    cell_->control_ = const_cast<NSControl*>(this);
}

void NSControl::setCell(const id& value) {
    const Ref<NSCell> own = makeCell();
    if (!velt::isKindOf(value, own->isa())) {
        velt::raise(velt::kInvalidArgumentException,
                    "'" + isa().name() + "' setCell:: '" + own->isa().name() + "' expected");
    }
    auto* cell = velt::as<NSCell>(value);
    if (cell == cell_.get()) return;
    if (auto* matrix = dynamic_cast<NSMatrix*>(cell->control_)) {
        matrix->cellTaken(*cell);
    } else if (cell->control_) {
        cell->control_->adopt(cell->control_->makeCell());
    }
    adopt(Ref<NSCell>(cell));
    cellChanged(*cell);
}

Ref<NSCell> NSControl::makeCell() const { return velt::make<NSActionCell>(); }

void NSControl::sizeToFit() {
    const NSRect now = frame();
    const NSSize size = cellObject().cellSize();
    const bool fromTop = !superviewPointer() || !superviewPointer()->isFlipped();
    const double y = fromTop ? now.origin.y + now.size.height - size.height : now.origin.y;
    setFrame({{now.origin.x, y}, size});
}

void NSControl::performClick(const id&) {
    if (isEnabled()) worked();
}

bool NSControl::sendAction(velt::Selector action, const id& target) {
    return NSApplication::sharedApplication().sendAction(action, target, id(static_cast<NSObject*>(this)));
}

void NSControl::worked() noexcept {
    const Ref<NSControl> kept(this);
    velt::runReported([this] {
        const NSCell& cell = cellObject();
        sendAction(cell.action(), cell.target());
    });
}

bool NSControl::acceptsFirstResponder() const { return takesKeys() && isEnabled() && !refusesFirstResponder(); }

void NSControl::syncWidget(QWidget& widget) {
    NSView::syncWidget(widget);
    const NSCell& cell = cellObject();
    widget.setEnabled(cell.isEnabled());
    widget.setFont(velt::as<NSFont>(cell.font())->font());
}

void NSControl::watchEvents(QWidget& widget) { velt::watchEvents(widget); }

void NSControl::visitOwned(velt::OwnedVisitor& visitor) {
    visitor.visit(cell_);
    NSView::visitOwned(visitor);
}

void NSControl::describe(velt::ClassBuilder<NSControl>& c) {
    c.property("cell", &NSControl::cell, &NSControl::setCell)
        .property("selectedCell", &NSControl::selectedCell)
        .property("objectValue", &NSControl::objectValue, &NSControl::setObjectValue)
        .property("stringValue", &NSControl::stringValue, &NSControl::setStringValue)
        .property("doubleValue", &NSControl::doubleValue, &NSControl::setDoubleValue)
        .property("floatValue", &NSControl::floatValue, &NSControl::setFloatValue)
        .property("integerValue", &NSControl::integerValue, &NSControl::setIntegerValue)
        .property("attributedStringValue", &NSControl::attributedStringValue, &NSControl::setAttributedStringValue)
        .property("font", &NSControl::font, &NSControl::setFont)
        .property("alignment", &NSControl::alignment, &NSControl::setAlignment)
        .flag("enabled", &NSControl::isEnabled, &NSControl::setEnabled)
        .flag("continuous", &NSControl::isContinuous, &NSControl::setContinuous)
        .property("refusesFirstResponder", &NSControl::refusesFirstResponder, &NSControl::setRefusesFirstResponder)
        .property("target", &NSControl::target, &NSControl::setTarget)
        .property("action", &NSControl::actionName, &NSControl::setActionName)
        .property("tag", &NSControl::tag, &NSControl::setTag)
        .property("delegate", &NSControl::delegate, &NSControl::setDelegate)
        .method("sizeToFit", &NSControl::sizeToFit)
        .method("performClick:", &NSControl::performClick)
        .method("sendAction:to:",
                [](const id& self, const id* a) {
                    const auto action = velt::Selector::named(velt::utf8(VELT_CSTRING(a[0])));
                    return velt::boxResult(velt::as<NSControl>(self)->sendAction(action, a[1]));
                })
        .owns(&NSControl::delegate_);
}
