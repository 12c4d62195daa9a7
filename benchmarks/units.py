"""Measures units, dates and phone numbers."""
import glob
import re
import subprocess

from programs import benchmark_medians, run
from rows import ratios, single

RATIOS = [
    ("64 distances, units known to the compiler / bare multiplication", "ConvertDistance", "InlineMultiplication", 1.2),
    ("64 distances, any units / bare multiplication", "ConvertDistanceByVariables", "InlineMultiplication", None),
    ("64 distances, any units / KUnitConversion", "ConvertDistanceByVariables", "KUnitConversionDistance", 1 / 50),
    ("`NumberPrecision` write / plain property write", "NumberPrecisionWrite", "PlainPropertyWrite", None),
    ("`formatDateTime()` / `QLocale::toString`", "FormatDateTime", "BareLocaleToString", 1.1),
    ("`formatDateTime()` at an offset / `QLocale::toString`", "FormatDateTimeAtOffset", "BareLocaleToString", None),
    ("phone number `format()` / libphonenumber", "PhoneNumberFormat", "LibphonenumberFormat", 1 / 20),
    ("phone number `format()` / bare match of its pattern", "PhoneNumberFormat", "BareNumberMatch", None),
]


def calls_at_load(build):
    """What the library calls for these sources when a program loads it, but to register their ends."""
    objects = glob.glob(f"{build}/hmi/shared/CMakeFiles/hmi_shared.dir/units/*.o")
    assert objects, "the library's objects are not where they were"
    # In one file alone there may be no such section, which is said on standard error.
    text = subprocess.run(["objdump", "-r", "-j", ".text.startup", *objects], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, text=True).stdout
    calls = re.findall(r" R_\S+PLT\S*\s+(\w+)", text)
    assert "__cxa_atexit" in calls, "the singletons are not seen"
    return sum(call != "__cxa_atexit" for call in calls)


def rows(build):
    yield from ratios(benchmark_medians(build, RATIOS), RATIOS)
    allocations = int(run([f"{build}/benchmarks/hmi_unit_allocations"]))
    yield single("conversions between all units: allocations", allocations, 0, "")
    yield single("units, dates, phone numbers: calls at start-up without use", calls_at_load(build), 0, "")
