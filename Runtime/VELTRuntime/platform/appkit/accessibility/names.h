// What controls are called for those who cannot see them. A control with a title has it for a name; one without goes by
// its tool tip, or else by the label that stands beside or above it, as a seeing person takes it to.
#pragma once

class QString;
class QWidget;

namespace velt {

/// Gives a widget the name that its control has of itself; empty when it has none, and another name that it may have
/// from a label then stays.
void setOwnName(QWidget& widget, const QString& name);

/// Something that names come from changed: labels are looked for anew when the main thread has nothing else to do. Does
/// nothing as long as nobody listens.
void namesMayHaveChanged();

}  // namespace velt
