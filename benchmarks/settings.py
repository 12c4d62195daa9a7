"""Measures the settings store, in a process that writes and in processes of their own."""
import os
import statistics
import subprocess
import tempfile

from programs import medians, run
from rows import ratios, single

RATIOS = [
    ("`Setting::setValue`, normal / raw SQLite", "write/SettingNormal", "write/SqliteNormal", 1.3),
    ("the same, mean instead of median", "write/SettingNormal/mean", "write/SqliteNormal/mean", None),
    ("`Setting::setValue`, full / raw SQLite at its best", "full/Setting", "full/Sqlite", 1.1),
    ("`Setting::setValue`, full / `QSettings` with `sync()`", "full/Setting", "full/QSettings", 0.2),
    ("`Setting::setValue`, full / KConfig with `sync()`", "full/Setting", "full/KConfig", 0.2),
    ("`Setting::setValue`, full / dconf with `g_settings_sync()`", "full/Setting", "full/DConf", 0.2),
    ("`Setting::setValue`, full: 2,000 settings / 200", "write/ManySettingsFull", "write/SettingFull", 1.1),
    ("20 settings in a batch, normal / raw transaction", "batch/DataManagerNormal", "batch/SqliteNormal", 1.2),
    ("20 settings in a batch, full / raw transaction", "batch/DataManagerFull", "batch/SqliteFull", 1.2),
    ("`Setting::getValue` / `QVariant` member by a function", "SettingRead", "PlainMemberRead", 3),
    ("start-up, 2,000 settings / raw SQLite into a `QHash`", "read/DataManager", "read/Sqlite", 1.3),
    ("start-up, 2,000 settings / `QSettings`", "read/DataManager", "read/QSettings", None),
    ("start-up, 2,000 settings / KConfig", "read/DataManager", "read/KConfig", None),
    ("start-up, 2,000 settings / dconf", "read/DataManager", "read/DConf", None),
    ("change to a binding of another process / dconf", "change/DataManager", "change/DConf", None),
]
CHANGE_LIMIT = 1e6  # nanoseconds
GROWTH_LIMIT = 1024  # kilobytes
LOG_FILE_LIMIT = 32 * 1024  # kilobytes
STORES = ("DataManager", "Sqlite", "QSettings", "KConfig", "DConf")
MANY_SETTINGS = 2000
START_RUNS = 31
WRITES = 100000
FLUSHED_WRITES = 200
READS = 100000
CHANGES = 200


class Session:
    """A session and system bus of its own, with its home on the disk of the build folder."""

    BUS = ["dbus-run-session", "--", "sh", "-c", 'DBUS_SYSTEM_BUS_ADDRESS=$DBUS_SESSION_BUS_ADDRESS exec "$@"', "sh"]

    def __init__(self, build):
        self.program = f"{build}/benchmarks/hmi_settings_"
        self.temporary = tempfile.TemporaryDirectory(dir=build, ignore_cleanup_errors=True)
        self.folder = self.temporary.name
        self.environment = dict(
            os.environ, QT_QPA_PLATFORM="offscreen", GSETTINGS_BACKEND="dconf", XDG_CONFIG_HOME=f"{self.folder}/config",
            **dict.fromkeys(("TMPDIR", "XDG_RUNTIME_DIR", "GSETTINGS_SCHEMA_DIR"), self.folder))
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


def start_times(build):
    session = Session(build)
    for store in STORES:
        session.probe("fill", store, MANY_SETTINGS)
    rounds = [{store: session.probe("read", store, MANY_SETTINGS)[0] for store in STORES} for _ in range(START_RUNS)]
    return {f"read/{store}": statistics.median(times[store] for times in rounds) for store in STORES}


def rows(build):
    times = {**Session(build).medians(), **start_times(build)}
    session = Session(build)
    times.update((f"change/{store}", session.probe("change", store, CHANGES)[0]) for store in ("DataManager", "DConf"))
    yield from ratios(times, RATIOS)
    yield single("change to a binding of another process", times["change/DataManager"], CHANGE_LIMIT)
    for durability, limit in (("Normal", 0), ("Full", 1)):
        flushes, = Session(build).probe("flushes", durability, FLUSHED_WRITES)
        yield single(f"`Setting::setValue`, {durability.lower()}: flushes a write on the calling thread",
                     flushes / FLUSHED_WRITES, limit, "")
    growth, log = Session(build).probe("grow", "DataManager", WRITES)
    yield single("100,000 `Setting` writes: private memory added", growth, GROWTH_LIMIT, "kB")
    yield single("100,000 `Setting` writes: greatest size of the log", log / 1024, LOG_FILE_LIMIT, "kB")
    growth, = Session(build).probe("script", "DataManager", READS)
    yield single("100,000 reads by a script: private memory added", growth, GROWTH_LIMIT, "kB")
