// The user's settings: one property list an application in the user's configuration folder, and fall-back values that
// the program registers.
#pragma once

#include "VELTRuntime/platform/foundation/dictionary.h"

#include <memory>
#include <mutex>
#include <string>

namespace velt {

/// A file of settings that several processes may change at once. Each writes only what it changed itself: it takes a
/// lock beside the file, reads what is there, puts its changes in and replaces the file as a whole. Safe on any thread.
class VELT_EXPORT SettingsFile {
public:
    /// Nothing is read yet. The folder is made when the file is written first.
    explicit SettingsFile(std::string path) : path_(std::move(path)) {}

    const std::string& path() const { return path_; }
    /// The value for a key, nil when there is none.
    id value(const id& key);
    /// Sets a value, or removes it when it is nil; kept until the next synchronize. The value is not to change any
    /// more.
    void set(const id& key, const id& value);
    /// New dictionary of all values.
    Ref<NSMutableDictionary> values();
    bool hasChanges() const;
    /// Writes the changes, if any, and takes in what others have written. False, with the reason on standard error
    /// once, when that fails; the changes are kept. A file that is there and cannot be read is not replaced.
    bool synchronize();

private:
    void readIfUnread();
    Ref<NSMutableDictionary> read();
    bool write(const id& values);
    void report(const char* what, const std::string& failure);

    std::string path_;
    mutable std::mutex mutex_;
    Ref<NSMutableDictionary> stored_;  // as last read or written; null until that was possible
    Ref<NSMutableDictionary> changes_ = make<NSMutableDictionary>();  // null objects where a value was removed
    bool reported_ = false;
};

}  // namespace velt

/// The settings of this program. Values are strings, numbers, dates, data, arrays and dictionaries with string keys;
/// what is set is copied, and so is what is given, so that changing it changes no setting.
class VELT_EXPORT NSUserDefaults final : public NSObject {
public:
    static NSUserDefaults& standardUserDefaults();
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    NSUserDefaults();

    /// The stored value for a key (a string), else the registered one, else nil. Collections are new and may be
    /// changed.
    id objectForKey(const id& key);
    /// Stores a value; nil removes. Raises "NSInvalidArgumentException" naming key and class for what a property list
    /// cannot hold. Written when the run loop is idle, at the program's end, and by synchronize.
    void setObject(const id& value, const id& key);
    void removeObject(const id& key);
    /// Adds fall-back values, in the place of those of the same keys; they are not stored.
    void registerDefaults(NSDictionary* defaults);
    /// Writes what was changed, and takes in what other processes have written. Whether that could be done.
    bool synchronize();
    /// New dictionary of the registered and the stored values.
    id dictionaryRepresentation();
    /// The file that holds them.
    std::string path();
    static void describe(velt::ClassBuilder<NSUserDefaults>& c);

private:
    velt::SettingsFile& file();
    void writeLater();

    std::mutex mutex_;  // guards what follows; the file guards itself
    std::unique_ptr<velt::SettingsFile> file_;
    velt::Ref<NSMutableDictionary> registered_;
    bool writesAtExit_ = false;
};
