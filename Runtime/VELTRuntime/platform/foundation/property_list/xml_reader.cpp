// Reading of the XML form over expat, which checks that the document is well-formed and tells elements and texts one by
// one. Its own entities apart it is told none: a document type that declares any is refused.
#include "VELTRuntime/platform/foundation/base64.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/expat_parser.h"
#include "VELTRuntime/platform/foundation/property_list/forms.h"
#include "VELTRuntime/values/number.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/reading.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <expat.h>
#include <vector>

namespace velt::property_list {

namespace {

enum class Element { None, Plist, Array, Dictionary, Key, String, Integer, Real, True, False, Date, Data };

/// The element of a name, or None. The name is told by its first characters before it is compared as a whole.
Element elementNamed(const char* name) {
    const auto ifRest = [](const char* rest, const char* expected, Element element) {
        return std::strcmp(rest, expected) == 0 ? element : Element::None;
    };
    switch (name[0]) {
    case 'k': return ifRest(name + 1, "ey", Element::Key);
    case 's': return ifRest(name + 1, "tring", Element::String);
    case 'i': return ifRest(name + 1, "nteger", Element::Integer);
    case 'r': return ifRest(name + 1, "eal", Element::Real);
    case 't': return ifRest(name + 1, "rue", Element::True);
    case 'f': return ifRest(name + 1, "alse", Element::False);
    case 'a': return ifRest(name + 1, "rray", Element::Array);
    case 'p': return ifRest(name + 1, "list", Element::Plist);
    case 'd': break;
    default: return Element::None;
    }
    if (name[1] == 'i') return ifRest(name + 2, "ct", Element::Dictionary);
    if (std::strcmp(name + 1, "ate") == 0) return Element::Date;
    return ifRest(name + 1, "ata", Element::Data);
}

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

class XmlReader {
public:
    explicit XmlReader(Collections collections) : collections_(collections) {
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(
            parser_.get(), [](void* self, const char* name, const char**) { guarded<&XmlReader::begin>(self, name); },
            [](void* self, const char*) { guarded<&XmlReader::end>(self); });
        XML_SetCharacterDataHandler(parser_.get(), [](void* self, const char* text, int length) {
            guarded<&XmlReader::characters>(self, std::string_view(text, static_cast<std::size_t>(length)));
        });
        XML_SetStartDoctypeDeclHandler(
            parser_.get(), [](void* self, const char*, const char*, const char*, int declares) {
                if (declares)
                    guarded<&XmlReader::refuse>(self, std::string_view("a document type may declare nothing"));
            });
        XML_SetSkippedEntityHandler(parser_.get(), [](void* self, const char* name, int) {
            guarded<&XmlReader::refuse>(self, std::string_view("the entity " + std::string(name) + " is not known"));
        });
    }

    id document(std::string_view bytes) {
        if (const char* failure = parser_.read(bytes)) fail(failure);
        return std::move(root_);
    }

private:
    /// Calls a handler from within the parser.
    template <auto handler, class... A> static void guarded(void* self, const A&... arguments) {
        auto& reader = *static_cast<XmlReader*>(self);
        reader.parser_.guard([&] { (reader.*handler)(arguments...); });
    }

    [[noreturn]] void fail(const std::string& what) const { throw PropertyListError(parser_.place() + what); }
    void refuse(std::string_view what) { fail(std::string(what)); }

    void begin(const char* name) {
        const Element element = elementNamed(name);
        if (leaf_ != Element::None) fail("an element within a text");
        if (element == Element::None) fail("the element " + std::string(name) + " is no value");
        if (element == Element::Plist) {
            if (hasBegun_) fail("the element plist is no value");
            hasBegun_ = true;
            return;
        }
        hasBegun_ = true;
        if (root_) fail("there is a second value");
        const bool isInDictionary = !open_.empty() && open_.back().isDictionary;
        const bool isKeyNext = isInDictionary && (waiting_.size() - open_.back().base) % 2 == 0;
        if (element == Element::Key) {
            if (!isInDictionary) fail("a key outside of a dictionary");
            if (!isKeyNext) fail("a key without a value");
        } else if (isKeyNext) {
            fail("a value without a key");
        }
        if (element == Element::Array || element == Element::Dictionary) {
            if (open_.size() >= kMostPropertyListLevels) {
                fail("more than " + std::to_string(kMostPropertyListLevels) + " collections within each other");
            }
            open_.push_back({waiting_.size(), element == Element::Dictionary});
        } else {
            leaf_ = element;
            text_.clear();
        }
    }

