// Fails while its globals are made.
#include <VELTRuntime/VELTRuntime.h>

namespace {
const id early = VELT_ADD(VELT_ID(1L), "text"_v);
}

int main() { return early.isNil(); }
