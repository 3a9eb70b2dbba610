#include "VELTRuntime/builtins/interface_files.h"

#include "VELTRuntime/platform/foundation/bundle.h"
#include "VELTRuntime/platform/foundation/interface_loader.h"
#include "VELTRuntime/platform/object/class.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

#include <cstdio>

id VELT_NSOBJECT_LOADNIB(const id& owner, const id& name) {
    std::string file = velt::utf8(VELT_CSTRING(name));
    if (!file.ends_with(".ui")) file += ".ui";
    const std::string failure = velt::loadInterface(NSBundle::mainBundle().resourcePath() + "/" + file, owner);
    if (!failure.empty()) std::fprintf(stderr, "The interface file cannot be loaded: %s\n", failure.c_str());
    return velt::boxResult(failure.empty());
}
