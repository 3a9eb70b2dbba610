// Messages by name.
#pragma once

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/key_value.h"

#include <algorithm>
#include <concepts>

namespace velt {

/// What the usual case of a message leaves to the library: nil and numbers as receivers, observed objects, failures.
VELT_EXPORT id slowSendMessage(const id& receiver, Selector selector, std::span<const id> arguments);

/// Sends a message. A message to nil does nothing and gives nil. Raises "NSInvalidArgumentException" naming class
/// and selector when the receiver lacks the method, or when the number of arguments is not the selector's.
inline id sendMessage(const id& receiver, Selector selector, std::span<const id> arguments) {
    if (const NSObject* object = receiver.object(); VELT_LIKELY(object) && VELT_LIKELY(!object->isAttached())) {
        const Method* method = object->isa().method(selector);
        if (VELT_LIKELY(method) && VELT_LIKELY(arguments.size() == selector.argumentCount())) {
            return method->call(*method, receiver, arguments.data());
        }
    }
    return slowSendMessage(receiver, selector, arguments);
}

/// A place in the code that sends a message: its selector, and the method that the last receiver had for it. Receivers
/// of one class, the usual case, find it again by the type that their vtable names.
class VELT_EXPORT MessageSite {
public:
    constexpr explicit MessageSite(const char* name) : name_(name) {}
    MessageSite(const MessageSite&) = delete;
    MessageSite& operator=(const MessageSite&) = delete;

    operator Selector() const {
        const Selector selector = selector_.load(std::memory_order_acquire);
        return VELT_LIKELY(selector) ? selector : registered();
    }
    /// The method for an object if it is of the class of the last receiver, else null.
    const Method* knownMethod(const NSObject& object) const {
        const MethodSlot* slot = slot_.load(std::memory_order_acquire);
        return VELT_LIKELY(slot->type == &typeid(object)) ? slot->method : nullptr;
    }
    /// Sends after looking the method up, and remembers it.
    id sendAnew(const id& receiver, std::span<const id> arguments) const;

private:
    Selector registered() const;

    static constexpr MethodSlot kUnknown{};
    const char* const name_;
    mutable std::atomic<Selector> selector_{};
    mutable std::atomic<const MethodSlot*> slot_{&kUnknown};
};

/// A site whose messages carry that many arguments, by the colons of its name.
template <unsigned Arguments> class SiteOf final : public MessageSite { using MessageSite::MessageSite; };

consteval unsigned countColons(std::string_view name) {
    return static_cast<unsigned>(std::count(name.begin(), name.end(), ':'));
}

template <unsigned Arguments>
id sendMessage(const id& receiver, const SiteOf<Arguments>& site, std::span<const id> arguments) {
    if (const NSObject* object = receiver.object(); VELT_LIKELY(object) && VELT_LIKELY(!object->isAttached())) {
        const Method* method = site.knownMethod(*object);
        if (VELT_LIKELY(method) && VELT_LIKELY(arguments.size() == Arguments)) {
            return method->call(*method, receiver, arguments.data());
        }
    }
    return site.sendAnew(receiver, arguments);
}

/// Values side by side that stay owned by their callers.
template <std::size_t N> class BorrowedValues {
public:
    template <std::same_as<id>... V> explicit BorrowedValues(const V&... values) {
        std::size_t at = 0;
        ((new (&values_[at++]) id(id::adopt(values.word()))), ...);
    }
    ~BorrowedValues() {}  // NOLINT(modernize-use-equals-default): the values are not ended
    BorrowedValues(const BorrowedValues&) = delete;
    BorrowedValues& operator=(const BorrowedValues&) = delete;
    operator std::span<const id>() const { return values_; }

private:
    union {
        id values_[N];
    };
};

template <class Name, std::same_as<id>... V>
VELT_ALWAYS_INLINE inline id sendValues(const id& receiver, const Name& selector, const V&... values) {
    if constexpr (sizeof...(V) == 0) {
        return sendMessage(receiver, selector, {});
    } else if constexpr (sizeof...(V) == 1) {
        return sendMessage(receiver, selector, std::span<const id>(&values..., 1));
    } else {
        return sendMessage(receiver, selector, BorrowedValues<sizeof...(V)>(values...));
    }
}

/// A message with its arguments: values are passed as they are, everything else is made a value first.
template <class... A> id send(const id& receiver, Selector selector, const A&... arguments) {
    return sendValues(receiver, selector,
                      static_cast<std::conditional_t<std::is_same_v<A, id>, const id&, id>>(arguments)...);
}
template <unsigned Arguments, class... A>
VELT_ALWAYS_INLINE inline id send(const id& receiver, const SiteOf<Arguments>& site, const A&... arguments) {
    return sendValues(receiver, site,
                      static_cast<std::conditional_t<std::is_same_v<A, id>, const id&, id>>(arguments)...);
}
template <class... A> id send(const id& receiver, std::string_view selector, const A&... arguments) {
    return send(receiver, Selector::named(selector), arguments...);
}

/// The receiver's class has the method; False for nil.
VELT_EXPORT bool respondsTo(const id& receiver, Selector selector);
/// The rule of actions, timers and threads: the selector of the receiver's method of that zero-terminated name; an
/// empty selector when the receiver has no such method, or the name is empty or null.
VELT_EXPORT Selector methodNamed(const id& receiver, const char* name);

/// The action that a program names by a string; an empty selector for nil. Other values raise their cast failure.
VELT_EXPORT Selector actionNamed(const id& name);
/// An action's name as programs are told it; nil for an empty selector.
VELT_EXPORT id actionName(Selector action);

/// Raises the failure of a message that the receiver lacks.
[[noreturn]] VELT_EXPORT void raiseNotUnderstood(const id& receiver, std::string_view selector);

/// What any value answers about itself. A description is a string, whatever the class answers; nil has none, equals
/// nothing and hashes to 0.
VELT_EXPORT id description(const id& value);
VELT_EXPORT bool isEqual(const id& a, const id& b);
VELT_EXPORT std::size_t hash(const id& value);
VELT_EXPORT id copy(const id& value);

}  // namespace velt

/// The selector of a literal name. Sent at this place, a message finds its method again without a search.
#define VELT_SELECTOR(literal)                                                                                         \
    ([]() -> const velt::SiteOf<velt::countColons(literal)>& {                                                         \
        static constinit const velt::SiteOf<velt::countColons(literal)> site(literal);                                 \
        return site;                                                                                                   \
    }())
