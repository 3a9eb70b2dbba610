#include "VELTRuntime/platform/foundation/property_list/forms.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/values/number.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/utf.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <vector>

namespace velt::property_list {

id newArray(std::span<id> values, Collections collections) {
    if (collections == Collections::Frozen) return make<NSArray>(MovedValues{values});
    return make<NSMutableArray>(MovedValues{values});
}

id newDictionary(std::span<id> keysAndValues, Collections collections) {
    if (collections == Collections::Frozen) return make<NSDictionary>(MovedValues{keysAndValues});
    return make<NSMutableDictionary>(MovedValues{keysAndValues});
}

id integerOfText(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) text.remove_prefix(1);
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        base = 16;
        text.remove_prefix(2);
    }
    std::uint64_t magnitude = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), magnitude, base);
    if (error != std::errc() || end != text.data() + text.size()) return nil;
    constexpr std::uint64_t kSmallest = std::uint64_t{1} << 63;
    if (isNegative) return magnitude <= kSmallest ? id::adopt(newInteger(static_cast<std::int64_t>(-magnitude))) : id();
    return id::adopt(magnitude < kSmallest ? newInteger(static_cast<std::int64_t>(magnitude)) : newUnsigned(magnitude));
}

namespace {

std::uint64_t hashOf(const void* bytes, std::size_t size) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15u;
    std::uint64_t hash = size * kFactor;
    const auto* from = static_cast<const char*>(bytes);
    for (; size > 0;) {
        std::uint64_t word = 0;
        const std::size_t taken = std::min(size, sizeof word);
        std::memcpy(&word, from, taken);
        hash = (hash ^ word) * kFactor;
        hash ^= hash >> 32;
        from += taken;
        size -= taken;
    }
    return hash;
}

template <class Text> id frozen(Text text) {
    char16_t* units = nullptr;
    Ref<NSMutableString> made = make<NSMutableString>(text.size(), units);
    std::copy(text.begin(), text.end(), units);
    made->freeze();
    return made;
}

}  // namespace

template <class Unit> const id& StringCache::cached(std::basic_string_view<Unit> text) {
    const std::uint64_t hash = hashOf(text.data(), text.size() * sizeof(Unit));
    Place& place = places_[hash % kPlaces];
    const bool isThere = place.hash == hash && place.string && std::ranges::equal(textOf(place.string), text);
    if (!isThere) place = {hash, frozen(text)};
    return place.string;
}

id StringCache::string(std::u16string_view text) { return text.size() > kLongest ? frozen(text) : cached(text); }

id StringCache::string(std::string_view utf8) {
    if (text::isAscii(utf8)) return utf8.size() > kLongest ? frozen(utf8) : cached(utf8);
    const auto units = text::fromUtf8(utf8);
    return frozen(std::u16string_view(*units));
}

Shape shapeOf(const id& value, const Step* step) {
    if (value.isNil()) fail(step, "nil cannot be written");
    if (isNumber(value)) {
        const NumberCode code = numberCode(value.word());
        if (isFloatingCode(code)) return Shape::Real;
        const bool isTruth = code == NumberCode::Char && (asWholeWord(value.word()) & ~std::int64_t{1}) == 0;
        return isTruth ? Shape::Boolean : Shape::Integer;
    }
    switch (value.object()->kind()) {
    case Kind::String: return Shape::String;
    case Kind::Data:
    case Kind::MutableData: return Shape::Data;
    case Kind::Array:
    case Kind::MutableArray: return Shape::Array;
    case Kind::Dictionary:
    case Kind::MutableDictionary: return Shape::Dictionary;
    default: break;
    }
    if (is<NSDate>(value)) return Shape::Date;
    if (is<PropertyListUid>(value)) return Shape::Uid;
    fail(step, "a property list cannot hold a value of class " + classOf(value)->name());
}

Step stepInto(NSObject* collection, const Step* outer) {
    for (const Step* step = outer; step; step = step->outer) {
        if (step->collection == collection) fail(outer, "the collection lies within itself");
    }
    const unsigned level = outer ? outer->level + 1 : 1;
    if (level > kMostPropertyListLevels) {
        fail(outer, "more than " + std::to_string(kMostPropertyListLevels) + " collections within each other");
    }
    return {outer, collection, level, 0};
}

void fail(const Step* step, const std::string& what) {
    std::vector<const Step*> steps;
    for (; step; step = step->outer) steps.push_back(step);
    std::string path;
    for (auto at = steps.rbegin(); at != steps.rend(); ++at) {
        if (const id* key = (*at)->key) {
            if (!path.empty()) path += '.';
            path += isString(*key) ? utf8(*key) : "(key)";
        } else {
            path += '[' + std::to_string((*at)->index) + ']';
        }
    }
    throw PropertyListError((path.empty() ? "the root" : path) + ": " + what);
}

}  // namespace velt::property_list
