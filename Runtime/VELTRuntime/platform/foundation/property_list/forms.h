// What the readers and writers of the three forms share; not for others.
#pragma once

#include "VELTRuntime/platform/foundation/property_list/property_list.h"

#include <array>
#include <span>

namespace velt::property_list {

id readBinary(std::string_view bytes, Collections collections);
id readXml(std::string_view bytes, Collections collections);
id readAscii(std::string_view bytes, Collections collections);
std::string writeBinary(const id& root);
std::string writeXml(const id& root);

/// A collection of those values, which are moved into it.
id newArray(std::span<id> values, Collections collections);
/// A dictionary of keys and values in turn; the last value of a repeated key counts.
id newDictionary(std::span<id> keysAndValues, Collections collections);

/// A whole number in decimal digits, or "0x" and hexadecimal ones, with an optional sign: type code q, Q above 2^63-1;
/// nil for anything else and beyond those ranges.
id integerOfText(std::string_view text);

/// Frozen strings of texts that come again and again. It remembers a bounded number of them.
class StringCache {
public:
    id string(std::u16string_view text);
    /// The string of a text that is known to be UTF-8.
    id string(std::string_view utf8);

private:
    static constexpr std::size_t kPlaces = 1024;
    static constexpr std::size_t kLongest = 40;
    struct Place {
        std::uint64_t hash = 0;
        id string;
    };
    template <class Unit> const id& cached(std::basic_string_view<Unit> text);

    std::array<Place, kPlaces> places_;
};

/// What a writer makes of a value.
enum class Shape { String, Boolean, Integer, Real, Date, Data, Uid, Array, Dictionary };

/// The way from the root to the value that is being written, one step a collection, on the writer's own stack.
struct Step {
    const Step* outer;
    NSObject* collection;
    unsigned level;
    std::size_t index;        // in an array
    const id* key = nullptr;  // in a dictionary
};

/// The shape of a value below a step. Throws PropertyListError, naming the path, for what has none.
Shape shapeOf(const id& value, const Step* step);
/// A step into a collection. Throws for a collection that holds itself and for one that lies too deep.
Step stepInto(NSObject* collection, const Step* outer);
/// Throws a PropertyListError about the value below a step.
[[noreturn]] void fail(const Step* step, const std::string& what);

}  // namespace velt::property_list
