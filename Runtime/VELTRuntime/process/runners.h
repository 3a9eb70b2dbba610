// Programs that are run to their end, the toolchain's steps among them; where the toolchain lies; the processor; the
// run loop.
//
// A runner starts a process, waits for its end and only then reads what it wrote: a process that writes more than a
// pipe holds (64 KB) to a captured stream waits for ever. Programs rely on it. Text that is not UTF-8 becomes U+FFFD.
// A process that cannot be started raises "NSInvalidArgumentException" with the path and the system's reason. The exit
// status is not reported.
#pragma once

#include "VELTRuntime/values/value.h"

/// Runs an executable, with arguments (through VELT_CARRAY), and returns what it wrote to standard error as a new
/// string; its output goes to this program's own. Raises "'String' expected" unless the path is a string.
VELT_EXPORT id VELT_RUN(const id& path);
VELT_EXPORT id VELT_RUN(const id& path, const id& arguments);

/// Runs a shell command or script and returns a new string of all its output followed by all its errors. A command
/// whose first line holds ".sh" is the path of a script, run by /bin/sh with the arguments (nil: none); any other is a
/// command line, run by a login shell with the arguments behind it and nothing to read. Raises "'String' expected"
/// unless the command is a string.
VELT_EXPORT id VELT_BASH(const id& command, const id& arguments);

/// The steps of the toolchain in the folder "Compiler" beside the executable: the translator "velt" and the scripts
/// "objc_header.sh", "objc_compile.sh" and "linker.sh". They return what the step wrote to standard error, empty when
/// all is well. A script's path is inserted in front of the caller's own array. Programs rely on it.
VELT_EXPORT id VELT_VELTRUNVELTCOMPILE(const id& arguments);
VELT_EXPORT id VELT_VELTRUNOBJCHEADER(const id& arguments);
VELT_EXPORT id VELT_VELTRUNOBJCCOMPILE(const id& arguments);
VELT_EXPORT id VELT_VELTRUNOBJCLINKER(const id& arguments);

/// New strings: the executable's folder; "Runtime" in it; "Examples" in the main bundle's resource folder.
VELT_EXPORT id VELT_VELTBINARYPATH();
VELT_EXPORT id VELT_VELTRUNTIMEPATH();
VELT_EXPORT id VELT_VELTEXAMPLESPATH();

/// New string: the processor's usual name, such as "x86_64" or "arm64".
VELT_EXPORT id VELT_ARCH();

/// Runs this thread's run loop for some seconds (through VELT_CDOUBLE): timers, notifications, delayed messages and the
/// output of tasks are delivered meanwhile. May be nested. Returns nil.
VELT_EXPORT id VELT_DORUNLOOP(const id& seconds);
