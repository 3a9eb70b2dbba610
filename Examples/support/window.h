// What the examples with windows share: a clock, waiting while the windows live, and a picture of a window for those
// who have no display.
#pragma once

#include "VELTRuntime/VELTRuntimeUI.h"

#include "VELTRuntime/platform/foundation/run_loop.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace example {

/// Seconds since this was first asked, a Double.
inline id seconds() {
    using Clock = std::chrono::steady_clock;
    static const Clock::time_point start = Clock::now();
    return VELT_ID(std::chrono::duration<double>(Clock::now() - start).count());
}

/// Lets that many seconds pass; what happens meanwhile is handled.
inline void pause(const id& time) {
    const double end = VELT_CDOUBLE(seconds()) + VELT_CDOUBLE(time);
    for (double now = 0; (now = VELT_CDOUBLE(seconds())) < end;) velt::RunLoop::current().runOnce(end - now);
}

/// When VELT_SCREENSHOT names a file: once the application runs, the owner's method works the program, the window's
/// picture is written into that file, and the program ends.
inline void pictureWhenAsked(const id& window, const id& owner, const char* method) {
    const char* path = std::getenv("VELT_SCREENSHOT");
    if (!path || !*path) return;
    velt::RunLoop::main().perform([window, owner, method, path = std::string(path)] {
        pause(VELT_ID(0.2));  // the window comes to the screen
        velt::send(owner, std::string_view(method));
        pause(VELT_ID(0.1));
        const id image = NSImage::ofWindow(*velt::to<NSWindow>(window));
        const id bytes = velt::send(image, "PNGRepresentation");
        const NSData* png = velt::dataOf(bytes);
        std::ofstream file(path, std::ios::binary);
        if (png) file << png->characters();
        file.close();
        if (!file || !png) {
            std::fprintf(stderr, "The picture could not be written to %s\n", path.c_str());
            std::exit(1);
        }
        std::printf("Picture of the window: %s\n", path.c_str());
        NSApplication::sharedApplication().terminate(nil);
    });
}

}  // namespace example
