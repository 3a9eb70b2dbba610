// What programs call to fill, ask and arrange tables, columns and combo boxes, where it is unlike the convention.
#include "support/control_window.h"

using namespace velt::test;
using velt::Ref;

namespace {

/// Rows of numbers, and two ways to be told of a double click.
class Owner : public NSObject {
    VELT_OBJECT(Owner, NSObject)
public:
    long count(const id&) { return rows; }
    id value(const id&, const id&, long row) { return VELT_ID(row); }
    void open(const id&) { heard += "open: "; }
    void openPlain() { heard += "open "; }
    void show() { heard += "show "; }
    void act(const id&) { heard += "act "; }
    static void describe(velt::ClassBuilder<Owner>& c) {
        c.method("numberOfRowsInTableView:", &Owner::count)
            .method("tableView:objectValueForTableColumn:row:", &Owner::value)
            .method("open:", &Owner::open)
            .method("open", &Owner::openPlain)
            .method("show", &Owner::show)
            .method("act:", &Owner::act);
    }
    long rows = 8;
    std::string heard;
};

struct TableWrappers : testing::Test {
    TableWrappers() { VELT_NSTABLEVIEW_APPEND(table, VELT_NSTABLECOLUMN_INIT(nil, "number")); }
    ~TableWrappers() override {
        VELT_NSTABLEVIEW_DELEGATE(table, nil);
        VELT_NSTABLEVIEW_DATASOURCE(table, nil);
        VELT_NSTABLEVIEW_TARGET(table, nil);
    }
    std::string selected() { return show(ask(table, "selectedRowIndexes")); }

    Ref<Owner> owner = velt::make<Owner>();
    id table = VELT_NSTABLEVIEW_INIT(owner, "act:");
};

struct ComboBoxWrappers : testing::Test {
    ComboBoxWrappers() {
        for (const id& item : {str("red"), integer(5), str("blue")}) VELT_NSCOMBOBOX_APPEND(box, item);
    }
    id box = VELT_NSCOMBOBOX_INIT(nil, "");
};

}  // namespace

TEST_F(TableWrappers, MakeTheOwnerDelegateDataSourceAndTarget) {
    EXPECT_EQ("NSTableView", velt::classOf(table)->name());
    EXPECT_EQ(NSRect{}, VELT_CNSRECT(VELT_NSVIEW_FRAME(table)));
    EXPECT_EQ(id(owner), VELT_NSTABLEVIEW_DELEGATE(table));
    EXPECT_EQ(id(owner), VELT_NSTABLEVIEW_DATASOURCE(table));
    EXPECT_EQ(id(owner), VELT_NSTABLEVIEW_TARGET(table));
    EXPECT_VALUE("'act:'", ask(table, "action"));
    const id other = VELT_NSTABLEVIEW_INIT(owner, "unknown:");
    EXPECT_EQ(id(owner), VELT_NSTABLEVIEW_TARGET(other));
    EXPECT_EQ(id(owner), VELT_NSTABLEVIEW_DATASOURCE(other));
    EXPECT_TRUE(ask(other, "action").isNil());
    VELT_NSTABLEVIEW_DATASOURCE(other, nil);
    EXPECT_VALUE("q 0", VELT_NSTABLEVIEW_COUNT(other));
}

TEST_F(TableWrappers, CountTheRowsOfTheOwner) {
    EXPECT_VALUE("q 8", VELT_NSTABLEVIEW_COUNT(table));
    owner->rows = 3;
    EXPECT_VALUE("q 8", VELT_NSTABLEVIEW_COUNT(table));
    EXPECT_TRUE(VELT_NSTABLEVIEW_RELOADDATA(table).isNil());
    EXPECT_VALUE("q 3", VELT_NSTABLEVIEW_COUNT(table));
    EXPECT_VALUE("q -1", VELT_NSTABLEVIEW_CLICKEDROW(table));
    EXPECT_VALUE("q -1", VELT_NSTABLEVIEW_SELECTEDROW(table));
}

