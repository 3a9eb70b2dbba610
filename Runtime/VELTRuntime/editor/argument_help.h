// The signature of a built-in as it is shown while its arguments are typed.
#pragma once

#include "VELTRuntime/export.h"

#include <string>
#include <string_view>

namespace velt {

/// A signature as HTML, in which the parameter of a number, counted from 0, is red. Earlier markup of the signature is
/// replaced. A parameter that the signature has not is not marked.
VELT_EXPORT std::u16string argumentHelp(std::u16string_view signature, std::size_t parameter);

}  // namespace velt
