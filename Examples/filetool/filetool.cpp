// filetool.bas as the translator writes it: the file manager's functions, each failure with its reason.
#include "support/console.h"

using example::argumentList;
using example::location;
using example::print;
using example::printError;

namespace {

id list(id files, id path);
id whyNotListed(id files, id path);

id usage() {
    VELTS("filetool.bas", "Usage", "4", "");
    printError(
        "filetool list FOLDER | check PATH... | make FOLDER | copy FROM TO | move FROM TO | link FROM TO | remove PATH..."_v);
    return nil;
}

id kindOf(id files, id path) {
    VELTS("filetool.bas", "KindOf", "8", "");
    if (VELT_CBOOL(VELT_NSFILEMANAGER_EXISTSDIRECTORY(files, path))) {
        VELTS("filetool.bas", "KindOf", "9", "");
        return VELT__STRING("folder"_v);
    } else if (VELTS("filetool.bas", "KindOf", "10", ""), VELT_CBOOL(VELT_NSFILEMANAGER_EXISTSFILE(files, path))) {
        VELTS("filetool.bas", "KindOf", "11", "");
        return VELT__STRING("file"_v);
    }
    VELTS("filetool.bas", "KindOf", "13", "");
    return VELT__STRING("missing"_v);
}

id flag(id holds, id letter) {
    VELTS("filetool.bas", "Flag", "17", "");
    if (VELT_CBOOL(holds)) {
        VELTS("filetool.bas", "Flag", "18", "");
        return VELT__STRING(letter);
    }
    VELTS("filetool.bas", "Flag", "20", "");
    return VELT__STRING("-"_v);
}

id describe(id files, id path, id name) {
    VELTS("filetool.bas", "Describe", "24", "");
    id rights =
        VELT__STRING(VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(flag(VELT_NSFILEMANAGER_ISREADABLE(files, path), "r"_v),
                                                         flag(VELT_NSFILEMANAGER_ISWRITABLE(files, path), "w"_v)),
                                             flag(VELT_NSFILEMANAGER_ISEXECUTABLE(files, path), "x"_v)),
                                 flag(VELT_NSFILEMANAGER_ISDELETABLE(files, path), "d"_v)));
    VELTS("filetool.bas", "Describe", "25", "");
    return VELT__STRING(VELT_CONCAT(
        VELT_CONCAT(
            VELT_CONCAT(VELT_LEFT(VELT_CONCAT(kindOf(files, path), VELT_SPACE(VELT_ID(8L), " "_v)), VELT_ID(8L)),
                        rights),
            "  "_v),
        name));
}

id sortNames(id names) {
    VELTS("filetool.bas", "SortNames", "29", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(names), VELT_ID(1L));
    for (id i = VELT_ID(1L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("filetool.bas", "SortNames", "30", "");
        id name = VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(names, i));
        VELTS("filetool.bas", "SortNames", "31", "");
        id place = VELT__INTEGER(i);
        while (VELTS("filetool.bas", "SortNames", "32", ""),
               VELT_CBOOL(VELT_ANDALSO(
                   VELT_GREATER(place, VELT_ID(0L)),
                   VELT_GREATER(VELT_COMPARE(VELT_NSMUTABLEARRAY_OBJECT(
                                                 names, VELT_MAX(VELT_SUB(place, VELT_ID(1L)), VELT_ID(0L))),
                                             name, VELT_ID(BOOL{1})),
                                VELT_ID(0L))))) {
            VELTS("filetool.bas", "SortNames", "33", "");
            VELT_NSMUTABLEARRAY_REPLACE(names, VELT_NSMUTABLEARRAY_OBJECT(names, VELT_SUB(place, VELT_ID(1L))), place);
            VELTS("filetool.bas", "SortNames", "34", "");
            place = VELT__INTEGER(VELT_SUB(place, VELT_ID(1L)));
        }
        VELTS("filetool.bas", "SortNames", "36", "");
        VELT_NSMUTABLEARRAY_REPLACE(names, name, place);
    }
    return nil;
}

