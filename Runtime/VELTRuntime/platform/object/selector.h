// Selectors: interned method names. "name" takes no argument, "name:" one, "a:b:" two.
#pragma once

#include "VELTRuntime/export.h"

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>

namespace velt {

/// An interned method name; two selectors of the same name are the same pointer.
class VELT_EXPORT Selector {
public:
    /// One interned name.
    struct Row {
        std::string name;
        unsigned argumentCount;
    };

    Selector() noexcept = default;
    /// The selector of that name (UTF-8), registered at first use. Safe on any thread.
    static Selector named(std::string_view name);
    /// The selector of that name if one was ever registered, else an empty one.
    static Selector existing(std::string_view name);

    /// The name, in UTF-8; empty for a selector that was never named.
    const std::string& name() const;
    /// Number of arguments that a message of this name carries: the colons in it.
    unsigned argumentCount() const { return row_ ? row_->argumentCount : 0; }
    /// What follows "set" in the name of a setter: "Key" for "setKey:"; empty for every other name.
    std::string_view setterSuffix() const;
    explicit operator bool() const noexcept { return row_ != nullptr; }
    std::size_t hash() const noexcept { return reinterpret_cast<std::size_t>(row_) >> 4; }
    friend bool operator==(Selector, Selector) noexcept = default;

private:
    explicit Selector(const Row* row) noexcept : row_(row) {}
    const Row* row_ = nullptr;
};

/// A key as it stands behind another word in a selector: "Key" for "key".
VELT_EXPORT std::string capitalized(std::string_view key);
/// The name of the setter of a property: "setKey:" for "key".
VELT_EXPORT std::string setterName(std::string_view key);

}  // namespace velt
