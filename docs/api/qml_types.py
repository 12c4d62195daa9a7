"""Writes a page for each QML type into a folder for Doxygen, and one for each module.

Usage: qml_types.py OUTPUT SOURCES QMLTYPES... The type descriptions (plugins.qmltypes) say what there is, the classes'
and QML files' comments below SOURCES what it is for. Fails when a type that a file *QmlModule.cpp registers has no page.
"""
import pathlib
import re
import sys

TOKEN = re.compile(r'(\w+)\s*\{|\}|(\w+):\s*("[^"]*"|\[[^\]]*\]|\{[^}]*\}|[\w.+-]+)')
EXPORT = re.compile(r'"([\w.]+)/(\w+) ')
REGISTRATION = re.compile(r'registerQml\w+(?:<[^(]*>)?\([^;]*"(\w+)"\);')


def parse(text):
    """The components of a type description: nested lists of (kind, attributes, children)."""
    root = ("", {}, [])
    stack = [root]
    for match in TOKEN.finditer(text):
        kind, key, value = match.groups()
        if kind:
            stack[-1][2].append((kind, {}, []))
            stack.append(stack[-1][2][-1])
        elif key:
            stack[-1][1][key] = value.strip('"')
        else:
            stack.pop()
    return [child for module in root[2] for child in module[2]]


def members(component, kind):
    return [child for child in component[2] if child[0] == kind and not child[1]["name"].startswith("_")]


def anchor(module, name=""):
    return re.sub(r"\W", "_", f"qml_{module}_{name}".rstrip("_"))


def plain(name):
    """A class's name as QML's readers know it."""
    return name.split("::")[-1]


class Page:
    def __init__(self, module, name, component, components, sources):
        self.module, self.name, self.component = module, name, component
        self.components, self.sources = components, sources
        self.attributes = component[1]
        self.composite = self.attributes.get("isComposite") == "true"

    def text(self):
        parts = [f"# {self.name} ({self.module}) {{#{anchor(self.module, self.name)}}}", self.usage(), self.about()]
        for owner in self.lineage():
            cls = owner[1]["name"]
            parts += [self.table("Property", ["Property", "Type", "Access", "About"], owner, self.property_row),
                      self.table("Method", ["Method", "Returns", "About"], owner, self.method_row),
                      self.table("Signal", ["Signal", "About"], owner, self.signal_row)]
            parts += [self.enumeration(child, cls) for child in members(owner, "Enum")]
        return "\n\n".join(part for part in parts if part) + "\n"

    def usage(self):
        singleton = self.attributes.get("isSingleton") == "true"
        kind = "A singleton" if singleton else "Handed out by others, not creatable" \
            if self.attributes.get("isCreatable") == "false" else "A type"
        cls = "" if self.composite else f"; in C++ \\ref {self.attributes['name']}"
        base = self.components.get(self.attributes.get("prototype"))
        exported = base and EXPORT.search(base[1].get("exports", ""))
        inherits = f", inherits \\ref {anchor(*exported.groups())}" if exported else ""
        return f"`import {self.module} 1.0`\n\n{kind}{inherits}{cls}."

    def about(self):
        if not self.composite:
            return "\n\n".join(f"\\{command} {self.attributes['name']}" for command in ("copybrief", "copydetails"))
        text = self.qml_source()
        return re.sub(r"(?m)^ *", "", re.search(r"/\*!(.*?)\*/\s*\w+ \{", text, re.DOTALL).group(1)).strip()

    def qml_source(self):
        return next(self.sources.glob(f"hmi/**/{self.name}.qml")).read_text(encoding="utf-8")

    def lineage(self):
        """The type, then its bases up to the first that is a QML type of its own, or Qt's."""
        owner = self.component
        while owner:
            yield owner
            owner = self.components.get(owner[1].get("prototype"))
            if owner and ("exports" in owner[1] or "::" not in owner[1]["name"]):
                return

    def table(self, kind, head, owner, row):
        cls = owner[1]["name"]
        rows = list(dict.fromkeys(row(child, cls) for child in members(owner, kind)))
        return "\n".join(f"| {' | '.join(row)} |" for row in [head, ["---"] * len(head)] + rows) if rows else ""

    def property_row(self, child, cls):
        access = "read" if child[1].get("isReadonly") == "true" else "read, write"
        return self.link(cls, child), plain(child[1]["type"]), access, self.brief(cls, child)

    def call(self, child, cls):
        parameters = ", ".join(f"{plain(each[1]['type'])} {each[1]['name']}" for each in child[2])
        return f"{self.link(cls, child)}({parameters})"

    def method_row(self, child, cls):
        returns = plain(child[1].get("type", ""))
        return self.call(child, cls), "" if returns == "QVariant" else returns, self.brief(cls, child)

    def signal_row(self, child, cls):
        return self.call(child, cls), self.brief(cls, child)

    def link(self, cls, child):
        name = child[1]["name"]
        return f"`{name}`" if self.composite else f'\\ref {cls}::{name} "{name}"'

    def brief(self, cls, child):
        """What the header, or the QML file, says above the member."""
        if not self.composite:
            return f"\\copybrief {cls}::{child[1]['name']}"
        found = re.search(r"/\*!((?:(?!\*/).)*)\*/\s*(?:function|readonly property \w+) " + child[1]["name"],
                          self.qml_source(), re.DOTALL)
        return " ".join(found.group(1).split()) if found else ""

    def enumeration(self, child, cls):
        values = ", ".join(f"`{name}`" for name in re.findall(r'"(\w+)"', child[1]["values"]))
        return f"## {child[1]['name']}\n\n\\ref {cls}::{child[1]['name']} \"{child[1]['name']}\": {values}"


def write_module(output, module, names):
    lines = [f"# QML module {module} {{#{anchor(module)}}}", ""]
    lines += [f"- \\subpage {anchor(module, name)} \"{name}\"" for name in sorted(names)]
    (output / f"{anchor(module)}.md").write_text("\n".join(lines) + "\n", encoding="utf-8")


def main(output, sources, *descriptions):
    output, sources = pathlib.Path(output), pathlib.Path(sources)
    output.mkdir(parents=True, exist_ok=True)
    for old in output.glob("*.md"):
        old.unlink()
    modules = {}
    for description in descriptions:
        parsed = parse(pathlib.Path(description).read_text(encoding="utf-8"))
        components = {component[1]["name"]: component for component in parsed}
        for component in parsed:
            for module, name in EXPORT.findall(component[1].get("exports", "")):
                page = Page(module, name, component, components, sources)
                (output / f"{anchor(module, name)}.md").write_text(page.text(), encoding="utf-8")
                modules.setdefault(module, []).append(name)
    for module, names in modules.items():
        write_module(output, module, names)
    registered = {name for file in sources.glob("hmi/**/*QmlModule.cpp")
                  for name in REGISTRATION.findall(file.read_text(encoding="utf-8"))}
    missing = registered - {name for names in modules.values() for name in names}
    print(sum(map(len, modules.values())), "QML types in", len(modules), "modules;", len(registered), "are registered")
    if missing or not registered:
        sys.exit("Registered, and not in the type descriptions: " + ", ".join(sorted(missing)))


main(*sys.argv[1:])
