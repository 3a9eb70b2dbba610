// The example programs, run as a person runs them; what they write is compared whole.
#include "support/processes.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>

using velt::test::contentOf;
using velt::test::ProgramResult;
using velt::test::runExample;
using velt::test::TemporaryFolder;

TEST(TextstatExample, CountsLinesWordsAndOccurrences) {
    const TemporaryFolder folder;
    const std::string path =
        folder.write("cats.txt", "The cat, the dog.\n\n\"Cat!\" said (the) Élan; élan\r\n猫。犬、猫\n");
    const ProgramResult result = runExample("textstat", {"--find", "cat", "--find", "élan", path});
    EXPECT_EQ(result.output, path + ": 4 lines, 12 words, 7 distinct words\n"
                                    "  most frequent words\n"
                                    "       3  ██████████████████████████████  the\n"
                                    "       2  ████████████████████            cat\n"
                                    "       2  ████████████████████            élan\n"
                                    "       2  ████████████████████            猫\n"
                                    "       1  ██████████                      dog\n"
                                    "       1  ██████████                      said\n"
                                    "       1  ██████████                      犬\n"
                                    "  longest lines\n"
                                    "      28  line 3: \"Cat!\" said (the) Élan; élan\n"
                                    "      17  line 1: The cat, the dog.\n"
                                    "       5  line 4: 猫。犬、猫\n"
                                    "  \"cat\": 1 in this case, 2 in any case\n"
                                    "  \"élan\": 1 in this case, 2 in any case\n"
                                    "\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
}

TEST(TextstatExample, NamesAFileThatCannotBeReadAndGoesOnWithTheOthers) {
    const TemporaryFolder folder;
    const std::string first = folder.write("1.txt", "a b a\n"), missing = folder.file("missing.txt"),
                      last = folder.write("2.txt", "b\n"), empty = folder.write("3.txt", "");
    const ProgramResult result = runExample("textstat", {first, missing, last, empty});
    EXPECT_EQ(result.output, first +
                                 ": 1 lines, 3 words, 2 distinct words\n"
                                 "  most frequent words\n"
                                 "       2  ██████████████████████████████  a\n"
                                 "       1  ███████████████                 b\n"
                                 "  longest lines\n"
                                 "       5  line 1: a b a\n"
                                 "\n" +
                                 last +
                                 ": 1 lines, 1 words, 1 distinct words\n"
                                 "  most frequent words\n"
                                 "       1  ██████████████████████████████  b\n"
                                 "  longest lines\n"
                                 "       1  line 1: b\n"
                                 "\n" +
                                 empty +
                                 ": 0 lines, 0 words, 0 distinct words\n"
                                 "  most frequent words\n"
                                 "  longest lines\n"
                                 "\n"
                                 "total: 3 files, 2 lines, 4 words, 2 distinct words\n");
    EXPECT_EQ(result.errors, "textstat: " + missing + ": ReadString failed\n");
    EXPECT_EQ(result.status, 1);
}

TEST(TextstatExample, RefusesAnOptionThatItDoesNotKnow) {
    const ProgramResult result = runExample("textstat", {"--fnid", "x"});
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "textstat: --fnid: no such option, or its word is missing\n");
    EXPECT_EQ(result.status, 2);
}

TEST(TextstatExample, FindsComposedAndDecomposedLettersInItsOwnText) {
    const std::string path = std::string(VELT_SOURCE_FOLDER) + "/Examples/textstat/manyscripts.txt";
    const std::string composed = runExample("textstat", {"--find", "caf\u00E9", path}).output;
    const std::string decomposed = runExample("textstat", {"--find", "cafe\u0301", path}).output;
    EXPECT_NE(composed.find("  \"caf\u00E9\": 8 in this case, 8 in any case\n"), std::string::npos) << composed;
    EXPECT_NE(decomposed.find("  \"cafe\u0301\": 8 in this case, 8 in any case\n"), std::string::npos) << decomposed;
}

