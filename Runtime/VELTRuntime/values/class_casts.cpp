#include "VELTRuntime/values/class_casts.h"

#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/platform/object/exception.h"

namespace {

enum class NilRule { NilPasses, NilRejected };

/// The rule of all class casts and checks. The reason names a class, which need not be the one that is tested.
const id& requireClass(const id& value, const velt::Class& cls, const char* reason, NilRule nilRule) {
    if (value.isNil() ? nilRule == NilRule::NilRejected : !velt::isKindOf(value, cls)) velt::raiseCast(reason);
    return value;
}

}  // namespace

#define VELT_CLASS_RULE(function, cls, reasonClass, nilRule)                                                           \
    id function(const id& value) {                                                                                     \
        static const velt::Class& tested = velt::Class::known(#cls);                                                   \
        return requireClass(value, tested, "'" #reasonClass "' expected", NilRule::nilRule);                           \
    }

#define VELT_CLASS_CAST(suffix, cls, nilRule) VELT_CLASS_RULE(VELT_C##suffix, cls, cls, nilRule)
#define VELT_CLASS_CHECK(suffix, cls) VELT_CLASS_RULE(VELT__##suffix, cls, cls, NilPasses)
#include "VELTRuntime/values/class_casts.def"

VELT_CLASS_RULE(VELT__VLTEXTVIEW, NSTextView, VLTextView, NilPasses)
VELT_CLASS_RULE(VELT__ARRAY, NSArray, NSMutableArray, NilPasses)
VELT_CLASS_RULE(VELT__NSMUTABLEARRAY, NSArray, NSMutableArray, NilPasses)
VELT_CLASS_RULE(VELT__DICTIONARY, NSDictionary, NSMutableDictionary, NilPasses)
VELT_CLASS_RULE(VELT__NSMUTABLEDICTIONARY, NSDictionary, NSMutableDictionary, NilPasses)
VELT_CLASS_RULE(VELT__NSMUTABLEDATA, NSData, NSMutableData, NilPasses)
