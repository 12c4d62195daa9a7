"""Watches a process each second for scripts/soak: PID MINUTES FOLDER, which has its messages in headunit.log."""
import collections
import os
import re
import sys
import time

SLACK = 1024  # kB that the memory may grow by after the first minute


def sample(pid):
    with open(f"/proc/{pid}/smaps_rollup") as rollup:
        memory = int(re.search(r"Private_Dirty:\s+(\d+)", rollup.read())[1])
    return memory, len(os.listdir(f"/proc/{pid}/fd"))


def watch(pid, seconds, folder):
    """One (second, kB, descriptors) each second; fewer when the process ended."""
    samples = []
    begin = time.monotonic()
    with open(f"{folder}/samples.csv", "w") as csv:
        csv.write("second,private dirty kB,descriptors\n")
        while len(samples) < seconds:
            try:
                samples.append((len(samples), *sample(pid)))
            except (OSError, TypeError):
                break
            csv.write("%d,%d,%d\n" % samples[-1])
            time.sleep(max(0, begin + len(samples) - time.monotonic()))
    return samples


def repeated_warnings(folder):
    """The scenario drops the line to the signal service, and each outage is told: that is no repetition."""
    with open(f"{folder}/headunit.log", errors="replace") as log:
        lines = [line.strip() for line in log if re.match("(warning|critical|fatal):", line)]
    with open(f"{folder}/simulator.log", errors="replace") as log:
        dropped = sum("dropped" in line for line in log)
    failures = []
    for text, times in collections.Counter(lines).items():
        if times > (dropped if "The signal service" in text else 1):
            failures.append(f"{times} times: {text}")
    return len(lines), dropped, failures


def judge(samples, seconds, folder):
    warnings, dropped, failures = repeated_warnings(folder)
    if len(samples) < seconds:
        return failures + [f"it ended after {len(samples)} s"]
    # What is made and let go between two samples is no growth, so the least of half a minute counts.
    first, last = samples[60:90], samples[-30:]
    after, end = min(s[1] for s in first), min(s[1] for s in last)
    opened_after, opened_end = max(s[2] for s in first), min(s[2] for s in last)
    print(f"{seconds} s: memory {after} kB after a minute, {end} kB at the end, at most "
          f"{max(s[1] for s in samples[60:])} kB; descriptors {opened_after} and {opened_end}; {warnings} warnings, "
          f"{dropped} lines dropped")
    if end > after + SLACK:
        failures.append(f"its memory grew by {end - after} kB")
    if opened_end > opened_after:
        failures.append(f"it has {opened_end - opened_after} descriptors more")
    return failures


def main():
    pid, seconds, folder = int(sys.argv[1]), int(sys.argv[2]) * 60, sys.argv[3]
    failures = judge(watch(pid, seconds, folder), seconds, folder)
    for failure in failures:
        print(failure, file=sys.stderr)
    return 1 if failures else 0


sys.exit(main())
