"""What can be chosen on the screen, in the order of its lists."""

import dataclasses


@dataclasses.dataclass(frozen=True)
class Tuning:
    """`chips` are the strings as they stand in the row of a right-handed player."""

    id: str
    name: str
    chips: list[str]


def _tunings(*rows: tuple[str, str, str]) -> list[Tuning]:
    return [Tuning(identifier, name, chips.split()) for identifier, name, chips in rows]


GUITAR = _tunings(
    ("g6-standard", "Standard", "E2 A2 D3 G3 B3 E4"),
    ("g6-half", "Half step down", "E♭2 A♭2 D♭3 G♭3 B♭3 E♭4"),
    ("g6-whole", "Whole step down", "D2 G2 C3 F3 A3 D4"),
    ("g6-dropd", "Drop D", "D2 A2 D3 G3 B3 E4"),
    ("g6-ddropd", "Double drop D", "D2 A2 D3 G3 B3 D4"),
    ("g6-dropc", "Drop C", "C2 G2 C3 F3 A3 D4"),
    ("g6-dropb", "Drop B", "B1 F♯2 B2 E3 G♯3 C♯4"),
    ("g6-dropa", "Drop A", "A1 E2 A2 D3 F♯3 B3"),
    ("g6-cstd", "C standard", "C2 F2 B♭2 E♭3 G3 C4"),
    ("g6-dadgad", "DADGAD", "D2 A2 D3 G3 A3 D4"),
    ("g6-openg", "Open G", "D2 G2 D3 G3 B3 D4"),
    ("g6-opend", "Open D", "D2 A2 D3 F♯3 A3 D4"),
    ("g6-opene", "Open E", "E2 B2 E3 G♯3 B3 E4"),
    ("g6-opena", "Open A", "E2 A2 E3 A3 C♯4 E4"),
    ("g6-openc", "Open C", "C2 G2 C3 G3 C4 E4"),
    ("g6-nst", "New standard", "C2 G2 D3 A3 E4 G4"),
    ("g6-fourths", "All fourths", "E2 A2 D3 G3 C4 F4"),
    ("g6-baritone", "Baritone", "B1 E2 A2 D3 F♯3 B3"),
    ("g7-standard", "7-string standard", "B1 E2 A2 D3 G3 B3 E4"),
    ("g7-dropa", "7-string drop A", "A1 E2 A2 D3 G3 B3 E4"),
    ("g8-standard", "8-string standard", "F♯1 B1 E2 A2 D3 G3 B3 E4"),
    ("g8-drope", "8-string drop E", "E1 B1 E2 A2 D3 G3 B3 E4"),
    ("g12-standard", "12-string standard", "E2 A2 D3 G3 B3 E4"),
)

BASS = _tunings(
    ("b4-standard", "4-string standard", "E1 A1 D2 G2"),
    ("b4-dropd", "4-string drop D", "D1 A1 D2 G2"),
    ("b4-dropc", "4-string drop C", "C1 G1 C2 F2"),
    ("b4-half", "4-string half step down", "E♭1 A♭1 D♭2 G♭2"),
    ("b4-whole", "4-string whole step down", "D1 G1 C2 F2"),
    ("b4-tenor", "Tenor", "A1 D2 G2 C3"),
    ("b5-standard", "5-string standard", "B0 E1 A1 D2 G2"),
    ("b5-dropa", "5-string drop A", "A0 E1 A1 D2 G2"),
    ("b6-standard", "6-string standard", "B0 E1 A1 D2 G2 C3"),
)

PIANO = _tunings(("piano-chromatic", "Chromatic", ""))

OLDER_PITCHES = {377: "377  Low historical", 392: "392  French Baroque", 415: "415  Baroque",
                 422: "422  Handel, Mozart era", 430: "430  Classical", 432: "432",
                 435: "435  French 1859"}
MODERN_PITCHES = {440: "440  Modern", 442: "442  Orchestra", 466: "466  High choir",
                  560: "560  High historical"}
QUICK_PITCHES = [415, 432, 440, 466]
