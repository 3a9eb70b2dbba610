// Runs programs as child processes and keeps all that they write.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace velt::test {

/// A folder that is removed with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "velt-tests-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string file(const std::string& name) const { return path_ + "/" + name; }
    /// Writes a file into the folder and returns its path.
    std::string write(const std::string& name, const std::string& text) const {
        std::ofstream(file(name), std::ios::binary) << text;
        return file(name);
    }

private:
    std::string path_;
};

inline std::string contentOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

struct ProgramResult {
    int status = -1;  // exit status, or -1 when a signal ended the program
    std::string output, errors;
};

/// Runs a program with arguments and a text as its standard input.
inline ProgramResult runPath(const std::string& program, const std::vector<std::string>& arguments,
                             const std::string& input) {
    const TemporaryFolder folder;
    const std::string in = folder.write("in", input), out = folder.file("out"), err = folder.file("err");
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);

    const pid_t child = fork();
    if (child == 0) {
        if (std::freopen(in.c_str(), "r", stdin) && std::freopen(out.c_str(), "w", stdout) &&
            std::freopen(err.c_str(), "w", stderr)) {
            execv(program.c_str(), words.data());
        }
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(out), contentOf(err)};
}

/// Runs one of the examples.
inline ProgramResult runExample(const std::string& name, const std::vector<std::string>& arguments = {},
                                const std::string& input = "") {
    return runPath((std::filesystem::path(VELT_EXAMPLE_PROGRAMS) / name).string(), arguments, input);
}

/// Runs one of the tests' own programs.
inline ProgramResult runProgram(const std::string& name, const std::vector<std::string>& arguments = {}) {
    return runPath((std::filesystem::path(VELT_TEST_PROGRAMS) / name).string(), arguments, "");
}

}  // namespace velt::test
