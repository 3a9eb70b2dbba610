#include "VELTRuntime/ui/browsers.h"

#include "VELTRuntime/platform/appkit/tables/browser.h"
#include "VELTRuntime/platform/appkit/tables/outline_view.h"
#include "VELTRuntime/ui/constructors.h"

using namespace velt;

id VELT_NSBROWSER_INIT(const id& owner, const char* action) {
    return ui::newObject<NSBrowser>("VELT_NSBROWSER_INIT", owner, action);
}
id VELT_NSOUTLINEVIEW_INIT(const id& owner, const char* action) {
    return ui::newObject<NSOutlineView>("VELT_NSOUTLINEVIEW_INIT", owner, action);
}
