#include "VELTRuntime/platform/appkit/tables/table_column.h"

#include "VELTRuntime/platform/appkit/tables/table_view.h"

#include <algorithm>

using velt::Ref;

id NSSortDescriptor::description() const {
    return velt::string("<NSSortDescriptor " + (key_.isNil() ? std::string("nil") : velt::utf8(key_)) +
                        (ascending_ ? " ascending>" : " descending>"));
}

bool NSSortDescriptor::isEqual(const id& other) const {
    if (!velt::is<NSSortDescriptor>(other)) return false;
    const auto* descriptor = velt::as<NSSortDescriptor>(other);
    return velt::isEqual(key_, descriptor->key_) && ascending_ == descriptor->ascending_;
}

void NSSortDescriptor::describe(velt::ClassBuilder<NSSortDescriptor>& c) {
    c.property("key", &NSSortDescriptor::key)
        .property("ascending", &NSSortDescriptor::ascending)
        .property("reversedSortDescriptor", &NSSortDescriptor::reversed)
        .classMethod("sortDescriptorWithKey:ascending:",
                     [](const id&, const id* a) {
                         return id(velt::make<NSSortDescriptor>(a[0], static_cast<bool>(VELT_CBOOL(a[1]))));
                     })
        .owns(&NSSortDescriptor::key_);
}

NSTableColumn::NSTableColumn() : NSTableColumn(velt::string(std::u16string_view())) {}

NSTableColumn::NSTableColumn(const id& identifier) : identifier_(identifier), headerCell_(velt::make<NSCell>()) {
    const Ref<NSCell> cell = velt::make<NSCell>();
    cell->setEditable(true);
    cell->setWraps(false);
    dataCell_ = cell;
}

NSTableColumn::~NSTableColumn() { NSTableColumn::dissolve(); }

void NSTableColumn::dissolve() {
    table_ = nullptr;
    NSObject::dissolve();
}

void NSTableColumn::changed() {
    if (table_) table_->columnChanged(*this);
}

void NSTableColumn::setHeaderCell(const id& cell) {
    headerCell_ = velt::is<NSCell>(cell) ? Ref<NSCell>(velt::as<NSCell>(cell)) : velt::make<NSCell>();
    changed();
}
void NSTableColumn::setTitle(const id& title) {
    headerCell_->setStringValue(title);
    changed();
}
void NSTableColumn::setHeaderToolTip(const id& text) {
    headerToolTip_ = text;
    changed();
}
void NSTableColumn::setDataCell(const id& cell) {
    dataCell_ = cell;
    changed();
}

void NSTableColumn::setWidth(double width) {
    width_ = std::clamp(width, minWidth_, std::max(minWidth_, maxWidth_));
    changed();
}
void NSTableColumn::setMinWidth(double width) {
    minWidth_ = std::max(0.0, width);
    setWidth(width_);
}
void NSTableColumn::setMaxWidth(double width) {
    maxWidth_ = width;
    setWidth(width_);
}
void NSTableColumn::setResizingMask(unsigned long mask) {
    resizingMask_ = mask;
    changed();
}
void NSTableColumn::setHidden(bool flag) {
    hidden_ = flag;
    changed();
}
void NSTableColumn::setSortDescriptorPrototype(const id& descriptor) {
    sortDescriptor_ = descriptor;
    changed();
}

id NSTableColumn::tableView() const { return id(static_cast<NSObject*>(table_)); }

void NSTableColumn::describe(velt::ClassBuilder<NSTableColumn>& c) {
    c.property("identifier", &NSTableColumn::identifier, &NSTableColumn::setIdentifier)
        .property("headerCell", &NSTableColumn::headerCell, &NSTableColumn::setHeaderCell)
        .property("title", &NSTableColumn::title, &NSTableColumn::setTitle)
        .property("headerToolTip", &NSTableColumn::headerToolTip, &NSTableColumn::setHeaderToolTip)
        .property("dataCell", &NSTableColumn::dataCell, &NSTableColumn::setDataCell)
        .method("dataCellForRow:", &NSTableColumn::dataCellForRow)
        .property("width", &NSTableColumn::width, &NSTableColumn::setWidth)
        .property("minWidth", &NSTableColumn::minWidth, &NSTableColumn::setMinWidth)
        .property("maxWidth", &NSTableColumn::maxWidth, &NSTableColumn::setMaxWidth)
        .property("resizingMask", &NSTableColumn::resizingMask, &NSTableColumn::setResizingMask)
        .flag("editable", &NSTableColumn::isEditable, &NSTableColumn::setEditable)
        .flag("hidden", &NSTableColumn::isHidden, &NSTableColumn::setHidden)
        .property("sortDescriptorPrototype", &NSTableColumn::sortDescriptorPrototype,
                  &NSTableColumn::setSortDescriptorPrototype)
        .property("tableView", &NSTableColumn::tableView)
        .owns(&NSTableColumn::identifier_)
        .owns(&NSTableColumn::headerToolTip_)
        .owns(&NSTableColumn::dataCell_)
        .owns(&NSTableColumn::sortDescriptor_)
        .owns(&NSTableColumn::headerCell_);
}
