"""Measures singletons, configuration, logging, event loops, and what the library adds to a host that starts."""
import os
import statistics
import time

from programs import benchmark_medians, run
from rows import added, ratios, single

RATIOS = [
    ("singleton read / plain static", "SingletonRead", "PlainStaticRead", 1.5),
    ("configuration load, 50 keys / bare `QSettings`", "ConfigLoad", "BareSettingsRead", 1.15),
    ("`value()` by key / bare `QHash` look-up", "ConfigValue", "BareHashLookUp", 3),
    ("log line to file / `qFormatLogMessage` + one `write`", "LogLine", "FormatAndWrite", 1.05),
    ("log line to file / spdlog with flush", "LogLine", "SpdlogWithFlush", None),
    ("event-loop wake-up / bare `QEventLoop`", "EventLoopWakeUp", "BareEventLoopWakeUp", 1.1),
]
LOG_LINE_LIMIT = 3000  # nanoseconds
HOST_TIME_LIMIT = 2e6  # nanoseconds
HOST_MEMORY_LIMIT = 400  # kilobytes
HOST_RUNS = 51


def host(build, name):
    """Nanoseconds until a host is ready, and its private memory."""
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    configuration = f"{build}/driver/tests/testData/opt/korvex/etc/hmi_shared_test.ini"
    start = time.monotonic_ns()
    ready, memory = run([f"{build}/benchmarks/{name}", configuration], environment).split()
    return int(ready) - start, int(memory)


def host_rows(build):
    pairs = [(host(build, "hmi_core_host"), host(build, "hmi_empty_host")) for _ in range(HOST_RUNS)]
    for index, what, unit, limit in ((0, "time", "ns", HOST_TIME_LIMIT),
                                     (1, "private memory", "kB", HOST_MEMORY_LIMIT)):
        # Of neighbouring runs, which the machine's other work slows alike.
        difference = statistics.median(ours[index] - empty[index] for ours, empty in pairs)
        yield added(f"core initialisation and types: {what} added",
                    *(statistics.median(pair[side][index] for pair in pairs) for side in (0, 1)),
                    difference, limit, unit)


def rows(build):
    times = benchmark_medians(build, RATIOS)
    yield from ratios(times, RATIOS)
    yield single("log line to file", times["LogLine"], LOG_LINE_LIMIT)
    yield from host_rows(build)