id list(id files, id path) {
    VELTS("filetool.bas", "List", "41", "");
    id found = VELT_NSFILEMANAGER_LIST(files, path);
    VELTS("filetool.bas", "List", "42", "");
    if (VELT_CBOOL(VELT_EQUAL(found, nil))) {
        VELTS("filetool.bas", "List", "43", "");
        printError(
            VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("filetool: cannot list "_v, path), ": "_v), whyNotListed(files, path)));
        VELTS("filetool.bas", "List", "44", "");
        return VELT__BOOLEAN(VELT_ID(BOOL{0}));
    }
    VELTS("filetool.bas", "List", "46", "");
    id names = velt::make<NSMutableArray>();
    VELTS("filetool.bas", "List", "47", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(found), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("filetool.bas", "List", "48", "");
        VELT_NSMUTABLEARRAY_APPEND(names, VELT_NSMUTABLEARRAY_OBJECT(found, i));
    }
    VELTS("filetool.bas", "List", "50", "");
    sortNames(VELT__NSMUTABLEARRAY(names));
    VELTS("filetool.bas", "List", "51", "");
    last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(names), VELT_ID(1L));
    for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("filetool.bas", "List", "52", "");
        print(describe(files, VELT__STRING(VELT_CONCAT(VELT_CONCAT(path, "/"_v), VELT_NSMUTABLEARRAY_OBJECT(names, i))),
                       VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(names, i))));
    }
    VELTS("filetool.bas", "List", "54", "");
    print(VELT_CONCAT(VELT_NSMUTABLEARRAY_COUNT(names), " entries"_v));
    VELTS("filetool.bas", "List", "55", "");
    return VELT__BOOLEAN(VELT_ID(BOOL{1}));
}

id whyNotListed(id files, id path) {
    VELTS("filetool.bas", "WhyNotListed", "59", "");
    if (VELT_CBOOL(VELT_NOT(VELT_NSFILEMANAGER_EXISTS(files, path)))) {
        VELTS("filetool.bas", "WhyNotListed", "60", "");
        return VELT__STRING("there is nothing of that name"_v);
    } else if (VELTS("filetool.bas", "WhyNotListed", "61", ""),
               VELT_CBOOL(VELT_NSFILEMANAGER_EXISTSFILE(files, path))) {
        VELTS("filetool.bas", "WhyNotListed", "62", "");
        return VELT__STRING("it is not a folder"_v);
    }
    VELTS("filetool.bas", "WhyNotListed", "64", "");
    return VELT__STRING("it may not be read"_v);
}

id folderOf(id path) {
    VELTS("filetool.bas", "FolderOf", "68", "");
    id parts = VELT__NSMUTABLEARRAY(VELT_SPLIT(path, "/"_v));
    VELTS("filetool.bas", "FolderOf", "69", "");
    VELT_NSMUTABLEARRAY_REMOVE(parts, VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(parts), VELT_ID(1L)));
    VELTS("filetool.bas", "FolderOf", "70", "");
    id folder = VELT__STRING(VELT_JOIN(parts, "/"_v));
    VELTS("filetool.bas", "FolderOf", "71", "");
    if (VELT_CBOOL(VELT_EQUAL(folder, ""_v))) {
        VELTS("filetool.bas", "FolderOf", "72", "");
        return VELT__STRING("/"_v);
    }
    VELTS("filetool.bas", "FolderOf", "74", "");
    return VELT__STRING(folder);
}

id whyNot(id files, id source, id target) {
    VELTS("filetool.bas", "WhyNot", "78", "");
    if (VELT_CBOOL(VELT_ANDALSO(VELT_UNEQUAL(source, ""_v), VELT_NOT(VELT_NSFILEMANAGER_EXISTS(files, source))))) {
        VELTS("filetool.bas", "WhyNot", "79", "");
        return VELT__STRING(VELT_CONCAT("there is no "_v, source));
    } else if (VELTS("filetool.bas", "WhyNot", "80", ""), VELT_CBOOL(VELT_EQUAL(target, ""_v))) {
        VELTS("filetool.bas", "WhyNot", "81", "");
        return VELT__STRING("it may not be deleted"_v);
    } else if (VELTS("filetool.bas", "WhyNot", "82", ""), VELT_CBOOL(VELT_NSFILEMANAGER_EXISTS(files, target))) {
        VELTS("filetool.bas", "WhyNot", "83", "");
        return VELT__STRING(VELT_CONCAT(target, " is there already"_v));
    } else if (VELTS("filetool.bas", "WhyNot", "84", ""),
               VELT_CBOOL(VELT_NOT(VELT_NSFILEMANAGER_EXISTSDIRECTORY(files, folderOf(VELT__STRING(target)))))) {
        VELTS("filetool.bas", "WhyNot", "85", "");
        return VELT__STRING(VELT_CONCAT("there is no folder "_v, folderOf(VELT__STRING(target))));
    } else if (VELTS("filetool.bas", "WhyNot", "86", ""),
               VELT_CBOOL(VELT_NOT(VELT_NSFILEMANAGER_ISWRITABLE(files, folderOf(VELT__STRING(target)))))) {
        VELTS("filetool.bas", "WhyNot", "87", "");
        return VELT__STRING(VELT_CONCAT("nothing may be written in "_v, folderOf(VELT__STRING(target))));
    }
    VELTS("filetool.bas", "WhyNot", "89", "");
    return VELT__STRING("the system refused it"_v);
}

