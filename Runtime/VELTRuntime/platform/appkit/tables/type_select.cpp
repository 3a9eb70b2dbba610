#include "VELTRuntime/platform/appkit/tables/type_select.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/cell_painting.h"
#include "VELTRuntime/platform/appkit/tables/table_view.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QTimerEvent>
#include <QTreeView>
#include <algorithm>

namespace velt {

/// The row under one, or the first one behind the last.
QModelIndex TypeSelect::behind(const QModelIndex& index) const {
    const QAbstractItemModel& model = *view_.model();
    const auto* tree = qobject_cast<const QTreeView*>(&view_);
    const QModelIndex below = !index.isValid() ? QModelIndex()
                              : tree           ? tree->indexBelow(index)
                                               : model.index(index.row() + 1, index.column());
    return below.isValid() ? below : model.index(0, index.isValid() ? index.column() : 0);
}

void TypeSelect::stop() {
    idle_.stop();
    next_ = first_ = current_ = QPersistentModelIndex();
    foundNothing_ = false;
}

void TypeSelect::typed(const QString& text) {
    NSTableView* table = tableOf(&view_);
    if (!table || text.isEmpty() || !view_.model()) return;
    // A pause begins anew. One letter again and again goes from row to row.
    const bool isAnew = !sinceTyped_.isValid() || sinceTyped_.elapsed() > QApplication::keyboardInputInterval();
    sinceTyped_.start();
    if (isAnew) typed_.clear();
    const bool repeats = !typed_.isEmpty() && typed_.count(typed_[0]) == typed_.size() && text == QString(typed_[0]);
    typed_ += text;
    const QString before = std::exchange(sought_, repeats ? text : typed_);
    const Ref<NSTableView> kept(table);
    // What does not begin with a text begins with no longer one.
    const bool goesOn = !isAnew && sought_.startsWith(before) && (foundNothing_ || next_.isValid());
    runReported([&] {
        if (goesOn) {
            if (!foundNothing_) look();
        } else {
            begin(*kept, isAnew || repeats);
        }
    });
}

void TypeSelect::begin(NSTableView& table, bool atNext) {
    stop();
    const QModelIndex current = view_.currentIndex();
    const long from = current.isValid() ? table.rowOf(current) + (atNext ? 1 : 0) : 0;
    if (const std::optional<QModelIndex> found = table.delegatesMatch(textValue(sought_), from)) {
        if (found->isValid()) choose(*found);
        return;
    }
    const int column = table.searchedColumn();
    if (column < 0) return;
    current_ = current;
    first_ = current.isValid() && !atNext ? current.siblingAtColumn(column) : behind(current).siblingAtColumn(column);
    next_ = first_;
    look();
}

/// Looks at some rows, and leaves the others for later.
void TypeSelect::look() {
    idle_.stop();
    NSTableView* table = tableOf(&view_);
    if (!table || !next_.isValid()) return stop();
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < kMostRows && time.elapsed() < kMostMilliseconds; ++i) {
        if (!step(*table)) return;
    }
    idle_.start(0, this);
}

/// Looks at the next row; whether there is another one to be looked at.
bool TypeSelect::step(NSTableView& table) {
    const QPersistentModelIndex asked = next_;
    const bool begins = table.searchedText(asked).startsWith(sought_, Qt::CaseInsensitive);
    // Who was asked may have loaded the rows anew, or let go of the table.
    if (!asked.isValid() || !next_.isValid() || tableOf(&view_) != &table) {
        stop();
        return false;
    }
    if (begins) {
        stop();
        choose(asked);
        return false;
    }
    next_ = behind(asked);
    if (next_ != first_) return true;
    stop();
    foundNothing_ = true;
    return false;
}

void TypeSelect::choose(const QModelIndex& index) {
    const QModelIndex current = view_.currentIndex();
    view_.setCurrentIndex(index.siblingAtColumn(current.isValid() ? current.column() : index.column()));
}

void TypeSelect::timerEvent(QTimerEvent* event) {
    if (event->timerId() != idle_.timerId()) return;
    NSTableView* table = tableOf(&view_);
    // A person who chose a row in the meantime looks for none any more.
    if (!table || view_.currentIndex() != current_) return stop();
    const Ref<NSTableView> kept(table);
    bool whole = false;
    runReported([&] {
        look();
        whole = true;
    });
    if (!whole) stop();
}

}  // namespace velt
