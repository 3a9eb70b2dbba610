// What of a matrix is selected, and what a person's mouse and keys do to it in each mode.
#include "VELTRuntime/platform/appkit/application.h"
#include "VELTRuntime/platform/appkit/controls/button_cell.h"
#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/tables/matrix.h"
#include "VELTRuntime/platform/appkit/tables/matrix_widget.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/class_casts.h"
#include "VELTRuntime/values/string.h"

#include <QApplication>
#include <algorithm>

using velt::MatrixMode;
using velt::MatrixPlace;
using velt::Ref;

// Selection.

void NSMatrix::setAllowsEmptySelection(bool flag) {
    allowsEmpty_ = flag;
    keepOneSelected();
}

id NSMatrix::selectedCell() const { return cellAt(selected_.row, selected_.column); }

Ref<NSCell> NSMatrix::valueCell() const {
    return has(selected_) ? entryAt(selected_).cell : Ref<NSCell>(&cellObject());
}

bool NSMatrix::isSelected(MatrixPlace place) const { return has(place) && entryAt(place).isSelected; }

id NSMatrix::selectedCells() const {
    Ref<NSMutableArray> all = velt::make<NSMutableArray>();
    for (const Entry& entry : entries_) {
        if (entry.isSelected) all->append(entry.cell);
    }
    return all;
}

void NSMatrix::mark(MatrixPlace place, bool selected) {
    Entry& entry = entryAt(place);
    entry.isSelected = selected;
    if (selected) {
        selected_ = place;
    } else if (selected_ == place) {
        selected_ = {};
    }
    const Ref<NSCell> cell = entry.cell;  // its observers may change the matrix
    if (showsSelection()) cell->setState(selected ? NSCell::kOn : NSCell::kOff);
    changed();
}

void NSMatrix::clearSelection() {
    for (long row = 0; row < rows_; ++row) {
        for (long column = 0; column < columns_; ++column) {
            if (isSelected({row, column})) mark({row, column}, false);
        }
    }
    selected_ = {};
}

void NSMatrix::keepOneSelected() {
    if (mode_ != MatrixMode::Radio || allowsEmpty_ || has(selected_)) return;
    for (long row = 0; row < rows_; ++row) {
        for (long column = 0; column < columns_; ++column) {
            if (entryAt({row, column}).cell->isEnabled()) {
                mark({row, column}, true);
                return;
            }
        }
    }
}

void NSMatrix::selectCellAt(long row, long column) {
    const MatrixPlace place{row, column};
    if (!has(place)) {
        deselectSelectedCell();
        return;
    }
    if (mode_ == MatrixMode::Radio && isSelected(place)) return;
    clearSelection();
    if (has(place)) mark(place, true);
    key_ = anchor_ = place;
}

void NSMatrix::selectCell(const id& cell) {
    if (const MatrixPlace place = placeOf(cell); place.isValid()) selectCellAt(place.row, place.column);
}

bool NSMatrix::selectCellWithTag(long tag) {
    const MatrixPlace place = placeOf(cellWithTag(tag));
    if (place.isValid()) selectCellAt(place.row, place.column);
    return place.isValid();
}

void NSMatrix::selectAll() {
    if (mode_ == MatrixMode::Radio) return;
    const MatrixPlace last = selected_;
    for (long row = 0; row < rows_; ++row) {
        for (long column = 0; column < columns_; ++column) {
            if (has({row, column}) && entryAt({row, column}).cell->isEnabled()) mark({row, column}, true);
        }
    }
    if (has(last)) selected_ = last;
}

void NSMatrix::deselectAllCells() {
    if (mode_ == MatrixMode::Radio && !allowsEmpty_) return;
    clearSelection();
}

void NSMatrix::deselectSelectedCell() {
    if (mode_ == MatrixMode::Radio && !allowsEmpty_) return;
    if (has(selected_)) mark(selected_, false);
}

void NSMatrix::setKeyCell(const id& cell) {
    key_ = placeOf(cell);
    changed();
}

void NSMatrix::selectBetween(MatrixPlace from, MatrixPlace to) {
    const auto within = [&](MatrixPlace place) {
        if (byRect_) {
            return place.row >= std::min(from.row, to.row) && place.row <= std::max(from.row, to.row) &&
                   place.column >= std::min(from.column, to.column) && place.column <= std::max(from.column, to.column);
        }
        const long at = place.row * columns_ + place.column;
        const auto [first, last] = std::minmax({from.row * columns_ + from.column, to.row * columns_ + to.column});
        return at >= first && at <= last;
    };
    for (long row = 0; row < rows_; ++row) {
        for (long column = 0; column < columns_; ++column) {
            const MatrixPlace place{row, column};
            const bool selected = within(place) && canWork(place);
            if (selected != isSelected(place)) mark(place, selected);
        }
    }
    if (isSelected(to)) selected_ = to;
}

