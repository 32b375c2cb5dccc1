"""A private desktop with sound, on which the tuner runs as it does on a person's: a display, a
session bus, an accessibility bus, a window manager and a room with a microphone in it."""
