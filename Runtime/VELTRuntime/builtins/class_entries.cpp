// Enters the library's classes in the class table when it is loaded: a program may ask for one by name, and what its
// objects answer, before there is an object of it.
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"
#include "VELTRuntime/platform/foundation/data.h"
#include "VELTRuntime/platform/foundation/date.h"
#include "VELTRuntime/platform/foundation/dictionary.h"
#include "VELTRuntime/platform/foundation/null.h"
#include "VELTRuntime/platform/foundation/process/file_handle.h"
#include "VELTRuntime/platform/foundation/process/task.h"
#include "VELTRuntime/platform/foundation/url.h"
#include "VELTRuntime/platform/object/value_transformer.h"
#include "VELTRuntime/process/task.h"
#include "VELTRuntime/values/number.h"
#include "VELTRuntime/values/string.h"

namespace velt {

namespace {

// A subclass enters its superclass too; the shared service objects (values/load_state.cpp) have entered theirs.
[[maybe_unused]] const Class* const entered[] = {
    &NSDate::entry(),
    &NSFileHandle::entry(),
    &NSMutableArray::entry(),
    &NSMutableAttributedString::entry(),
    &NSMutableData::entry(),
    &NSMutableDictionary::entry(),
    &NSMutableString::entry(),
    &NSNull::entry(),
    &NSNumber::entry(),
    &NSPipe::entry(),
    &NSTask::entry(),
    &NSURL::entry(),
    &NSValueTransformer::entry(),
    &VLTask::entry(),
};

}  // namespace

}  // namespace velt