TEST_F(TableWrappers, SelectOneRowInPlaceOfTheOthers) {
    velt::send(table, "setAllowsMultipleSelection:", boolean(true));
    velt::send(table, "selectAll:", nil);
    EXPECT_EQ("NSIndexSet <NSIndexSet 0-7>", selected());
    EXPECT_TRUE(VELT_NSTABLEVIEW_SELECTROW(table, integer(3)).isNil());
    EXPECT_EQ("NSIndexSet <NSIndexSet 3>", selected());
    EXPECT_VALUE("q 3", VELT_NSTABLEVIEW_SELECTEDROW(table));
    VELT_NSTABLEVIEW_SELECTROW(table, real(4.9));
    EXPECT_EQ("NSIndexSet <NSIndexSet 4>", selected());
    VELT_NSTABLEVIEW_SELECTROW(table, str("5"));
    EXPECT_EQ("NSIndexSet <NSIndexSet 5>", selected());
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_NSTABLEVIEW_SELECTROW(table, owner));
    EXPECT_EQ("NSIndexSet <NSIndexSet 5>", selected());
    for (const long none : {8L, -1L}) {
        VELT_NSTABLEVIEW_SELECTROW(table, integer(5));
        VELT_NSTABLEVIEW_SELECTROW(table, integer(none));
        EXPECT_VALUE("q -1", VELT_NSTABLEVIEW_SELECTEDROW(table));
    }
    EXPECT_TRUE(VELT_NSTABLEVIEW_SELECTROW(nil, integer(3)).isNil());
}

TEST_F(TableWrappers, BindTheDoubleClickByName) {
    EXPECT_VALUE("''", VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table));
    VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table, str("open"));
    EXPECT_VALUE("'open:'", ask(table, "doubleAction"));  // the one with a colon goes first
    EXPECT_VALUE("''", VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table));
    EXPECT_NE(VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table), VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table));
    VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table, str("show"));
    EXPECT_VALUE("'show'", ask(table, "doubleAction"));
    VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table, str("nobody"));
    EXPECT_VALUE("'show'", ask(table, "doubleAction"));
    VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table, str(""));
    EXPECT_VALUE("'show'", ask(table, "doubleAction"));
    VELT_NSTABLEVIEW_TARGET(table, nil);
    VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table, str("open"));
    EXPECT_VALUE("'show'", ask(table, "doubleAction"));
    EXPECT_VALUE("'act:'", ask(table, "action"));
    EXPECT_EQ(raised([] { VELT_CSTRING(nil); }), raised([&] { VELT_NSTABLEVIEW_DOUBLEACTIONNAME(table, nil); }));
}

TEST_F(TableWrappers, TakeColumnsAlone) {
    EXPECT_CAST_FAILURE("'NSTableColumn' expected", VELT_NSTABLEVIEW_APPEND(table, str("column")));
    EXPECT_CAST_FAILURE("'NSTableColumn' expected", VELT_NSTABLEVIEW_APPEND(table, table));
    EXPECT_VALUE("q 1", ask(table, "numberOfColumns"));
    EXPECT_TRUE(VELT_NSTABLEVIEW_APPEND(table, nil).isNil());
    EXPECT_VALUE("q 1", ask(table, "numberOfColumns"));
    VELT_NSTABLEVIEW_APPEND(table, VELT_NSTABLECOLUMN_INIT(nil, "second"));
    EXPECT_VALUE("q 1", velt::send(table, "columnWithIdentifier:", str("second")));
}

TEST_F(TableWrappers, KeepLooks) {
    VELT_NSTABLEVIEW_HEADERVIEW(table, nil);
    EXPECT_TRUE(VELT_NSTABLEVIEW_HEADERVIEW(table).isNil());
    VELT_NSTABLEVIEW_ROWHEIGHT(table, real(30));
    EXPECT_VALUE("d 30", VELT_NSTABLEVIEW_ROWHEIGHT(table));
    VELT_NSTABLEVIEW_GRIDSTYLEMASK(table, integer(3));
    EXPECT_VALUE("Q 3", VELT_NSTABLEVIEW_GRIDSTYLEMASK(table));
}

