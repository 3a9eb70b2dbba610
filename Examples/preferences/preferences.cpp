// preferences.bas as the translator writes it. --dark shows it in dark colours on whatever desktop, --reverse as those
// see it who read from right to left.
#include "preferences/reader.h"

#include "support/screenshot.h"

namespace {

using namespace reader;

int program(int count, char** arguments) {
    example::dressAsAsked(count, arguments);
    VELTS("preferences.bas", "Main", "4", "");
    velt::Ref<Reader> shown = velt::make<Reader>();
    VELTS("preferences.bas", "Main", "5", "");
    VELT_PROPERTY(application(), "mainMenu"_v, mainMenu(shown));
    VELTS("preferences.bas", "Main", "6", "");
    shown->open(VELT__STRING(VELT_READSTRING(VELT_CONCAT(VELT_NSBUNDLE_RESOURCEPATH(nil), "/lighthouse.txt"_v))));
    // Where nobody works it, it makes the text bigger.
    example::shotWhenAsked(shown->window, [shown] { shown->biggerText(nil); });
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return example::runShowing("preferences", program, count, arguments); }
