// What this library needs and only the library with windows can give. That library hands it over when it is loaded, and
// is loaded at the first need.
#pragma once

#include "VELTRuntime/values/structures.h"

#include <memory>
#include <string>

namespace velt {

class LoopDriver;
struct LoopCalls;

/// The services of the library with windows.
struct Providers {
    /// The image in a file (path in UTF-8), or nil when there is none.
    id (*imageFromFile)(const std::string& path);
    /// A new attributed string of an HTML text (UTF-8).
    id (*attributedStringFromHtml)(const std::string& html);
    /// Sounds the desktop's alert; false when there is no desktop.
    bool (*soundAlert)();
    /// The main screen without panels, y upward; the zero rectangle when there is no screen.
    NSRect (*visibleScreenFrame)();
    /// Draws a string with attributes (a dictionary or nil) into what is being drawn: from the rectangle's top, in
    /// lines as wide as it, or at its origin in the lines that the text has.
    void (*drawText)(const id& text, NSRect rect, bool wraps, const id& attributes);
    /// The size of that text.
    NSSize (*textSize)(const id& text, const id& attributes);
    /// Makes the application object when there is none, and what waits within its event loop (loop_driver.h).
    std::unique_ptr<LoopDriver> (*makeMainLoopDriver)(LoopCalls calls);
};

/// Hands services over; null members leave what was there.
VELT_EXPORT void provide(const Providers& providers);

/// The services, after loading the library with windows if it was not. Members are null when it does not give them.
VELT_EXPORT const Providers& providers();

/// The services that were handed over up to now; loads nothing.
VELT_EXPORT const Providers& availableProviders();

/// Raises "VLException": what was asked for needs the library with windows, and why that was not to be had.
[[noreturn]] VELT_EXPORT void raiseNotProvided(const char* what);

}  // namespace velt
