// Keyed archives put together by hand, as a damaged file or another writer would have them.
#pragma once

#include "VELTRuntime/platform/foundation/keyed_archive/keyed_archiver.h"
#include "VELTRuntime/platform/foundation/keyed_archive/keyed_unarchiver.h"
#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "support/values.h"

namespace velt::test {

inline id uid(std::uint32_t place) { return make<PropertyListUid>(place); }

/// A dictionary of keys and values in turn.
template <class... Values> id dictionary(const Values&... values) {
    const std::array<id, sizeof...(Values)> list{id(values)...};
    Ref<NSMutableDictionary> result = make<NSMutableDictionary>();
    for (std::size_t i = 0; i + 1 < list.size(); i += 2) result->setObject(list[i + 1], list[i]);
    return result;
}

/// A class as archives describe it: its own name and those of its superclasses.
template <class... Names> id archivedClass(const char* name, const Names*... superclasses) {
    return dictionary(str("$classname"), str(name), str("$classes"), array(str(name), str(superclasses)...));
}

/// The property list of an archive with object 1 as its root; `objects` begin with number 1.
template <class... Objects> id archiveList(const Objects&... objects) {
    return dictionary(str("$archiver"), str("NSKeyedArchiver"), str("$version"), integer(100000), str("$top"),
                      dictionary(str("root"), uid(1)), str("$objects"), array(str("$null"), objects...));
}
inline std::string binaryListOf(const id& list) { return writePropertyList(list, PropertyListForm::Binary); }
template <class... Objects> std::string archiveOf(const Objects&... objects) {
    return binaryListOf(archiveList(objects...));
}

/// The root object of an archive; what is wrong with it otherwise, as a string in angle brackets.
inline id unarchived(std::string_view archive) {
    std::string failure;
    id root = NSKeyedUnarchiver::unarchive(archive, &failure);
    return root.isNil() && !failure.empty() ? str("<" + failure + ">") : root;
}
/// What is wrong with an archive; "nothing" when it can be read.
inline std::string damageOf(std::string_view archive) {
    std::string failure = "nothing";
    return NSKeyedUnarchiver::unarchive(archive, &failure).isNil() ? failure : "nothing";
}
inline id roundTrip(const id& root) { return unarchived(NSKeyedArchiver::archive(root)); }

}  // namespace velt::test
