// Text views for those who have them read: their text, insertion point and selection.
#pragma once

namespace velt {

/// Has the toolkit make accessible objects for the widgets of text views from now on.
void installTextAccessibility();

}  // namespace velt
