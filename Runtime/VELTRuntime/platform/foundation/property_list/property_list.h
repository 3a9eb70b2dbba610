// Property lists: strings, numbers, Booleans, dates, data, arrays and dictionaries with string keys, as bytes in one of
// three forms. Read in all of them, written as XML and binary.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velt {

/// A reference by number within a keyed archive.
class VELT_EXPORT PropertyListUid final : public NSObject {
    VELT_OBJECT(PropertyListUid, NSObject)
public:
    explicit PropertyListUid(std::uint32_t value) : value_(value) {}
    std::uint32_t value() const { return value_; }

    id description() const override;
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;
    static void describe(ClassBuilder<PropertyListUid>& c);

private:
    std::uint32_t value_;
};

enum class PropertyListForm { Xml, Binary, Ascii };

/// Whether the collections that are read may be changed.
enum class Collections { Mutable, Frozen };

/// What was wrong with a property list and where: "line 3, column 7: ...", "byte 123: ...", "items[3]: ...".
class VELT_EXPORT PropertyListError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    ~PropertyListError() override;
};

/// Collections that lie deeper within each other are neither read nor written.
inline constexpr unsigned kMostPropertyListLevels = 512;

/// The form that the bytes seem to have.
VELT_EXPORT PropertyListForm propertyListForm(std::string_view bytes);

/// The value that the bytes hold. Strings are frozen and equal ones may be shared; what is shared in a binary property
/// list stays shared. In the ASCII form every value is a string, data or a collection. Throws PropertyListError.
VELT_EXPORT id readPropertyList(std::string_view bytes, Collections collections = Collections::Mutable);

/// The bytes of a value as XML or in the binary form. Floating numbers become reals, those of type code c that are 0 or
/// 1 Booleans, all others integers. Throws PropertyListError naming the path of keys to what a property list cannot
/// hold, and its class.
VELT_EXPORT std::string writePropertyList(const id& root, PropertyListForm form);

}  // namespace velt
