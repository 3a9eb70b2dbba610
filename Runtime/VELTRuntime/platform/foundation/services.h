// The shared service objects that programs find in the exported globals.
#pragma once

#include "VELTRuntime/platform/object/object.h"

#include <string>

/// What is known of this process.
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
    static void describe(velt::ClassBuilder<NSProcessInfo>& c);
};

/// Where the program and its resources lie. A program within "Name.app/Contents/…" has its resources in
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
    static void describe(velt::ClassBuilder<NSBundle>& c);
};

/// The files of the system.
class VELT_EXPORT NSFileManager final : public NSObject {
public:
    static NSFileManager& defaultManager();
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    /// Something is at that path, which a symbolic link leads to.
    bool fileExists(const id& path) const;
    static void describe(velt::ClassBuilder<NSFileManager>& c);
};

/// The user's settings.
class VELT_EXPORT NSUserDefaults final : public NSObject {
public:
    static NSUserDefaults& standardUserDefaults();
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
};

/// Where notifications are posted and observed.
class VELT_EXPORT NSNotificationCenter final : public NSObject {
public:
    static NSNotificationCenter& defaultCenter();
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
};
