"""Archives that orv writes, into files and into pipes, against unzip, 7z and Python's zipfile: the
same names, sizes, times, attributes and bytes; and the fields of the records as documented."""

import os
import pathlib
import subprocess

import interop
import trees
import zip_checks
from interop import check_equal

IS_LONG = bool(os.environ.get("ORVANE_LONG"))
_CXX = "/usr/lib/gcc/i686-w64-mingw32/12-posix/include/c++"
HEADERS = pathlib.Path("/usr/share/mingw-w64/include" if IS_LONG else _CXX)
LARGE = (300 if IS_LONG else 30) << 20


def zip_tree(orv, tree, archive, zone="UTC"):
    orv.run("zip", archive, tree, zone=zone).expect()


def zip_into_pipe(orv, tree, archive):
    """Through a real pipe: cat is what writes the file."""
    with open(archive, "wb") as file:
        cat = subprocess.Popen(["cat"], stdin=subprocess.PIPE, stdout=file)
        orv.run("zip", "-", tree, stdout=cat.stdin).expect()
        cat.stdin.close()
        check_equal(cat.wait(), 0, "exit status of cat")


def check_read_back(orv, archive, tree, folder):
    orv.run("unzip", archive, folder / "back").expect()
    trees.check_same(tree, folder / "back")


def special_names_and_times(orv, folder):
    tree = trees.special(folder / "tree")
    for name, make in (("file", zip_tree), ("pipe", zip_into_pipe)):
        archive = folder / f"{name}.zip"
        make(orv, tree, archive)
        zip_checks.check_records(archive, tree, streamed=name == "pipe")
        zip_checks.check_with_tools(archive)
        zip_checks.check_extracted_by_unzip(archive, tree, folder / f"unzipped {name}")
    orv.run("test", archive).expect()
    check_read_back(orv, archive, tree, folder)


def times_of_another_zone(orv, folder):
    for zone in ("Asia/Kolkata", "America/Phoenix"):  # without summer time
        tree = trees.special(folder / zone / "tree")
        archive = folder / zone / "zone.zip"
        zip_tree(orv, tree, archive, zone)
        zip_checks.check_records(archive, tree, zone=zone)
        zip_checks.check_extracted_by_unzip(archive, tree, folder / zone / "unzipped")


def many_files(orv, folder):
    archive = folder / "headers.zip"
    zip_tree(orv, HEADERS, archive)
    zip_checks.check_records(archive, HEADERS, foreign=True)
    zip_checks.check_with_tools(archive)
    check_read_back(orv, archive, HEADERS, folder)


def large_file(orv, folder):
    """Noise between long stretches of zeros."""
    tree = folder / "tree"
    tree.mkdir()
    with open(tree / "large.bin", "wb") as file:
        for place in (0, LARGE // 3, LARGE * 5 // 6):
            file.seek(place)
            file.write(os.urandom(4 << 20))
        file.truncate(LARGE)
    archive = folder / "large.zip"
    zip_tree(orv, tree, archive)
    zip_checks.check_records(archive, tree, foreign=True)
    zip_checks.check_with_tools(archive)
    check_read_back(orv, archive, tree, folder)


def empty_folders(orv, folder):
    tree = folder / "tree"
    (tree / "full" / "empty one").mkdir(parents=True)
    zip_into_pipe(orv, tree / "full" / "empty one", folder / "none.zip")
    check_equal((folder / "none.zip").read_bytes(), b"PK\5\6" + bytes(18), "an empty archive")
    (tree / "full" / "file").write_bytes(b"x")
    archive = folder / "folders.zip"
    zip_tree(orv, tree, archive)
    zip_checks.check_with_tools(archive)
    check_read_back(orv, archive, tree, folder)


if __name__ == "__main__":
    interop.main(
        [special_names_and_times, times_of_another_zone, many_files, large_file,
         empty_folders],
        "archives written by orv",
    )
