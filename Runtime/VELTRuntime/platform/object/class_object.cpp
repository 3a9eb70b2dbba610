#include "VELTRuntime/platform/object/class_object.h"

#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

namespace velt {

namespace {

const ClassObject* classObjectOf(const id& value) {
    return is<ClassObject>(value) ? static_cast<const ClassObject*>(value.object()) : nullptr;
}

const Class& representedBy(const id& self) { return classObjectOf(self)->represented(); }

id superclassObject(const Class& cls) { return cls.superclass() ? cls.superclass()->object() : id(); }

id newObject(const id& self, const id*) { return representedBy(self).newObject(); }

}  // namespace

Class& ClassObject::entry() {
    static Class& cls = declareClass<ClassObject>("Class", &NSObject::entry());
    return cls;
}

id ClassObject::description() const { return string(represented_.name()); }

const Class* toClass(const id& value) {
    if (const ClassObject* object = classObjectOf(value)) return &object->represented();
    return Class::named(utf8(VELT_CSTRING(value)));
}

Selector toSelector(const id& value) { return Selector::named(utf8(VELT_CSTRING(value))); }

void ClassObject::describe(ClassBuilder<ClassObject>& c) {
    c.method("class", [](const id& self, const id*) { return self; })
        .method("superclass", [](const id& self, const id*) { return superclassObject(representedBy(self)); })
        .method("className", [](const id& self, const id*) { return string(representedBy(self).name()); })
        .method("alloc", newObject)
        .method("new", newObject)
        .method("isSubclassOfClass:",
                [](const id& self, const id* a) {
                    const Class* other = toClass(a[0]);
                    return boxResult(other && representedBy(self).isKindOf(*other));
                })
        .method("instancesRespondToSelector:", [](const id& self, const id* a) {
            return boxResult(representedBy(self).method(toSelector(a[0])) != nullptr);
        });
}

void describeReflection(ClassBuilder<NSObject>& c) {
    c.method("class", [](const id& self, const id*) { return classOf(self)->object(); })
        .method("superclass", [](const id& self, const id*) { return superclassObject(*classOf(self)); })
        .method("className", [](const id& self, const id*) { return string(classOf(self)->name()); })
        .method("isKindOfClass:",
                [](const id& self, const id* a) {
                    const Class* cls = toClass(a[0]);
                    return boxResult(cls && isKindOf(self, *cls));
                })
        .method("isMemberOfClass:",
                [](const id& self, const id* a) { return boxResult(classOf(self) == toClass(a[0])); })
        .method("respondsToSelector:",
                [](const id& self, const id* a) { return boxResult(respondsTo(self, toSelector(a[0]))); })
        .method("performSelector:", [](const id& self, const id* a) { return send(self, toSelector(a[0])); })
        .method("performSelector:withObject:",
                [](const id& self, const id* a) { return send(self, toSelector(a[0]), a[1]); })
        .method("performSelector:withObject:withObject:",
                [](const id& self, const id* a) { return send(self, toSelector(a[0]), a[1], a[2]); });
}

}  // namespace velt
