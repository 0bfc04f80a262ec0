"""Runs orv and the outside tools for the interop tests, and sums up what was found."""

import contextlib
import html.parser
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import traceback

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
# The code page that Windows programs run in here, and words that only it and its like can spell:
# the Japanese ones hold second bytes that are the backslash's.
ANSI, WORDS = {
    "": ("cp1252", ("Grüße é", "€ – ÿ", "Ünter")),
    "tr_TR": ("cp1254", ("Iğdır é", "€ – ÿ", "İşte")),
    "ja_JP": ("cp932", ("表示 ソ", "― ｱ 能", "十予")),
    "hi_IN": ("utf-8", ("Grüße हिन्दी", "€ – 日本 😀", "Ünter")),
}[os.environ.get("ORVANE_LOCALE", "")]


class Failure(Exception):
    """A check that did not hold; its text is for a person."""


def check(condition, message):
    if not condition:
        raise Failure(message)


def check_equal(found, expected, what):
    check(found == expected, f"{what}: {short(found)} instead of {short(expected)}")


def short(value):
    text = repr(value)
    return text if len(text) <= 300 else text[:300] + "..."


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


class Result:
    def __init__(self, command, status, stdout, stderr):
        self.command = " ".join(str(part) for part in command)
        self.status = status
        self.stdout = stdout
        self.stderr = stderr.decode(errors="replace")

    def expect(self, status=0):
        check(
            self.status == status,
            f"{self.command}: exit status {self.status} instead of {status}\n"
            f"{self.stdout[-1000:].decode(errors='replace')}\n{self.stderr[-1000:]}",
        )
        return self


def run(*command, zone="UTC", stdout=None, **options):
    """Runs a program of this machine, in a time zone; gives what it printed, unless stdout goes
    elsewhere."""
    environment = dict(os.environ, LC_ALL="C.UTF-8", TZ=zone)
    # Into files: the services that Wine starts in the background inherit the streams, and the end of
    # a pipe would come only with theirs, a second later.
    with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as messages:
        finished = subprocess.run(
            [str(part) for part in command],
            stdout=stdout or output,
            stderr=messages,
            env=environment,
            **options,
        )
        output.seek(0)
        messages.seek(0)
        return Result(command, finished.returncode, output.read(), messages.read())


class Orv:
    def __init__(self, programs, name="orv"):
        self._program = pathlib.Path(programs) / f"{name}.exe"
        check(self._program.exists(), f"there is no {self._program}: build first")

    def other(self, name):
        """Another program, to be run in the same way."""
        return Orv(self._program.parent, name)

    def command(self, *arguments):
        """What is to be started; paths among the arguments become those of Windows."""
        translated = [
            windows_path(argument) if isinstance(argument, pathlib.Path) else argument
            for argument in arguments
        ]
        return [str(part) for part in (ROOT / "tools" / "run", self._program, *translated)]

    def run(self, *arguments, **options):
        return run(*self.command(*arguments), **options)


def stopped(orv, folder, started, status, *arguments):
    """Runs a command on something in a folder and presses Ctrl+C as soon as started() holds; gives
    stdout and stderr."""
    with open(folder / "output", "wb") as output, open(folder / "messages", "wb") as messages:
        running = subprocess.Popen(orv.command(*arguments), stdout=output, stderr=messages)
    deadline = time.monotonic() + 60
    while not started():
        check(running.poll() is None and time.monotonic() < deadline, "the run is over too early")
        time.sleep(0.005)
    for entry in pathlib.Path("/proc").glob("[0-9]*"):
        with contextlib.suppress(OSError):
            command = (entry / "cmdline").read_bytes()
            if b"orv.exe\0" in command.split(b"tools/run")[-1] and folder.name.encode() in command:
                os.kill(int(entry.name), signal.SIGINT)
    check_equal(running.wait(60), status, "exit status of the stopped run")
    return (folder / "output").read_text(), (folder / "messages").read_text()


class Page(html.parser.HTMLParser):
    """A page whose elements are closed in their order, and which needs nothing from elsewhere."""

    VOID = {"meta", "col", "br"}

    def __init__(self, text, unwanted=("link", "script")):
        super().__init__()
        self._unwanted, self._open = unwanted, []
        self.links, self.anchors, self.text = [], set(), ""
        self.feed(text)
        self.close()
        check_equal(self._open, [], "elements left open")

    def handle_starttag(self, tag, attributes):
        if tag not in self.VOID:
            self._open.append(tag)
        values = dict(attributes)
        is_wanted = not {"src", "onclick"} & set(values) and tag not in self._unwanted
        check(is_wanted, f"not self-contained: {tag} {attributes}")
        if "href" in values:
            self.links.append(values["href"])
        if "id" in values:
            self.anchors.add(values["id"])

    def handle_endtag(self, tag):
        check_equal(self._open.pop() if self._open else None, tag, "closed element")

    def handle_data(self, data):
        self.text += data


class Folder:
    """A temporary folder, with read-only files removed too at its end."""

    def __enter__(self):
        self.path = pathlib.Path(tempfile.mkdtemp(prefix="orvane-interop-"))
        return self.path

    def __exit__(self, *_):
        shutil.rmtree(self.path, ignore_errors=True)


def main(tests, summary):
    """Runs test functions, each with orv and a folder of its own; ends the program."""
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} FOLDER_OF_THE_PROGRAMS")
    orv = Orv(sys.argv[1])
    failed = 0
    start = time.monotonic()
    for test in tests:
        name = test.__name__
        begin = time.monotonic()
        try:
            with Folder() as folder:
                test(orv, folder)
        except Failure as failure:
            print(f"FAILED {name}: {failure}")
            failed += 1
        except Exception:
            print(f"FAILED {name}:\n{traceback.format_exc()}")
            failed += 1
        print(f"{name}: {time.monotonic() - begin:.1f} s")
    seconds = time.monotonic() - start
    print(f"{summary}: {len(tests) - failed} of {len(tests)} passed ({seconds:.1f} s)")
    sys.exit(1 if failed else 0)
