// What catches the eye where something was found.
#pragma once

#include "VELTRuntime/values/structures.h"

class VLTextView;

namespace velt {

/// Shows the text of a range raised on a lit plate for a moment, if the view shows it now.
void showFindIndicator(VLTextView& view, NSRange range);

}  // namespace velt
