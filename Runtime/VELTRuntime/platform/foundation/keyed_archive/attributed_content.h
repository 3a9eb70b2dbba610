// Attributed strings in archives.
#pragma once

#include "VELTRuntime/platform/foundation/keyed_archive/content_coding.h"

namespace velt {

void encodeAttributedString(NSKeyedArchiver& archiver, const id& text);
void addAttributedString(ArchiveReader& reader);
id finishAttributedString(ArchiveReader& reader, const id& empty, std::span<id> parts);

}  // namespace velt
