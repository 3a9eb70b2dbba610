#include "VELTRuntime/platform/foundation/user_defaults.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/bundle.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/foundation/shared_object.h"
#include "VELTRuntime/platform/foundation/user.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/observing.h"
#include "VELTRuntime/values/number.h"
#include "VELTRuntime/values/string.h"

#include <cstdlib>

VELT_SERVICE(NSUserDefaults, standardUserDefaults)

namespace {

using namespace velt;

enum class Copies { Frozen, Mutable };

/// A copy that shares nothing which can change, or null when the value holds something that a property list cannot;
/// that is then in `fault`. The level is the number of collections around it.
id deepCopy(const id& value, Copies copies, id& fault, unsigned level) {
    const auto refuse = [&](const id& refused) {
        fault = refused;
        return id();
    };
    if (isNumber(value) || is<NSDate>(value)) return value;
    if (isString(value)) return copies == Copies::Frozen ? value.object()->copy() : freshCopy(asString(value));
    if (const NSData* data = dataOf(value)) {
        return copies == Copies::Frozen ? id(make<NSData>(data->characters()))
                                        : id(make<NSMutableData>(data->characters()));
    }
    if (level >= kMostPropertyListLevels) return refuse(value);
    if (const NSArray* array = arrayOf(value)) {
        Ref<NSMutableArray> elements = make<NSMutableArray>();
        for (const id& element : array->items()) {
            const id copied = deepCopy(element, copies, fault, level + 1);
            if (copied.isNil()) return nil;
            elements->append(copied);
        }
        return copies == Copies::Frozen ? elements->copy() : id(elements);
    }
    const NSDictionary* dictionary = dictionaryOf(value);
    if (!dictionary) return refuse(value);
    Ref<NSMutableDictionary> entries = make<NSMutableDictionary>();
    bool isWhole = true;
    dictionary->forEach([&](const id& key, const id& entry) {
        if (!isWhole) return;
        const id copied = isString(key) ? deepCopy(entry, copies, fault, level + 1) : refuse(key);
        isWhole = !copied.isNil();
        if (isWhole) entries->setObject(copied, key);
    });
    if (!isWhole) return nil;
    return copies == Copies::Frozen ? entries->copy() : id(entries);
}

id keptCopy(const id& value, const id& key) {
    id fault;
    id copied = deepCopy(value, Copies::Frozen, fault, 1);  // within the dictionary of all settings
    if (!copied.isNil()) return copied;
    raise(kInvalidArgumentException,
          "the setting '" + utf8(key) + "' cannot be kept: '" + classOf(fault)->name() + "' is no property-list value");
}

id givenCopy(const id& value) {
    id fault;
    return value.isNil() ? id() : deepCopy(value, Copies::Mutable, fault, 0);
}

id keyOf(const id& value) { return isString(value) ? value : VELT_CSTRING(value); }

}  // namespace

NSUserDefaults::NSUserDefaults() : registered_(make<NSMutableDictionary>()) {}

/// Named and placed when it is first used: by then the program has set its environment.
SettingsFile& NSUserDefaults::file() {
    const std::lock_guard lock(mutex_);
    if (!file_) {
        file_ = std::make_unique<SettingsFile>(configurationFolder() + "/" + NSBundle::mainBundle().executableName() +
                                               ".plist");
    }
    return *file_;
}

std::string NSUserDefaults::path() { return file().path(); }

id NSUserDefaults::objectForKey(const id& key) {
    const id name = keyOf(key);
    const id stored = file().value(name);
    if (!stored.isNil()) return givenCopy(stored);
    const std::lock_guard lock(mutex_);
    return givenCopy(registered_->objectForKey(name));
}

void NSUserDefaults::setObject(const id& value, const id& key) {
    const id name = keyOf(key), kept = value.isNil() ? id() : keptCopy(value, name);
    changeValue(*this, utf8(name), [&] { file().set(name, kept); });
    writeLater();
}

void NSUserDefaults::removeObject(const id& key) { setObject(nil, key); }

void NSUserDefaults::registerDefaults(NSDictionary* defaults) {
    if (!defaults) return;
    std::vector<std::pair<id, id>> copies;
    defaults->forEach([&](const id& key, const id& value) {
        const id name = keyOf(key);
        copies.emplace_back(name, keptCopy(value, name));
    });
    const std::lock_guard lock(mutex_);
    for (const auto& [key, value] : copies) registered_->setObject(value, key);
}

