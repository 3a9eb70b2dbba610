#include "VELTRuntime/platform/appkit/tables/rows_view.h"

#include <QAbstractButton>
#include <QAbstractTableModel>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <limits>

namespace velt {

namespace {

/// The toolkit's table wants a header of its rows; this one has none, whatever the table has.
class RowlessHeader final : public QHeaderView {
public:
    explicit RowlessHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent), none_(this) {
        QHeaderView::setModel(&none_);
    }
    void setModel(QAbstractItemModel*) override {}
    void setSelectionModel(QItemSelectionModel*) override {}

private:
    class NoRows final : public QAbstractTableModel {
    public:
        using QAbstractTableModel::QAbstractTableModel;
        int rowCount(const QModelIndex&) const override { return 0; }
        int columnCount(const QModelIndex&) const override { return 0; }
        QVariant data(const QModelIndex&, int) const override { return {}; }
    };
    NoRows none_;
};

}  // namespace

RowsView::RowsView(QWidget* parent) : QTableView(parent) {
    auto* header = new RowlessHeader(this);
    setVerticalHeader(header);
    header->hide();
    // The button where both headers meet has no place here.
    for (auto* corner : findChildren<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly)) corner->hide();
    setShowGrid(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
}

// Places.

long RowsView::rowCount() const { return model() ? model()->rowCount(rootIndex()) : 0; }
long long RowsView::offset() const { return verticalScrollBar()->value() * scale_; }

int RowsView::verticalOffset() const {
    return static_cast<int>(std::min<long long>(offset(), std::numeric_limits<int>::max() / 2));
}

void RowsView::setRowHeight(int height) {
    height = std::max(1, height);
    if (std::exchange(rowHeight_, height) == height) return;
    updateGeometries();
    viewport()->update();
}

int RowsView::topOfRow(long row) const {
    constexpr long long kFar = std::numeric_limits<int>::max() / 4;
    return static_cast<int>(std::clamp<long long>(row * static_cast<long long>(rowHeight_) - offset(), -kFar, kFar));
}

long RowsView::rowAtHeight(int y) const {
    const long long place = offset() + y;
    return place < 0 ? -1 : static_cast<long>(place / rowHeight_);
}

QRect RowsView::visualRect(const QModelIndex& index) const {
    if (!index.isValid() || index.parent() != rootIndex() || isColumnHidden(index.column())) return {};
    return {columnViewportPosition(index.column()), topOfRow(index.row()), columnWidth(index.column()), rowHeight_};
}

QModelIndex RowsView::indexAt(const QPoint& point) const {
    const long row = rowAtHeight(point.y());
    const int column = columnAt(point.x());
    if (row < 0 || row >= rowCount() || column < 0) return {};
    return model()->index(static_cast<int>(row), column, rootIndex());
}

bool RowsView::isIndexHidden(const QModelIndex& index) const { return isColumnHidden(index.column()); }

void RowsView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid() || isColumnHidden(index.column())) return;
    const QSize room = viewport()->size();
    // As far as it must, unless a hint says where it shall be.
    const auto moved = [](ScrollHint where, long long begin, long long size, long long seen, long long length) {
        if (where == PositionAtTop) return begin;
        if (where == PositionAtBottom) return begin + size - length;
        if (where == PositionAtCenter) return begin + (size - length) / 2;
        if (begin < seen || size > length) return begin;
        return std::max(seen, begin + size - length);
    };
    const long long row = index.row() * static_cast<long long>(rowHeight_);
    const long long top = moved(hint, row, rowHeight_, offset(), room.height());
    verticalScrollBar()->setValue(static_cast<int>((top + scale_ - 1) / scale_));
    QScrollBar& across = *horizontalScrollBar();
    const int left = horizontalHeader()->sectionPosition(index.column());
    const int width = columnWidth(index.column());
    across.setValue(static_cast<int>(moved(EnsureVisible, left, width, across.value(), room.width())));
    update(index);
}

void RowsView::reset() {
    QTableView::reset();
    typing_.stop();
    dropMark_.reset();
    updateGeometries();
}

int RowsView::sizeHintForColumn(int column) const {
    // What is seen is fitted; nobody is asked for more.
    constexpr int kMargins = 12;
    int widest = 0;
    const long end = std::min(rowCount(), rowAtHeight(viewport()->height()) + 1);
    for (long row = std::max(0L, rowAtHeight(0)); row < end; ++row) {
        const QModelIndex index = model()->index(static_cast<int>(row), column, rootIndex());
        widest = std::max(widest, fontMetrics().horizontalAdvance(index.data().toString()));
    }
    return widest + kMargins;
}

