#include "VELTRuntime/values/string.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string_drawing.h"
#include "VELTRuntime/values/text/hashing.h"
#include "VELTRuntime/values/text/reading.h"
#include "VELTRuntime/values/text/search.h"
#include "VELTRuntime/values/text/utf.h"

#include <cstring>
#include <functional>
#include <new>

namespace velt {

TextBuffer* TextBuffer::create(std::size_t capacity) {
    constexpr std::size_t kMost = (SIZE_MAX / 2 - sizeof(TextBuffer)) / sizeof(char16_t);
    void* memory = capacity <= kMost ? std::malloc(sizeof(TextBuffer) + capacity * sizeof(char16_t)) : nullptr;
    if (!memory) throw std::bad_alloc();
    return new (memory) TextBuffer(capacity);
}

bool TextBuffer::claim(std::size_t end, std::size_t count) noexcept {
    if (count > capacity_ - end) return false;
    std::size_t expected = end;
    return used_.compare_exchange_strong(expected, end + count, std::memory_order_relaxed);
}

id string(std::string_view utf8) {
    char16_t* units = nullptr;
    if (text::isAscii(utf8)) {
        Ref<NSMutableString> result = make<NSMutableString>(utf8.size(), units);
        text::widenAscii(utf8, units);
        return result;
    }
    return string(text::fromUtf8Lenient(utf8));
}

id frozenString(std::string_view utf8) {
    id result = string(utf8);
    asMutableString(result).freeze();
    return result;
}

std::string utf8(std::u16string_view text) { return text::toUtf8(text); }
std::string utf8(const id& string) { return utf8(textOf(string)); }

}  // namespace velt

using velt::text::copyUnits;

namespace {

[[noreturn]] void raiseTooLong(std::size_t length) {
    velt::raise(velt::kRangeException, "a string of " + std::to_string(length) + " characters is too long");
}

}  // namespace

velt::Class& NSString::entry() {
    static velt::Class& cls = velt::declareClass<NSString>("NSString", &NSObject::entry());
    return cls;
}
velt::Class& NSMutableString::entry() {
    static velt::Class& cls = velt::declareClass<NSMutableString>("NSMutableString", &NSString::entry());
    return cls;
}

id NSString::description() const { return velt::freshCopy(*this); }

bool NSString::isEqual(const id& other) const {
    // Unit by unit: what keys and element tests compare. The language's own equality also matches canonically
    // equivalent texts.
    return velt::isString(other) && velt::textOf(other) == view();
}

std::size_t NSString::hash() const {
    const std::uint64_t known = state();
    if (const std::uint64_t hash = known >> kHashShift) return hash;
    const std::uint64_t hash = std::max<std::uint64_t>(velt::text::hashOf(view()) << kHashShift >> kHashShift, 1);
    // A thread that does the same at this moment writes the same.
    setState(known | hash << kHashShift);
    return hash;
}

id NSString::copy() const {
    if (isFrozen()) return id(const_cast<NSString*>(this));
    velt::Ref<NSMutableString> result = velt::make<NSMutableString>(*this);
    result->freeze();
    return result;
}

char16_t* NSMutableString::allocate(std::size_t length) {
    if (length <= kInlineUnits) {
        setLength(length, true);
        return inlineUnits_;
    }
    if (length > kMostUnits) raiseTooLong(length);
    velt::TextBuffer* buffer = velt::TextBuffer::create(length);
    buffer->setUsed(length);
    setLength(length, false);
    shared_ = {buffer, buffer->units()};
    return shared_.start;
}

NSMutableString::NSMutableString(std::size_t length, char16_t*& fill) { fill = allocate(length); }

NSMutableString::NSMutableString(const NSString& other) noexcept { become(static_cast<const NSMutableString&>(other)); }

void NSMutableString::takeLongPiece(const NSString& other, std::size_t start, std::size_t length) {
    const auto& source = static_cast<const NSMutableString&>(other);
    // A short piece would keep a long text alive for little.
    if (source.isInline() || length < source.shared_.buffer->capacity() / 2) {
        copyUnits(allocate(length), source.view().substr(start, length));
        return;
    }
    setLength(length, false);
    shared_ = {source.shared_.buffer, source.shared_.start + start};
    shared_.buffer->retain();
}

NSMutableString::NSMutableString(const NSString& head, std::u16string_view tail) {
    const auto& source = static_cast<const NSMutableString&>(head);
    const std::size_t length = source.length() + tail.size();
    if (length <= kInlineUnits || source.isInline()) {
        char16_t* units = allocate(length);
        copyUnits(units, source.view());
        copyUnits(units + source.length(), tail);
        return;
    }
    if (length > kMostUnits) raiseTooLong(length);
    velt::TextBuffer* buffer = source.shared_.buffer;
    const std::size_t start = static_cast<std::size_t>(source.shared_.start - buffer->units());
    if (buffer->claim(start + source.length(), tail.size())) {
        shared_ = source.shared_;
        buffer->retain();
    } else {
        // A text that is appended to will be appended to again.
        buffer = velt::TextBuffer::create(length + length / 2);
        buffer->setUsed(length);
        shared_ = {buffer, buffer->units()};
        copyUnits(shared_.start, source.view());
    }
    setLength(length, false);
    copyUnits(shared_.start + source.length(), tail);
}

