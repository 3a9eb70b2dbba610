// A variable that has another value for a while.
#pragma once

#include <utility>

namespace velt {

/// While it exists, a variable has a value; then it has the one from before again, however the block is left.
template <class T> class Setting {
public:
    Setting(T& variable, T value) : variable_(variable), before_(std::exchange(variable, std::move(value))) {}
    ~Setting() { variable_ = std::move(before_); }
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

private:
    T& variable_;
    T before_;
};

}  // namespace velt
