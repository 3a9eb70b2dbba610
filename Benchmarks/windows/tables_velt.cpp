// A table of a million rows: shown, scrolled, sorted by a column; a menu of ten thousand items.
#include "form.h"
#include "rows.h"

#include <QApplication>
#include <QMenu>
#include <VELTRuntime/VELTRuntimeUI.h>
#include <algorithm>
#include <string>
#include <vector>

namespace {

void settle() {
    QApplication::processEvents();
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

id nameOf(long row) { return velt::string("Name " + std::to_string(rows::scrambled(static_cast<unsigned>(row)))); }

/// Makes its values when it is asked, or keeps them.
class Rows : public NSObject {
    VELT_OBJECT(Rows, NSObject)
public:
    long count = 0;
    std::vector<id> kept;

    long rowCount(const id&) { return count; }
    id value(const id&, const id& column, long row) {
        if (velt::textOf(velt::as<NSTableColumn>(column)->identifier()) == u"row") return VELT_ID(row);
        return kept.empty() ? nameOf(row) : kept[static_cast<std::size_t>(row)];
    }
    void sort(const id& table, const id&) {
        std::stable_sort(kept.begin(), kept.end(),
                         [](const id& a, const id& b) { return velt::textOf(a) < velt::textOf(b); });
        velt::as<NSTableView>(table)->reloadData();
    }
    static void describe(velt::ClassBuilder<Rows>& c) {
        c.method("numberOfRowsInTableView:", &Rows::rowCount)
            .method("tableView:objectValueForTableColumn:row:", &Rows::value)
            .method("tableView:sortDescriptorsDidChange:", &Rows::sort);
    }
};

struct Shown {
    explicit Shown(int count, bool keeping) {
        source->count = count;
        for (int row = 0; keeping && row < count; ++row) source->kept.push_back(nameOf(row));
    }
    void show() {
        table->setFrame({{0, 0}, {600, 700}});
        for (const char* name : {"row", "name"}) {
            const velt::Ref<NSTableColumn> column = velt::make<NSTableColumn>(velt::string(std::string_view(name)));
            column->setWidth(280);
            column->setSortDescriptorPrototype(
                velt::make<NSSortDescriptor>(velt::string(std::string_view(name)), true));
            table->addTableColumn(column.get());
        }
        table->setDataSource(source);
        VELT_NSWINDOW_CONTENTSIZE(window, VELT_ID(NSSize{600, 700}));
        VELT_NSWINDOW_APPEND(window, table);
        VELT_NSWINDOW_SHOW(window);
        settle();
    }
    velt::Ref<Rows> source = velt::make<Rows>();
    velt::Ref<NSTableView> table = velt::make<NSTableView>();
    id window = VELT_NSWINDOW_INIT(nil, "");
};

void table(int count) {
    Shown(1, false).show();  // what the first table of any size costs
    Shown shown(count, false);
    const long before = form::residentKilobytes();
    form::Steps steps;
    shown.show();
    steps.end("shown");
    for (int frame = 0; frame < rows::kFrames; ++frame) {
        shown.table->scrollRowToVisible(static_cast<long>(frame) * rows::kFrameStep % count);
        settle();
    }
    steps.end("scrolled");
    std::printf("frames %d\n", rows::kFrames);
    std::printf("memory %ld\n", form::residentKilobytes() - before);
}

void sorted() {
    Shown shown(rows::kMany, true);
    shown.show();
    form::Steps steps;
    shown.table->headerClicked(1);
    settle();
    steps.end("sorted");
}

void menu() {
    QApplication::font();
    const id menu = VELT_NSMENU_INIT(nil, "Many");
    form::Steps steps;
    for (int i = 0; i < rows::kMenuItems; ++i) VELT_NSMENU_APPEND(menu, velt::string("Item " + std::to_string(i)));
    steps.end("built");
    velt::as<NSMenu>(menu)->widget().sizeHint();
    steps.end("measured");
}

}  // namespace

int main(int count, char** arguments) {
    const std::string work = count > 1 ? arguments[1] : "many";
    NSApplication::sharedApplication();
    if (work == "many") table(rows::kMany);
    if (work == "few") table(rows::kFew);
    if (work == "sort") sorted();
    if (work == "menu") menu();
    return 0;
}
