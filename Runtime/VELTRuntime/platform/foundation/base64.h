// Base64, as RFC 4648 writes it.
#pragma once

#include "VELTRuntime/export.h"

#include <optional>
#include <string>
#include <string_view>

namespace velt {

/// Appends the characters of some bytes, padded to whole groups of four.
VELT_EXPORT void appendBase64(std::string& text, std::string_view bytes);

/// Takes the characters of a text one by one; blanks between them count for nothing.
class VELT_EXPORT Base64Decoder {
public:
    /// False for a character that cannot stand there.
    bool take(char16_t character);
    /// The bytes, or nothing when the last group is not whole.
    std::optional<std::string> finish();

private:
    std::string bytes_;
    unsigned bits_ = 0;    // of the group that is underway
    unsigned digits_ = 0;  // their number
    unsigned padding_ = 0;
};

}  // namespace velt
