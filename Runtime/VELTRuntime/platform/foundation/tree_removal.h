// Removing a folder with all that it holds, however deep.
#pragma once

#include <string>

namespace velt {

/// Removes a folder and everything in it; links are removed, not followed. Stops at the first failure, which errno
/// then tells. Descriptors are held for a bounded number of levels only.
bool removeTree(const std::string& path);

}  // namespace velt
