#!/usr/bin/env python3
"""Runs the benchmarks of a build folder and prints one table: each row beside its peer or limit."""
import json
import os
import statistics
import subprocess
import sys
import tempfile
import time

from headunit import STEPS_A_SECOND, headunit_times
from signals import signal_times
from startup import startup_times

# row, ours, peer, the most that the ratio may be (None: for the record)
RATIOS = [
    ("singleton read / plain static", "SingletonRead", "PlainStaticRead", 1.5),
    ("configuration load, 50 keys / bare QSettings", "ConfigLoad", "BareSettingsRead", 1.15),
    ("value() by key / bare QHash look-up", "ConfigValue", "BareHashLookUp", 3),
    ("log line to file / qFormatLogMessage + write", "LogLine", "FormatAndWrite", 1.05),
    ("log line to file / spdlog with flush", "LogLine", "SpdlogWithFlush", None),
    ("event-loop wake-up / bare QEventLoop", "EventLoopWakeUp", "BareEventLoopWakeUp", 1.1),
    ("64 distances, fixed units / multiplication", "ConvertDistance", "InlineMultiplication", 1.2),
    ("64 distances, any units / multiplication", "ConvertDistanceByVariables", "InlineMultiplication", None),
    ("64 distances, any units / KUnitConversion", "ConvertDistanceByVariables", "KUnitConversionDistance", 0.02),
    ("NumberPrecision write / plain property write", "NumberPrecisionWrite", "PlainPropertyWrite", None),
    ("formatDateTime() / QLocale::toString", "FormatDateTime", "BareLocaleToString", 1.1),
    ("formatDateTime() at an offset / QLocale::toString", "FormatDateTimeAtOffset", "BareLocaleToString", None),
    ("phone number format / libphonenumber", "PhoneNumberFormat", "LibphonenumberFormat", 0.05),
    ("phone number format / bare match of the pattern", "PhoneNumberFormat", "BareNumberMatch", None),
    ("1000 error reports listed / bare QXmlStreamReader", "ErrorReportListing", "BareReportReading", None),
]
# The same of the settings store.
SETTINGS_RATIOS = [
    ("Setting write, normal / raw SQLite", "write/SettingNormal", "write/SqliteNormal", 1.3),
    ("the same, mean instead of median", "write/SettingNormal/mean", "write/SqliteNormal/mean", None),
    ("Setting write, full / raw SQLite", "full/Setting", "full/Sqlite", 1.1),
    ("Setting write, full / QSettings with sync()", "full/Setting", "full/QSettings", 0.2),
    ("Setting write, full / KConfig with sync()", "full/Setting", "full/KConfig", 0.2),
    ("Setting write, full / dconf with g_settings_sync()", "full/Setting", "full/DConf", 0.2),
    ("Setting write, full: 2000 settings / 200", "write/ManySettingsFull", "write/SettingFull", 1.1),
    ("20 settings in a batch, normal / raw transaction", "batch/DataManagerNormal", "batch/SqliteNormal", 1.2),
    ("20 settings in a batch, full / raw transaction", "batch/DataManagerFull", "batch/SqliteFull", 1.2),
    ("Setting read / QVariant member by a function", "SettingRead", "PlainMemberRead", 3),
    ("start-up, 2000 settings / raw SQLite into a QHash", "read/DataManager", "read/Sqlite", 1.3),
    ("start-up, 2000 settings / QSettings", "read/DataManager", "read/QSettings", None),
    ("start-up, 2000 settings / KConfig", "read/DataManager", "read/KConfig", None),
    ("start-up, 2000 settings / dconf", "read/DataManager", "read/DConf", None),
    ("change to a binding of another process / dconf", "change/DataManager", "change/DConf", None),
]
# The same of vehicle signals, for each value.
SIGNAL_RATIOS = [
    *((f"signals, {label}: {row}", f"{pace}/{ours}/time", f"{pace}/{peer}/time", limit)
      for pace, label in (("single", "a write each"), ("batches", "64 KiB writes"))
      for row, ours, peer, limit in (("slot / read(2) loop", "proxies", "read", None),
                                     ("slot / bare QLocalSocket", "proxies", "socket", None),
                                     ("slot / Qt D-Bus", "proxies", "dbus", 1 / 10),
                                     ("slot / gRPC stream", "proxies", "grpc", 1 / 3),
                                     ("QML handler / Qt D-Bus", "qml", "dbus", None))),
    *((f"signals, delay, {label}: {row}", f"paced/{ours}/{what}", f"paced/{peer}/{what}", limit)
      for what, label in (("median", "median"), ("percentile99", "99 %"))
      for row, ours, peer, limit in (("slot / read(2) loop", "proxies", "read", None),
                                     ("slot / QLocalSocket", "proxies", "socket", 1.3),
                                     ("QML / QLocalSocket", "qml", "socket", None),
                                     ("slot / Qt D-Bus", "proxies", "dbus", None),
                                     ("slot / gRPC stream", "proxies", "grpc", None))),
]
# The same of the system services.
SERVICE_RATIOS = [
    *((f"services, call, {label}: wrapper / {row}", f"{call}/wrapper/median", f"{call}/{peer}/median", limit)
      for call, label in (("enabled", "a bool"), ("list", "20 records"))
      for row, peer, limit in (("bare call", "bare", 1.1), ("QDBusInterface", "interface", None))),
    *((f"services, signal, {label}: {row} / bare slot", f"{ours}/{what}", f"slot/{what}", None)
      for what, label in (("median", "median"), ("percentile99", "99 %"))
      for row, ours in (("QML handler", "handler"), ("QML binding", "binding"))),
]
# Whole processes: what an application with all subsystems on adds to an empty one with an engine.
STARTUP_ROWS = [
    ("main", "start-up: process and libraries, until main()", "ms", None),
    ("construction", "start-up: construction", "ms", None),
    ("up", "start-up: from the process to initEnd", "ms", 8),
    ("memory", "start-up: private memory", "kB", 1536),
    ("end", "shutdown: from the request to the end", "ms", 15),
]
# The example head unit in its window, beside an empty one: what it adds, or how many times as much it takes.
HEADUNIT_ADDED = [("first", "first frame", None), ("live", "first frame with live values", 120)]
HEADUNIT_MEMORY = [("empty", "empty window", 1.25), ("text", "a text in it", None)]
HEADUNIT_FRAMES = [
    ("median", "GUI thread for a frame, median", "ms", 2),
    ("percentile99", "GUI thread for a frame, 99 %", "ms", 8),
    ("rate", "frames a second", "", None),
]
NOTIFICATION_LIMIT = 1e6  # nanoseconds
SERVICE_ROUNDS = 3
SERVICE_CALLS = 500
NOTIFICATIONS = 400  # two seconds of them
SIGNAL_GAP_LIMIT = 20  # milliseconds
SIGNAL_ALLOCATIONS_LIMIT = 1.01  # for a value: its bytes
SIGNAL_GROWTH_LIMIT = 256  # kilobytes
RECONNECTION_LIMIT = 1200  # milliseconds
CHANGE_LIMIT = 1e6  # nanoseconds
GROWTH_LIMIT = 1024  # kilobytes
LOG_FILE_LIMIT = 32 * 1024  # kilobytes
STORES = ("DataManager", "Sqlite", "QSettings", "KConfig", "DConf")
MANY_SETTINGS = 2000
WRITES = 100000
CHANGES = 200
REPORTS_LIMIT = 300  # milliseconds
LOG_LINE_LIMIT = 3000  # nanoseconds
HOST_TIME_LIMIT = 2.0  # milliseconds
HOST_MEMORY_LIMIT = 400  # kilobytes
HOST_RUNS = 31


