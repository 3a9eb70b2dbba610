// What the comparison form does with single code units: tables made block by block when a block is first met, so that
// most text is searched and compared without asking the Unicode library.
#pragma once

#include "VELTRuntime/values/text/casing.h"

#include <array>
#include <atomic>
#include <cstdint>

namespace velt::text {

/// The units of one block of 256.
class UnitBlock {
public:
    /// Stands for a unit without a representative. A surrogate never is one.
    static constexpr char16_t kNone = 0xDFFF;

    UnitBlock(char16_t first, Case respect);

    /// One unit for all characters of the same comparison form, if the form is a single character with a composed
    /// spelling of one unit; else kNone. In a text of characters that all have one, matches are exactly the matches of
    /// the representatives, unit by unit: each begins a character, and none combines with a neighbour.
    char16_t representative(char16_t unit) const { return representatives_[unit & 0xFF]; }

    /// The unit begins a character. Surrogates do here; what their code point does must be asked for.
    bool begins(char16_t unit) const { return entries_[unit & 0xFF].begins; }
    /// The unit's own comparison form.
    std::u16string_view form(char16_t unit) const {
        const Entry& entry = entries_[unit & 0xFF];
        return {forms_.data() + entry.offset, entry.length};
    }
    /// The form is a single unit that begins a character if and only if the unit does.
    bool isSimple(char16_t unit) const { return entries_[unit & 0xFF].simple; }
    /// Combining class of a simple unit.
    std::uint8_t combiningClass(char16_t unit) const { return entries_[unit & 0xFF].combiningClass; }

private:
    struct Entry {
        std::uint16_t offset;
        std::uint8_t length;
        std::uint8_t combiningClass;
        bool begins;
        bool simple;
    };
    std::array<char16_t, 256> representatives_;
    std::array<Entry, 256> entries_;
    std::u16string forms_;
};

class UnitForms {
public:
    constexpr explicit UnitForms(Case respect) : respect_(respect) {}

    const UnitBlock& blockOf(char16_t unit) const {
        const UnitBlock* block = blocks_[unit >> 8].load(std::memory_order_acquire);
        return block ? *block : makeBlock(unit);
    }

    /// Writes the representatives of a text's units as far as they have one, and returns how many were written.
    /// Characters beyond the 16-bit range that are their own form represent themselves.
    std::size_t mapUnits(std::u16string_view text, char16_t* to) const;

private:
    VELT_COLD const UnitBlock& makeBlock(char16_t unit) const;

    Case respect_;
    mutable std::array<std::atomic<const UnitBlock*>, 256> blocks_{};
};

/// The tables of one kind of comparison; they live as long as the process.
const UnitForms& unitForms(Case respect);

}  // namespace velt::text