TEST(CalculatorExample, PrintsValuesWithTheirTypes) {
    const ProgramResult result = runExample("calculator", {},
                                            "' a comment\n"
                                            "\n"
                                            "2 + 3 * 4\n"
                                            "7 / 2\n"
                                            "7 / 2.0\n"
                                            "7.9 \\ 2\n"
                                            "1.5! + 2\n"
                                            "2 + 1.5!\n"
                                            "&HFF Shl 4\n"
                                            "width = 12\n"
                                            "WIDTH * 2 >= 24\n"
                                            "not width = 13 andalso true\n"
                                            "\"ab\" & 5 & True\n"
                                            "-(-7 Mod 2)\n"
                                            "Mid(\"harbour\", 2, 3)\n"
                                            "say = \"a \"\"b\"\"\"\n"
                                            "Round(2.5, 0)\n");
    EXPECT_EQ(result.output, "2 + 3 * 4 → 14 (Integer)\n"
                             "7 / 2 → 3 (Integer)\n"
                             "7 / 2.0 → 3.5 (Double)\n"
                             "7.9 \\ 2 → 3 (Integer)\n"
                             "1.5! + 2 → 3.5 (Double)\n"
                             "2 + 1.5! → 3.5 (Single)\n"
                             "&HFF Shl 4 → 4080 (Integer)\n"
                             "width = 12 → 12 (Integer)\n"
                             "WIDTH * 2 >= 24 → 1 (Boolean)\n"
                             "not width = 13 andalso true → 1 (Boolean)\n"
                             "\"ab\" & 5 & True → \"ab51\" (NSMutableString)\n"
                             "-(-7 Mod 2) → 1 (Integer)\n"
                             "Mid(\"harbour\", 2, 3) → \"rbo\" (NSMutableString)\n"
                             "say = \"a \"\"b\"\"\" → \"a \"b\"\" (NSMutableString)\n"
                             "Round(2.5, 0) → 2 (Integer)\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
}

TEST(CalculatorExample, ReportsFileOperationAndLineAndGoesOn) {
    const TemporaryFolder folder;
    const std::string path = folder.write("calc.txt", "1 + 1\n"
                                                      "5 - \"ab\"\n"
                                                      "  2 * (3 + 4\r\n"
                                                      "At(\"abc\", 3)\n"
                                                      "10 \\ 0\n"
                                                      "Lenght(\"abc\")\n"
                                                      "2 + heigth\n"
                                                      "1 2\n"
                                                      "\"open\n"
                                                      "Len(5)\n"
                                                      "&HG\n"
                                                      "6 * 7\n");
    const ProgramResult result = runExample("calculator", {path});
    EXPECT_EQ(result.output, "1 + 1 → 2 (Integer)\n6 * 7 → 42 (Integer)\n");
    EXPECT_EQ(result.errors,
              "calc.txt:2: in -: VLCastException: Number expected\n"
              "calc.txt:3: in Parser: SyntaxError: column 13: ')' expected\n"
              "calc.txt:4: in At: VLException: 'At': Trying to read out of boundary\n"
              "calc.txt:5: in \\: VLException: \\: division of 10 by zero\n"
              "calc.txt:6: in Parser: SyntaxError: column 1: there is no function named Lenght\n"
              "calc.txt:7: in Parser: SyntaxError: column 5: there is no variable named heigth\n"
              "calc.txt:8: in Parser: SyntaxError: column 3: the end of the line or an operator expected\n"
              "calc.txt:9: in Parser: SyntaxError: column 1: the string has no end\n"
              "calc.txt:10: in Len: VLCastException: 'String' expected\n"
              "calc.txt:11: in Parser: SyntaxError: column 3: a hexadecimal digit expected\n");
    EXPECT_EQ(result.status, 1);
}

TEST(CalculatorExample, StopsAtExpressionsThatAreNestedTooDeeply) {
    const ProgramResult result = runExample("calculator", {}, std::string(100000, '(') + "\n1 + 1\n");
    EXPECT_EQ(result.output, "1 + 1 → 2 (Integer)\n");
    EXPECT_EQ(result.errors, "input:1: in Parser: SyntaxError: column 202: nested too deeply\n");
    EXPECT_EQ(result.status, 1);
}

TEST(CalculatorExample, EvaluatesItsSample) {
    const std::string path = std::string(VELT_SOURCE_FOLDER) + "/Examples/calculator/sample.txt";
    const ProgramResult result = runExample("calculator", {path});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 32) << result.output;
    EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 8) << result.errors;
}

