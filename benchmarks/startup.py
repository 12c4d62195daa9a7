"""Measures whole processes from start to end: an application with all subsystems on, beside an empty one."""
import json
import os
import statistics
import subprocess
import tempfile
import time

from rows import added, single

RUNS = 51
RECORDED_RUNS = 11
SETTINGS = 200
CONFIGURATION = """[HmiCore]
GnuLocalstatedir=state
[HmiShared]
DataManagerEnabled=true
DataManagerConfigPath=DataManagerConf.ini
SignalServiceEnabled=true
SignalServicePath=signals
SystemUpdateEnabled=true
"""


# What an application with all subsystems on adds to an empty one with an engine: figure, row, limit (nanoseconds, kB).
ROWS = [
    ("main", "start-up: from the process to `main()`, loading libraries", None, "ns"),
    ("construction", "start-up: construction of the application", None, "ns"),
    ("up", "start-up: from the process to \"initEnd\"", 8e6, "ns"),
    ("memory", "start-up: private memory", 1536, "kB"),
    ("end", "shutdown: from the request to the end of the process", 15e6, "ns"),
]


class Desk:
    """A folder with a full store, a bus and the platform's services."""

    def __init__(self, build, scenario=None):
        self.build = build
        self.temporary = tempfile.TemporaryDirectory(dir=build)
        self.folder = self.temporary.name
        self.environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", XDG_RUNTIME_DIR=self.folder)
        self.write("probe.ini", CONFIGURATION)
        self.write("DataManagerConf.ini", "[Storage]\n")
        subprocess.run([f"{build}/benchmarks/hmi_settings_probe", "fill", "DataManager", self.folder, str(SETTINGS)],
                       env=self.environment, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address=1"],
                                    stdout=subprocess.PIPE, text=True)
        self.environment["DBUS_SYSTEM_BUS_ADDRESS"] = self.bus.stdout.readline().strip()
        options = []
        if scenario:
            self.write("scenario.json", json.dumps(scenario))
            options = ["--scenario", "scenario.json"]
        self.simulator = subprocess.Popen(
            [f"{build}/simulator/hmi-platform-simulator", "--signal-service", "signals", "--services", "all", *options],
            cwd=self.folder, env=self.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        ready = 0
        while ready < 4:
            line = self.simulator.stdout.readline()
            if not line:
                raise RuntimeError("the simulator did not start")
            ready += line.startswith(("listening", "serving"))

    def write(self, name, text):
        path = os.path.join(self.folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w") as file:
            file.write(text)

    def close(self):
        self.simulator.communicate("quit\n")
        self.bus.terminate()
        self.bus.wait()

    def run(self, name):
        """Nanoseconds to main(), of construction, to the end of start-up, of the end; and kilobytes."""
        started = time.monotonic_ns()
        process = subprocess.Popen([f"{self.build}/benchmarks/{name}"], cwd=self.folder, env=self.environment,
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        entered, constructed, up, memory = map(int, process.stdout.readline().split())
        asked = time.monotonic_ns()
        process.stdin.close()
        if process.wait():
            raise RuntimeError(f"{name} ended with status {process.returncode}")
        ended = time.monotonic_ns()
        return {"main": entered - started, "construction": constructed - entered, "up": up - started,
                "end": ended - asked, "memory": memory}

    def trace(self):
        """Milliseconds of each span of one recorded start-up, in its order, and of its first and last event."""
        self.run("hmi_whole_application")
        with open(f"{self.folder}/state/metron/ApplicationStartup_res.json") as file:
            events = [event for event in json.load(file)["traceEvents"] if event["ph"] in "Xi"]
        spans = {event["name"]: event["dur"] / 1e3 for event in sorted(events, key=lambda event: event["ts"])
                 if event["ph"] == "X"}
        first = min(event["ts"] for event in events)
        last = max(event["ts"] for event in events if event["name"].endswith("/initEnd"))
        return {**spans, "first event to initEnd": (last - first) / 1e3}


def startup_times(build):
    """Medians of ours, of the empty process and of what ours adds, and the spans of the trace."""
    desk = Desk(build)
    try:
        pairs = [(desk.run("hmi_empty_application"), desk.run("hmi_whole_application")) for _ in range(RUNS)]
        desk.write("state/metron/ApplicationStartup.json", '{"name": "ApplicationStartup"}')
        traces = [desk.trace() for _ in range(RECORDED_RUNS)]
    finally:
        desk.close()
    measured = {key: (statistics.median(whole[key] for _, whole in pairs),
                      statistics.median(empty[key] for empty, _ in pairs),
                      # Of neighbouring runs, which the machine's other work slows alike.
                      statistics.median(whole[key] - empty[key] for empty, whole in pairs))
                for key in pairs[0][0]}
    spans = {name: statistics.median(trace[name] for trace in traces) for name in traces[0]}
    return measured, spans


def rows(build):
    measured, spans = startup_times(build)
    for key, label, limit, unit in ROWS:
        yield added(label, *measured[key], limit, unit)
    for name, duration in spans.items():
        yield single(f"start-up, trace: {name}", duration * 1e6)
