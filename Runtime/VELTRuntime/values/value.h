// id: one value, an owning reference of eight bytes. nil, numbers in the word itself, or a shared heap object.
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/values/word.h"

#include <cstddef>
#include <utility>

namespace velt {

/// Adds an owner to the object of a heap word.
inline void retainObject(Word word) noexcept;
/// Takes an owner from the object of a heap word; the last one frees it.
VELT_EXPORT void releaseObject(Word word) noexcept;

}  // namespace velt

/// One value. Copying shares a heap object and never copies its content; the last owner frees it. Values may be
/// copied and dropped on any thread; one variable may be changed by one thread at a time.
class id {
public:
    constexpr id() noexcept = default;
    constexpr id(std::nullptr_t) noexcept {}
    /// Shares the object; nil for a null pointer.
    id(NSObject* object) noexcept : word_(velt::objectWord(object)) { retain(word_); }

    VELT_ALWAYS_INLINE constexpr id(const id& other) noexcept : word_(other.word_) { retain(word_); }
    VELT_ALWAYS_INLINE constexpr id(id&& other) noexcept : word_(other.word_) { other.word_ = velt::kNilWord; }
    VELT_ALWAYS_INLINE constexpr id& operator=(const id& other) noexcept {
        const velt::Word old = word_;
        retain(other.word_);
        word_ = other.word_;
        release(old);
        return *this;
    }
    VELT_ALWAYS_INLINE constexpr id& operator=(id&& other) noexcept {
        const velt::Word taken = other.word_;
        other.word_ = velt::kNilWord;
        const velt::Word old = word_;
        word_ = taken;
        release(old);
        return *this;
    }
    VELT_ALWAYS_INLINE constexpr ~id() { release(word_); }

    /// Takes over a word that already counts this owner.
    VELT_ALWAYS_INLINE static constexpr id adopt(velt::Word word) noexcept {
        id value;
        value.word_ = word;
        return value;
    }
    /// Shares what a borrowed word refers to.
    static constexpr id share(velt::Word word) noexcept {
        retain(word);
        return adopt(word);
    }
    /// Gives the word away together with its owner; the value becomes nil.
    constexpr velt::Word take() noexcept { return std::exchange(word_, velt::kNilWord); }

    constexpr velt::Word word() const noexcept { return word_; }
    constexpr bool isNil() const noexcept { return word_ == velt::kNilWord; }
    constexpr bool isObject() const noexcept { return velt::isHeapWord(word_); }
    /// The heap object, or null for nil and for numbers that live in the word. Still owned by the value.
    NSObject* object() const noexcept { return isObject() ? velt::asObjectWord(word_) : nullptr; }
    constexpr explicit operator bool() const noexcept { return !isNil(); }

    /// The same reference (for numbers in the word: the same type code and scalar).
    friend constexpr bool operator==(const id& a, const id& b) noexcept { return a.word_ == b.word_; }

private:
    VELT_ALWAYS_INLINE static constexpr void retain(velt::Word word) noexcept {
        if (velt::isHeapWord(word)) velt::retainObject(word);
    }
    VELT_ALWAYS_INLINE static constexpr void release(velt::Word word) noexcept {
        if (VELT_UNLIKELY(velt::isHeapWord(word))) velt::releaseObject(word);
    }

    velt::Word word_ = velt::kNilWord;
};

static_assert(sizeof(id) == 8);

/// The missing value.
inline constexpr id nil{};

/// The platform's native truth value.
using BOOL = signed char;

#include "VELTRuntime/platform/object/object.h"
