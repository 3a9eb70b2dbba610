// editor.bas as the translator writes it. --dark shows it in dark colours on whatever desktop, --reverse as those see
// it who read from right to left.
#include "editor/files.h"

#include "support/screenshot.h"

namespace {

using namespace editor;

id filesAsked() {
    VELTS("editor.bas", "FilesAsked", "5", "");
    id paths = VELT__NSMUTABLEARRAY(velt::make<NSMutableArray>());
    VELTS("editor.bas", "FilesAsked", "6", "");
    id arguments = VELT__NSARRAY(VELT_NSPROCESSINFO_ARGUMENTS(nil));
    VELTS("editor.bas", "FilesAsked", "7", "");
    id files = VELT_NSFILEMANAGER_INIT(nil, "");
    VELTS("editor.bas", "FilesAsked", "8", "");
    const id last = VELT_SUB(VELT_NSARRAY_COUNT(arguments), number(1));
    for (id i = number(1); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, number(1))) {
        VELTS("editor.bas", "FilesAsked", "9", "");
        id path = VELT__STRING(VELT_NSARRAY_OBJECT(arguments, i));
        VELTS("editor.bas", "FilesAsked", "10", "");
        if (VELT_CBOOL(VELT_ANDALSO(VELT_NOT(VELT_STARTSWITH(path, "/"_v, boolean(true))),
                                    VELT_NOT(VELT_STARTSWITH(path, "--"_v, boolean(true))))))
            path = VELT__STRING(VELT_CONCAT(VELT_CONCAT(VELT_NSFILEMANAGER_PATH(files), "/"_v), path));
        VELTS("editor.bas", "FilesAsked", "11", "");
        if (VELT_CBOOL(VELT_STARTSWITH(path, "/"_v, boolean(true)))) VELT_NSMUTABLEARRAY_APPEND(paths, path);
    }
    VELTS("editor.bas", "FilesAsked", "13", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(paths), number(0)))) {
        VELTS("editor.bas", "FilesAsked", "14", "");
        id folder = VELT__STRING(VELT_CONCAT(VELT_FILEPATH(VELT_NSBUNDLE_EXECUTABLEPATH(nil)), "/programs/"_v));
        VELTS("editor.bas", "FilesAsked", "15", "");
        VELT_NSMUTABLEARRAY_APPEND(paths, VELT_CONCAT(folder, "ledger.bas"_v));
        VELTS("editor.bas", "FilesAsked", "16", "");
        VELT_NSMUTABLEARRAY_APPEND(paths, VELT_CONCAT(folder, "maze.bas"_v));
    }
    VELTS("editor.bas", "FilesAsked", "18", "");
    return VELT__NSMUTABLEARRAY(paths);
}

int program(int count, char** arguments) {
    example::dressAsAsked(count, arguments);
    VELTS("editor.bas", "Main", "22", "");
    velt::Ref<SourceEditor> shown = velt::make<SourceEditor>();
    VELTS("editor.bas", "Main", "23", "");
    VELT_PROPERTY(application(), "delegate"_v, shown);
    VELTS("editor.bas", "Main", "24", "");
    VELT_PROPERTY(application(), "mainMenu"_v, mainMenu(shown));
    VELTS("editor.bas", "Main", "25", "");
    shown->open(VELT__STRING(VELT_NSBUNDLE_RESOURCEPATH(nil)), filesAsked());
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
