"""Runs the programs that measure."""
import json
import subprocess
import sys

# Many short turns: what slows a machine for seconds then slows some of each.
TURNS = 31
TURN_TIME = 0.03  # seconds


def run(command, environment=None):
    done = subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if done.returncode:
        sys.exit(f"{command} failed:\n{done.stderr.decode()}")
    return done.stdout


def medians(command, environment=None, only="."):
    """Nanoseconds of each of a program's benchmarks whose names match."""
    output = run(
        [*command, f"--benchmark_filter={only}", "--benchmark_format=json", f"--benchmark_repetitions={TURNS}",
         f"--benchmark_min_time={TURN_TIME}", "--benchmark_enable_random_interleaving=true",
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


def benchmark_medians(build, table):
    """Of the benchmarks that a table of ratios names."""
    names = {name for _, ours, peer, _ in table for name in (ours, peer)}
    return medians([f"{build}/benchmarks/hmi_benchmarks"], only=f"^({'|'.join(sorted(names))})(/|$)")


def named_figures(command, environment=None):
    """What a program prints as lines of a name and a figure."""
    return {name: float(value) for name, value in map(str.split, run(command, environment).decode().splitlines())}
