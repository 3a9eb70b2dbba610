// Where the program and its resources lie.
#pragma once

#include "VELTRuntime/platform/object/object.h"

#include <string>

/// The program's own folder. A program within "Name.app/Contents/…" has its resources in
/// "Name.app/Contents/Resources", any other in the folder "Resources" beside it.
class VELT_EXPORT NSBundle final : public NSObject {
public:
    static NSBundle& mainBundle();
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    /// Absolute paths in UTF-8, without a slash at the end.
    std::string bundlePath() const;
    std::string resourcePath() const;
    std::string executablePath() const;
    /// The last component of the executable's path.
    std::string executableName() const;
    /// The path of a resource by its name and extension ("" for none); empty when there is no such file.
    std::string pathForResource(const std::string& name, const std::string& extension) const;
    static void describe(velt::ClassBuilder<NSBundle>& c);
};
