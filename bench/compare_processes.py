"""Programs that are started, measured and always ended with us."""

import ctypes
import os
import select
import signal
import subprocess
import time

PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None)


def start(command, environment=None, output=None, passed=(), ending=signal.SIGKILL):
    """Starts `command` as the head of a session of its own, so that its children can be ended too.
    The kernel sends it `ending` even when we are killed ourselves."""
    sink = output or subprocess.DEVNULL
    return subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL, stdout=sink,
                            stderr=subprocess.DEVNULL, start_new_session=True, pass_fds=passed,
                            preexec_fn=lambda: _libc.prctl(PR_SET_PDEATHSIG, ending))


def end_gently(process):
    """Lets the process take its own files away first."""
    process.terminate()
    try:
        process.wait(5)
    except subprocess.TimeoutExpired:
        end(process)


def end(process):
    """Kills the process and everything in its session's group."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.wait()


def processor_seconds(pid):
    """Seconds of processor time that all threads of `pid` have used; ProcessLookupError when it has
    ended."""
    with open(f"/proc/{pid}/stat", encoding="latin-1") as stat:
        fields = stat.read().rpartition(")")[2].split()
    if fields[0] == "Z":
        raise ProcessLookupError
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def peak_memory(pid):
    """The most memory that `pid` had resident so far, in bytes."""
    with open(f"/proc/{pid}/status", encoding="latin-1") as status:
        for line in status:
            if line.startswith("VmHWM:"):
                return int(line.split()[1]) * 1024
    raise RuntimeError("no VmHWM")


def run(commands, environment, output_path=None, limit=300):
    """Wall seconds of the commands, one after the other, or an error with the program's name."""
    begun = time.monotonic()
    for command in commands:
        with open(output_path or os.devnull, "wb") as output:
            process = start(command, environment, output)
            try:
                _await(process, limit)
                ended = time.monotonic()
            finally:
                end(process)
        if process.returncode != 0:
            raise RuntimeError(f"{os.path.basename(command[0])} ended with {process.returncode}")
    return ended - begun


def _await(process, limit):
    """Returns as soon as the process ends: Popen.wait with a limit looks in ever longer steps."""
    handle = os.pidfd_open(process.pid)
    try:
        poll = select.poll()
        poll.register(handle, select.POLLIN)
        if not poll.poll(limit * 1000):
            raise RuntimeError(f"no end in {limit} s")
    finally:
        os.close(handle)