def run(command, environment=None):
    done = subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if done.returncode:
        sys.exit(f"{command} failed:\n{done.stderr.decode()}")
    return done.stdout


def medians(command, environment=None):
    output = run(
        [*command, "--benchmark_format=json", "--benchmark_repetitions=9",
         "--benchmark_min_time=0.1", "--benchmark_enable_random_interleaving=true",
         "--benchmark_report_aggregates_only=true"],
        environment)
    times = {}
    for row in json.loads(output)["benchmarks"]:
        if row["aggregate_name"] != "median":
            continue
        name = row["run_name"].removesuffix("/manual_time")
        times[name] = row.get("nanoseconds", row["real_time"])
        times[f"{name}/mean"] = row["real_time"]
        times.update((key, row[key]) for key in row if key.startswith("full/"))
    return times


def host(build, name):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    configuration = f"{build}/driver/tests/testData/opt/korvex/etc/hmi_shared_test.ini"
    start = time.monotonic_ns()
    output = run([f"{build}/benchmarks/{name}", configuration], environment)
    ready, memory = output.split()
    return (int(ready) - start) / 1e6, int(memory)


class Session:
    """A session and system bus of its own, with its home on the disk of the build folder."""

    BUS = ["dbus-run-session", "--", "sh", "-c", 'DBUS_SYSTEM_BUS_ADDRESS=$DBUS_SESSION_BUS_ADDRESS exec "$@"', "sh"]

    def __init__(self, build):
        self.program = f"{build}/benchmarks/hmi_settings_"
        self.temporary = tempfile.TemporaryDirectory(dir=build, ignore_cleanup_errors=True)
        self.folder = self.temporary.name
        self.environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", GSETTINGS_BACKEND="dconf", XDG_CONFIG_HOME=f"{self.folder}/config", **dict.fromkeys(
            ("TMPDIR", "XDG_RUNTIME_DIR", "GSETTINGS_SCHEMA_DIR"), self.folder))
        with open(f"{self.folder}/hmi.benchmark.gschema.xml", "w") as schema:
            keys = "".join(f'<key name="setting{key}" type="i"><default>-1</default></key>'
                           for key in range(MANY_SETTINGS))
            schema.write(f'<schemalist><schema id="hmi.benchmark" path="/hmi/benchmark/">{keys}</schema></schemalist>')
        subprocess.run(["glib-compile-schemas", self.folder], check=True)

    def medians(self):
        return medians([*self.BUS, self.program + "benchmarks"], self.environment)

    def probe(self, command, store, count):
        output = run([*self.BUS, self.program + "probe", command, store, self.folder, str(count)], self.environment)
        return [int(word) for word in output.split()]


