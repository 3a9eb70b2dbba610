#include "VELTRuntime/platform/object/key_value.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/collection_operators.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/platform/object/observing.h"
#include "VELTRuntime/values/string.h"

namespace velt {

namespace {

/// No method belongs to any other key: with a colon in it, a selector would take more arguments than are there.
bool mayNameMethods(std::string_view key) { return !key.empty() && key.find(':') == key.npos; }

/// The method that reads a key: "key", or "isKey" for a truth value.
const Method* readerOf(const Class& cls, std::string_view key) {
    if (!mayNameMethods(key)) return nullptr;
    if (const Selector plain = Selector::existing(key)) {
        if (const Method* method = cls.method(plain)) return method;
    }
    const Selector selector = Selector::existing("is" + capitalized(key));
    return selector ? cls.method(selector) : nullptr;
}

const Method* setterOf(const Class& cls, std::string_view key) {
    if (!mayNameMethods(key)) return nullptr;
    const Selector selector = Selector::existing(setterName(key));
    return selector ? cls.method(selector) : nullptr;
}

/// The property of a key, unless it is read-only.
const Property* settableProperty(const Class& cls, std::string_view key) {
    const Property* property = cls.property(key);
    return property && property->set ? property : nullptr;
}

[[noreturn]] void raiseNilValue(const id& object, std::string_view key) {
    raise(kInvalidArgumentException, quotedClassName(object) + " cannot take nil for key '" + std::string(key) + "'");
}

// A program's getters and setters may change the collection whose keys they are called for.

id valuesForKeys(const id& self, const id& keys) {
    Ref<NSMutableDictionary> values = make<NSMutableDictionary>();
    if (const NSArray* list = to<NSArray>(keys)) {
        const id kept = list->copy();
        for (const id& key : arrayOf(kept)->items()) {
            // A dictionary holds no nil: what has no value is not in it.
            if (const id value = send(self, VELT_SELECTOR("valueForKey:"), key)) values->setObject(value, key);
        }
    }
    return values;
}

void setValuesForKeys(const id& self, const id& keyedValues) {
    if (const NSDictionary* values = to<NSDictionary>(keyedValues)) {
        const id kept = values->copy();
        dictionaryOf(kept)->forEach(
            [&self](const id& key, const id& value) { send(self, VELT_SELECTOR("setValue:forKey:"), value, key); });
    }
}

}  // namespace

KeyPathStep firstStep(std::string_view keyPath) {
    const std::size_t dot = keyPath.find('.');
    if (dot == keyPath.npos) return {keyPath, {}};
    return {keyPath.substr(0, dot), keyPath.substr(dot + 1)};
}

void raiseUnknownKey(const id& object, std::string_view key) {
    raise(kUnknownKeyException, quotedClassName(object) + " has no value for key '" + std::string(key) + "'");
}

std::string keyText(const id& key) {
    if (!isString(key)) {
        raise(kInvalidArgumentException,
              (key.isNil() ? std::string("nil") : "a value of " + quotedClassName(key)) + " is no key");
    }
    return utf8(key);
}

bool hasValueForKey(const id& object, std::string_view key) {
    const Class* cls = classOf(object);
    return cls && (cls->keyAccess().get || cls->property(key) || readerOf(*cls, key));
}

id memberValueForKey(const id& object, std::string_view key) {
    const Class* cls = classOf(object);
    if (!cls) return nil;
    if (const Property* property = cls->property(key)) return property->get(*property, object);
    if (const Method* method = readerOf(*cls, key)) return method->call(*method, object, nullptr);
    return send(object, VELT_SELECTOR("valueForUndefinedKey:"), string(key));
}

bool canSetMemberForKey(const id& object, std::string_view key) {
    const Class* cls = classOf(object);
    return cls && (settableProperty(*cls, key) || setterOf(*cls, key));
}

void setMemberValueForKey(const id& object, std::string_view key, const id& value) {
    const Class* cls = classOf(object);
    if (!cls) return;
    const Property* property = settableProperty(*cls, key);
    const Method* method = property ? nullptr : setterOf(*cls, key);
    if (!property && !method) {
        send(object, VELT_SELECTOR("setValue:forUndefinedKey:"), value, string(key));
        return;
    }
    if (property && property->rejectsNil && value.isNil()) {
        send(object, VELT_SELECTOR("setNilValueForKey:"), string(key));
        return;
    }
    if (method) {
        method->call(*method, object, &value);
    } else {
        property->set(*property, object, value);
    }
}

id valueForKey(const id& object, std::string_view key) {
    const Class* cls = classOf(object);
    if (!cls) return nil;
    const auto get = cls->keyAccess().get;
    return get ? get(object, key) : memberValueForKey(object, key);
}

void setValueForKey(const id& object, std::string_view key, const id& value) {
    const Class* cls = classOf(object);
    if (!cls) return;
    const auto access = cls->keyAccess().set;
    const auto set = access ? access : &setMemberValueForKey;
    if (NSObject* changed = object.object()) {
        changeValue(*changed, key, [&] { set(object, key, value); });
    } else {
        set(object, key, value);
    }
}

id valueForKeyPath(const id& object, std::string_view keyPath) {
    id current = object;
    for (KeyPathStep step = firstStep(keyPath); !current.isNil(); step = firstStep(step.rest)) {
        if (step.key.starts_with('@') && isArray(current)) return collectionValue(current, step.key, step.rest);
        current = valueForKey(current, step.key);
        if (step.rest.data() == nullptr) break;
    }
    return current;
}

void setValueForKeyPath(const id& object, std::string_view keyPath, const id& value) {
    const std::size_t dot = keyPath.rfind('.');
    if (dot == keyPath.npos) {
        setValueForKey(object, keyPath, value);
    } else {
        setValueForKey(valueForKeyPath(object, keyPath.substr(0, dot)), keyPath.substr(dot + 1), value);
    }
}

bool isValidForKey(const id& object, std::string_view key, const id& value, const id& error) {
    const Class* cls = classOf(object);
    if (!cls || !mayNameMethods(key)) return true;
    const Selector validator = Selector::existing("validate" + capitalized(key) + ":error:");
    const Method* method = validator ? cls->method(validator) : nullptr;
    if (!method) return true;
    const id arguments[] = {value, error};
    return VELT_CBOOL(method->call(*method, object, arguments));
}

bool isValidForKeyPath(const id& object, std::string_view keyPath, const id& value, const id& error) {
    const std::size_t dot = keyPath.rfind('.');
    if (dot == keyPath.npos) return isValidForKey(object, keyPath, value, error);
    const id last = valueForKeyPath(object, keyPath.substr(0, dot));
    return last.isNil() || isValidForKey(last, keyPath.substr(dot + 1), value, error);
}

void describeKeyValueCoding(ClassBuilder<NSObject>& c) {
    c.method("valueForKey:", [](const id& self, const id* a) { return valueForKey(self, keyText(a[0])); })
        .method("setValue:forKey:",
                [](const id& self, const id* a) {
                    setValueForKey(self, keyText(a[1]), a[0]);
                    return id();
                })
        .method("valueForKeyPath:", [](const id& self, const id* a) { return valueForKeyPath(self, keyText(a[0])); })
        .method("setValue:forKeyPath:",
                [](const id& self, const id* a) {
                    setValueForKeyPath(self, keyText(a[1]), a[0]);
                    return id();
                })
        .method(
            "valueForUndefinedKey:", [](const id& self, const id* a) -> id { raiseUnknownKey(self, keyText(a[0])); })
        .method("setValue:forUndefinedKey:",
                [](const id& self, const id* a) -> id { raiseUnknownKey(self, keyText(a[1])); })
        .method("setNilValueForKey:", [](const id& self, const id* a) -> id { raiseNilValue(self, keyText(a[0])); })
        .method("validateValue:forKey:error:",
                [](const id& self, const id* a) { return boxResult(isValidForKey(self, keyText(a[1]), a[0], a[2])); })
        .method(
            "validateValue:forKeyPath:error:",
            [](const id& self, const id* a) { return boxResult(isValidForKeyPath(self, keyText(a[1]), a[0], a[2])); })
        .method("dictionaryWithValuesForKeys:", [](const id& self, const id* a) { return valuesForKeys(self, a[0]); })
        .method("setValuesForKeysWithDictionary:", [](const id& self, const id* a) {
            setValuesForKeys(self, a[0]);
            return id();
        });
}

}  // namespace velt
