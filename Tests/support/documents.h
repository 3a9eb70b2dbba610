// Documents whose code is compiled: every block of C++ that they show stands in a source file.
#pragma once

#include "support/processes.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <string_view>

namespace velt::test {

inline std::string withoutSpace(std::string_view text) {
    std::string result;
    for (char c : text) {
        if (c != ' ' && c != '\n' && c != '\t') result += c;
    }
    return result;
}

/// Expects every block of C++ of a document in a source file, but for white space, and returns how many there are.
/// Both paths are seen from the root of the tree.
inline std::size_t blocksFoundIn(const std::string& document, const std::string& source) {
    const std::string root = VELT_SOURCE_FOLDER "/";
    const std::string code = withoutSpace(contentOf(root + source));
    std::istringstream lines(contentOf(root + document));
    std::size_t blocks = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line != "```cpp") continue;
        std::string block;
        while (std::getline(lines, line) && line != "```") block += line + "\n";
        EXPECT_NE(code.find(withoutSpace(block)), std::string::npos) << block;
        ++blocks;
    }
    return blocks;
}

}  // namespace velt::test
