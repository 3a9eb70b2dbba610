#include "VELTRuntime/platform/appkit/tables/outline_tree.h"

#include "VELTRuntime/platform/appkit/tables/outline_model.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace velt {

void OutlineTree::require(const QModelIndex& index) const {
    if (index.isValid()) static_cast<const OutlineModel*>(model())->itemAt(index);
}

bool OutlineTree::hasSiblingsBelow(const QModelIndex& index) const {
    return index.row() + 1 < model()->rowCount(index.parent());
}

void OutlineTree::reset() {
    typing_.stop();
    QTreeView::reset();
}

void OutlineTree::focusOutEvent(QFocusEvent* event) {
    typing_.stop();
    QTreeView::focusOutEvent(event);
}

/// The toolkit's own drawing believes what it asked when the row came.
void OutlineTree::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const {
    require(index);
    if (!index.isValid() || !model()) return;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    QStyle::State state = QStyle::State_None;
    state.setFlag(QStyle::State_Enabled, isEnabled());
    state.setFlag(QStyle::State_Active, window()->isActiveWindow());
    state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    const int step = isRightToLeft() ? indentation() : -indentation();
    option.rect = QRect(isRightToLeft() ? rect.left() : rect.right() + 1 - indentation(), rect.top(), indentation(),
                        rect.height());
    option.state = state | QStyle::State_Item;
    option.state.setFlag(QStyle::State_Sibling, hasSiblingsBelow(index));
    option.state.setFlag(QStyle::State_Children, model()->hasChildren(index));
    option.state.setFlag(QStyle::State_Open, isExpanded(index));
    style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, painter, this);
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
        option.rect.translate(step, 0);
        option.state = state;
        option.state.setFlag(QStyle::State_Sibling, hasSiblingsBelow(above));
        style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, painter, this);
    }
}

void OutlineTree::keyPressEvent(QKeyEvent* event) {
    require(currentIndex());
    // By these keys the toolkit's tree opens whatever is current.
    const bool opens = event->key() == Qt::Key_Plus || event->key() == Qt::Key_Asterisk;
    if (opens && !model()->hasChildren(currentIndex().siblingAtColumn(0))) {
        QAbstractItemView::keyPressEvent(event);  // NOLINT(bugprone-parent-virtual-call)
    } else {
        QTreeView::keyPressEvent(event);
    }
}

void OutlineTree::mousePressEvent(QMouseEvent* event) {
    require(indexAt(event->position().toPoint()));
    QTreeView::mousePressEvent(event);
}

}  // namespace velt
