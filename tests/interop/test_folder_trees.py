"""Folder trees as this machine sees them: links, a full disk, runs that are stopped, a terminal."""

import contextlib
import os
import pathlib
import pty
import random
import re
import resource
import signal
import subprocess
import zipfile

import interop
from interop import check, check_equal

_MANY = 6000
_disk = "none"  # what the full disk was


def _write(path, data=b"x"):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)
    return path


def _tree(folder):
    """Every file and link below a folder, with its bytes or where it leads, and its mode."""
    found = {}
    for path in sorted(folder.rglob("*")):
        if path.is_symlink():
            found[str(path.relative_to(folder))] = os.readlink(path)
        elif path.is_file():
            found[str(path.relative_to(folder))] = (path.read_bytes(), path.stat().st_mode)
    return found


def _linked_tree(folder):
    """A tree with links out of it, up and to itself; and what must stay as it is."""
    _write(folder / "outside/note.tmp")
    _write(folder / "outside/sub/deep")
    (folder / "outside/empty").mkdir()
    tree = folder / "tree"
    _write(tree / "a/note.tmp")
    _write(tree / "a/keep")
    (tree / "out").symlink_to(folder / "outside")
    (tree / "a/empty").symlink_to(folder / "outside/empty")
    (tree / "a/self").symlink_to(".")
    (tree / "a/up").symlink_to("..")
    return tree, _tree(folder / "outside")


def _check_outside(folder, before):
    check_equal(_tree(folder / "outside"), before, "what stands outside the tree")
    check((folder / "outside/empty").is_dir(), "an empty folder outside the tree is gone")


def links_are_not_entered(orv, folder):
    tree, outside = _linked_tree(folder)
    listed = orv.run("tree", tree).expect().stdout.split()
    check_equal(sorted(listed), [b"a\\keep", b"a\\note.tmp"], "the files listed")
    check_equal(orv.run("size", tree).expect().stdout.split(), [b"2", b"2"], "bytes and files")
    orv.run("copy", tree, folder / "copy").expect()
    check_equal(sorted(_tree(folder / "copy")), ["a/keep", "a/note.tmp"], "the files copied")
    orv.run("zip", folder / "a.zip", tree).expect()
    with zipfile.ZipFile(folder / "a.zip") as archive:
        check_equal(sorted(archive.namelist()), ["a/keep", "a/note.tmp"], "the files zipped")
    orv.run("clean", tree, "note.tmp").expect()
    check(not (tree / "a/note.tmp").exists(), "the file of the name is still there")
    orv.other("trees_host").run("read-only", tree).expect()
    check((tree / "a/keep").stat().st_mode & 0o222 == 0, "the file is still writable")
    _check_outside(folder, outside)


def links_are_not_followed_in_deleting(orv, folder):
    """Wine would delete, move and mark what a link leads to: the links must be left as they are, and
    that must be said."""
    tree, outside = _linked_tree(folder)
    (tree / "link").symlink_to(folder / "outside/note.tmp")
    (tree / "a/deep").symlink_to("../../outside/sub/deep")
    links = ["a/deep", "a/empty", "a/self", "a/up", "link", "out"]
    orv.other("trees_host").run("read-only", tree).expect(1)
    _check_outside(folder, outside)
    orv.run("clean", tree, "deep").expect(1)
    _check_outside(folder, outside)
    orv.other("trees_host").run("rename", tree, folder / "new").expect(1)
    _check_outside(folder, outside)
    check_equal(sorted(_tree(folder / "new")), ["a/keep", "a/note.tmp"], "what has arrived")
    check_equal(sorted(_tree(tree)), links, "what has stayed")
    _write(tree / "a/more")
    orv.other("trees_host").run("remove", tree).expect(1)
    _check_outside(folder, outside)
    check_equal(sorted(_tree(tree)), links, "what can't be removed")
    orv.other("trees_host").run("remove", tree / "out").expect(1)
    _check_outside(folder, outside)


def names_of_different_case(orv, folder):
    """Windows can't have both in a new folder, and what was moved first must not go for the second."""
    names = {"Note": b"first", "note": b"second", "Sub/Same": b"third", "sub/same": b"fourth"}
    for name, data in names.items():
        _write(folder / "old" / name, data)
    orv.other("trees_host").run("rename", folder / "old", folder / "new").expect(1)
    left = [data for tree in ("old", "new") for data, _ in _tree(folder / tree).values()]
    check_equal(sorted(left), sorted(names.values()), "the files, wherever they are now")


@contextlib.contextmanager
def _full_disk(folder):
    """A place for at most 1 MB a file, and what to run programs with: a small disk of its own where
    mounting is permitted, otherwise a limit of the size of files."""
    global _disk
    place = folder / "disk"
    place.mkdir()
    mount = ["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", place]
    if subprocess.run(mount, stderr=subprocess.DEVNULL).returncode == 0:
        _disk = "a mounted one of 1 MB"
        try:
            yield place, {}
        finally:
            subprocess.run(["umount", place], check=True)
        return
    _disk = "a limit of 1 MB a file"

    def limit():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 20, 1 << 20))

    yield place, {"preexec_fn": limit}


