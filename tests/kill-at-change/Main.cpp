// SPDX-License-Identifier: MIT
//
// kill-at-change NUMBER RECORD PROGRAM [ARGUMENT...]
//
// Runs a program and kills it just before its NUMBERth change to the file system, counted over all
// its threads. RECORD gets a line when it is over: "killed", or "ended" and the number of changes
// that it made. The exit status is 77 when programs cannot be traced here.
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <fstream>

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int untraceable = 77;

bool opensForWriting(std::uint64_t flags)
{
    return (flags & O_ACCMODE) != O_RDONLY || (flags & O_CREAT) != 0;
}

bool isChange(const __ptrace_syscall_info& info)
{
    const auto& arguments = info.entry.args;
    switch (info.entry.nr) {
#ifdef SYS_open
    case SYS_open:
        return opensForWriting(arguments[1]);
    case SYS_mkdir:
    case SYS_rename:
    case SYS_unlink:
    case SYS_rmdir:
    case SYS_link:
    case SYS_symlink:
    case SYS_chmod:
#endif
    case SYS_mkdirat:
    case SYS_renameat:
    case SYS_renameat2:
    case SYS_unlinkat:
    case SYS_linkat:
    case SYS_symlinkat:
    case SYS_setxattr:
    case SYS_lsetxattr:
    case SYS_fsetxattr:
    case SYS_utimensat:
    case SYS_fchmod:
    case SYS_fchmodat:
    case SYS_ftruncate:
        return true;
    case SYS_openat:
        return opensForWriting(arguments[2]);
    default:
        return false;
    }
}

// The signal that a stop is to be answered with.
int signalToDeliver(int status)
{
    const int signal = WSTOPSIG(status);
    // Of tracing itself: a call, a new thread or program, a thread's first stop.
    const bool isOfTracing = signal == (SIGTRAP | 0x80) || signal == SIGTRAP || signal == SIGSTOP;
    return isOfTracing ? 0 : signal;
}

[[noreturn]] void becomeProgram(char** command)
{
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
        _exit(untraceable);
    raise(SIGSTOP);
    execvp(command[0], command);
    _exit(127);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4)
        return 2;
    const long number = std::strtol(argv[1], nullptr, 10);
    const pid_t program = fork();
    if (program == 0)
        becomeProgram(argv + 3);

    int status = 0;
    waitpid(program, &status, 0);
    if (!WIFSTOPPED(status))
        return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
    constexpr long options =
        PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_TRACEEXEC | PTRACE_O_EXITKILL;
    ptrace(PTRACE_SETOPTIONS, program, nullptr, options);
    ptrace(PTRACE_SYSCALL, program, nullptr, nullptr);

    long changes = 0;
    for (;;) {
        const pid_t thread = waitpid(-1, &status, __WALL);
        if (thread < 0 && errno != EINTR)
            return 1;
        if (thread == program && (WIFEXITED(status) || WIFSIGNALED(status)))
            break;
        if (thread < 0 || !WIFSTOPPED(status))
            continue;
        __ptrace_syscall_info info = {};
        if (WSTOPSIG(status) == (SIGTRAP | 0x80) &&
            ptrace(PTRACE_GET_SYSCALL_INFO, thread, sizeof info, &info) > 0 &&
            info.op == PTRACE_SYSCALL_INFO_ENTRY && isChange(info) && ++changes == number) {
            kill(program, SIGKILL);
            continue;
        }
        ptrace(PTRACE_SYSCALL, thread, nullptr, signalToDeliver(status));
    }
    std::ofstream record(argv[2], std::ios::app);
    if (WIFSIGNALED(status))
        record << "killed\n";
    else
        record << "ended " << changes << '\n';
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