TEST(TableColumnWrappers, MakeColumnsByTheirIdentifier) {
    const id plain = VELT_NSTABLECOLUMN_INIT(nil, "name");
    EXPECT_VALUE("'name'", VELT_NSTABLECOLUMN_IDENTIFIER(plain));
    EXPECT_VALUE("''", VELT_NSTABLECOLUMN_IDENTIFIER(VELT_NSTABLECOLUMN_INIT(nil, nullptr)));
    const id titled = VELT_NSTABLECOLUMN_INIT(nil, "ignored", integer(7), str("Größe"));
    EXPECT_VALUE("'7'", VELT_NSTABLECOLUMN_IDENTIFIER(titled));
    EXPECT_VALUE("'Größe'", VELT_NSTABLECOLUMN_TITLE(titled));
    EXPECT_EQ(raised([] { VELT_CSTRING(nil); }), raised([] { VELT_NSTABLECOLUMN_INIT(nil, "", nil, str("title")); }));
    EXPECT_EQ(raised([] { VELT_CSTRING(nil); }), raised([] { VELT_NSTABLECOLUMN_INIT(nil, "", str("name"), nil); }));
}

TEST(TableColumnWrappers, TitleTheHeaderCell) {
    const id column = VELT_NSTABLECOLUMN_INIT(nil, "name");
    VELT_NSTABLECOLUMN_TITLE(column, str("Name"));
    EXPECT_VALUE("'Name'", ask(ask(column, "headerCell"), "stringValue"));
    velt::send(ask(column, "headerCell"), "setStringValue:", str("Other"));
    EXPECT_VALUE("'Other'", VELT_NSTABLECOLUMN_TITLE(column));
}

TEST(TableColumnWrappers, SayVisibleForHidden) {
    const id column = VELT_NSTABLECOLUMN_INIT(nil, "name");
    EXPECT_VALUE("c 1", VELT_NSTABLECOLUMN_VISIBLE(column));
    VELT_NSTABLECOLUMN_VISIBLE(column, boolean(false));
    EXPECT_VALUE("c 0", VELT_NSTABLECOLUMN_VISIBLE(column));
    EXPECT_VALUE("c 1", ask(column, "isHidden"));
    EXPECT_CAST_FAILURE("'Boolean' expected", VELT_NSTABLECOLUMN_VISIBLE(column, column));
    EXPECT_VALUE("c 0", VELT_NSTABLECOLUMN_VISIBLE(column));
    VELT_NSTABLECOLUMN_VISIBLE(column, str("true"));
    EXPECT_VALUE("c 1", VELT_NSTABLECOLUMN_VISIBLE(column));
    EXPECT_VALUE("c 0", VELT_NSTABLECOLUMN_VISIBLE(nil));
}

TEST(TableColumnWrappers, KeepWidthsWithinTheirLimits) {
    const id column = VELT_NSTABLECOLUMN_INIT(nil, "name");
    VELT_NSTABLECOLUMN_MINWIDTH(column, real(50));
    VELT_NSTABLECOLUMN_MAXWIDTH(column, real(80));
    EXPECT_VALUE("d 80", VELT_NSTABLECOLUMN_WIDTH(column));
    VELT_NSTABLECOLUMN_WIDTH(column, integer(10));
    EXPECT_VALUE("d 50", VELT_NSTABLECOLUMN_WIDTH(column));
    VELT_NSTABLECOLUMN_WIDTH(column, real(60.5));
    EXPECT_VALUE("d 60.5", VELT_NSTABLECOLUMN_WIDTH(column));
}

TEST_F(ComboBoxWrappers, KeepValuesOfAnyKind) {
    EXPECT_VALUE("q 3", VELT_NSCOMBOBOX_COUNT(box));
    EXPECT_VALUE("q 5", VELT_NSCOMBOBOX_OBJECT(box, integer(1)));
    EXPECT_TRUE(VELT_NSCOMBOBOX_INSERT(box, integer(1), str("green")).isNil());  // the index before the value
    EXPECT_VALUE("'green'", VELT_NSCOMBOBOX_OBJECT(box, str("1")));
    VELT_NSCOMBOBOX_REMOVEOBJECT(box, integer(5));
    VELT_NSCOMBOBOX_REMOVEOBJECT(box, str("not there"));
    VELT_NSCOMBOBOX_REMOVE(box, integer(0));
    EXPECT_EQ("(green, blue)", velt::utf8(velt::description(ask(box, "objectValues"))));
    VELT_NSCOMBOBOX_REMOVEALL(box);
    EXPECT_VALUE("q 0", VELT_NSCOMBOBOX_COUNT(box));
}

