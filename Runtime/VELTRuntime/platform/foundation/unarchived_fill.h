// Fills collections and texts that do not change: only while they are being read, before anyone else sees them whole.
#pragma once

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/foundation/dictionary.h"

namespace velt {

/// What may add to an object that does not change; objects read from an archive may refer to each other in circles.
struct UnarchivedFill {
    static void append(NSArray& array, MovedValues values) { array.take(values); }
    /// Keys and values in turn; string keys that could change are copied.
    static void addEntries(NSDictionary& dictionary, MovedValues keysAndValues) {
        dictionary.addEntries(keysAndValues);
    }
    static void appendText(NSAttributedString& string, std::u16string_view text, const id& attributes) {
        string.appendText(text, attributes);
    }
};

}  // namespace velt
