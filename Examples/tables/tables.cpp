// tables.bas as the translator writes it: a million rows that are reckoned when the table asks for them. --dark shows
// it in dark colours on whatever desktop, --reverse as those see it who read from right to left.
#include "support/screenshot.h"

namespace {

const id& count() {
    static const id value = VELT_ID(1000003L);
    return value;
}

class Register : public NSObject {
    VELT_OBJECT(Register, NSObject)

public:
    id window, table, status, changes, byName = VELT_ID(BOOL{0}), descending = VELT_ID(BOOL{0});

    static void describe(velt::ClassBuilder<Register>& c) {
        c.property("window", &Register::window)
            .property("table", &Register::table)
            .property("status", &Register::status)
            .property("changes", &Register::changes)
            .property("byName", &Register::byName)
            .property("descending", &Register::descending)
            .method("numberOfRowsInTableView:", &Register::rowCount)
            .method("tableView:objectValueForTableColumn:row:", &Register::value)
            .method("tableView:setObjectValue:forTableColumn:row:", &Register::setValue)
            .method("tableView:sortDescriptorsDidChange:", &Register::sortChanged)
            .method("tableViewSelectionDidChange:", &Register::selectionChanged)
            .method("tableView:toolTipForTableColumn:row:", &Register::toolTip)
            .method("opened:", &Register::opened);
    }

    id numberAt(id row) {
        VELTS("tables.bas", "Register.NumberAt", "16", "");
        id place = VELT__INTEGER(row);
        VELTS("tables.bas", "Register.NumberAt", "17", "");
        if (VELT_CBOOL(descending)) place = VELT__INTEGER(VELT_SUB(VELT_SUB(count(), VELT_ID(1L)), row));
        VELTS("tables.bas", "Register.NumberAt", "18", "");
        if (VELT_CBOOL(byName)) return VELT__INTEGER(VELT_MOD(VELT_MUL(place, VELT_ID(905372L)), count()));
        VELTS("tables.bas", "Register.NumberAt", "19", "");
        return VELT__INTEGER(place);
    }

    id syllable(id index) {
        VELTS("tables.bas", "Register.Syllable", "23", "");
        return VELT__STRING(VELT_CONCAT(VELT_AT("bcdfghjklmnpqrstvwxyz"_v, VELT_IDIV(index, VELT_ID(5L))),
                                        VELT_AT("aeiou"_v, VELT_MOD(index, VELT_ID(5L)))));
    }

    id nameOf(id number) {
        VELTS("tables.bas", "Register.NameOf", "27", "");
        id code = VELT__INTEGER(VELT_MOD(VELT_MUL(number, VELT_ID(618034L)), count()));
        VELTS("tables.bas", "Register.NameOf", "28", "");
        return VELT__STRING(VELT_CONCAT(VELT_CONCAT(syllable(VELT_IDIV(code, VELT_ID(11025L))),
                                                    syllable(VELT_MOD(VELT_IDIV(code, VELT_ID(105L)), VELT_ID(105L)))),
                                        syllable(VELT_MOD(code, VELT_ID(105L)))));
    }

    id keyOf(id column, id number) {
        VELTS("tables.bas", "Register.KeyOf", "33", "");
        return VELT__STRING(VELT_CONCAT(VELT_CONCAT(VELT_NSTABLECOLUMN_IDENTIFIER(column), " "_v), number));
    }

    id rowCount(const id&) {
        VELTS("tables.bas", "Register.RowCount", "37", "");
        return VELT__INTEGER(count());
    }

    id value(const id&, const id& column, const id& row) {
        VELTS("tables.bas", "Register.Value", "41", "");
        id number = VELT__INTEGER(numberAt(row));
        VELTS("tables.bas", "Register.Value", "42", "");
        if (VELT_CBOOL(VELT_EQUAL(VELT_NSTABLECOLUMN_IDENTIFIER(column), "number"_v))) return number;
        VELTS("tables.bas", "Register.Value", "43", "");
        id key = VELT__STRING(keyOf(column, number));
        VELTS("tables.bas", "Register.Value", "44", "");
        if (VELT_CBOOL(VELT_NSMUTABLEDICTIONARY_CONTAINS(changes, key)))
            return VELT_NSMUTABLEDICTIONARY_VALUE(changes, key);
        VELTS("tables.bas", "Register.Value", "45", "");
        if (VELT_CBOOL(VELT_EQUAL(VELT_NSTABLECOLUMN_IDENTIFIER(column), "name"_v))) return nameOf(number);
        VELTS("tables.bas", "Register.Value", "46", "");
        return VELT_ID(0L);
    }

    void setValue(const id&, const id& value, const id& column, const id& row) {
        VELTS("tables.bas", "Register.SetValue", "50", "");
        VELT_NSMUTABLEDICTIONARY_INSERT(changes, keyOf(column, numberAt(row)), value);
        VELTS("tables.bas", "Register.SetValue", "51", "");
        VELT_NSCONTROL_STRINGVALUE(status, VELT_CONCAT(VELT_NSMUTABLEDICTIONARY_COUNT(changes), " cells changed"_v));
    }

