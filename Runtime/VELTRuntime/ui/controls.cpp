#include "VELTRuntime/ui/controls.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/controls/cell.h"
#include "VELTRuntime/ui/constructors.h"
#include "VELTRuntime/values/string.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/controls.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

id VELT_NSCONTROL_FONT(const id& control) {
    return VELT_CNSFONT(ui::get(control, VELT_WRAPPER(NSCONTROL_FONT, "font"), ui::ValueKind::Object));
}

id VELT_NSCELL_FONT(const id& cell) {
    return VELT_CNSFONT(ui::get(cell, VELT_WRAPPER(NSCELL_FONT, "font"), ui::ValueKind::Object));
}

id VELT_NSCONTROL_ACTIONNAME(const id&) { return string(std::u16string_view()); }  // programs rely on it

id VELT_NSCONTROL_ACTIONNAME(const id& control, const id& name) {
    return ui::bindAction("VELT_NSCONTROL_ACTIONNAME", control, name);
}

id VELT_NSCELL_INIT(const id& owner, const char* action) {
    return ui::newObject<NSCell>("VELT_NSCELL_INIT", owner, action);
}

id VELT_NSCELL_INIT(const id& owner, const char* action, const id& text) {
    const id content = VELT_CSTRING(text);
    return ui::newObject<NSCell>("VELT_NSCELL_INIT", owner, action, content);
}
