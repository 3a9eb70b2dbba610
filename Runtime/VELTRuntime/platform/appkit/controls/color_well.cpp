#include "VELTRuntime/platform/appkit/controls/color_well.h"

#include "VELTRuntime/platform/appkit/controls/color_panel.h"
#include "VELTRuntime/platform/appkit/controls/color_well_widget.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"

#include <algorithm>

using velt::Ref;

namespace {

/// The wells that take the panel's colours. A well leaves when it goes.
std::vector<NSColorWell*>& activeWells() {
    static std::vector<NSColorWell*> wells;
    return wells;
}

/// The cell of a well: its value is a colour, and stays one.
class ColorCell final : public NSActionCell {
public:
    ColorCell() {
        setBordered(true);
        NSActionCell::setObjectValue(velt::make<NSColor>(0.0, 0.0, 0.0, 1.0));
    }
    void setObjectValue(const id& value) override {
        if (velt::is<NSColor>(value)) NSActionCell::setObjectValue(value);
    }
    NSSize cellSize() const override { return {44, 23}; }
};

}  // namespace

NSColorWell::~NSColorWell() { std::erase(activeWells(), this); }

void NSColorWell::dissolve() {
    std::erase(activeWells(), this);
    NSControl::dissolve();
}

Ref<NSCell> NSColorWell::makeCell() const { return velt::make<ColorCell>(); }

id NSColorWell::color() const {
    const id value = objectValue();
    // A program may have given it a plain cell.
    return velt::is<NSColor>(value) ? value : id(velt::make<NSColor>(0.0, 0.0, 0.0, 1.0));
}

void NSColorWell::setColor(const id& color) {
    const NSColor* given = velt::to<NSColor>(color);
    if (given) setObjectValue(color);
}

void NSColorWell::takeColorFrom(const id& source) { setColor(velt::send(source, VELT_SELECTOR("color"))); }

void NSColorWell::take(const id& color) {
    if (!isEnabled() || velt::isEqual(color, this->color())) return;
    setColor(color);
    worked();
}

// Active or not.

bool NSColorWell::isActive() const {
    const auto& wells = activeWells();
    return std::find(wells.begin(), wells.end(), this) != wells.end();
}

void NSColorWell::activate(bool exclusive) {
    if (!isEnabled()) return;
    if (exclusive) deactivateAll();
    if (!isActive()) activeWells().push_back(this);
    NSColorPanel& panel = NSColorPanel::sharedColorPanel();
    panel.setColor(velt::as<NSColor>(color()));
    panel.orderFront(nil);
    changed();
}

void NSColorWell::deactivate() {
    if (std::erase(activeWells(), this) > 0) changed();
}

void NSColorWell::deactivateAll() {
    const std::vector<NSColorWell*> wells = std::exchange(activeWells(), {});
    for (NSColorWell* well : wells) well->changed();
}

void NSColorWell::takeColorForActive(const id& color) {
    // A well's action may activate and deactivate others.
    std::vector<Ref<NSColorWell>> wells;
    for (NSColorWell* well : activeWells()) wells.emplace_back(well);
    for (const Ref<NSColorWell>& well : wells) well->take(color);
}

void NSColorWell::performClick(const id&) {
    if (!isEnabled()) return;
    if (isActive())
        deactivate();
    else
        activate(true);
}

void NSColorWell::cellChanged(NSCell& cell) {
    NSControl::cellChanged(cell);
    if (!isActive()) return;
    if (isEnabled())
        NSColorPanel::sharedColorPanel().setColor(velt::as<NSColor>(color()));
    else
        deactivate();
}

void NSColorWell::moveToWindow(NSWindow* window) {
    if (!window) deactivate();
    NSControl::moveToWindow(window);
}

std::unique_ptr<QWidget> NSColorWell::makeWidget() {
    auto made = std::make_unique<velt::ColorWellWidget>();
    watchEvents(*made);
    return made;
}

void NSColorWell::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    static_cast<velt::ColorWellWidget&>(widget).valueShown();
}

void NSColorWell::describe(velt::ClassBuilder<NSColorWell>& c) {
    c.property("color", &NSColorWell::color, &NSColorWell::setColor)
        .flag("bordered", &NSColorWell::isBordered, &NSColorWell::setBordered)
        .method("isActive", &NSColorWell::isActive)
        .method("activate:", &NSColorWell::activate)
        .method("deactivate", &NSColorWell::deactivate)
        .method("takeColorFrom:", &NSColorWell::takeColorFrom);
}
