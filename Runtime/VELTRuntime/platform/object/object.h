// NSObject: what every heap object has (owners, kind, class entry) and what every class may override.
#pragma once

#include "VELTRuntime/platform/object/pool.h"
#include "VELTRuntime/values/value.h"

#include <atomic>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <sys/single_threaded.h>
#include <type_traits>
#include <utility>

namespace velt {

class Class;
class OwnedVisitor;
template <class T> class ClassBuilder;

/// The built-in shape of a heap object, readable without its class. Strings are of a kind of the mutable string
/// class whether or not they may change, so one kind serves them all.
enum class Kind : std::uint8_t {
    Object,
    Number,
    Structure,
    String,
    Data,
    MutableData,
    AttributedString,
    Array,
    MutableArray,
    Dictionary,
    MutableDictionary,
};

/// The first word behind the vtable of every object:
///
///   bits  0-3   Kind
///   bits  4-5   colour, used by the cycle collector while it runs
///   bit   6     the object is being destroyed
///   bit   7     changes of the object may have to be told to observers (attached_table.h)
///   bits  8-30  the object's place among the collector's candidates plus one; 0 when it is not a candidate
///   bit  31     others want to know when the object goes (departures.h)
///   bits 32-63  number of owners
struct ObjectHead {
    static constexpr std::uint64_t kKindMask = 0xF;
    static constexpr unsigned kColourShift = 4;
    static constexpr std::uint64_t kColourMask = std::uint64_t{3} << kColourShift;
    static constexpr std::uint64_t kDestroying = std::uint64_t{1} << 6;
    static constexpr std::uint64_t kAttached = std::uint64_t{1} << 7;
    static constexpr unsigned kPlaceShift = 8;
    static constexpr std::uint64_t kPlaceMask = std::uint64_t{0x7FFFFF} << kPlaceShift;
    static constexpr std::uint64_t kWatched = std::uint64_t{1} << 31;
    static constexpr std::uint64_t kOneOwner = std::uint64_t{1} << 32;
};

/// Objects that can never be part of a dropped cycle: they own no values.
constexpr bool isLeaf(Kind kind) { return kind >= Kind::Number && kind <= Kind::MutableData; }

}  // namespace velt

/// The root class. Objects are made with velt::make, shared through values and Ref, and freed by the last owner.
class VELT_EXPORT NSObject {
public:
    NSObject() noexcept : NSObject(velt::Kind::Object) {}
    virtual ~NSObject() = default;
    NSObject(const NSObject&) = delete;
    NSObject& operator=(const NSObject&) = delete;

    /// The class entry of NSObject itself.
    static velt::Class& entry();
    /// The entry of this object's own class.
    virtual velt::Class& isa() const;

    /// The object's text, as shown to a person: "<Class 0xaddress>" unless the class says otherwise.
    virtual id description() const;
    /// Equality of values of this class; the same object unless the class says otherwise.
    virtual bool isEqual(const id& other) const;
    /// Equal objects have equal hashes.
    virtual std::size_t hash() const;
    /// A shallow copy that cannot be changed; raises "NSInvalidArgumentException" in classes without one.
    virtual id copy() const;
    /// Shows the visitor every value that this object owns. Fields registered with the class entry are shown here;
    /// a class that keeps values elsewhere overrides it and calls its superclass's.
    virtual void visitOwned(velt::OwnedVisitor& visitor);
    /// The object belongs to a dropped cycle and is about to lose what it owns, while all of the cycle still exists: a
    /// class whose parts point back at it undoes that here. It calls its superclass's, runs no program's code, and may
    /// be called again by the destructor.
    virtual void dissolve() {}

