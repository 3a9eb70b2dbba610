#include "VELTRuntime/platform/foundation/file_manager.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/foundation/file_operations.h"
#include "VELTRuntime/platform/foundation/path_text.h"
#include "VELTRuntime/platform/foundation/shared_object.h"
#include "VELTRuntime/values/string.h"

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

VELT_SERVICE(NSFileManager, defaultManager)

namespace velt {

std::string pathOf(const id& value) {
    std::string path = utf8(VELT_CSTRING(value));
    return path.find('\0') == path.npos ? path : std::string();
}

}  // namespace velt

namespace {

using velt::pathOf;

bool isFolderItself(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool addSubpaths(NSMutableArray& paths, const std::string& folder, const std::string& prefix) {
    const auto names = velt::namesInFolder(folder);
    if (!names) return false;
    for (const std::string& name : *names) {
        paths.append(velt::string(prefix + name));
        std::string inner = folder, innerPrefix = prefix;
        inner.append("/").append(name);
        innerPrefix.append(name).append("/");
        if (isFolderItself(inner)) addSubpaths(paths, inner, innerPrefix);
    }
    return true;
}

}  // namespace

bool NSFileManager::fileExists(const std::string& path) const { return ::access(path.c_str(), F_OK) == 0; }

bool NSFileManager::fileExists(const std::string& path, bool& isFolder) const {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return false;
    isFolder = S_ISDIR(status.st_mode);
    return true;
}

bool NSFileManager::isReadable(const std::string& path) const { return ::access(path.c_str(), R_OK) == 0; }
bool NSFileManager::isWritable(const std::string& path) const { return ::access(path.c_str(), W_OK) == 0; }
bool NSFileManager::isExecutable(const std::string& path) const { return ::access(path.c_str(), X_OK) == 0; }

bool NSFileManager::isDeletable(const std::string& path) const {
    struct stat item {
    }, folder{};
    if (::lstat(path.c_str(), &item) != 0) return false;
    const std::string name = velt::withoutSlashes(path);
    if (name == "/") return false;
    const std::string above = velt::folderOf(name);
    if (::stat(above.c_str(), &folder) != 0 || ::access(above.c_str(), W_OK | X_OK) != 0) return false;
    // In a folder as the common one for temporary files, everyone takes out what is his own.
    const uid_t user = ::geteuid();
    return !(folder.st_mode & S_ISVTX) || user == 0 || user == item.st_uid || user == folder.st_uid;
}

bool NSFileManager::copyItem(const std::string& source, const std::string& destination) const {
    return velt::copyItem(source, destination);
}
bool NSFileManager::moveItem(const std::string& source, const std::string& destination) const {
    return velt::moveItem(source, destination);
}
bool NSFileManager::linkItem(const std::string& source, const std::string& destination) const {
    return velt::linkItem(source, destination);
}
bool NSFileManager::removeItem(const std::string& path) const { return velt::removeItem(path); }

bool NSFileManager::createFile(const std::string& path, std::string_view content) const {
    return velt::writeFileAtomically(path, content);
}

bool NSFileManager::createFolder(const std::string& path) const { return velt::makeFolder(path); }

id NSFileManager::contents(const std::string& path) const {
    const auto names = velt::namesInFolder(path);
    if (!names) return nil;
    velt::Ref<NSMutableArray> result = velt::make<NSMutableArray>();
    for (const std::string& name : *names) result->append(velt::string(name));
    return result;
}

id NSFileManager::subpaths(const std::string& path) const {
    velt::Ref<NSMutableArray> result = velt::make<NSMutableArray>();
    return addSubpaths(*result, path, "") ? id(result) : id();
}

std::string NSFileManager::currentFolder() const {
    std::error_code failure;
    return std::filesystem::current_path(failure).string();
}

bool NSFileManager::changeCurrentFolder(const std::string& path) const { return ::chdir(path.c_str()) == 0; }

namespace {

using Manager = NSFileManager;
using OfPath = bool (Manager::*)(const std::string&) const;
using OfPaths = bool (Manager::*)(const std::string&, const std::string&) const;

/// Messages whose first argument is a path, or whose first two are; what follows is ignored.
template <OfPath Function> id onPath(const id& self, const id* a) {
    return velt::boxResult((velt::as<Manager>(self)->*Function)(pathOf(a[0])));
}
template <OfPaths Function> id onPaths(const id& self, const id* a) {
    const std::string source = pathOf(a[0]);
    return velt::boxResult((velt::as<Manager>(self)->*Function)(source, pathOf(a[1])));
}

id contentsOf(const id& self, const id* a) { return velt::as<Manager>(self)->contents(pathOf(a[0])); }
id subpathsOf(const id& self, const id* a) { return velt::as<Manager>(self)->subpaths(pathOf(a[0])); }

id createFileAt(const id& self, const id* a) {
    const std::string path = pathOf(a[0]);
    const NSData* data = velt::to<NSData>(a[1]);
    return velt::boxResult(velt::as<Manager>(self)->createFile(path, data ? data->characters() : ""));
}

id createFoldersAt(const id& self, const id* a) {
    const std::string path = pathOf(a[0]);
    return velt::boxResult(VELT_CBOOL(a[1]) ? velt::makeFolders(path) : velt::as<Manager>(self)->createFolder(path));
}

}  // namespace

void NSFileManager::describe(velt::ClassBuilder<NSFileManager>& c) {
    constexpr OfPath exists = &Manager::fileExists;
    c.method("fileExistsAtPath:", onPath<exists>)
        .method("isReadableFileAtPath:", onPath<&Manager::isReadable>)
        .method("isWritableFileAtPath:", onPath<&Manager::isWritable>)
        .method("isExecutableFileAtPath:", onPath<&Manager::isExecutable>)
        .method("isDeletableFileAtPath:", onPath<&Manager::isDeletable>)
        .method("copyPath:toPath:handler:", onPaths<&Manager::copyItem>)
        .method("copyItemAtPath:toPath:error:", onPaths<&Manager::copyItem>)
        .method("movePath:toPath:handler:", onPaths<&Manager::moveItem>)
        .method("moveItemAtPath:toPath:error:", onPaths<&Manager::moveItem>)
        .method("linkPath:toPath:handler:", onPaths<&Manager::linkItem>)
        .method("linkItemAtPath:toPath:error:", onPaths<&Manager::linkItem>)
        .method("removeFileAtPath:handler:", onPath<&Manager::removeItem>)
        .method("removeItemAtPath:error:", onPath<&Manager::removeItem>)
        .method("createFileAtPath:contents:attributes:", createFileAt)
        .method("createDirectoryAtPath:attributes:", onPath<&Manager::createFolder>)
        .method("createDirectoryAtPath:withIntermediateDirectories:attributes:error:", createFoldersAt)
        .method("directoryContentsAtPath:", contentsOf)
        .method("contentsOfDirectoryAtPath:error:", contentsOf)
        .method("subpathsAtPath:", subpathsOf)
        .method("changeCurrentDirectoryPath:", onPath<&Manager::changeCurrentFolder>)
        .method("currentDirectoryPath",
                [](const id& self, const id*) { return velt::string(velt::as<Manager>(self)->currentFolder()); });
}
