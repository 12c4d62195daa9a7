"""What the figures depend on: the machine, its system and how the library was built."""
import glob
import os
import platform
import re
import subprocess


def first_match(pattern, path):
    with open(path) as file:
        match = re.search(pattern, file.read(), re.MULTILINE)
    return match.group(1).strip() if match else "unknown"


def first_line(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True).stdout.splitlines()[0]


def processor():
    model = first_match(r"^model name\s*: (.*)$", "/proc/cpuinfo")
    virtual = " (virtual)" if "hypervisor" in first_match(r"^flags\s*: (.*)$", "/proc/cpuinfo").split() else ""
    memory = int(first_match(r"^MemTotal:\s*(\d+)", "/proc/meminfo")) / 1024 ** 2
    return f"{model}, {os.cpu_count()} cores{virtual}, {memory:.0f} GiB"


def governor():
    """Who sets the clock's pace; a virtual machine does not know."""
    files = sorted(glob.glob("/sys/devices/system/cpu/cpu*/cpufreq/scaling_governor"))
    return first_match("(.*)", files[0]) if files else "none that the system shows"


def flags(build):
    cache = f"{build}/CMakeCache.txt"
    kind = first_match(r"^CMAKE_BUILD_TYPE:[A-Z]+=(.*)$", cache)
    options = [first_match(rf"^{name}:[A-Z]+=(.*)$", cache)
               for name in ("CMAKE_CXX_FLAGS", f"CMAKE_CXX_FLAGS_{kind.upper()}")]
    return f"{kind} ({' '.join(filter(None, options))}), libraries linked with -Bsymbolic-functions"


def description(build):
    """Lines of Markdown."""
    compiler = first_match(r"^CMAKE_CXX_COMPILER:[A-Z]+=(.*)$", f"{build}/CMakeCache.txt")
    load = os.getloadavg()
    lines = {
        "Processor": processor(), "Clock": "governor: " + governor(),
        "System": f"{first_match('^PRETTY_NAME=.(.*).$', '/etc/os-release')}, Linux {platform.release()}",
        "Compiler": first_line(compiler, "--version"), "Qt": first_line("qmake", "-query", "QT_VERSION"),
        "Build": flags(build), "Load before": ", ".join(f"{value:.2f}" for value in load) + " (1, 5, 15 minutes)",
    }
    return "".join(f"- {name}: {value}\n" for name, value in lines.items())
