// Paragraph styles: how the lines of a paragraph lie.
#pragma once

#include "VELTRuntime/platform/object/class.h"

/// The value of the attribute "NSParagraphStyle". Lengths are in the program's units.
class VELT_EXPORT NSParagraphStyle : public NSObject {
    VELT_OBJECT(NSParagraphStyle, NSObject)
public:
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;

    /// 0 left, 1 right, 2 centred, 3 justified, 4 by the text's direction.
    long alignment = 4;
    double firstLineHeadIndent = 0, headIndent = 0;
    double paragraphSpacing = 0, lineSpacing = 0;
    static void describe(velt::ClassBuilder<NSParagraphStyle>& c);

protected:
    void take(const NSParagraphStyle& other);
};

class VELT_EXPORT NSMutableParagraphStyle final : public NSParagraphStyle {
    VELT_OBJECT(NSMutableParagraphStyle, NSParagraphStyle)
public:
    static void describe(velt::ClassBuilder<NSMutableParagraphStyle>& c);
};
