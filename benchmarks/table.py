#!/usr/bin/env python3
"""Runs the benchmarks of a build folder and prints one table: each row beside its peer or limit."""
import json
import os
import statistics
import subprocess
import sys
import time

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
]
LOG_LINE_LIMIT = 3000  # nanoseconds
HOST_TIME_LIMIT = 2.0  # milliseconds
HOST_MEMORY_LIMIT = 400  # kilobytes
HOST_RUNS = 31


def medians(build):
    output = subprocess.run(
        [f"{build}/benchmarks/hmi_benchmarks", "--benchmark_format=json", "--benchmark_repetitions=9",
         "--benchmark_min_time=0.1", "--benchmark_enable_random_interleaving=true",
         "--benchmark_report_aggregates_only=true"],
        check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    return {row["run_name"].split("/")[0]: row["real_time"] for row in json.loads(output)["benchmarks"]
            if row["aggregate_name"] == "median"}


def host(build, name):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    configuration = f"{build}/driver/tests/testData/opt/korvex/etc/hmi_shared_test.ini"
    start = time.monotonic_ns()
    output = subprocess.run([f"{build}/benchmarks/{name}", configuration], check=True, env=environment,
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    ready, memory = output.split()
    return (int(ready) - start) / 1e6, int(memory)


def verdict(value, limit):
    if limit is None:
        return "for the record"
    return f"limit {limit:g}" + ("" if value <= limit else "  MISSED")


def main():
    build = sys.argv[1]
    times = medians(build)
    print(f"{'measured':52} {'ours':>12} {'peer':>12} {'ratio':>7}")
    for label, ours, peer, limit in RATIOS:
        ratio = times[ours] / times[peer]
        print(f"{label:52} {times[ours]:9.1f} ns {times[peer]:9.1f} ns {ratio:7.2f}  {verdict(ratio, limit)}")
    print(f"{'log line to file':52} {times['LogLine']:9.1f} ns {'':12} {'':7}  {verdict(times['LogLine'], LOG_LINE_LIMIT)} ns")

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
        print(f"{label:52} {ours:9.1f} {unit} {peer:9.1f} {unit} {added:+7.2f}  {verdict(added, limit)} {unit}")


main()