void NSMutableString::requireChangeable(const char* operation) const {
    if (isFrozen()) {
        velt::raise(velt::kInvalidArgumentException,
                    std::string("'") + operation + "' on a string that cannot be changed");
    }
}

void NSMutableString::become(const NSMutableString& other) noexcept {
    // The other may share this string's buffer: it gets its new owner before it loses the old one.
    velt::TextBuffer* old = isInline() ? nullptr : shared_.buffer;
    if (!other.isInline()) other.shared_.buffer->retain();
    setLength(other.length(), other.isInline());
    if (isInline()) {
        std::memcpy(inlineUnits_, other.inlineUnits_, sizeof inlineUnits_);
    } else {
        shared_ = other.shared_;
    }
    if (old) old->release();
}

void NSMutableString::assign(std::u16string_view a, std::u16string_view b, std::u16string_view c) {
    // The pieces may be parts of the text that is replaced: build first, then take over.
    char16_t* units = nullptr;
    const NSMutableString built(a.size() + b.size() + c.size(), units);
    copyUnits(units, a);
    copyUnits(units + a.size(), b);
    copyUnits(units + a.size() + b.size(), c);
    become(built);
}

void NSMutableString::setText(std::u16string_view text) {
    requireChangeable("setString:");
    assign(text, {}, {});
}

void NSMutableString::append(std::u16string_view text) {
    requireChangeable("appendString:");
    const NSMutableString longer(*this, text);
    become(longer);
}

void NSMutableString::insert(std::size_t position, std::u16string_view text) { replace(position, 0, text); }

void NSMutableString::replace(std::size_t position, std::size_t length, std::u16string_view text) {
    requireChangeable("replaceCharactersInRange:withString:");
    const std::size_t size = view().size();
    if (position > size) velt::raiseRange("replaceCharacters", static_cast<long long>(position), size);
    if (length > size - position) {
        const std::size_t end = position + length;
        velt::raiseRange("replaceCharacters", static_cast<long long>(end), size);
    }
    // A long text that nobody else shares is changed where it is. When it has no room left it gets some, so that the
    // next changes copy only what is behind them.
    constexpr std::size_t kLong = 4096, kMostRoom = 65536;
    const std::size_t newSize = size - length + text.size();
    const std::u16string_view old = view();
    const std::less<const char16_t*> isBefore;
    const bool isOwnPart = !isBefore(text.data(), old.data()) && isBefore(text.data(), old.data() + size);
    if (isInline() || newSize < kLong || newSize > kMostUnits || isOwnPart || shared_.buffer->isShared()) {
        return assign(old.substr(0, position), text, old.substr(position + length));
    }
    const std::size_t start = static_cast<std::size_t>(shared_.start - shared_.buffer->units());
    if (start + newSize > shared_.buffer->capacity()) {
        velt::TextBuffer* buffer = velt::TextBuffer::create(newSize + std::min(newSize / 8, kMostRoom));
        copyUnits(buffer->units(), old.substr(0, position));
        copyUnits(buffer->units() + position + text.size(), old.substr(position + length));
        shared_.buffer->release();
        shared_ = {buffer, buffer->units()};
    } else {
        std::char_traits<char16_t>::move(shared_.start + position + text.size(), shared_.start + position + length,
                                         size - position - length);
    }
    copyUnits(shared_.start + position, text);
    shared_.buffer->setUsed(static_cast<std::size_t>(shared_.start - shared_.buffer->units()) + newSize);
    setLength(newSize, false);
}

static id comparePlainly(const id& s, const id* a) {
    if (!velt::isString(a[0])) velt::raiseClassExpected(NSString::entry());
    return velt::boxResult(velt::text::compare(velt::textOf(s), velt::textOf(a[0]), velt::text::Case::Respected));
}

void NSString::describe(velt::ClassBuilder<NSString>& c) {
    using namespace velt;
    addDrawingMethods(c);
    c.property("length", &NSString::length)
        .method("string", [](const id& s, const id*) { return s; })
        .method("mutableCopy", [](const id& s, const id*) { return freshCopy(asString(s)); })
        .method("integerValue", [](const id& s, const id*) { return boxResult(text::integerReading(textOf(s))); })
        .method("intValue", [](const id& s, const id*) { return boxResult(text::integerReading(textOf(s))); })
        .method("longLongValue", [](const id& s, const id*) { return boxResult(text::integerReading(textOf(s))); })
        .method("doubleValue", [](const id& s, const id*) { return boxResult(text::doubleReading(textOf(s))); })
        .method("floatValue", [](const id& s, const id*) { return boxResult(text::floatReading(textOf(s))); })
        .method("boolValue", [](const id& s, const id*) { return boxResult(text::booleanReading(textOf(s))); })
        .method("compare:", comparePlainly)
        // By its own name, too, for sorting where case matters.
        .method("caseSensitiveCompare:", comparePlainly);
}

void NSMutableString::describe(velt::ClassBuilder<NSMutableString>& c) {
    using namespace velt;
    c.method("setString:", [](const id& s, const id* a) {
         const id text = VELT_CSTRING(a[0]);
         asMutableString(s).setText(textOf(text));
         return id();
     }).method("appendString:", [](const id& s, const id* a) {
        const id text = VELT_CSTRING(a[0]);
        asMutableString(s).append(textOf(text));
        return id();
    });
}
