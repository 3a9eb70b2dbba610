#include "VELTRuntime/platform/foundation/process/program_start.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <linux/sched.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" {
#include <sys/pidfd.h>  // the system's header does not say so itself everywhere
}

// The sanitizers' run-times know the library's way of starting a child, and no other.
#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define VELT_WATCHED_MEMORY
#endif
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VELT_WATCHED_MEMORY
#endif

#if !defined(VELT_WATCHED_MEMORY) && (defined(__x86_64__) || defined(__aarch64__)) && defined(SYS_clone3) &&           \
    defined(SYS_close_range) && defined(CLONE_CLEAR_SIGHAND)
#define VELT_DIRECT_START
#endif

namespace velt {

namespace {

/// The library's own start. Twice the system calls, most of them for signals, and a stack that is mapped and unmapped.
StartResult startThroughLibrary(const StartPlan& plan) {
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&files);
    posix_spawnattr_init(&attributes);
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    const int session = plan.newSession ? POSIX_SPAWN_SETSID : 0;
    posix_spawnattr_setflags(&attributes, static_cast<short>(POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | session));
    for (int target = 0; target < 3; ++target) {
        const int source = plan.standard[static_cast<std::size_t>(target)];
        if (source >= 0) posix_spawn_file_actions_adddup2(&files, source, target);
    }
    posix_spawn_file_actions_addclosefrom_np(&files, 3);
    if (plan.folder) posix_spawn_file_actions_addchdir_np(&files, plan.folder);

    StartResult result;
    result.error = posix_spawn(&result.identifier, plan.path, &files, &attributes, plan.arguments, plan.environment);
    posix_spawn_file_actions_destroy(&files);
    posix_spawnattr_destroy(&attributes);
    if (result.error != 0) return result;
    result.descriptor = ::pidfd_open(result.identifier, 0);
    if (result.descriptor < 0) result.descriptorError = errno;
    return result;
}

#if defined(VELT_DIRECT_START)

using Word = std::uintptr_t;

template <class T> Word word(T* pointer) { return reinterpret_cast<Word>(pointer); }
Word word(int number) { return static_cast<Word>(static_cast<std::intptr_t>(number)); }

/// A call of the system that touches nothing but registers: the child must not write what the parent will go on with,
/// and `errno` is one of these things. Negative errors.
__attribute__((always_inline)) inline long systemCall(long number, Word first = 0, Word second = 0, Word third = 0,
                                                      Word fourth = 0) {
#if defined(__x86_64__)
    long result;
    register Word r10 asm("r10") = fourth;
    asm volatile("syscall"
                 : "=a"(result)
                 : "a"(number), "D"(first), "S"(second), "d"(third), "r"(r10)
                 : "rcx", "r11", "memory");
    return result;
#else
    register long x8 asm("x8") = number;
    register Word x0 asm("x0") = first;
    register Word x1 asm("x1") = second;
    register Word x2 asm("x2") = third;
    register Word x3 asm("x3") = fourth;
    asm volatile("svc #0" : "+r"(x0) : "r"(x8), "r"(x1), "r"(x2), "r"(x3) : "memory");
    return static_cast<long>(x0);
#endif
}

/// A set of signals as the system takes it. Those that the library keeps for itself are among them.
using SignalSet = std::uint64_t;
constexpr std::size_t kSetSize = sizeof(SignalSet);

/// Handled signals are at their defaults already; this is for those that this program ignores.
void resetIgnoredSignals() {
    constexpr int kRealTime = 32;
    for (int number = 1; number < kRealTime; ++number) {
        // The handler comes first in what the system gives and takes, and 0 is the default.
        Word action[8] = {};
        if (systemCall(SYS_rt_sigaction, word(number), 0, word(action), kSetSize) != 0) continue;
        if (action[0] != word(SIG_IGN)) continue;
        const Word standard[8] = {};
        systemCall(SYS_rt_sigaction, word(number), word(standard), 0, kSetSize);
    }
}

long takeStandardStreams(const StartPlan& plan) {
    for (int target = 0; target < 3; ++target) {
        const int source = plan.standard[static_cast<std::size_t>(target)];
        if (source < 0) continue;
        const long result = source == target ? systemCall(SYS_fcntl, word(source), F_SETFD, 0)
                                             : systemCall(SYS_dup3, word(source), word(target), 0);
        if (result < 0) return result;
    }
    return systemCall(SYS_close_range, 3, ~0U, 0);
}

/// All that the child does. It has the parent's memory and uses its stack below what the parent needs of it, while the
/// parent's thread stands still.
[[noreturn]] __attribute__((noinline)) void becomeProgram(const StartPlan& plan, volatile int& error) {
    const SignalSet none = 0;
    resetIgnoredSignals();
    long result = plan.newSession ? systemCall(SYS_setsid) : 0;
    if (result >= 0) result = takeStandardStreams(plan);
    if (result >= 0 && plan.folder) result = systemCall(SYS_chdir, word(plan.folder));
    if (result >= 0) {
        systemCall(SYS_rt_sigprocmask, SIG_SETMASK, word(&none), 0, kSetSize);
        result = systemCall(SYS_execve, word(plan.path), word(plan.arguments), word(plan.environment));
    }
    error = static_cast<int>(-result);
    for (;;) systemCall(SYS_exit_group, 127);
}

/// Returns in the parent alone, once the child has executed or ended. Nothing here may be needed by both.
__attribute__((noinline)) long cloneInto(const clone_args& clone, const StartPlan& plan, volatile int& error) {
    const long result = systemCall(SYS_clone3, word(&clone), sizeof clone);
    if (result == 0) becomeProgram(plan, error);
    return result;
}

bool canCloseRange() {
    static const bool can = systemCall(SYS_close_range, ~0U, ~0U, 0) == 0;
    return can;
}

/// False when the system cannot do it, or forbids it: nothing has happened then.
bool startDirectly(const StartPlan& plan, StartResult& result) {
    static std::atomic<bool> isRefused = false;
    if (isRefused || !canCloseRange()) return false;
    int descriptor = -1;
    clone_args clone{};
    clone.flags = CLONE_VM | CLONE_VFORK | CLONE_PIDFD | CLONE_CLEAR_SIGHAND;
    clone.pidfd = word(&descriptor);
    clone.exit_signal = SIGCHLD;
    volatile int error = 0;
    // No handler of the program may run in the child, on the memory of both.
    const SignalSet all = ~SignalSet{0};
    SignalSet before = 0;
    systemCall(SYS_rt_sigprocmask, SIG_SETMASK, word(&all), word(&before), kSetSize);
    const long identifier = cloneInto(clone, plan, error);
    systemCall(SYS_rt_sigprocmask, SIG_SETMASK, word(&before), 0, kSetSize);
    if (identifier == -ENOSYS || identifier == -EINVAL || identifier == -EPERM) {
        isRefused = true;
        return false;
    }
    if (identifier < 0) {
        result.error = static_cast<int>(-identifier);
        return true;
    }
    result.error = error;
    result.identifier = static_cast<pid_t>(identifier);
    result.descriptor = descriptor;
    if (result.error == 0) return true;
    siginfo_t info;
    while (::waitid(static_cast<idtype_t>(P_PIDFD), static_cast<id_t>(descriptor), &info, WEXITED) < 0 &&
           errno == EINTR) {
    }
    ::close(descriptor);
    return true;
}

#endif

}  // namespace

StartResult startProgram(const StartPlan& plan) {
#if defined(VELT_DIRECT_START)
    StartResult result;
    if (startDirectly(plan, result)) return result;
#endif
    return startThroughLibrary(plan);
}

}  // namespace velt
