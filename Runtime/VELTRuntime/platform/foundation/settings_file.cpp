// The file behind the user's settings.
#include "VELTRuntime/platform/foundation/descriptor.h"
#include "VELTRuntime/platform/foundation/file_contents.h"
#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "VELTRuntime/platform/foundation/user_defaults.h"
#include "VELTRuntime/values/string.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>

namespace velt {

namespace {

/// Stands for a removed value among the changes.
const id& removal() {
    static const id& mark = *new id(make<NSObject>());
    return mark;
}

void apply(const NSDictionary& changes, NSMutableDictionary& values) {
    changes.forEach([&values](const id& key, const id& value) {
        value == removal() ? values.removeObject(key) : values.setObject(value, key);
    });
}

/// People may read the XML form, which cannot hold every character and every date.
std::string bytesOf(const id& values) {
    try {
        return writePropertyList(values, PropertyListForm::Xml);
    } catch (const PropertyListError&) {
        return writePropertyList(values, PropertyListForm::Binary);
    }
}

/// The lock beside a settings file; held by one process and thread at a time.
class SettingsLock {
public:
    explicit SettingsLock(const std::string& path)
        : file_(::open((path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        int status = -1;
        while (file_ && (status = ::flock(file_.value(), LOCK_EX)) != 0 && errno == EINTR) {
        }
        isHeld_ = status == 0;
    }
    explicit operator bool() const { return isHeld_; }

private:
    Descriptor file_;
    bool isHeld_ = false;
};

}  // namespace

void SettingsFile::report(const char* what, const std::string& failure) {
    if (std::exchange(reported_, true)) return;
    std::fprintf(stderr, "The settings %s: %s\n", what, failure.c_str());
}

/// What the file holds now; null, with the reason told, when there is a file that cannot be read. One that holds no
/// settings is put aside, not overwritten.
Ref<NSMutableDictionary> SettingsFile::read() {
    std::string failure;
    const auto bytes = readFile(path_, &failure);
    if (!bytes) {
        if (errno == ENOENT || errno == ENOTDIR) return make<NSMutableDictionary>();
        report("cannot be read", failure);
        return nullptr;
    }
    std::string reason = "it is no dictionary";
    try {
        const id root = readPropertyList(*bytes, Collections::Frozen);
        if (const NSDictionary* values = dictionaryOf(root)) return make<NSMutableDictionary>(*values);
    } catch (const PropertyListError& error) {
        reason = error.what();
    }
    const std::string aside = path_ + ".damaged";
    if (::rename(path_.c_str(), aside.c_str()) == 0) {
        std::fprintf(stderr, "The settings in %s could not be read and are now in %s: %s\n", path_.c_str(),
                     aside.c_str(), reason.c_str());
    } else if (errno != ENOENT) {  // another process may have done it
        report("cannot be read", path_ + ": " + reason);
        return nullptr;
    }
    return make<NSMutableDictionary>();
}

void SettingsFile::readIfUnread() {
    if (!stored_) stored_ = read();
}

id SettingsFile::value(const id& key) {
    const std::lock_guard lock(mutex_);
    const id changed = changes_->objectForKey(key);
    if (!changed.isNil()) return changed == removal() ? id() : changed;
    readIfUnread();
    return stored_ ? stored_->objectForKey(key) : id();
}

void SettingsFile::set(const id& key, const id& value) {
    const std::lock_guard lock(mutex_);
    changes_->setObject(value.isNil() ? removal() : value, key);
}

Ref<NSMutableDictionary> SettingsFile::values() {
    const std::lock_guard lock(mutex_);
    readIfUnread();
    Ref<NSMutableDictionary> all = stored_ ? make<NSMutableDictionary>(*stored_) : make<NSMutableDictionary>();
    apply(*changes_, *all);
    return all;
}

bool SettingsFile::hasChanges() const {
    const std::lock_guard lock(mutex_);
    return changes_->count() > 0;
}

bool SettingsFile::write(const id& values) {
    std::string failure;
    if (writeFileAtomically(path_, bytesOf(values), &failure)) return true;
    report("are not kept", failure);
    return false;
}

bool SettingsFile::synchronize() {
    const std::lock_guard lock(mutex_);
    if (changes_->count() == 0) {
        Ref<NSMutableDictionary> now = read();
        if (!now) return false;
        stored_ = now;
        return true;
    }
    // Settings are the user's own business.
    std::error_code ignored;
    const std::filesystem::path folder = std::filesystem::path(path_).parent_path();
    if (!std::filesystem::exists(folder, ignored)) {
        std::filesystem::create_directories(folder.parent_path(), ignored);
        ::mkdir(folder.c_str(), 0700);
    }
    const SettingsLock fileLock(path_);
    if (!fileLock) {
        report("are not kept", path_ + ".lock: " + std::strerror(errno));
        return false;
    }
    Ref<NSMutableDictionary> merged = read();
    if (!merged) return false;
    apply(*changes_, *merged);
    if (!write(merged)) return false;
    stored_ = merged;
    changes_ = make<NSMutableDictionary>();
    reported_ = false;
    return true;
}

}  // namespace velt
