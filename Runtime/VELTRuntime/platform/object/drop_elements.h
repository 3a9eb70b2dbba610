// Letting go of a container's elements. A dropped object may begin a collection of cycles, which looks at every
// container that an object shows: elements are out of theirs, and it is whole again, before they are dropped.
#pragma once

#include <iterator>
#include <utility>
#include <vector>

namespace velt {

/// Empties a container.
template <class Container> void dropAll(Container& container) {
    const Container dropped = std::exchange(container, Container());
}

/// Takes the elements between two places out of a list.
/// @return the place behind them
template <class T>
typename std::vector<T>::iterator dropRange(std::vector<T>& list, typename std::vector<T>::iterator begin,
                                            typename std::vector<T>::iterator end) {
    const std::vector<T> dropped(std::make_move_iterator(begin), std::make_move_iterator(end));
    return list.erase(begin, end);
}

/// Takes all elements from a place on out of a list.
template <class T> void dropFrom(std::vector<T>& list, typename std::vector<T>::iterator place) {
    dropRange(list, place, list.end());
}

}  // namespace velt