    void sortChanged(const id& sorted, const id&) {
        VELTS("tables.bas", "Register.SortChanged", "55", "");
        id order = VELT_NSMUTABLEARRAY_OBJECT(VELT_PROPERTY(sorted, "sortDescriptors"_v), VELT_ID(0L));
        VELTS("tables.bas", "Register.SortChanged", "56", "");
        byName = VELT__BOOLEAN(VELT_EQUAL(VELT_PROPERTY(order, "key"_v), "name"_v));
        VELTS("tables.bas", "Register.SortChanged", "57", "");
        descending = VELT__BOOLEAN(VELT_NOT(VELT_PROPERTY(order, "ascending"_v)));
        VELTS("tables.bas", "Register.SortChanged", "58", "");
        VELT_NSTABLEVIEW_RELOADDATA(sorted);
    }

    void selectionChanged(const id&) {
        VELTS("tables.bas", "Register.SelectionChanged", "62", "");
        if (VELT_CBOOL(VELT_SMALLER(VELT_NSTABLEVIEW_SELECTEDROW(table), VELT_ID(0L)))) {
            VELTS("tables.bas", "Register.SelectionChanged", "63", "");
            VELT_NSCONTROL_STRINGVALUE(status, "No row selected"_v);
        } else {
            VELTS("tables.bas", "Register.SelectionChanged", "65", "");
            VELT_NSCONTROL_STRINGVALUE(
                status, VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("Row "_v, VELT_NSTABLEVIEW_SELECTEDROW(table)), " of "_v),
                                    VELT_NSTABLEVIEW_COUNT(table)));
        }
    }

    id toolTip(const id&, const id&, const id& row) {
        VELTS("tables.bas", "Register.ToolTip", "70", "");
        return VELT_CONCAT(VELT_CONCAT(nameOf(numberAt(row)), ", number "_v), numberAt(row));
    }

    void opened(const id&) {
        VELTS("tables.bas", "Register.Opened", "75", "");
        VELT_NSCONTROL_STRINGVALUE(status,
                                   VELT_CONCAT("Opened "_v, nameOf(numberAt(VELT_NSTABLEVIEW_CLICKEDROW(table)))));
    }

    void addColumn(id identifier, id title, id width, id cell) {
        VELTS("tables.bas", "Register.AddColumn", "79", "");
        id column = VELT_NSTABLECOLUMN_INIT(id(this), "", identifier, title);
        VELTS("tables.bas", "Register.AddColumn", "80", "");
        VELT_NSTABLECOLUMN_WIDTH(column, width);
        VELTS("tables.bas", "Register.AddColumn", "81", "");
        if (VELT_CBOOL(VELT_UNEQUAL(cell, nil))) VELT_NSTABLECOLUMN_DATACELL(column, cell);
        VELTS("tables.bas", "Register.AddColumn", "82", "");
        VELT_NSTABLEVIEW_APPEND(table, column);
    }

    void sortedBy(id index, id key) {
        VELTS("tables.bas", "Register.SortedBy", "86", "");
        id order = VELT_NSOBJECT_PERFORMSELECTOR2(NSSortDescriptor::entry().object(),
                                                  "sortDescriptorWithKey:ascending:"_v, key, VELT_ID(BOOL{1}));
        VELTS("tables.bas", "Register.SortedBy", "87", "");
        VELT_PROPERTY(VELT_NSMUTABLEARRAY_OBJECT(VELT_PROPERTY(table, "tableColumns"_v), index),
                      "sortDescriptorPrototype"_v, order);
    }

    void open() {
        VELTS("tables.bas", "Register.Open", "91", "");
        changes = VELT__NSMUTABLEDICTIONARY(velt::make<NSMutableDictionary>());
        VELTS("tables.bas", "Register.Open", "92", "");
        window = VELT__NSWINDOW(VELT_NSWINDOW_INIT(id(this), ""));
        VELTS("tables.bas", "Register.Open", "93", "");
        VELT_NSWINDOW_TITLE(window, "A million rows"_v);
        VELTS("tables.bas", "Register.Open", "94", "");
        VELT_NSWINDOW_CONTENTSIZE(window, VELT_SIZE_INIT(nil, "", VELT_ID(520L), VELT_ID(420L)));
        VELTS("tables.bas", "Register.Open", "95", "");
        table = VELT__NSTABLEVIEW(VELT_NSTABLEVIEW_INIT(id(this), ""));
        VELTS("tables.bas", "Register.Open", "96", "");
        VELT_NSVIEW_FRAME(table, VELT_RECT_INIT(nil, "", VELT_ID(16L), VELT_ID(44L), VELT_ID(488L), VELT_ID(360L)));
        VELTS("tables.bas", "Register.Open", "97", "");
        VELT_NSVIEW_AUTORESIZINGMASK(table, VELT_ID(18L));
        VELTS("tables.bas", "Register.Open", "98", "");
        VELT_NSTABLEVIEW_USESALTERNATINGROWBACKGROUNDCOLORS(table, VELT_ID(BOOL{1}));
        VELTS("tables.bas", "Register.Open", "99", "");
        VELT_NSTABLEVIEW_GRIDSTYLEMASK(table, VELT_ID(1L));
        VELTS("tables.bas", "Register.Open", "100", "");
        VELT_NSTABLEVIEW_ROWHEIGHT(table, VELT_ID(22L));
        VELTS("tables.bas", "Register.Open", "101", "");
        VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table, "opened"_v);
        VELTS("tables.bas", "Register.Open", "102", "");
        VELT_PROPERTY(table, "allowsMultipleSelection"_v, VELT_ID(BOOL{1}));
        VELTS("tables.bas", "Register.Open", "103", "");
        id number = VELT_NSCELL_INIT(id(this), "");
        VELTS("tables.bas", "Register.Open", "104", "");
        VELT_PROPERTY(number, "alignment"_v, VELT_ID(1L));
        VELTS("tables.bas", "Register.Open", "105", "");
        addColumn("number"_v, "Number"_v, VELT_ID(90L), number);
        VELTS("tables.bas", "Register.Open", "106", "");
        addColumn("name"_v, "Name"_v, VELT_ID(180L), nil);
        VELTS("tables.bas", "Register.Open", "107", "");
        id box = VELT_NSBUTTONCELL_INIT(id(this), "");
        VELTS("tables.bas", "Register.Open", "108", "");
        VELT_NSBUTTONCELL_TITLE(box, ""_v);
        VELTS("tables.bas", "Register.Open", "109", "");
        addColumn("done"_v, "Done"_v, VELT_ID(60L), box);
        VELTS("tables.bas", "Register.Open", "110", "");
        id weight = VELT_NSPOPUPBUTTONCELL_INIT(id(this), "");
        VELTS("tables.bas", "Register.Open", "111", "");
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, VELT_ID(2L))); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("tables.bas", "Register.Open", "112", "");
            VELT_NSOBJECT_PERFORMSELECTOR1(weight, "addItemWithTitle:"_v,
                                           VELT_NSMUTABLEARRAY_OBJECT(VELT_SPLIT("Low Normal High"_v, " "_v), i));
        }
        VELTS("tables.bas", "Register.Open", "114", "");
        addColumn("weight"_v, "Weight"_v, VELT_ID(110L), weight);
        VELTS("tables.bas", "Register.Open", "115", "");
        sortedBy(VELT_ID(0L), "number"_v);
        VELTS("tables.bas", "Register.Open", "116", "");
        sortedBy(VELT_ID(1L), "name"_v);
        VELTS("tables.bas", "Register.Open", "117", "");
        VELT_NSWINDOW_APPEND(window, table);
        VELTS("tables.bas", "Register.Open", "118", "");
        status = VELT__NSTEXTFIELD(VELT_LABEL_INIT(id(this), ""));
        VELTS("tables.bas", "Register.Open", "119", "");
        VELT_NSVIEW_FRAME(status, VELT_RECT_INIT(nil, "", VELT_ID(16L), VELT_ID(14L), VELT_ID(488L), VELT_ID(20L)));
        VELTS("tables.bas", "Register.Open", "120", "");
        VELT_NSVIEW_AUTORESIZINGMASK(status, VELT_ID(2L));
        VELTS("tables.bas", "Register.Open", "121", "");
        VELT_NSCONTROL_STRINGVALUE(status, VELT_CONCAT(count(), " rows"_v));
        VELTS("tables.bas", "Register.Open", "122", "");
        VELT_NSWINDOW_APPEND(window, status);
        VELTS("tables.bas", "Register.Open", "123", "");
        VELT_NSWINDOW_CENTERANDSHOW(window);
    }

    /// What it does where nobody works it: sorts by names, changes some rows, and edits a name.
    void work() {
        NSTableView& shown = *velt::as<NSTableView>(table);
        shown.headerClicked(1);
        const id columns = shown.tableColumns();
        for (const long row : {1L, 4L}) setValue(table, VELT_ID(1L), velt::arrayOf(columns)->items()[2], VELT_ID(row));
        for (const long row : {2L, 3L})
            setValue(table, VELT_ID(row - 1), velt::arrayOf(columns)->items()[3], VELT_ID(row));
        VELT_NSTABLEVIEW_SELECTROW(table, VELT_ID(3L));
        shown.editColumn(1, 6, nil, true);
    }
};

int program(int arguments, char** texts) {
    example::dressAsAsked(arguments, texts);
    VELTS("tables.bas", "Main", "128", "");
    const velt::Ref<Register> table = velt::make<Register>();
    VELTS("tables.bas", "Main", "129", "");
    table->open();
    example::shotWhenAsked(table->window, [table] { table->work(); });
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return example::runShowing("tables", program, count, arguments); }
