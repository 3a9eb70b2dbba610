// NSException: the one type of failure, with the position of the statement that failed; and its report.
#pragma once

#include "VELTRuntime/export.h"

#include <exception>
#include <memory>
#include <string>
#include <string_view>

/// A run-time failure: a name that says what kind it is, a reason for a person, and the position record at the
/// moment it was raised. Thrown by value; copying is cheap and does not fail.
class VELT_EXPORT NSException : public std::exception {
public:
    /// Takes the current position record. Texts are UTF-8.
    NSException(std::string_view name, std::string_view reason);
    NSException(const NSException&) noexcept = default;
    NSException& operator=(const NSException&) noexcept = default;
    ~NSException() override;

    const std::string& name() const noexcept;
    const std::string& reason() const noexcept;
    /// Source file, scope and line of the statement; empty when it was raised before the first one.
    const std::string& file() const noexcept;
    const std::string& scope() const noexcept;
    const std::string& line() const noexcept;
    /// "name: reason".
    const char* what() const noexcept override;

private:
    struct Text;
    std::shared_ptr<const Text> text_;
};

namespace velt {

inline constexpr std::string_view kCastException = "VLCastException";
inline constexpr std::string_view kRuntimeException = "VLException";
inline constexpr std::string_view kRangeException = "NSRangeException";
inline constexpr std::string_view kInvalidArgumentException = "NSInvalidArgumentException";
inline constexpr std::string_view kInternalInconsistencyException = "NSInternalInconsistencyException";

/// Raises an NSException of that name and reason (UTF-8).
[[noreturn]] VELT_EXPORT void raise(std::string_view name, std::string_view reason);
/// Raises "VLCastException": a value of the wrong kind. The reason is the whole text.
[[noreturn]] VELT_EXPORT void raiseCast(std::string_view reason);
/// Raises "NSRangeException": what was asked of what, the index and the count that it has to stay below.
[[noreturn]] VELT_EXPORT void raiseRange(std::string_view operation, long long index, std::size_t count);
/// The same for so many units from a location on: the index is their end.
[[noreturn]] VELT_EXPORT void raiseRange(std::string_view operation, std::size_t location, std::size_t length,
                                         std::size_t count);

/// One line about an uncaught exception: "file:line: in scope: name: reason", without the position when there is
/// none.
VELT_EXPORT std::string reportText(const NSException& exception);
/// Writes the exception being handled to standard error; call it inside a catch clause.
VELT_EXPORT void reportCurrentException() noexcept;
/// The same, and ends the process with a failure status: nobody is there to catch it.
[[noreturn]] VELT_EXPORT void endWithCurrentException() noexcept;

/// Runs a program's main function. An exception that leaves it is reported on standard error and gives a failure
/// status. Returns the status for the operating system.
VELT_EXPORT int runProgram(int (*program)(int, char**), int argumentCount, char** arguments);

}  // namespace velt
