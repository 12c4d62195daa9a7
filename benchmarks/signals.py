"""Measures vehicle signals from a writing process to the handler in a reading one."""
import os
import statistics
import subprocess
import sys
import tempfile

from rows import ratios, single

# reader -> the transport of its writer
READERS = {"read": "socket", "socket": "socket", "proxies": "socket", "qml": "socket", "dbus": "dbus", "grpc": "grpc"}
# Values of a flood: up to a second each.
VALUES = {"dbus": 20000, "grpc": 100000}
DEFAULT_VALUES = 300000
MANY_VALUES = 10000000
FLOOD_ROUNDS = 5
PACED_ROUNDS = 5
PACED_VALUES = 1000
# About three seconds each.
TIMER_VALUES = {"socket": 40000000, "proxies": 14000000, "qml": 2500000}
RECONNECTIONS = 6
# row, ours, peer, limit
PACES = [("single", "a write each"), ("batches", "64 KiB writes")]
RATE_ROWS = [
    ("slot / `read(2)` loop", "proxies", "read", None),
    ("slot / bare `QLocalSocket`", "proxies", "socket", None),
    ("slot / Qt D-Bus", "proxies", "dbus", 1 / 10),
    ("slot / gRPC stream", "proxies", "grpc", 1 / 3),
    ("QML handler / `read(2)` loop", "qml", "read", None),
    ("QML handler / Qt D-Bus", "qml", "dbus", None),
]
DELAYS = [("median", "median"), ("percentile99", "99 %")]
DELAY_ROWS = [
    ("slot / `read(2)` loop", "proxies", "read", None),
    ("slot / bare `QLocalSocket`", "proxies", "socket", 1.3),
    ("slot / Qt D-Bus", "proxies", "dbus", None),
    ("slot / gRPC stream", "proxies", "grpc", None),
    ("QML handler / `read(2)` loop", "qml", "read", None),
    ("QML handler / bare `QLocalSocket`", "qml", "socket", None),
    ("QML handler / Qt D-Bus", "qml", "dbus", None),
]
RATIOS = [
    *((f"signals, {label}: {row}", f"{pace}/{ours}/time", f"{pace}/{peer}/time", limit)
      for pace, label in PACES for row, ours, peer, limit in RATE_ROWS),
    *((f"signals, delay, {label}: {row}", f"paced/{ours}/{what}", f"paced/{peer}/{what}", limit)
      for what, label in DELAYS for row, ours, peer, limit in DELAY_ROWS),
]
OWN_READERS = [("proxies", "slot"), ("qml", "QML handler")]
GAP_LIMIT = 20e6  # nanoseconds
ALLOCATIONS_LIMIT = 1.01  # for a value: its bytes
GROWTH_LIMIT = 256  # kilobytes
RECONNECTION_LIMIT = 1.2e9  # nanoseconds


class Signals:
    """A folder for the sockets, and a session bus of its own."""

    def __init__(self, build):
        self.program = f"{build}/benchmarks/hmi_signal_"
        self.temporary = tempfile.TemporaryDirectory()
        self.address = f"{self.temporary.name}/signals"
        bus = f"unix:path={self.temporary.name}/bus"
        self.bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address", f"--address={bus}"],
                                    stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.environment = dict(os.environ, DBUS_SESSION_BUS_ADDRESS=self.bus.stdout.readline().decode().strip())

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.bus.terminate()
        self.bus.wait()

    def run(self, reader, pace, count, *options, program="reader", values=1):
        """What the reader printed, as a dictionary, and what the writer did."""
        writer = subprocess.Popen(
            [self.program + "writer", READERS.get(reader, "socket"), pace, self.address, str(count)],
            env=self.environment, stdout=subprocess.PIPE)
        writer.stdout.readline()
        values = count if pace != "reconnect" else values
        done = subprocess.run([self.program + program, reader, pace, self.address, str(values), *options],
                              env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60)
        if done.returncode:
            writer.kill()
            sys.exit(f"The {reader} reader failed:\n{done.stderr.decode()}")
        written = writer.communicate(timeout=10)[0]
        return {key: float(value) for key, value in map(str.split, done.stdout.decode().splitlines())}, written

    def rounds(self, count, paces, values):
        """Medians of so many rounds of every reader and pace, as pace/reader/what."""
        results = {}
        for _ in range(count):
            for pace in paces:
                for reader in READERS:
                    for what, value in self.run(reader, pace, values(reader))[0].items():
                        results.setdefault(f"{pace}/{reader}/{what}", []).append(value)
        return {key: statistics.median(values) for key, values in results.items()}

    def allocations(self, reader, pace, count):
        return self.run(reader, pace, count, program="allocations")[0]["allocations"]

    def reconnection(self):
        """The longest of several, in milliseconds."""
        written = self.run("many", "reconnect", RECONNECTIONS)[1]
        times = [float(word) for word in written.split()]
        assert len(times) == RECONNECTIONS
        return max(times)


def signal_times(build):
    with Signals(build) as signals:
        times = signals.rounds(FLOOD_ROUNDS, ("single", "batches"), lambda reader: VALUES.get(reader, DEFAULT_VALUES))
        times.update(signals.rounds(PACED_ROUNDS, ("paced",), lambda _: PACED_VALUES))
        for reader, count in TIMER_VALUES.items():
            gaps = signals.run(reader, "batches", count, "timer")[0]
            times.update((f"timer/{reader}/{what}", gaps[what]) for what in ("gap", "medianGap"))
            times[f"batches/{reader}/allocations"] = signals.allocations(reader, "batches", DEFAULT_VALUES)
            times[f"paced/{reader}/allocations"] = signals.allocations(reader, "paced", PACED_VALUES)
        times["growth"] = signals.run("proxies", "batches", MANY_VALUES)[0]["memory"]
        times["reconnection"] = signals.reconnection()
    return times


def gap_rows(times):
    for reader, name in OWN_READERS:
        for what, label, limit in (("gap", "longest", GAP_LIMIT), ("medianGap", "median", None)):
            yield single(f"signals, flood: {label} gap of a 1 ms timer, {name}", times[f"timer/{reader}/{what}"],
                         limit if reader == "proxies" else None, peer=times[f"timer/socket/{what}"])


def allocation_rows(times):
    for pace, label in (("batches", "flood"), ("paced", "a thousand a second")):
        for reader, name in OWN_READERS:
            yield single(f"signals, {label}: allocations for a value, {name}", times[f"{pace}/{reader}/allocations"],
                         ALLOCATIONS_LIMIT if reader == "proxies" else None, "",
                         peer=times[f"{pace}/socket/allocations"])


def rows(build):
    times = signal_times(build)
    yield from ratios(times, RATIOS)
    yield from gap_rows(times)
    yield from allocation_rows(times)
    yield single("signals, 10 million values: private memory added after the first million", times["growth"],
                 GROWTH_LIMIT, "kB")
    yield single("signals, return of the service: 500 subscriptions", times["reconnection"] * 1e6, RECONNECTION_LIMIT)
