"""Transfers by orv from and to Python's HTTP server."""

import contextlib
import email
import email.policy
import hashlib
import http.server
import os
import pathlib
import random
import signal
import ssl
import subprocess
import threading
import time

import interop
from interop import check, check_equal

BYTES = random.Random(1).randbytes(3_000_000)
LARGE = 300_000_000 if os.environ.get("ORVANE_LONG") else 30_000_000
KILLS = 100 if os.environ.get("ORVANE_LONG") else 15


def unix_path(path):
    """Of a path on the drives of the project's Wine prefix."""
    prefix = pathlib.Path(os.environ.get("WINEPREFIX", interop.ROOT / "build" / "wineprefix"))
    return prefix / "dosdevices" / path[:2].lower() / path[3:].replace("\\", "/")


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *_):
        pass

    def do_GET(self):
        path = self.path.split("?")[0]
        if path == "/large":
            self.send_response(200)
            self.send_header("Content-Length", LARGE)
            self.end_headers()
            for _ in range(LARGE // 1_000_000):
                self.wfile.write(BYTES[:1_000_000])
        elif path == "/slow":
            self.send_response(200)
            self.send_header("Content-Length", len(BYTES))
            self.end_headers()
            for start in range(0, len(BYTES), 100_000):
                self.wfile.write(BYTES[start : start + 100_000])
                time.sleep(0.01)
        elif path == "/chunked":
            self.send_response(200)
            self.send_header("Transfer-Encoding", "chunked")
            self.end_headers()
            for start in range(0, len(BYTES), 70_000):
                chunk = BYTES[start : start + 70_000]
                self.wfile.write(b"%x\r\n%s\r\n" % (len(chunk), chunk))
            self.wfile.write(b"0\r\n\r\n")
        elif path == "/to-end":
            self.close_connection = True
            self.send_response(200)
            self.end_headers()
            self.wfile.write(BYTES)
        elif path.startswith("/redirect"):
            self.reply(302, b"", Location=path.removeprefix("/redirect"))
        elif path == "/page/reply":
            self.reply(200, b"<html><span id=result>a reply</span></html>")
        elif path == "/page/data":
            self.reply(200, b"<span id=result>DATA</span>\r\n" + BYTES)
        elif path == "/page/closed":
            self.reply(200, b"<span id=SessionClosed></span>")
        elif path == "/page/none":
            self.reply(200, b"<html></html>")
        elif path == "/bytes":
            self.reply(200, BYTES)
        else:
            self.reply(404, b"no such page")

    def do_POST(self):
        body = self.rfile.read(int(self.headers["Content-Length"]))
        boundary = body.split(b"\r\n", 1)[0][2:]
        head = b"Content-Type: multipart/form-data; boundary=" + boundary + b"\r\n\r\n"
        form = email.message_from_bytes(head + body, policy=email.policy.HTTP)
        self.server.forms.append(
            [(part.get_filename(), part.get_payload(decode=True)) for part in form.iter_parts()]
        )
        self.reply(200, b"taken")

    def reply(self, status, body, **headers):
        self.send_response(status)
        for name, value in headers.items():
            self.send_header(name, value)
        self.send_header("Content-Length", len(body))
        self.end_headers()
        self.wfile.write(body)


def run(orv, *arguments):
    """Once more where Wine has died: Wine 8 does so at the end of one in a hundred processes that
    have used WinInet asynchronously, of a bare one with nothing of this library, too. A fault of
    orv's own ends it with a status, not by a signal."""
    for _ in range(3):
        result = orv.run(*arguments)
        if result.status != -signal.SIGSEGV:
            break
    return result


@contextlib.contextmanager
def serving(context=None):
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.handle_error = lambda *_: None  # clients that were killed
    server.forms = []
    if context:
        server.socket = context.wrap_socket(server.socket, server_side=True)
    server.address = "127.0.0.1:%d" % server.server_port
    threading.Thread(target=server.serve_forever, daemon=True).start()
    try:
        yield server
    finally:
        server.shutdown()
        server.server_close()


def answers_of_every_kind(orv, folder):
    file = folder / "file"
    with serving() as server:
        for page in ("bytes", "slow", "chunked", "to-end", "redirect/redirect/bytes"):
            file.write_bytes(b"old")
            run(orv, "get", f"http://{server.address}/{page}", file).expect()
            check(file.read_bytes() == BYTES, f"{page}: other bytes arrived")
        found = run(orv, "get", f"http://{server.address}/none", file).expect(1)
        check("12028" in found.stderr, found.stderr)
        check(file.read_bytes() == BYTES, "a failed download has changed the file")
    check_equal([each.name for each in folder.iterdir()], ["file"], "what is left")


def a_large_file(orv, folder):
    with serving() as server:
        run(orv, "get", f"http://{server.address}/large", folder / "large").expect()
    expected = hashlib.sha1(BYTES[:1_000_000] * (LARGE // 1_000_000)).hexdigest()
    found = hashlib.sha1((folder / "large").read_bytes()).hexdigest()
    check_equal(found, expected, "the file's digest")


def killed_at_any_moment(orv, folder):
    """The file holds the old bytes or all of the new ones."""
    seen = {"old": 0, "new": 0}
    moments = random.Random(2)
    file = folder / "file"
    with serving() as server:
        command = orv.command("get", f"http://{server.address}/slow", file)
        start = time.monotonic()
        subprocess.run(command, stdout=subprocess.DEVNULL)
        whole = time.monotonic() - start
        for _ in range(KILLS):
            file.write_bytes(b"old")
            process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            time.sleep(moments.uniform(0.3, 1.05) * whole)
            process.kill()
            process.wait()
            time.sleep(0.05)  # the system's own end of it
            found = file.read_bytes()
            check(found in (b"old", BYTES), f"{len(found)} bytes after a kill")
            seen["old" if found == b"old" else "new"] += 1
    check(seen["old"] > 0, f"no kill came in time: {seen}")


def an_uploaded_form(orv, folder):
    with serving() as server:
        for name in ("plain.zip", "100%s.zip", f"{interop.WORDS[0]}.zip"):
            (folder / name).write_bytes(BYTES)
            run(orv, "send", folder / name, server.address, "/page").expect()
            check_equal(len(server.forms[-1]), 1, "parts of the form")
            found, payload = server.forms[-1][0]
            if name.isascii():
                check_equal(found, name, "the file's name")
            check(payload == BYTES, f"{name}: other bytes arrived")
        server.forms.clear()
        run(orv, "send", folder / "none", server.address, "/page").expect(1)
        check_equal(server.forms, [], "forms")


def commands_to_a_page(orv, _):
    with serving() as server:
        page = f"http://{server.address}/page"
        found = run(orv, "ask", f"{page}/reply?a=b").expect()
        check_equal(found.stdout.strip(), b"a reply", "the reply")
        found = run(orv, "ask", f"{page}/data").expect()
        path = unix_path(found.stdout.decode().strip())
        check(path.read_bytes() == BYTES, "other data arrived")
        path.unlink()
        for name in ("closed", "none"):
            run(orv, "ask", f"{page}/{name}").expect(1)


def a_certificate_that_nobody_trusts(orv, folder):
    certificate, key = folder / "certificate", folder / "key"
    made = interop.run(
        "openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
        "-subj", "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1",
        "-keyout", key, "-out", certificate,
    )  # fmt: skip
    made.expect()
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(certificate, key)
    with serving(context) as server:
        found = run(orv, "get", f"https://{server.address}/bytes", folder / "file").expect(1)
    check("Error code = 12" in found.stderr, found.stderr)
    check(not (folder / "file").exists(), "the file was made")


if __name__ == "__main__":
    interop.main(
        [
            answers_of_every_kind,
            a_large_file,
            killed_at_any_moment,
            an_uploaded_form,
            commands_to_a_page,
            a_certificate_that_nobody_trusts,
        ],
        "transfers",
    )
