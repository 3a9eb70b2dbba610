// Which class of ours stands for which kind of widget in interface files.
#pragma once

#include "VELTRuntime/platform/foundation/xml_tree.h"
#include "VELTRuntime/values/structures.h"
#include "VELTRuntime/values/value.h"

#include <Qt>
#include <QtGlobal>
#include <functional>

class NSObject;
class NSView;

namespace velt {

/// The view in which the children of an object lie: the content view of a window or a box, a view itself; null for what
/// holds no views.
NSView* containerView(NSObject* object);

/// In which directions a kind of widget takes the room that there is.
Qt::Orientations growthOf(const XmlElement& widget);
/// The size that a kind of widget usually has, where it is more than what is asked for.
NSSize usualSize(const XmlElement& widget, NSSize asked);

/// The menu item for the name in an <addaction>: that of an action, a new one that opens a menu of that name, or a
/// separator; nil when there is none.
id menuItemNamed(const std::string& name, const std::function<id(const std::string&)>& objectNamed);

}  // namespace velt
