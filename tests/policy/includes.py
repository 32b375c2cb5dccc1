#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""includes.py TREE: fails on an #include, or on a type in QML, that its module may not use.

Checks itself first on lines with a known result.
"""

import pathlib
import re
import sys

SUFFIXES = {".h", ".cpp"}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
OURS = ("base", "pitch", "tunings", "platform", "engine", "ui", "tools", "tests", "bench", "fuzz")

# For each module: which of our modules and which external libraries its code may include.
ALLOWED = {
    "base": (("base",), ()),
    "pitch": (("base", "pitch"), ()),
    "tunings": (("base", "tunings"), ()),
    "platform": (("base", "platform"), ()),
    "platform/pulse": (("base", "platform", "platform/pulse"), ("pulse", "posix")),
    "platform/qt": (("base", "platform", "platform/qt"), ("qt",)),
    "engine": (("base", "pitch", "tunings", "platform", "engine"), ()),
    "ui/app": (("base", "platform", "engine", "ui/app", "ui/model", "ui/speech", "ui/paint", "ui/controls",
                "ui/screen"), ("qt",)),
    "ui/model": (("base", "pitch", "tunings", "platform", "engine", "ui/model", "ui/speech", "ui/paint",
                  "ui/screen/fit.h"), ("qt",)),
    "ui/speech": (("base", "engine", "ui/speech"), ("qt",)),
    "ui/paint": (("base", "ui/paint"), ("qt",)),
    "ui/controls": (("base", "ui/paint", "ui/controls"), ("qt",)),
    "ui/screen": (("base", "ui/screen"), ("qt",)),
    "tools/replay": (("base", "pitch", "tunings", "platform", "engine", "tools/replay"), ("sndfile",)),
    "tools/diagnose": (("base", "pitch", "tunings", "platform", "platform/pulse", "platform/qt", "engine",
                        "tools/replay", "tools/diagnose"), ("pulse", "qt")),
}
# Exceptions. main.cpp connects the modules; the others need what the standard library and Qt lack: a thread's
# name and priority, processor instructions, a wake-up without allocation, fsync, a window property, a socket.
EXTRA = {
    "ui/app/main.cpp": {"platform/pulse", "platform/qt"},
    "base/urgent_thread.h": {"posix"},
    "pitch/difference_avx512.cpp": {"intrinsics"},
    "platform/qt/qt_main_queue.cpp": {"posix"},
    "platform/qt/settings_file.cpp": {"posix"},
    "ui/app/dark_frame.cpp": {"xcb"},
    "ui/app/session_bus.cpp": {"posix"},
}
# Folders whose types the QML of a folder may use.
QML_ALLOWED = {
    "app": ("app", "model", "speech", "paint", "controls", "screen"),
    "screen": ("model", "paint", "controls", "screen"),
    "controls": ("paint", "controls"),
    "paint": ("paint",),
}
# Menus show a model's entries. Menus use the window's zoom. The live region lies over the note that it speaks about.
QML_EXTRA = {("controls", "MenuModel"), ("controls/MenuOverlay.qml", "Main"), ("screen/NoteReadout.qml", "LiveRegion")}


def module_of(path: str) -> str:
    parts = path.split("/")
    for length in (2, 1):
        name = "/".join(parts[:length])
        if len(parts) > length and name in ALLOWED:
            return name
    return parts[0]


def library_of(header: str) -> str:
    """The external library of an include, or "std"."""
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
        return header in allowed or module_of(header) in allowed
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


def qml_types(ui: pathlib.Path) -> dict[str, str]:
    """The folder of each of our types in QML."""
    types = {path.stem: path.parent.name for path in ui.glob("*/*.qml")}
    declared = re.compile(r"class (\w+)[^;{]*\{(?:\s+Q_\w+(?:\(.*\))?)*\s+QML_ELEMENT")
    for path in ui.glob("*/*.h"):
        types |= dict.fromkeys(declared.findall(path.read_text(encoding="utf-8")), path.parent.name)
    return types


def named_types(text: str) -> list[str]:
    code = re.sub(r'"[^"\n]*"|//[^\n]*|/\*.*?\*/', "", text, flags=re.DOTALL)
    return re.findall(r"(?<![\w.])[A-Z]\w*", code)


def qml_violations(ui: pathlib.Path):
    types = qml_types(ui)
    for path in sorted(ui.glob("*/*.qml")):
        folder, name = path.parent.name, path.relative_to(ui).as_posix()
        for used in sorted(set(named_types(path.read_text(encoding="utf-8"))) & set(types)):
            if types[used] not in QML_ALLOWED[folder] and not {(folder, used), (name, used)} & QML_EXTRA:
                yield f"ui/{name}: ui/{folder} may not use {used} of ui/{types[used]}"


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
    assert is_allowed("ui/model/tuner_model.h", '"', "ui/screen/fit.h")
    assert not is_allowed("ui/paint/a.cpp", '"', "ui/model/reading_text.h")
    assert not is_allowed("ui/speech/speech.h", '"', "ui/screen/fit.h")
    assert named_types('Item { A.B {} /* C */ text: "D"; e: F.g } // H') == ["Item", "A", "F"]
    assert not is_allowed("ui/app/main.cpp", "<", "pulse/context.h")


def main() -> int:
    check_itself()
    top = pathlib.Path(sys.argv[1])
    found = [*violations(top), *qml_violations(top / "ui")]
    print("\n".join(found) or "every include and every QML type is allowed")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
