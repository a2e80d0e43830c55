#!/usr/bin/env python3
"""Holds the includes of src/ to the map in ARCHITECTURE.md.

    check_includes.py [ROOT]

The map is the table whose rows begin with a level and a folder in backticks. A file
may include headers of its own folder and of folders of lower levels; a row that says
"includes `NAME`" allows that folder of the same level too. The levels of the logic may not
include Qt. Units (a header with the sources that begin with its name) may form
circles of two at the most. Prints what breaks a rule, and exits 1 if anything does.
"""
import re
import sys
from collections import defaultdict
from pathlib import Path

LARGEST_CIRCLE = 2
LAST_LOGIC_LEVEL = 2
ROW = re.compile(r"^\|\s*(\d+)\s*\|\s*((?:`src/[\w/]+`(?:,\s*)?)+)\s*\|(.*)\|\s*$")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


class Map:
    def __init__(self, text):
        self.level, self.also = {}, defaultdict(set)
        for line in text.splitlines():
            if not (row := ROW.match(line)):
                continue
            allowed = re.findall(r"includes ((?:`[\w/]+`(?:, | and )?)+)", row[3])
            for folder in re.findall(r"`src/([\w/]+)`", row[2]):
                self.level[folder] = int(row[1])
                self.also[folder] = set(re.findall(r"`([\w/]+)`", " ".join(allowed)))

    def folder_of(self, path):
        """The folder of the map that holds a path below src/; None if none does."""
        for parent in Path(path).parents:
            if str(parent) in self.level:
                return str(parent)
        return None

    def allows(self, own, other):
        return own == other or self.level[other] < self.level[own] or other in self.also[own]


def includes_of(file):
    for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
        if found := INCLUDE.match(line):
            yield number, found[1] == "<", found[2]


def breaches(files, src, rules):
    for file in files:
        name = file.relative_to(src)
        own = rules.folder_of(name)
        if own is None:
            yield f"src/{name}: its folder isn't in the map"
            continue
        for number, system, target in includes_of(file):
            if system:
                if target.startswith("Q") and rules.level[own] <= LAST_LOGIC_LEVEL:
                    yield f"src/{name}:{number}: {own} is without Qt, but includes {target}"
            elif (other := rules.folder_of(target)) and not rules.allows(own, other):
                yield f"src/{name}:{number}: {own} may not include {target}"


def units(files, src):
    """Which unit each file belongs to: the header whose name its own begins with."""
    names = {file: str(file.relative_to(src).with_suffix("")) for file in files}
    headers = {names[file] for file in files if file.suffix == ".h"}
    return {file: max((h for h in headers if name == h or name.startswith(h + "_") and
                       Path(h).parent == Path(name).parent), key=len, default=name)
            for file, name in names.items()}


def circles(graph):
    """The strongly connected parts of a graph that are larger than one (Tarjan)."""
    index, low, stack, on_stack, found = {}, {}, [], set(), []

    def visit(node):
        index[node] = low[node] = len(index)
        stack.append(node)
        on_stack.add(node)
        for other in graph.get(node, ()):
            if other not in index:
                visit(other)
                low[node] = min(low[node], low[other])
            elif other in on_stack:
                low[node] = min(low[node], index[other])
        if low[node] == index[node]:
            part = []
            while not part or part[-1] != node:
                part.append(stack.pop())
                on_stack.discard(part[-1])
            if len(part) > 1:
                found.append(sorted(part))

    for node in list(graph):
        if node not in index:
            visit(node)
    return found


def main():
    root = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent.parent)
    src = root / "src"
    sys.setrecursionlimit(10_000)
    files = sorted([*src.rglob("*.h"), *src.rglob("*.cpp")])
    rules = Map((root / "ARCHITECTURE.md").read_text(encoding="utf-8"))
    found = list(breaches(files, src, rules))

    unit_of = units(files, src)
    graph = defaultdict(set)
    for file in files:
        for _, system, target in includes_of(file):
            header = src / target
            if not system and header in unit_of and unit_of[header] != unit_of[file]:
                graph[unit_of[file]].add(unit_of[header])
    for circle in circles(graph):
        if len(circle) > LARGEST_CIRCLE:
            found.append(f"a circle of {len(circle)} units: {', '.join(circle)}")

    for line in found:
        print(line)
    print(f"{len(files)} files, {len(rules.level)} folders, {len(found)} breaches")
    return 1 if found or not rules.level else 0


if __name__ == "__main__":
    sys.exit(main())