id report(id done, id what, id files, id source, id target) {
    VELTS("filetool.bas", "Report", "93", "");
    if (VELT_CBOOL(done)) {
        VELTS("filetool.bas", "Report", "94", "");
        print(what);
    } else {
        VELTS("filetool.bas", "Report", "96", "");
        printError(
            VELT_CONCAT(VELT_CONCAT(VELT_CONCAT("filetool: not "_v, what), ": "_v), whyNot(files, source, target)));
    }
    VELTS("filetool.bas", "Report", "98", "");
    return VELT__BOOLEAN(done);
}

/// "what FROM to TO".
id fromTo(const id& what, const id& paths) {
    return VELT__STRING(
        VELT_CONCAT(VELT_CONCAT(VELT_CONCAT(what, VELT_NSMUTABLEARRAY_OBJECT(paths, VELT_ID(0L))), " to "_v),
                    VELT_NSMUTABLEARRAY_OBJECT(paths, VELT_ID(1L))));
}

id runCommand(id files, id command, id paths) {
    VELTS("filetool.bas", "RunCommand", "102", "");
    id success = VELT__BOOLEAN(VELT_ID(BOOL{1}));
    VELTS("filetool.bas", "RunCommand", "103", "");
    id selector = command;
    if (VELTS("filetool.bas", "RunCommand", "104", ""), VELT_CBOOL(VELT_EQUAL(selector, "list"_v))) {
        VELTS("filetool.bas", "RunCommand", "105", "");
        return VELT__BOOLEAN(list(files, VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(paths, VELT_ID(0L)))));
    } else if (VELTS("filetool.bas", "RunCommand", "106", ""), VELT_CBOOL(VELT_EQUAL(selector, "copy"_v))) {
        VELTS("filetool.bas", "RunCommand", "107", "");
        id source = VELT_NSMUTABLEARRAY_OBJECT(paths, VELT_ID(0L)),
           target = VELT_NSMUTABLEARRAY_OBJECT(paths, VELT_ID(1L));
        return VELT__BOOLEAN(
            report(VELT_NSFILEMANAGER_COPY(files, source, target), fromTo("copied "_v, paths), files, source, target));
    } else if (VELTS("filetool.bas", "RunCommand", "108", ""), VELT_CBOOL(VELT_EQUAL(selector, "move"_v))) {
        VELTS("filetool.bas", "RunCommand", "109", "");
        id source = VELT_NSMUTABLEARRAY_OBJECT(paths, VELT_ID(0L)),
           target = VELT_NSMUTABLEARRAY_OBJECT(paths, VELT_ID(1L));
        return VELT__BOOLEAN(
            report(VELT_NSFILEMANAGER_MOVE(files, source, target), fromTo("moved "_v, paths), files, source, target));
    } else if (VELTS("filetool.bas", "RunCommand", "110", ""), VELT_CBOOL(VELT_EQUAL(selector, "link"_v))) {
        VELTS("filetool.bas", "RunCommand", "111", "");
        id source = VELT_NSMUTABLEARRAY_OBJECT(paths, VELT_ID(0L)),
           target = VELT_NSMUTABLEARRAY_OBJECT(paths, VELT_ID(1L));
        return VELT__BOOLEAN(
            report(VELT_NSFILEMANAGER_LINK(files, source, target), fromTo("linked "_v, paths), files, source, target));
    } else if (VELTS("filetool.bas", "RunCommand", "112", ""), VELT_CBOOL(VELT_EQUAL(selector, "make"_v))) {
        VELTS("filetool.bas", "RunCommand", "113", "");
        id path = VELT_NSMUTABLEARRAY_OBJECT(paths, VELT_ID(0L));
        return VELT__BOOLEAN(report(VELT_NSFILEMANAGER_CREATEDIRECTORY(files, path),
                                    VELT__STRING(VELT_CONCAT("made "_v, path)), files, ""_v, path));
    } else if (VELTS("filetool.bas", "RunCommand", "114", ""), VELT_CBOOL(VELT_EQUAL(selector, "remove"_v))) {
        VELTS("filetool.bas", "RunCommand", "115", "");
        id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(paths), VELT_ID(1L));
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("filetool.bas", "RunCommand", "116", "");
            id path = VELT_NSMUTABLEARRAY_OBJECT(paths, i);
            if (VELT_CBOOL(VELT_NOT(report(VELT_NSFILEMANAGER_DELETE(files, path),
                                           VELT__STRING(VELT_CONCAT("removed "_v, path)), files, path, ""_v)))) {
                VELTS("filetool.bas", "RunCommand", "117", "");
                success = VELT__BOOLEAN(VELT_ID(BOOL{0}));
            }
        }
    } else if (VELTS("filetool.bas", "RunCommand", "120", ""), VELT_CBOOL(VELT_EQUAL(selector, "check"_v))) {
        VELTS("filetool.bas", "RunCommand", "121", "");
        id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(paths), VELT_ID(1L));
        for (id i = VELT_ID(0L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
            VELTS("filetool.bas", "RunCommand", "122", "");
            id path = VELT_NSMUTABLEARRAY_OBJECT(paths, i);
            print(describe(files, path, path));
            VELTS("filetool.bas", "RunCommand", "123", "");
            if (VELT_CBOOL(VELT_NOT(VELT_NSFILEMANAGER_EXISTS(files, path)))) {
                VELTS("filetool.bas", "RunCommand", "124", "");
                success = VELT__BOOLEAN(VELT_ID(BOOL{0}));
            }
        }
    }
    VELTS("filetool.bas", "RunCommand", "128", "");
    return VELT__BOOLEAN(success);
}

