// A file descriptor that is closed with its scope.
#pragma once

#include <unistd.h>
#include <utility>

namespace velt {

class Descriptor {
public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int value() const { return value_; }
    explicit operator bool() const { return value_ >= 0; }
    /// False when the system could not keep what was written.
    bool close() {
        const int closing = std::exchange(value_, -1);
        return closing < 0 || ::close(closing) == 0;
    }

private:
    int value_;
};

}  // namespace velt
