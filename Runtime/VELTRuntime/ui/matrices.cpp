#include "VELTRuntime/ui/matrices.h"

#include "VELTRuntime/platform/appkit/tables/matrix.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/ui/constructors.h"
#include "VELTRuntime/values/boxing.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/matrices.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

id VELT_NSMATRIX_INIT(const id& owner, const char* action) {
    return ui::newObject<NSMatrix>("VELT_NSMATRIX_INIT", owner, action);
}

id VELT_NSMATRIX_ADDROW(const id& matrix, const id& value) {
    requireMainThread("VELT_NSMATRIX_ADDROW");
    const id cells = VELT_CARRAY(value);
    const long count = cells.isNil() ? 0 : static_cast<long>(arrayOf(cells)->count());
    // Each call renews the matrix, not the first alone; programs rely on it.
    send(matrix, VELT_SELECTOR("renewRows:columns:"), VELT_ID(1L), VELT_ID(count));
    send(matrix, VELT_SELECTOR("addRowWithCells:"), cells);
    send(matrix, VELT_SELECTOR("sizeToCells"));
    return nil;
}
