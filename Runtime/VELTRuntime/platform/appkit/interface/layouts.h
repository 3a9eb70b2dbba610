// The layouts of interface files.
#pragma once

#include "VELTRuntime/platform/foundation/xml_tree.h"
#include "VELTRuntime/values/value.h"

#include <functional>

namespace velt {

/// Arranges the views of all layouts within an element and its descendants, and links the actions of its menus; for
/// registerInterfaceArranger.
void arrangeInterface(const XmlElement& root, const std::function<id(const std::string&)>& objectNamed);

}  // namespace velt