def settings_times(build):
    times = Session(build).medians()
    session = Session(build)
    for store in ("DataManager", "DConf"):
        times[f"change/{store}"], = session.probe("change", store, CHANGES)
    runs = {store: [] for store in STORES}
    for store in STORES:
        session.probe("fill", store, MANY_SETTINGS)
    for _ in range(HOST_RUNS):
        for store in STORES:
            runs[store] += session.probe("read", store, MANY_SETTINGS)
    times.update((f"read/{store}", statistics.median(runs[store])) for store in STORES)
    return times


def print_ratios(times, ratios):
    for label, ours, peer, limit in ratios:
        ratio = times[ours] / times[peer]
        print(f"{label:52} {times[ours]:9.1f} ns {times[peer]:9.1f} ns {ratio:7.2f}  {verdict(ratio, limit)}")


def print_single(label, value, unit, limit):
    print(f"{label:52} {value:9.1f} {unit} {'':12} {'':7}  {verdict(value, limit, unit)}")


def print_settings(build):
    times = settings_times(build)
    print_ratios(times, SETTINGS_RATIOS)
    print_single("change to a binding of another process", times["change/DataManager"], "ns", CHANGE_LIMIT)
    growth, log = Session(build).probe("grow", "DataManager", WRITES)
    print_single(f"{WRITES} Setting writes: private memory added", growth, "kB", GROWTH_LIMIT)
    print_single(f"{WRITES} Setting writes: greatest log", log / 1024, "kB", LOG_FILE_LIMIT)


def print_signals(build):
    times = signal_times(build)
    print_ratios(times, SIGNAL_RATIOS)
    for reader, name, limit in (("proxies", "slot", SIGNAL_GAP_LIMIT), ("qml", "QML", None),
                                ("socket", "QLocalSocket", None)):
        for what, label, most in (("gap", "longest", limit), ("medianGap", "median", None)):
            print_single(f"signals, flood: {label} gap of 1 ms timer, {name}", times[f"timer/{reader}/{what}"] / 1e6,
                         "ms", most)
    for pace, label in (("batches", "flood"), ("paced", "paced")):
        for reader, name, limit in (("proxies", "slot", SIGNAL_ALLOCATIONS_LIMIT), ("qml", "QML", None),
                                    ("socket", "QLocalSocket", None)):
            print_single(f"signals, {label}: allocations a value, {name}", times[f"{pace}/{reader}/allocations"], "",
                         limit)
    print_single("signals, 9 million values: private memory added", times["growth"], "kB", SIGNAL_GROWTH_LIMIT)
    print_single("signals, return of the service: 500 subscriptions", times["reconnection"], "ms", RECONNECTION_LIMIT)


