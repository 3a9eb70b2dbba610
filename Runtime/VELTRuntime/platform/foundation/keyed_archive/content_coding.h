// How the classes of the library itself lie in an archive: one row a class.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <span>
#include <string_view>

class NSKeyedArchiver;

namespace velt {

class ArchiveReader;

/// One class in archives. Reading takes three steps, so that objects may refer to each other in circles and lie within
/// each other to any depth: an empty object, its parts by reference, the object with its parts.
struct ContentCoding {
    const char* className;
    /// Writes the content of an object; null for classes that are only read.
    void (*encode)(NSKeyedArchiver& archiver, const id& object);
    /// An empty object that others may refer to before it has its parts; null for a class whose parts cannot refer
    /// back to it.
    id (*makeEmpty)();
    /// Names the parts to the reader: see ArchiveReader::addPart.
    void (*addParts)(ArchiveReader& reader);
    /// The object, made of its parts (or `empty` filled with them).
    id (*finish)(ArchiveReader& reader, const id& empty, std::span<id> parts);
    /// Parts are keys and values in turn.
    bool hasKeys = false;
};

/// The row of a class by name, or null.
const ContentCoding* contentCoding(std::string_view className);
/// The row by which objects of a class are written, or null.
const ContentCoding* contentCodingFor(const Class& cls);

/// The name by which the library knows a class that other writers give a private name; the name itself otherwise.
std::string_view publicClassName(std::string_view className);

}  // namespace velt
