// The toolkit's tree as an outline shows itself with. The toolkit asks of all children of an item at once whether they
// can be opened; here each is asked when it is seen or worked with.
#pragma once

#include "VELTRuntime/platform/appkit/tables/type_select.h"

#include <QTreeView>

namespace velt {

class OutlineTree : public QTreeView {
public:
    using QTreeView::QTreeView;

    void keyboardSearch(const QString& typed) override { typing_.typed(typed); }
    void reset() override;

protected:
    void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void require(const QModelIndex& index) const;
    bool hasSiblingsBelow(const QModelIndex& index) const;

    TypeSelect typing_{*this};
};

}  // namespace velt