// Actions.

id NSMatrix::doubleActionName() const { return velt::actionName(doubleAction_); }
void NSMatrix::setDoubleActionName(const id& name) { doubleAction_ = velt::actionNamed(name); }

bool NSMatrix::sendOwnAction() {
    const id selected = selectedCell();
    if (velt::is<NSCell>(selected)) {
        const Ref<NSCell> cell(velt::as<NSCell>(selected));
        if (cell->action() && !cell->target().isNil()) return sendAction(cell->action(), cell->target());
    }
    const NSCell& own = cellObject();
    return sendAction(own.action(), own.target());
}

void NSMatrix::sendDoubleAction() {
    if (doubleAction_) {
        sendAction(doubleAction_, target());
    } else {
        sendOwnAction();
    }
}

void NSMatrix::sendActionForCells(velt::Selector action, const id& target, bool all) {
    const id asked = all ? cells() : selectedCells();
    for (const id& cell : velt::arrayOf(asked)->items()) {
        const id answer = velt::send(target, action, cell);
        if (velt::isNumber(answer) && !VELT_CBOOL(answer)) return;
    }
}

void NSMatrix::performClick(const id&) {
    const MatrixPlace place = has(key_) ? key_ : selected_;
    if (canWork(place)) work(place);
}

void NSMatrix::clickCell(NSCell& cell) {
    const MatrixPlace place = placeOf(&cell);
    if (canWork(place)) work(place);
}

bool NSMatrix::performKeyEquivalent(NSEvent* event) {
    for (std::size_t at = 0; event && at < entries_.size(); ++at) {
        const auto* button = dynamic_cast<const NSButtonCell*>(entries_[at].cell.get());
        if (!button || !button->isEnabled() || !button->answersKey(*event)) continue;
        const MatrixPlace place{static_cast<long>(at) / columns_, static_cast<long>(at) % columns_};
        if (!canWork(place)) continue;
        work(place);
        return true;
    }
    return false;
}

// The mouse.

bool NSMatrix::canWork(MatrixPlace place) const {
    return isEnabled() && has(place) && entryAt(place).cell->isEnabled();
}

void NSMatrix::highlight(MatrixPlace place) {
    if (place == highlighted_) return;
    const id before = cellAt(highlighted_.row, highlighted_.column), next = cellAt(place.row, place.column);
    highlighted_ = place;
    if (!before.isNil()) velt::as<NSCell>(before)->setHighlighted(false);
    if (!next.isNil()) velt::as<NSCell>(next)->setHighlighted(true);
}

/// A complete press of a cell that can be worked: its state, the selection, the action.
void NSMatrix::work(MatrixPlace place) {
    const Ref<NSMatrix> kept(this);
    const Ref<NSCell> cell = entryAt(place).cell;
    switch (mode_) {
    case MatrixMode::Radio:
        if (isSelected(place) && allowsEmpty_) {
            clearSelection();
        } else {
            selectCellAt(place.row, place.column);
        }
        break;
    case MatrixMode::List: selectCellAt(place.row, place.column); break;
    case MatrixMode::Highlight:
    case MatrixMode::Track:
        selectCellAt(place.row, place.column);
        if (auto* button = dynamic_cast<NSButtonCell*>(cell.get())) {
            button->pressed();
        } else {
            cell->setNextState();
        }
        break;
    }
    key_ = place;
    sendOwnAction();
}

void NSMatrix::pressed(MatrixPlace place, bool extends, bool toggles) {
    if (!canWork(place)) return;
    pressed_ = place;
    if (mode_ != MatrixMode::List) {
        highlight(place);
        return;
    }
    key_ = place;
    selectedBefore_ = isSelected(place);
    if (extends && has(anchor_)) {
        selectBetween(anchor_, place);
        return;
    }
    anchor_ = place;
    if (toggles) {
        mark(place, !selectedBefore_);
    } else {
        selectBetween(place, place);
    }
}

void NSMatrix::dragged(MatrixPlace place) {
    if (!pressed_.isValid()) return;
    switch (mode_) {
    case MatrixMode::Radio:
    case MatrixMode::Highlight: highlight(canWork(place) ? place : MatrixPlace{}); break;
    case MatrixMode::Track: highlight(place == pressed_ && canWork(place) ? place : MatrixPlace{}); break;
    case MatrixMode::List:
        if (has(place) && has(anchor_) && !(place == key_)) {
            selectBetween(anchor_, place);
            key_ = place;
        }
        break;
    }
}

