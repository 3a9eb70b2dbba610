// The toolkit's item views as tables show themselves with: selection, editing and clicks by the table's rules.
#pragma once

#include "VELTRuntime/platform/appkit/controls/button_cell.h"
#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/menus/context_menu.h"
#include "VELTRuntime/platform/appkit/tables/cell_painting.h"
#include "VELTRuntime/platform/appkit/tables/table_view.h"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>

namespace velt {

/// Calls a function with the table that a toolkit's view shows, as an event asks for it; nothing when it has gone.
template <class Function> void withTable(const QWidget* view, Function&& function) {
    NSTableView* table = tableOf(view);
    if (!table) return;
    const Ref<NSTableView> kept(table);
    runReported([&] { function(*kept); });
}

/// A selection that leaves out the rows which the table's delegate refuses.
class RowSelection final : public QItemSelectionModel {
public:
    RowSelection(QAbstractItemModel* model, QWidget* view) : QItemSelectionModel(model, view), view_(view) {}

    void select(const QItemSelection& selection, SelectionFlags command) override;
    void select(const QModelIndex& index, SelectionFlags command) override {
        select(QItemSelection(index, index), command);
    }
    /// Takes rows without asking: the program selects them.
    void selectUnasked(const QItemSelection& selection, SelectionFlags command) {
        QItemSelectionModel::select(selection, command);
    }

private:
    QWidget* view_;
};

/// An item view of the toolkit (a QTableView or a QTreeView) that belongs to a table.
template <class Base> class CellsView final : public Base {
public:
    using Base::Base;

protected:
    bool edit(const QModelIndex& index, QAbstractItemView::EditTrigger trigger, QEvent* event) override {
        constexpr int kStarts = QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed;
        NSTableView* table = tableOf(this);
        const bool starts = trigger & kStarts & Base::editTriggers().toInt();
        if (starts && table) {
            const Ref<NSTableView> kept(table);
            bool may = false;
            runReported([&] { may = kept->mayEdit(index); });
            if (!may) return false;
        }
        return Base::edit(index, trigger, event);
    }

    void mousePressEvent(QMouseEvent* event) override {
        NSTableView* table = tableOf(this);
        const bool beside = !Base::indexAt(event->position().toPoint()).isValid();
        if (table && event->button() == Qt::LeftButton) table->beginSelecting();
        Base::mousePressEvent(event);
        table = tableOf(this);
        if (beside && table && table->allowsEmptySelection()) Base::selectionModel()->clearSelection();
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        NSTableView* table = tableOf(this);
        const bool beside = !Base::indexAt(event->position().toPoint()).isValid();
        if (table && event->button() == Qt::LeftButton) table->endSelecting();
        Base::mouseReleaseEvent(event);
        table = tableOf(this);
        if (beside && table && event->button() == Qt::LeftButton) table->clicked(QModelIndex());
    }

    void keyPressEvent(QKeyEvent* event) override {
        NSTableView* table = tableOf(this);
        // The Return that ends an edit comes here too, and opens nothing.
        const bool isReturn = (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
                              this->state() != QAbstractItemView::EditingState;
        if (isReturn && table) {
            // It is the double click of the keyboard; a table without an action for it leaves it to the window.
            event->setAccepted(!table->doubleActionName().isNil() && Base::currentIndex().isValid());
            if (event->isAccepted()) table->openRow(Base::currentIndex());
            return;
        }
        Base::keyPressEvent(event);
    }

    void showEvent(QShowEvent* event) override {
        withTable(this, [](NSTableView& table) { table.requireLoaded(); });
        Base::showEvent(event);
    }

    void hideEvent(QHideEvent* event) override {
        Base::hideEvent(event);
        if (NSTableView* table = tableOf(this)) table->endSelecting();
    }

    /// Tab goes on to the next place that a person may edit, not to the next one at all.
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override {
        NSTableView* table = tableOf(this);
        const bool forward = hint == QAbstractItemDelegate::EditNextItem;
        if (!table || !(forward || hint == QAbstractItemDelegate::EditPreviousItem)) {
            Base::closeEditor(editor, hint);
            return;
        }
        const QPersistentModelIndex edited = Base::currentIndex();
        Base::closeEditor(editor, QAbstractItemDelegate::NoHint);
        const Ref<NSTableView> kept(table);
        QPersistentModelIndex next;
        runReported([&] { next = kept->editableAfter(edited, forward); });
        if (!next.isValid() || tableOf(this) != table) return;
        Base::setCurrentIndex(next);
        // What is typed goes on where the last text was, selected whole.
        Base::edit(next, QAbstractItemView::AllEditTriggers, nullptr);
    }

    void contextMenuEvent(QContextMenuEvent* event) override {
        NSTableView* table = tableOf(this);
        if (!table || !showContextMenu(*table, *event)) event->ignore();
    }
};

}  // namespace velt
