// Writes a megabyte where files may only have so many bytes, and says what came of it: limited_writer FILE BYTES
#include <VELTRuntime/VELTRuntime.h>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>

int main(int count, char** arguments) {
    if (count != 3) return 2;
    const rlim_t most = std::strtoul(arguments[2], nullptr, 10);
    const rlimit limit{most, most};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 3;
    const id content = velt::make<NSData>(std::string(1000000, 'n'));
    const id isWritten = VELT_WRITEDATA(content, velt::string(arguments[1]));
    std::printf("%s\n", VELT_CBOOL(isWritten) ? "written" : "not written");
}
