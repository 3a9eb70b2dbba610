#include "VELTRuntime/ui/combo_boxes.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/controls/combo_box.h"
#include "VELTRuntime/platform/appkit/menus/menu.h"
#include "VELTRuntime/platform/foundation/index_set.h"
#include "VELTRuntime/values/boxing.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/combo_boxes.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

id VELT_NSCOMBOBOX_INSERT(const id& box, const id& index, const id& value) {
    const long place = VELT_CBYTE(index);
    requireMainThread("VELT_NSCOMBOBOX_INSERT");
    send(box, VELT_SELECTOR("insertItemWithObjectValue:atIndex:"), value, VELT_ID(place));
    return nil;
}

id VELT_NSCOMBOBOX_APPENDSEPARATOR(const id& box) {
    requireMainThread("VELT_NSCOMBOBOX_APPENDSEPARATOR");
    if (box.isNil()) return nil;
    id menu = send(box, VELT_SELECTOR("menu"));
    if (menu.isNil()) {
        menu = make<NSMenu>();
        send(box, VELT_SELECTOR("setMenu:"), menu);
    }
    send(menu, VELT_SELECTOR("addItem:"), id(NSMenuItem::separatorItem()));
    return nil;
}

id VELT_NSCOMBOBOX_INDEX(const id& box, const id& value) {
    const id index = ui::pass(box, VELT_WRAPPER(NSCOMBOBOX_INDEX, "indexOfItemWithObjectValue:"), value);
    return box.isNil() ? VELT_ID(0L) : index;
}

id VELT_NSCOMBOBOX_CONTAINS(const id& box, const id& value) {
    const id index = ui::pass(box, VELT_WRAPPER(NSCOMBOBOX_CONTAINS, "indexOfItemWithObjectValue:"), value);
    const bool found = !box.isNil() && VELT_CBYTE(index) != NSIndexSet::kNotFound;
    return boxResult(found);
}