TEST(MandelbrotExample, DrawsTheSet) {
    const ProgramResult result = runExample("mandelbrot", {"20", "10", "50"});
    EXPECT_EQ(result.output, ",,,::;;;;;--%=-;::::\n"
                             ",,:;;;;;--=++@=-;;::\n"
                             ",,;;;;--=+     ++;;:\n"
                             ",:;--+%.%       +-;;\n"
                             ",--+*:          +-;;\n"
                             ",--+*:          +-;;\n"
                             ",:;--+%.%       +-;;\n"
                             ",,;;;;--=+     ++;;:\n"
                             ",,:;;;;;--=++@=-;;::\n"
                             ",,,::;;;;;--%=-;::::\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
}

TEST(MandelbrotExample, RefusesAPictureWithoutWidth) {
    const ProgramResult result = runExample("mandelbrot", {"0"});
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "mandelbrot: WIDTH, HEIGHT and ITERATIONS are numbers from 1 on\n");
    EXPECT_EQ(result.status, 2);
}

TEST(LifeExample, AGliderMovesOneCellDownAndRightInFourGenerations) {
    const TemporaryFolder folder;
    const std::string path = folder.write("glider.txt", ".#....\n..#...\n###...\n......\n......\n");
    const ProgramResult result = runExample("life", {"4", path});
    EXPECT_EQ(result.output, "Generation 0, population 5\n"
                             ".#....\n"
                             "..#...\n"
                             "###...\n"
                             "......\n"
                             "......\n"
                             "Generation 4, population 5\n"
                             "......\n"
                             "..#...\n"
                             "...#..\n"
                             ".###..\n"
                             "......\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
}

TEST(LifeExample, NamesAPatternThatCannotBeRead) {
    const ProgramResult result = runExample("life", {"4", "/no/such/pattern"});
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "life: cannot read /no/such/pattern: ReadString failed\n");
    EXPECT_EQ(result.status, 1);
}

TEST(RunnerExample, ShowsEachPieceWithItsTimeAndEndsWithTheCommandsStatus) {
    const ProgramResult result =
        runExample("runner", {"sh", "-c", "echo one; echo two; sleep 0.1; echo three >&2; exit 3"});
    const std::string shown = std::regex_replace(result.output, std::regex("(^|\n) +[0-9]+\\.[0-9]{3} "), "$1");
    EXPECT_EQ(shown, "run sh -c echo one; echo two; sleep 0.1; echo three >&2; exit 3\n"
                     "out one\nout two\nerr three\nend status 3\n")
        << result.output;
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 3);
}

