// What a key path computes over the elements of an array: "@count", "@sum.price" and their like.
#pragma once

#include "VELTRuntime/values/value.h"

#include <string_view>

namespace velt {

/// The result of a collection operator, named with its "@", over what the array's elements have at a key path:
///
///   @count                                          number of elements, unsigned
///   @sum.path, @avg.path                            nil counts as 0; a sum of whole numbers is whole
///   @min.path, @max.path                            nil is left out; nil for no values
///   @unionOfObjects.path, @distinctUnionOfObjects   the array of values, each once
///   @unionOfArrays.path, @distinctUnionOfArrays     the same over the elements of the elements, which are arrays
///
/// Raises "NSUnknownKeyException" for another operator, "NSInvalidArgumentException" for a missing key path or an
/// element that has to be an array.
id collectionValue(const id& array, std::string_view name, std::string_view keyPath);

}  // namespace velt
