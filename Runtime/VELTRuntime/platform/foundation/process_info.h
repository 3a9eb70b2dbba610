// What is known of this process.
#pragma once

#include "VELTRuntime/platform/object/object.h"

/// The process.
class VELT_EXPORT NSProcessInfo final : public NSObject {
public:
    static NSProcessInfo& processInfo();
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    /// New array of the program's arguments, its name first.
    id arguments() const;
    /// New dictionary of the environment variables.
    id environment() const;
    long processIdentifier() const;
    /// The last component of the executable's path.
    id processName() const;
    id hostName() const;
    static void describe(velt::ClassBuilder<NSProcessInfo>& c);
};
