#include "VELTRuntime/ui/background_views.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/values/boxing.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/background_views.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

id VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT(const id& view, const id& beginning, const id& ending) {
    requireMainThread("VELT_VLBACKGROUNDVIEW_SETBACKGROUNDGRADIENT");
    const id first = VELT_CNSCOLOR(beginning), last = VELT_CNSCOLOR(ending);
    send(view, VELT_SELECTOR("SetBackgroundGradient::"), first, last);
    return nil;
}

id VELT_VLBACKGROUNDVIEW_SETBACKGROUNDIMAGE(const id& view, const id& image, const id& alpha) {
    requireMainThread("VELT_VLBACKGROUNDVIEW_SETBACKGROUNDIMAGE");
    const id picture = VELT_CNSIMAGE(image);
    const id opacity = VELT_ID(VELT_CSINGLE(alpha));
    send(view, VELT_SELECTOR("SetBackgroundImage::"), picture, opacity);
    return nil;
}
