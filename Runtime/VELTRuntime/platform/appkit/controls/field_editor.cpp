#include "VELTRuntime/platform/appkit/controls/field_editor.h"

#include "VELTRuntime/platform/appkit/qt_values.h"
#include "VELTRuntime/platform/foundation/attributed_string.h"

namespace velt {

void FieldEditor::setRichText(const NSAttributedString& text, const QFont&) { setText(qtText(text.string())); }

id FieldEditor::richText() const { return textValue(text()); }

}  // namespace velt