TEST_F(ComboBoxWrappers, FindValues) {
    EXPECT_VALUE("q 2", VELT_NSCOMBOBOX_INDEX(box, str("blue")));
    EXPECT_VALUE("q 9223372036854775807", VELT_NSCOMBOBOX_INDEX(box, str("Blue")));
    EXPECT_VALUE("c 1", VELT_NSCOMBOBOX_CONTAINS(box, integer(5)));
    EXPECT_VALUE("c 0", VELT_NSCOMBOBOX_CONTAINS(box, str("5")));
    EXPECT_VALUE("c 0", VELT_NSCOMBOBOX_CONTAINS(box, str("yellow")));
    EXPECT_VALUE("c 0", VELT_NSCOMBOBOX_CONTAINS(nil, str("yellow")));
    EXPECT_VALUE("q 0", VELT_NSCOMBOBOX_INDEX(nil, str("yellow")));
}

TEST_F(ComboBoxWrappers, SelectByIndexAndByValue) {
    EXPECT_VALUE("q -1", VELT_NSCOMBOBOX_SELECTED(box));
    EXPECT_TRUE(VELT_NSCOMBOBOX_SELECTEDOBJECT(box).isNil());
    VELT_NSCOMBOBOX_SELECT(box, integer(2));
    EXPECT_VALUE("'blue'", VELT_NSCOMBOBOX_SELECTEDOBJECT(box));
    VELT_NSCOMBOBOX_SELECTOBJECT(box, integer(5));
    EXPECT_VALUE("q 1", VELT_NSCOMBOBOX_SELECTED(box));
    VELT_NSCOMBOBOX_UNSELECT(box, integer(0));
    EXPECT_VALUE("q 1", VELT_NSCOMBOBOX_SELECTED(box));
    VELT_NSCOMBOBOX_UNSELECT(box, integer(1));
    EXPECT_VALUE("q -1", VELT_NSCOMBOBOX_SELECTED(box));
    VELT_NSCOMBOBOX_SCROLLTO(box, integer(2));
}

TEST_F(ComboBoxWrappers, ReportIndexesBeyondTheList) {
    const std::string beyond = "index 3 is out of range; the count is 3";
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' objectAtIndex:: " + beyond,
                  VELT_NSCOMBOBOX_OBJECT(box, integer(3)));
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' objectAtIndex:: " + beyond,
                  VELT_NSCOMBOBOX_SELECT(box, integer(3)));
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' removeObjectAtIndex:: " + beyond,
                  VELT_NSCOMBOBOX_REMOVE(box, integer(3)));
    EXPECT_RAISES("NSRangeException: 'NSMutableArray' insertObject:atIndex:: index 4 is out of range; the count is 3",
                  VELT_NSCOMBOBOX_INSERT(box, integer(4), str("x")));
    EXPECT_CAST_FAILURE("'Integer' expected", VELT_NSCOMBOBOX_INSERT(box, box, str("x")));
    EXPECT_VALUE("q 3", VELT_NSCOMBOBOX_COUNT(box));
}

TEST_F(ComboBoxWrappers, PutSeparatorsIntoTheContextMenuNotIntoTheList) {
    const id menu = VELT_NSMENU_INIT(nil, "menu");
    VELT_NSMENU_APPEND(menu, str("Paste"));
    velt::send(box, "setMenu:", menu);
    VELT_NSCOMBOBOX_APPENDSEPARATOR(box);
    EXPECT_VALUE("q 3", VELT_NSCOMBOBOX_COUNT(box));
    EXPECT_VALUE("q 2", ask(menu, "numberOfItems"));
    EXPECT_VALUE("c 1", ask(velt::send(menu, "itemAtIndex:", integer(1)), "isSeparatorItem"));
    const id other = VELT_NSCOMBOBOX_INIT(nil, "");
    VELT_NSCOMBOBOX_APPENDSEPARATOR(other);
    EXPECT_VALUE("q 1", ask(ask(other, "menu"), "numberOfItems"));
    EXPECT_TRUE(VELT_NSCOMBOBOX_APPENDSEPARATOR(nil).isNil());
}
