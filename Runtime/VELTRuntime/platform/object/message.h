// Messages by name.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <initializer_list>

namespace velt {

/// Sends a message. A message to nil does nothing and gives nil. Raises "NSInvalidArgumentException" naming class
/// and selector when the receiver lacks the method, or when the number of arguments is not the selector's.
VELT_EXPORT id sendMessage(const id& receiver, Selector selector, std::span<const id> arguments);

template <class... A> id send(const id& receiver, Selector selector, const A&... arguments) {
    const std::array<id, sizeof...(A)> values{id(arguments)...};
    return sendMessage(receiver, selector, values);
}
template <class... A> id send(const id& receiver, std::string_view selector, const A&... arguments) {
    return send(receiver, Selector::named(selector), arguments...);
}

/// The receiver's class has the method; False for nil.
VELT_EXPORT bool respondsTo(const id& receiver, Selector selector);

/// Raises the failure of a message that the receiver lacks.
[[noreturn]] VELT_EXPORT void raiseNotUnderstood(const id& receiver, std::string_view selector);

/// What any value answers about itself; nil has no text, equals nothing and hashes to 0.
VELT_EXPORT id description(const id& value);
VELT_EXPORT bool isEqual(const id& a, const id& b);
VELT_EXPORT std::size_t hash(const id& value);
VELT_EXPORT id copy(const id& value);

/// The value under a key: the property, or a method of that name. Raises "NSUnknownKeyException" naming class and
/// key when there is neither. nil gives nil.
VELT_EXPORT id valueForKey(const id& object, std::string_view key);
/// Sets the value under a key: the property, or a method "setKey:". Raises "NSUnknownKeyException" as above, and for
/// a property that can only be read.
VELT_EXPORT void setValueForKey(const id& object, std::string_view key, const id& value);

}  // namespace velt
