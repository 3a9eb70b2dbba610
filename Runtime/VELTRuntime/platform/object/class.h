// The class table: one entry a class, written once beside the class, from which messages, key access, kind tests
// and the visiting of what an object owns all come.
#pragma once

#include "VELTRuntime/platform/object/object.h"
#include "VELTRuntime/platform/object/selector.h"

#include <array>
#include <atomic>
#include <cstring>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <typeinfo>
#include <unordered_map>
#include <vector>

namespace velt {

/// The bytes of a member pointer or function pointer that a method or property calls.
struct Target {
    alignas(void*) unsigned char bytes[2 * sizeof(void*)];

    template <class Pointer> static Target of(Pointer pointer) {
        static_assert(sizeof(Pointer) <= sizeof(bytes) && std::is_trivially_copyable_v<Pointer>);
        Target target{};
        std::memcpy(target.bytes, &pointer, sizeof pointer);
        return target;
    }
    template <class Pointer> Pointer as() const {
        Pointer pointer;
        std::memcpy(&pointer, bytes, sizeof pointer);
        return pointer;
    }
};

/// One method: its selector and how to call it with values.
struct Method {
    Selector selector;
    Target target;
    id (*call)(const Method&, const id& receiver, const id* arguments);
};

/// One property, reached by key: how to read it and, unless it is read-only, how to set it.
struct Property {
    std::string key;
    Target getter;
    Target setter;
    id (*get)(const Property&, const id& object);
    void (*set)(const Property&, const id& object, const id& value);
    /// The setter takes a number or a structure, which nil is not.
    bool rejectsNil = false;
};

/// How a class that holds values of its own finds them by key, in place of its properties and methods.
struct KeyAccess {
    id (*get)(const id& object, std::string_view key);
    void (*set)(const id& object, std::string_view key, const id& value);
};

/// A key whose value follows from values at other key paths of the same object.
struct Dependency {
    std::string key;
    std::vector<std::string> keyPaths;
};

/// One field that holds an owned value.
struct OwnedField {
    Target field;
    void (*visit)(const OwnedField&, NSObject& object, OwnedVisitor& visitor);
};

/// One row of a class's method table. It says of which C++ type the class is, so that a row alone tells whether it
/// serves an object.
struct MethodSlot {
    Selector selector;
    const Method* method;
    const std::type_info* type;
};

/// The entry of one class. Entries live as long as the process.
class VELT_EXPORT Class {
public:
    using Describer = void (*)(Class&);
    using Factory = id (*)();

    /// Enters a class, or completes the entry of a class that is known by name alone. The same C++ class may be
    /// declared again (from another library) and keeps its first entry. Raises "NSInternalInconsistencyException"
    /// when the name belongs to a different class or the superclass is another.
    static Class& declare(const char* name, Class* superclass, const std::type_info& type, Describer describe,
                          Factory factory);
    /// The entry of that name (UTF-8), or null.
    static Class* named(std::string_view name);
    /// The entry of that name, for classes that the library itself knows; asserts that it is there.
    static Class& known(std::string_view name);

    const std::string& name() const { return name_; }
    Class* superclass() const { return superclass_; }
    /// This class or one of its superclasses is the other; constant time.
    bool isKindOf(const Class& other) const {
        if (other.depth_ < kDisplay) return other.depth_ <= depth_ && display_[other.depth_] == &other;
        return isDeepKindOf(other);
    }

    /// The method of that selector, own or inherited, or null. Takes no lock.
    const Method* method(Selector selector) const { return methodSlot(selector).method; }
    /// The row of that method; it has no method when there is none.
    const MethodSlot& methodSlot(Selector selector) const {
        const MethodSlot* table = methodSlots_.load(std::memory_order_acquire);
        if (VELT_UNLIKELY(!table)) table = describedSlots();
        for (std::size_t at = selector.hash() & methodMask_;; at = (at + 1) & methodMask_) {
            if (VELT_LIKELY(table[at].selector == selector) || !table[at].method) return table[at];
        }
    }
    /// The method of that selector that the class itself answers, own or inherited, or null.
    const Method* classMethod(Selector selector) const;
    /// The property of that key (UTF-8), own or inherited, or null.
    const Property* property(std::string_view key) const;
    /// How values are found by key; null members for properties and methods.
    const KeyAccess& keyAccess() const {
        if (VELT_UNLIKELY(!methodSlots_.load(std::memory_order_acquire))) describedSlots();
        return keyAccess_;
    }
    /// The key paths from which the value under a key follows, by this class and its superclasses.
    std::vector<std::string> keyPathsAffecting(std::string_view key) const;
    /// The class as a value: it answers class methods and makes objects. One object a class.
    const id& object() const;
    /// Shows the visitor the registered fields of this class and its superclasses.
    void visitOwnedFields(NSObject& object, OwnedVisitor& visitor) const;
    /// Objects of the class can be made without arguments.
    bool canMakeObjects() const { return factory_ != nullptr; }
    /// A new object made without arguments; raises "NSInvalidArgumentException" when the class cannot make one.
    id newObject() const;

