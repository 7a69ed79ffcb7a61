#!/usr/bin/env python3
"""Plays whoever else comes to the desk's address: other users, other pages, a second page of the same browser.

    foreign_page_test.py PRACTICE_DESK
"""
import contextlib
import http.client
import os
import pathlib
import re
import socket
import stat
import subprocess
import sys
import tempfile
import urllib.parse

from desk import desk

UPGRADE = {"Connection": "Upgrade", "Upgrade": "websocket", "Sec-WebSocket-Version": "13",
           "Sec-WebSocket-Key": "dGhlIHNhbXBsZSBub25jZQ==", "Sec-WebSocket-Protocol": "broadway"}


class Visitor:
    """Sends one request a connection; `refusals` counts what was refused."""

    def __init__(self, authority):
        self.authority = authority
        self.refusals = 0

    @contextlib.contextmanager
    def ask(self, target, status, fields=None, method="GET"):
        """The answer, which has to have the status; the connection is open until the `with` ends."""
        with contextlib.closing(http.client.HTTPConnection(self.authority, timeout=30)) as connection:
            connection.request(method, target, headers=fields or {})
            answer = connection.getresponse()
            assert answer.status == status, (method, target, fields, answer.status, status)
            self.refusals += status >= 400
            yield answer

    def expect(self, status, target, *fields, method="GET"):
        """The answer's fields and its text."""
        with self.ask(target, status, dict(pair for some in fields for pair in some.items()), method) as answer:
            return answer.headers, answer.read().decode()


def key_opens_once(visitor, key):
    visitor.expect(403, "/")
    visitor.expect(403, key[:-1] + ("0" if key[-1] != "0" else "1"))
    fields, _ = visitor.expect(303, key)
    assert fields["Location"] == "/", fields
    cookie, *attributes = fields["Set-Cookie"].split("; ")
    assert sorted(attributes) == ["HttpOnly", "Path=/", "SameSite=Strict"], attributes
    visitor.expect(403, key)
    visitor.expect(403, key, {"Cookie": cookie})
    return {"Cookie": cookie}


def page_is_ours_alone(visitor, cookie, origin):
    fields, page = visitor.expect(200, "/", cookie)
    assert "<title>Practice Desk</title>" in page, page
    assert fields["Cache-Control"] == "no-store" and fields["X-Content-Type-Options"] == "nosniff", fields
    assert "frame-ancestors 'none'" in fields["Content-Security-Policy"], fields
    visitor.expect(200, "/broadway.js", {"Cookie": f"a=b; {cookie['Cookie']}"})
    visitor.expect(404, "/nothing", cookie)

    name, value = cookie["Cookie"].split("=")
    for wrong in ({}, {"Cookie": f"{name}={value[:-1]}"}, {"Cookie": f"{name}={value}0"}, {"Cookie": f"x{name}={value}"}):
        visitor.expect(403, "/broadway.js", wrong)
        visitor.expect(403, "/socket", wrong, UPGRADE, origin)
    for host in ("localhost:" + visitor.authority.split(":")[1], "127.0.0.1", "practice.example"):
        visitor.expect(421, "/", cookie, {"Host": host})
    for page in ("http://127.0.0.1", "http://practice.example", "null"):
        visitor.expect(403, "/socket", cookie, UPGRADE, {"Origin": page})
        visitor.expect(403, "/", cookie, {"Origin": page})
    visitor.expect(403, "/socket", cookie, UPGRADE)
    visitor.expect(405, "/", cookie, origin, method="POST")
    visitor.expect(431, "/", cookie, {"X-Long": "x" * 9000})


def second_page_waits_its_turn(visitor, cookie, origin):
    fields = {**cookie, **UPGRADE, **origin}
    with visitor.ask("/socket", 101, fields):
        with visitor.ask("/socket", 409, fields) as refused:
            assert "open in another page" in refused.read().decode()

    # A page that is loaded again comes before its old self has left.
    with contextlib.closing(http.client.HTTPConnection(visitor.authority, timeout=30)) as reloaded:
        with visitor.ask("/socket", 101, fields):
            reloaded.request("GET", "/socket", headers=fields)
        assert reloaded.getresponse().status == 101


def is_taken_as_program(name, user):
    """Whether Broadway greets a program of the user, which one that shows windows waits for."""
    with contextlib.closing(socket.socket(socket.AF_UNIX)) as program:
        program.settimeout(30)
        os.seteuid(user)
        try:
            program.connect(f"\0{name}")
            return program.recv(1) != b""
        except ConnectionError:
            return False
        finally:
            os.seteuid(os.getuid())


def other_users_show_no_windows(folder):
    name = re.search(rf"@({folder}/broadway\d+\.socket)", pathlib.Path("/proc/net/unix").read_text())[1]
    assert is_taken_as_program(name, os.getuid())
    if os.getuid() == 0:  # who else can play another user
        assert not is_taken_as_program(name, 65534)


def other_desk_cannot_have_the_port(program, port):
    told = subprocess.run([program, "--port", port], capture_output=True, text=True, timeout=60,
                          env={"PATH": "/usr/bin", "HOME": "/nonexistent"})
    assert told.returncode == 1, told
    assert told.stderr.count("\n") == 1 and f"Port {port} " in told.stderr, told


def main():
    program = pathlib.Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory() as folder, open(f"{folder}/log", "w+", encoding="utf-8") as log:
        with desk(program, folder, log) as (process, address):
            authority = urllib.parse.urlsplit(address).netloc
            origin = {"Origin": f"http://{authority}"}
            windows, = pathlib.Path(folder).glob("practice_desk-*/windows.socket")
            assert stat.S_IMODE(windows.parent.stat().st_mode) == 0o700, windows.parent.stat()

            visitor = Visitor(authority)
            cookie = key_opens_once(visitor, address.removeprefix(f"http://{authority}"))
            page_is_ours_alone(visitor, cookie, origin)
            second_page_waits_its_turn(visitor, cookie, origin)
            other_users_show_no_windows(folder)
            other_desk_cannot_have_the_port(program, authority.split(":")[1])
        process.wait(timeout=60)
        assert not windows.parent.exists(), "the socket's folder was left behind"

        log.seek(0)
        lines = log.read().splitlines()
        assert len(lines) == visitor.refusals and all("Refused" in line for line in lines), (visitor.refusals, lines)
        secrets = (address.split("=")[1], cookie["Cookie"].split("=")[1])
        assert not any(secret in line for secret in secrets for line in lines), lines


if __name__ == "__main__":
    main()
