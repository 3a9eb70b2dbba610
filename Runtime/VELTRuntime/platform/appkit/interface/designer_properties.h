// What the elements of an interface file say: properties by name, in the forms that a designer writes.
#pragma once

#include "VELTRuntime/platform/foundation/xml_tree.h"
#include "VELTRuntime/values/structures.h"
#include "VELTRuntime/values/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace velt {

/// The value's element of a property (or, with "attribute", of what a container says of a page); null without one.
const XmlElement* designerProperty(const XmlElement& element, std::string_view name,
                                   std::string_view kind = "property");
/// Its text; nothing when the element does not say.
std::optional<std::string> designerText(const XmlElement& element, std::string_view name,
                                        std::string_view kind = "property");
std::optional<double> designerNumber(const XmlElement& element, std::string_view name);
/// A distance in whole units, the nearest that the toolkit's layouts can reckon with.
std::optional<int> designerDistance(const XmlElement& element, std::string_view name);
std::optional<bool> designerFlag(const XmlElement& element, std::string_view name);
/// A rectangle from the parent's upper left corner, y down; within what the toolkit can reckon with, as sizes are too.
std::optional<NSRect> designerRect(const XmlElement& element, std::string_view name);
std::optional<NSSize> designerSize(const XmlElement& element, std::string_view name);
/// The last part of an enumeration or a set of flags: "Horizontal" of "Qt::Horizontal" or
/// "Qt::Orientation::Horizontal".
bool designerHas(const XmlElement& element, std::string_view name, std::string_view value);

}  // namespace velt