    // Filling an entry; for ClassBuilder.
    void add(Method method);
    void add(Property property);
    void add(OwnedField field);
    void add(Dependency dependency);
    void addClassMethod(Method method);
    void setKeyAccess(const KeyAccess& access) { keyAccess_ = access; }

    Class(const Class&) = delete;
    Class& operator=(const Class&) = delete;
    /// Entries are made by the table.
    struct Row {
        std::string_view name;
        Class* superclass;
    };
    explicit Class(const Row& row);

private:
    static constexpr unsigned kDisplay = 12;
    bool isDeepKindOf(const Class& other) const;
    void ensureDescribed() const;
    const MethodSlot* describedSlots() const;
    void flatten();

    std::string name_;
    Class* superclass_;
    unsigned depth_;
    std::array<const Class*, kDisplay> display_{};  // [i] is the ancestor of depth i
    const std::type_info* type_ = nullptr;
    Describer describe_ = nullptr;
    Factory factory_ = nullptr;

    // Filled at the first use of a method, key or field.
    mutable std::once_flag described_;
    std::vector<Method> ownMethods_;
    std::vector<Property> ownProperties_;
    std::vector<OwnedField> ownFields_;
    std::vector<Method> classMethods_;
    std::vector<Dependency> dependencies_;
    KeyAccess keyAccess_{};
    std::vector<MethodSlot> methodTable_;  // open addressing, own and inherited
    std::size_t methodMask_ = 0;
    std::atomic<const MethodSlot*> methodSlots_{nullptr};  // the table, once it is complete
    mutable std::once_flag objectMade_;
    mutable id object_;
    std::unordered_map<std::string_view, const Property*> properties_;
};

/// The class of a value; null for nil.
VELT_EXPORT Class* classOf(const id& value);
/// The name of a value's class in quotation marks, for reasons of failures; "nil" for nil.
VELT_EXPORT std::string quotedClassName(const id& value);
/// The value is an object of that class or of a subclass.
VELT_EXPORT bool isKindOf(const id& value, const Class& cls);

/// The value is an object of class T or of a subclass.
template <class T> bool is(const id& value) { return isKindOf(value, T::entry()); }
/// The object, which is known to be a T.
template <class T> T* as(const id& value) {
    assert(is<T>(value));
    return static_cast<T*>(value.object());
}
/// Raises the cast failure of a class: "'Name' expected".
[[noreturn]] VELT_EXPORT void raiseClassExpected(const Class& cls);
/// The object as a T, null for nil; raises "VLCastException" with "'T' expected" for anything else.
template <class T> T* to(const id& value) {
    if (value.isNil()) return nullptr;
    if (!is<T>(value)) raiseClassExpected(T::entry());
    return static_cast<T*>(value.object());
}

/// Sees every value that an object owns. The cycle collector's visitors may set a value to nil.
class VELT_EXPORT OwnedVisitor {
public:
    virtual void visit(id& value) = 0;
    template <class T> void visit(Ref<T>& ref) {
        id value = std::move(ref);
        visit(value);
        ref = value.isNil() ? Ref<T>() : Ref<T>::adopt(static_cast<T*>(asObjectWord(value.take())));
    }

protected:
    ~OwnedVisitor() = default;
};

}  // namespace velt

/// Placed first in a class derived from NSObject: gives it its class entry under its own name and enters it when
/// the program is loaded. The class says what it answers in
/// `static void describe(velt::ClassBuilder<Type>& c)`.
#define VELT_OBJECT(Type, Superclass)                                                                                  \
public:                                                                                                                \
    static velt::Class& entry() {                                                                                      \
        static velt::Class& cls = velt::declareClass<Type>(#Type, &Superclass::entry());                               \
        return cls;                                                                                                    \
    }                                                                                                                  \
    velt::Class& isa() const override { return entry(); }                                                              \
                                                                                                                       \
private:                                                                                                               \
    inline static const velt::Class& entered_ = entry();

#include "VELTRuntime/platform/object/binding.h"
