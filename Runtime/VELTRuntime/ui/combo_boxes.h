// Combo boxes: the wrappers of their lists. The constructor is among those of the other fields.
#pragma once

#include "VELTRuntime/ui/accessors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/combo_boxes.def"
#include "VELTRuntime/ui/accessor_declarations.h"

/// Inserts a value of any kind at a position. Raises "NSRangeException" beyond the list. nil.
VELT_EXPORT id VELT_NSCOMBOBOX_INSERT(const id& box, const id& index, const id& value);
/// Adds a separator to the context menu of the combo box, not to its list. nil.
VELT_EXPORT id VELT_NSCOMBOBOX_APPENDSEPARATOR(const id& box);
/// The position of the first item of that value, an integer; 9223372036854775807 when there is none.
VELT_EXPORT id VELT_NSCOMBOBOX_INDEX(const id& box, const id& value);
/// Whether an item has that value, a Boolean.
VELT_EXPORT id VELT_NSCOMBOBOX_CONTAINS(const id& box, const id& value);
