#include "VELTRuntime/ui/toolbars.h"

#include "VELTRuntime/platform/appkit/toolbars/toolbar.h"
#include "VELTRuntime/ui/constructors.h"
#include "VELTRuntime/values/boxing.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/toolbars.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

id VELT_NSTOOLBAR_INIT(const id& owner, const char* identifier) {
    requireMainThread("VELT_NSTOOLBAR_INIT");
    Ref<NSToolbar> toolbar = make<NSToolbar>(ui::stringOfLiteral(identifier));
    toolbar->setDelegate(owner);
    return toolbar;
}

id VELT_NSTOOLBARITEM_INIT(const id& owner, const char* action) {
    return ui::newObject<NSToolbarItem>("VELT_NSTOOLBARITEM_INIT", owner, action, ui::stringOfLiteral(action));
}

id VELT_NSTOOLBAR_SHOW(const id& toolbar) {
    ui::pass(toolbar, VELT_WRAPPER(NSTOOLBAR_SHOW, "setVisible:"), VELT_ID(BOOL{1}));
    return nil;
}
id VELT_NSTOOLBAR_HIDE(const id& toolbar) {
    ui::pass(toolbar, VELT_WRAPPER(NSTOOLBAR_HIDE, "setVisible:"), VELT_ID(BOOL{0}));
    return nil;
}

id VELT_NSTOOLBARITEM_ITEMIDENTIFIER(const id&, const id&) { return nil; }  // programs rely on it
