#include "VELTRuntime/platform/foundation/keyed_archive/content_coding.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_damage.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_reader.h"
#include "VELTRuntime/platform/foundation/keyed_archive/attributed_content.h"
#include "VELTRuntime/platform/foundation/keyed_archive/keyed_archiver.h"
#include "VELTRuntime/platform/foundation/keyed_archive/number_types.h"
#include "VELTRuntime/platform/foundation/keyed_archive/value_content.h"
#include "VELTRuntime/platform/foundation/null.h"
#include "VELTRuntime/platform/foundation/unarchived_fill.h"
#include "VELTRuntime/platform/foundation/url.h"
#include "VELTRuntime/platform/foundation/url_resolution.h"
#include "VELTRuntime/values/text/utf.h"

#include <unordered_map>

namespace velt {

namespace {

// Arrays and dictionaries. Old archives number the elements instead of listing them.

const id& objectsOfCollection() { return "NS.objects"_v; }
const id& keysOfCollection() { return "NS.keys"_v; }
id numberedKey(const char* stem, std::size_t number) { return string(stem + std::to_string(number)); }

void encodeArray(NSKeyedArchiver& archiver, const id& array) {
    archiver.setContent(archiver.references(arrayOf(array)->items()), objectsOfCollection());
}

void addElements(ArchiveReader& reader) {
    if (const NSArray* list = reader.listUnder(objectsOfCollection())) {
        for (const id& item : list->items()) reader.addPartValue(item);
        return;
    }
    for (std::size_t i = 0;; ++i) {
        const id value = reader.valueUnder(numberedKey("NS.object.", i));
        if (value.isNil()) return;
        reader.addPartValue(value);
    }
}

void requireParts(std::span<const id> parts) {
    for (const id& part : parts) {
        if (part.isNil()) throw ArchiveDamage("a collection holds nil");
    }
}

id finishArray(ArchiveReader&, const id& empty, std::span<id> parts) {
    requireParts(parts);
    UnarchivedFill::append(*as<NSArray>(empty), {parts});
    return empty;
}

void encodeDictionary(NSKeyedArchiver& archiver, const id& dictionary) {
    const Ref<NSMutableArray> keys = make<NSMutableArray>(), values = make<NSMutableArray>();
    keys->reserve(dictionaryOf(dictionary)->count());
    values->reserve(dictionaryOf(dictionary)->count());
    dictionaryOf(dictionary)->forEach([&](const id& key, const id& value) {
        keys->append(archiver.reference(key));
        values->append(archiver.reference(value));
    });
    archiver.setContent(keys, keysOfCollection());
    archiver.setContent(values, objectsOfCollection());
}

void addEntries(ArchiveReader& reader) {
    const NSArray* keys = reader.listUnder(keysOfCollection());
    const NSArray* values = reader.listUnder(objectsOfCollection());
    if (keys || values) {
        if (!keys || !values || keys->count() != values->count()) throw ArchiveDamage("keys and values do not pair");
        for (std::size_t i = 0; i < keys->count(); ++i) {
            reader.addPartValue(keys->items()[i]);
            reader.addPartValue(values->items()[i]);
        }
        return;
    }
    for (std::size_t i = 0;; ++i) {
        const id key = reader.valueUnder(numberedKey("NS.key.", i));
        const id value = reader.valueUnder(numberedKey("NS.object.", i));
        if (key.isNil() || value.isNil()) return;
        reader.addPartValue(key);
        reader.addPartValue(value);
    }
}

id finishDictionary(ArchiveReader&, const id& empty, std::span<id> parts) {
    requireParts(parts);
    UnarchivedFill::addEntries(*as<NSDictionary>(empty), {parts});
    return empty;
}

// Strings and data that may change.

void encodeString(NSKeyedArchiver& archiver, const id& text) {
    archiver.setContent(text.object()->copy(), "NS.string"_v);
}

void addString(ArchiveReader& reader) {
    reader.addPart("NS.string"_v);
    reader.addPart("NS.bytes"_v);
}

template <bool Frozen> id finishString(ArchiveReader& reader, const id&, std::span<id> parts) {
    Ref<NSMutableString> text;
    if (isString(parts[0])) {
        text = make<NSMutableString>(asString(parts[0]));
    } else if (const NSData* bytes = dataOf(parts[1]); bytes && parts[0].isNil()) {
        const auto units = text::fromUtf8(bytes->characters());
        if (!units) throw ArchiveDamage("the bytes of a string are no UTF-8");
        reader.charge(units->size() * sizeof(char16_t));
        text = make<NSMutableString>(*units);
    } else {
        throw ArchiveDamage("a string has no text");
    }
    if (Frozen) text->freeze();
    return text;
}

void encodeData(NSKeyedArchiver& archiver, const id& data) { archiver.setContent(data.object()->copy(), "NS.data"_v); }

void addData(ArchiveReader& reader) {
    reader.addPart("NS.data"_v);
    reader.addPart("NS.bytes"_v);
}

template <class Data> id finishData(ArchiveReader& reader, const id&, std::span<id> parts) {
    const id& found = parts[0].isNil() ? parts[1] : parts[0];
    const NSData* bytes = dataOf(found);
    if (!bytes) throw ArchiveDamage("data has no bytes");
    reader.charge(bytes->length());
    return make<Data>(bytes->characters());
}

// Dates, URLs, null, and numbers as other writers make objects of them.

void encodeDate(NSKeyedArchiver& archiver, const id& date) {
    archiver.setContent(VELT_ID(as<NSDate>(date)->timeIntervalSinceReferenceDate()), "NS.time"_v);
}
void addDate(ArchiveReader& reader) { reader.addPart("NS.time"_v); }
id finishDate(ArchiveReader&, const id&, std::span<id> parts) {
    if (!isNumber(parts[0])) throw ArchiveDamage("a date has no time");
    return make<NSDate>(doubleReading(parts[0].word()));
}

void encodeUrl(NSKeyedArchiver& archiver, const id& url) {
    archiver.setContent(archiver.reference(nil), "NS.base"_v);
    archiver.setContent(archiver.reference(frozenString(as<NSURL>(url)->text())), "NS.relative"_v);
}
void addUrl(ArchiveReader& reader) {
    reader.addPart("NS.base"_v);
    reader.addPart("NS.relative"_v);
}
id finishUrl(ArchiveReader& reader, const id&, std::span<id> parts) {
    if (!isString(parts[1]) || !(parts[0].isNil() || is<NSURL>(parts[0]))) throw ArchiveDamage("a URL has no text");
    std::string text = utf8(parts[1]);
    if (!parseUrl(text)) throw ArchiveDamage("'" + text + "' is no URL");
    if (!parts[0].isNil()) text = resolveUrl(as<NSURL>(parts[0])->text(), text);
    reader.charge(text.size());
    Ref<NSURL> url = NSURL::withString(text);
    if (!url) throw ArchiveDamage("'" + text + "' is no URL");
    return url;
}

void encodeNull(NSKeyedArchiver&, const id&) {}
void addNothing(ArchiveReader&) {}
id finishNull(ArchiveReader&, const id&, std::span<id>) { return NSNull::null(); }

void addNumber(ArchiveReader& reader) {
    reader.addPart("NS.boolval"_v);
    reader.addPart("NS.intval"_v);
    reader.addPart("NS.dblval"_v);
    reader.addPart("NS.number"_v);
}
id finishNumber(ArchiveReader&, const id&, std::span<id> parts) {
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i].isNil()) continue;
        if (!isNumber(parts[i])) break;
        return i == 0 ? VELT_ID(static_cast<BOOL>(booleanReading(parts[i].word()))) : parts[i];
    }
    throw ArchiveDamage("a number has no value");
}

