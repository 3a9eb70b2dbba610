#include "VELTRuntime/builtins/objects.h"

#include "VELTRuntime/platform/object/class_object.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/class_casts.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

using namespace velt;

id VELT_PROPERTY(const id& object, const id& keyPath) {
    return send(object, VELT_SELECTOR("valueForKeyPath:"), VELT_CSTRING(keyPath));
}

id VELT_PROPERTY(const id& object, const id& keyPath, const id& value) {
    return send(object, VELT_SELECTOR("setValue:forKeyPath:"), value, VELT_CSTRING(keyPath));
}

id VELT_NSOBJECT_VALUEFORKEYPATH(const id& object, const id& keyPath) {
    return send(object, VELT_SELECTOR("valueForKeyPath:"), keyPath);
}

id VELT_NSOBJECT_SETVALUEFORKEY(const id& object, const id& value, const id& key) {
    return send(object, VELT_SELECTOR("setValue:forKey:"), value, key);
}

id VELT_NSOBJECT_INIT(const id& object) { return send(object, VELT_SELECTOR("init")); }

id VELT_NSOBJECT_ISKINDOFCLASS(const id& object, const id& className) {
    const Class* cls = toClass(className);
    return boxResult(cls && isKindOf(object, *cls));
}

id VELT_NSOBJECT_ISMEMBEROFCLASS(const id& object, const id& className) {
    const Class* cls = toClass(className);
    return boxResult(cls && classOf(object) == cls);
}

id VELT_NSOBJECT_RESPONDSTOSELECTOR(const id& object, const id& selector) {
    return boxResult(respondsTo(object, toSelector(selector)));
}

id VELT_NSOBJECT_INSTANCESRESPONDSTOSELECTOR(const id& cls, const id& selector) {
    const Selector named = toSelector(selector);
    const Class* found = cls.isNil() ? nullptr : toClass(cls);
    return boxResult(found && found->method(named));
}

id VELT_NSOBJECT_PERFORMSELECTOR0(const id& object, const id& selector) { return send(object, toSelector(selector)); }

id VELT_NSOBJECT_PERFORMSELECTOR1(const id& object, const id& selector, const id& argument) {
    return send(object, toSelector(selector), argument);
}

id VELT_NSOBJECT_PERFORMSELECTOR2(const id& object, const id& selector, const id& argument1, const id& argument2) {
    return send(object, toSelector(selector), argument1, argument2);
}

id VELT_NSOBJECT_BIND(const id& object, const id& binding, const id& observed, const id& keyPath, const id& options) {
    return send(object, VELT_SELECTOR("bind:toObject:withKeyPath:options:"), VELT_CSTRING(binding), observed,
                VELT_CSTRING(keyPath), VELT_CDICTIONARY(options));
}

id VELT_NSOBJECT_UNBIND(const id& object, const id& binding) {
    return send(object, VELT_SELECTOR("unbind:"), VELT_CSTRING(binding));
}
