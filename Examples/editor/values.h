// The literals of the examples by their short names.
#pragma once

#include "support/literals.h"

namespace editor {

using namespace example;

}  // namespace editor
