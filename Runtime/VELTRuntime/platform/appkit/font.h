// Fonts.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <memory>

class QFont;

/// A font of a size; it does not change.
class VELT_EXPORT NSFont final : public NSObject {
    VELT_OBJECT(NSFont, NSObject)
public:
    /// What a font is like; a sum of these.
    enum Traits : unsigned long { kItalic = 1, kBold = 2, kFixedPitch = 1024 };

    /// The desktop's usual font.
    NSFont();
    explicit NSFont(const QFont& font);
    NSFont(const QFont& font, double size);
    ~NSFont() override;
    /// The font of a family name, with or without a style behind it ("DejaVu Sans", "DejaVu Sans-Bold",
    /// "DejaVuSans-Bold"), in points of the screen; 0 and less mean the usual size. Null when the system has none of
    /// that name.
    static velt::Ref<NSFont> named(const id& name, double size);
    /// The desktop's font for controls and texts, and the one whose characters are all of one width. 0 and less mean
    /// the usual size.
    static velt::Ref<NSFont> system(double size, bool bold = false);
    static velt::Ref<NSFont> userFixedPitch(double size);

    id description() const override;
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;

    /// The family's name, with the style behind it unless it is the plain one: by that name the font is found again.
    id fontName() const;
    id familyName() const;
    double pointSize() const { return size_; }
    double ascender() const;
    double descender() const;
    /// Height of a line of text.
    double lineHeight() const;
    unsigned long traits() const;
    bool isBold() const { return (traits() & kBold) != 0; }
    bool isItalic() const { return (traits() & kItalic) != 0; }
    bool isFixedPitch() const { return (traits() & kFixedPitch) != 0; }
    const QFont& font() const { return *font_; }

    // As archives hold it: name, size and what is to be done when the name is not there.
    void encodeWithCoder(const id& coder) const;
    id initWithCoder(const id& coder);
    static void describe(velt::ClassBuilder<NSFont>& c);

private:
    std::unique_ptr<const QFont> font_;
    double size_;
};
