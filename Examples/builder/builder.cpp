// builder.bas as the translator writes it: the toolchain's steps, run one after the other, and their diagnostics.
#include "support/console.h"

using example::argumentList;
using example::location;
using example::print;

namespace {

class Builder : public NSObject {
    VELT_OBJECT(Builder, NSObject)

public:
    id folder;
    id failures = VELT_ID(0L);

    static void describe(velt::ClassBuilder<Builder>& c) {
        c.property("folder", &Builder::folder).property("failures", &Builder::failures);
    }

    id step(id title, id diagnostics) {
        VELTS("builder.bas", "Builder.Step", "9", "");
        if (VELT_CBOOL(VELT_EQUAL(VELT_LEN(diagnostics), VELT_ID(0L)))) {
            VELTS("builder.bas", "Builder.Step", "10", "");
            print(VELT_CONCAT(title, ": ok"_v));
            VELTS("builder.bas", "Builder.Step", "11", "");
            return VELT__BOOLEAN(VELT_ID(BOOL{1}));
        }
        VELTS("builder.bas", "Builder.Step", "13", "");
        failures = VELT__INTEGER(VELT_ADD(failures, VELT_ID(1L)));
        VELTS("builder.bas", "Builder.Step", "14", "");
        print(VELT_CONCAT(title, ": failed"_v));
        VELTS("builder.bas", "Builder.Step", "15", "");
        id lines = VELT__NSMUTABLEARRAY(VELT_SPLIT(diagnostics, VELT_CHARACTER(VELT_ID(10L))));
        VELTS("builder.bas", "Builder.Step", "16", "");
        id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(lines), VELT_ID(1L));
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("builder.bas", "Builder.Step", "17", "");
            if (VELT_CBOOL(VELT_GREATER(VELT_LEN(VELT_NSMUTABLEARRAY_OBJECT(lines, i)), VELT_ID(0L)))) {
                VELTS("builder.bas", "Builder.Step", "18", "");
                print(VELT_CONCAT("  "_v, VELT_NSMUTABLEARRAY_OBJECT(lines, i)));
            }
        }
        VELTS("builder.bas", "Builder.Step", "21", "");
        return VELT__BOOLEAN(VELT_ID(BOOL{0}));
    }

    id paths(id name, id suffix) {
        VELTS("builder.bas", "Builder.Paths", "25", "");
        id list = velt::make<NSMutableArray>();
        VELTS("builder.bas", "Builder.Paths", "26", "");
        VELT_NSMUTABLEARRAY_APPEND(list, VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(folder, "/"_v), name), ".bas"_v));
        VELTS("builder.bas", "Builder.Paths", "27", "");
        VELT_NSMUTABLEARRAY_APPEND(list, VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(folder, "/build/"_v), name), suffix));
        VELTS("builder.bas", "Builder.Paths", "28", "");
        return VELT__NSMUTABLEARRAY(list);
    }

    void buildSource(id name) {
        VELTS("builder.bas", "Builder.BuildSource", "32", "");
        if (VELT_CBOOL(VELT_NOT(step(VELT__STRING(VELT_CONCAT(name, " translate"_v)),
                                     VELT__STRING(VELT_VELTRUNVELTCOMPILE(paths(name, ".c"_v))))))) {
            VELTS("builder.bas", "Builder.BuildSource", "33", "");
            return;
        }
        VELTS("builder.bas", "Builder.BuildSource", "35", "");
        if (VELT_CBOOL(VELT_NOT(step(VELT__STRING(VELT_CONCAT(name, " header"_v)),
                                     VELT__STRING(VELT_VELTRUNOBJCHEADER(paths(name, ".h"_v))))))) {
            VELTS("builder.bas", "Builder.BuildSource", "36", "");
            return;
        }
        VELTS("builder.bas", "Builder.BuildSource", "38", "");
        step(VELT__STRING(VELT_CONCAT(name, " compile"_v)), VELT__STRING(VELT_VELTRUNOBJCCOMPILE(paths(name, ".o"_v))));
    }

    id build() {
        VELTS("builder.bas", "Builder.Build", "42", "");
        id files = VELT__NSMUTABLEARRAY(VELT_SPLIT(
            VELT_BASH("cd \"$0\" && mkdir -p build && ls *.bas"_v, folderArgument()), VELT_CHARACTER(VELT_ID(10L))));
        VELTS("builder.bas", "Builder.Build", "43", "");
        id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(files), VELT_ID(1L));
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("builder.bas", "Builder.Build", "44", "");
            if (VELT_CBOOL(VELT_ENDSWITH(VELT_NSMUTABLEARRAY_OBJECT(files, i), ".bas"_v, VELT_ID(BOOL{1})))) {
                VELTS("builder.bas", "Builder.Build", "45", "");
                id file = VELT_NSMUTABLEARRAY_OBJECT(files, i);
                buildSource(VELT__STRING(VELT_LEFT(file, VELT_SUB(VELT_LEN(file), VELT_ID(4L)))));
            }
        }
        VELTS("builder.bas", "Builder.Build", "48", "");
        if (VELT_CBOOL(VELT_EQUAL(failures, VELT_ID(0L)))) {
            VELTS("builder.bas", "Builder.Build", "49", "");
            step("link"_v, VELT__STRING(VELT_VELTRUNOBJCLINKER(folderArgument())));
        }
        VELTS("builder.bas", "Builder.Build", "51", "");
        return VELT__INTEGER(failures);
    }

    id folderArgument() {
        VELTS("builder.bas", "Builder.FolderArgument", "55", "");
        id list = velt::make<NSMutableArray>();
        VELTS("builder.bas", "Builder.FolderArgument", "56", "");
        VELT_NSMUTABLEARRAY_APPEND(list, folder);
        VELTS("builder.bas", "Builder.FolderArgument", "57", "");
        return VELT__NSMUTABLEARRAY(list);
    }
};

id mainFunction(id arguments) {
    VELTS("builder.bas", "Main", "62", "");
    velt::Ref<Builder> builder = velt::make<Builder>();
    VELTS("builder.bas", "Main", "63", "");
    builder->folder = VELT__STRING(VELT_CONCAT(velt::string(VELT_EXAMPLE_FOLDER), "/Source"_v));
    VELTS("builder.bas", "Main", "64", "");
    if (VELT_CBOOL(VELT_GREATER(VELT_NSMUTABLEARRAY_COUNT(arguments), VELT_ID(0L)))) {
        VELTS("builder.bas", "Main", "65", "");
        builder->folder = VELT__STRING(location(VELT_NSMUTABLEARRAY_OBJECT(arguments, VELT_ID(0L))));
    }
    VELTS("builder.bas", "Main", "67", "");
    print(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("Toolchain in "_v, VELT_VELTBINARYPATH()), "/Compiler for "_v),
                      VELT_ARCH()));
    VELTS("builder.bas", "Main", "68", "");
    if (VELT_CBOOL(VELT_GREATER(builder->build(), VELT_ID(0L)))) {
        VELTS("builder.bas", "Main", "69", "");
        print(VELT_CONCAT(builder->failures, " failed"_v));
        VELTS("builder.bas", "Main", "70", "");
        return VELT_ID(1L);
    }
    VELTS("builder.bas", "Main", "72", "");
    print(VELT_CONCAT(VELT_CONCAT("Built "_v, builder->folder), "/build/program"_v));
    VELTS("builder.bas", "Main", "73", "");
    return VELT_ID(0L);
}

int program(int count, char** arguments) {
    return static_cast<int>(VELT_CINTEGER(mainFunction(argumentList(count, arguments))));
}

}  // namespace

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