    velt::Kind kind() const noexcept {
        return static_cast<velt::Kind>(head_.load(std::memory_order_relaxed) & velt::ObjectHead::kKindMask);
    }
    /// Observers may have to hear of changes; false for nearly every object, and then a change costs this test.
    bool isAttached() const noexcept {
        return VELT_UNLIKELY(head_.load(std::memory_order_relaxed) & velt::ObjectHead::kAttached);
    }
    /// Number of owners at this moment; for tests and diagnostics.
    std::uint32_t ownerCount() const noexcept {
        return static_cast<std::uint32_t>(head_.load(std::memory_order_relaxed) >> 32);
    }

    static void* operator new(std::size_t size) { return velt::Pool::allocate(size); }
    static void operator delete(void* memory, std::size_t size) noexcept { velt::Pool::free(memory, size); }

    /// What NSObject answers by name.
    static void describe(velt::ClassBuilder<NSObject>& builder);

protected:
    explicit NSObject(velt::Kind kind) noexcept
        : head_(velt::ObjectHead::kOneOwner | static_cast<std::uint64_t>(kind)) {}

private:
    friend void velt::retainObject(velt::Word) noexcept;
    friend void velt::releaseObject(velt::Word) noexcept;
    friend struct HeadAccess;

    std::atomic<std::uint64_t> head_;
};

/// The root object under the name that overload lists use.
using objc_object = NSObject;

/// The head word for the parts of the object system that count and colour.
struct HeadAccess {
    static std::atomic<std::uint64_t>& of(NSObject* object) noexcept { return object->head_; }
};

namespace velt {

inline void retainObject(Word word) noexcept {
    std::atomic<std::uint64_t>& head = asObjectWord(word)->head_;
    if (VELT_LIKELY(__libc_single_threaded)) {
        head.store(head.load(std::memory_order_relaxed) + ObjectHead::kOneOwner, std::memory_order_relaxed);
    } else {
        head.fetch_add(ObjectHead::kOneOwner, std::memory_order_relaxed);
    }
}

/// An owning pointer to an object of a known class; null or one owner of the object.
template <class T> class Ref {
public:
    Ref() noexcept = default;
    Ref(std::nullptr_t) noexcept {}
    /// Shares the object.
    explicit Ref(T* object) noexcept : object_(object) {
        if (object_) retainObject(objectWord(object_));
    }
    Ref(const Ref& other) noexcept : Ref(other.object_) {}
    Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <class U>
    requires std::is_base_of_v<T, U> Ref(Ref<U> other)
    noexcept : object_(other.release()) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() {
        if (object_) releaseObject(objectWord(object_));
    }
    /// Takes over one owner that the object already counts.
    static Ref adopt(T* object) noexcept {
        Ref ref;
        ref.object_ = object;
        return ref;
    }

    T* get() const noexcept { return object_; }
    T* operator->() const noexcept {
        assert(object_);
        return object_;
    }
    T& operator*() const noexcept {
        assert(object_);
        return *object_;
    }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    /// Gives the pointer away together with its owner.
    T* release() noexcept { return std::exchange(object_, nullptr); }

    operator id() const& noexcept { return id(static_cast<NSObject*>(object_)); }
    operator id() && noexcept {
        T* object = release();
        return id::adopt(objectWord(static_cast<NSObject*>(object)));
    }

private:
    T* object_ = nullptr;
};

/// Makes an object of class T from its constructor's arguments; the result is its only owner.
template <class T, class... Args> Ref<T> make(Args&&... args) {
    return Ref<T>::adopt(new T(std::forward<Args>(args)...));
}

/// The kind of the value's heap object, or none for nil and numbers in the word.
inline bool isKind(Word word, Kind kind) { return isHeapWord(word) && asObjectWord(word)->kind() == kind; }
inline bool isNumber(Word word) { return isImmediateNumberWord(word) || isKind(word, Kind::Number); }
inline bool isString(Word word) { return isKind(word, Kind::String); }
inline bool isNumber(const id& value) { return isNumber(value.word()); }
inline bool isString(const id& value) { return isString(value.word()); }
inline bool isArray(const id& value) {
    return isKind(value.word(), Kind::MutableArray) || isKind(value.word(), Kind::Array);
}

}  // namespace velt
