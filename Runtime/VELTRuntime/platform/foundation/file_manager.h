// The files of the system, as programs see them.
#pragma once

#include "VELTRuntime/platform/object/object.h"

#include <string>
#include <string_view>

/// Everything is answered with true or false, or nil; no reason is passed on. Paths are UTF-8; a path with a zero in it
/// names nothing. By name it answers both families of messages, the older ones with a handler and the newer ones with
/// an error as last argument; both are ignored.
class VELT_EXPORT NSFileManager final : public NSObject {
public:
    static NSFileManager& defaultManager();
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    /// Something is at that path, which a symbolic link leads to.
    bool fileExists(const std::string& path) const;
    /// The same, and whether it is a folder; `isFolder` stays as it is when there is nothing.
    bool fileExists(const std::string& path, bool& isFolder) const;
    bool isReadable(const std::string& path) const;
    bool isWritable(const std::string& path) const;
    bool isExecutable(const std::string& path) const;
    /// The folder that holds it lets this user take names out.
    bool isDeletable(const std::string& path) const;

    /// These fail when there is something at the destination.
    bool copyItem(const std::string& source, const std::string& destination) const;
    bool moveItem(const std::string& source, const std::string& destination) const;
    bool linkItem(const std::string& source, const std::string& destination) const;
    bool removeItem(const std::string& path) const;
    /// A file that holds those bytes, in the place of one that is there.
    bool createFile(const std::string& path, std::string_view content) const;
    /// One folder; its parent has to be there.
    bool createFolder(const std::string& path) const;

    /// New array of the names in a folder, sorted; nil when it cannot be read.
    id contents(const std::string& path) const;
    /// New array of the paths of all that lies within a folder, relative to it, folders before what they hold; nil when
    /// it cannot be read. Links are not followed.
    id subpaths(const std::string& path) const;
    /// The working folder; empty when it was removed.
    std::string currentFolder() const;
    bool changeCurrentFolder(const std::string& path) const;
    static void describe(velt::ClassBuilder<NSFileManager>& c);
};

namespace velt {

/// The text of a value (through VELT_CSTRING) as a path; empty when it holds a zero.
VELT_EXPORT std::string pathOf(const id& value);

}  // namespace velt
