#include "VELTRuntime/platform/object/class.h"

#include "VELTRuntime/platform/object/class_object.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/number.h"

#include <deque>
#include <shared_mutex>

namespace velt {

namespace {

/// A class that is known before the library that fills it is loaded.
struct KnownClass {
    const char* name;
    const char* superclass;
};

constexpr KnownClass kKnownClasses[] = {
#define VELT_KNOWN_CLASS(name, superclass) {#name, #superclass},
#include "VELTRuntime/platform/object/known_classes.def"
#undef VELT_KNOWN_CLASS
};

/// All entries by name.
struct ClassTable {
    std::shared_mutex mutex;
    std::deque<Class> classes;
    std::unordered_map<std::string_view, Class*> byName;

    ClassTable() {
        enter("NSObject", nullptr);
        for (const KnownClass& known : kKnownClasses) enter(known.name, byName.at(known.superclass));
    }
    Class& enter(std::string_view name, Class* superclass) {
        Class& cls = classes.emplace_back(Class::Row{name, superclass});
        byName.emplace(cls.name(), &cls);
        return cls;
    }
    Class* find(std::string_view name) const {
        const auto found = byName.find(name);
        return found == byName.end() ? nullptr : found->second;
    }
};

ClassTable& table() {
    static ClassTable& instance = *new ClassTable;  // outlives every other static object
    return instance;
}

std::size_t tableSizeFor(std::size_t count) {
    std::size_t size = 8;
    while (size < 2 * count) size *= 2;
    return size;
}

}  // namespace

Class::Class(const Row& row)
    : name_(row.name), superclass_(row.superclass), depth_(superclass_ ? superclass_->depth_ + 1 : 0) {
    if (superclass_) display_ = superclass_->display_;
    if (depth_ < kDisplay) display_[depth_] = this;
}

Class& Class::declare(const char* name, Class* superclass, const std::type_info& type, Describer describe,
                      Factory factory) {
    ClassTable& all = table();
    const std::unique_lock lock(all.mutex);
    Class* cls = all.find(name);
    if (!cls) cls = &all.enter(name, superclass);
    if (cls->superclass_ != superclass || (cls->type_ && *cls->type_ != type)) {
        raise(kInternalInconsistencyException, "class '" + std::string(name) + "' is entered twice");
    }
    if (!cls->type_) {
        cls->type_ = &type;
        cls->describe_ = describe;
        cls->factory_ = factory;
    }
    return *cls;
}

Class* Class::named(std::string_view name) {
    ClassTable& all = table();
    const std::shared_lock lock(all.mutex);
    return all.find(name);
}

Class& Class::known(std::string_view name) {
    Class* cls = named(name);
    assert(cls);
    return *cls;
}

bool Class::isDeepKindOf(const Class& other) const {
    for (const Class* cls = this; cls; cls = cls->superclass_) {
        if (cls == &other) return true;
    }
    return false;
}

void Class::ensureDescribed() const {
    std::call_once(described_, [self = const_cast<Class*>(this)] {
        if (self->superclass_) self->superclass_->ensureDescribed();
        if (self->describe_) self->describe_(*self);
        self->flatten();
    });
}

void Class::flatten() {
    std::size_t inherited = 0;
    if (superclass_) {
        properties_ = superclass_->properties_;
        for (const MethodSlot& slot : superclass_->methodTable_) inherited += slot.method != nullptr;
    }
    for (const Property& property : ownProperties_) properties_[property.key] = &property;

    methodTable_.resize(tableSizeFor(inherited + ownMethods_.size()));
    const auto place = [this](const Method* method) {
        const std::size_t mask = methodTable_.size() - 1;
        std::size_t at = method->selector.hash() & mask;
        while (methodTable_[at].method && methodTable_[at].selector != method->selector) at = (at + 1) & mask;
        methodTable_[at] = {method->selector, method, type_};
    };
    if (superclass_) {
        for (const MethodSlot& slot : superclass_->methodTable_) {
            if (slot.method) place(slot.method);
        }
    }
    for (const Method& method : ownMethods_) place(&method);

    if (superclass_ && !keyAccess_.get) keyAccess_ = superclass_->keyAccess_;
    methodMask_ = methodTable_.size() - 1;
    methodSlots_.store(methodTable_.data(), std::memory_order_release);
}

const MethodSlot* Class::describedSlots() const {
    ensureDescribed();
    return methodTable_.data();
}

const Method* Class::classMethod(Selector selector) const {
    for (const Class* cls = this; cls; cls = cls->superclass_) {
        cls->ensureDescribed();
        for (const Method& method : cls->classMethods_) {
            if (method.selector == selector) return &method;
        }
    }
    return nullptr;
}

std::vector<std::string> Class::keyPathsAffecting(std::string_view key) const {
    ensureDescribed();
    std::vector<std::string> keyPaths;
    for (const Class* cls = this; cls; cls = cls->superclass_) {
        for (const Dependency& dependency : cls->dependencies_) {
            if (dependency.key != key) continue;
            keyPaths.insert(keyPaths.end(), dependency.keyPaths.begin(), dependency.keyPaths.end());
        }
    }
    return keyPaths;
}

const id& Class::object() const {
    std::call_once(objectMade_, [this] { object_ = make<ClassObject>(*this); });
    return object_;
}

const Property* Class::property(std::string_view key) const {
    ensureDescribed();
    const auto found = properties_.find(key);
    return found == properties_.end() ? nullptr : found->second;
}

void Class::visitOwnedFields(NSObject& object, OwnedVisitor& visitor) const {
    ensureDescribed();
    for (const Class* cls = this; cls; cls = cls->superclass_) {
        for (const OwnedField& field : cls->ownFields_) field.visit(field, object, visitor);
    }
}

id Class::newObject() const {
    if (!factory_) raise(kInvalidArgumentException, "'" + name_ + "' objects cannot be made by name");
    return factory_();
}

void Class::add(Method method) { ownMethods_.push_back(method); }
void Class::add(Property property) { ownProperties_.push_back(std::move(property)); }
void Class::add(OwnedField field) { ownFields_.push_back(field); }
void Class::add(Dependency dependency) { dependencies_.push_back(std::move(dependency)); }
void Class::addClassMethod(Method method) { classMethods_.push_back(method); }

Class* classOf(const id& value) {
    if (NSObject* object = value.object()) return &object->isa();
    return value.isNil() ? nullptr : &NSNumber::entry();
}

std::string quotedClassName(const id& value) {
    const Class* cls = classOf(value);
    return cls ? "'" + cls->name() + "'" : std::string("nil");
}

bool isKindOf(const id& value, const Class& cls) {
    const Class* own = classOf(value);
    return own && own->isKindOf(cls);
}

void raiseClassExpected(const Class& cls) { raiseCast("'" + cls.name() + "' expected"); }

}  // namespace velt
