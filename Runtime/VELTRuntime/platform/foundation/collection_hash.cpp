#include "VELTRuntime/platform/foundation/collection_hash.h"

#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/object/message.h"

#include <algorithm>

namespace velt {

namespace {

constexpr std::size_t kMostElements = 8;
constexpr std::size_t kMostEntries = 16;

/// Collections within each other, which may also be within themselves, are looked at this deep.
constexpr unsigned kMostLevels = 3;
constinit thread_local unsigned level = 0;

struct Level {
    Level() { ++level; }
    ~Level() { --level; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
};

std::size_t mixed(std::size_t hash, std::size_t more) {
    hash = (hash ^ more) * 0x9E3779B97F4A7C15;
    return hash ^ (hash >> 29);
}

}  // namespace

std::size_t hashOfElements(std::span<const id> elements) {
    std::size_t hash = mixed(1, elements.size());
    if (level >= kMostLevels) return hash;
    const Level inner;
    for (const id& element : elements.first(std::min(elements.size(), kMostElements))) {
        hash = mixed(hash, velt::hash(element));
    }
    return hash;
}

std::size_t hashOfEntries(const NSDictionary& dictionary) {
    std::size_t hash = mixed(2, dictionary.count());
    if (level >= kMostLevels || dictionary.count() > kMostEntries) return hash;
    const Level inner;
    dictionary.forEach([&hash](const id& key, const id& value) { hash += mixed(velt::hash(key), velt::hash(value)); });
    return hash;
}

}  // namespace velt
