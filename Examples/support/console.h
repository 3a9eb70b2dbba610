// What the examples need from outside the language: standard output and input, arguments, the working folder.
#pragma once

#include "VELTRuntime/VELTRuntime.h"

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>

namespace example {

/// Writes a value's text and a line feed to standard output.
inline void print(const id& value) { std::puts(velt::utf8(VELT_CSTRING(value)).c_str()); }

/// Writes a value's text and a line feed to standard error, after what was printed before.
inline void printError(const id& value) {
    std::fflush(stdout);
    std::fprintf(stderr, "%s\n", velt::utf8(VELT_CSTRING(value)).c_str());
}

/// The next line of standard input without its line feed; nil at the end.
inline id readLine() {
    std::string line;
    return std::getline(std::cin, line) ? velt::string(line) : nil;
}

/// The program's arguments as an array of strings, without its name.
inline id argumentList(int count, char** arguments) {
    id list = velt::make<NSMutableArray>();
    for (int i = 1; i < count; ++i) VELT_NSMUTABLEARRAY_APPEND(list, velt::string(arguments[i]));
    return list;
}

/// A location as ReadString takes it: a relative path made absolute, since the language would try it as a URL.
inline id location(const id& path) {
    const std::string text = velt::utf8(path);
    if (text.find("://") != std::string::npos) return path;
    return velt::string((std::filesystem::current_path() / text).string());
}

}  // namespace example
