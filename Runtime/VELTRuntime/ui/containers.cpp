#include "VELTRuntime/ui/containers.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/containers/box.h"
#include "VELTRuntime/platform/appkit/containers/progress_indicator.h"
#include "VELTRuntime/platform/appkit/containers/scroll_view.h"
#include "VELTRuntime/platform/appkit/containers/split_view.h"
#include "VELTRuntime/platform/appkit/containers/tab_view.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/containers.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

namespace {

/// None of these classes has an action today; one that gets it has it connected.
template <class T> Ref<T> made(const char* constructor, const id& owner, const char* action) {
    requireMainThread(constructor);
    Ref<T> object = make<T>();
    if (respondsTo(object, Selector::named("setAction:"))) ui::connectAction(object, owner, action);
    return object;
}

}  // namespace

id VELT_NSBOX_INIT(const id& owner, const char* action) { return made<NSBox>("VELT_NSBOX_INIT", owner, action); }
id VELT_VERTICALLINE_INIT(const id& owner, const char* action) {
    return made<NSBox>("VELT_VERTICALLINE_INIT", owner, action);
}
id VELT_HORIZONTALLINE_INIT(const id& owner, const char* action) {
    return made<NSBox>("VELT_HORIZONTALLINE_INIT", owner, action);
}
id VELT_NSTABVIEW_INIT(const id& owner, const char* action) {
    return made<NSTabView>("VELT_NSTABVIEW_INIT", owner, action);
}
id VELT_NSSCROLLVIEW_INIT(const id& owner, const char* action) {
    return made<NSScrollView>("VELT_NSSCROLLVIEW_INIT", owner, action);
}
id VELT_NSSPLITVIEW_INIT(const id& owner, const char* action) {
    return made<NSSplitView>("VELT_NSSPLITVIEW_INIT", owner, action);
}
id VELT_VERTICALSPLITVIEW_INIT(const id& owner, const char* action) {
    Ref<NSSplitView> view = made<NSSplitView>("VELT_VERTICALSPLITVIEW_INIT", owner, action);
    view->setVertical(true);
    return view;
}
id VELT_HORIZONTALSPLITVIEW_INIT(const id& owner, const char* action) {
    Ref<NSSplitView> view = made<NSSplitView>("VELT_HORIZONTALSPLITVIEW_INIT", owner, action);
    view->setVertical(false);
    return view;
}
id VELT_NSPROGRESSINDICATOR_INIT(const id& owner, const char* action) {
    Ref<NSProgressIndicator> indicator = made<NSProgressIndicator>("VELT_NSPROGRESSINDICATOR_INIT", owner, action);
    indicator->setIndeterminate(false);
    return indicator;
}
id VELT_INDETERMINATEPROGRESSINDICATOR_INIT(const id& owner, const char* action) {
    Ref<NSProgressIndicator> indicator =
        made<NSProgressIndicator>("VELT_INDETERMINATEPROGRESSINDICATOR_INIT", owner, action);
    indicator->setIndeterminate(true);
    indicator->startAnimation(nil);
    return indicator;
}
id VELT_CIRCULARPROGRESSINDICATOR_INIT(const id& owner, const char* action) {
    Ref<NSProgressIndicator> indicator =
        made<NSProgressIndicator>("VELT_CIRCULARPROGRESSINDICATOR_INIT", owner, action);
    indicator->setStyle(NSProgressIndicator::kSpinning);
    indicator->startAnimation(nil);
    return indicator;
}
