// Two tables side by side whose rows a person drags to other places, of the same table and of the other one. A field
// says what both have.
#include <VELTRuntime/VELTRuntimeUI.h>

#include <string>
#include <vector>

namespace {

using velt::send;
using velt::string;

id said;

/// The rows of one table; what is dropped here comes from another of its kind.
class Rows : public NSObject {
    VELT_OBJECT(Rows, NSObject)
public:
    long count(const id&) const { return static_cast<long>(names.size()); }
    id value(const id&, const id&, long row) const { return string(names.at(static_cast<std::size_t>(row))); }
    bool write(const id&, const id& rows, const id& board) const {
        const long row = VELT_CINTEGER(send(rows, "firstIndex"));
        const velt::Ref<NSMutableArray> types = velt::make<NSMutableArray>();
        types->append(string("NSStringPboardType"));
        send(board, "declareTypes:owner:", types, nil);
        send(board, "setString:forType:", string(names.at(static_cast<std::size_t>(row))), types->at(0));
        return true;
    }
    unsigned long validate(const id& table, const id&, long row, long) const {
        send(table, "setDropRow:dropOperation:", VELT_ID(row < 0 ? count(nil) : row), VELT_ID(1L));
        return 16;  // moved
    }
    bool accept(const id& table, const id& info, long row, long) {
        const id from = send(info, "draggingSource");
        auto& others = *velt::as<Rows>(send(from, "dataSource"));
        const id board = send(info, "draggingPasteboard");
        const std::string name = velt::utf8(send(board, "stringForType:", string("NSStringPboardType")));
        names.insert(names.begin() + row, name);
        for (std::size_t i = 0; i < others.names.size(); ++i) {
            if (others.names[i] != name || (&others == this && i == static_cast<std::size_t>(row))) continue;
            others.names.erase(others.names.begin() + static_cast<long>(i));
            break;
        }
        send(table, "reloadData");
        send(from, "reloadData");
        say();
        return true;
    }
    static void describe(velt::ClassBuilder<Rows>& c) {
        c.method("numberOfRowsInTableView:", &Rows::count)
            .method("tableView:objectValueForTableColumn:row:", &Rows::value)
            .method("tableView:writeRowsWithIndexes:toPasteboard:", &Rows::write)
            .method("tableView:validateDrop:proposedRow:proposedDropOperation:", &Rows::validate)
            .method("tableView:acceptDrop:row:dropOperation:", &Rows::accept);
    }
    static void say();
    std::vector<std::string> names;
};

velt::Ref<Rows> left, right;

void Rows::say() {
    std::string all;
    for (const std::string& name : left->names) all.append(name).append(" ");
    all.append("|");
    for (const std::string& name : right->names) all.append(" ").append(name);
    VELT_NSCONTROL_STRINGVALUE(said, string(all));
}

id tableOf(const velt::Ref<Rows>& rows) {
    const id table = VELT_NSTABLEVIEW_INIT(rows, "");
    const id column = VELT_NSTABLECOLUMN_INIT(nil, "name");
    VELT_NSTABLECOLUMN_EDITABLE(column, VELT_ID(BOOL{0}));
    VELT_NSTABLEVIEW_APPEND(table, column);
    const velt::Ref<NSMutableArray> types = velt::make<NSMutableArray>();
    types->append(string("NSStringPboardType"));
    send(table, "registerForDraggedTypes:", types);
    return table;
}

int program(int, char**) {
    const id window = VELT_NSWINDOW_INIT(nil, "");
    VELT_NSWINDOW_FRAME(window, VELT_ID(NSRect{{100, 200}, {460, 322}}));
    VELT_NSWINDOW_TITLE(window, string("Rows"));
    left = velt::make<Rows>();
    right = velt::make<Rows>();
    left->names = {"Ash", "Birch", "Cedar", "Elm"};
    right->names = {"Iris", "Lily"};
    double x = 10;
    for (const velt::Ref<Rows>& rows : {left, right}) {
        const id table = tableOf(rows);
        VELT_NSVIEW_FRAME(table, VELT_ID(NSRect{{x, 60}, {210, 220}}));
        VELT_NSWINDOW_APPEND(window, table);
        x += 230;
    }
    said = VELT_NSTEXTFIELD_INIT(nil, "");
    VELT_NSVIEW_TOOLTIP(said, string("All rows"));
    VELT_NSVIEW_FRAME(said, VELT_ID(NSRect{{10, 16}, {440, 24}}));
    VELT_NSWINDOW_APPEND(window, said);
    Rows::say();
    VELT_NSWINDOW_SHOW(window);
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return velt::runApplication(program, count, arguments); }
