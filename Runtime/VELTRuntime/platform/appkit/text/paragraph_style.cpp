#include "VELTRuntime/platform/appkit/text/paragraph_style.h"

#include <functional>
#include <tuple>

namespace {

auto fields(const NSParagraphStyle& style) {
    return std::tie(style.alignment, style.firstLineHeadIndent, style.headIndent, style.paragraphSpacing,
                    style.lineSpacing);
}

}  // namespace

void NSParagraphStyle::take(const NSParagraphStyle& other) {
    alignment = other.alignment;
    firstLineHeadIndent = other.firstLineHeadIndent;
    headIndent = other.headIndent;
    paragraphSpacing = other.paragraphSpacing;
    lineSpacing = other.lineSpacing;
}

bool NSParagraphStyle::isEqual(const id& other) const {
    return velt::is<NSParagraphStyle>(other) && fields(*this) == fields(*velt::as<NSParagraphStyle>(other));
}

std::size_t NSParagraphStyle::hash() const {
    return std::hash<double>()(headIndent + firstLineHeadIndent * 3) ^ static_cast<std::size_t>(alignment);
}

id NSParagraphStyle::copy() const {
    const auto made = velt::make<NSParagraphStyle>();
    made->take(*this);
    return made;
}

void NSParagraphStyle::describe(velt::ClassBuilder<NSParagraphStyle>& c) {
#define VELT_READ_FIELD(name)                                                                                          \
    c.method(#name, [](const id& self, const id*) { return VELT_ID(velt::as<NSParagraphStyle>(self)->name); });
    VELT_READ_FIELD(alignment)
    VELT_READ_FIELD(firstLineHeadIndent)
    VELT_READ_FIELD(headIndent)
    VELT_READ_FIELD(paragraphSpacing)
    VELT_READ_FIELD(lineSpacing)
#undef VELT_READ_FIELD
    c.method("mutableCopy", [](const id& self, const id*) {
        const auto made = velt::make<NSMutableParagraphStyle>();
        made->take(*velt::as<NSParagraphStyle>(self));
        return id(made);
    });
}

void NSMutableParagraphStyle::describe(velt::ClassBuilder<NSMutableParagraphStyle>& c) {
    c.property("alignment", &NSParagraphStyle::alignment)
        .property("firstLineHeadIndent", &NSParagraphStyle::firstLineHeadIndent)
        .property("headIndent", &NSParagraphStyle::headIndent)
        .property("paragraphSpacing", &NSParagraphStyle::paragraphSpacing)
        .property("lineSpacing", &NSParagraphStyle::lineSpacing);
}
