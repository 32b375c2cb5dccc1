# SPDX-License-Identifier: MIT
"""A private desktop for the tuner: a display, a session bus, an accessibility bus, a window manager, and an
audio server with a microphone."""