void RowsView::updateGeometries() {
    // Scroll bars that come or go change the room that they are reckoned from.
    constexpr int kMostRounds = 3;
    outdated_ = true;
    if (arranging_) return;
    arranging_ = true;
    for (int i = 0; i < kMostRounds && std::exchange(outdated_, false); ++i) arrange();
    arranging_ = false;
    // The toolkit's table would reckon with its header of the rows.
    QAbstractItemView::updateGeometries();  // NOLINT(bugprone-parent-virtual-call)
}

void RowsView::arrange() {
    QHeaderView& titles = *horizontalHeader();
    const int height = titles.isHidden() ? 0 : std::max(titles.minimumHeight(), titles.sizeHint().height());
    setViewportMargins(0, height, 0, 0);
    const QRect place = viewport()->geometry();
    titles.setGeometry(place.left(), place.top() - height, place.width(), height);
    if (titles.isHidden()) QMetaObject::invokeMethod(&titles, "updateGeometries");

    const long long length = rowCount() * static_cast<long long>(rowHeight_);
    QSize room = viewport()->size();
    const QSize most = maximumViewportSize();
    if (most.width() >= titles.length() && most.height() >= length) room = most;
    constexpr long long kMostSteps = std::numeric_limits<int>::max() / 2;
    const long long seen = offset();
    scale_ = length / kMostSteps + 1;
    QScrollBar& down = *verticalScrollBar();
    down.setSingleStep(static_cast<int>(std::max<long long>(1, rowHeight_ / scale_)));
    down.setPageStep(static_cast<int>(std::max<long long>(1, room.height() / scale_)));
    down.setRange(0, static_cast<int>(std::max<long long>(0, (length - room.height() + scale_ - 1) / scale_)));
    down.setValue(static_cast<int>(seen / scale_));
    QScrollBar& across = *horizontalScrollBar();
    across.setSingleStep(std::max(2, room.width() / 8));
    across.setPageStep(room.width());
    across.setRange(0, std::max(0, titles.length() - room.width()));
    titles.setOffset(across.value());
}

void RowsView::scrollContentsBy(int dx, int dy) {
    if (dx) horizontalHeader()->setOffset(horizontalScrollBar()->value());
    const long long down = dy * scale_;
    if (std::abs(down) < viewport()->height()) {
        viewport()->scroll(isRightToLeft() ? -dx : dx, static_cast<int>(down));
    } else {
        viewport()->update();
        updateEditorGeometries();
    }
}

// Selection.

void RowsView::mousePressEvent(QMouseEvent* event) {
    if (!indexAt(event->position().toPoint()).isValid()) setAnchor(-1);
    QTableView::mousePressEvent(event);
}

void RowsView::focusOutEvent(QFocusEvent* event) {
    typing_.stop();
    QTableView::focusOutEvent(event);
}

void RowsView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    const int columns = horizontalHeader()->count();
    long first = std::max(0L, rowAtHeight(std::min(rect.top(), rect.bottom())));
    long last = std::min(rowCount() - 1, rowAtHeight(std::max(rect.top(), rect.bottom())));
    if (state() != DragSelectingState) {
        // The toolkit knows no anchor where the program has selected, and takes the top in its place.
        const long current = currentIndex().isValid() ? currentIndex().row() : first;
        const bool extends = command & QItemSelectionModel::Current;
        if (!extends || anchor_ < 0 || anchor_ >= rowCount()) anchor_ = extends ? current : first;
        if (extends) {
            first = std::min(anchor_, current);
            last = std::max(anchor_, current);
        }
    }
    if (!selectionModel() || columns == 0 || last < first) return;
    const QItemSelection rows(model()->index(static_cast<int>(first), 0, rootIndex()),
                              model()->index(static_cast<int>(last), columns - 1, rootIndex()));
    selectionModel()->select(rows, command);
}

QRegion RowsView::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    const QRect seen = viewport()->rect();
    for (const QItemSelectionRange& range : selection) {
        if (!range.isValid()) continue;
        const QRect rows(QPoint(0, topOfRow(range.top())), QPoint(seen.right(), topOfRow(range.bottom()) + rowHeight_));
        if (rows.intersects(seen)) region += rows & seen;
    }
    return region;
}

int RowsView::seenColumn(int from, int step) const {
    const QHeaderView& titles = *horizontalHeader();
    for (int at = from; at >= 0 && at < titles.count(); at += step) {
        if (!titles.isSectionHidden(titles.logicalIndex(at))) return titles.logicalIndex(at);
    }
    return -1;
}

