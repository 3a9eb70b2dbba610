// Key-value coding: values of objects reached by key and by key path.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <string_view>

namespace velt {

inline constexpr std::string_view kUnknownKeyException = "NSUnknownKeyException";

/// The value under a key: what the class's own key access gives, else the property, a method of that name, or for
/// "enabled" a method "isEnabled". What is under no key is asked for by "valueForUndefinedKey:", which raises
/// "NSUnknownKeyException" naming class and key unless the class answers it. nil gives nil.
VELT_EXPORT id valueForKey(const id& object, std::string_view key);
/// Sets the value under a key: the property, or a method "setKey:". A key without either goes to
/// "setValue:forUndefinedKey:", nil for a number or structure to "setNilValueForKey:"; they raise
/// "NSUnknownKeyException" and "NSInvalidArgumentException" unless the class answers them. Observers hear of the
/// change.
VELT_EXPORT void setValueForKey(const id& object, std::string_view key, const id& value);

/// The value at a path of keys joined by dots. nil on the way gives nil. Over an array a key gives the array of what
/// its elements have under it, and "@count", "@sum.key" and their like what foundation/collection_operators.h says.
VELT_EXPORT id valueForKeyPath(const id& object, std::string_view keyPath);
/// Sets the last key of a path on what the keys before it reach; nil on the way changes nothing.
VELT_EXPORT void setValueForKeyPath(const id& object, std::string_view keyPath, const id& value);

/// Whether the object takes the value under the key: what its method "validateKey:error:" says, which is handed the
/// value and the error, or true when it has none. Over a path the last object is asked; nil on the way is true.
VELT_EXPORT bool isValidForKey(const id& object, std::string_view key, const id& value, const id& error = nil);
VELT_EXPORT bool isValidForKeyPath(const id& object, std::string_view keyPath, const id& value, const id& error = nil);

/// The object has a value under the key that is found without "valueForUndefinedKey:".
VELT_EXPORT bool hasValueForKey(const id& object, std::string_view key);
/// The value of the object's own property or method, past the class's key access; whether it can be set; and setting
/// it, which tells nobody.
VELT_EXPORT id memberValueForKey(const id& object, std::string_view key);
VELT_EXPORT bool canSetMemberForKey(const id& object, std::string_view key);
VELT_EXPORT void setMemberValueForKey(const id& object, std::string_view key, const id& value);

/// A key path cut behind its first key.
struct KeyPathStep {
    std::string_view key, rest;
};
VELT_EXPORT KeyPathStep firstStep(std::string_view keyPath);

/// Raises the failure of a key under which an object has nothing.
[[noreturn]] VELT_EXPORT void raiseUnknownKey(const id& object, std::string_view key);

/// The text of a key or key path that a program passes unconverted. Raises "NSInvalidArgumentException" for what is no
/// string.
VELT_EXPORT std::string keyText(const id& key);

/// What NSObject answers about values by key.
void describeKeyValueCoding(ClassBuilder<NSObject>& c);

}  // namespace velt
