#include "VELTRuntime/ui/text_fields.h"

#include "VELTRuntime/platform/appkit/controls/secure_text_field.h"
#include "VELTRuntime/ui/constructors.h"

#define VELT_WRAPPER_TABLE "VELTRuntime/ui/text_fields.def"
#include "VELTRuntime/ui/accessor_definitions.h"

using namespace velt;

namespace {

template <class T> Ref<T> newField(const char* constructor, const id& owner, const char* action) {
    Ref<T> field = ui::newObject<T>(constructor, owner, action);
    field->setDelegate(owner);
    return field;
}

}  // namespace

id VELT_LABEL_INIT(const id& owner, const char* action) {
    const Ref<NSTextField> label = newField<NSTextField>("VELT_LABEL_INIT", owner, action);
    label->setEditable(false);
    label->setSelectable(false);
    label->setBezeled(false);
    label->setBordered(false);
    return label;
}

id VELT_NSTEXTFIELD_INIT(const id& owner, const char* action) {
    return newField<NSTextField>("VELT_NSTEXTFIELD_INIT", owner, action);
}

id VELT_NSSECURETEXTFIELD_INIT(const id& owner, const char* action) {
    return newField<NSSecureTextField>("VELT_NSSECURETEXTFIELD_INIT", owner, action);
}
