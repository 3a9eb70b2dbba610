// The texts of paths.
#pragma once

#include <string>

namespace velt {

/// The folder that holds what a path without slashes at its end names: "." for a mere name, "/" for what lies there.
inline std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == path.npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

/// Without the slashes at its end, which would have the system follow a link; "/" stays.
inline std::string withoutSlashes(std::string path) {
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path;
}

}  // namespace velt
