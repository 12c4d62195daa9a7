"""Measures what everybody who works on the project waits for: a script's second start, and the whole build."""
import os
import subprocess
import tempfile
import time

from rows import single

SECOND_START_LIMIT = 3e9  # nanoseconds
BUILD_LIMIT = 300e9  # nanoseconds


def timed(command, **options):
    start = time.monotonic_ns()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, **options)
    return time.monotonic_ns() - start


def rows(build):
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    # What scripts/run does before its job, when there is nothing to install and nothing to build.
    second = ["bash", "-ec", f"source '{root}/scripts/common.sh'; install_packages; build release"]
    yield single("second start of a script, until its job begins", timed(second), SECOND_START_LIMIT)
    environment = {**os.environ, "CCACHE_DISABLE": "1"}
    with tempfile.TemporaryDirectory(dir=os.path.dirname(build), prefix="whole.") as folder:
        configure = ["cmake", "-S", root, "-B", folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release"]
        whole = sum(timed(command, env=environment) for command in (configure, ["cmake", "--build", folder]))
    yield single("whole build from nothing, 2 cores", whole, BUILD_LIMIT)
