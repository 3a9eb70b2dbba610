// Strings: UTF-16 text with shared, copy-on-write storage.
#pragma once

#include "VELTRuntime/platform/object/object.h"
#include "VELTRuntime/values/text/copy_units.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace velt {

/// Text in UTF-16 code units that several strings share. The first `used` units never change while the buffer is
/// shared; a string that ends there may claim what follows for a longer string, so that repeated appending copies
/// nothing.
class VELT_EXPORT TextBuffer {
public:
    /// A buffer of that many units, none used, with one owner.
    static TextBuffer* create(std::size_t capacity);
    void retain() noexcept { owners_.fetch_add(1, std::memory_order_relaxed); }
    void release() noexcept {
        if (owners_.load(std::memory_order_acquire) == 1 || owners_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            std::free(this);
        }
    }
    bool isShared() const noexcept { return owners_.load(std::memory_order_acquire) > 1; }
    char16_t* units() noexcept { return reinterpret_cast<char16_t*>(this + 1); }
    std::size_t capacity() const noexcept { return capacity_; }
    /// Claims count units from the end of the used ones for a text that ends there; false when another text did so
    /// before or the room is too small.
    bool claim(std::size_t end, std::size_t count) noexcept;
    void setUsed(std::size_t used) noexcept { used_.store(used, std::memory_order_relaxed); }

private:
    explicit TextBuffer(std::size_t capacity) : capacity_(capacity) {}

    std::atomic<std::size_t> owners_{1};
    std::atomic<std::size_t> used_{0};
    std::size_t capacity_;
};

}  // namespace velt

/// The string class. Every string object is of the mutable subclass; this one gives the operations that do not
/// change the text.
class VELT_EXPORT NSString : public NSObject {
public:
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }
    id description() const override;
    bool isEqual(const id& other) const override;
    /// Worked out once for a text.
    std::size_t hash() const override;
    /// The hash if it was worked out before, otherwise 0.
    std::size_t knownHash() const noexcept { return state() >> kHashShift; }
    /// The same text in a string that cannot be changed: itself when it is one.
    id copy() const override;

    /// Number of UTF-16 code units.
    std::size_t length() const noexcept { return (state() >> kLengthShift) & kMostUnits; }
    /// The text; valid until the string is changed or freed.
    std::u16string_view view() const noexcept {
        const std::uint64_t known = state();
        return {known & kInline ? inlineUnits_ : shared_.start, (known >> kLengthShift) & kMostUnits};
    }
    /// The text must not change; changing it raises.
    bool isFrozen() const noexcept { return (state() & kFrozen) != 0; }
    static void describe(velt::ClassBuilder<NSString>& c);

    ~NSString() override {
        // The analyser does not follow the atomic count. NOLINTNEXTLINE(clang-analyzer-unix.Malloc)
        if (!isInline()) shared_.buffer->release();
    }

protected:
    /// Texts up to this length live in the object itself, longer ones in a buffer.
    static constexpr std::size_t kInlineUnits = 16;
    struct SharedText {
        velt::TextBuffer* buffer;
        char16_t* start;
    };

    NSString() noexcept : NSObject(velt::Kind::String) {}
    bool isInline() const noexcept { return (state() & kInline) != 0; }
    const char16_t* units() const noexcept { return isInline() ? inlineUnits_ : shared_.start; }

    void setLength(std::size_t length, bool isInline) noexcept {
        setState((state() & kFrozen) | (isInline ? kInline : 0) | length << kLengthShift);
    }
    std::uint64_t state() const noexcept { return state_.load(std::memory_order_relaxed); }
    void setState(std::uint64_t state) const noexcept { state_.store(state, std::memory_order_relaxed); }

    // Two flags, the length, and the hash once it was asked for (0 before); a change of the text forgets the hash. One
    // word, always written whole: reading a word of which a byte was just written makes the processor wait.
    static constexpr std::uint64_t kInline = 1, kFrozen = 2;
    static constexpr unsigned kLengthShift = 2, kHashShift = 34;
    static constexpr std::uint64_t kMostUnits = (std::uint64_t{1} << (kHashShift - kLengthShift)) - 1;
    mutable std::atomic<std::uint64_t> state_{kInline};
    union {
        SharedText shared_ = {};
        char16_t inlineUnits_[kInlineUnits];
    };
};

