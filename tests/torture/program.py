"""One activity of its own, run by the real program in a home of its own, with faults at its system calls."""
import errno
import os
import re
import socket
import subprocess
from pathlib import Path
from typing import NamedTuple

PATIENCE = 120  # seconds; a run that takes longer hangs
COMPLAINT = re.compile(r"fail|error|not found|changed|cannot|ended|stopped|held|nothing was (started|run)", re.IGNORECASE)

# Calls that may fail, and how. What names no file (memory, clocks, waiting) is left alone.
DISK_ERRORS = ["EIO", "ENOSPC", "EACCES", "EINTR", "EMFILE", "EDQUOT", "ESTALE", "EPERM", "EROFS", "ENOMEM"]
CALLS = """openat openat openat close pread64 pwrite64 copy_file_range fsync fdatasync syncfs linkat renameat renameat2
    unlinkat unlinkat mkdirat fchmod fchown utimensat newfstatat newfstatat fstat statx fstatfs getdents64 getdents64
    flistxattr fgetxattr fsetxattr lseek fcntl ioctl clone3""".split()


class Result(NamedTuple):
    code: int  # negative: the signal that ended it
    output: str
    struck: list  # the faults that struck
    calls: int = 0

    def met(self, signal):
        return any(fault.startswith(signal) for fault in self.struck)

    @property
    def complains(self):
        """A run that began writes lines about its work, too."""
        if self.code > 1:
            return bool(self.output.strip())
        lines = (line.removeprefix("Activity 'A' - ") for line in self.output.splitlines())
        return any(COMPLAINT.search(re.sub(r"'.*'", "", line)) for line in lines)


class Program:
    """`folder` gets the settings, the state and the activity file."""

    def __init__(self, build, folder, source, destination, rules):
        self.program = next(path for path in (build / "kalvenor-run", build / "src/app/kalvenor-run") if path.exists())
        self.tracer = build / "torture_tracer"
        self.folder, self.file = folder, folder / "jobs.kvd"
        self.arm = os.path.commonpath([source, destination])
        self.environment = {"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "LANGUAGE": "en",
                            "ASAN_OPTIONS": "detect_leaks=0", "UBSAN_OPTIONS": "print_stacktrace=1:halt_on_error=1"}
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"):
            (folder / name / "Kalvenor").mkdir(parents=True)
            (folder / name).chmod(0o700)
            self.environment[name] = str(folder / name)
        (folder / "XDG_CONFIG_HOME/Kalvenor/Kalvenor.ini").write_text("[Options]\nAccepted=Yes\n")
        fields = {"sourcedir": source, "targetdir": destination, "type": "0", "intervall": "10", "alert": "N",
                  "allfiles": "0" if rules.extensions else "1", "activ": "1", "exceedtime": "10", **rules._asdict()}
        record = "".join(f"<{name}>{value}</{name}>" for name, value in fields.items())
        self.file.write_text(f'<?xml version="1.0" encoding="ISO-8859-1"?>\n<items><A>{record}</A></items>\n')

    def run(self, faults=(), on_stop=None):
        command = [self.program, self.file, "A"]
        struck, calls = [], 0
        ours, theirs = socket.socketpair()
        with ours, theirs, open(self.folder / "output", "w+b") as output:
            if faults:
                command = [self.tracer, str(theirs.fileno()), self.arm, *faults, "--", *command]
            process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL, stdout=output,
                                       stderr=subprocess.STDOUT, pass_fds=[theirs.fileno()] if faults else [])
            theirs.close()
            try:
                ours.settimeout(PATIENCE)
                for line in ours.makefile("r"):
                    word, value = line.split()
                    if word == "stop":
                        on_stop()
                        ours.send(b"g")
                    elif word == "did":
                        struck.append(value)
                    else:
                        calls = int(value)
                code = process.wait(PATIENCE)
            except (TimeoutError, subprocess.TimeoutExpired):
                code = None
            finally:
                process.kill()
                process.wait()
            output.seek(0)
            return Result(code, output.read().decode(errors="replace"), struck, calls)


def can_trace(build, folder):
    """Why system calls cannot be met with faults, or an empty text."""
    tracer = Path(build / "torture_tracer")
    if not tracer.exists():
        return f"no {tracer}"
    ours, theirs = socket.socketpair()
    with ours, theirs:
        words = [str(tracer), str(theirs.fileno()), str(folder), "openat@1=5", "--", "true"]
        answer = subprocess.run(words, check=False, pass_fds=[theirs.fileno()], stderr=subprocess.DEVNULL).returncode
    return f"processes cannot be traced ({answer})" if answer else ""


def random_failure(random):
    """One call of one kind fails once."""
    call = random.choice(CALLS)
    error = "EAGAIN" if call == "clone3" else random.choice(DISK_ERRORS)
    if call == "utimensat" and error in ("EPERM", "EACCES"):
        error = "EIO"  # the others mean a disk that keeps no times, and the copy is complete without
    return f"{call}@{int(40 ** random.random())}={getattr(errno, error)}"
