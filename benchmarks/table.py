#!/usr/bin/env python3
"""Runs the benchmarks of the release build, all or those of the sections named, and prints one table as Markdown.

Used by scripts/bench, which builds and knows the arguments.
"""
import os
import sys

import builds
import core
import headunit
import machine
import rows
import services
import settings
import signals
import startup
import units

SECTIONS = {"core": core, "units": units, "settings": settings, "signals": signals, "services": services,
            "startup": startup, "headunit": headunit, "builds": builds}
BEGIN = "<!-- scripts/bench --document writes what follows -->\n"
END = "<!-- and this is its end -->\n"


def measured(build, sections):
    """The rows, each printed when it is there."""
    for name in sections:
        print(f"measuring: {name}", file=sys.stderr)
        for row in SECTIONS[name].rows(build):
            print(rows.line(row), flush=True)
            yield row


def document(build, text):
    path = os.path.join(os.path.dirname(os.path.dirname(build)), "docs", "performance.md")
    with open(path) as file:
        before, rest = file.read().split(BEGIN)
    with open(path, "w") as file:
        file.write(before + BEGIN + text + END + rest.split(END)[1])


def main():
    wanted = sys.argv[1:]
    sections = [name for name in wanted if name != "--document"] or SECTIONS
    build = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "build", "release")
    described = machine.description(build)
    print(f"{described}\n{rows.head()}", flush=True)
    done = list(measured(build, sections))
    last = rows.summary(done)
    print(f"\n{last}")
    if "--document" in wanted:
        table = "\n".join([rows.head(), *map(rows.line, done)])
        document(build, f"\n{described}\n{table}\n\n{last}\n\n")


if __name__ == "__main__":
    main()
