#include "VELTRuntime/platform/appkit/tables/matrix.h"

#include "VELTRuntime/platform/appkit/color.h"
#include "VELTRuntime/platform/appkit/tables/matrix_widget.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/id_of.h"
#include "VELTRuntime/values/class_casts.h"

#include <QApplication>
#include <algorithm>
#include <cmath>
#include <string>

using velt::MatrixPlace;
using velt::Ref;

namespace {

constexpr long kMostCells = 1'000'000;  // and as many rows and columns

}  // namespace

NSMatrix::NSMatrix(NSRect frame, velt::MatrixMode mode, const id& prototype, long rows, long columns) : mode_(mode) {
    setFrame(frame);
    setPrototype(prototype);
    renew(rows, columns);
}

NSMatrix::~NSMatrix() { NSMatrix::dissolve(); }

void NSMatrix::dissolve() {
    for (Entry& entry : entries_) release(entry);
    NSControl::dissolve();
}

void NSMatrix::release(Entry& entry) {
    if (entry.cell && entry.cell->control() == this) entry.cell->control_ = nullptr;
}

// What the cells are.

void NSMatrix::setMode(unsigned long mode) {
    if (mode > static_cast<unsigned long>(velt::MatrixMode::Track)) return;
    mode_ = static_cast<velt::MatrixMode>(mode);
    if (mode_ == velt::MatrixMode::Radio) {
        // One is left of several.
        const MatrixPlace kept = selected_;
        clearSelection();
        if (has(kept)) mark(kept, true);
        keepOneSelected();
    }
    changed();
}

void NSMatrix::setPrototype(const id& cell) { prototype_ = VELT_CNSCELL(cell); }

id NSMatrix::makeCellAt(long, long) {
    return prototype_.isNil() ? id(velt::make<NSActionCell>()) : velt::copy(prototype_);
}

NSMatrix::Entry NSMatrix::newEntry(long row, long column, const id& given) {
    const id cell = given.isNil() ? velt::send(velt::idOf(this), VELT_SELECTOR("makeCellAtRow:column:"), VELT_ID(row),
                                               VELT_ID(column))
                                  : given;
    Entry entry{Ref<NSCell>(velt::as<NSCell>(VELT_CNSCELL(cell))), false, nil};
    NSControl* before = entry.cell->control();
    if (auto* matrix = dynamic_cast<NSMatrix*>(before); matrix && matrix != this) {
        matrix->cellTaken(*entry.cell);
    } else if (before && !matrix) {
        before->setCell(entry.cell->isa().newObject());
    }
    entry.cell->control_ = this;
    return entry;
}

// Rows and columns.

long NSMatrix::checkedPlace(const char* operation, long position, long count) const {
    if (position < 0 || position >= count) {
        velt::raiseRange("'" + isa().name() + "' " + operation, position, static_cast<std::size_t>(count));
    }
    return position;
}

std::vector<NSMatrix::Entry> NSMatrix::rebuilt(long rows, long columns, const std::function<Entry(long, long)>& make) {
    if (rows > kMostCells || columns > kMostCells || rows * columns > kMostCells) {
        velt::raise(velt::kInvalidArgumentException,
                    "'" + isa().name() + "' cannot have " + std::to_string(rows) + " rows and " +
                        std::to_string(columns) + " columns; the most is " + std::to_string(kMostCells) + " cells");
    }
    std::vector<Entry> entries;
    entries.reserve(static_cast<std::size_t>(rows * columns));
    try {
        for (long row = 0; row < rows; ++row) {
            for (long column = 0; column < columns; ++column) entries.push_back(make(row, column));
        }
    } catch (...) {
        // Cells that have just come are not this matrix's after all.
        for (Entry& entry : entries) {
            if (!placeOf(entry.cell.get()).isValid()) release(entry);
        }
        throw;
    }
    return entries;
}

void NSMatrix::replace(std::vector<Entry> entries, long rows, long columns) {
    const id selected = selectedCell(), key = keyCell();
    std::vector<Entry> before = std::exchange(entries_, std::move(entries));
    rows_ = rows;
    columns_ = columns;
    for (Entry& entry : before) {
        if (!placeOf(entry.cell.get()).isValid()) release(entry);
    }
    selected_ = placeOf(selected);
    key_ = placeOf(key);
    anchor_ = highlighted_ = pressed_ = {};
    keepOneSelected();
    changed();
}

