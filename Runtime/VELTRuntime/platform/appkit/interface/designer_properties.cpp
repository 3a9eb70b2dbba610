#include "VELTRuntime/platform/appkit/interface/designer_properties.h"

#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

#include <QWidget>
#include <algorithm>
#include <cmath>

namespace velt {

namespace {

double numberOf(const XmlElement& element) { return VELT_CDOUBLE(string(element.text)); }

/// A place or an extent. Files may say any number; the toolkit's layouts add them up as int.
double distanceOf(const XmlElement& element) {
    constexpr double kMost = QWIDGETSIZE_MAX;
    const double number = numberOf(element);
    return std::isnan(number) ? 0 : std::clamp(number, -kMost, kMost);
}

double distanceIn(const XmlElement& element, std::string_view child) {
    const XmlElement* found = element.child(child);
    return found ? distanceOf(*found) : 0;
}

}  // namespace

const XmlElement* designerProperty(const XmlElement& element, std::string_view name, std::string_view kind) {
    for (const XmlElement& property : element.children) {
        if (property.name == kind && property.attribute("name") == name && !property.children.empty())
            return &property.children.front();
    }
    return nullptr;
}

std::optional<std::string> designerText(const XmlElement& element, std::string_view name, std::string_view kind) {
    const XmlElement* found = designerProperty(element, name, kind);
    if (!found) return std::nullopt;
    return found->text;
}

std::optional<double> designerNumber(const XmlElement& element, std::string_view name) {
    const XmlElement* found = designerProperty(element, name);
    if (!found) return std::nullopt;
    return numberOf(*found);
}

std::optional<int> designerDistance(const XmlElement& element, std::string_view name) {
    const XmlElement* found = designerProperty(element, name);
    if (!found) return std::nullopt;
    return static_cast<int>(distanceOf(*found));
}

std::optional<bool> designerFlag(const XmlElement& element, std::string_view name) {
    const XmlElement* found = designerProperty(element, name);
    if (!found) return std::nullopt;
    return found->text == "true";
}

std::optional<NSRect> designerRect(const XmlElement& element, std::string_view name) {
    const XmlElement* found = designerProperty(element, name);
    if (!found) return std::nullopt;
    return NSRect{{distanceIn(*found, "x"), distanceIn(*found, "y")},
                  {distanceIn(*found, "width"), distanceIn(*found, "height")}};
}

std::optional<NSSize> designerSize(const XmlElement& element, std::string_view name) {
    const XmlElement* found = designerProperty(element, name);
    if (!found) return std::nullopt;
    return NSSize{distanceIn(*found, "width"), distanceIn(*found, "height")};
}

bool designerHas(const XmlElement& element, std::string_view name, std::string_view value) {
    const XmlElement* found = designerProperty(element, name);
    if (!found) return false;
    // "Qt::AlignRight|Qt::AlignVCenter"
    std::string_view rest = found->text;
    while (!rest.empty()) {
        const std::size_t bar = rest.find('|');
        std::string_view part = rest.substr(0, bar);
        rest = bar == rest.npos ? std::string_view() : rest.substr(bar + 1);
        if (const std::size_t colons = part.rfind("::"); colons != part.npos) part.remove_prefix(colons + 2);
        if (part == value) return true;
    }
    return false;
}

}  // namespace velt
