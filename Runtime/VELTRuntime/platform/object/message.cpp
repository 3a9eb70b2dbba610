#include "VELTRuntime/platform/object/message.h"

#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/number.h"
#include "VELTRuntime/values/string.h"

namespace velt {

namespace {

constexpr std::string_view kUnknownKeyException = "NSUnknownKeyException";

[[noreturn]] void raiseUnknownKey(const id& object, std::string_view key) {
    raise(kUnknownKeyException, "'" + classOf(object)->name() + "' has no value for key '" + std::string(key) + "'");
}

[[noreturn]] void raiseArgumentCount(const id& receiver, Selector selector, std::size_t given) {
    raise(kInvalidArgumentException, "'" + selector.name() + "' of '" + classOf(receiver)->name() + "' takes " +
                                         std::to_string(selector.argumentCount()) + " arguments, not " +
                                         std::to_string(given));
}

}  // namespace

void raiseNotUnderstood(const id& receiver, std::string_view selector) {
    const Class* cls = classOf(receiver);
    raise(kInvalidArgumentException, (cls ? "'" + cls->name() + "'" : std::string("nil")) + " does not understand '" +
                                         std::string(selector) + "'");
}

id sendMessage(const id& receiver, Selector selector, std::span<const id> arguments) {
    const Class* cls = classOf(receiver);
    if (!cls) return nil;
    const Method* method = cls->method(selector);
    if (!method) raiseNotUnderstood(receiver, selector.name());
    if (arguments.size() != selector.argumentCount()) raiseArgumentCount(receiver, selector, arguments.size());
    return method->call(*method, receiver, arguments.data());
}

bool respondsTo(const id& receiver, Selector selector) {
    const Class* cls = classOf(receiver);
    return cls && cls->method(selector);
}

id description(const id& value) {
    if (NSObject* object = value.object()) return object->description();
    return value.isNil() ? id() : numberText(value);
}

bool isEqual(const id& a, const id& b) {
    if (a.isNil() || b.isNil()) return false;
    if (a == b) return true;
    if (isNumber(a)) return isNumber(b) && compareNumbers(a.word(), b.word()) == 0;
    return a.object()->isEqual(b);
}

std::size_t hash(const id& value) {
    if (value.isNil()) return 0;
    return isNumber(value) ? numberHash(value.word()) : value.object()->hash();
}

id copy(const id& value) {
    NSObject* object = value.object();
    return object ? object->copy() : value;
}

id valueForKey(const id& object, std::string_view key) {
    const Class* cls = classOf(object);
    if (!cls) return nil;
    if (const Property* property = cls->property(key)) return property->get(*property, object);
    if (const Method* method = cls->method(Selector::named(key)); method && key.find(':') == key.npos) {
        return method->call(*method, object, nullptr);
    }
    raiseUnknownKey(object, key);
}

void setValueForKey(const id& object, std::string_view key, const id& value) {
    const Class* cls = classOf(object);
    if (!cls) return;
    if (const Property* property = cls->property(key); property && property->set) {
        property->set(*property, object, value);
        return;
    }
    const Method* method = key.empty() ? nullptr : cls->method(Selector::named(setterName(key)));
    if (!method) raiseUnknownKey(object, key);
    method->call(*method, object, &value);
}

}  // namespace velt
