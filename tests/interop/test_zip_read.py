"""Archives that zip, 7z and Python make, read by orv: the same names, sizes, times, attributes and
bytes. What the library does not do (other methods, encryption) is said, and the rest is read."""

import datetime
import io
import os
import zipfile

import interop
import trees
import zip_records
from interop import ANSI, check, check_equal, run


def plain_tree(folder):
    """Names that every archiver stores in the same way, with an empty folder."""
    (folder / "sub" / "empty folder").mkdir(parents=True)
    contents = {
        "a.txt": b"hello",
        "empty": b"",
        "with blanks.txt": b"blanks" * 1000,
        "sub/text.txt": b"".join(b"line %d\n" % (i * i) for i in range(20_000)),
        "sub/noise.bin": os.urandom(300_000),
        "sub/read-only": b"read-only",
    }
    for number, (name, data) in enumerate(contents.items()):
        path = folder / name
        path.write_bytes(data)
        os.utime(path, (trees.ACCESSED, 1_600_000_001 + number * 10_000_000))
    (folder / "sub" / "read-only").chmod(0o444)
    return folder


def listing(orv, archive, zone="UTC"):
    """What orv list prints: size, packed size, attributes, time, name of each entry."""
    rows = []
    for line in orv.run("list", archive, zone=zone).expect().stdout.splitlines():
        size, packed, attributes, time, name = line.split(b"\t")
        time = datetime.datetime.strptime(time.decode(), "%Y-%m-%d %H:%M:%S")
        seconds = int(time.replace(tzinfo=datetime.timezone.utc).timestamp())
        rows.append((int(size), int(packed), int(attributes, 16), seconds, name))
    return rows


def expected_listing(archive, zone="UTC"):
    records = zip_records.Archive(archive)
    return [
        (
            entry.file_size,
            entry.compress_size,
            zip_records.windows_attributes(entry.external_attr),
            records.modification_time(entry, zone),
            zip_records.name(entry),
        )
        for entry in records.entries
    ]


def check_read(orv, archive, target, zone="UTC"):
    """Lists and extracts an archive; the files must be as its records say, and their bytes as
    Python reads them."""
    rows = expected_listing(archive, zone)
    check_equal(listing(orv, archive, zone), rows, f"listing of {archive.name}")
    orv.run("unzip", archive, target, zone=zone).expect()
    found = trees.files(target)
    with zipfile.ZipFile(archive) as expected:
        for info, (size, _, attributes, seconds, name) in zip(expected.infolist(), rows):
            path = found.pop(name.decode(ANSI), None)
            if attributes & zip_records.FOLDER:
                check((target / name.decode(ANSI)).is_dir(), f"{name}: no folder")
                continue
            check(path is not None, f"{name}: not extracted")
            check_equal(path.stat().st_size, size, f"{name}: size")
            check(path.read_bytes() == expected.read(info), f"{name}: other bytes")
            check_equal(int(path.stat().st_mtime), seconds, f"{name}: time")
            read_only = bool(attributes & zip_records.READ_ONLY)
            check_equal(trees.is_read_only(path), read_only, f"{name}: read-only")
    check_equal(sorted(found), [], "more files than entries")


def made_by_tools(orv, folder):
    tree = plain_tree(folder / "tree")
    for name, command in {
        "zip": "zip -qr9 '{}' .",
        "zip stored": "zip -qr0 '{}' .",
        "zip without extra fields": "zip -qrX '{}' .",
        "zip without folders": "zip -qrD '{}' .",
        "zip from files into a pipe": "zip -qr - . | cat > '{}'",
        "zip stored into a pipe": "zip -qr0 - . | cat > '{}'",
        "zip from a pipe": "cat sub/text.txt | zip -q - - > '{}'",
        "zip from a pipe into a pipe": "cat sub/text.txt | zip -q - - | cat > '{}'",
        "zip from a pipe with small sizes": "cat sub/text.txt | zip -q -fz- - - | cat > '{}'",
        "7z": "7z a -bd -tzip -mx9 '{}' .",
        "7z stored": "7z a -bd -tzip -mx0 '{}' .",
        "7z with times": "7z a -bd -tzip -mtc=on -mta=on '{}' .",
    }.items():
        archive = folder / f"{name}.zip"
        run("sh", "-c", command.format(archive), cwd=tree).expect()
        check_read(orv, archive, folder / name)
        if name in ("zip", "zip stored"):
            trees.check_same(tree, folder / name)


def changed_by_zip(orv, folder):
    """Comments, removed and replaced entries, a stub with its offsets counted or not."""
    tree = plain_tree(folder / "tree")
    archive = folder / "changed.zip"
    run("zip", "-qr", archive, ".", cwd=tree).expect()
    run("zip", "-q", "-d", archive, "sub/noise.bin").expect()
    (tree / "a.txt").write_bytes(b"changed")
    run("zip", "-q", "-f", archive, "a.txt", cwd=tree).expect()
    check_read(orv, archive, folder / "changed")
    rows = listing(orv, archive)

    remarks = "".join(f"remark {i}\n" for i in range(len(rows))).encode()
    run("zip", "-q", "-c", archive, input=remarks).expect()
    check_read(orv, archive, folder / "remarks")

    stub = b"MZ" + os.urandom(5000)
    for name, adjust in (("stub", False), ("counted-stub", True)):
        path = folder / f"{name}.zip"
        path.write_bytes(stub + archive.read_bytes())
        if adjust:
            run("zip", "-q", "-A", path).expect()
        check_equal(listing(orv, path), rows, f"listing behind a {name}")
        orv.run("unzip", path, folder / name).expect()
        trees.check_same(folder / "changed", folder / name)

    run("zip", "-q", "-z", archive, input=b"a comment\nwith PK\5\6 in it\n").expect()
    check_equal(listing(orv, archive), rows, "listing with an archive comment")
    orv.run("test", archive).expect()


