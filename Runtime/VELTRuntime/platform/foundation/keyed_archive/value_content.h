// Points, sizes, rectangles and ranges in archives.
#pragma once

#include "VELTRuntime/platform/foundation/keyed_archive/content_coding.h"

namespace velt {

void encodeValue(NSKeyedArchiver& archiver, const id& value);
void addValue(ArchiveReader& reader);
id finishValue(ArchiveReader& reader, const id& empty, std::span<id> parts);

}  // namespace velt
