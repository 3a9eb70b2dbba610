// Writing of the binary form: equal strings, numbers, dates and data are written once, and so is a collection that is
// reached on several ways. Scalars go into the bytes when they are met; collections, whose references have a width that
// depends on the number of all objects, follow them.
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/property_list/binary_form.h"
#include "VELTRuntime/platform/foundation/property_list/forms.h"
#include "VELTRuntime/values/number.h"
#include "VELTRuntime/values/string.h"

#include <bit>
#include <cstring>
#include <functional>
#include <vector>

namespace velt::property_list {

namespace {

/// The 64 bits of an integer value and whether they are a negative number.
struct Whole {
    std::uint64_t bits;
    bool isNegative;
    friend bool operator==(const Whole&, const Whole&) = default;
};

Whole wholeOf(Word number) {
    if (numberCode(number) != NumberCode::UnsignedLong) {
        const std::int64_t value = integerReading(number);
        return {static_cast<std::uint64_t>(value), value < 0};
    }
    if (isSmallWord(number)) return {unsignedPayload(number), false};
    return {static_cast<const NSNumber*>(asObjectWord(number))->unsignedInteger(), false};
}

/// The bits that tell one scalar without text from another of its shape.
std::uint64_t scalarBits(const id& value, Shape shape) {
    switch (shape) {
    case Shape::Boolean: return booleanReading(value.word()) ? 1 : 0;
    case Shape::Integer: return wholeOf(value.word()).bits;
    case Shape::Real: return std::bit_cast<std::uint64_t>(doubleReading(value.word()));
    case Shape::Date: return std::bit_cast<std::uint64_t>(as<NSDate>(value)->timeIntervalSinceReferenceDate());
    case Shape::Uid: return as<PropertyListUid>(value)->value();
    default: return value.word();  // collections are told apart by themselves
    }
}

bool isSingle(const id& value) { return numberCode(value.word()) == NumberCode::Float; }

std::uint32_t hashOf(const id& value, Shape shape) {
    std::uint64_t hash = 0;
    if (shape == Shape::String) {
        hash = std::hash<std::u16string_view>()(textOf(value));
    } else if (shape == Shape::Data) {
        hash = std::hash<std::string_view>()(dataOf(value)->characters());
    } else {
        hash = (scalarBits(value, shape) + static_cast<std::uint64_t>(shape)) * 0x9E3779B97F4A7C15u;
    }
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

bool isSame(const id& a, const id& b, Shape shape) {
    if (a == b) return true;
    switch (shape) {
    case Shape::String: return textOf(a) == textOf(b);
    case Shape::Data: return dataOf(a)->characters() == dataOf(b)->characters();
    case Shape::Integer: return wholeOf(a.word()) == wholeOf(b.word());
    case Shape::Real: return isSingle(a) == isSingle(b) && scalarBits(a, shape) == scalarBits(b, shape);
    default: return scalarBits(a, shape) == scalarBits(b, shape);
    }
}

/// The smallest of the widths 1, 2, 4 and 8 that holds a number.
std::size_t widthOf(std::uint64_t number) {
    return number <= 0xFF ? 1 : number <= 0xFFFF ? 2 : number <= 0xFFFFFFFF ? 4 : 8;
}

class BinaryWriter {
public:
    std::string written(const id& root) {
        bytes_ = kBinaryHeader;
        slots_.assign(1024, 0);
        numberOf(root, nullptr);
        const std::size_t referenceWidth = widthOf(objects_.size() - 1);
        for (const Collection& collection : collections_) write(collection, referenceWidth);
        const std::size_t table = bytes_.size(), offsetWidth = widthOf(table);
        for (const Object& object : objects_) putNumber(object.offset, offsetWidth);
        bytes_.append(6, '\0');
        bytes_ += static_cast<char>(offsetWidth);
        bytes_ += static_cast<char>(referenceWidth);
        putNumber(objects_.size(), 8);
        putNumber(0, 8);
        putNumber(table, 8);
        return std::move(bytes_);
    }

private:
    /// The values are borrowed: they are part of what is written.
    struct Object {
        const id* value;
        std::size_t offset;
        std::uint32_t hash;
        Shape shape;
    };
    struct Collection {
        std::uint32_t object;
        std::uint32_t count;  // elements or entries
        std::size_t references;
    };

    /// The number of the object that a value is written as. It is written now if it is a scalar that was not met
    /// before; so is all that a new collection holds.
    std::uint32_t numberOf(const id& value, const Step* step) {
        const Shape shape = shapeOf(value, step);
        const std::uint32_t hash = hashOf(value, shape);
        const std::size_t slot = slotOf(value, shape, hash);
        const bool isCollection = shape == Shape::Array || shape == Shape::Dictionary;
        if (slots_[slot] != 0) {
            if (isCollection) stepInto(value.object(), step);
            return slots_[slot] - 1;
        }
        if (objects_.size() >= UINT32_MAX - 1) fail(step, "too many objects");
        const auto number = static_cast<std::uint32_t>(objects_.size());
        slots_[slot] = number + 1;
        objects_.push_back({&value, bytes_.size(), hash, shape});
        if (objects_.size() * 3 > slots_.size() * 2) growSlots();
        if (isCollection) {
            const Step inner = stepInto(value.object(), step);
            shape == Shape::Array ? numberItems(number, inner) : numberEntries(number, inner);
        } else {
            writeScalar(value, shape);
        }
        return number;
    }

    void numberItems(std::uint32_t number, Step step) {
        const std::span<const id> items = static_cast<NSArray*>(step.collection)->items();
        const std::size_t start = begin(number, items.size(), items.size(), step);
        for (; step.index < items.size(); ++step.index) {
            const std::uint32_t item = numberOf(items[step.index], &step);
            references_[start + step.index] = item;
        }
    }

    void numberEntries(std::uint32_t number, Step step) {
        const auto& dictionary = *static_cast<NSDictionary*>(step.collection);
        const std::size_t count = dictionary.count(), start = begin(number, count, 2 * count, step);
        std::size_t at = start;
        dictionary.forEach([&](const id& key, const id& value) {
            step.key = &key;
            if (!isString(key)) fail(&step, "a key has to be a string");
            const std::uint32_t keyNumber = numberOf(key, &step), valueNumber = numberOf(value, &step);
            references_[at] = keyNumber;
            references_[at + count] = valueNumber;
            ++at;
        });
    }

    std::size_t begin(std::uint32_t number, std::size_t count, std::size_t references, const Step& step) {
        if (count > UINT32_MAX) fail(&step, "too many elements");
        const std::size_t start = references_.size();
        references_.resize(start + references);
        collections_.push_back({number, static_cast<std::uint32_t>(count), start});
        return start;
    }

    /// The place in the index where a value is, or where it belongs.
    std::size_t slotOf(const id& value, Shape shape, std::uint32_t hash) const {
        const std::size_t mask = slots_.size() - 1;
        for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
            if (slots_[slot] == 0) return slot;
            const Object& object = objects_[slots_[slot] - 1];
            if (object.hash == hash && object.shape == shape && isSame(*object.value, value, shape)) return slot;
        }
    }
    void growSlots() {
        const std::size_t size = slots_.size() * 2;
        slots_.assign(size, 0);
        for (std::size_t i = 0; i < objects_.size(); ++i) {
            std::size_t slot = objects_[i].hash & (size - 1);
            while (slots_[slot] != 0) slot = (slot + 1) & (size - 1);
            slots_[slot] = static_cast<std::uint32_t>(i + 1);
        }
    }

    void writeScalar(const id& value, Shape shape) {
        switch (shape) {
        case Shape::String: putText(textOf(value)); break;
        case Shape::Boolean: putByte(booleanReading(value.word()) ? kTrueByte : kFalseByte); break;
        case Shape::Integer: putInteger(wholeOf(value.word())); break;
        case Shape::Real:
            if (isSingle(value)) {
                putMarker(Marker::Real, 2);
                putNumber(std::bit_cast<std::uint32_t>(asFloatWord(value.word())), 4);
            } else {
                putMarker(Marker::Real, 3);
                putNumber(scalarBits(value, shape), 8);
            }
            break;
        case Shape::Date:
            putByte(kDateByte);
            putNumber(scalarBits(value, shape), 8);
            break;
        case Shape::Data: {
            const std::string_view content = dataOf(value)->characters();
            putMarker(Marker::Data, content.size());
            bytes_ += content;
            break;
        }
        case Shape::Uid: {
            const std::size_t width = widthOf(scalarBits(value, shape));
            putMarker(Marker::Uid, width - 1);
            putNumber(scalarBits(value, shape), width);
            break;
        }
        default: break;  // collections are written later
        }
    }

    void write(const Collection& collection, std::size_t width) {
        Object& object = objects_[collection.object];
        object.offset = bytes_.size();
        const bool isArray = object.shape == Shape::Array;
        putMarker(isArray ? Marker::Array : Marker::Dictionary, collection.count);
        const std::size_t count = std::size_t{collection.count} * (isArray ? 1 : 2);
        for (std::size_t i = 0; i < count; ++i) putNumber(references_[collection.references + i], width);
    }

    void putByte(unsigned byte) { bytes_ += static_cast<char>(byte); }
    void putNumber(std::uint64_t number, std::size_t width) {
        static_assert(std::endian::native == std::endian::little);
        const std::uint64_t bigEndian = __builtin_bswap64(number);
        char digits[8];
        std::memcpy(digits, &bigEndian, sizeof digits);
        bytes_.append(digits + sizeof digits - width, width);
    }
    void putMarker(Marker marker, std::size_t count) {
        const unsigned high = static_cast<unsigned>(marker) << 4;
        if (count < kCountFollows) {
            putByte(high | static_cast<unsigned>(count));
        } else {
            putByte(high | kCountFollows);
            putInteger({count, false});
        }
    }
    /// Integers of up to 4 bytes are unsigned, those of 8 signed.
    void putInteger(Whole whole) {
        if (!whole.isNegative && whole.bits >> 63 != 0) {
            putMarker(Marker::Integer, 4);
            putNumber(0, 8);
            putNumber(whole.bits, 8);
            return;
        }
        const std::size_t width = whole.isNegative ? 8 : widthOf(whole.bits);
        putMarker(Marker::Integer, static_cast<std::size_t>(std::countr_zero(width)));
        putNumber(whole.bits, width);
    }
    void putText(std::u16string_view text) {
        char16_t all = 0;
        for (const char16_t unit : text) all |= unit;
        const bool isAscii = all < 0x80;
        putMarker(isAscii ? Marker::Ascii : Marker::Utf16, text.size());
        const std::size_t start = bytes_.size();
        bytes_.resize(start + text.size() * (isAscii ? 1 : 2));
        char* out = bytes_.data() + start;
        for (const char16_t unit : text) {
            if (!isAscii) *out++ = static_cast<char>(unit >> 8);
            *out++ = static_cast<char>(unit);
        }
    }

    std::string bytes_;
    std::vector<Object> objects_;
    std::vector<std::uint32_t> slots_;  // open addressing: number of an object plus one, or 0
    std::vector<Collection> collections_;
    std::vector<std::uint32_t> references_;
};

}  // namespace

std::string writeBinary(const id& root) { return BinaryWriter().written(root); }

}  // namespace velt::property_list
