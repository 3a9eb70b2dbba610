#include "VELTRuntime/platform/appkit/tables/browser.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/browser_column.h"
#include "VELTRuntime/platform/object/id_of.h"

#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

using velt::BrowserColumn;
using velt::Ref;
using velt::Selector;

namespace {

/// The columns side by side, scrolled when they need more room than there is.
class BrowserWidget final : public QScrollArea {
public:
    BrowserWidget() {
        setWidget(new QWidget);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QScrollArea::resizeEvent(event);
        tell([](NSBrowser& browser) { browser.layOutColumns(); });
    }
    void showEvent(QShowEvent* event) override {
        tell([](NSBrowser& browser) { browser.requireLoaded(); });
        QScrollArea::showEvent(event);
    }
    void focusInEvent(QFocusEvent*) override {
        tell([](NSBrowser& browser) { browser.takeKeyboard(); });
    }

private:
    template <class Function> void tell(Function&& function) {
        NSBrowser* browser = velt::browserAround(this);
        if (!browser) return;
        const Ref<NSBrowser> kept(browser);
        velt::runReported([&] { function(*kept); });
    }
};

}  // namespace

void NSBrowserCell::setLeaf(bool flag) {
    leaf_ = flag;
    changed();
}

void NSBrowserCell::describe(velt::ClassBuilder<NSBrowserCell>& c) {
    c.flag("leaf", &NSBrowserCell::isLeaf, &NSBrowserCell::setLeaf)
        .flag("loaded", &NSBrowserCell::isLoaded, &NSBrowserCell::setLoaded);
}

NSBrowser::NSBrowser() : separator_(velt::string(u"/")) {}
NSBrowser::~NSBrowser() { NSBrowser::dissolve(); }

void NSBrowser::dissolve() {
    for (BrowserColumn* column : columns_) {
        column->rows().clear();
        column->rows().forget();
    }
    columns_.clear();
    NSControl::dissolve();
}

// Loading.

void NSBrowser::setDelegate(const id& delegate) {
    NSControl::setDelegate(delegate);
    loaded_ = false;
    QWidget* shown = existingWidget();
    if (!shown || !shown->isVisible()) return;
    // The program may still be at work on the delegate.
    QMetaObject::invokeMethod(
        shown,
        [shown] {
            NSBrowser* browser = velt::browserAround(shown);
            if (!browser) return;
            const Ref<NSBrowser> kept(browser);
            velt::runReported([&] { kept->requireLoaded(); });
        },
        Qt::QueuedConnection);
}

void NSBrowser::requireLoaded() {
    if (!loaded_) loadColumnZero();
}

void NSBrowser::loadColumnZero() {
    loaded_ = true;
    closeColumnsAfter(-1);
    openColumn();
}

long NSBrowser::rowsOfColumn(long column) {
    const Selector asks = VELT_SELECTOR("browser:numberOfRowsInColumn:");
    if (!velt::respondsTo(delegate(), asks)) return 0;
    constexpr long kMost = 0x7FFFFFF0;
    return std::clamp(VELT_CINTEGER(velt::send(delegate(), asks, velt::idOf(this), VELT_ID(column))), 0L, kMost);
}

void NSBrowser::openColumn() {
    auto& area = static_cast<QScrollArea&>(widget());
    const long place = lastColumn() + 1, rows = rowsOfColumn(place);
    if (place != lastColumn() + 1) return;  // who was asked has loaded the columns anew
    auto* column = new BrowserColumn(*this, place, area.widget());
    columns_.push_back(column);
    column->rows().setRows(static_cast<int>(rows));
    column->list().setFont(area.font());
    layOutColumns();
    column->show();
    scrollColumnToVisible(place);
}

void NSBrowser::closeColumnsAfter(long place) {
    while (lastColumn() > place) {
        BrowserColumn* column = columns_.back();
        columns_.pop_back();
        column->rows().forget();
        column->hide();
        column->deleteLater();
    }
    layOutColumns();
}

void NSBrowser::addColumn() {
    requireLoaded();
    openColumn();
}

void NSBrowser::reloadColumn(long place) {
    if (place < 0 || place > lastColumn()) return;
    const auto rows = static_cast<int>(rowsOfColumn(place));
    if (place > lastColumn()) return;  // who was asked has closed it
    BrowserColumn& column = *columns_[static_cast<std::size_t>(place)];
    const int row = column.selectedRow();
    choosing_ = true;
    column.rows().setRows(rows);
    if (row >= 0 && row < rows) column.list().setCurrentIndex(column.rows().index(row));
    choosing_ = false;
    if (row >= rows) closeColumnsAfter(place);
}

