# SPDX-License-Identifier: MIT
"""The tuner's settings file."""

import configparser
import pathlib

GROUP = "General"


def settings_file(config_home: pathlib.Path) -> pathlib.Path:
    return config_home / "corvane" / "corvane.conf"


def write_settings(config_home: pathlib.Path, instrument: str, tuning: str,
                   a4: int = 440) -> None:
    path = settings_file(config_home)
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(f"[{GROUP}]\ntuner.instrument={instrument}\ntuner.tuning={tuning}\n"
                    f"tuner.a4={a4}\ntuner.left=false\n")


def read_settings(config_home: pathlib.Path) -> dict[str, str]:
    """All keys with their values as text; empty without a file."""
    parser = configparser.ConfigParser(interpolation=None)
    parser.read(settings_file(config_home), encoding="utf-8")
    return dict(parser[GROUP]) if parser.has_section(GROUP) else {}
