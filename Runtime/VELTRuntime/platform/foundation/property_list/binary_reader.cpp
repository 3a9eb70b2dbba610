// Reading of the binary form. The bytes may come from anywhere: every offset, count and reference is checked before it
// is used, and nothing is allocated for a count that the bytes present do not bear out.
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/property_list/binary_form.h"
#include "VELTRuntime/platform/foundation/property_list/forms.h"
#include "VELTRuntime/values/number.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/utf.h"

#include <bit>
#include <vector>

namespace velt::property_list {

namespace {

[[noreturn]] void failAt(std::size_t offset, const std::string& what) {
    throw PropertyListError("byte " + std::to_string(offset) + ": " + what);
}

class BinaryReader {
public:
    BinaryReader(std::string_view bytes, Collections collections) : bytes_(bytes), collections_(collections) {
        readTrailer();
        known_.resize(count_);
        underway_.resize(count_);
    }

    id top() { return object(top_, tableStart_, 0); }

private:
    /// A number of that many bytes, at most 8, which are known to be there.
    std::uint64_t bigEndian(std::size_t at, std::size_t width) const {
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < width; ++i) number = number << 8 | static_cast<unsigned char>(bytes_[at + i]);
        return number;
    }

    void readTrailer() {
        if (!bytes_.starts_with(kBinaryHeader.substr(0, 7))) failAt(0, "only version 0 of the binary form is known");
        if (bytes_.size() < kBinaryHeader.size() + kTrailerSize) failAt(bytes_.size(), "it ends before its trailer");
        const std::size_t trailer = bytes_.size() - kTrailerSize;
        offsetWidth_ = bigEndian(trailer + 6, 1);
        referenceWidth_ = bigEndian(trailer + 7, 1);
        const std::uint64_t count = bigEndian(trailer + 8, 8), top = bigEndian(trailer + 16, 8);
        const std::uint64_t table = bigEndian(trailer + 24, 8);
        if (offsetWidth_ < 1 || offsetWidth_ > 8) failAt(trailer + 6, "offsets cannot be that wide");
        if (referenceWidth_ < 1 || referenceWidth_ > 8) failAt(trailer + 7, "references cannot be that wide");
        if (table < kBinaryHeader.size() || table > trailer) failAt(trailer + 24, "the table lies outside");
        if (count == 0 || count > (trailer - table) / offsetWidth_) failAt(trailer + 8, "the table is shorter");
        if (top >= count) failAt(trailer + 16, "there is no such object");
        count_ = count;
        top_ = top;
        tableStart_ = table;
    }

    /// The object of that number; `from` is where it was named.
    id object(std::uint64_t number, std::size_t from, unsigned level) {
        if (number >= count_) failAt(from, "there is no object " + std::to_string(number));
        if (known_[number] != kNilWord) return id::share(known_[number]);
        const std::size_t entry = tableStart_ + number * offsetWidth_;
        const std::uint64_t offset = bigEndian(entry, offsetWidth_);
        if (offset < kBinaryHeader.size() || offset >= tableStart_) failAt(entry, "the object lies outside");
        if (underway_[number]) failAt(offset, "the collection lies within itself");
        underway_[number] = true;
        id made = decoded(offset, level);
        underway_[number] = false;
        known_[number] = made.word();
        return made;
    }

    /// Objects do not overlap, so that all of them together take no more bytes than there are. Without this check a
    /// small file could name one long collection again and again.
    void spend(std::size_t offset, std::size_t size) {
        spent_ += size;
        if (spent_ > bytes_.size()) failAt(offset, "objects overlap");
    }

    /// The content of an object: count units of a width from a position on.
    struct Content {
        std::size_t start;
        std::size_t count;
    };
    Content content(std::size_t offset, std::size_t width) {
        const unsigned low = static_cast<unsigned char>(bytes_[offset]) & 15;
        std::size_t start = offset + 1;
        std::uint64_t count = low;
        if (low == kCountFollows) {
            if (start >= tableStart_) failAt(start, "it ends within a count");
            const unsigned byte = static_cast<unsigned char>(bytes_[start]);
            const std::size_t size = std::size_t{1} << (byte & 15);
            if (byte >> 4 != static_cast<unsigned>(Marker::Integer) || (byte & 15) > 3) failAt(start, "no count");
            if (size > tableStart_ - start - 1) failAt(start, "it ends within a count");
            count = bigEndian(start + 1, size);
            start += 1 + size;
        }
        if (count > (tableStart_ - start) / width) failAt(offset, "it ends within an object");
        spend(offset, start - offset + count * width);
        return {start, static_cast<std::size_t>(count)};
    }
    /// The start of the bytes of an object that says how many it has.
    std::size_t scalar(std::size_t offset, std::size_t width) {
        if (width > tableStart_ - offset - 1) failAt(offset, "it ends within an object");
        spend(offset, 1 + width);
        return offset + 1;
    }