template <class T> id makeEmpty() { return make<T>(); }

constexpr ContentCoding kCodings[] = {
    {"NSArray", encodeArray, makeEmpty<NSArray>, addElements, finishArray},
    {"NSMutableArray", encodeArray, makeEmpty<NSMutableArray>, addElements, finishArray},
    // Sets have no class of their own here; programs see their elements in the order of the archive.
    {"NSSet", nullptr, makeEmpty<NSArray>, addElements, finishArray},
    {"NSMutableSet", nullptr, makeEmpty<NSMutableArray>, addElements, finishArray},
    {"NSOrderedSet", nullptr, makeEmpty<NSArray>, addElements, finishArray},
    {"NSMutableOrderedSet", nullptr, makeEmpty<NSMutableArray>, addElements, finishArray},
    {"NSDictionary", encodeDictionary, makeEmpty<NSDictionary>, addEntries, finishDictionary, true},
    {"NSMutableDictionary", encodeDictionary, makeEmpty<NSMutableDictionary>, addEntries, finishDictionary, true},
    {"NSString", encodeString, nullptr, addString, finishString<true>},
    {"NSMutableString", encodeString, nullptr, addString, finishString<false>},
    {"NSAttributedString", encodeAttributedString, makeEmpty<NSAttributedString>, addAttributedString,
     finishAttributedString},
    {"NSMutableAttributedString", encodeAttributedString, makeEmpty<NSMutableAttributedString>, addAttributedString,
     finishAttributedString},
    {"NSData", nullptr, nullptr, addData, finishData<NSData>},
    {"NSMutableData", encodeData, nullptr, addData, finishData<NSMutableData>},
    {"NSValue", encodeValue, nullptr, addValue, finishValue},
    {"NSNumber", nullptr, nullptr, addNumber, finishNumber},
    {"NSDate", encodeDate, nullptr, addDate, finishDate},
    {"NSURL", encodeUrl, nullptr, addUrl, finishUrl},
    {"NSNull", encodeNull, nullptr, addNothing, finishNull},
};

