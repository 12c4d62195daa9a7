"""Measures the example head unit in its window, beside an empty window: the start, the memory, the frames."""
import os
import statistics
import subprocess
import time

from rows import added, ratio, single
from startup import Desk

RUNS = 31
FRAME_RUNS = 3
FRAME_SECONDS = 10
STEPS_A_SECOND = 60
SCENARIO_SECONDS = 60
CONFIGURATION = """[HmiCore]
GnuLocalstatedir=state
LanguagesPath="{product}/translations"
ThemesPath="{product}/themes"
[HmiShared]
DataManagerEnabled=true
DataManagerConfigPath=DataManagerConf.ini
SignalServiceEnabled=true
SignalServicePath=signals
SystemUpdateEnabled=true
"""
# name: program and its first argument
WINDOWS = {
    "empty": ("hmi_empty_window", "EmptyWindow.qml"),
    "text": ("hmi_empty_window", "TextWindow.qml"),
    "head unit": ("hmi_headunit_window", "headunit.ini"),
}
# What it adds to the empty window, or how many times as much it takes, or a limit.
ADDED = [("first", "first frame", None), ("live", "first frame with live values", 120e6)]
MEMORY = [("empty", "empty window", 1.25), ("text", "a window with a text", None)]
FRAMES = [("median", "median", 2e6), ("percentile99", "99 %", 8e6)]
LEAST_RATE = 59.5  # of 60 frames a second: the measured time seldom ends with a frame
# path, type, value in step n; each is another one than before, as the screen shows it
NUMBERS = [
    ("Vehicle.Speed", "double", lambda n: abs(n % 200 - 100) * 2.0),
    ("Vehicle.TraveledDistance", "double", lambda n: 18250.0 + n),
    ("Vehicle.TripMeterReading", "double", lambda n: 23.0 + n),
    ("Vehicle.Powertrain.Range", "int", lambda n: 9000000 - 1000 * n),
    ("Vehicle.Exterior.AirTemperature", "double", lambda n: abs(n % 40 - 20) + 0.5),
]
STATES = [
    ("Vehicle.IsMoving", "bool", lambda n: n % 2 == 1),
    ("Vehicle.Powertrain.Transmission.SelectedGear", "string", lambda n: "PD"[n % 2]),
    ("Vehicle.Cabin.Lights.IsNight", "bool", lambda n: n % 2 == 1),
]
# XCB: a window of an X server, OpenGL by software, in a thread of its own. Offscreen: no OpenGL, all in one thread.
PLATFORMS = {
    "xcb": {"QT_QPA_PLATFORM": "xcb", "QSG_RENDER_LOOP": "threaded", "LIBGL_ALWAYS_SOFTWARE": "1"},
    "offscreen": {"QT_QPA_PLATFORM": "offscreen", "QT_QUICK_BACKEND": "software"},
}


def scenario(steps_a_state):
    """Every number moves in each step, and every state once in so many; without such a number nothing moves."""
    def step(n, path, value):
        return {"at": n / STEPS_A_SECOND, "path": path, "value": value}

    signals = [{"path": path, "type": kind, "value": value(0)} for path, kind, value in NUMBERS + STATES]
    if not steps_a_state:
        return {"signals": signals, "steps": []}
    steps = [step(n, path, value(n)) for n in range(SCENARIO_SECONDS * STEPS_A_SECOND) for path, _, value in NUMBERS]
    steps += [step(n, path, value(n // steps_a_state))
              for n in range(0, SCENARIO_SECONDS * STEPS_A_SECOND, steps_a_state) for path, _, value in STATES]
    return {"signals": signals, "steps": steps, "loop": SCENARIO_SECONDS}


class WindowDesk(Desk):
    """The same with an X server and a vehicle."""

    def __init__(self, build, steps_a_state=None):
        super().__init__(build, scenario(steps_a_state))
        self.write("headunit.ini", CONFIGURATION.format(product=os.path.abspath(f"{build}/examples/headunit")))
        # The caches of shaders and fonts are those of this desk, and filled by its first runs.
        self.environment.update(XDG_CACHE_HOME=f"{self.folder}/cache", HOME=self.folder)
        self.server = subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "1024x768x24", "-nolisten", "tcp"],
                                       stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.environment["DISPLAY"] = ":" + self.server.stdout.readline().strip()

    def close(self):
        self.server.terminate()
        self.server.wait()
        super().close()

    def run(self, name, platform, seconds=0, **environment):
        """Nanoseconds to main(), the first frame and the first live one; kilobytes; and of the frames."""
        program, argument = WINDOWS[name]
        started = time.monotonic_ns()
        done = subprocess.run([f"{self.build}/benchmarks/{program}", argument, str(seconds)], cwd=self.folder,
                              env={**self.environment, **PLATFORMS[platform], **environment}, check=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=60)
        first, *frames = [list(map(float, line.split())) for line in done.stdout.splitlines()]
        *times, memory = first
        result = dict(zip(("main", "first", "live"), (time - started for time in times)), memory=memory)
        if seconds:
            (median, most, count, duration), = frames
            result.update(median=median, percentile99=most, rate=count / duration)
        return result


def compare(desk, platform):
    """Medians of each window, and of what the head unit adds to the empty one."""
    for name in WINDOWS:
        desk.run(name, platform)
    rounds = [{name: desk.run(name, platform) for name in WINDOWS} for _ in range(RUNS)]
    medians = {name: {key: statistics.median(done[name][key] for done in rounds) for key in rounds[0][name]}
               for name in WINDOWS}
    # Of neighbouring runs, which the machine's other work slows alike.
    medians["added"] = {key: statistics.median(done["head unit"][key] - done["empty"][key] for done in rounds)
                        for key in rounds[0]["empty"]}
    return medians


def headunit_times(build):
    """By platform what compare() says, and of the frames the medians of a few runs, by the steps of a state."""
    desk = WindowDesk(build)
    try:
        starts = {platform: compare(desk, platform) for platform in PLATFORMS}
    finally:
        desk.close()
    frames = {}
    for steps_a_state in (STEPS_A_SECOND, 1):
        desk = WindowDesk(build, steps_a_state)
        try:
            runs = [desk.run("head unit", "xcb", FRAME_SECONDS) for _ in range(FRAME_RUNS)]
        finally:
            desk.close()
        frames[steps_a_state] = {key: statistics.median(run[key] for run in runs)
                                 for key in ("median", "percentile99", "rate")}
    return starts, frames


def start_rows(platform, measured):
    ours = measured["head unit"]
    for key, label, limit in ADDED:
        yield added(f"head unit, {platform}: process to the {label}", ours[key], measured["empty"][key],
                    measured["added"][key], limit)
    for peer, label, limit in MEMORY:
        yield ratio(f"head unit, {platform}: private memory / {label}", ours["memory"], measured[peer]["memory"], limit,
                    "kB")


def frame_rows(steps_a_state, measured):
    pace = f"states {STEPS_A_SECOND // steps_a_state} times a second"
    for key, label, limit in FRAMES:
        yield single(f"head unit, {pace}: GUI thread for a frame, {label}", measured[key], limit)
    yield single(f"head unit, {pace}: frames a second", measured["rate"], unit="", least=LEAST_RATE)


def rows(build):
    starts, frames = headunit_times(build)
    for platform, measured in starts.items():
        yield from start_rows(platform, measured)
    for steps_a_state, measured in frames.items():
        yield from frame_rows(steps_a_state, measured)
