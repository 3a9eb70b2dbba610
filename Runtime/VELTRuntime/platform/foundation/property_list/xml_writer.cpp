// Writing of the XML form, an element a line, each level indented by a tab. No document type is written: readers do
// not need one.
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/base64.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/property_list/forms.h"
#include "VELTRuntime/values/number.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/writing.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace velt::property_list {

namespace {

/// Lines of data hold this many bytes: 76 characters.
constexpr std::size_t kBytesOfLine = 57;
/// So many elements of an array tell how much text the others will take.
constexpr std::size_t kSample = 64;

class XmlWriter {
public:
    std::string written(const id& root) {
        bytes_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n";
        put(root, nullptr);
        bytes_ += "</plist>\n";
        return std::move(bytes_);
    }

private:
    void put(const id& value, const Step* step) {
        indent(step);
        switch (shapeOf(value, step)) {
        case Shape::String: putText("string", textOf(value), step); break;
        case Shape::Boolean: bytes_ += booleanReading(value.word()) ? "<true/>\n" : "<false/>\n"; break;
        case Shape::Integer: putInteger(value); break;
        case Shape::Real: putReal(value); break;
        case Shape::Date: putDate(*as<NSDate>(value), step); break;
        case Shape::Data: putData(dataOf(value)->characters(), step); break;
        case Shape::Uid:
            bytes_ += "<dict><key>CF$UID</key><integer>";
            bytes_ += std::to_string(as<PropertyListUid>(value)->value()) + "</integer></dict>\n";
            break;
        case Shape::Array: putArray(*static_cast<NSArray*>(value.object()), step); break;
        case Shape::Dictionary: putDictionary(*static_cast<NSDictionary*>(value.object()), step); break;
        }
    }

    void indent(const Step* step) { bytes_.append(step ? step->level : 0, '\t'); }
    void putElement(std::string_view name, std::string_view text) {
        bytes_.append("<").append(name).append(">").append(text).append("</").append(name).append(">\n");
    }

    void putInteger(const id& value) {
        const bool isUnsigned = numberCode(value.word()) == NumberCode::UnsignedLong;
        const std::int64_t whole = integerReading(value.word());
        putElement("integer", isUnsigned ? text::decimalText(static_cast<std::uint64_t>(whole)).view()
                                         : text::decimalText(whole).view());
    }
    void putReal(const id& value) {
        const double real = doubleReading(value.word());
        if (std::isinf(real)) return putElement("real", real < 0 ? "-infinity" : "+infinity");
        const bool isSingle = numberCode(value.word()) == NumberCode::Float;
        putElement("real",
                   isSingle ? text::shortestText(asFloatWord(value.word())).view() : text::shortestText(real).view());
    }
    void putDate(const NSDate& date, const Step* step) {
        const auto text = isoText(date.timeIntervalSinceReferenceDate());
        if (!text) fail(step, "the date is no moment of the calendar");
        putElement("date", *text);
    }
    void putData(std::string_view content, const Step* step) {
        bytes_ += "<data>\n";
        for (std::size_t at = 0; at < content.size(); at += kBytesOfLine) {
            indent(step);
            appendBase64(bytes_, content.substr(at, kBytesOfLine));
            bytes_ += '\n';
        }
        indent(step);
        bytes_ += "</data>\n";
    }

    /// The form repeats a collection that several others share. Each time costs what its text took, and a few that
    /// share each other would soon fill the memory.
    template <class Put> void putShared(const NSObject& collection, const Step* step, Put put) {
        if (repeats_ || collection.ownerCount() < 2) return put();
        constexpr std::size_t kMostRepeated = std::size_t{1} << 27;
        const auto written = sizes_.find(&collection);
        if (written == sizes_.end()) {
            const std::size_t start = bytes_.size();
            put();
            sizes_.emplace(&collection, bytes_.size() - start);
            return;
        }
        repeated_ += written->second;
        if (repeated_ > kMostRepeated) fail(step, "collections that several share would be repeated too often");
        repeats_ = true;
        put();
        repeats_ = false;
    }

