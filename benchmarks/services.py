"""Measures the clients of the system services, and folders of error reports."""
import os
import random
import statistics
import tempfile

from programs import benchmark_medians, named_figures
from rows import ratios, single
from settings import Session

CALLS = [("enabled", "a bool"), ("list", "20 records")]
CALL_PEERS = [("bare `QDBusConnection::call`", "bare", 1.1), ("`QDBusInterface`", "interface", None)]
DELAYS = [("median", "median", 1e6), ("percentile99", "99 %", None)]
PLACES = [("handler", "QML handler"), ("binding", "QML binding to the list's count")]
CALL_RATIOS = [(f"call that answers with {answer}: wrapper / {row}", f"{call}/wrapper/median", f"{call}/{peer}/median",
                limit) for call, answer in CALLS for row, peer, limit in CALL_PEERS]
REPORT_RATIOS = [("1,000 error reports of 5 kB listed / bare `QXmlStreamReader`", "ErrorReportListing",
                  "BareReportReading", None)]
# In nanoseconds.
BOUNDS = [("call", "call to a service that hangs: held for", 2e9),
          ("update", "information of an update from a service that hangs: awaited for", 5e9)]
REPORTS_LIMIT = 300e6  # nanoseconds
HOSTILE_TIME_LIMIT = 2e9  # nanoseconds
HOSTILE_MEMORY_LIMIT = 64 * 1024  # kilobytes
ROUNDS = 3
COMMANDS = [("calls", 500), ("slot", 400), ("qml", 400)]


def service_times(build):
    program = [*Session.BUS, f"{build}/benchmarks/hmi_service_probe"]
    rounds = [{name: value for command, count in COMMANDS
               for name, value in named_figures([*program, command, str(count)]).items()} for _ in range(ROUNDS)]
    times = {name: statistics.median(measured[name] for measured in rounds) for name in rounds[0]}
    return {**times, **named_figures([*program, "bounds", "1"])}


def hostile_reports():
    """None is over the size that is refused unread, but the first."""
    attributes = b" ".join(b"a%d=''" % number for number in range(100000))
    entities = b"".join(b"<!ENTITY e%d '&e%d;&e%d;'>" % (number, number - 1, number - 1) for number in range(1, 40))
    return {
        "50 MB": b"<CrashReport><Backtrace>" + 50000000 * b"x",
        "100,000 attributes": b"<CrashReport " + attributes + b"></CrashReport>",
        "nested tags": b"<CrashReport>" + 690000 * b"<a>",
        "entities": b"<!DOCTYPE r [<!ENTITY e0 'x'>" + entities + b"]><CrashReport>&e39;</CrashReport>",
        "binary": random.Random(1).randbytes(2000000),
    }


def list_hostile_reports(build):
    """Of each, in a process of its own."""
    with tempfile.TemporaryDirectory(dir=build) as folder:
        for content in hostile_reports().values():
            with open(os.path.join(folder, "report.xml"), "wb") as file:
                file.write(content)
            yield named_figures([f"{build}/benchmarks/hmi_report_probe", folder])


def report_rows(build):
    times = benchmark_medians(build, REPORT_RATIOS)
    yield from ratios(times, REPORT_RATIOS)
    yield single("1,000 error reports of 5 kB listed", times["ErrorReportListing"], REPORTS_LIMIT)
    hostile = list(list_hostile_reports(build))
    yield single("hostile error report (50 MB, 100,000 attributes, ...): slowest of 5",
                 max(report["time"] for report in hostile), HOSTILE_TIME_LIMIT)
    yield single("hostile error report: memory of the greediest", max(report["memory"] for report in hostile),
                 HOSTILE_MEMORY_LIMIT, "kB")


def rows(build):
    times = service_times(build)
    yield from ratios(times, CALL_RATIOS)
    for what, label, limit in DELAYS:
        for key, place in PLACES:
            yield single(f"notification, {label}: {place}; peer: bare slot", times[f"{key}/{what}"], limit,
                         peer=times[f"slot/{what}"])
    for key, label, limit in BOUNDS:
        yield single(label, times[f"bounds/{key}"], limit)
    yield from report_rows(build)
