#include "VELTRuntime/ui/value_controls.h"

#include "VELTRuntime/platform/appkit/controls/color_well.h"
#include "VELTRuntime/platform/appkit/controls/date_picker.h"
#include "VELTRuntime/platform/appkit/controls/level_indicator.h"
#include "VELTRuntime/platform/appkit/controls/path_cell.h"
#include "VELTRuntime/platform/appkit/controls/slider.h"
#include "VELTRuntime/platform/appkit/controls/stepper.h"
#include "VELTRuntime/ui/constructors.h"

using namespace velt;

id VELT_NSSLIDER_INIT(const id& owner, const char* action) {
    return ui::newObject<NSSlider>("VELT_NSSLIDER_INIT", owner, action);
}

id VELT_CIRCULARSLIDER_INIT(const id& owner, const char* action) {
    Ref<NSSlider> slider = ui::newObject<NSSlider>("VELT_CIRCULARSLIDER_INIT", owner, action);
    slider->ownCell().setSliderType(NSSliderCell::kCircular);
    return slider;
}

id VELT_NSLEVELINDICATOR_INIT(const id& owner, const char* action) {
    return ui::newObject<NSLevelIndicator>("VELT_NSLEVELINDICATOR_INIT", owner, action);
}

id VELT_NSSTEPPER_INIT(const id& owner, const char* action) {
    return ui::newObject<NSStepper>("VELT_NSSTEPPER_INIT", owner, action);
}

id VELT_NSDATEPICKER_INIT(const id& owner, const char* action) {
    return ui::newObject<NSDatePicker>("VELT_NSDATEPICKER_INIT", owner, action);
}

id VELT_NSCOLORWELL_INIT(const id& owner, const char* action) {
    return ui::newObject<NSColorWell>("VELT_NSCOLORWELL_INIT", owner, action);
}

id VELT_NSPATHCONTROL_INIT(const id& owner, const char* action) {
    return ui::newObject<NSPathControl>("VELT_NSPATHCONTROL_INIT", owner, action);
}