void NSMatrix::renew(long rows, long columns) {
    rows = std::max(rows, 0L);
    columns = std::max(columns, 0L);
    replace(rebuilt(rows, columns,
                    [this](long row, long column) {
                        return has({row, column}) ? entryAt({row, column}) : newEntry(row, column, nil);
                    }),
            rows, columns);
}

void NSMatrix::insertRow(long row, const id& given) {
    checkedPlace("insertRow:", row, rows_ + 1);
    const Ref<NSArray> cells(velt::to<NSArray>(given));
    const long count = cells ? static_cast<long>(cells->count()) : 0;
    const long columns = std::max(columns_, count);
    replace(rebuilt(rows_ + 1, columns,
                    [&](long at, long column) {
                        if (at == row) return newEntry(at, column, column < count ? cells->at(column) : nil);
                        const MatrixPlace old{at < row ? at : at - 1, column};
                        return has(old) ? entryAt(old) : newEntry(at, column, nil);
                    }),
            rows_ + 1, columns);
}

void NSMatrix::removeRow(long row) {
    checkedPlace("removeRow:", row, rows_);
    replace(rebuilt(rows_ - 1, columns_,
                    [&](long at, long column) {
                        return entryAt({at < row ? at : at + 1, column});
                    }),
            rows_ - 1, columns_);
}

void NSMatrix::insertColumn(long column, const id& given) {
    checkedPlace("insertColumn:", column, columns_ + 1);
    const Ref<NSArray> cells(velt::to<NSArray>(given));
    const long count = cells ? static_cast<long>(cells->count()) : 0;
    const long rows = std::max(rows_, count);
    replace(rebuilt(rows, columns_ + 1,
                    [&](long row, long at) {
                        if (at == column) return newEntry(row, at, row < count ? cells->at(row) : nil);
                        const MatrixPlace old{row, at < column ? at : at - 1};
                        return has(old) ? entryAt(old) : newEntry(row, at, nil);
                    }),
            rows, columns_ + 1);
}

void NSMatrix::removeColumn(long column) {
    checkedPlace("removeColumn:", column, columns_);
    replace(rebuilt(rows_, columns_ - 1,
                    [&](long row, long at) {
                        return entryAt({row, at < column ? at : at + 1});
                    }),
            rows_, columns_ - 1);
}

id NSMatrix::cells() const {
    Ref<NSMutableArray> all = velt::make<NSMutableArray>();
    for (const Entry& entry : entries_) all->append(entry.cell);
    return all;
}

id NSMatrix::cellAt(long row, long column) const { return has({row, column}) ? id(entryAt({row, column}).cell) : id(); }

void NSMatrix::putCell(NSCell* cell, long row, long column) {
    checkedPlace("putCell:atRow:column:", row, rows_);
    checkedPlace("putCell:atRow:column:", column, columns_);
    Entry next = newEntry(row, column, velt::idOf(cell));
    Entry& place = entryAt({row, column});
    next.isSelected = place.isSelected;
    next.toolTip = place.toolTip;
    Entry before = std::exchange(place, std::move(next));
    if (!placeOf(before.cell.get()).isValid()) release(before);
    changed();
}

id NSMatrix::cellWithTag(long tag) const {
    for (const Entry& entry : entries_) {
        if (entry.cell->tag() == tag) return entry.cell;
    }
    return nil;
}

MatrixPlace NSMatrix::placeOf(const NSCell* cell) const {
    for (std::size_t at = 0; cell && at < entries_.size(); ++at) {
        const auto position = static_cast<long>(at);
        if (entries_[at].cell.get() == cell) return {position / columns_, position % columns_};
    }
    return {};
}

// Geometry.

void NSMatrix::setCellSize(NSSize size) {
    cellSize_ = {std::max(size.width, 0.0), std::max(size.height, 0.0)};
    changed();
}
void NSMatrix::setIntercellSpacing(NSSize spacing) {
    spacing_ = {std::max(spacing.width, 0.0), std::max(spacing.height, 0.0)};
    changed();
}

NSRect NSMatrix::cellFrameAt(long row, long column) const {
    double x = static_cast<double>(column) * (cellSize_.width + spacing_.width);
    // The first column is where people begin to read.
    if (QApplication::isRightToLeft()) x = frame().size.width - x - cellSize_.width;
    return {{x, static_cast<double>(row) * (cellSize_.height + spacing_.height)}, cellSize_};
}

