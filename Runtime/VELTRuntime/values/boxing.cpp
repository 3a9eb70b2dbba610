#include "VELTRuntime/values/boxing.h"

#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/values/string.h"

id VELT_ID(NSRect value) { return velt::make<NSValue>(value); }
id VELT_ID(NSPoint value) { return velt::make<NSValue>(value); }
id VELT_ID(NSSize value) { return velt::make<NSValue>(value); }
id VELT_ID(NSRange value) { return velt::make<NSValue>(value); }

id VELT_ID(NSString* value) {
    if (!value) return nil;
    velt::Ref<NSMutableString> copy = velt::make<NSMutableString>(*value);
    copy->freeze();
    return copy;
}
id VELT_ID(NSMutableString* value) { return value ? velt::freshCopy(*value) : id(); }

id VELT_ID(NSMutableArray* value) { return id(value); }
id VELT_ID(NSArray* value) { return id(value); }
id VELT_ID(NSMutableDictionary* value) { return id(value); }
id VELT_ID(NSDictionary* value) { return id(value); }
id VELT_ID(NSMutableData* value) { return id(value); }
id VELT_ID(NSData* value) { return id(value); }
// Colours are completed by the library with windows; every object begins with its NSObject.
id VELT_ID(NSColor* value) { return id(reinterpret_cast<NSObject*>(value)); }

id VELT__ID(NSMutableString* value) { return id(value); }
