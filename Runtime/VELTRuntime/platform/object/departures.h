// Knowing when an object goes, without keeping it alive: for tables that point at objects which they do not own, as the
// notification centre's observers.
//
// Such a table holds its lock while it looks an object up and takes an owner of it with shareIfAlive; its handler takes
// the same lock and forgets the object. So no pointer in the table is ever looked at after the object was freed.
#pragma once

#include "VELTRuntime/platform/object/object.h"

namespace velt {

/// Called on the thread that dropped the last owner, before the object is taken apart. It may not take owners of the
/// object.
using DepartureHandler = void (*)(NSObject* object) noexcept;

/// Calls the handler for every watched object that goes, whoever watches it. Each handler is added once and stays.
VELT_EXPORT void addDepartureHandler(DepartureHandler handler);

/// The handlers are called when this object goes. Watching twice is the same as once.
VELT_EXPORT void watchDeparture(NSObject* object) noexcept;

/// The object with one owner more, or nil when its last owner has gone; nil for null. Only for an object that cannot be
/// freed meanwhile because its departure handler waits for the caller's lock.
VELT_EXPORT id shareIfAlive(NSObject* object) noexcept;

/// Calls the handlers. For the freeing of objects.
void announceDeparture(NSObject* object) noexcept;

}  // namespace velt
