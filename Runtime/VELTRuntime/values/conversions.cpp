#include "VELTRuntime/values/conversions.h"

#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/reading.h"
#include "VELTRuntime/values/text/utf.h"

namespace {

using velt::Word;

std::u16string_view textOfWord(Word word) { return static_cast<const NSString*>(velt::asObjectWord(word))->view(); }

/// The rule of all scalar casts: a number by its reading, a string by its text's, nothing else.
template <class OfNumber, class OfText>
auto scalarCast(Word word, OfNumber ofNumber, OfText ofText, const char* reason) {
    if (velt::isNumber(word)) return ofNumber(word);
    if (velt::isString(word)) return ofText(textOfWord(word));
    velt::raiseCast(reason);
}

const NSValue& requireValueObject(const id& value, const char* reason) {
    static const NSValue& zero = *new NSValue(NSRect{});  // a number has no structure fields
    if (velt::isNumber(value)) return zero;
    const NSValue* structure = velt::structureOf(value);
    if (!structure) velt::raiseCast(reason);
    return *structure;
}

}  // namespace

namespace velt {

bool slowBooleanCast(Word value) {
    return scalarCast(value, booleanReading, text::booleanReading, "'Boolean' expected");
}
std::int64_t slowIntegerCast(Word value) {
    return scalarCast(value, slowIntegerReading, text::integerReading, "'Integer' expected");
}
std::int64_t slowLongCast(Word value) {
    return scalarCast(value, slowIntegerReading, text::integerReading, "'Long' expected");
}
float slowSingleCast(Word value) { return scalarCast(value, floatReading, text::floatReading, "'Single' expected"); }
double slowDoubleCast(Word value) {
    return scalarCast(value, slowDoubleReading, text::doubleReading, "'Double' expected");
}

}  // namespace velt

id VELT_EXCEPTION(const id& name, const id& reason, const id&) {
    const id nameText = VELT_CSTRING(name);
    const id reasonText = VELT_CSTRING(reason);
    velt::raise(velt::utf8(nameText), velt::utf8(reasonText));
}

NSPoint VELT_CNSPOINT(const id& value) { return requireValueObject(value, "'Point' expected").point(); }
NSSize VELT_CNSSIZE(const id& value) { return requireValueObject(value, "'Size' expected").size(); }
NSRect VELT_CNSRECT(const id& value) { return requireValueObject(value, "'Rect' expected").rect(); }
NSRange VELT_CNSRANGE(const id& value) { return requireValueObject(value, "'Range' expected").range(); }

id VELT_CSTRING(const id& value) {
    if (velt::isString(value)) return velt::freshCopy(velt::asString(value));
    if (value.isNil()) velt::raise(velt::kRuntimeException, "nil has no text: a string cannot be made from it");
    if (const NSData* data = velt::dataOf(value)) {
        return velt::string(velt::text::fromUtf8Lenient(data->characters()));
    }
    return velt::description(value);
}

id VELT_STRING(const id& value, const id&) { return VELT_CSTRING(value); }

id VELT_BOOLEAN(const id& value, const id&) { return VELT_ID(VELT_CBOOL(value)); }
id VELT_INTEGER(const id& value, const id&) { return VELT_ID(VELT_CINTEGER(value)); }
id VELT_FLOAT(const id& value, const id& ignored) { return VELT_BOOLEAN(value, ignored); }

id VELT_DATA(const id& value) {
    if (!velt::isString(value)) velt::raiseCast("'String' expected");
    return velt::make<NSData>(velt::utf8(value));
}

id VELT_CDATA(const id& value) {
    if (value.isNil()) velt::raiseCast("'Data' Argument = Nil");
    if (const NSData* data = velt::dataOf(value)) return velt::make<NSMutableData>(data->characters());
    if (velt::isString(value)) return velt::make<NSMutableData>(velt::utf8(value));
    velt::raiseCast("'Data' expected");
}