def refused_entries(orv, folder):
    """One entry that can't be read: it is named, and the others come out."""
    tree = plain_tree(folder / "tree")
    for name, options in {
        "bzip2": ["-mm=BZip2"],
        "lzma": ["-mm=LZMA"],
        "encrypted": ["-psecret"],
        "aes": ["-psecret", "-mem=AES256"],
    }.items():
        archive = folder / f"{name}.zip"
        run("7z", "a", "-bd", "-tzip", *options, archive, "sub/text.txt", cwd=tree).expect()
        run("7z", "a", "-bd", "-tzip", archive, "a.txt", "with blanks.txt", cwd=tree).expect()
        check_equal(listing(orv, archive), expected_listing(archive), f"listing of {name}")
        tested = orv.run("test", archive).expect(1)
        check("sub/text.txt" in tested.stderr, f"{name}: the entry is not named: {tested.stderr}")
        orv.run("unzip", archive, folder / name).expect(1)
        check_equal(sorted(trees.files(folder / name)), ["a.txt", "with blanks.txt"], name)
        check_equal((folder / name / "a.txt").read_bytes(), b"hello", f"{name}: a.txt")


class Unseekable(io.RawIOBase):
    """A stream that can only be written on, as a socket is."""

    def __init__(self, file):
        self._file = file

    def writable(self):
        return True

    def write(self, data):
        return self._file.write(data)


def _entry(name, method=zipfile.ZIP_DEFLATED, external=0o644 << 16):
    info = zipfile.ZipInfo(name, (2021, 7, 14, 12, 30, 58))
    info.compress_type = method
    info.external_attr = external
    return info


def made_by_python(orv, folder):
    noise = os.urandom(100_000)
    for name, wrap in {"seekable": lambda file: file, "unseekable": Unseekable}.items():
        archive = folder / f"{name}.zip"
        with open(archive, "wb") as file, zipfile.ZipFile(wrap(file), "w") as target:
            target.writestr(_entry("deflated.txt"), b"text " * 50_000)
            target.writestr(_entry("stored.bin", zipfile.ZIP_STORED), noise)
            target.writestr(_entry("folder/", zipfile.ZIP_STORED, 0o40755 << 16 | 0x10), b"")
            target.writestr(_entry("folder/empty"), b"")
            target.writestr(_entry("read-only.txt", external=0o444 << 16), b"read-only")
            target.writestr(_entry("no-mode.txt", external=0x20), b"no Unix mode")
            with target.open(_entry("wide.txt"), "w", force_zip64=True) as entry:
                entry.write(b"64-bit sizes in the local header only")
            info = _entry("remark.txt")
            info.comment = b"a remark"
            target.writestr(info, b"remark")
        check_read(orv, archive, folder / name)
        orv.run("test", archive).expect()


def names_in_utf8(orv, folder):
    """A name is what stands in the archive, byte for byte, whatever code page its flag tells."""
    archive = folder / "names.zip"
    with zipfile.ZipFile(archive, "w") as target:
        target.writestr(_entry("Grüße ÿ.txt"), b"high characters")
        target.writestr(_entry("日本.txt"), b"other characters")
    check_equal(listing(orv, archive), expected_listing(archive), "listing")
    orv.run("unzip", archive, folder / "out").expect()
    found = sorted(path.read_bytes() for path in (folder / "out").iterdir())
    check_equal(found, [b"high characters", b"other characters"], "files")
    if ANSI != "cp932":  # in which these bytes are no text
        check((folder / "out" / "Grüße ÿ.txt".encode().decode(ANSI)).exists(), "the name's bytes")


def zones(orv, folder):
    """Times without zone are local ones, time stamps are not."""
    tree = plain_tree(folder / "tree")
    for zone in ("Asia/Kolkata", "America/Phoenix"):
        base = folder / zone
        base.mkdir(parents=True)
        run("zip", "-qr", base / "stamps.zip", ".", cwd=tree, zone=zone).expect()
        run("zip", "-qrX", base / "plain.zip", ".", cwd=tree, zone=zone).expect()
        check_read(orv, base / "stamps.zip", base / "stamps", zone)
        check_read(orv, base / "plain.zip", base / "plain", zone)


def empty_and_not_archives(orv, folder):
    empty = folder / "empty.zip"
    zipfile.ZipFile(empty, "w").close()
    check_equal(listing(orv, empty), [], "listing of an empty archive")
    orv.run("unzip", empty, folder / "nothing").expect()
    empty.write_bytes(b"PK\3\4" * 20)
    refused = orv.run("list", empty).expect(1)
    check("not a zipfile" in refused.stderr, refused.stderr)
    orv.run("list", folder / "missing.zip").expect(1)
    orv.run("list").expect(2)


if __name__ == "__main__":
    interop.main(
        [
            made_by_tools,
            changed_by_zip,
            refused_entries,
            made_by_python,
            names_in_utf8,
            zones,
            empty_and_not_archives,
        ],
        "archives read by orv",
    )
