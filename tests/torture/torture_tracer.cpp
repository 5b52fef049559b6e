// Runs a program and meets its system calls with faults. They are counted over all threads, from the first one on that
// names a path below ARM. Usage: torture_tracer SOCKET ARM FAULT... -- PROGRAM ARGUMENT...
//   kill@N, term@N    the program gets the signal at its N-th call
//   stop@N            the line "stop N" goes to SOCKET, and all waits there for a byte
//   CALL@N=ERROR      the N-th call of that kind is not made and answers the error (a number), unless it asks the
//                     system about itself: without knowing its own machine, a process cannot be told from a living one
// Each fault that struck is a line "did FAULT" on SOCKET, "end CALLS" is the last one. Ends as the program ended; 125
// where processes may not be traced.
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <string>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// An architecture whose registers are not known here cannot have a call failed.
#if defined(__x86_64__)
namespace {

#define CALL(name)                                                                                                     \
    { #name, SYS_##name } // NOLINT: no function makes a text of a name
const std::map<std::string, std::uint64_t> callNumbers{
    CALL(openat),    CALL(close),     CALL(pread64), CALL(pwrite64),   CALL(ioctl),      CALL(copy_file_range),
    CALL(fsync),     CALL(fdatasync), CALL(syncfs),  CALL(linkat),     CALL(renameat),   CALL(renameat2),
    CALL(unlinkat),  CALL(mkdirat),   CALL(fchmod),  CALL(fchown),     CALL(utimensat),  CALL(newfstatat),
    CALL(fstat),     CALL(statx),     CALL(fstatfs), CALL(getdents64), CALL(flistxattr), CALL(fgetxattr),
    CALL(fsetxattr), CALL(lseek),     CALL(fcntl),   CALL(clone3)};

struct Fault {
    std::string text;
    std::string kind;
    std::uint64_t at = 0;
    int error = 0;
};

class Tracer final {
  public:
    Tracer(int socket, std::string arm) : m_socket(socket), m_arm(std::move(arm)) {}

    void Add(const std::string& text) {
        const std::size_t at = text.find('@');
        const std::size_t equals = text.find('=');
        m_faults.push_back({text, text.substr(0, at), std::stoull(text.substr(at + 1)),
                            equals == std::string::npos ? 0 : std::stoi(text.substr(equals + 1))});
    }

    int Run(char** program) {
        m_leader = ::fork();
        if (m_leader == 0) {
            if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
                ::_exit(125);
            ::raise(SIGSTOP);
            ::execvp(program[0], program);
            ::_exit(127);
        }
        int status = 0;
        ::waitpid(m_leader, &status, 0);
        if (!WIFSTOPPED(status))
            return 125;
        ::ptrace(PTRACE_SETOPTIONS, m_leader, nullptr,
                 PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_TRACEEXEC | PTRACE_O_EXITKILL);
        ::ptrace(PTRACE_SYSCALL, m_leader, nullptr, nullptr);
        int end = 0;
        for (pid_t task = 0; (task = ::waitpid(-1, &status, __WALL)) > 0;) {
            if (WIFSTOPPED(status))
                ::ptrace(PTRACE_SYSCALL, task, nullptr, onStop(task, status));
            else if (task == m_leader)
                end = status;
        }
        tell("end " + std::to_string(m_calls));
        if (WIFSIGNALED(end)) {
            ::signal(WTERMSIG(end), SIG_DFL);
            ::raise(WTERMSIG(end));
        }
        return WEXITSTATUS(end);
    }

  private:
    void tell(const std::string& line) const {
        if (::write(m_socket, (line + '\n').c_str(), line.size() + 1) < 0)
            std::abort();
    }

    /// The signal that the task goes on with.
    std::uintptr_t onStop(pid_t task, int status) {
        const int signal = WSTOPSIG(status);
        if (signal != (SIGTRAP | 0x80)) // NOLINT: what the system marks system calls with
            return signal == SIGTRAP || signal == SIGSTOP ? 0 : static_cast<std::uintptr_t>(signal);
        struct __ptrace_syscall_info call {};
        ::ptrace(PTRACE_GET_SYSCALL_INFO, task, sizeof call, &call);
        if (call.op == PTRACE_SYSCALL_INFO_ENTRY) {
            m_isArmed = m_isArmed || names(m_arm, task, call);
            if (m_isArmed)
                onCall(task, call);
        } else if (const auto found = m_answers.find(task); found != m_answers.end()) {
            setRegister(task, &user_regs_struct::rax, static_cast<unsigned long long>(-found->second));
            m_answers.erase(found);
        }
        return 0;
    }

    /// The call names a path that begins like that.
    [[nodiscard]] static bool names(const std::string& start, pid_t task, const struct __ptrace_syscall_info& call) {
        if (call.entry.nr != SYS_openat && call.entry.nr != SYS_newfstatat && call.entry.nr != SYS_statx)
            return false;
        std::string path(start.size(), '\0');
        const struct iovec here { path.data(), path.size() };
        const struct iovec there {
            reinterpret_cast<void*>(call.entry.args[1]), path.size() // NOLINT: an address over there
        };
        return ::process_vm_readv(task, &here, 1, &there, 1, 0) > 0 && path == start;
    }

    void onCall(pid_t task, const struct __ptrace_syscall_info& call) {
        const std::uint64_t number = call.entry.nr;
        const bool isAboutSystem = names("/proc/", task, call) || names("/etc/", task, call);
        ++m_calls;
        const std::uint64_t ofKind = ++m_ofKind[number];
        for (const Fault& fault : m_faults) {
            const auto kind = callNumbers.find(fault.kind);
            const bool isCall = kind != callNumbers.end();
            if (fault.at != (isCall ? ofKind : m_calls) || (isCall && (kind->second != number || isAboutSystem)))
                continue;
            if (fault.kind == "stop") {
                tell("stop " + std::to_string(m_calls));
                char go = 0;
                if (::read(m_socket, &go, 1) != 1)
                    std::abort();
                continue;
            }
            tell("did " + fault.text);
            if (isCall) {
                setRegister(task, &user_regs_struct::orig_rax, ~0ULL); // no such call
                m_answers[task] = fault.error;
            } else {
                ::kill(m_leader, fault.kind == "kill" ? SIGKILL : SIGTERM);
            }
        }
    }

    static void setRegister(pid_t task, unsigned long long user_regs_struct::*which, unsigned long long value) {
        struct user_regs_struct registers {};
        ::ptrace(PTRACE_GETREGS, task, nullptr, &registers);
        registers.*which = value;
        ::ptrace(PTRACE_SETREGS, task, nullptr, &registers);
    }

    const int m_socket;
    const std::string m_arm;
    std::vector<Fault> m_faults;
    pid_t m_leader = 0;
    bool m_isArmed = false;
    std::uint64_t m_calls = 0;
    std::map<std::uint64_t, std::uint64_t> m_ofKind;
    std::map<pid_t, int> m_answers;
};

} // namespace

int main(int count, char** words) {
    int next = 3;
    if (count < 5)
        return 2;
    const int socket = std::atoi(words[1]); // NOLINT(cert-err34-c): our own script calls
    ::fcntl(socket, F_SETFD, FD_CLOEXEC);
    Tracer tracer(socket, words[2]);
    for (; next < count && std::strcmp(words[next], "--") != 0; ++next)
        tracer.Add(words[next]);
    return next + 1 < count ? tracer.Run(words + next + 1) : 2;
}
#else
int main() {
    return 125;
}
#endif
