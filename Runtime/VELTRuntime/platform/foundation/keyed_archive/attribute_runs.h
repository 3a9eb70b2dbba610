// The run lengths of an attributed string as archives hold them: pairs of a length and the place of its attributes,
// each number seven bits a byte, the lowest first.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velt {

/// So many units with the attributes of that place.
struct AttributeRun {
    std::size_t length;
    std::size_t attributes;
    friend bool operator==(const AttributeRun&, const AttributeRun&) = default;
};

/// The bytes of runs.
std::string attributeRunBytes(const std::vector<AttributeRun>& runs);

/// The runs of some bytes, or nothing when they are cut short or a number is too large.
std::optional<std::vector<AttributeRun>> attributeRuns(std::string_view bytes);

}  // namespace velt
