// The functions of files: plain ones, which act on the default file manager, and those of a file manager.
#include "VELTRuntime/builtins/system.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/file_manager.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

using namespace velt;

namespace {

/// The file manager that a value is, null for nil; raises what a message to anything else raises.
const NSFileManager* managerOf(const id& value, const char* message) {
    if (value.isNil()) return nullptr;
    if (!is<NSFileManager>(value)) raiseNotUnderstood(value, message);
    return as<NSFileManager>(value);
}

const NSFileManager& defaultManager() { return NSFileManager::defaultManager(); }

}  // namespace

// One path or two: name, the member that answers, and the message that other receivers do not understand.
#define VELT_ON_PATH(name, member, message)                                                                            \
    id name(const id& manager, const id& path) {                                                                       \
        const std::string at = pathOf(path);                                                                           \
        const NSFileManager* const files = managerOf(manager, message);                                                \
        return boxResult(files && files->member(at));                                                                  \
    }
#define VELT_ON_PATHS(name, member, message)                                                                           \
    id name(const id& manager, const id& source, const id& destination) {                                              \
        const std::string from = pathOf(source), to = pathOf(destination);                                             \
        const NSFileManager* const files = managerOf(manager, message);                                                \
        return boxResult(files && files->member(from, to));                                                            \
    }

VELT_ON_PATH(VELT_NSFILEMANAGER_DELETE, removeItem, "removeItemAtPath:error:")
VELT_ON_PATH(VELT_NSFILEMANAGER_CREATEDIRECTORY, createFolder, "createDirectoryAtPath:attributes:")
VELT_ON_PATH(VELT_NSFILEMANAGER_EXISTS, fileExists, "fileExistsAtPath:")
VELT_ON_PATH(VELT_NSFILEMANAGER_ISREADABLE, isReadable, "isReadableFileAtPath:")
VELT_ON_PATH(VELT_NSFILEMANAGER_ISWRITABLE, isWritable, "isWritableFileAtPath:")
VELT_ON_PATH(VELT_NSFILEMANAGER_ISEXECUTABLE, isExecutable, "isExecutableFileAtPath:")
VELT_ON_PATH(VELT_NSFILEMANAGER_ISDELETABLE, isDeletable, "isDeletableFileAtPath:")
VELT_ON_PATHS(VELT_NSFILEMANAGER_MOVE, moveItem, "moveItemAtPath:toPath:error:")
VELT_ON_PATHS(VELT_NSFILEMANAGER_COPY, copyItem, "copyItemAtPath:toPath:error:")
VELT_ON_PATHS(VELT_NSFILEMANAGER_LINK, linkItem, "linkItemAtPath:toPath:error:")

// The same on the default file manager.
#define VELT_ON_DEFAULT(name, member)                                                                                  \
    id name(const id&, const id& path) { return boxResult(defaultManager().member(pathOf(path))); }
#define VELT_ON_DEFAULT_PATHS(name, member)                                                                            \
    id name(const id&, const id& source, const id& destination) {                                                      \
        const std::string from = pathOf(source);                                                                       \
        return boxResult(defaultManager().member(from, pathOf(destination)));                                          \
    }

VELT_ON_DEFAULT(VELT_FILE_REMOVEFILE, removeItem)
VELT_ON_DEFAULT(VELT_FILE_CREATEDIR, createFolder)
VELT_ON_DEFAULT(VELT_FILE_LIST, contents)
VELT_ON_DEFAULT_PATHS(VELT_FILE_COPY, copyItem)
VELT_ON_DEFAULT_PATHS(VELT_FILE_MOVE, moveItem)

id VELT_FILE_CREATEFILE(const id&, const id& path) { return boxResult(defaultManager().createFile(pathOf(path), "")); }

id VELT_NSFILEMANAGER_INIT(const id& owner, const char* action) {
    id manager(&NSFileManager::defaultManager());
    if (methodNamed(owner, action)) {
        send(manager, VELT_SELECTOR("setAction:"), velt::string(std::string_view(action)));
        send(manager, VELT_SELECTOR("setTarget:"), owner);
    }
    return manager;
}

id VELT_NSFILEMANAGER_PATH(const id& manager) {
    const NSFileManager* const files = managerOf(manager, "currentDirectoryPath");
    return files ? velt::string(files->currentFolder()) : id();
}

id VELT_NSFILEMANAGER_PATH(const id& manager, const id& path) {
    const std::string folder = pathOf(path);
    if (const NSFileManager* const files = managerOf(manager, "changeCurrentDirectoryPath:")) {
        files->changeCurrentFolder(folder);
    }
    return nil;
}

id VELT_NSFILEMANAGER_LIST(const id& manager, const id& path) {
    const std::string folder = pathOf(path);
    const NSFileManager* const files = managerOf(manager, "contentsOfDirectoryAtPath:error:");
    return files ? files->contents(folder) : id();
}

id VELT_NSFILEMANAGER_CREATEFILE(const id& manager, const id& path) {
    return VELT_NSFILEMANAGER_CREATE(manager, path, nil);
}

id VELT_NSFILEMANAGER_CREATE(const id& manager, const id& path, const id& data) {
    const std::string at = pathOf(path);
    const id content = data.isNil() || dataOf(data) ? data : VELT_CDATA(data);
    const NSFileManager* const files = managerOf(manager, "createFileAtPath:contents:attributes:");
    return boxResult(files && files->createFile(at, content.isNil() ? "" : dataOf(content)->characters()));
}

id VELT_NSFILEMANAGER_EXISTSFILE(const id& manager, const id& path) {
    const std::string at = pathOf(path);
    const NSFileManager* const files = managerOf(manager, "fileExistsAtPath:isDirectory:");
    bool isFolder = false;
    return boxResult(files && files->fileExists(at, isFolder) && !isFolder);
}

id VELT_NSFILEMANAGER_EXISTSDIRECTORY(const id& manager, const id& path) {
    const std::string at = pathOf(path);
    const NSFileManager* const files = managerOf(manager, "fileExistsAtPath:isDirectory:");
    bool isFolder = true;  // what the manager leaves as it is does not count: nothing is there
    return boxResult(files && files->fileExists(at, isFolder) && isFolder);
}
