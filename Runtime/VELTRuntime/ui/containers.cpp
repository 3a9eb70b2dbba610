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

template <class T> Ref<T> made(const char* constructor) {
    requireMainThread(constructor);
    return make<T>();
}

}  // namespace

id VELT_NSBOX_INIT(const id&, const char*) { return made<NSBox>("VELT_NSBOX_INIT"); }
id VELT_VERTICALLINE_INIT(const id&, const char*) { return made<NSBox>("VELT_VERTICALLINE_INIT"); }
id VELT_HORIZONTALLINE_INIT(const id&, const char*) { return made<NSBox>("VELT_HORIZONTALLINE_INIT"); }
id VELT_NSTABVIEW_INIT(const id&, const char*) { return made<NSTabView>("VELT_NSTABVIEW_INIT"); }
id VELT_NSSCROLLVIEW_INIT(const id&, const char*) { return made<NSScrollView>("VELT_NSSCROLLVIEW_INIT"); }
id VELT_NSSPLITVIEW_INIT(const id&, const char*) { return made<NSSplitView>("VELT_NSSPLITVIEW_INIT"); }
id VELT_VERTICALSPLITVIEW_INIT(const id&, const char*) {
    Ref<NSSplitView> view = made<NSSplitView>("VELT_VERTICALSPLITVIEW_INIT");
    view->setVertical(true);
    return view;
}
id VELT_HORIZONTALSPLITVIEW_INIT(const id&, const char*) {
    Ref<NSSplitView> view = made<NSSplitView>("VELT_HORIZONTALSPLITVIEW_INIT");
    view->setVertical(false);
    return view;
}
id VELT_NSPROGRESSINDICATOR_INIT(const id&, const char*) {
    Ref<NSProgressIndicator> indicator = made<NSProgressIndicator>("VELT_NSPROGRESSINDICATOR_INIT");
    indicator->setIndeterminate(false);
    return indicator;
}
id VELT_INDETERMINATEPROGRESSINDICATOR_INIT(const id&, const char*) {
    Ref<NSProgressIndicator> indicator = made<NSProgressIndicator>("VELT_INDETERMINATEPROGRESSINDICATOR_INIT");
    indicator->setIndeterminate(true);
    indicator->startAnimation(nil);
    return indicator;
}
id VELT_CIRCULARPROGRESSINDICATOR_INIT(const id&, const char*) {
    Ref<NSProgressIndicator> indicator = made<NSProgressIndicator>("VELT_CIRCULARPROGRESSINDICATOR_INIT");
    indicator->setStyle(NSProgressIndicator::kSpinning);
    indicator->startAnimation(nil);
    return indicator;
}
