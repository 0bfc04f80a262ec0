"""Transfers by orv from and to nginx, and a page behind it."""

import contextlib
import os
import pathlib
import random
import re
import signal
import subprocess
import time

import interop
from interop import check, check_equal
from web import serving

BYTES = random.Random(1).randbytes(3_000_000)
KILLS = 100 if os.environ.get("ORVANE_LONG") else 4

# Wine 8 refuses one elliptic-curve signature in 128: those of which a number is short by a byte.
KEY = ("-newkey", "rsa:2048", "-nodes")
LOST = "Error code = 12030"


def unix_path(path):
    """Of a path on the drives of the project's Wine prefix."""
    prefix = pathlib.Path(os.environ.get("WINEPREFIX", interop.ROOT / "build" / "wineprefix"))
    return prefix / "dosdevices" / path[:2].lower() / path[3:].replace("\\", "/")


def run(orv, *arguments):
    """Once more where Wine has died: Wine 8 does so at the end of one in a hundred processes that
    have used WinInet asynchronously, of a bare one with nothing of this library, too. A fault of
    orv's own ends it with a status, not by a signal."""
    for _ in range(3):
        result = orv.run(*arguments)
        if result.status != -signal.SIGSEGV:
            break
    return result


def answers(orv, folder):
    """Those that are files replace an old one, the others leave it as it is."""
    file = folder / "file"
    with serving(folder) as web:
        (web.site / "empty").write_bytes(b"")
        for name in ("bytes", "bytes.zip"):
            (web.site / name).write_bytes(BYTES)
        web.answers["chunked"] = web.answers["without-length"] = (BYTES, False)
        web.answers["broken"] = (BYTES, True)
        cases = {
            "empty": b"",
            "page/without-length": BYTES,
            "redirect/moved/bytes": BYTES,
            "redirect/page/chunked": BYTES,
            "redirect/none": "Error code = 12028",
            "unchanged": "Error code = 12028",
            "failing": "Error code = 12003",
            "page/broken": LOST,
        }
        for page, expected in cases.items():
            file.write_bytes(b"old")
            is_file = isinstance(expected, bytes)
            found = run(orv, "get", web.url(page), file).expect(0 if is_file else 1)
            check(is_file or expected in found.stderr, f"{page}: {found.stderr}")
            check(file.read_bytes() == (expected if is_file else b"old"), f"{page}: other bytes")
        made = run(orv, "get", web.url("bytes.zip")).expect().stdout.decode().strip()
        check(made.endswith(".zip"), made)
        check(unix_path(made).read_bytes() == BYTES, "other bytes arrived in the temporary file")
        unix_path(made).unlink()
    check_equal(sorted(each.name for each in folder.iterdir()), ["file", "web"], "what is left")


def killed_at_any_moment(orv, folder):
    """The file holds the old bytes or all of the new ones."""
    old = 0
    moments = random.Random(2)
    file = folder / "file"
    with serving(folder) as web:
        (web.site / "bytes").write_bytes(BYTES)
        command = orv.command("get", web.url("slow/bytes"), file)
        start = time.monotonic()
        subprocess.run(command, stdout=subprocess.DEVNULL)
        whole = time.monotonic() - start
        for _ in range(KILLS):
            file.write_bytes(b"old")
            process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            time.sleep(moments.uniform(0.1, 1.1) * whole)
            process.kill()
            process.wait()
            time.sleep(0.05)  # the system's own end of it
            found = file.read_bytes()
            check(found in (b"old", BYTES), f"{len(found)} bytes after a kill")
            old += found == b"old"
    check(old > 0, "no kill came in time")


def an_uploaded_form(orv, folder):
    with serving(folder) as web:
        for name in ("plain.zip", "100%s%n.zip", f"{interop.WORDS[0]}.zip"):
            (folder / name).write_bytes(BYTES)
            run(orv, "send", folder / name, web.address, "/page/upload").expect()
            head, payload = web.forms.pop()
            expected = [
                b'Content-Disposition: form-data; name="attach1"; filename="'
                + name.encode(interop.ANSI)
                + b'"',
                b"Content-Type: application/octet-stream",
            ]
            check_equal(head, expected, "the head of the form's part")
            check(payload == BYTES, f"{name}: other bytes arrived")
            # Under Wine 8 one of about a hundred posts comes twice, as nginx's log of requests shows,
            # although WinInet's trace has one connection and one request: both have to be whole.
            check(all(form == (head, payload) for form in web.forms), "another form came, too")
            web.forms.clear()
        run(orv, "send", folder / "none", web.address, "/page/upload").expect(1)
        run(orv, "send", folder / "plain.zip", web.address, "/unchanged").expect(1)
        check_equal(web.forms, [], "forms")