int program(int count, char** values) {
    id arguments = argumentList(count, values);
    VELTS("filetool.bas", "Main", "132", "");
    id files = VELT_NSFILEMANAGER_INIT(nil, "");
    VELTS("filetool.bas", "Main", "133", "");
    if (VELT_CBOOL(VELT_EQUAL(VELT_NSMUTABLEARRAY_COUNT(arguments), VELT_ID(0L)))) {
        VELTS("filetool.bas", "Main", "134", "");
        VELT_NSMUTABLEARRAY_APPEND(arguments, "list"_v);
        VELTS("filetool.bas", "Main", "135", "");
        VELT_NSMUTABLEARRAY_APPEND(arguments, velt::string(VELT_EXAMPLE_FOLDER));
    }
    VELTS("filetool.bas", "Main", "137", "");
    id command = VELT__STRING(VELT_NSMUTABLEARRAY_OBJECT(arguments, VELT_ID(0L)));
    VELTS("filetool.bas", "Main", "138", "");
    id wanted = velt::make<NSMutableDictionary>();
    VELTS("filetool.bas", "Main", "139", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(wanted, "list"_v, VELT_ID(1L));
    VELTS("filetool.bas", "Main", "140", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(wanted, "check"_v, VELT_ID(1L));
    VELTS("filetool.bas", "Main", "141", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(wanted, "make"_v, VELT_ID(1L));
    VELTS("filetool.bas", "Main", "142", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(wanted, "remove"_v, VELT_ID(1L));
    VELTS("filetool.bas", "Main", "143", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(wanted, "copy"_v, VELT_ID(2L));
    VELTS("filetool.bas", "Main", "144", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(wanted, "move"_v, VELT_ID(2L));
    VELTS("filetool.bas", "Main", "145", "");
    VELT_NSMUTABLEDICTIONARY_INSERT(wanted, "link"_v, VELT_ID(2L));
    VELTS("filetool.bas", "Main", "146", "");
    id needed = VELT__INTEGER(VELT_ID(0L));
    VELTS("filetool.bas", "Main", "147", "");
    if (VELT_CBOOL(VELT_NSMUTABLEDICTIONARY_CONTAINS(wanted, command))) {
        VELTS("filetool.bas", "Main", "148", "");
        needed = VELT__INTEGER(VELT_NSMUTABLEDICTIONARY_VALUE(wanted, command));
    }
    VELTS("filetool.bas", "Main", "150", "");
    if (VELT_CBOOL(VELT_ORELSE(VELT_EQUAL(needed, VELT_ID(0L)),
                               VELT_SMALLER(VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(arguments), VELT_ID(1L)), needed)))) {
        VELTS("filetool.bas", "Main", "151", "");
        usage();
        VELTS("filetool.bas", "Main", "152", "");
        return 2;
    }
    VELTS("filetool.bas", "Main", "154", "");
    id paths = velt::make<NSMutableArray>();
    VELTS("filetool.bas", "Main", "155", "");
    id last = VELT_SUB(VELT_NSMUTABLEARRAY_COUNT(arguments), VELT_ID(1L));
    for (id i = VELT_ID(1L); VELT_CBOOL(VELT_SMALLEREQUAL(i, last)); i = VELT_ADD(i, VELT_ID(1L))) {
        VELTS("filetool.bas", "Main", "156", "");
        VELT_NSMUTABLEARRAY_APPEND(paths, location(VELT_NSMUTABLEARRAY_OBJECT(arguments, i)));
    }
    VELTS("filetool.bas", "Main", "158", "");
    if (VELT_CBOOL(runCommand(files, command, paths))) {
        VELTS("filetool.bas", "Main", "159", "");
        return 0;
    }
    VELTS("filetool.bas", "Main", "161", "");
    return 1;
}

}  // namespace

int main(int count, char** arguments) { return velt::runProgram(program, count, arguments); }
