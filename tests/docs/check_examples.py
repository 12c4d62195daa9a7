"""Runs the complete QML examples of the documents beside the simulator, and compiles the complete C++ examples.

Usage: check_examples.py qml QML_TOOL SIMULATOR SCENARIO HEADUNIT THEMES PAGE...
       check_examples.py cpp COMPILER INCLUDE_FOLDERS PAGE...   (folders with ";" between them)
An example is complete when it begins with an import or an include. No warning is accepted. QML finds the controls and the
themes of the example head unit.
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

EXAMPLE = {"qml": r"^```qml\n(import .*?)^```$", "cpp": r"^```cpp\n(#include .*?)^```$"}
CONFIGURATION = """[HmiShared]
DataManagerEnabled=true
DataManagerConfigPath=DataManagerConf.ini
SignalServiceEnabled=true
SignalServicePath=signals
SystemUpdateEnabled=true
[HmiCore]
ThemesPath={themes}
"""


def examples(kind, pages):
    for page in map(pathlib.Path, pages):
        text = page.read_text(encoding="utf-8")
        for match in re.finditer(EXAMPLE[kind], text, re.MULTILINE | re.DOTALL):
            yield f"{page}:{text.count(chr(10), 0, match.start()) + 1}", match.group(1)


def start(processes, command, ready, environment):
    """Adds a process in the background; the line that says it is ready."""
    processes.append(subprocess.Popen(command, env=environment, stdout=subprocess.PIPE, text=True))
    for line in processes[-1].stdout:
        if line.startswith(ready):
            return line.strip()
    sys.exit(f"{command[0]} ended before it was ready")


def run_all(folder, tool, pages, environment):
    problems = 0
    for place, text in examples("qml", pages):
        file = folder / "Example.qml"
        file.write_text(text, encoding="utf-8")
        runner = pathlib.Path(__file__).with_name("run_example.qml")
        done = subprocess.run([tool, str(runner), "--", str(file)], env=environment, capture_output=True, text=True, timeout=60)
        # The library tells where its resources are in a warning of that level.
        said = [line for line in done.stderr.splitlines()
                if not re.match(r"debug|info|warning: resourcesPath: ", line)]
        print(place, "ok" if not said and done.returncode == 0 else f"status {done.returncode}", *said, sep="\n    ")
        problems += bool(said or done.returncode)
    return problems


def run_qml(tool, simulator, scenario, headunit, themes, *pages):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "hmi.ini").write_text(CONFIGURATION.format(themes=themes), encoding="utf-8")
        (folder / "controls").symlink_to(pathlib.Path(headunit) / "qml" / "controls")
        (folder / "DataManagerConf.ini").write_text("[Storage]\n", encoding="utf-8")
        environment = {**os.environ, "HMI_CONFIG": str(folder / "hmi.ini"), "XDG_RUNTIME_DIR": name,
                       "QT_MESSAGE_PATTERN": "%{type}: %{message}"}
        # A sanitizer's runtime is loaded before Qt's tool only.
        plain = {key: value for key, value in environment.items() if key != "LD_PRELOAD"}
        processes = []
        try:
            environment["DBUS_SYSTEM_BUS_ADDRESS"] = plain["DBUS_SYSTEM_BUS_ADDRESS"] = start(
                processes, ["dbus-daemon", "--session", "--nofork", "--print-address", f"--address=unix:dir={name}"],
                "unix:", plain)
            start(processes, [simulator, "--signal-service", str(folder / "signals"), "--services", "all",
                              "--scenario", scenario, "--no-commands"], "listening", plain)
            return run_all(folder, tool, pages, environment)
        finally:
            for process in reversed(processes):
                process.terminate()
                process.wait()


def compile_cpp(compiler, folders, *pages):
    problems = 0
    options = ["-std=c++17", "-fPIC", "-fsyntax-only", "-Wall", "-Wextra", "-Werror", "-DQT_NO_CAST_FROM_ASCII", "-x", "c++", "-"]
    for folder in filter(None, folders.split(";")):
        options[:0] = ["-isystem" if "/usr/" in folder else "-I", folder]
    for place, text in examples("cpp", pages):
        done = subprocess.run([compiler] + options, input=text, capture_output=True, text=True)
        print(place, "ok" if done.returncode == 0 else done.stderr)
        problems += done.returncode != 0
    return problems


kind, *rest = sys.argv[1:]
if not any(True for _ in examples(kind, rest[2 if kind == "cpp" else 5:])):
    sys.exit("There are no examples.")
sys.exit(min({"qml": run_qml, "cpp": compile_cpp}[kind](*rest), 1))
