// source_text.bas: pieces of source text.
#pragma once

#include "editor/values.h"

namespace editor {

id isWordUnit(id unit);
id firstWord(id text);
id withoutComment(id line);
id goesOnAsCode(id part);

}  // namespace editor