MatrixPlace NSMatrix::placeAt(NSPoint point) const {
    const double x = QApplication::isRightToLeft() ? frame().size.width - point.x : point.x;
    const double width = cellSize_.width + spacing_.width, height = cellSize_.height + spacing_.height;
    if (x < 0 || point.y < 0 || width <= 0 || height <= 0) return {};
    const MatrixPlace place{static_cast<long>(point.y / height), static_cast<long>(x / width)};
    // What lies between cells belongs to none of them.
    const bool within = std::fmod(x, width) < cellSize_.width && std::fmod(point.y, height) < cellSize_.height;
    return within && has(place) ? place : MatrixPlace{};
}

void NSMatrix::sizeToCells() {
    const auto extent = [](long count, double cell, double spacing) {
        return count > 0 ? static_cast<double>(count) * (cell + spacing) - spacing : 0;
    };
    const bool autosizes = std::exchange(autosizes_, false);
    setFrameSize({extent(columns_, cellSize_.width, spacing_.width), extent(rows_, cellSize_.height, spacing_.height)});
    autosizes_ = autosizes;
    changed();
}

void NSMatrix::fitCells() {
    NSSize largest{};
    for (const Entry& entry : entries_) {
        const NSSize size = entry.cell->cellSize();
        largest = {std::max(largest.width, size.width), std::max(largest.height, size.height)};
    }
    if (!entries_.empty()) cellSize_ = largest;
    sizeToCells();
}

void NSMatrix::sizeChanged(NSSize before) {
    NSControl::sizeChanged(before);
    if (!autosizes_ || rows_ == 0 || columns_ == 0) return;
    const auto share = [](double extent, long count, double spacing) {
        return std::max(0.0, (extent + spacing) / static_cast<double>(count) - spacing);
    };
    setCellSize(
        {share(frame().size.width, columns_, spacing_.width), share(frame().size.height, rows_, spacing_.height)});
}

// Looks.

void NSMatrix::setDrawsBackground(bool flag) {
    drawsBackground_ = flag;
    changed();
}
void NSMatrix::setDrawsCellBackground(bool flag) {
    drawsCellBackground_ = flag;
    changed();
}
void NSMatrix::setBackgroundColor(const id& color) {
    backgroundColor_ = color.isNil() ? color : VELT_CNSCOLOR(color);
    changed();
}
void NSMatrix::setCellBackgroundColor(const id& color) {
    cellBackgroundColor_ = color.isNil() ? color : VELT_CNSCOLOR(color);
    changed();
}

void NSMatrix::setStateAt(long state, long row, long column) {
    const MatrixPlace place{row, column};
    if (!has(place)) return;
    if (mode_ == velt::MatrixMode::Radio && state != NSCell::kOff) {
        selectCellAt(row, column);
    } else {
        const Ref<NSCell> cell = entryAt(place).cell;
        cell->setState(state);
    }
}

void NSMatrix::setToolTipForCell(const id& text, const id& cell) {
    if (const MatrixPlace place = placeOf(cell); place.isValid()) entryAt(place).toolTip = text;
}
id NSMatrix::toolTipForCell(const id& cell) const {
    const MatrixPlace place = placeOf(cell);
    return place.isValid() ? entryAt(place).toolTip : id();
}

void NSMatrix::setEnabled(bool flag) {
    NSControl::setEnabled(flag);
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        const Ref<NSCell> cell = entries_[at].cell;
        cell->setEnabled(flag);
    }
}

// The widget.

std::unique_ptr<QWidget> NSMatrix::makeWidget() {
    auto widget = std::make_unique<velt::MatrixWidget>();
    watchEvents(*widget);
    return widget;
}

void NSMatrix::syncWidget(QWidget& widget) {
    NSControl::syncWidget(widget);
    static_cast<velt::MatrixWidget&>(widget).matrixChanged();
}

void NSMatrix::cellChanged(NSCell&) { changed(); }

void NSMatrix::cellTaken(NSCell& cell) {
    const MatrixPlace place = placeOf(&cell);
    if (!place.isValid()) return;
    release(entryAt(place));
    Entry next = newEntry(place.row, place.column, nil);
    entryAt(place).cell = next.cell;
    changed();
}

bool NSMatrix::acceptsFirstResponder() const {
    if (refusesFirstResponder()) return false;
    return std::any_of(entries_.begin(), entries_.end(), [](const Entry& entry) { return entry.cell->isEnabled(); });
}

void NSMatrix::visitOwned(velt::OwnedVisitor& visitor) {
    for (Entry& entry : entries_) {
        visitor.visit(entry.cell);
        visitor.visit(entry.toolTip);
    }
    NSControl::visitOwned(visitor);
}