void NSMatrix::released(MatrixPlace place, bool twice) {
    const MatrixPlace start = std::exchange(pressed_, {});
    if (!start.isValid()) return;
    const Ref<NSMatrix> kept(this);
    highlight({});
    if (mode_ == MatrixMode::List) {
        // The selection is made; where the button was let go does not matter.
        if (twice) {
            sendDoubleAction();
        } else {
            sendOwnAction();
        }
        return;
    }
    const bool counts = mode_ == MatrixMode::Track ? place == start : true;
    if (!counts || !canWork(place)) return;
    if (twice && doubleAction_) {
        sendDoubleAction();
        return;
    }
    const Ref<NSCell> cell = entryAt(place).cell;
    if (cell->isEditable()) {
        selectCellAt(place.row, place.column);
        selectTextAt(place.row, place.column);
        return;
    }
    work(place);
}

// The keyboard.

MatrixPlace NSMatrix::step(MatrixPlace from, long rows, long columns) const {
    MatrixPlace at = from;
    for (;;) {
        at = {at.row + rows, at.column + columns};
        if (!has(at)) return from;
        if (canWork(at)) return at;
    }
}

bool NSMatrix::keyPressed(int key, bool extends) {
    const Ref<NSMatrix> kept(this);
    MatrixPlace from = has(key_) ? key_ : selected_;
    if (key == Qt::Key_Space || key == Qt::Key_Select) {
        if (!has(from)) from = step({0, -1}, 0, 1);
        if (!canWork(from)) return false;
        if (entryAt(from).cell->isEditable()) {
            selectTextAt(from.row, from.column);
        } else {
            work(from);
        }
        return true;
    }
    const long forward = QApplication::isRightToLeft() ? -1 : 1;
    long rows = 0, columns = 0;
    switch (key) {
    case Qt::Key_Up: rows = -1; break;
    case Qt::Key_Down: rows = 1; break;
    case Qt::Key_Left: columns = -forward; break;
    case Qt::Key_Right: columns = forward; break;
    default: return false;
    }
    if (entries_.empty()) return false;
    MatrixPlace to = from;
    if (has(from)) {
        to = step(from, rows, columns);
    } else {
        for (long at = 0; at < rows_ * columns_ && !canWork(to); ++at) to = {at / columns_, at % columns_};
    }
    if (!canWork(to)) return true;
    const bool moved = !(to == from);
    if (mode_ == MatrixMode::List) {
        if (extends && has(anchor_)) {
            selectBetween(anchor_, to);
        } else {
            anchor_ = to;
            selectBetween(to, to);
        }
    } else if (mode_ == MatrixMode::Radio && moved) {
        selectCellAt(to.row, to.column);
    }
    key_ = to;
    changed();
    if (moved && showsSelection()) sendOwnAction();
    return true;
}

// Texts.

void NSMatrix::selectTextAt(long row, long column) {
    const MatrixPlace place{row, column};
    auto* shown = dynamic_cast<velt::MatrixWidget*>(existingWidget());
    if (!shown || !canWork(place) || !entryAt(place).cell->isEditable()) return;
    key_ = place;
    shown->edit(place);
}

void NSMatrix::edited(MatrixPlace place, const id& text, bool sends) {
    if (!has(place)) return;
    const Ref<NSMatrix> kept(this);
    const Ref<NSCell> cell = entryAt(place).cell;
    cell->setStringValue(text);
    if (sends) sendOwnAction();
}

// The class.

