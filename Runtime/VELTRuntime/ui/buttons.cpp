#include "VELTRuntime/ui/buttons.h"

#include "VELTRuntime/platform/appkit/controls/button.h"
#include "VELTRuntime/platform/appkit/controls/image_view.h"
#include "VELTRuntime/platform/appkit/controls/segmented_control.h"
#include "VELTRuntime/ui/constructors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/buttons.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

id VELT_NSBUTTON_BUTTONTYPE(const id&) { return VELT_ID(-1L); }

#define VELT_BUTTON(kind, type, bezel)                                                                                 \
    id VELT_##kind##_INIT(const id& owner, const char* action) {                                                       \
        Ref<NSButton> button = ui::newObject<NSButton>("VELT_" #kind "_INIT", owner, action);                          \
        button->setButtonType(static_cast<long>(ButtonType::type));                                                    \
        button->setBezelStyle(static_cast<unsigned long>(BezelStyle::bezel));                                          \
        return button;                                                                                                 \
    }
#define VELT_INDICATOR_BUTTON(kind, type)                                                                              \
    id VELT_##kind##_INIT(const id& owner, const char* action) {                                                       \
        Ref<NSButton> button = ui::newObject<NSButton>("VELT_" #kind "_INIT", owner, action);                          \
        button->setButtonType(static_cast<long>(ButtonType::type));                                                    \
        return button;                                                                                                 \
    }
#include "VELTRuntime/ui/button_kinds.def"

id VELT_NSBUTTON_INIT(const id& owner, const char* action) {
    return ui::newObject<NSButton>("VELT_NSBUTTON_INIT", owner, action);
}

id VELT_NSBUTTONCELL_INIT(const id& owner, const char* action) {
    Ref<NSButtonCell> cell = ui::newObject<NSButtonCell>("VELT_NSBUTTONCELL_INIT", owner, action);
    cell->setButtonType(static_cast<long>(ButtonType::Switch));
    return cell;
}

id VELT_NSIMAGEVIEW_INIT(const id& owner, const char* action) {
    return ui::newObject<NSImageView>("VELT_NSIMAGEVIEW_INIT", owner, action);
}
id VELT_NSIMAGEVIEW_INIT(const id& owner, const char* action, const id& image) {
    const id shown = VELT_CNSIMAGE(image);
    Ref<NSImageView> view = ui::newObject<NSImageView>("VELT_NSIMAGEVIEW_INIT", owner, action);
    view->setImage(shown);
    return view;
}

id VELT_NSIMAGECELL_INIT(const id& owner, const char* action) {
    return ui::newObject<NSImageCell>("VELT_NSIMAGECELL_INIT", owner, action);
}
id VELT_NSIMAGECELL_INIT(const id& owner, const char* action, const id& image) {
    const id shown = VELT_CNSIMAGE(image);
    return ui::newObject<NSImageCell>("VELT_NSIMAGECELL_INIT", owner, action, shown);
}

id VELT_NSSEGMENTEDCONTROL_INIT(const id& owner, const char* action) {
    Ref<NSSegmentedControl> made = ui::newObject<NSSegmentedControl>("VELT_NSSEGMENTEDCONTROL_INIT", owner, action);
    constexpr long kSegments = 3;
    made->setSegmentCount(kSegments);
    return made;
}
