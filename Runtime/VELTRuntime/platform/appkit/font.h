// Fonts.
#pragma once

#include "VELTRuntime/platform/object/class.h"

#include <memory>

class QFont;

/// A font of a size; it does not change.
class VELT_EXPORT NSFont final : public NSObject {
    VELT_OBJECT(NSFont, NSObject)
public:
    NSFont();
    explicit NSFont(const QFont& font);
    ~NSFont() override;
    /// The font of a family name, with or without a style behind it ("DejaVu Sans", "DejaVu Sans-Bold"), in points of
    /// the screen; null when the system has none of that name.
    static velt::Ref<NSFont> named(const id& name, double size);

    id description() const override;
    bool isEqual(const id& other) const override;
    std::size_t hash() const override;
    id copy() const override;

    id fontName() const;
    id familyName() const;
    double pointSize() const;
    double ascender() const;
    double descender() const;
    const QFont& font() const { return *font_; }
    static void describe(velt::ClassBuilder<NSFont>& c);

private:
    std::unique_ptr<const QFont> font_;
};