    void putArray(NSArray& array, const Step* outer) {
        putShared(array, outer, [&] { putElements(array, outer); });
    }
    void putElements(NSArray& array, const Step* outer) {
        Step step = stepInto(&array, outer);
        if (array.count() == 0) {
            bytes_ += "<array/>\n";
            return;
        }
        bytes_ += "<array>\n";
        const std::size_t start = bytes_.size();
        for (; step.index < array.count(); ++step.index) {
            if (step.index == kSample) makeRoom((bytes_.size() - start) / kSample * (array.count() - kSample));
            put(array.items()[step.index], &step);
        }
        indent(outer);
        bytes_ += "</array>\n";
    }
    /// Room for what the rest of an array will probably take: growing by copying would need the memory twice.
    void makeRoom(std::size_t probably) {
        constexpr std::size_t kMost = std::size_t{1} << 28;
        const std::size_t needed = bytes_.size() + std::min(probably + probably / 8, kMost);
        if (needed > 2 * bytes_.capacity()) bytes_.reserve(needed);
    }

    void putDictionary(NSDictionary& dictionary, const Step* outer) {
        putShared(dictionary, outer, [&] { putEntries(dictionary, outer); });
    }
    void putEntries(NSDictionary& dictionary, const Step* outer) {
        Step step = stepInto(&dictionary, outer);
        if (dictionary.count() == 0) {
            bytes_ += "<dict/>\n";
            return;
        }
        bytes_ += "<dict>\n";
        dictionary.forEach([&](const id& key, const id& value) {
            step.key = &key;
            if (!isString(key)) fail(&step, "a key has to be a string");
            indent(&step);
            putText("key", textOf(key), &step);
            put(value, &step);
        });
        indent(outer);
        bytes_ += "</dict>\n";
    }

    void putText(std::string_view element, std::u16string_view text, const Step* step) {
        bytes_.append("<").append(element).append(">");
        while (!text.empty()) {
            const std::size_t taken = putPiece(text, step);
            text.remove_prefix(taken);
        }
        bytes_.append("</").append(element).append(">\n");
    }

    /// Writes the units from the front of a text; returns how many they were.
    std::size_t putPiece(std::u16string_view text, const Step* step) {
        constexpr std::size_t kUnits = 256, kMostBytesOfUnit = 5;
        char piece[(kUnits + 1) * kMostBytesOfUnit];
        char* out = piece;
        std::size_t at = 0;
        const auto append = [&out](std::string_view bytes) { out = std::copy(bytes.begin(), bytes.end(), out); };
        for (; at < text.size() && at < kUnits; ++at) {
            const char16_t unit = text[at];
            if (unit >= 0x80) {
                out = putSequence(text, at, out, step);
            } else if (unit < 0x20 && unit != '\t' && unit != '\n' && unit != '\r') {
                failForUnit(unit, step);
            } else if (unit == '&') {
                append("&amp;");
            } else if (unit == '<') {
                append("&lt;");
            } else if (unit == '>') {
                append("&gt;");
            } else if (unit == '\r') {
                append("&#13;");  // a plain one would be read as a line feed
            } else {
                *out++ = static_cast<char>(unit);
            }
        }
        bytes_.append(piece, static_cast<std::size_t>(out - piece));
        return at;
    }

    /// Writes the character that begins at a unit of 0x80 or above; `at` is left at its last unit.
    static char* putSequence(std::u16string_view text, std::size_t& at, char* out, const Step* step) {
        char32_t c = text[at];
        if (c >= 0xD800 && c <= 0xDFFF) {
            const bool isPaired = c < 0xDC00 && at + 1 < text.size() && (text[at + 1] & 0xFC00) == 0xDC00;
            if (!isPaired) failForUnit(text[at], step);
            c = 0x10000 + ((c & 0x3FF) << 10) + (text[++at] & 0x3FFu);
            *out++ = static_cast<char>(0xF0 | (c >> 18));
            *out++ = static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        } else if (c >= 0x800) {
            if (c >= 0xFFFE) failForUnit(text[at], step);
            *out++ = static_cast<char>(0xE0 | (c >> 12));
        } else {
            *out++ = static_cast<char>(0xC0 | (c >> 6));
            *out++ = static_cast<char>(0x80 | (c & 0x3F));
            return out;
        }
        *out++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (c & 0x3F));
        return out;
    }

    [[noreturn]] static void failForUnit(char16_t unit, const Step* step) {
        char code[8];
        std::snprintf(code, sizeof code, "U+%04X", static_cast<unsigned>(unit));
        fail(step, std::string("XML cannot hold the character ") + code);
    }

    std::unordered_map<const NSObject*, std::size_t> sizes_;
    std::size_t repeated_ = 0;
    bool repeats_ = false;  // within a collection that was written before
    std::string bytes_;
};

}  // namespace

std::string writeXml(const id& root) { return XmlWriter().written(root); }

}  // namespace velt::property_list
