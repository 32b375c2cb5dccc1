# SPDX-License-Identifier: MIT
"""A proxy in front of an audio server that denies recording, like the server of a sandbox: it answers each
request for a recording with "access denied" and forwards everything else to the real server
that may not use the microphone. Prints a line for each refusal.

usage: no_recordings.py SOCKET OF-THE-SERVER ALLOWED

While the file ALLOWED exists, it forwards recordings too."""

import pathlib
import socket
import struct
import sys
import threading

FRAME = struct.Struct(">5I")  # length, channel, offset (two words), flags
CONTROL = 0xFFFFFFFF  # the channel of control packets
ERROR, CREATE_RECORD_STREAM, AUTH = 0, 5, 8
ACCESS_DENIED = 1


class Client:
    def __init__(self, client: socket.socket, server: socket.socket, allowed: pathlib.Path):
        self._client, self._server, self._allowed = client, server, allowed
        self._answering = threading.Lock()
        for pass_on in (self._pass_requests_on, self._pass_answers_on):
            threading.Thread(target=pass_on, daemon=True).start()

    def _pass_requests_on(self) -> None:
        for header, content in frames(self._client, self._server):
            command, tag = numbers(content, 2) if header[1] == CONTROL else (None, None)
            if command == AUTH:
                # Disable shared memory, which would bypass the proxy.
                content = content[:11] + b"\0\0" + content[13:]
            if command == CREATE_RECORD_STREAM and not self._allowed.exists():
                print("refused", flush=True)
                self._answer(FRAME.pack(15, CONTROL, 0, 0, 0)
                             + b"".join(b"L" + struct.pack(">I", number)
                                        for number in (ERROR, tag, ACCESS_DENIED)))
            else:
                self._server.sendall(FRAME.pack(*header) + content)

    def _pass_answers_on(self) -> None:
        for header, content in frames(self._server, self._client):
            self._answer(FRAME.pack(*header) + content)

    def _answer(self, frame: bytes) -> None:
        with self._answering:
            self._client.sendall(frame)


def frames(source: socket.socket, other: socket.socket):
    """Forwards until one side ends, which ends the other."""
    try:
        with source.makefile("rb") as stream:
            while len(header := stream.read(FRAME.size)) == FRAME.size:
                fields = FRAME.unpack(header)
                yield fields, stream.read(fields[0])
    except OSError:
        pass
    for each in (source, other):
        try:
            each.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass


def numbers(content: bytes, count: int) -> list[int]:
    return [struct.unpack_from(">I", content, 5 * at + 1)[0] for at in range(count)]


def main(path: str, server: str, allowed: str) -> None:
    listener = socket.socket(socket.AF_UNIX)
    listener.bind(path)
    listener.listen()
    while True:
        client, _ = listener.accept()
        real = socket.socket(socket.AF_UNIX)
        real.connect(server)
        Client(client, real, pathlib.Path(allowed))


if __name__ == "__main__":
    main(*sys.argv[1:])