bool NSUserDefaults::synchronize() { return file().synchronize(); }

id NSUserDefaults::dictionaryRepresentation() {
    const Ref<NSMutableDictionary> stored = file().values();
    Ref<NSMutableDictionary> all = make<NSMutableDictionary>();
    {
        const std::lock_guard lock(mutex_);
        registered_->forEach([&](const id& key, const id& value) { all->setObject(value, key); });
    }
    stored->forEach([&](const id& key, const id& value) { all->setObject(value, key); });
    return givenCopy(all);
}

void NSUserDefaults::writeLater() {
    {
        const std::lock_guard lock(mutex_);
        if (std::exchange(writesAtExit_, true)) return;
    }
    const auto write = [] {
        NSUserDefaults& defaults = standardUserDefaults();
        if (defaults.file().hasChanges()) defaults.synchronize();
    };
    RunLoop::atIdle(write);
    std::atexit(write);
}

void NSUserDefaults::describe(ClassBuilder<NSUserDefaults>& c) {
    using Defaults = NSUserDefaults;
    // Readings by type: the zero of the type for what is not there and for what cannot be read so.
    c.keyAccess({[](const id& self, std::string_view key) { return as<Defaults>(self)->objectForKey(string(key)); },
                 [](const id& self, std::string_view key, const id& value) {
                     as<Defaults>(self)->setObject(value, string(key));
                 }})
        .method("objectForKey:", &Defaults::objectForKey)
        .method("setObject:forKey:", &Defaults::setObject)
        .method("removeObjectForKey:", &Defaults::removeObject)
        .method("registerDefaults:", &Defaults::registerDefaults)
        .method("synchronize", &Defaults::synchronize)
        .method("dictionaryRepresentation", &Defaults::dictionaryRepresentation)
        .method("stringForKey:",
                [](const id& self, const id* a) {
                    const id value = as<Defaults>(self)->objectForKey(a[0]);
                    return isNumber(value) ? numberText(value) : isString(value) ? value : id();
                })
        .method("arrayForKey:",
                [](const id& self, const id* a) {
                    const id value = as<Defaults>(self)->objectForKey(a[0]);
                    return arrayOf(value) ? value : id();
                })
        .method("dictionaryForKey:",
                [](const id& self, const id* a) {
                    const id value = as<Defaults>(self)->objectForKey(a[0]);
                    return dictionaryOf(value) ? value : id();
                })
        .method("dataForKey:",
                [](const id& self, const id* a) {
                    const id value = as<Defaults>(self)->objectForKey(a[0]);
                    return dataOf(value) ? value : id();
                })
        .method("integerForKey:",
                [](const id& self, const id* a) {
                    const id value = as<Defaults>(self)->objectForKey(a[0]);
                    return VELT_ID(isNumber(value) || isString(value) ? VELT_CINTEGER(value) : 0L);
                })
        .method("doubleForKey:",
                [](const id& self, const id* a) {
                    const id value = as<Defaults>(self)->objectForKey(a[0]);
                    return VELT_ID(isNumber(value) || isString(value) ? VELT_CDOUBLE(value) : 0.0);
                })
        .method("boolForKey:",
                [](const id& self, const id* a) {
                    const id value = as<Defaults>(self)->objectForKey(a[0]);
                    return VELT_ID(isNumber(value) || isString(value) ? VELT_CBOOL(value) : BOOL{0});
                })
        .method("setInteger:forKey:",
                [](const id& self, const id* a) {
                    as<Defaults>(self)->setObject(VELT_ID(VELT_CINTEGER(a[0])), a[1]);
                    return id();
                })
        .method("setDouble:forKey:",
                [](const id& self, const id* a) {
                    as<Defaults>(self)->setObject(VELT_ID(VELT_CDOUBLE(a[0])), a[1]);
                    return id();
                })
        .method("setBool:forKey:", [](const id& self, const id* a) {
            as<Defaults>(self)->setObject(VELT_ID(VELT_CBOOL(a[0])), a[1]);
            return id();
        });
}
