#include "VELTRuntime/values/text/unit_forms.h"

#include "VELTRuntime/values/text/plain_text.h"
#include "VELTRuntime/values/text/unit_lanes.h"
#include "VELTRuntime/values/text/utf.h"

#include <algorithm>
#include <unicode/uchar.h>

namespace velt::text {

namespace {

/// Ideographs without decomposition or case; asking for each of them would take the tables' time.
bool isUnifiedIdeograph(char16_t unit) {
    return (unit >= 0x3400 && unit <= 0x4DBF) || (unit >= 0x4E00 && unit <= 0x9FFF);
}

/// A comparison form is one character, with all that combines with it.
bool isOneCharacter(std::u16string_view form) {
    if (!beginsCharacter(codePointAt(form, 0).value)) return false;
    for (std::size_t at = codePointAt(form, 0).length; at < form.size(); at += codePointAt(form, at).length) {
        if (beginsCharacter(codePointAt(form, at).value)) return false;
    }
    return true;
}

constinit UnitForms respectingCase(Case::Respected), ignoringCase(Case::Ignored);

}  // namespace

UnitBlock::UnitBlock(char16_t first, Case respect) {
    for (unsigned i = 0; i < 256; ++i) {
        const auto unit = static_cast<char16_t>(first + i);
        const std::u16string_view text(&unit, 1);
        const bool plain = isUnifiedIdeograph(unit) || isSurrogate(unit);
        const std::u16string form = plain ? std::u16string(text) : comparisonForm(text, respect);
        const bool begins = plain || beginsCharacter(unit);
        const bool simple = form.size() == 1 && !isSurrogate(unit) && (plain || beginsCharacter(form[0]) == begins);
        const auto combiningClass = plain ? std::uint8_t{0} : u_getCombiningClass(form[0]);
        entries_[i] = {static_cast<std::uint16_t>(forms_.size()), static_cast<std::uint8_t>(form.size()),
                       combiningClass, begins, simple};
        representatives_[i] = kNone;
        if (isUnifiedIdeograph(unit)) {
            representatives_[i] = unit;
        } else if (begins && !isSurrogate(unit) && isOneCharacter(form)) {
            const std::u16string composition = composed(form);
            if (composition.size() == 1) representatives_[i] = composition[0];
        }
        forms_ += form;
    }
}

const UnitBlock& UnitForms::makeBlock(char16_t unit) const {
    const auto* made = new UnitBlock(static_cast<char16_t>(unit & 0xFF00), respect_);
    const UnitBlock* present = nullptr;
    if (blocks_[unit >> 8].compare_exchange_strong(present, made, std::memory_order_acq_rel)) return *made;
    delete made;
    return *present;
}

std::size_t UnitForms::mapUnits(std::u16string_view text, char16_t* to) const {
    // Tables are looked up for so many units before the next try to work on eight at once.
    constexpr std::size_t kRun = 64;
    const Units limit = filledWith(respect_ == Case::Respected ? kFirstCombining : char16_t{0x80});
    const Units first = filledWith(u'A'), letters = filledWith(26),
                shift = filledWith(respect_ == Case::Respected ? 0 : 32);
    std::size_t at = 0;
    while (at < text.size()) {
        for (; at + kLanes <= text.size(); at += kLanes) {
            Units units = loadUnits(text.data() + at);
            if (isAnyLane(units >= limit)) break;
            units += static_cast<Units>(units - first < letters) & shift;
            std::memcpy(to + at, &units, sizeof units);
        }
        const std::size_t end = at + std::min(kRun, text.size() - at);
        while (at < end) {
            const char16_t unit = text[at];
            const char16_t representative = blockOf(unit).representative(unit);
            if (representative != UnitBlock::kNone) {
                to[at++] = representative;
                continue;
            }
            const CodePoint character = codePointAt(text, at);
            if (character.length != 2 || !isOwnForm(character.value, respect_)) return at;
            to[at] = text[at];
            to[at + 1] = text[at + 1];
            at += 2;
        }
    }
    return at;
}

const UnitForms& unitForms(Case respect) { return respect == Case::Respected ? respectingCase : ignoringCase; }

}  // namespace velt::text