    id decoded(std::size_t offset, unsigned level) {
        const unsigned byte = static_cast<unsigned char>(bytes_[offset]), low = byte & 15;
        switch (static_cast<Marker>(byte >> 4)) {
        case Marker::Simple:
            spend(offset, 1);
            if (byte == kFalseByte || byte == kTrueByte) return id::adopt(booleanWord(byte == kTrueByte));
            break;
        case Marker::Integer:
            if (low <= 4) return integer(scalar(offset, std::size_t{1} << low), std::size_t{1} << low);
            break;
        case Marker::Real: {
            if (low == 2) {
                const auto bits = static_cast<std::uint32_t>(bigEndian(scalar(offset, 4), 4));
                return id::adopt(newDouble(std::bit_cast<float>(bits)));
            }
            if (low == 3) return id::adopt(newDouble(std::bit_cast<double>(bigEndian(scalar(offset, 8), 8))));
            break;
        }
        case Marker::Date:
            if (byte == kDateByte) return make<NSDate>(std::bit_cast<double>(bigEndian(scalar(offset, 8), 8)));
            break;
        case Marker::Data: {
            const Content bytes = content(offset, 1);
            return make<NSData>(bytes_.substr(bytes.start, bytes.count));
        }
        case Marker::Ascii: return ascii(offset);
        case Marker::Utf16: return utf16(offset);
        case Marker::Uid: {
            if (low >= 8) break;
            const std::uint64_t value = bigEndian(scalar(offset, low + 1), low + 1);
            if (value > UINT32_MAX) failAt(offset, "no reference can be that large");
            return make<PropertyListUid>(static_cast<std::uint32_t>(value));
        }
        case Marker::Array:
        case Marker::OrderedSet:
        case Marker::Set: return array(offset, level + 1);
        case Marker::Dictionary: return dictionary(offset, level + 1);
        default: break;
        }
        failAt(offset, "no object begins with " + std::to_string(byte));
    }

    id integer(std::size_t start, std::size_t size) const {
        if (size < 8) return id::adopt(newInteger(static_cast<std::int64_t>(bigEndian(start, size))));
        const std::uint64_t low = bigEndian(start + size - 8, 8);
        const auto asSigned = static_cast<std::int64_t>(low);
        if (size == 8) return id::adopt(newInteger(asSigned));
        const std::uint64_t high = bigEndian(start, 8);
        if (high == 0) return id::adopt(asSigned < 0 ? newUnsigned(low) : newInteger(asSigned));
        if (high == UINT64_MAX && asSigned < 0) return id::adopt(newInteger(asSigned));
        failAt(start - 1, "an integer of more than 64 bits");
    }

    id ascii(std::size_t offset) {
        const Content bytes = content(offset, 1);
        const std::string_view characters = bytes_.substr(bytes.start, bytes.count);
        char16_t* units = nullptr;
        Ref<NSMutableString> string = make<NSMutableString>(bytes.count, units);
        text::widenAscii(characters, units);
        if (!text::isAscii(characters)) failAt(offset, "a byte above 127 in an ASCII string");
        string->freeze();
        return string;
    }

    id utf16(std::size_t offset) {
        const Content text = content(offset, 2);
        char16_t* units = nullptr;
        Ref<NSMutableString> string = make<NSMutableString>(text.count, units);
        for (std::size_t i = 0; i < text.count; ++i) units[i] = static_cast<char16_t>(bigEndian(text.start + 2 * i, 2));
        string->freeze();
        return string;
    }

    id reference(std::size_t at, unsigned level) { return object(bigEndian(at, referenceWidth_), at, level); }

    void requireLevel(std::size_t offset, unsigned level) const {
        if (level > kMostPropertyListLevels) {
            failAt(offset, "more than " + std::to_string(kMostPropertyListLevels) + " collections within each other");
        }
    }

    // The values of all collections underway wait on one stack.
    id array(std::size_t offset, unsigned level) {
        requireLevel(offset, level);
        const Content items = content(offset, referenceWidth_);
        const std::size_t base = waiting_.size();
        for (std::size_t i = 0; i < items.count; ++i) {
            waiting_.push_back(reference(items.start + i * referenceWidth_, level));
        }
        id made = newArray(std::span(waiting_).subspan(base), collections_);
        waiting_.resize(base);
        return made;
    }

    id dictionary(std::size_t offset, unsigned level) {
        requireLevel(offset, level);
        const Content entries = content(offset, 2 * referenceWidth_);
        const std::size_t base = waiting_.size(), values = entries.start + entries.count * referenceWidth_;
        for (std::size_t i = 0; i < entries.count; ++i) {
            const std::size_t at = entries.start + i * referenceWidth_;
            waiting_.push_back(reference(at, level));
            if (!isString(waiting_.back())) failAt(at, "a key has to be a string");
            waiting_.push_back(reference(values + i * referenceWidth_, level));
        }
        id made = newDictionary(std::span(waiting_).subspan(base), collections_);
        // A value that gave way to another one would still be known by its number.
        if (dictionaryOf(made)->count() != entries.count) failAt(offset, "a key comes twice");
        waiting_.resize(base);
        return made;
    }

    std::string_view bytes_;
    Collections collections_;
    std::size_t offsetWidth_ = 0, referenceWidth_ = 0, count_ = 0, top_ = 0, tableStart_ = 0;
    std::size_t spent_ = 0;
    // By number of the object. Its owner is the collection that holds it, or waits to: a reference more or less on
    // each of them would make all of them candidates for the collector of cycles.
    std::vector<Word> known_;
    std::vector<bool> underway_;
    std::vector<id> waiting_;
};

}  // namespace

id readBinary(std::string_view bytes, Collections collections) { return BinaryReader(bytes, collections).top(); }

}  // namespace velt::property_list
