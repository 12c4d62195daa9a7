"""Makes a manual page of a Markdown document, or of the part of it under one heading of the second level:
    man_page.py <lowdown> <document>.md <name>.<section> <description> [<heading>] > <page>
A table becomes a list, as terminals are narrow: its first column are the terms, the others say what they are."""
import re
import subprocess
import sys


def cells(row):
    return [cell.strip().replace("\\|", "|") for cell in re.split(r"(?<!\\)\|", row.strip().strip("|"))]


def definitions(table):
    """Of the lines of a table; where there are several columns behind the first they are named."""
    header, _, *rows = [cells(line) for line in table.group(0).strip().split("\n")]
    items = []
    for term, *rest in rows:
        named = [f"{name}: {text}" if name and len(rest) > 1 else text for name, text in zip(header[1:], rest) if text]
        items.append(f"{term}\n: {'; '.join(named)}\n")
    return "\n" + "\n".join(items) + "\n"


def part(text, heading):
    found = re.search(rf"^## {re.escape(heading)}\n(.*?)(?=^## |\Z)", text, re.MULTILINE | re.DOTALL)
    if not found:
        sys.exit(f"There is no part '{heading}' for the manual page.")
    return found.group(1)


def main(lowdown, document, page, description, heading=""):
    with open(document, encoding="utf-8") as file:
        text = file.read()
    text = part(text, heading) if heading else re.sub(r"\A# .*\n", "", text)
    text = re.sub(r"(?:^\|.*\n)+", definitions, text, flags=re.MULTILINE)
    text = re.sub(r"\[([^\]\n]*)\]\([^)\n]*\)", r"\1", text)  # links lead nowhere on a terminal
    text = re.sub(r"^#(#+ )", r"\1", text, flags=re.MULTILINE)
    name, section = page.rsplit(".", 1)
    text = "# NAME\n\n" + name.replace("_", r"\_") + f" - {description}\n\n# DESCRIPTION\n\n{text}"
    command = [lowdown, "-s", "-Tman", "-M", f"title={name}", "-M", f"section={section}"]
    subprocess.run(command, input=text.encode(), check=True)


main(*sys.argv[1:])
