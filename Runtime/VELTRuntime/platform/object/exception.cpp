#include "VELTRuntime/platform/object/exception.h"

#include "VELTRuntime/platform/object/callback_failure.h"
#include "VELTRuntime/values/position.h"

#include <cstdio>
#include <cstdlib>
#include <limits>

struct NSException::Text {
    std::string name, reason, file, scope, line, what;
};

NSException::NSException(std::string_view name, std::string_view reason)
    : text_(std::make_shared<const Text>(Text{std::string(name), std::string(reason), META_acCurrentFile,
                                              META_acCurrentScope, META_acCurrentLine,
                                              std::string(name) + ": " + std::string(reason)})) {}

NSException::~NSException() = default;

const std::string& NSException::name() const noexcept { return text_->name; }
const std::string& NSException::reason() const noexcept { return text_->reason; }
const std::string& NSException::file() const noexcept { return text_->file; }
const std::string& NSException::scope() const noexcept { return text_->scope; }
const std::string& NSException::line() const noexcept { return text_->line; }
const char* NSException::what() const noexcept { return text_->what.c_str(); }

namespace velt {

void raise(std::string_view name, std::string_view reason) { throw NSException(name, reason); }

void raiseCast(std::string_view reason) { raise(kCastException, reason); }

void raiseRange(std::string_view operation, long long index, std::size_t count) {
    raise(kRangeException, std::string(operation) + ": index " + std::to_string(index) +
                               " is out of range; the count is " + std::to_string(count));
}

void raiseRange(std::string_view operation, std::size_t location, std::size_t length, std::size_t count) {
    constexpr std::size_t kMost = std::numeric_limits<long long>::max();
    std::size_t end = 0;
    if (__builtin_add_overflow(location, length, &end) || end > kMost) end = kMost;
    raiseRange(operation, static_cast<long long>(end), count);
}

namespace {

std::string located(std::string_view file, std::string_view scope, std::string_view line, const char* what) {
    std::string text;
    if (!file.empty() || !line.empty()) {
        text.append(file).append(":").append(line).append(": ");
        if (!scope.empty()) text.append("in ").append(scope).append(": ");
    }
    return text.append(what);
}

void writeReport(const std::string& text) noexcept {
    std::fflush(stdout);  // what the program wrote before it failed comes first
    std::fprintf(stderr, "%s\n", text.c_str());
    std::fflush(stderr);
}

std::terminate_handler previousHandler = nullptr;

/// An exception that no frame catches ends here: ours are reported, all others are left to the handler before.
[[noreturn]] void reportAndEnd() {
    if (const std::exception_ptr current = std::current_exception()) {
        try {
            std::rethrow_exception(current);
        } catch (const NSException&) {
            velt::endWithCurrentException();
        } catch (...) {
        }
    }
    if (previousHandler) previousHandler();
    std::abort();
}

[[maybe_unused]] const bool handlerInstalled = [] {
    previousHandler = std::set_terminate(reportAndEnd);
    return true;
}();

}  // namespace

std::string reportText(const NSException& exception) {
    return located(exception.file(), exception.scope(), exception.line(), exception.what());
}

void reportCurrentException() noexcept {
    try {
        throw;
    } catch (const NSException& exception) {
        writeReport(reportText(exception));
    } catch (const std::exception& exception) {
        writeReport(located(META_acCurrentFile, META_acCurrentScope, META_acCurrentLine, exception.what()));
    } catch (...) {
        writeReport(
            located(META_acCurrentFile, META_acCurrentScope, META_acCurrentLine, "an exception of unknown type"));
    }
}

void endWithCurrentException() noexcept {
    reportCurrentException();
    std::_Exit(EXIT_FAILURE);
}

int runProgram(int (*program)(int, char**), int argumentCount, char** arguments) {
    try {
        return statusAfterCallbacks(program(argumentCount, arguments));
    } catch (...) {
        reportCurrentException();
        return EXIT_FAILURE;
    }
}

}  // namespace velt
