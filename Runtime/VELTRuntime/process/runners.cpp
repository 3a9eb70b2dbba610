#include "VELTRuntime/process/runners.h"

#include "VELTRuntime/builtins/string_arguments.h"
#include "VELTRuntime/builtins/strings.h"
#include "VELTRuntime/platform/foundation/array.h"
#include "VELTRuntime/platform/foundation/bundle.h"
#include "VELTRuntime/platform/foundation/descriptor.h"
#include "VELTRuntime/platform/foundation/process/child_process.h"
#include "VELTRuntime/platform/foundation/process/descriptor_io.h"
#include "VELTRuntime/platform/foundation/process/file_handle.h"
#include "VELTRuntime/platform/foundation/run_loop.h"
#include "VELTRuntime/platform/object/exception.h"
#include "VELTRuntime/values/class_casts.h"
#include "VELTRuntime/values/conversions.h"
#include "VELTRuntime/values/string.h"

#include <optional>
#include <string>
#include <sys/utsname.h>
#include <utility>
#include <vector>

using namespace velt;

namespace {

constexpr const char* kShell = "/bin/sh";
enum class Captured { Errors, OutputAndErrors };
enum class Input { OwnStream, Nothing };

/// A pipe whose writing end goes to a child.
class Capture {
public:
    Capture() : ends_(makePipe()), reading_(ends_.reading), writing_(ends_.writing) {}
    int writingEnd() const { return writing_.value(); }
    void closeWritingEnd() { writing_.close(); }
    /// All of it as a new string; a character that the stream breaks off is not completed by another stream.
    id text() const {
        std::string bytes;
        for (;;) {
            const std::string_view piece = readPiece(reading_.value(), "availableData");
            if (piece.empty()) return string(bytes);
            bytes += piece;
        }
    }

private:
    PipeEnds ends_;
    Descriptor reading_, writing_;
};

/// Launch, wait, read: in this order.
id runAndCapture(SpawnRequest request, Captured captured, Input input = Input::OwnStream) {
    std::optional<Capture> output;
    if (captured == Captured::OutputAndErrors) output.emplace();
    Capture errors;
    if (input == Input::Nothing) request.standard[0] = NSFileHandle::nullDevice().fileDescriptor();
    if (output) request.standard[1] = output->writingEnd();
    request.standard[2] = errors.writingEnd();
    ChildProcess child(request);
    if (output) output->closeWritingEnd();
    errors.closeWritingEnd();
    child.wait();
    if (!output) return errors.text();
    const id first = output->text(), second = errors.text();
    return string(std::u16string(textOf(first)).append(textOf(second)));
}

std::vector<std::string> textsOf(const id& arguments) {
    std::vector<std::string> texts;
    if (const NSArray* array = arrayOf(arguments)) {
        for (const id& argument : array->items()) texts.push_back(utf8(VELT_CSTRING(argument)));
    }
    return texts;
}

/// The executable's folder, and what lies in it.
std::string executableFolder() { return utf8(VELT_FILEPATH(string(NSBundle::mainBundle().executablePath()))); }
std::string compilerFile(const char* name) { return executableFolder() + "/Compiler/" + name; }

id runScript(const char* name, const id& arguments) {
    const id array = VELT_CARRAY(arguments);
    const id script = string(compilerFile(name));
    if (NSMutableArray* callers = mutableArrayOf(array)) callers->insert(script, 0);
    SpawnRequest request;
    request.path = kShell;
    request.arguments = array.isNil() ? std::vector{utf8(script)} : textsOf(array);
    return runAndCapture(std::move(request), Captured::Errors);
}

}  // namespace

id VELT_RUN(const id& path) { return VELT_RUN(path, nil); }

id VELT_RUN(const id& path, const id& arguments) {
    requireStrings(path);
    SpawnRequest request;
    request.path = utf8(path);
    request.arguments = textsOf(VELT_CARRAY(arguments));
    return runAndCapture(std::move(request), Captured::Errors);
}

id VELT_BASH(const id& command, const id& arguments) {
    requireStrings(command);
    const std::vector<std::string> given = textsOf(VELT_CARRAY(arguments));
    const std::u16string_view text = textOf(command);
    const bool isScript = text.substr(0, text.find(u'\n')).find(u".sh") != text.npos;
    SpawnRequest request;
    request.path = kShell;
    if (isScript) {
        request.arguments = {utf8(command)};
    } else {
        request.arguments = {"-l", "-c", utf8(command)};
    }
    request.arguments.insert(request.arguments.end(), given.begin(), given.end());
    return runAndCapture(std::move(request), Captured::OutputAndErrors, isScript ? Input::OwnStream : Input::Nothing);
}

id VELT_VELTRUNVELTCOMPILE(const id& arguments) {
    SpawnRequest request;
    request.path = compilerFile("velt");
    request.arguments = textsOf(VELT_CARRAY(arguments));
    return runAndCapture(std::move(request), Captured::Errors);
}

id VELT_VELTRUNOBJCHEADER(const id& arguments) { return runScript("objc_header.sh", arguments); }
id VELT_VELTRUNOBJCCOMPILE(const id& arguments) { return runScript("objc_compile.sh", arguments); }
id VELT_VELTRUNOBJCLINKER(const id& arguments) { return runScript("linker.sh", arguments); }

id VELT_VELTBINARYPATH() { return string(executableFolder()); }
id VELT_VELTRUNTIMEPATH() { return string(executableFolder() + "/Runtime"); }
id VELT_VELTEXAMPLESPATH() { return string(NSBundle::mainBundle().resourcePath() + "/Examples"); }

id VELT_ARCH() {
#if defined(__x86_64__)
    return string("x86_64");
#elif defined(__aarch64__)
    return string("arm64");
#elif defined(__i386__)
    return string("i386");
#elif defined(__arm__)
    return string("arm");
#else
    struct utsname system;
    ::uname(&system);
    return string(system.machine);
#endif
}

id VELT_DORUNLOOP(const id& seconds) {
    RunLoop::current().runUntil(VELT_CDOUBLE(seconds));
    return nil;
}
