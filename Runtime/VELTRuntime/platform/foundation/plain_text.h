// Which attributed strings are nothing but text.
#pragma once

#include "VELTRuntime/platform/foundation/attributed_string.h"

namespace velt {

/// No unit of the text has attributes.
inline bool isPlain(const NSAttributedString& text) {
    const auto runs = text.runs().runs();
    return runs.empty() || (runs.size() == 1 && runs[0].attributes.isNil());
}

}  // namespace velt
