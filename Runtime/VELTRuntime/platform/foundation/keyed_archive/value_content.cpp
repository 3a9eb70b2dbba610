#include "VELTRuntime/platform/foundation/keyed_archive/value_content.h"

#include "VELTRuntime/platform/foundation/keyed_archive/archive_damage.h"
#include "VELTRuntime/platform/foundation/keyed_archive/archive_reader.h"
#include "VELTRuntime/platform/foundation/keyed_archive/geometry_text.h"
#include "VELTRuntime/platform/foundation/keyed_archive/keyed_archiver.h"
#include "VELTRuntime/values/boxing.h"
#include "VELTRuntime/values/string.h"

namespace velt {

namespace {

const id& pointKey() { return "NS.pointval"_v; }
const id& sizeKey() { return "NS.sizeval"_v; }
const id& rectKey() { return "NS.rectval"_v; }
const id& locationKey() { return "NS.rangeval.location"_v; }
const id& lengthKey() { return "NS.rangeval.length"_v; }

/// What NS.special says of the shape.
enum Special : long { kPoint = 1, kSize = 2, kRect = 3, kRange = 4 };

template <class Structure> id structureValue(const id& text, std::optional<Structure> (*read)(std::u16string_view)) {
    const auto structure = isString(text) ? read(textOf(text)) : std::nullopt;
    if (!structure) throw ArchiveDamage("a structure has no value");
    return VELT_ID(*structure);
}

unsigned long rangePart(const id& number) {
    if (!isNumber(number)) throw ArchiveDamage("a range has no value");
    return static_cast<unsigned long>(integerReading(number.word()));
}

}  // namespace

void encodeValue(NSKeyedArchiver& archiver, const id& object) {
    const NSValue& value = *structureOf(object);
    const auto write = [&](const id& key, const std::string& text, Special special) {
        archiver.setContent(archiver.reference(frozenString(text)), key);
        archiver.setContent(VELT_ID(static_cast<long>(special)), "NS.special"_v);
    };
    switch (value.shape()) {
    case NSValue::Shape::Point: write(pointKey(), geometryText(value.point()), kPoint); break;
    case NSValue::Shape::Size: write(sizeKey(), geometryText(value.size()), kSize); break;
    case NSValue::Shape::Rect: write(rectKey(), geometryText(value.rect()), kRect); break;
    default:
        archiver.setContent(archiver.reference(VELT_ID(value.range().location)), locationKey());
        archiver.setContent(archiver.reference(VELT_ID(value.range().length)), lengthKey());
        archiver.setContent(VELT_ID(static_cast<long>(kRange)), "NS.special"_v);
    }
}

void addValue(ArchiveReader& reader) {
    for (const id& key : {pointKey(), sizeKey(), rectKey(), locationKey(), lengthKey()}) reader.addPart(key);
}

// Which key there is tells the shape; NS.special says the same again.
id finishValue(ArchiveReader&, const id&, std::span<id> parts) {
    if (!parts[0].isNil()) return structureValue(parts[0], pointOf);
    if (!parts[1].isNil()) return structureValue(parts[1], sizeOf);
    if (!parts[2].isNil()) return structureValue(parts[2], rectOf);
    return VELT_ID(NSRange{rangePart(parts[3]), rangePart(parts[4])});
}

}  // namespace velt