def service_times(build):
    results = {}
    for _ in range(SERVICE_ROUNDS):
        for command, count in (("calls", SERVICE_CALLS), ("slot", NOTIFICATIONS), ("qml", NOTIFICATIONS)):
            output = run([*Session.BUS, f"{build}/benchmarks/hmi_service_probe", command, str(count)])
            for what, value in map(str.split, output.decode().splitlines()):
                results.setdefault(what, []).append(float(value))
    return {what: statistics.median(values) for what, values in results.items()}


def print_services(build):
    times = service_times(build)
    print_ratios(times, SERVICE_RATIOS)
    for ours in ("handler", "binding"):
        print_single(f"services, signal, median: QML {ours}", times[f"{ours}/median"], "ns", NOTIFICATION_LIMIT)


def print_startup(build):
    measured, spans = startup_times(build)
    for key, label, unit, limit in STARTUP_ROWS:
        empty, whole, added = measured[key]
        print(f"{label:52} {whole:9.1f} {unit} {empty:9.1f} {unit} {added:+7.2f}  {verdict(added, limit, unit)}")
    for name, duration in spans.items():
        print_single(f"start-up, trace: {name}", duration, "ms", None)


def print_headunit(build):
    starts, frames = headunit_times(build)
    for platform, measured in starts.items():
        ours, empty = measured["head unit"], measured["empty"]
        for key, label, limit in HEADUNIT_ADDED:
            added = measured["added"][key]
            print(f"{f'head unit, {platform}: {label}':52} {ours[key]:9.1f} ms {empty[key]:9.1f} ms {added:+7.2f}  "
                  f"{verdict(added, limit, 'ms')}")
        for peer, label, limit in HEADUNIT_MEMORY:
            mine, other = ours["memory"], measured[peer]["memory"]
            print(f"{f'head unit, {platform}: private memory / {label}':52} {mine:9.1f} kB {other:9.1f} kB "
                  f"{mine / other:7.2f}  {verdict(mine / other, limit)}")
    for steps_a_state, measured in frames.items():
        for key, label, unit, limit in HEADUNIT_FRAMES:
            pace = f"states {STEPS_A_SECOND // steps_a_state} a second"
            print_single(f"head unit, {pace}: {label}", measured[key], unit, limit)


def verdict(value, limit, unit=""):
    if limit is None:
        return "for the record"
    return f"limit {limit:g} {unit}".rstrip() + ("" if value <= limit else "  MISSED")


def main():
    build = sys.argv[1]
    times = medians([f"{build}/benchmarks/hmi_benchmarks"])
    print(f"{'measured':52} {'ours':>12} {'peer':>12} {'ratio':>7}")
    print_ratios(times, RATIOS)
    print_single("log line to file", times["LogLine"], "ns", LOG_LINE_LIMIT)
    print_single("1000 error reports listed", times["ErrorReportListing"] / 1e6, "ms", REPORTS_LIMIT)
    print_settings(build)
    print_signals(build)
    print_services(build)
    print_startup(build)
    print_headunit(build)

    empty, core = [], []
    for _ in range(HOST_RUNS):
        empty.append(host(build, "hmi_empty_host"))
        core.append(host(build, "hmi_core_host"))
    for index, label, unit, limit in ((0, "core initialisation and types: time added", "ms", HOST_TIME_LIMIT),
                                      (1, "core initialisation and types: private memory added", "kB",
                                       HOST_MEMORY_LIMIT)):
        ours = statistics.median(run[index] for run in core)
        peer = statistics.median(run[index] for run in empty)
        # Of neighbouring runs, which the machine's other work slows alike.
        added = statistics.median(mine[index] - other[index] for mine, other in zip(core, empty))
        print(f"{label:52} {ours:9.1f} {unit} {peer:9.1f} {unit} {added:+7.2f}  {verdict(added, limit, unit)}")


if __name__ == "__main__":
    main()