id NSBrowser::newCell(long row, long column) {
    id cell = velt::make<NSBrowserCell>();
    const Selector tells = VELT_SELECTOR("browser:willDisplayCell:atRow:column:");
    if (velt::respondsTo(delegate(), tells)) {
        velt::send(delegate(), tells, velt::idOf(this), cell, VELT_ID(row), VELT_ID(column));
    }
    velt::as<NSBrowserCell>(cell)->setLoaded(true);
    return cell;
}

// Columns and rows.

id NSBrowser::loadedCell(long row, long column) {
    requireLoaded();
    if (column < 0 || column > lastColumn()) return nil;
    return columns_[static_cast<std::size_t>(column)]->rows().cell(static_cast<int>(row));
}

long NSBrowser::selectedRowInColumn(long column) const {
    return column < 0 || column > lastColumn() ? -1 : columns_[static_cast<std::size_t>(column)]->selectedRow();
}

long NSBrowser::selectedColumn() const {
    long column = lastColumn();
    while (column >= 0 && selectedRowInColumn(column) < 0) --column;
    return column;
}

id NSBrowser::selectedCellInColumn(long column) { return loadedCell(selectedRowInColumn(column), column); }
id NSBrowser::selectedBrowserCell() { return selectedCellInColumn(selectedColumn()); }

void NSBrowser::selectRow(long row, long place) {
    requireLoaded();
    if (place < 0 || place > lastColumn()) return;
    BrowserColumn& column = *columns_[static_cast<std::size_t>(place)];
    if (row < 0 || row >= column.rows().rowCount()) return;
    column.list().setCurrentIndex(column.rows().index(static_cast<int>(row)));
}

void NSBrowser::rowSelected(BrowserColumn& column) {
    if (choosing_) return;
    const long place = column.place();
    closeColumnsAfter(place);
    const id cell = selectedCellInColumn(place);
    if (!cell.isNil() && velt::is<NSBrowserCell>(cell) && !velt::as<NSBrowserCell>(cell)->isLeaf()) openColumn();
    syncTitles();
    // The keys choose as the mouse does, unless the program wants to hear of the mouse alone.
    if (column.list().hasFocus() && isKeyEvent_ && sendsOnArrows_) worked();
}

void NSBrowser::columnClicked() { worked(); }
void NSBrowser::columnDoubleClicked() { sendAction(doubleAction_, target()); }

void NSBrowser::setDoubleActionName(const id& name) { doubleAction_ = velt::actionNamed(name); }

bool NSBrowser::moveToColumn(const BrowserColumn& from, int step) {
    const long place = from.place() + step;
    if (place < 0 || place > lastColumn()) return false;
    BrowserColumn& column = *columns_[static_cast<std::size_t>(place)];
    column.list().setFocus(Qt::OtherFocusReason);
    if (step > 0 && column.selectedRow() < 0) selectRow(0, place);
    scrollColumnToVisible(place);
    if (sendsOnArrows_) worked();
    return true;
}

void NSBrowser::takeKeyboard() {
    const long place = std::max(0L, selectedColumn());
    if (place <= lastColumn()) columns_[static_cast<std::size_t>(place)]->list().setFocus(Qt::OtherFocusReason);
}

// Paths.

id NSBrowser::pathToColumn(long column) {
    std::u16string text;
    const std::u16string separator(velt::textOf(separator_));
    for (long place = 0; place < column && place <= lastColumn(); ++place) {
        const id cell = selectedCellInColumn(place);
        if (cell.isNil()) break;
        text += separator;
        text += velt::textOf(velt::as<NSCell>(cell)->stringValue());
    }
    return velt::string(text.empty() ? separator : text);
}

id NSBrowser::path() { return pathToColumn(selectedColumn() + 1); }

bool NSBrowser::setPath(const id& path) {
    const QString separator = velt::qtText(separator_);
    const QStringList parts = velt::qtText(path).split(separator, Qt::SkipEmptyParts);
    loadColumnZero();
    long place = 0;
    for (const QString& part : parts) {
        if (place > lastColumn()) return false;
        const int rows = columns_[static_cast<std::size_t>(place)]->rows().rowCount();
        int row = 0;
        const auto shows = [&](const id& cell) {
            return velt::is<NSCell>(cell) && velt::qtText(velt::as<NSCell>(cell)->stringValue()) == part;
        };
        while (row < rows && !shows(loadedCell(row, place))) ++row;
        if (row == rows) return false;
        selectRow(row, place);
        ++place;
    }
    return true;
}

// Looks.

