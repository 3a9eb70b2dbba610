// The failure of reading an archive that is damaged or holds what this program does not know.
#pragma once

#include "VELTRuntime/platform/object/exception.h"

#include <string_view>

namespace velt {

inline constexpr std::string_view kInvalidUnarchiveOperationException = "NSInvalidUnarchiveOperationException";

/// What is wrong with an archive. A program that uses an unarchiver itself sees it as any other exception.
class ArchiveDamage final : public NSException {
public:
    explicit ArchiveDamage(std::string_view reason) : NSException(kInvalidUnarchiveOperationException, reason) {}
};

}  // namespace velt
