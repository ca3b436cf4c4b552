"""Holds the includes of our sources against the table "Who may include whom" of docs/architecture.md, and looks for
files that include each other in a circle. Prints every breach; exits 1 if there is one."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


def read_table():
    """By room, what it may include: rooms, single headers of a room, or everything."""
    text = (ROOT / "docs/architecture.md").read_text("utf-8")
    section = re.search(r"^## Who may include whom\n(.*?)^## ", text, re.M | re.S).group(1)
    table = {}
    for line in re.findall(r"^    (.*──>.*)$", section, re.M):
        chain = [re.findall(r"[\w./]+", re.sub(r"\([^)]*\)|;.*", "", part)) for part in line.split("──>")]
        for above, below in zip(chain, chain[1:]):
            for room in above:
                table.setdefault(room, set()).update(below)
    return table


def reach(table, room):
    """The room itself and all further down its chains."""
    seen, left = set(), [room]
    while left:
        here = left.pop()
        if here not in seen:
            seen.add(here)
            left += table.get(here, ())
    return seen


def read_includes():
    """By file, which of our own it includes; both as the sources write them."""
    files = {p.relative_to(ROOT).as_posix() for kind in ("h", "cpp") for p in ROOT.glob(f"[a-z]*/**/*.{kind}")}
    files = {name for name in files if not name.startswith("build/")}
    quoted = lambda name: re.findall(r'^\s*#\s*include\s*"([^"]+)"', (ROOT / name).read_text("utf-8"), re.M)
    return {name: [target for target in quoted(name) if target in files] for name in sorted(files)}


def misplaced(table, includes):
    room = lambda name: name.split("/")[0]
    known = set(table).union(*table.values())
    for name, targets in includes.items():
        allowed = reach(table, room(name))
        if room(name) not in known:
            yield f"{name}: docs/architecture.md does not say whom {room(name)} may include"
        elif "everything" not in allowed:
            for target in targets:
                if not {target, room(target)} & allowed:
                    yield f"{name}: {room(name)} may not include {target}"


def circles(includes):
    left = {name: set(targets) for name, targets in includes.items()}
    while True:
        while ends := [name for name, targets in left.items() if not targets & left.keys()]:
            for name in ends:
                del left[name]
        if not left:
            return
        path = [min(left)]
        while (step := min(left[path[-1]] & left.keys())) not in path:
            path.append(step)
        yield "a circle: " + " -> ".join([*path[path.index(step) :], step])
        del left[step]


def main():
    includes = read_includes()
    breaches = [*misplaced(read_table(), includes), *circles(includes)]
    for breach in breaches:
        print(breach)
    sys.exit(bool(breaches))


if __name__ == "__main__":
    main()