TEST(RunnerExample, ShowsThatACommandIsMissing) {
    const ProgramResult result = runExample("runner", {"/no/such/command"});
    EXPECT_NE(result.output.find("No such file or directory"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("end status 127"), std::string::npos) << result.output;
    EXPECT_EQ(result.status, 127);
}

TEST(RunnerExample, EndsTheCommandAtTheSecondInterrupt) {
    // The command, deaf to interrupts, sends both itself.
    const ProgramResult result =
        runExample("runner", {"sh", "-c", "trap '' INT; kill -INT $PPID; sleep 0.3; kill -INT $PPID; exec sleep 60"});
    EXPECT_NE(result.output.find("int once more ends it"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("int ending it"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("end status 15"), std::string::npos) << result.output;
    EXPECT_EQ(result.status, 15);
}

TEST(RunnerExample, NeedsACommand) {
    const ProgramResult result = runExample("runner");
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "usage: runner COMMAND [ARGUMENT...]\n");
    EXPECT_EQ(result.status, 2);
}

TEST(BuilderExample, BuildsAProgramThatRuns) {
    const TemporaryFolder folder;
    folder.write("main.bas", "Sub Main\n  Call Greet\nEnd Sub\n");
    folder.write("greet.bas", "' says so\nSub Greet\n  Print \"Hello\"\nEnd Sub\n");
    const std::string root = folder.file("");
    const ProgramResult result = runExample("builder", {root.substr(0, root.size() - 1)});
    EXPECT_EQ(result.output.substr(result.output.find('\n') + 1),
              "greet translate: ok\ngreet header: ok\ngreet compile: ok\n"
              "main translate: ok\nmain header: ok\nmain compile: ok\nlink: ok\nBuilt " +
                  root + "build/program\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(velt::test::runPath(folder.file("build/program"), {}, "").output, "Hello\n");
}

TEST(BuilderExample, ShowsTheDiagnosticsOfASourceThatFails) {
    const TemporaryFolder folder;
    folder.write("main.bas", "Sub Main\n  Prnt \"Hello\"\n\n  Goto 5\nEnd Sub\n");
    const std::string root = folder.file("");
    const ProgramResult result = runExample("builder", {root.substr(0, root.size() - 1)});
    EXPECT_EQ(result.output.substr(result.output.find('\n') + 1), "main translate: failed\n"
                                                                  "  main.bas:2: not understood: Prnt \"Hello\"\n"
                                                                  "  main.bas:4: not understood: Goto 5\n"
                                                                  "1 failed\n");
    EXPECT_EQ(result.status, 1);
}

namespace {

/// The procedure that each line of a BASIC source belongs to, "Class.Method" in a class; empty outside.
std::vector<std::string> scopesOf(const std::string& source) {
    static const std::regex beginOfClass("^Class (\\w+)"), begin("^ *(?:Sub|Function) (\\w+)"),
        end("^ *End (?:Sub|Function)$");
    std::vector<std::string> scopes{""};
    std::istringstream lines(source);
    std::string line, cls, scope;
    while (std::getline(lines, line)) {
        std::smatch found;
        if (std::regex_search(line, found, beginOfClass)) cls = found.str(1) + ".";
        if (std::regex_search(line, found, begin)) scope = cls + found.str(1);
        scopes.push_back(scope);
        if (std::regex_search(line, end)) scope.clear();
        if (line == "End Class") cls.clear();
    }
    return scopes;
}

const std::filesystem::path kExamples = std::filesystem::path(VELT_SOURCE_FOLDER) / "Examples";

}  // namespace

TEST(ExamplePrograms, RecordPositionsThatExistInTheirSources) {
    const std::regex call("VELTS\\(\"([^\"]*)\", \"([^\"]*)\", \"([0-9]+)\", \"\"\\)");
    std::size_t programs = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kExamples)) {
        std::filesystem::path source = entry.path();
        if (source.extension() != ".cpp") continue;
        const std::string code = contentOf(source.string());
        source.replace_extension(".bas");
        if (!std::filesystem::exists(source)) continue;
        const std::vector<std::string> scopes = scopesOf(contentOf(source.string()));
        std::size_t calls = 0;
        for (std::sregex_iterator i(code.begin(), code.end(), call), end; i != end; ++i, ++calls) {
            const std::size_t line = std::stoul(i->str(3));
            EXPECT_EQ(i->str(1), source.filename().string());
            ASSERT_LT(line, scopes.size()) << i->str();
            EXPECT_EQ(i->str(2), scopes[line]) << i->str();
        }
        EXPECT_GT(calls, 0u) << source;
        ++programs;
    }
    EXPECT_GT(programs, 30u);
}

TEST(ExamplePrograms, AreDescribedInTheThirdLineOfTheirReadme) {
    for (const auto& entry : std::filesystem::directory_iterator(kExamples)) {
        if (!entry.is_directory() || entry.path().filename() == "support") continue;
        std::ifstream readme(entry.path() / "README.md");
        std::string line;
        for (int i = 0; i < 3; ++i) std::getline(readme, line);
        EXPECT_TRUE(line.ends_with('.')) << entry.path() << ": " << line;
    }
}
