// Key equivalents between the programs' way to write them and the toolkit's shortcuts.
#pragma once

#include "VELTRuntime/export.h"

#include <QKeySequence>

class id;

namespace velt {

/// The shortcut for a key equivalent (a string: one character, or the toolkit's name of a key) with its modifiers.
/// Empty for the empty string. An upper-case letter is typed with Shift.
VELT_EXPORT QKeySequence shortcutOf(const id& key, unsigned long modifiers);

}  // namespace velt
