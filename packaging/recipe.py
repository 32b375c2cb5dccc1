#!/usr/bin/python3 -B
# SPDX-License-Identifier: MIT
"""recipe.py ARCHIVE FROM TO: generates a package recipe.

Copies the directory FROM, beside this file, to TO for the source archive ARCHIVE. In files ending in ".in" it replaces:

    @VERSION@ @UPSTREAM@    the versions of package and archive: CMakeLists.txt, CHANGELOG.md
    @ARCH VERSION@          the package's where "~" is not allowed; "dev" sorts before the release there too
    @SUMMARY@ @summary@     the summary, capitalised or not: CMakeLists.txt
    @HOMEPAGE@              CMakeLists.txt
    @DESCRIPTION@           the line is repeated for each line of the metainfo's description
    @fedora build@          the line is repeated for each package of that system and purpose: packages
    @ARCHIVE@ @SHA256@ @MAINTAINER@ @DEBIAN CHANGES@ @RPM CHANGES@"""

import hashlib
import pathlib
import re
import shutil
import sys
import textwrap
from collections.abc import Iterator
from xml.etree import ElementTree

import changelog

HERE = pathlib.Path(__file__).resolve().parent
SYSTEMS = ("debian", "fedora", "opensuse", "arch")
# The syntax of a minimum version.
LEAST = {"debian": "{} (>= {})", "fedora": "{} >= {}", "opensuse": "{} >= {}", "arch": "{}>={}"}


def facts(archive: pathlib.Path) -> dict[str, str | list[str]]:
    """The value of each placeholder."""
    text = (HERE.parent / "CMakeLists.txt").read_text(encoding="utf-8")
    project = re.search(r'^project\(corvane VERSION (\S+)\s+DESCRIPTION "(.*)" HOMEPAGE_URL (\S+) ', text,
                        re.MULTILINE)
    if not project:
        raise changelog.Failure("CMakeLists.txt has no version, description and address")
    upstream, summary, homepage = project.groups()
    entries = changelog.parse((HERE.parent / "CHANGELOG.md").read_text(encoding="utf-8"), upstream,
                              changelog.current_day())
    version = entries[0].version
    return {"VERSION": version, "ARCH VERSION": version.replace("~", ""), "UPSTREAM": upstream, "SUMMARY": summary,
            "summary": summary[0].lower() + summary[1:], "HOMEPAGE": homepage,
            "DESCRIPTION": description(), "DEBIAN DESCRIPTION": [line or "." for line in description()],
            "MAINTAINER": changelog.MAINTAINER, "ARCHIVE": archive.name, "SHA256": hashlib.sha256(archive.read_bytes()).hexdigest(),
            "DEBIAN CHANGES": list(changelog.debian(entries)), "RPM CHANGES": list(changelog.rpm(entries)),
            **packages()}


def description() -> list[str]:
    metainfo = ElementTree.parse(HERE / "org.corvane.Corvane.metainfo.xml.in")
    paragraphs = [textwrap.wrap(" ".join(p.text.split()), 78) for p in metainfo.findall("description/p")]
    return [line for paragraph in paragraphs for line in ("", *paragraph)][1:]


def packages() -> dict[str, list[str]]:
    """Packages by system and purpose."""
    found = {}
    for line in (HERE / "packages").read_text(encoding="utf-8").splitlines():
        if line.startswith("#"):
            continue
        purpose, least, *names = line.split()
        for system, name in zip(SYSTEMS, names, strict=True):
            these = found.setdefault(f"{system} {purpose}", [])
            if name not in "-?":
                name = name.replace("|", " | ")
                these.append(name if least == "-" else LEAST[system].format(name, least))
    return found


def filled(template: str, known: dict[str, str | list[str]]) -> Iterator[str]:
    for line in template.splitlines():
        name = re.search(r"@([A-Za-z0-9 ]+)@", line)
        if not name:
            yield line
        elif isinstance(known[name[1]], str):
            yield from filled(line.replace(name[0], known[name[1]]), known)
        else:
            yield from (line.replace(name[0], value).rstrip() for value in known[name[1]])


def write(archive: pathlib.Path, source: pathlib.Path, target: pathlib.Path) -> None:
    known = facts(archive)
    for path in sorted(source.rglob("*")):
        copy = target / path.relative_to(source)
        if path.is_dir():
            copy.mkdir(parents=True, exist_ok=True)
        elif path.suffix == ".in":
            lines = "\n".join(filled(path.read_text(encoding="utf-8"), known))
            copy.with_suffix("").write_text(lines.rstrip() + "\n", encoding="utf-8")
        else:
            shutil.copy(path, copy)


def main(arguments: list[str]) -> int:
    if len(arguments) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        archive, source, target = map(pathlib.Path, arguments)
        target.mkdir(parents=True, exist_ok=True)
        write(archive, HERE / source, target)
    except changelog.Failure as failure:
        print(failure, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
