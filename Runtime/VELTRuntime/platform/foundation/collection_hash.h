// Hashes of collections: small ones that differ have different hashes, large ones cost no more than small ones.
#pragma once

#include "VELTRuntime/platform/object/object.h"

#include <span>

class NSDictionary;

namespace velt {

/// The hash of an array: of its count and its first elements.
std::size_t hashOfElements(std::span<const id> elements);
/// The hash of a dictionary, whose order does not count: of its count and, when it is small, of all its entries.
std::size_t hashOfEntries(const NSDictionary& dictionary);

}  // namespace velt
