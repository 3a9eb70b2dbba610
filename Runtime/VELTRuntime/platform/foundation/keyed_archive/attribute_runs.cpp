#include "VELTRuntime/platform/foundation/keyed_archive/attribute_runs.h"

namespace velt {

namespace {

void append(std::string& bytes, std::size_t number) {
    for (; number >= 0x80; number >>= 7) bytes += static_cast<char>((number & 0x7F) | 0x80);
    bytes += static_cast<char>(number);
}

std::optional<std::size_t> take(std::string_view& bytes) {
    std::size_t number = 0;
    for (unsigned shift = 0; shift < 56 && !bytes.empty(); shift += 7) {
        const auto byte = static_cast<unsigned char>(bytes.front());
        bytes.remove_prefix(1);
        number |= static_cast<std::size_t>(byte & 0x7F) << shift;
        if (byte < 0x80) return number;
    }
    return std::nullopt;
}

}  // namespace

std::string attributeRunBytes(const std::vector<AttributeRun>& runs) {
    std::string bytes;
    for (const AttributeRun& run : runs) {
        append(bytes, run.length);
        append(bytes, run.attributes);
    }
    return bytes;
}

std::optional<std::vector<AttributeRun>> attributeRuns(std::string_view bytes) {
    std::vector<AttributeRun> runs;
    while (!bytes.empty()) {
        const auto length = take(bytes);
        const auto attributes = length ? take(bytes) : std::nullopt;
        if (!attributes) return std::nullopt;
        runs.push_back({*length, *attributes});
    }
    return runs;
}

}  // namespace velt
