// Makes the objects of an interface file (the XML of a graphical designer, ".ui") and connects them with their owner.
#pragma once

#include "VELTRuntime/platform/foundation/xml_tree.h"
#include "VELTRuntime/values/value.h"

#include <functional>
#include <string>

namespace velt {

/// Makes the object of a <widget> or <action> within its parent (nil for the outermost) and sets what its properties
/// say. For classes that the class table cannot make by name; the library with windows registers one for each kind of
/// widget.
using InterfaceMaker = id (*)(const XmlElement& element, const id& parent);
VELT_EXPORT void registerInterfaceMaker(const std::string& className, InterfaceMaker maker);

/// Arranges the objects of a file (layouts, menus, the order of the keyboard) when all of them are made; the object of
/// a name is nil when there is none. Registered by the library with windows.
using InterfaceArranger = void (*)(const XmlElement& root, const std::function<id(const std::string&)>& objectNamed);
VELT_EXPORT void registerInterfaceArranger(InterfaceArranger arranger);

/// Loads a file for an owner, who may be nil. All objects are made before the owner is touched. Then
///
///   outlets      the owner's property of each object's name, where it has one, is set to the object;
///   connections  the sender gets the receiver as its target and the slot as its action; "open()" is the method
///                "open:". As receiver the outermost object's name stands for the owner when the owner has the method.
///
/// A class of the class table is made by name, its properties are set by key (those that it lacks are left out), and it
/// is handed to its parent with "addSubview:" when that has such a method. Returns an empty text, or why the file could
/// not be loaded. What the program's own methods raise leaves here.
VELT_EXPORT std::string loadInterface(const std::string& path, const id& owner);
/// The same for the text of such a file; the name stands for it in what is returned.
VELT_EXPORT std::string loadInterfaceText(const std::string& text, const std::string& name, const id& owner);

}  // namespace velt