/// A string. It may be changed in place unless it is frozen.
class VELT_EXPORT NSMutableString final : public NSString {
public:
    static velt::Class& entry();
    velt::Class& isa() const override { return entry(); }

    /// A string of that text, copied.
    explicit NSMutableString(std::u16string_view text) {
        velt::text::copyUnits(text.size() <= kInlineUnits ? allocateInline(text.size()) : allocate(text.size()), text);
    }
    /// A string that shares the text of another one; nothing is copied.
    explicit NSMutableString(const NSString& other) noexcept;
    /// The units from start, length of them, of another string: shared when that is cheaper than copying.
    NSMutableString(const NSString& other, std::size_t start, std::size_t length) {
        assert(start <= other.length() && length <= other.length() - start);
        if (length <= kInlineUnits) {
            velt::text::copyUnits(allocateInline(length), other.view().substr(start, length));
        } else {
            takeLongPiece(other, start, length);
        }
    }
    /// A string of that many units, to be filled at once through `fill`.
    NSMutableString(std::size_t length, char16_t*& fill);
    /// The text of a string followed by another text.
    NSMutableString(const NSString& head, std::u16string_view tail);

    /// Forbids changes from now on.
    NSMutableString& freeze() noexcept {
        setState(state() | kFrozen);
        return *this;
    }

    // Changes in place. They raise "NSInvalidArgumentException" for a frozen string and "NSRangeException" for
    // positions beyond the end.
    void setText(std::u16string_view text);
    void append(std::u16string_view text);
    void insert(std::size_t position, std::u16string_view text);
    void replace(std::size_t position, std::size_t length, std::u16string_view text);
    static void describe(velt::ClassBuilder<NSMutableString>& c);

private:
    char16_t* allocateInline(std::size_t length) noexcept {
        setLength(length, true);
        return inlineUnits_;
    }
    char16_t* allocate(std::size_t length);
    void takeLongPiece(const NSString& other, std::size_t start, std::size_t length);
    void assign(std::u16string_view a, std::u16string_view b, std::u16string_view c);
    void become(const NSMutableString& other) noexcept;
    void requireChangeable(const char* operation) const;
};

namespace velt {

/// A new string of a UTF-8 text; ill-formed bytes become U+FFFD.
VELT_EXPORT id string(std::string_view utf8);
/// A new string of a UTF-16 text.
inline id string(std::u16string_view text) { return make<NSMutableString>(text); }
/// A new string of the same text that shares its storage.
inline id freshCopy(const NSString& text) { return make<NSMutableString>(text); }

/// The string that a value is known to be.
inline const NSString& asString(const id& value) {
    assert(isString(value));
    return *static_cast<const NSString*>(value.object());
}
inline NSMutableString& asMutableString(const id& value) {
    assert(isString(value));
    return *static_cast<NSMutableString*>(value.object());
}
/// The text of a value that is known to be a string; valid while the string is neither changed nor freed.
inline std::u16string_view textOf(const id& string) { return asString(string).view(); }
/// A string's text in UTF-8; lone surrogates become U+FFFD. Asserts that the value is a string.
VELT_EXPORT std::string utf8(const id& string);
VELT_EXPORT std::string utf8(std::u16string_view text);

/// A literal's bytes as a template argument.
template <std::size_t N> struct LiteralText {
    char bytes[N];
    constexpr LiteralText(const char (&text)[N]) { std::copy_n(text, N, bytes); }
    constexpr std::string_view view() const { return {bytes, N - 1}; }
};
/// A frozen string of a UTF-8 text.
VELT_EXPORT id frozenString(std::string_view utf8);

}  // namespace velt

/// A string literal as a value: one frozen string a literal, made at first use. `"text"_v`
template <velt::LiteralText Text> const id& operator""_v() {
    static const id literal = velt::frozenString(Text.view());
    return literal;
}
