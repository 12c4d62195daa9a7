"""Compares the keys and settings of the code with docs/configuration.md and the guide; follows the documents' links.

Usage: check_pages.py SOURCES
"""
import pathlib
import re
import sys

sources = pathlib.Path(sys.argv[1])
problems = []

KEYS = {  # the group of the page: the file that reads it, and how a key looks there
    "HmiCore": ("hmi/core/foundation/HmiCoreConfigs.cpp", r'"HmiCore/(\w+)"'),
    "HmiShared": ("hmi/shared/application/HmiSharedConfigs.cpp", r'"HmiShared/(\w+)"'),
    "Storage": ("platform/data-manager/StoreConfiguration.cpp", r'read\(QStringLiteral\("(\w+)"\)'),
}
page = (sources / "docs/configuration.md").read_text(encoding="utf-8")
for group, (file, pattern) in KEYS.items():
    read = set(re.findall(pattern, (sources / file).read_text(encoding="utf-8")))
    section = re.search(rf"^## .*\b{group}$(.*?)(?=^## |\Z)", page, re.MULTILINE | re.DOTALL)
    cells = re.findall(r"^\| ([A-Z][^|]*) \|", section.group(1) if section else "", re.MULTILINE)
    told = {key for cell in cells for key in cell.split(", ")} - {"Key"}
    problems += [f"{group}/{key}: only in {file if key in read else 'the page'}" for key in sorted(read ^ told)]
    problems += [] if read else [f"no key in {file}"]

guide = (sources / "docs/guide/settings.md").read_text(encoding="utf-8")
shared = (sources / "hmi/shared/settings/SharedSettings.cpp").read_text(encoding="utf-8")
problems += [f"the setting {name} is not in the guide" for name in re.findall(r'\{"(\w+)", "Settings', shared)
             if f"`{name}`" not in guide]


def headings(text):
    lines = re.findall(r"^#+ (.*)$", text, re.MULTILINE)
    return {re.sub(r"[^\w -]", "", line).strip().lower().replace(" ", "-") for line in lines}


for document in [*sources.glob("*.md"), *sources.glob("docs/**/*.md")]:
    text = re.sub(r"^```.*?^```$", "", document.read_text(encoding="utf-8"), flags=re.MULTILINE | re.DOTALL)
    for link in re.findall(r"\]\(([^):]+)\)", text):
        path, _, section = link.partition("#")
        target = (document.parent / path) if path else document
        if not target.exists() or section and section not in headings(target.read_text(encoding="utf-8")):
            problems.append(f"{document.relative_to(sources)}: nothing at {link}")

print(*problems, sep="\n")
sys.exit(bool(problems))
