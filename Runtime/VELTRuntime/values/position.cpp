#include "VELTRuntime/values/position.h"

#include "VELTRuntime/values/string.h"
#include "VELTRuntime/values/text/utf.h"

constinit const char* META_acCurrentFile = "";
constinit const char* META_acCurrentScope = "";
constinit const char* META_acCurrentLine = "";

constinit BOOL bDEBUG = 0;
constinit BOOL bDEBUG_STEPINTO = 1;
constinit int nBreakpoints = 0;
constinit int nStepOneLine = 0;

namespace {
id asciiString(const char* bytes) { return velt::string(velt::text::fromAscii(bytes)); }
}  // namespace

id VeltF() { return asciiString(META_acCurrentFile); }
id VeltS() { return asciiString(META_acCurrentScope); }
id VeltL() { return asciiString(META_acCurrentLine); }
void VeltB() {}
