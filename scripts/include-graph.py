#!/usr/bin/env python3
"""Prints the arrows between the folders of src/ (who includes whom) and fails on a cycle.

Usage: include-graph.py [SRC_DIR]
"""
import pathlib
import re
import sys

src = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "src")
include = re.compile(r'^\s*#\s*include\s+"([a-z_]+)/', re.MULTILINE)
arrows = {}
for path in sorted(src.rglob("*")):
    if path.suffix not in (".h", ".cpp") or path.parent == src:
        continue
    folder = path.parent.relative_to(src).parts[0]
    for target in include.findall(path.read_text(encoding="utf-8")):
        if target != folder:
            arrows.setdefault(folder, set()).add(target)

for folder in sorted(arrows):
    print(f"{folder} -> {', '.join(sorted(arrows[folder]))}")


def cycle_from(start, node, seen):
    for nxt in sorted(arrows.get(node, ())):
        if nxt == start:
            return [node, nxt]
        if nxt not in seen:
            seen.add(nxt)
            rest = cycle_from(start, nxt, seen)
            if rest:
                return [node] + rest
    return None


for folder in sorted(arrows):
    found = cycle_from(folder, folder, {folder})
    if found:
        print("cycle: " + " -> ".join(found), file=sys.stderr)
        sys.exit(1)
