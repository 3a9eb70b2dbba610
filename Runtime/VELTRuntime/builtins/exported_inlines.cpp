// The exported functions whose usual case is inline are symbols of the library, too: taking their addresses makes the
// compiler emit them.
#include "VELTRuntime/VELTRuntime.h"

namespace {

template <class Function> constexpr const void* addressOf(Function* function) {
    return reinterpret_cast<const void*>(function);
}

#define VELT_OVERLOAD(name, type) addressOf<id(type)>(&name)
#define VELT_UNARY(name) addressOf<id(const id&)>(&name)
#define VELT_BINARY(name) addressOf<id(const id&, const id&)>(&name)
#define VELT_TERNARY(name) addressOf<id(const id&, const id&, const id&)>(&name)

[[gnu::used]] const void* const kExportedInlines[] = {
    VELT_OVERLOAD(VELT_ID, signed char),
    VELT_OVERLOAD(VELT_ID, char),
    VELT_OVERLOAD(VELT_ID, short),
    VELT_OVERLOAD(VELT_ID, unsigned short),
    VELT_OVERLOAD(VELT_ID, long),
    VELT_OVERLOAD(VELT_ID, unsigned long),
    VELT_OVERLOAD(VELT_ID, long long),
    VELT_OVERLOAD(VELT_ID, unsigned long long),
    VELT_OVERLOAD(VELT_ID, float),
    VELT_OVERLOAD(VELT_ID, double),
    VELT_OVERLOAD(VELT_ID, const id&),
    VELT_OVERLOAD(VELT__ID, signed char),
    VELT_OVERLOAD(VELT__ID, char),
    VELT_OVERLOAD(VELT__ID, short),
    VELT_OVERLOAD(VELT__ID, long),
    VELT_OVERLOAD(VELT__ID, unsigned long),
    VELT_OVERLOAD(VELT__ID, long long),
    VELT_OVERLOAD(VELT__ID, float),
    VELT_OVERLOAD(VELT__ID, double),
    VELT_OVERLOAD(VELT__ID, const id&),
    addressOf<id()>(&VELT_IDNIL),
    VELT_UNARY(VELT_NSOBJECTNIL),
    addressOf<BOOL(const id&)>(&VELT_CBOOL),
    addressOf<BOOL(BOOL)>(&VELT_CBOOL),
    addressOf<long(const id&)>(&VELT_CINTEGER),
    addressOf<long(const id&)>(&VELT_CNSINTEGER),
    addressOf<long(const id&)>(&VELT_CBYTE),
    addressOf<long(const id&)>(&VELT_CSHORT),
    addressOf<long long(const id&)>(&VELT_CLONG),
    addressOf<float(const id&)>(&VELT_CSINGLE),
    addressOf<double(const id&)>(&VELT_CDOUBLE),
    addressOf<id(const char*, const char*, const char*, const char*)>(&VELTS),
    VELT_UNARY(VELT__BOOLEAN),
    VELT_UNARY(VELT__BYTE),
    VELT_UNARY(VELT__SHORT),
    VELT_UNARY(VELT__INTEGER),
    VELT_UNARY(VELT__LONG),
    VELT_UNARY(VELT__SINGLE),
    VELT_UNARY(VELT__DOUBLE),
    VELT_UNARY(VELT__FLOAT),
    VELT_UNARY(VELT__STRING),
    VELT_BINARY(VELT_EQUAL),
    VELT_BINARY(VELT_UNEQUAL),
    VELT_BINARY(VELT_EQUALEQUAL),
    VELT_BINARY(VELT_EQUALEQUALEQUAL),
    VELT_BINARY(VELT_SMALLER),
    VELT_BINARY(VELT_GREATER),
    VELT_BINARY(VELT_SMALLEREQUAL),
    VELT_BINARY(VELT_GREATEREQUAL),
    VELT_BINARY(VELT_ADD),
    VELT_BINARY(VELT_SUB),
    VELT_BINARY(VELT_MUL),
    VELT_BINARY(VELT_DIV),
    VELT_BINARY(VELT_IDIV),
    VELT_BINARY(VELT_MOD),
    VELT_UNARY(VELT_MINUS),
    VELT_BINARY(VELT_CONCAT),
    VELT_UNARY(VELT_NOT),
    VELT_UNARY(VELT_FLIP),
    VELT_BINARY(VELT_AND),
    VELT_BINARY(VELT_OR),
    VELT_BINARY(VELT_XOR),
    VELT_BINARY(VELT_SHL),
    VELT_BINARY(VELT_SHR),
    VELT_BINARY(VELT_ANDALSO),
    VELT_BINARY(VELT_ORELSE),
    VELT_BINARY(VELT_BITCLR),
    VELT_BINARY(VELT_BITSET),
    VELT_BINARY(VELT_BITTST),
    VELT_BINARY(VELT_NSARRAY_OBJECT),
    VELT_BINARY(VELT_NSMUTABLEARRAY_OBJECT),
    VELT_BINARY(VELT_NSMUTABLEARRAY_APPEND),
    VELT_TERNARY(VELT_NSMUTABLEARRAY_REPLACE),
    VELT_BINARY(VELT_NSDICTIONARY_OBJECT),
    VELT_BINARY(VELT_NSDICTIONARY_VALUE),
    VELT_BINARY(VELT_NSMUTABLEDICTIONARY_OBJECT),
    VELT_BINARY(VELT_NSMUTABLEDICTIONARY_VALUE),
    VELT_TERNARY(VELT_NSMUTABLEDICTIONARY_APPEND),
    VELT_TERNARY(VELT_NSMUTABLEDICTIONARY_INSERT),
    VELT_TERNARY(VELT_NSMUTABLEDICTIONARY_REPLACE),
};

}  // namespace