def commands_to_a_page(orv, folder):
    result = b"<html><span id=result>%s</span>\r\n"
    with serving(folder) as web:
        web.answers["reply"] = (b"." * 49_990 + result % b"a reply", False)  # across two reads
        found = run(orv, "ask", web.url("page/reply?a=b")).expect()
        check_equal(found.stdout.split(), [b"a", b"reply"], "the reply")
        web.answers["empty"] = (result % b"", False)
        found = run(orv, "ask", web.url("page/empty")).expect(1)
        check("the result is empty" in found.stderr, found.stderr)
        web.answers["data"] = (result % b"DATA" + BYTES, False)
        path = unix_path(run(orv, "ask", web.url("page/data")).expect().stdout.decode().strip())
        check(path.read_bytes() == BYTES, "other data arrived")
        path.unlink()


@contextlib.contextmanager
def trusting(orv, authority):
    """The machine trusts an authority (a DER file), meanwhile."""
    trust = orv.other("trust_host")
    trust.run("add", authority).expect()
    try:
        yield
    finally:
        trust.run("remove", authority).expect()


def openssl(*arguments):
    interop.run("openssl", *arguments).expect()


def only_trusted_certificates(orv, folder):
    authority, certificate = folder / "authority", folder / "certificate"
    openssl(
        "req", "-x509", *KEY, "-days", 2, "-subj", "/CN=Orvane test", "-keyout",
        f"{authority}.key", "-out", authority,
    )  # fmt: skip
    openssl("x509", "-in", authority, "-outform", "DER", "-out", f"{authority}.der")
    (folder / "extension").write_text("subjectAltName=DNS:localhost")
    openssl(
        "req", "-new", *KEY, "-subj", "/CN=localhost", "-keyout", f"{certificate}.key",
        "-out", f"{certificate}.request",
    )  # fmt: skip
    openssl(
        "x509", "-req", "-in", f"{certificate}.request", "-days", 2, "-CAcreateserial",
        "-CA", authority, "-CAkey", f"{authority}.key", "-extfile", folder / "extension",
        "-out", f"{certificate}.pem",
    )  # fmt: skip
    file = folder / "file"
    with serving(folder, certificate) as web:
        (web.site / "bytes").write_bytes(BYTES)
        url = f"https://localhost:{web.secure_port}"
        with trusting(orv, folder / "authority.der"):
            run(orv, "get", f"{url}/bytes", file).expect()
            check(file.read_bytes() == BYTES, "other bytes arrived")
            file.unlink()
            found = run(orv, "get", f"{url}/insecure/bytes", file).expect(1)
            check("Error code = 12040" in found.stderr, found.stderr)
        # Windows and Wine do not agree in the code for an authority that nobody trusts.
        found = run(orv, "get", f"{url}/bytes", file).expect(1)
        check("Error code = 120" in found.stderr, found.stderr)
    check(not file.exists(), "the file was made")


def libraries_of_the_system(orv, _):
    found = orv.run("libs").stdout.decode().splitlines()
    check_equal(len(found), 5, "lines")
    for line in found:
        check(re.fullmatch(r".+ \(\d+\.\d+\.\d+\.\d+\) - (OK|Outdated|Missing)", line), line)
    check_equal(found[0], "MFC42.dll (0.0.0.0) - Missing", "a library that is not there")
    check(found[1].endswith(" - OK") and "\\MSVCRT.dll (" in found[1], found[1])


if __name__ == "__main__":
    interop.main(
        [
            answers,
            killed_at_any_moment,
            an_uploaded_form,
            commands_to_a_page,
            only_trusted_certificates,
            libraries_of_the_system,
        ],
        "transfers",
    )
