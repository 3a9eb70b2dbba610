// Loads the image that its argument names and writes what it is, or why there is none. It is not linked to the library
// with windows.
#include <VELTRuntime/VELTRuntime.h>
#include <cstdio>

int main(int, char** arguments) {
    try {
        const id image = VELT_CNSIMAGE(velt::string(arguments[1]));
        std::puts(image.isNil() ? "nil" : velt::utf8(velt::description(image)).c_str());
    } catch (const NSException& failure) {
        std::puts(failure.what());
    }
}
