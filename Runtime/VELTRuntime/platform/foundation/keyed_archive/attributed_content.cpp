#include "VELTRuntime/platform/foundation/keyed_archive/attributed_content.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_damage.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_reader.h"
#include "VELTRuntime/platform/foundation/keyed_archive/attribute_runs.h"
#include "VELTRuntime/platform/foundation/keyed_archive/keyed_archiver.h"
#include "VELTRuntime/platform/foundation/plain_text.h"
#include "VELTRuntime/platform/foundation/unarchived_fill.h"

#include <unordered_map>

namespace velt {

namespace {

const id& textKey() { return "NSString"_v; }
const id& attributesKey() { return "NSAttributes"_v; }
const id& runsKey() { return "NSAttributeInfo"_v; }

/// Attributes as an archive holds them: a dictionary, empty where there are none.
id writtenAttributes(const id& attributes) {
    static const id none = make<NSDictionary>();
    return attributes.isNil() ? none : attributes;
}

/// The attributes of a run that was read; nil for an empty dictionary.
id readAttributes(const id& written) {
    const NSDictionary* attributes = dictionaryOf(written);
    if (!attributes) throw ArchiveDamage("the attributes of a text are no dictionary");
    return attributes->count() == 0 && attributes->kind() == Kind::Dictionary ? id() : written;
}

}  // namespace

void encodeAttributedString(NSKeyedArchiver& archiver, const id& object) {
    const NSAttributedString& text = *attributedStringOf(object);
    archiver.setContent(archiver.reference(text.string().object()->copy()), textKey());
    if (isPlain(text)) return;
    const Ref<NSMutableArray> attributes = make<NSMutableArray>();
    std::vector<AttributeRun> runs;
    std::unordered_map<Word, std::size_t> places;
    text.forEachRun([&](std::size_t begin, std::size_t end, const id& own) {
        const id written = writtenAttributes(own);
        const auto [place, isNew] = places.emplace(written.word(), attributes->count());
        if (isNew) attributes->append(written);
        runs.push_back({end - begin, place->second});
    });
    if (runs.size() == 1) {
        archiver.setContent(archiver.reference(attributes->at(0)), attributesKey());
        return;
    }
    archiver.setContent(archiver.reference(attributes->copy()), attributesKey());
    archiver.setContent(archiver.reference(make<NSData>(attributeRunBytes(runs))), runsKey());
}

void addAttributedString(ArchiveReader& reader) {
    reader.addPart(textKey());
    reader.addPart(attributesKey());
    reader.addPart(runsKey());
}

id finishAttributedString(ArchiveReader& reader, const id& empty, std::span<id> parts) {
    if (!isString(parts[0])) throw ArchiveDamage("an attributed string has no text");
    auto& result = *as<NSAttributedString>(empty);
    const std::u16string_view text = textOf(parts[0]);
    reader.charge(text.size() * sizeof(char16_t));
    const NSArray* list = arrayOf(parts[1]);
    if (!list) {
        UnarchivedFill::appendText(result, text, parts[1].isNil() ? id() : readAttributes(parts[1]));
        return empty;
    }
    const NSData* bytes = dataOf(parts[2]);
    const auto runs = bytes ? attributeRuns(bytes->characters()) : std::nullopt;
    if (!runs) throw ArchiveDamage("the runs of an attributed string are damaged");
    reader.charge(bytes->length() * sizeof(AttributeRun));
    std::size_t begin = 0;
    for (const AttributeRun& run : *runs) {
        if (run.length > text.size() - begin || run.attributes >= list->count()) {
            throw ArchiveDamage("the runs of an attributed string do not fit its text");
        }
        UnarchivedFill::appendText(result, text.substr(begin, run.length),
                                   readAttributes(list->items()[run.attributes]));
        begin += run.length;
    }
    if (begin != text.size()) throw ArchiveDamage("the runs of an attributed string do not fit its text");
    return empty;
}

}  // namespace velt
