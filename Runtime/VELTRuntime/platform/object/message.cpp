#include "VELTRuntime/platform/object/message.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/null.h"
#include "VELTRuntime/platform/object/class_object.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/observing.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/number.h"
#include "VELTRuntime/values/string.h"

namespace velt {

namespace {

[[noreturn]] void raiseArgumentCount(const id& receiver, Selector selector, std::size_t given) {
    raise(kInvalidArgumentException, "'" + selector.name() + "' of " + quotedClassName(receiver) + " takes " +
                                         std::to_string(selector.argumentCount()) + " arguments, not " +
                                         std::to_string(given));
}

}  // namespace

Selector actionNamed(const id& name) { return name.isNil() ? Selector() : Selector::named(utf8(VELT_CSTRING(name))); }
id actionName(Selector action) { return action ? string(action.name()) : nil; }

void raiseNotUnderstood(const id& receiver, std::string_view selector) {
    raise(kInvalidArgumentException,
          quotedClassName(receiver) + " does not understand '" + std::string(selector) + "'");
}

namespace {

/// The key that a setter's message changes: "key" for "setKey:", or as it is written when only that is a property.
std::string changedKey(const Class& cls, std::string_view suffix) {
    std::string key(suffix);
    if (key[0] >= 'A' && key[0] <= 'Z') key[0] = static_cast<char>(key[0] - 'A' + 'a');
    return !cls.property(key) && cls.property(suffix) ? std::string(suffix) : key;
}

const Method* methodOf(const id& receiver, const Class& cls, Selector selector) {
    if (const Method* method = cls.method(selector)) return method;
    return is<ClassObject>(receiver) ? as<ClassObject>(receiver)->represented().classMethod(selector) : nullptr;
}

/// A class that takes messages which it lacks gets the name and an array of the arguments.
id forwardMessage(const id& receiver, const Class& cls, Selector selector, std::span<const id> arguments) {
    static const Selector forwards = Selector::named("forwardMessage:arguments:");
    const Method* method = cls.method(forwards);
    if (!method) raiseNotUnderstood(receiver, selector.name());
    Ref<NSMutableArray> list = make<NSMutableArray>();
    for (const id& argument : arguments) list->append(argument.isNil() ? NSNull::null() : argument);
    const id told[] = {string(std::string_view(selector.name())), list};
    return method->call(*method, receiver, told);
}

}  // namespace

id slowSendMessage(const id& receiver, Selector selector, std::span<const id> arguments) {
    const Class* cls = classOf(receiver);
    if (!cls) return nil;
    const Method* method = methodOf(receiver, *cls, selector);
    if (!method) return forwardMessage(receiver, *cls, selector, arguments);
    if (arguments.size() != selector.argumentCount()) raiseArgumentCount(receiver, selector, arguments.size());
    NSObject* object = receiver.object();
    const std::string_view suffix = selector.setterSuffix();
    if (suffix.empty() || !object || !object->isAttached()) return method->call(*method, receiver, arguments.data());
    id result;
    changeValue(*object, changedKey(*cls, suffix), [&] { result = method->call(*method, receiver, arguments.data()); });
    return result;
}

Selector MessageSite::registered() const {
    const Selector selector = Selector::named(name_);
    selector_.store(selector, std::memory_order_release);
    return selector;
}

id MessageSite::sendAnew(const id& receiver, std::span<const id> arguments) const {
    const Selector selector = *this;
    if (const NSObject* object = receiver.object()) {
        const MethodSlot& slot = object->isa().methodSlot(selector);
        // A class of C++ without an entry of its own shares its superclass's rows: they do not name its type.
        if (slot.method && slot.type == &typeid(*object)) slot_.store(&slot, std::memory_order_release);
    }
    return slowSendMessage(receiver, selector, arguments);
}

bool respondsTo(const id& receiver, Selector selector) {
    const Class* cls = classOf(receiver);
    return cls && methodOf(receiver, *cls, selector);
}

Selector methodNamed(const id& receiver, const char* name) {
    if (!name || !*name) return {};
    const Selector selector = Selector::named(name);
    return respondsTo(receiver, selector) ? selector : Selector();
}

id description(const id& value) {
    NSObject* object = value.object();
    if (!object) return value.isNil() ? id() : numberText(value);
    // What asks counts on a text, whatever a program's class answers.
    id text = object->description();
    if (!isString(text)) text = object->NSObject::description();
    return text;
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

}  // namespace velt
