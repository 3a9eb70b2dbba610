// Short ways to make property lists and to say how reading and writing fail.
#pragma once

#include "VELTRuntime/platform/foundation/property_list/property_list.h"
#include "support/values.h"

#include <initializer_list>
#include <string>
#include <utility>

namespace velt::test {

inline id dictionary(std::initializer_list<std::pair<const char*, id>> entries) {
    Ref<NSMutableDictionary> made = make<NSMutableDictionary>();
    for (const auto& [key, value] : entries) made->setObject(value, str(key));
    return made;
}

/// That many arrays within each other, the innermost empty.
inline id nestedArrays(int count) {
    id made = array();
    for (int i = 1; i < count; ++i) made = array(made);
    return made;
}

/// What reading says about bytes; empty when they are read.
inline std::string readFailure(std::string_view bytes) {
    try {
        readPropertyList(bytes);
    } catch (const PropertyListError& error) {
        return error.what();
    }
    return "";
}
/// What writing says about a value; empty when it is written.
inline std::string writeFailure(const id& root, PropertyListForm form) {
    try {
        writePropertyList(root, form);
    } catch (const PropertyListError& error) {
        return error.what();
    }
    return "";
}

}  // namespace velt::test
