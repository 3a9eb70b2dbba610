// Sliders, level indicators, steppers, date pickers, colour wells and path controls.
#pragma once

#include "VELTRuntime/values/value.h"

// New controls of no size, whose action is the owner's method of that name, if the owner has it. Each raises
// "NSInternalInconsistencyException" on another thread than the main one.

/// A slider, which lies or stands as its frame does.
VELT_EXPORT id VELT_NSSLIDER_INIT(const id& owner, const char* action);
/// A slider with a round knob.
VELT_EXPORT id VELT_CIRCULARSLIDER_INIT(const id& owner, const char* action);
/// A level indicator: a bar, segments or stars, as its style says.
VELT_EXPORT id VELT_NSLEVELINDICATOR_INIT(const id& owner, const char* action);
/// A pair of arrows that step a value up and down.
VELT_EXPORT id VELT_NSSTEPPER_INIT(const id& owner, const char* action);
/// A field, or a calendar and a clock, for a date.
VELT_EXPORT id VELT_NSDATEPICKER_INIT(const id& owner, const char* action);
/// A field that shows a colour and lets a person choose another.
VELT_EXPORT id VELT_NSCOLORWELL_INIT(const id& owner, const char* action);
/// A control that shows a path by its parts.
VELT_EXPORT id VELT_NSPATHCONTROL_INIT(const id& owner, const char* action);
