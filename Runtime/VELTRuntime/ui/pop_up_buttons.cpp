#include "VELTRuntime/ui/pop_up_buttons.h"

#include "VELTRuntime/platform/appkit/menus/pop_up_button.h"
#include "VELTRuntime/ui/constructors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/pop_up_buttons.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

namespace {

id insertItem(const char* function, const id& button, long index, const id& title) {
    requireMainThread(function);
    send(button, VELT_SELECTOR("insertItemWithTitle:atIndex:"), title, VELT_ID(index));
    return nil;
}

}  // namespace

id VELT_NSPOPUPBUTTON_INIT(const id& owner, const char* action) {
    return ui::newObject<NSPopUpButton>("VELT_NSPOPUPBUTTON_INIT", owner, action);
}

id VELT_NSPOPUPBUTTONCELL_INIT(const id& owner, const char* action) {
    Ref<NSPopUpButtonCell> cell = ui::newObject<NSPopUpButtonCell>("VELT_NSPOPUPBUTTONCELL_INIT", owner, action);
    cell->setBordered(false);
    return cell;
}

id VELT_NSPOPUPBUTTON_APPENDWITHIMAGE(const id& button, const id& image, const id& title) {
    requireMainThread("VELT_NSPOPUPBUTTON_APPENDWITHIMAGE");
    const id text = VELT_CSTRING(title), picture = VELT_CNSIMAGE(image);
    VELT_NSPOPUPBUTTON_APPEND(button, text);
    send(send(button, VELT_SELECTOR("lastItem")), VELT_SELECTOR("setImage:"), picture);
    return nil;
}

id VELT_NSPOPUPBUTTON_INSERT(const id& button, const id& index, const id& title) {
    const long place = VELT_CBYTE(index);
    return insertItem("VELT_NSPOPUPBUTTON_INSERT", button, place, VELT_CSTRING(title));
}

id VELT_NSPOPUPBUTTON_INSERTWITHIMAGE(const id& button, const id& index, const id& image, const id& title) {
    const long place = VELT_CBYTE(index);
    const id text = VELT_CSTRING(title), picture = VELT_CNSIMAGE(image);
    insertItem("VELT_NSPOPUPBUTTON_INSERTWITHIMAGE", button, place, text);
    send(send(button, VELT_SELECTOR("itemAtIndex:"), VELT_ID(place)), VELT_SELECTOR("setImage:"), picture);
    return nil;
}

id VELT_NSPOPUPBUTTON_INDEX(const id& button, const id& item) {
    if (button.isNil()) return VELT_ID(0L);
    return ui::pass(button, VELT_WRAPPER(NSPOPUPBUTTON_INDEX, "indexOfItem:"), item);
}

id VELT_NSPOPUPBUTTON_UNSELECTALL(const id& button) {
    requireMainThread("VELT_NSPOPUPBUTTON_UNSELECTALL");
    return VELT_NSPOPUPBUTTON_SELECT(button, VELT_ID(-1L));
}
