#!/usr/bin/env python3
"""Who may see whom: fails on any #include that a module must not have.

Given the top of the tree. Checks itself first on lines of known outcome.
"""

import pathlib
import re
import sys

SUFFIXES = {".h", ".cpp"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
OURS = ("base", "pitch", "tunings", "platform", "engine", "ui", "tools", "tests", "bench", "fuzz")

# For each module: which of ours, and which outside libraries, its own code may include.
ALLOWED = {
    "base": (("base",), ()),
    "pitch": (("base", "pitch"), ()),
    "tunings": (("base", "tunings"), ()),
    "platform": (("base", "platform"), ()),
    "platform/pulse": (("base", "platform", "platform/pulse"), ("pulse", "posix")),
    "platform/qt": (("base", "platform", "platform/qt"), ("qt",)),
    "engine": (("base", "pitch", "tunings", "platform", "engine"), ()),
    "ui": (("base", "pitch", "tunings", "platform", "engine", "ui"), ("qt",)),
    "tools/replay": (("base", "pitch", "tunings", "platform", "engine", "tools/replay"), ("sndfile",)),
}
# The one place where everything is put together, and the things that the standard library and
# Qt lack: a thread's name and urgency, the processor's own instructions, a wake-up that allocates nothing, a
# disk's word that it has a file, a property of a window, and a socket.
EXTRA = {
    "ui/app/main.cpp": {"platform/pulse", "platform/qt"},
    "base/urgent_thread.h": {"posix"},
    "pitch/difference_avx512.cpp": {"intrinsics"},
    "platform/qt/qt_main_queue.cpp": {"posix"},
    "platform/qt/settings_file.cpp": {"posix"},
    "ui/app/dark_frame.cpp": {"xcb"},
    "ui/app/session_bus.cpp": {"posix"},
}


def module_of(path: str) -> str:
    parts = path.split("/")
    for length in (2, 1):
        name = "/".join(parts[:length])
        if len(parts) > length and name in ALLOWED:
            return name
    return parts[0]


def library_of(header: str) -> str:
    """The outside library of an include, or "std"."""
    if header.startswith("pulse/"):
        return "pulse"
    if header.startswith(("Qt", "Q", "rhi/")):
        return "qt"
    if header == "sndfile.h":
        return "sndfile"
    if header.startswith("xcb/"):
        return "xcb"
    if header == "immintrin.h":
        return "intrinsics"
    if header.endswith(".h"):
        return "posix"
    return "std"


def is_allowed(path: str, quote: str, header: str) -> bool:
    if "/tests/" in path or path.startswith(("tests/", "bench/")):
        return True
    module = module_of(path)
    ours, libraries = ALLOWED[module]
    allowed = set(ours) | set(libraries) | EXTRA.get(path, set()) | {"std"}
    if quote == '"' and header.split("/")[0] in OURS:
        return module_of(header) in allowed
    return library_of(header) in allowed


def violations(top: pathlib.Path):
    for module in sorted({name.split("/")[0] for name in ALLOWED}):
        for path in sorted((top / module).rglob("*")):
            if path.suffix not in SUFFIXES:
                continue
            name = path.relative_to(top).as_posix()
            for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
                found = INCLUDE.match(line)
                if found and not is_allowed(name, *found.groups()):
                    yield f"{name}:{number}: {module_of(name)} may not include {found.group(2)}"


def check_itself() -> None:
    assert is_allowed("pitch/a.cpp", '"', "base/require.h")
    assert is_allowed("pitch/a.cpp", "<", "vector")
    assert not is_allowed("pitch/a.cpp", '"', "tunings/tuning.h")
    assert not is_allowed("pitch/a.cpp", "<", "immintrin.h")
    assert not is_allowed("engine/a.cpp", "<", "QString")
    assert not is_allowed("engine/a.cpp", '"', "platform/pulse/pulse_loop.h")
    assert not is_allowed("platform/clock.h", "<", "pulse/context.h")
    assert not is_allowed("platform/qt/a.cpp", '"', "engine/tuner_engine.h")
    assert not is_allowed("ui/model/tuner_model.cpp", '"', "platform/pulse/pulse_loop.h")
    assert is_allowed("ui/app/main.cpp", '"', "platform/pulse/pulse_loop.h")
    assert not is_allowed("ui/app/main.cpp", "<", "pulse/context.h")


def main() -> int:
    check_itself()
    found = list(violations(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "every include is allowed")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
