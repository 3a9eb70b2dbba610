// Text views as programs make them.
#pragma once

#include <VELTRuntime/VELTRuntimeUI.h>

#include "support/values.h"

namespace velt::test {

inline Ref<NSTextView> viewOf(std::string_view text) {
    const id view = VELT_NSTEXTVIEW_INIT(nil, "");
    VELT_NSTEXTVIEW_VALUE(view, str(text));
    return Ref<NSTextView>(as<NSTextView>(view));
}

inline std::string value(const Ref<NSTextView>& view) { return utf8(VELT_NSTEXTVIEW_VALUE(view)); }

}  // namespace velt::test
