// Writes where this program, its bundle and its resources lie.
#include <VELTRuntime/VELTRuntime.h>
#include <cstdio>

static void show(const char* what, const char* selector) {
    std::printf("%s %s\n", what, velt::utf8(velt::send(VELT_id_NSBUNDLE, selector)).c_str());
}

int main() {
    show("bundle", "bundlePath");
    show("resources", "resourcePath");
    show("program", "executablePath");
}
