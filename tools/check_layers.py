#!/usr/bin/env python3
"""Fails on an #include that points up a layer: app -> windows -> core -> platform."""
import pathlib
import re
import sys

RANK = {"platform": 0, "core": 1, "windows": 2, "app": 3}


def layer(path: str) -> str:
    parts = pathlib.PurePosixPath(path).parts
    if parts[0] == "app" or parts == ("main.cpp",):
        return "app"
    if parts[0] == "platform":
        return "platform"
    return "windows" if "ui" in parts[1:-1] else "core"


def main() -> int:
    src = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "src")
    include = re.compile(r'^\s*#\s*include\s+"([^"]+)"')
    faults = []
    for file in sorted(src.rglob("*")):
        if file.suffix not in (".h", ".cpp"):
            continue
        here = file.relative_to(src).as_posix()
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            m = include.match(line)
            if not m or not (src / m.group(1)).exists():
                continue
            if RANK[layer(m.group(1))] > RANK[layer(here)]:
                faults.append(f"{here}:{number}: {layer(here)} includes {m.group(1)} ({layer(m.group(1))})")
    for fault in faults:
        print(fault)
    print(f"layer check: {len(faults)} include(s) pointing up")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
