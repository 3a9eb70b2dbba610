// The same table and menu with the toolkit's own model, view and menu.
#include "form.h"
#include "rows.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QMainWindow>
#include <QMenu>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <string>
#include <vector>

namespace {

void settle() {
    QApplication::processEvents();
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

QString nameOf(int row) { return QStringLiteral("Name %1").arg(rows::scrambled(static_cast<unsigned>(row))); }

class Rows final : public QAbstractTableModel {
public:
    int count = 0;
    std::vector<QString> kept;

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count; }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 2; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) return {};
        if (index.column() == 0) return index.row();
        return kept.empty() ? nameOf(index.row()) : kept[static_cast<std::size_t>(index.row())];
    }
};

struct Shown {
    explicit Shown(int count, bool keeping) {
        source.count = count;
        for (int row = 0; keeping && row < count; ++row) source.kept.push_back(nameOf(row));
    }
    void show(QAbstractItemModel& model) {
        auto* view = new QTableView;
        table = view;
        view->setModel(&model);
        view->verticalHeader()->hide();
        view->verticalHeader()->setMinimumSectionSize(1);
        view->verticalHeader()->setDefaultSectionSize(19);
        view->setColumnWidth(0, 280);
        view->horizontalHeader()->setStretchLastSection(true);
        window.setCentralWidget(view);
        window.resize(600, 700);
        window.show();
        settle();
    }
    Rows source;
    QTableView* table = nullptr;
    QMainWindow window;
};

void table(int count) {
    Shown first(1, false);
    first.show(first.source);
    Shown shown(count, false);
    const long before = form::residentKilobytes();
    form::Steps steps;
    shown.show(shown.source);
    steps.end("shown");
    for (int frame = 0; frame < rows::kFrames; ++frame) {
        shown.table->scrollTo(shown.source.index(frame * rows::kFrameStep % count, 0));
        settle();
    }
    steps.end("scrolled");
    std::printf("frames %d\n", rows::kFrames);
    std::printf("memory %ld\n", form::residentKilobytes() - before);
}

void sorted() {
    Shown shown(rows::kMany, true);
    QSortFilterProxyModel sorting;
    sorting.setSourceModel(&shown.source);
    shown.show(sorting);
    form::Steps steps;
    shown.table->sortByColumn(1, Qt::AscendingOrder);
    settle();
    steps.end("sorted");
}

void menu() {
    QApplication::font();
    form::Steps steps;
    QMenu menu(QStringLiteral("Many"));
    for (int i = 0; i < rows::kMenuItems; ++i) menu.addAction(QStringLiteral("Item %1").arg(i));
    steps.end("built");
    menu.sizeHint();
    steps.end("measured");
}

}  // namespace

int main(int count, char** arguments) {
    const std::string work = count > 1 ? arguments[1] : "many";
    const QApplication application(count, arguments);
    if (work == "many") table(rows::kMany);
    if (work == "few") table(rows::kFew);
    if (work == "sort") sorted();
    if (work == "menu") menu();
    return 0;
}