void NSBrowser::layOutColumns() {
    QWidget* shown = existingWidget();
    if (!shown) return;
    auto& area = static_cast<QScrollArea&>(*shown);
    const int room = area.viewport()->width(), height = area.viewport()->height();
    const long fitting = std::max(1L, static_cast<long>(room / std::max(1.0, minColumnWidth_)));
    const long seen = std::clamp(std::min(fitting, maxVisibleColumns_), 1L, 1000L);
    const int width = room / static_cast<int>(seen), gap = 2;
    const int all = std::max(room, width * static_cast<int>(columns_.size()));
    area.widget()->resize(all, height);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const int x = width * static_cast<int>(i);
        const int left = area.isRightToLeft() ? all - x - width : x;
        columns_[i]->setGeometry(left, 0, width - gap, height);
    }
    syncTitles();
}

void NSBrowser::syncTitles() {
    for (BrowserColumn* column : columns_) {
        column->showTitle(titled_, titled_ ? velt::qtText(titleOfColumn(column->place())) : QString());
    }
}

id NSBrowser::titleOfColumn(long column) {
    const Selector asks = VELT_SELECTOR("browser:titleOfColumn:");
    if (velt::respondsTo(delegate(), asks)) {
        id title = velt::send(delegate(), asks, velt::idOf(this), VELT_ID(column));
        if (velt::isString(title)) return title;
    }
    if (const auto own = titles_.find(column); own != titles_.end() && !own->second.isNil()) return own->second;
    // The title of a column is what it belongs to.
    const id cell = column > 0 ? selectedCellInColumn(column - 1) : nil;
    return velt::is<NSCell>(cell) ? velt::as<NSCell>(cell)->stringValue() : velt::string(std::u16string_view());
}

void NSBrowser::setTitleOfColumn(const id& title, long column) {
    if (column < 0) return;
    titles_[column] = title;
    syncTitles();
}

void NSBrowser::setTitled(bool flag) {
    titled_ = flag;
    syncTitles();
}
void NSBrowser::setMinColumnWidth(double width) {
    minColumnWidth_ = width;
    layOutColumns();
}
void NSBrowser::setMaxVisibleColumns(long count) {
    maxVisibleColumns_ = std::max(1L, count);
    layOutColumns();
}

void NSBrowser::scrollColumnToVisible(long column) {
    if (!existingWidget() || column < 0 || column > lastColumn()) return;
    static_cast<QScrollArea&>(*existingWidget()).ensureWidgetVisible(columns_[static_cast<std::size_t>(column)], 0, 0);
}

std::unique_ptr<QWidget> NSBrowser::makeWidget() {
    auto made = std::make_unique<BrowserWidget>();
    watchEvents(*made);
    return made;
}

void NSBrowser::syncWidget(QWidget& shown) {
    NSControl::syncWidget(shown);
    for (BrowserColumn* column : columns_) column->list().setFont(shown.font());
}

void NSBrowser::visitOwned(velt::OwnedVisitor& visitor) {
    for (BrowserColumn* column : columns_) column->rows().visitOwned(visitor);
    for (auto& [column, title] : titles_) visitor.visit(title);
    NSControl::visitOwned(visitor);
}

void NSBrowser::describe(velt::ClassBuilder<NSBrowser>& c) {
    using Browser = NSBrowser;
    c.method("loadColumnZero", &Browser::loadColumnZero)
        .method("isLoaded", &Browser::isLoaded)
        .method("reloadColumn:", &Browser::reloadColumn)
        .method("addColumn", &Browser::addColumn)
        .property("lastColumn", &Browser::lastColumn)
        .property("selectedColumn", &Browser::selectedColumn)
        .method("selectedRowInColumn:", &Browser::selectedRowInColumn)
        .method("selectRow:inColumn:", &Browser::selectRow)
        .method("selectedCellInColumn:", &Browser::selectedCellInColumn)
        .property("selectedCell", &Browser::selectedBrowserCell)
        .method("loadedCellAtRow:column:", &Browser::loadedCell)
        .property("path", &Browser::path, &Browser::setPath)
        .method("pathToColumn:", &Browser::pathToColumn)
        .property("pathSeparator", &Browser::pathSeparator, &Browser::setPathSeparator)
        .flag("titled", &Browser::isTitled, &Browser::setTitled)
        .method("titleOfColumn:", &Browser::titleOfColumn)
        .method("setTitle:ofColumn:", &Browser::setTitleOfColumn)
        .property("minColumnWidth", &Browser::minColumnWidth, &Browser::setMinColumnWidth)
        .property("maxVisibleColumns", &Browser::maxVisibleColumns, &Browser::setMaxVisibleColumns)
        .property("allowsEmptySelection", &Browser::allowsEmptySelection, &Browser::setAllowsEmptySelection)
        .property("sendsActionOnArrowKeys", &Browser::sendsActionOnArrowKeys, &Browser::setSendsActionOnArrowKeys)
        .property("doubleAction", &Browser::doubleActionName, &Browser::setDoubleActionName)
        .method("scrollColumnToVisible:", &Browser::scrollColumnToVisible)
        .owns(&Browser::separator_);
}
