// Keeps replacing the dictionary in a file until it is killed: replacer FILE FIRST
#include <VELTRuntime/VELTRuntime.h>
#include <cstdlib>

int main(int count, char** arguments) {
    if (count != 3) return 2;
    const id path = velt::string(arguments[1]);
    for (long number = std::atol(arguments[2]);; ++number) {
        velt::Ref<NSMutableDictionary> content = velt::make<NSMutableDictionary>();
        content->setObject(VELT_ID(number), "number"_v);
        // A content's length follows from its number, so that a half of it shows.
        content->setObject(velt::string(std::string(static_cast<std::size_t>(number % 50) * 1000, 'x')), "text"_v);
        if (!VELT_CBOOL(VELT_WRITEDICTIONARY(content, path))) return 1;
    }
}
