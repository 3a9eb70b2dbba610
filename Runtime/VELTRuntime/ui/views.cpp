#include "VELTRuntime/ui/views.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/view.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/ui/frame_parts.h"
#include "VELTRuntime/values/boxing.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/views.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

namespace {

const id kYes = VELT_ID(BOOL{1}), kNo = VELT_ID(BOOL{0});

void setViewFrame(const id& view, const NSRect& frame) { VELT_NSVIEW_FRAME(view, VELT_ID(frame)); }

}  // namespace

id VELT_NSVIEW_INIT(const id&, const char*) {
    requireMainThread("VELT_NSVIEW_INIT");
    return make<NSView>();
}
id VELT_CUSTOMVIEW_INIT(const id&, const char*) {
    requireMainThread("VELT_CUSTOMVIEW_INIT");
    return make<NSView>();
}

id VELT_NSVIEW_REMOVE(const id&, const id& removed) {
    return ui::command(VELT_CNSVIEW(removed), VELT_WRAPPER(NSVIEW_REMOVE, "removeFromSuperview"));
}
id VELT_NSVIEW_REPLACE(const id& view, const id& old, const id& with) {
    requireMainThread("VELT_NSVIEW_REPLACE");
    const id oldView = VELT_CNSVIEW(old), newView = VELT_CNSVIEW(with);
    send(view, VELT_SELECTOR("replaceSubview:with:"), oldView, newView);
    return nil;
}

id VELT_NSVIEW_REDRAW(const id& view) {
    ui::pass(view, VELT_WRAPPER(NSVIEW_REDRAW, "setNeedsDisplay:"), kYes);
    return nil;
}
id VELT_NSVIEW_SHOW(const id& view) {
    ui::pass(view, VELT_WRAPPER(NSVIEW_SHOW, "setHidden:"), kNo);
    return nil;
}
id VELT_NSVIEW_HIDE(const id& view) {
    ui::pass(view, VELT_WRAPPER(NSVIEW_HIDE, "setHidden:"), kYes);
    return nil;
}
id VELT_NSVIEW_VISIBLE(const id& view) {
    const id hidden = ui::get(view, VELT_WRAPPER(NSVIEW_VISIBLE, "isHidden"), ui::ValueKind::Boolean);
    return view.isNil() || VELT_CBOOL(hidden) ? kNo : kYes;  // nil shows nothing
}
id VELT_NSVIEW_VISIBLE(const id& view, const id& flag) {
    const id hidden = VELT_CBOOL(flag) ? kNo : kYes;
    ui::pass(view, VELT_WRAPPER(NSVIEW_VISIBLE, "setHidden:"), hidden);
    return nil;
}

VELT_FRAME_PARTS(NSVIEW, setViewFrame)

id VELT_NSVIEW_TAG(const id&, const id&) { raiseCast("'Tag' could be changed (read only property)"); }
id VELT_NSVIEW_WINDOW(const id&, const id&) { raiseCast("'Window' could be changed (read only property)"); }