    void characters(std::string_view text) {
        if (leaf_ != Element::None) {
            text_ += text;
        } else if (!std::ranges::all_of(text, isBlank)) {
            fail("text outside of a value");
        }
    }

    void end() {
        if (leaf_ != Element::None) {
            add(leafValue());
            leaf_ = Element::None;
        } else if (!open_.empty()) {
            add(collection());
        } else if (!root_) {
            fail("there is no value");
        }
    }

    void add(id value) {
        if (open_.empty()) {
            root_ = std::move(value);
        } else {
            waiting_.push_back(std::move(value));
        }
    }

    /// The collection that ends; its values leave the stack on which those of all open ones wait.
    id collection() {
        const Open ended = open_.back();
        const std::span<id> values = std::span(waiting_).subspan(ended.base);
        if (ended.isDictionary && values.size() % 2 != 0) fail("a key without a value");
        id made;
        if (!ended.isDictionary) {
            made = newArray(values, collections_);
        } else if (isUid(values)) {
            made = make<PropertyListUid>(static_cast<std::uint32_t>(asWholeWord(values[1].word())));
        } else {
            made = newDictionary(values, collections_);
        }
        open_.pop_back();
        waiting_.resize(ended.base);
        return made;
    }
    /// XML has no element for references by number; they are dictionaries of one entry.
    static bool isUid(std::span<const id> entries) {
        if (entries.size() != 2 || textOf(entries[0]) != u"CF$UID" || !isIntegerWord(entries[1].word())) return false;
        const std::int64_t number = asIntegerWord(entries[1].word());
        return number >= 0 && number <= UINT32_MAX;
    }

    id leafValue() {
        switch (leaf_) {
        case Element::Integer: return integer();
        case Element::Real: return real();
        case Element::True: return truth(true);
        case Element::False: return truth(false);
        case Element::Date: return date();
        case Element::Data: return data();
        default: return cache_.string(std::string_view(text_));
        }
    }
    id truth(bool is) {
        if (!trimmed(text_).empty()) fail("text outside of a value");
        return id::adopt(booleanWord(is));
    }
    id integer() {
        id number = integerOfText(trimmed(text_));
        if (number.isNil()) fail("no integer of 64 bits");
        return number;
    }
    id real() {
        std::string_view digits = trimmed(text_);
        if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
        double number = 0;
        const char* last = digits.data() + digits.size();
        const auto [stop, error] = std::from_chars(digits.data(), last, number);
        if (error == std::errc::invalid_argument || stop != last) fail("no real number");
        // Beyond the range of a double: infinite or nothing, as it was too large or too small.
        if (error != std::errc()) number = text::doubleReading(std::u16string(digits.begin(), digits.end()));
        return id::adopt(newDouble(number));
    }
    id date() {
        const auto seconds = secondsOfIsoText(trimmed(text_));
        if (!seconds) fail("no date");
        return make<NSDate>(*seconds);
    }
    id data() {
        Base64Decoder decoder;
        for (const char character : text_) {
            if (!decoder.take(static_cast<unsigned char>(character))) fail("no Base64");
        }
        const auto bytes = decoder.finish();
        if (!bytes) fail("Base64 that is cut short");
        return make<NSData>(*bytes);
    }

    struct Open {
        std::size_t base;  // of its values on the stack
        bool isDictionary;
    };

    ExpatParser parser_;
    Collections collections_;
    StringCache cache_;
    std::string text_;              // of the leaf
    Element leaf_ = Element::None;  // the element without elements that is open
    std::vector<Open> open_;
    std::vector<id> waiting_;
    bool hasBegun_ = false;
    id root_;
};

}  // namespace

id readXml(std::string_view bytes, Collections collections) { return XmlReader(collections).document(bytes); }

}  // namespace velt::property_list
