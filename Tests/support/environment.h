// Environment variables of the tests' process, which the programs that it starts get.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace velt::test {

/// An environment variable that has a value, or is not set when there is none, while this object lives.
class EnvironmentVariable {
public:
    EnvironmentVariable(std::string name, const std::optional<std::string>& value) : name_(std::move(name)) {
        if (const char* old = std::getenv(name_.c_str())) before_ = old;
        set(value);
    }
    ~EnvironmentVariable() { set(before_); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void set(const std::optional<std::string>& value) const {
        value ? setenv(name_.c_str(), value->c_str(), 1) : unsetenv(name_.c_str());
    }

    std::string name_;
    std::optional<std::string> before_;
};

}  // namespace velt::test
