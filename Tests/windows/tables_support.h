// A table in a window, and the data source of its rows.
#pragma once

#include "support/control_window.h"

#include <QHeaderView>
#include <QTableView>
#include <functional>
#include <map>
#include <set>

namespace velt::test {

/// Gives the rows of a table and notes what it is asked and told.
class RowSource : public NSObject {
    VELT_OBJECT(RowSource, NSObject)
public:
    long count(const id&) { return rows; }
    id value(const id&, const id& column, long row) {
        asked.insert(row);
        if (onAsked) onAsked(row);
        const std::string name = utf8(send(column, "identifier"));
        if (name == "done") return VELT_ID(states[row]);
        if (name == "picture") return pictures[row];
        const auto found = texts.find(row);
        return str(found == texts.end() ? "row " + std::to_string(row) : found->second);
    }
    void setValue(const id&, const id& value, const id& column, long row) {
        if (utf8(send(column, "identifier")) == "done") {
            states[row] = VELT_CINTEGER(value);
        } else {
            texts[row] = utf8(value);
        }
        heard += "set " + std::to_string(row) + "=" + show(value) + " ";
    }
    void sorted(const id& table, const id&) { heard += "sort " + show(send(table, "sortDescriptors")) + " "; }
    void moved(const id&) { heard += "moved "; }
    void selected(const id& note) { heard += "selected " + show(send(send(note, "object"), "selectedRow")) + " "; }
    bool mayEdit(const id&, const id&, long row) { return row != 3; }
    bool maySelect(const id&, long row) { return row != 2; }
    void clicked(const id& table) { heard += "click " + show(send(table, "clickedRow")) + " "; }
    void opened(const id& table) { heard += "open " + show(send(table, "clickedRow")) + " "; }
    static void describe(ClassBuilder<RowSource>& c) {
        c.method("numberOfRowsInTableView:", &RowSource::count)
            .method("tableView:objectValueForTableColumn:row:", &RowSource::value)
            .method("tableView:setObjectValue:forTableColumn:row:", &RowSource::setValue)
            .method("tableView:sortDescriptorsDidChange:", &RowSource::sorted)
            .method("tableViewColumnDidMove:", &RowSource::moved)
            .method("tableViewSelectionDidChange:", &RowSource::selected)
            .method("tableView:shouldEditTableColumn:row:", &RowSource::mayEdit)
            .method("tableView:shouldSelectRow:", &RowSource::maySelect)
            .method("clicked:", &RowSource::clicked)
            .method("opened:", &RowSource::opened);
    }
    std::string told() { return std::exchange(heard, ""); }

    long rows = 8;
    std::map<long, std::string> texts;
    std::map<long, long> states;
    std::map<long, id> pictures;
    std::set<long> asked;
    std::function<void(long)> onAsked;
    std::string heard;
};

struct Table {
    explicit Table(long rows = 8, Ref<RowSource> given = make<RowSource>()) : source(std::move(given)) {
        source->rows = rows;
        table->setFrame({{10, 10}, {300, 200}});
        name->setTitle(str("Name"));
        name->setWidth(140);
        done->setTitle(str("Done"));
        const id box = VELT_NSBUTTONCELL_INIT(nil, "");
        send(box, "setTitle:", str(""));
        done->setDataCell(box);
        table->addTableColumn(name.get());
        table->addTableColumn(done.get());
        table->setDataSource(source);
        table->setDelegate(source);
        table->setTarget(source);
        table->setActionName(str("clicked:"));
        table->setDoubleActionName(str("opened:"));
        VELT_NSWINDOW_APPEND(window.window, table);
        window.show();
    }
    ~Table() { table->setDelegate(nil); }
    QTableView& view() const { return dynamic_cast<QTableView&>(table->widget()); }
    QPoint at(int row, int column) const { return view().visualRect(view().model()->index(row, column)).center(); }
    void click(int row, int column = 0, Qt::KeyboardModifiers held = {}) const {
        QTest::mouseClick(view().viewport(), Qt::LeftButton, held, at(row, column));
    }
    void doubleClick(int row, int column = 0) const {
        click(row, column);
        QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, at(row, column));
    }

    ControlWindow window{{{50, 60}, {340, 260}}};
    Ref<RowSource> source;
    Ref<NSTableView> table = make<NSTableView>();
    Ref<NSTableColumn> name = make<NSTableColumn>(str("name")), done = make<NSTableColumn>(str("done"));
};

}  // namespace velt::test
