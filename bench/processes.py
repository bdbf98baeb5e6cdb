"""Runs programs on one core and tells what they cost."""

import json
import os
import shutil
import subprocess


def pinned(command):
    return ["taskset", "-c", "0", *map(str, command)] if shutil.which("taskset") else command


def measured(command):
    """The last line of the program's output as JSON."""
    done = subprocess.run(pinned(command), capture_output=True, text=True, check=True)
    return json.loads(done.stdout.splitlines()[-1])


def cost(command):
    """Processor seconds and peak bytes of the program as a whole; its exit status may be 1."""
    process = subprocess.Popen(
        pinned(command), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL
    )
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode not in (0, 1):
        raise subprocess.CalledProcessError(process.returncode, command)
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024
