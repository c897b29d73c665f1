#!/usr/bin/env python3
"""Fails on an #include that points up a layer: app -> windows -> core -> platform. Widget code (a ui/ folder,
platform/ui included) is reached only from windows and the app. Includes are resolved as the compiler does:
beside the including file first, then from src/, in quotes or angle brackets."""
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


def widgets(path: str) -> bool:
    return "ui" in pathlib.PurePosixPath(path).parts[:-1]


def resolve(src: pathlib.Path, file: pathlib.Path, name: str):
    for base in (file.parent, src):
        candidate = (base / name).resolve()
        if candidate.is_file() and src in candidate.parents:
            return candidate.relative_to(src).as_posix()
    return None


def main() -> int:
    src = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "src").resolve()
    include = re.compile(r'^\s*#\s*include\s+[<"]([^">]+)[">]')
    faults = []
    for file in sorted(src.rglob("*")):
        if file.suffix not in (".h", ".cpp"):
            continue
        here = file.relative_to(src).as_posix()
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            m = include.match(line)
            target = resolve(src, file, m.group(1)) if m else None
            if target is None:
                continue
            if RANK[layer(target)] > RANK[layer(here)]:
                faults.append(f"{here}:{number}: {layer(here)} includes {target} ({layer(target)})")
            elif widgets(target) and not widgets(here) and layer(here) != "app":
                faults.append(f"{here}:{number}: {layer(here)} includes widget code {target}")
    for fault in faults:
        print(fault)
    print(f"layer check: {len(faults)} include(s) pointing up")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
