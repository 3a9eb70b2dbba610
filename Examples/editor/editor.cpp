// editor.bas as the translator writes it. --dark shows it in dark colours on whatever desktop, --reverse as those see
// it who read from right to left.
#include "editor/files.h"

#include "support/screenshot.h"

namespace {

using namespace editor;

id filesAtFirst() {
    VELTS("editor.bas", "FilesAtFirst", "6", "");
    id paths = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("editor.bas", "FilesAtFirst", "7", "");
    id arguments = VELT__NSARRAY(VELT_NSPROCESSINFO_ARGUMENTS(nil));
    VELTS("editor.bas", "FilesAtFirst", "8", "");
    id named = VELT__BOOLEAN(boolean(false));
    VELTS("editor.bas", "FilesAtFirst", "9", "");
    const id last = VELT_SUB(VELT_NSARRAY_COUNT(arguments), number(1));
    for (id i = number(1); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("editor.bas", "FilesAtFirst", "10", "");
        if (VELT_CBOOL(VELT_NOT(VELT_STARTSWITH(VELT_NSARRAY_OBJECT(arguments, i), "-"_v, boolean(true))))) {
            VELTS("editor.bas", "FilesAtFirst", "11", "");
            named = VELT__BOOLEAN(boolean(true));
            VELTS("editor.bas", "FilesAtFirst", "12", "");
            if (VELT_CBOOL(VELT_NOT(
                    VELT_NSFILEMANAGER_EXISTS(VELT_NSFILEMANAGER_INIT(nil, ""), VELT_NSARRAY_OBJECT(arguments, i)))))
                VELT_NSMUTABLEARRAY_APPEND(paths, VELT_NSARRAY_OBJECT(arguments, i));
        }
    }
    VELTS("editor.bas", "FilesAtFirst", "15", "");
    if (VELT_CBOOL(named)) return VELT__NSMUTABLEARRAY(paths);
    VELTS("editor.bas", "FilesAtFirst", "16", "");
    id folder = VELT__STRING(VELT_CONCAT(VELT_FILEPATH(VELT_NSBUNDLE_EXECUTABLEPATH(nil)), "/programs/"_v));
    VELTS("editor.bas", "FilesAtFirst", "17", "");
    VELT_NSMUTABLEARRAY_APPEND(paths, VELT_CONCAT(folder, "ledger.bas"_v));
    VELTS("editor.bas", "FilesAtFirst", "18", "");
    VELT_NSMUTABLEARRAY_APPEND(paths, VELT_CONCAT(folder, "maze.bas"_v));
    VELTS("editor.bas", "FilesAtFirst", "19", "");
    return VELT__NSMUTABLEARRAY(paths);
}

int program(int count, char** arguments) {
    example::dressAsAsked(count, arguments);
    VELTS("editor.bas", "Main", "23", "");
    velt::Ref<SourceEditor> shown = velt::make<SourceEditor>();
    VELTS("editor.bas", "Main", "24", "");
    VELT_PROPERTY(application(), "delegate"_v, shown);
    VELTS("editor.bas", "Main", "25", "");
    VELT_PROPERTY(application(), "mainMenu"_v, mainMenu(shown));
    VELTS("editor.bas", "Main", "26", "");
    shown->open(VELT__STRING(VELT_NSBUNDLE_RESOURCEPATH(nil)), filesAtFirst());
    // Where nobody works it, it sets a breakpoint in a function.
    example::shotWhenAsked(shown->window, [shown] {
        VELT_VLTEXTVIEW_GOTOLINE(shown->current()->view, number(51));
        shown->toggleBreakpoint(nil);
        VELT_VLTEXTVIEW_GOTOLINE(shown->current()->view, number(40));
    });
    return 0;
}

}  // namespace

int main(int count, char** arguments) { return example::runShowing("editor", program, count, arguments); }
