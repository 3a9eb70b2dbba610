// The fixed keys of keyed archives, as frozen strings.
#pragma once

#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/string.h"

namespace velt {

inline constexpr long kArchiveVersion = 100000;

inline const id& rootKey() { return "root"_v; }
inline const id& archiverName() { return "NSKeyedArchiver"_v; }
inline const id& archiverKey() { return "$archiver"_v; }
inline const id& versionKey() { return "$version"_v; }
inline const id& topKey() { return "$top"_v; }
inline const id& objectsKey() { return "$objects"_v; }
inline const id& classKey() { return "$class"_v; }
inline const id& classNameKey() { return "$classname"_v; }
inline const id& classesKey() { return "$classes"_v; }
/// Ours alone: numbers' places by type code.
inline const id& numberTypesKey() { return "VELT.numberTypes"_v; }

/// A program's key as it stands in an archive: one that begins with "$" gets another, so that it cannot be taken for
/// the format's own. Raises "'String' expected" for what is no string.
inline id archiveKey(const id& key) {
    if (!isString(key)) raiseCast("'String' expected");
    if (!textOf(key).starts_with(u'$')) return key;
    return string(u"$" + std::u16string(textOf(key)));
}

}  // namespace velt