/// Private names of other writers, for archives that do not name the superclasses.
constexpr struct {
    std::string_view name, publicName;
} kAliases[] = {
    {"__NSCFString", "NSMutableString"},
    {"__NSCFConstantString", "NSString"},
    {"NSTaggedPointerString", "NSString"},
    {"__NSCFData", "NSMutableData"},
    {"NSConcreteData", "NSData"},
    {"_NSInlineData", "NSData"},
    {"NSConcreteMutableData", "NSMutableData"},
    {"__NSCFArray", "NSMutableArray"},
    {"__NSArray0", "NSArray"},
    {"__NSArrayI", "NSArray"},
    {"__NSArrayM", "NSMutableArray"},
    {"__NSSingleObjectArrayI", "NSArray"},
    {"__NSCFDictionary", "NSMutableDictionary"},
    {"__NSDictionary0", "NSDictionary"},
    {"__NSDictionaryI", "NSDictionary"},
    {"__NSDictionaryM", "NSMutableDictionary"},
    {"__NSSingleEntryDictionaryI", "NSDictionary"},
    {"__NSCFSet", "NSMutableSet"},
    {"__NSSetI", "NSSet"},
    {"__NSSetM", "NSMutableSet"},
    {"__NSCFNumber", "NSNumber"},
    {"__NSCFBoolean", "NSNumber"},
    {"NSConcreteValue", "NSValue"},
    {"__NSDate", "NSDate"},
    {"__NSTaggedDate", "NSDate"},
    {"NSConcreteAttributedString", "NSAttributedString"},
    {"NSConcreteMutableAttributedString", "NSMutableAttributedString"},
};

}  // namespace

const ContentCoding* contentCoding(std::string_view className) {
    for (const ContentCoding& coding : kCodings) {
        if (className == coding.className) return &coding;
    }
    return nullptr;
}

const ContentCoding* contentCodingFor(const Class& cls) {
    static const auto& codings = *[] {
        auto* byClass = new std::unordered_map<const Class*, const ContentCoding*>;
        for (const ContentCoding& coding : kCodings) {
            const Class* named = Class::named(coding.className);
            if (named && coding.encode) byClass->emplace(named, &coding);
        }
        return byClass;
    }();
    const auto found = codings.find(&cls);
    return found == codings.end() ? nullptr : found->second;
}

std::string_view publicClassName(std::string_view className) {
    for (const auto& alias : kAliases) {
        if (alias.name == className) return alias.publicName;
    }
    return className;
}

}  // namespace velt
