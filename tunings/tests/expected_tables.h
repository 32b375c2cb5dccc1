// SPDX-License-Identifier: MIT
#pragma once

/// The expected tables, one tuning per line: id, name, group, detail, and each string's MIDI number
/// and label.
namespace corvane::expected {

inline constexpr char guitar[] = R"(
g6-standard | Standard | 6-string | E A D G B E | 40 E, 45 A, 50 D, 55 G, 59 B, 64 E
g6-half | Half step down | 6-string | E♭ A♭ D♭ G♭ B♭ E♭ | 39 E♭, 44 A♭, 49 D♭, 54 G♭, 58 B♭, 63 E♭
g6-whole | Whole step down | 6-string | D G C F A D | 38 D, 43 G, 48 C, 53 F, 57 A, 62 D
g6-dropd | Drop D | 6-string | D A D G B E | 38 D, 45 A, 50 D, 55 G, 59 B, 64 E
g6-ddropd | Double drop D | 6-string | D A D G B D | 38 D, 45 A, 50 D, 55 G, 59 B, 62 D
g6-dropc | Drop C | 6-string | C G C F A D | 36 C, 43 G, 48 C, 53 F, 57 A, 62 D
g6-dropb | Drop B | 6-string | B F♯ B E G♯ C♯ | 35 B, 42 F♯, 47 B, 52 E, 56 G♯, 61 C♯
g6-dropa | Drop A | 6-string | A E A D F♯ B | 33 A, 40 E, 45 A, 50 D, 54 F♯, 59 B
g6-cstd | C standard | 6-string | C F B♭ E♭ G C | 36 C, 41 F, 46 B♭, 51 E♭, 55 G, 60 C
g6-dadgad | DADGAD | Open and alternate | D A D G A D | 38 D, 45 A, 50 D, 55 G, 57 A, 62 D
g6-openg | Open G | Open and alternate | D G D G B D | 38 D, 43 G, 50 D, 55 G, 59 B, 62 D
g6-opend | Open D | Open and alternate | D A D F♯ A D | 38 D, 45 A, 50 D, 54 F♯, 57 A, 62 D
g6-opene | Open E | Open and alternate | E B E G♯ B E | 40 E, 47 B, 52 E, 56 G♯, 59 B, 64 E
g6-opena | Open A | Open and alternate | E A E A C♯ E | 40 E, 45 A, 52 E, 57 A, 61 C♯, 64 E
g6-openc | Open C | Open and alternate | C G C G C E | 36 C, 43 G, 48 C, 55 G, 60 C, 64 E
g6-nst | New standard | Open and alternate | C G D A E G | 36 C, 43 G, 50 D, 57 A, 64 E, 67 G
g6-fourths | All fourths | Open and alternate | E A D G C F | 40 E, 45 A, 50 D, 55 G, 60 C, 65 F
g6-baritone | Baritone | Baritone | B E A D F♯ B | 35 B, 40 E, 45 A, 50 D, 54 F♯, 59 B
g7-standard | 7-string standard | 7-string | B E A D G B E | 35 B, 40 E, 45 A, 50 D, 55 G, 59 B, 64 E
g7-dropa | 7-string drop A | 7-string | A E A D G B E | 33 A, 40 E, 45 A, 50 D, 55 G, 59 B, 64 E
g8-standard | 8-string standard | 8-string | F♯ B E A D G B E | 30 F♯, 35 B, 40 E, 45 A, 50 D, 55 G, 59 B, 64 E
g8-drope | 8-string drop E | 8-string | E B E A D G B E | 28 E, 35 B, 40 E, 45 A, 50 D, 55 G, 59 B, 64 E
g12-standard | 12-string standard | 12-string | Octave courses follow E A D G B E | 40 E, 45 A, 50 D, 55 G, 59 B, 64 E
)";

inline constexpr char bass[] = R"(
b4-standard | 4-string standard | 4-string | E A D G | 28 E, 33 A, 38 D, 43 G
b4-dropd | 4-string drop D | 4-string | D A D G | 26 D, 33 A, 38 D, 43 G
b4-dropc | 4-string drop C | 4-string | C G C F | 24 C, 31 G, 36 C, 41 F
b4-half | 4-string half step down | 4-string | E♭ A♭ D♭ G♭ | 27 E♭, 32 A♭, 37 D♭, 42 G♭
b4-whole | 4-string whole step down | 4-string | D G C F | 26 D, 31 G, 36 C, 41 F
b4-tenor | Tenor | 4-string | A D G C | 33 A, 38 D, 43 G, 48 C
b5-standard | 5-string standard | 5-string | B E A D G | 23 B, 28 E, 33 A, 38 D, 43 G
b5-dropa | 5-string drop A | 5-string | A E A D G | 21 A, 28 E, 33 A, 38 D, 43 G
b6-standard | 6-string standard | 6-string | B E A D G C | 23 B, 28 E, 33 A, 38 D, 43 G, 48 C
)";

inline constexpr char piano[] = R"(
piano-chromatic | Chromatic | Piano | A0 to C8. Set A4 to this piano. Older pianos were not all tuned to 440. | no strings
)";

}  // namespace corvane::expected