QModelIndex RowsView::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    const QHeaderView& titles = *horizontalHeader();
    const long rows = rowCount();
    const int first = seenColumn(0, 1);
    if (rows == 0 || first < 0) return {};
    const QModelIndex current = currentIndex();
    if (!current.isValid()) return model()->index(0, first, rootIndex());
    const long page = std::max(1, viewport()->height() / rowHeight_ - 1);
    const int across = isRightToLeft() ? -1 : 1, place = titles.visualIndex(current.column());
    long row = current.row();
    int column = current.column();
    switch (action) {
    case MoveUp: --row; break;
    case MoveDown: ++row; break;
    case MovePageUp: row -= page; break;
    case MovePageDown: row += page; break;
    case MoveHome: row = 0; break;
    case MoveEnd: row = rows - 1; break;
    case MoveLeft: column = seenColumn(place - across, -across); break;
    case MoveRight: column = seenColumn(place + across, across); break;
    case MoveNext:
        column = seenColumn(place + 1, 1);
        if (column < 0 && ++row < rows) column = first;
        break;
    case MovePrevious:
        column = seenColumn(place - 1, -1);
        if (column < 0 && --row >= 0) column = seenColumn(titles.count() - 1, -1);
        break;
    }
    if (column < 0) return current;
    return model()->index(static_cast<int>(std::clamp(row, 0L, rows - 1)), column, rootIndex());
}

// Drawing.

void RowsView::paintRow(QPainter& painter, const QStyleOptionViewItem& option, long row, const QRect& dirty) const {
    const QHeaderView& titles = *horizontalHeader();
    const bool hasFocus = this->hasFocus() || viewport()->hasFocus();
    const int top = topOfRow(row);
    for (int at = 0; at < titles.count(); ++at) {
        const int column = titles.logicalIndex(at);
        if (titles.isSectionHidden(column)) continue;
        QStyleOptionViewItem cell = option;
        cell.rect = QRect(columnViewportPosition(column), top, columnWidth(column), rowHeight_);
        if (!cell.rect.intersects(dirty)) continue;
        // The program may have changed the table while it was asked for the cell before.
        const QModelIndex index = model()->index(static_cast<int>(row), column, rootIndex());
        if (!index.isValid()) return;
        if (selectionModel()->isSelected(index)) cell.state |= QStyle::State_Selected;
        if (hasFocus && index == currentIndex()) cell.state |= QStyle::State_HasFocus;
        style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &cell, &painter, this);
        itemDelegate()->paint(&painter, cell, index);
    }
}

void RowsView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const QRect dirty = event->rect();
    const QHeaderView& titles = *horizontalHeader();
    const long last = rowAtHeight(dirty.bottom());
    for (long row = std::max(0L, rowAtHeight(dirty.top())); row <= last; ++row) {
        option.features.setFlag(QStyleOptionViewItem::Alternate, alternatingRowColors() && row % 2 == 1);
        const bool isRow = row < rowCount();
        // Where no cells are, the rows go on to the edges.
        if (alternatingRowColors()) {
            QStyleOptionViewItem rest = option;
            const int filled = isRow ? titles.length() - titles.offset() : 0;
            rest.rect = QRect(filled, topOfRow(row), viewport()->width() - filled, rowHeight_);
            if (isRightToLeft()) rest.rect.moveLeft(0);
            if (!rest.rect.isEmpty()) style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &rest, &painter, this);
        } else if (!isRow) {
            break;
        }
        if (isRow) paintRow(painter, option, row, dirty);
    }
    paintDropMark(painter);
}

void RowsView::setDropMark(std::optional<DropMark> mark) {
    if (std::exchange(dropMark_, mark) == mark) return;
    viewport()->update();
}

void RowsView::paintDropMark(QPainter& painter) const {
    if (!dropMark_) return;
    constexpr int kThick = 2;
    painter.setPen(QPen(palette().color(QPalette::Highlight), kThick));
    const int width = viewport()->width();
    if (dropMark_->row < 0) {
        painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
    } else if (dropMark_->onRow) {
        painter.drawRect(QRect(0, topOfRow(dropMark_->row), width, rowHeight_).adjusted(1, 1, -1, -1));
    } else {
        const int y = std::clamp(topOfRow(dropMark_->row), 1, std::max(1, viewport()->height() - 1));
        painter.drawLine(0, y, width, y);
    }
}

}  // namespace velt
