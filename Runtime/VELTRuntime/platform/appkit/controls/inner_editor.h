// The editor that a part of a control works with, such as a cell of a table that is being edited: what menus and
// shortcuts ask the first responder for goes to it.
#pragma once

#include "VELTRuntime/platform/appkit/responder.h"

class NSWindow;

namespace velt {

/// Answers "cut:", "copy:", "paste:", "delete:", "selectAll:", "undo:" and "redo:" for a line that has the keyboard.
class InnerEditor final : public NSResponder {
public:
    static Class& entry();
    Class& isa() const override { return entry(); }
    static void describe(ClassBuilder<InnerEditor>& c);
};

/// The responder for the line with the keyboard in a window, when it is a part of a control that is no field; nil
/// otherwise.
id innerEditorIn(const NSWindow& window);

}  // namespace velt