def full_disk_loses_nothing(orv, folder):
    tree = folder / "tree"
    noise = random.Random(1)
    _write(tree / "small", noise.randbytes(100_000))
    _write(tree / "sub/large", noise.randbytes(3_000_000))
    _write(tree / "sub/new", noise.randbytes(2_000_000))
    with _full_disk(folder) as (disk, options):
        for name in ("copy/sub/large", "a.zip", "out/sub/large"):
            _write(disk / name, b"of before")
        result = orv.run("copy", tree, disk / "copy", **options).expect(1)
        check("sub\\large" in result.stderr, f"the file is not named: {result.stderr}")
        check_equal(sorted(_tree(disk / "copy")), ["small", "sub/large"], "the files of the copy")
        check_equal((disk / "copy/small").read_bytes(), (tree / "small").read_bytes(), "small")
        orv.run("zip", disk / "a.zip", tree, **options).expect(1)
        archive = folder / "whole.zip"
        orv.run("zip", archive, tree).expect()
        orv.run("unzip", archive, disk / "out", **options).expect(1)
        check_equal(sorted(_tree(disk / "out")), ["small", "sub/large"], "the files extracted")
        for name in ("copy/sub/large", "a.zip", "out/sub/large"):
            check_equal((disk / name).read_bytes(), b"of before", f"{name}, of before")
        check_equal(list(disk.rglob("*.tmp")), [], "files left half")
        if disk.is_mount():  # otherwise nothing is copied in a move
            before = _tree(tree)
            orv.other("trees_host").run("rename", tree, disk / "moved").expect(1)
            check_equal(sorted(_tree(tree)), ["sub/large", "sub/new"], "what has stayed")
            check_equal(sorted(_tree(disk / "moved")), ["small"], "what has arrived")
            check_equal({**_tree(tree), **_tree(disk / "moved")}, before, "the two halves")


def _stop(orv, folder, started, *arguments):
    _, text = interop.stopped(orv, folder, started, 1, *arguments)
    check("stopped" in text, f"it does not say that it was stopped: {text}")


def stopped_zip_leaves_what_was(orv, folder):
    for i in range(_MANY):
        _write(folder / f"tree/file {i}", b"%d" % i)
    archive = _write(folder / "a.zip", b"of before")
    begun = lambda: list(folder.glob("new*.tmp"))
    _stop(orv, folder, begun, "zip", archive, folder / "tree")
    check_equal(archive.read_bytes(), b"of before", "the archive of before")
    check_equal(begun(), [], "the half archive is left")


def stopped_unzip_leaves_whole_files(orv, folder):
    data = b"text of an entry " * 100
    with zipfile.ZipFile(folder / "a.zip", "w") as archive:
        for i in range(_MANY):
            archive.writestr(f"file {i}", data)
    out = folder / "out"
    _stop(orv, folder, lambda: (out / "file 20").exists(), "unzip", folder / "a.zip", out)
    files = list(out.iterdir())
    check(20 <= len(files) < _MANY, f"{len(files)} files are extracted")
    check(all(file.read_bytes() == data for file in files), "a file is half")


def progress_on_a_terminal(orv, folder):
    for i in range(_MANY // 2):
        _write(folder / f"tree/file {i}", b"%d" % i)
    terminal, end = pty.openpty()
    run = subprocess.Popen(
        orv.command("zip", folder / "a.zip", folder / "tree"), stdin=end, stdout=end, stderr=end
    )
    os.close(end)
    output = b""
    with contextlib.suppress(OSError):  # the end of a terminal is an error
        while data := os.read(terminal, 4096):
            output += data
    os.close(terminal)
    check_equal(run.wait(60), 0, "exit status")
    text = re.sub(rb"\x1b\[[?0-9]*[a-zA-Z]", b"", output)  # how the console moves its cursor
    percents = [int(number) for number in re.findall(rb"zipping: *([0-9]+)%", text)]
    check(len(percents) > 1, f"no progress: {interop.short(text)}")
    check_equal(percents, sorted(percents), "the percents shown")
    for i in range(20):
        _write(folder / f"small/file {i}")
    quiet = orv.run("zip", folder / "b.zip", folder / "small").expect()
    check("zipping" not in quiet.stderr, "progress without a terminal")


if __name__ == "__main__":
    tests = [
        links_are_not_entered,
        links_are_not_followed_in_deleting,
        names_of_different_case,
        full_disk_loses_nothing,
        stopped_zip_leaves_what_was,
        stopped_unzip_leaves_whole_files,
        progress_on_a_terminal,
    ]
    try:
        interop.main(tests, "folder trees and orv")
    finally:
        print(f"the full disk was {_disk}")
