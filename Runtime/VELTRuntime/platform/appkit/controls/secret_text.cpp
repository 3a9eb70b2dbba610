#include "VELTRuntime/platform/appkit/controls/secret_text.h"

#include "VELTRuntime/platform/appkit/controls/secure_text_field.h"
#include "VELTRuntime/platform/appkit/qt_values.h"

#include <QStyle>

namespace velt {

bool isSecret(const NSCell& cell) { return dynamic_cast<const NSSecureTextFieldCell*>(&cell) != nullptr; }

QString dotsFor(const QString& text, const QStyle& style) {
    return QString(text.size(), QChar(style.styleHint(QStyle::SH_LineEdit_PasswordCharacter)));
}

QString shownText(const NSCell& cell, const QStyle& style) {
    const QString text = qtText(cell.stringValue());
    return isSecret(cell) ? dotsFor(text, style) : text;
}

}  // namespace velt