void NSMatrix::describe(velt::ClassBuilder<NSMatrix>& c) {
    c.property("mode", &NSMatrix::mode, &NSMatrix::setMode)
        .property("prototype", &NSMatrix::prototype, &NSMatrix::setPrototype)
        .property("numberOfRows", &NSMatrix::numberOfRows)
        .property("numberOfColumns", &NSMatrix::numberOfColumns)
        .property("cellSize", &NSMatrix::cellSize, &NSMatrix::setCellSize)
        .property("intercellSpacing", &NSMatrix::intercellSpacing, &NSMatrix::setIntercellSpacing)
        .property("autosizesCells", &NSMatrix::autosizesCells, &NSMatrix::setAutosizesCells)
        .property("drawsBackground", &NSMatrix::drawsBackground, &NSMatrix::setDrawsBackground)
        .property("drawsCellBackground", &NSMatrix::drawsCellBackground, &NSMatrix::setDrawsCellBackground)
        .property("backgroundColor", &NSMatrix::backgroundColor, &NSMatrix::setBackgroundColor)
        .property("cellBackgroundColor", &NSMatrix::cellBackgroundColor, &NSMatrix::setCellBackgroundColor)
        .property("allowsEmptySelection", &NSMatrix::allowsEmptySelection, &NSMatrix::setAllowsEmptySelection)
        .flag("selectionByRect", &NSMatrix::isSelectionByRect, &NSMatrix::setSelectionByRect)
        .flag("enabled", &NSMatrix::isEnabled, &NSMatrix::setEnabled)
        .property("selectedCell", &NSMatrix::selectedCell)
        .property("selectedCells", &NSMatrix::selectedCells)
        .property("selectedRow", &NSMatrix::selectedRow)
        .property("selectedColumn", &NSMatrix::selectedColumn)
        .property("keyCell", &NSMatrix::keyCell, &NSMatrix::setKeyCell)
        .property("doubleAction", &NSMatrix::doubleActionName, &NSMatrix::setDoubleActionName)
        .property("cells", &NSMatrix::cells)
        .method("makeCellAtRow:column:", &NSMatrix::makeCellAt)
        .method("renewRows:columns:", &NSMatrix::renew)
        .method("addRow", &NSMatrix::addRow)
        .method("addRowWithCells:", &NSMatrix::addRowWithCells)
        .method("insertRow:",
                [](const id& self, const id* a) {
                    velt::as<NSMatrix>(self)->insertRow(VELT_CINTEGER(a[0]), nil);
                    return id();
                })
        .method("insertRow:withCells:", &NSMatrix::insertRow)
        .method("removeRow:", &NSMatrix::removeRow)
        .method("addColumn", &NSMatrix::addColumn)
        .method("addColumnWithCells:", &NSMatrix::addColumnWithCells)
        .method("insertColumn:",
                [](const id& self, const id* a) {
                    velt::as<NSMatrix>(self)->insertColumn(VELT_CINTEGER(a[0]), nil);
                    return id();
                })
        .method("insertColumn:withCells:", &NSMatrix::insertColumn)
        .method("removeColumn:", &NSMatrix::removeColumn)
        .method("cellAtRow:column:", &NSMatrix::cellAt)
        .method("putCell:atRow:column:", &NSMatrix::putCell)
        .method("cellWithTag:", &NSMatrix::cellWithTag)
        .method("cellFrameAtRow:column:", &NSMatrix::cellFrameAt)
        .method("sizeToCells", &NSMatrix::sizeToCells)
        .method("sizeToFit", &NSMatrix::fitCells)
        .method("setState:atRow:column:", &NSMatrix::setStateAt)
        .method("setToolTip:forCell:", &NSMatrix::setToolTipForCell)
        .method("toolTipForCell:", &NSMatrix::toolTipForCell)
        .method("selectCellAtRow:column:", &NSMatrix::selectCellAt)
        .method("selectCell:", &NSMatrix::selectCell)
        .method("selectCellWithTag:", &NSMatrix::selectCellWithTag)
        .method("selectAll:",
                [](const id& self, const id*) {
                    velt::as<NSMatrix>(self)->selectAll();
                    return id();
                })
        .method("deselectAllCells", &NSMatrix::deselectAllCells)
        .method("deselectSelectedCell", &NSMatrix::deselectSelectedCell)
        .method("selectTextAtRow:column:", &NSMatrix::selectTextAt)
        .method("performClick:", &NSMatrix::performClick)
        .method("sendAction", &NSMatrix::sendOwnAction)
        .method("sendDoubleAction", &NSMatrix::sendDoubleAction)
        .method("sendAction:to:forAllCells:",
                [](const id& self, const id* a) {
                    const auto action = velt::Selector::named(velt::utf8(VELT_CSTRING(a[0])));
                    velt::as<NSMatrix>(self)->sendActionForCells(action, a[1], VELT_CBOOL(a[2]));
                    return id();
                })
        .method("performKeyEquivalent:", &NSMatrix::performKeyEquivalent)
        .owns(&NSMatrix::prototype_)
        .owns(&NSMatrix::backgroundColor_)
        .owns(&NSMatrix::cellBackgroundColor_);
    velt::cellProperty<&NSCell::objectValue, &NSCell::setObjectValue>(c, "objectValue");
    velt::cellProperty<&NSCell::stringValue, &NSCell::setStringValue>(c, "stringValue");
    velt::cellProperty<&NSCell::doubleValue, &NSCell::setDoubleValue>(c, "doubleValue");
    velt::cellProperty<&NSCell::floatValue, &NSCell::setFloatValue>(c, "floatValue");
    velt::cellProperty<&NSCell::integerValue, &NSCell::setIntegerValue>(c, "integerValue");
    velt::cellProperty<&NSCell::attributedStringValue, &NSCell::setAttributedStringValue>(c, "attributedStringValue");
}
