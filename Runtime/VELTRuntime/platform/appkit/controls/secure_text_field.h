// Fields for secrets: dots stand for the text, and it leaves the field by the program alone.
#pragma once

#include "VELTRuntime/platform/appkit/controls/text_field.h"

class VELT_EXPORT NSSecureTextFieldCell : public NSTextFieldCell {
    VELT_OBJECT(NSSecureTextFieldCell, NSTextFieldCell)
public:
    using NSTextFieldCell::NSTextFieldCell;
    /// None: letters would be seen in their attributes.
    const NSAttributedString* richText() const override { return nullptr; }
};

class VELT_EXPORT NSSecureTextField : public NSTextField {
    VELT_OBJECT(NSSecureTextField, NSTextField)
public:
    static void describe(velt::ClassBuilder<NSSecureTextField>&) {}

protected:
    velt::Ref<NSCell> makeCell() const override {
        velt::Ref<NSSecureTextFieldCell> cell = velt::make<NSSecureTextFieldCell>();
        prepareCell(*cell);
        return cell;
    }
};
