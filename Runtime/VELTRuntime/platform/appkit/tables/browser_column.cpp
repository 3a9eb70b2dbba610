#include "VELTRuntime/platform/appkit/tables/browser_column.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"
#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/appkit/tables/cell_painting.h"
#include "VELTRuntime/platform/appkit/text/fitting_line.h"
#include "VELTRuntime/platform/object/drop_elements.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace velt {

namespace {

constexpr int kArrowRoom = 16;

/// Draws a row's cell, with an arrow when it opens a column.
class BrowserDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const override {
        QStyleOptionViewItem option = given;
        const QStyle& style = *option.widget->style();
        style.drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
        const id value = static_cast<const BrowserRows*>(index.model())->cell(index.row());
        if (!is<NSCell>(value)) return;
        const bool isLeaf = is<NSBrowserCell>(value) && as<NSBrowserCell>(value)->isLeaf();
        const QRect whole = option.rect;
        if (!isLeaf) {
            option.rect = QStyle::visualRect(option.direction, whole, whole.adjusted(0, 0, -kArrowRoom, 0));
            QStyleOption arrow = option;
            const QRect place(whole.right() - kArrowRoom + 1, whole.top(), kArrowRoom, whole.height());
            arrow.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, {9, 9},
                                             QStyle::visualRect(option.direction, whole, place));
            if (option.state & QStyle::State_Selected) {
                for (const QPalette::ColorRole role : {QPalette::ButtonText, QPalette::Text, QPalette::WindowText}) {
                    arrow.palette.setColor(role, option.palette.color(QPalette::HighlightedText));
                }
            }
            const bool mirrored = option.direction == Qt::RightToLeft;
            style.drawPrimitive(mirrored ? QStyle::PE_IndicatorArrowLeft : QStyle::PE_IndicatorArrowRight, &arrow,
                                painter, option.widget);
        }
        drawCell(*painter, option, *as<NSCell>(value));
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        constexpr int kMargin = 4;
        return {option.rect.width(), option.fontMetrics.height() + kMargin};
    }
};

/// The list of a column; the keys to the side go to the columns there.
class ColumnList final : public QListView {
public:
    explicit ColumnList(BrowserColumn& column) : QListView(&column), column_(column) {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool forward = event->key() == (isRightToLeft() ? Qt::Key_Left : Qt::Key_Right);
        const bool backward = event->key() == (isRightToLeft() ? Qt::Key_Right : Qt::Key_Left);
        const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        NSBrowser* browser = browserAround(this);
        if (!browser) return QListView::keyPressEvent(event);
        const Ref<NSBrowser> kept(browser);
        if (!(forward || backward || isReturn)) {
            kept->handlesKey(true);
            QListView::keyPressEvent(event);
            kept->handlesKey(false);
            return;
        }
        if (isReturn) {
            event->setAccepted(!kept->doubleActionName().isNil() && currentIndex().isValid());
            if (event->isAccepted()) runReported([&] { kept->columnDoubleClicked(); });
            return;
        }
        runReported([&] { kept->moveToColumn(column_, forward ? 1 : -1); });
    }

private:
    BrowserColumn& column_;
};

/// A selection that does not become empty by what a person does, unless the browser allows that.
class ColumnSelection final : public QItemSelectionModel {
public:
    ColumnSelection(QAbstractItemModel& model, QListView& list) : QItemSelectionModel(&model, &list), list_(list) {}

    void select(const QItemSelection& given, SelectionFlags command) override {
        QItemSelection left = selection();
        const NSBrowser* browser = browserAround(&list_);
        if (browser && !browser->allowsEmptySelection() && !left.isEmpty()) {
            if (command & Clear) left.clear();
            left.merge(given, command);
            if (left.isEmpty()) return;
        }
        QItemSelectionModel::select(given, command);
    }
    void select(const QModelIndex& index, SelectionFlags command) override {
        select(QItemSelection(index, index), command);
    }

private:
    QListView& list_;
};

}  // namespace

NSBrowser* browserAround(const QWidget* widget) {
    for (; widget; widget = widget->parentWidget()) {
        if (NSView* view = viewOf(widget)) return dynamic_cast<NSBrowser*>(view);
    }
    return nullptr;
}

void BrowserRows::setRows(int rows) {
    beginResetModel();
    dropAll(cells_);
    rows_ = rows;
    endResetModel();
}

id BrowserRows::cell(int row) const {
    if (!browser_ || row < 0 || row >= rows_) return nil;
    if (const auto found = cells_.find(row); found != cells_.end()) return found->second;
    const Ref<NSBrowser> kept(browser_);
    id made;
    runReported([&] { made = kept->newCell(row, column_); });
    cells_.emplace(row, made);
    return made;
}

QVariant BrowserRows::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole) return {};
    const id value = cell(index.row());
    return is<NSCell>(value) ? qtText(as<NSCell>(value)->stringValue()) : QVariant();
}

void BrowserRows::visitOwned(OwnedVisitor& visitor) {
    for (auto& [row, value] : cells_) visitor.visit(value);
}

BrowserColumn::BrowserColumn(NSBrowser& browser, long place, QWidget* parent)
    : QWidget(parent), place_(place), title_(new QLabel(this)), list_(new ColumnList(*this)),
      rows_(new BrowserRows(browser, place)) {
    rows_->setParent(this);
    list_->setModel(rows_);
    delete list_->selectionModel();
    list_->setSelectionModel(new ColumnSelection(*rows_, *list_));
    list_->setItemDelegate(new BrowserDelegate(list_));
    list_->setUniformItemSizes(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    title_->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(title_);
    layout->addWidget(list_, 1);
    const auto tell = [this](auto function) {
        NSBrowser* shown = browserAround(this);
        if (!shown) return;
        const Ref<NSBrowser> kept(shown);
        runReported([&] { function(*kept); });
    };
    connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this, tell] { tell([this](NSBrowser& shown) { shown.rowSelected(*this); }); });
    connect(list_, &QListView::clicked, this, [tell] { tell([](NSBrowser& shown) { shown.columnClicked(); }); });
    connect(list_, &QListView::doubleClicked, this,
            [tell] { tell([](NSBrowser& shown) { shown.columnDoubleClicked(); }); });
}

int BrowserColumn::selectedRow() const {
    const QModelIndexList rows = list_->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void BrowserColumn::showTitle(bool shown, const QString& title) {
    title_->setVisible(shown);
    title_->setText(fittingLine(title, title_->font(), Qt::ElideRight, width()));
    list_->setAccessibleName(title.isEmpty() ? QObject::tr("Column %1").arg(place_ + 1) : title);
}

}  // namespace velt
