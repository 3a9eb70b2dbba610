#include "VELTRuntime/ui/tables.h"

#include "VELTRuntime/platform/appkit/tables/table_view.h"
#include "VELTRuntime/ui/constructors.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/string.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/tables.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

id VELT_NSTABLEVIEW_INIT(const id& owner, const char* action) {
    Ref<NSTableView> table = ui::newObject<NSTableView>("VELT_NSTABLEVIEW_INIT", owner, action);
    table->setDelegate(owner);
    table->setDataSource(owner);
    table->setTarget(owner);
    return table;
}

id VELT_NSTABLECOLUMN_INIT(const id&, const char* identifier) {
    requireMainThread("VELT_NSTABLECOLUMN_INIT");
    return make<NSTableColumn>(ui::stringOfLiteral(identifier));
}

id VELT_NSTABLECOLUMN_INIT(const id&, const char*, const id& identifier, const id& title) {
    requireMainThread("VELT_NSTABLECOLUMN_INIT");
    Ref<NSTableColumn> column = make<NSTableColumn>(VELT_CSTRING(identifier));
    column->setTitle(VELT_CSTRING(title));
    return column;
}

id VELT_NSTABLEVIEW_DOUBLEACTIONNAME(const id&) { return string(std::u16string_view()); }  // programs rely on it

id VELT_NSTABLEVIEW_DOUBLEACTIONNAME(const id& table, const id& name) {
    return ui::bindAction("VELT_NSTABLEVIEW_DOUBLEACTIONNAME", table, name, "setDoubleAction:");
}

id VELT_NSTABLEVIEW_SELECTROW(const id& table, const id& row) {
    const long index = VELT_CBYTE(row);
    requireMainThread("VELT_NSTABLEVIEW_SELECTROW");
    const id rows = index < 0 ? make<NSIndexSet>() : make<NSIndexSet>(index);
    send(table, VELT_SELECTOR("selectRowIndexes:byExtendingSelection:"), rows, VELT_ID(BOOL{0}));
    return nil;
}

id VELT_NSTABLECOLUMN_VISIBLE(const id& column) {
    const id hidden = ui::get(column, VELT_WRAPPER(NSTABLECOLUMN_VISIBLE, "isHidden"), ui::ValueKind::Boolean);
    // nil shows nothing.
    return boxResult(!column.isNil() && !VELT_CBOOL(hidden));
}

id VELT_NSTABLECOLUMN_VISIBLE(const id& column, const id& flag) {
    const id hidden = boxResult(!VELT_CBOOL(flag));
    ui::pass(column, VELT_WRAPPER(NSTABLECOLUMN_VISIBLE, "setHidden:"), hidden);
    return nil;
}
