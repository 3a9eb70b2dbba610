#include "VELTRuntime/ui/text_fields.h"

#include "VELTRuntime/platform/appkit/application_object.h"
#include "VELTRuntime/platform/appkit/controls/combo_box.h"
#include "VELTRuntime/platform/appkit/controls/search_field.h"
#include "VELTRuntime/platform/appkit/controls/secure_text_field.h"
#include "VELTRuntime/platform/appkit/controls/token_field.h"
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
    Ref<NSTextField> label = newField<NSTextField>("VELT_LABEL_INIT", owner, action);
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

id VELT_NSSEARCHFIELD_INIT(const id& owner, const char* action) {
    return newField<NSSearchField>("VELT_NSSEARCHFIELD_INIT", owner, action);
}

id VELT_NSSEARCHFIELD_SENDSWHOLESEARCHSTRING(const id& field) {
    requireMainThread("VELT_NSSEARCHFIELD_SENDSWHOLESEARCHSTRING");
    return ui::get(send(field, VELT_SELECTOR("cell")),
                   VELT_WRAPPER(NSSEARCHFIELD_SENDSWHOLESEARCHSTRING, "sendsWholeSearchString"),
                   ui::ValueKind::Boolean);
}

id VELT_NSSEARCHFIELD_SENDSWHOLESEARCHSTRING(const id& field, const id& flag) {
    requireMainThread("VELT_NSSEARCHFIELD_SENDSWHOLESEARCHSTRING");
    const id taken = ui::converted(flag, ui::ValueKind::Boolean);
    send(send(field, VELT_SELECTOR("cell")), VELT_SELECTOR("setSendsWholeSearchString:"), taken);
    return nil;
}

id VELT_NSCOMBOBOX_INIT(const id& owner, const char* action) {
    return ui::newObject<NSComboBox>("VELT_NSCOMBOBOX_INIT", owner, action);
}

id VELT_NSTOKENFIELD_INIT(const id& owner, const char* action) {
    return newField<NSTokenField>("VELT_NSTOKENFIELD_INIT", owner, action);
}
