#include "VELTRuntime/values/type_names.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/message.h"
#include "VELTRuntime/values/string.h"

#include <cstring>

namespace {

struct TypeName {
    const char* code;
    const char* name;
};

/// In the order of the language's own rule, in which "Byte" and "Long" come too late to be ever found.
constexpr TypeName kTypeNames[] = {
    {"c", "Boolean"},
    {"c", "Byte"},
    {"s", "Short"},
    {"q", "Integer"},
    {"q", "Long"},
    {"f", "Single"},
    {"d", "Double"},
    {velt::kRectCode, "Rect"},
    {velt::kPointCode, "Point"},
    {velt::kSizeCode, "Size"},
    {velt::kRangeCode, "Range"},
};

bool isKind(const id& value, velt::Kind kind) { return velt::isKind(value.word(), kind); }

}  // namespace

id VELT_TYPENAME(const id& value) {
    if (const char* code = velt::typeCodeOrNull(value)) {
        for (const TypeName& type : kTypeNames) {
            if (std::strcmp(code, type.code) == 0) return velt::string(type.name);
        }
    }
    return VELT_CLASSNAME(value);
}

id VELT_CLASSNAME(const id& value) {
    const velt::Class* cls = velt::classOf(value);
    return cls ? velt::string(cls->name()) : id();
}

id VELT_CLONE(const id& value) { return velt::copy(value); }

id VELT_INFO(const id& value) { return value.isNil() ? velt::string("nil") : velt::description(value); }

id VELT_ISEQUALCLASS(const id& a, const id& b) { return velt::boxResult(velt::classOf(a) == velt::classOf(b)); }
id VELT_ISEQUALVALUE(const id& a, const id& b) { return velt::boxResult(velt::isEqual(a, b)); }
id VELT_ISEQUALOBJECT(const id& a, const id& b) { return velt::boxResult(a == b); }

id VELT_ISARRAY(const id& value) { return velt::boxResult(isKind(value, velt::Kind::MutableArray)); }
id VELT_ISDICTIONARY(const id& value) { return velt::boxResult(isKind(value, velt::Kind::MutableDictionary)); }
id VELT_ISSTRING(const id& value) { return velt::boxResult(velt::isString(value)); }
id VELT_ISDATA(const id& value) { return velt::boxResult(isKind(value, velt::Kind::MutableData)); }
id VELT_ISNUMBER(const id&) { return velt::boxResult(true); }
id VELT_ISVALUE(const id&) { return velt::boxResult(true); }

#define VELT_DEFINE_PREDICATE(type, code)                                                                              \
    id VELT_IS##type(const id& value) { return velt::boxResult(std::strcmp(velt::typeCode(value), code) == 0); }
VELT_TYPE_PREDICATES(VELT_DEFINE_PREDICATE)
