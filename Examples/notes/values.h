// The values of the examples by their short names.
#pragma once

#include "support/window_values.h"

namespace notes {

using namespace example;

}  // namespace notes
