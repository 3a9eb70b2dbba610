#include "VELTRuntime/platform/foundation/keyed_archive/number_types.h"

#include "VELTRuntime/platform/foundation/keyed_archive/archive_damage.h"
#include "VELTRuntime/values/boxing.h"

namespace velt {

namespace {

[[noreturn]] void raiseMisfit() { throw ArchiveDamage("a number does not fit its type"); }

/// The whole number of another type, which must have the same value.
id sameNumber(Word number, id converted) {
    if (isFloatingCode(numberCode(number)) || compareNumbers(number, converted.word()) != 0) raiseMisfit();
    return converted;
}

}  // namespace

id typedNumber(const id& value, char typeCode) {
    if (typeCode == 0) return value;
    const Word number = value.word();
    const std::int64_t whole = integerReading(number);
    switch (typeCode) {
    case 'c': return sameNumber(number, VELT_ID(static_cast<char>(whole)));
    case 's': return sameNumber(number, VELT_ID(static_cast<short>(whole)));
    case 'i': return sameNumber(number, id::adopt(intWord(static_cast<int>(whole))));
    case 'q': return sameNumber(number, VELT_ID(static_cast<long>(whole)));
    case 'Q': return sameNumber(number, VELT_ID(static_cast<unsigned long>(whole)));
    case 'f': return VELT_ID(floatReading(number));
    case 'd': return VELT_ID(doubleReading(number));
    default: raiseMisfit();
    }
}

}  // namespace velt
