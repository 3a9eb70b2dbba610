// What views are to those who cannot see them when their widget is a plain one: boxes group, lines separate, progress
// has a value.
#pragma once

namespace velt {

/// Makes the widgets of views say what they are; needed once, before the first is shown.
void installViewRoles();

}  // namespace velt
