"""Archives that orv writes, against unzip, 7z and Python's zipfile: the same names, sizes, times,
attributes and bytes; and every field of every header as documented."""

import os
import pathlib
import random

import interop
import trees
import zip_checks

HEADERS = [pathlib.Path("/usr/share/mingw-w64/include"), pathlib.Path("/usr/include")]


def zip_tree(orv, tree, archive, zone="UTC"):
    orv.run("zip", archive, tree, zone=zone).expect()


def special_names_and_times(orv, folder):
    tree = trees.special(folder / "tree")
    archive = folder / "special.zip"
    zip_tree(orv, tree, archive)
    zip_checks.check_records(archive, tree)
    zip_checks.check_with_python(archive, tree)
    zip_checks.check_with_tools(archive)
    zip_checks.check_extracted_by_unzip(archive, tree, folder / "unzipped")
    zip_checks.check_attributes_in_7z(archive, tree)


def times_of_another_zone(orv, folder):
    for zone in ("Asia/Kolkata", "America/Phoenix"):  # without summer time
        tree = trees.special(folder / zone / "tree")
        archive = folder / zone / "zone.zip"
        zip_tree(orv, tree, archive, zone)
        zip_checks.check_records(archive, tree, zone=zone)
        zip_checks.check_extracted_by_unzip(archive, tree, folder / zone / "unzipped")


def thousands_of_files(orv, folder):
    tree = next(path for path in HEADERS if path.exists())
    archive = folder / "headers.zip"
    zip_tree(orv, tree, archive)
    zip_checks.check_records(archive, tree, foreign=True)
    zip_checks.check_with_python(archive, tree)
    zip_checks.check_with_tools(archive)
    back = folder / "back"
    orv.run("unzip", archive, back).expect()
    trees.check_same(tree, back)


def large_file(orv, folder):
    """300 MB: text, noise and long stretches of zeros."""
    tree = folder / "tree"
    tree.mkdir()
    noise = random.Random(1).randbytes(4 << 20)
    text = b"".join(b"%d squared is %d\r\n" % (i, i * i) for i in range(200_000))
    with open(tree / "large.bin", "wb") as file:
        for place in (0, 100 << 20, 250 << 20):
            file.seek(place)
            file.write(noise + text)
        file.truncate(300 << 20)
    os.utime(tree / "large.bin", (trees.ACCESSED, 1_600_000_000))
    archive = folder / "large.zip"
    zip_tree(orv, tree, archive)
    zip_checks.check_records(archive, tree)
    zip_checks.check_with_tools(archive)
    back = folder / "back"
    orv.run("unzip", archive, back).expect()
    trees.check_same(tree, back)


def empty_folders(orv, folder):
    tree = folder / "tree"
    (tree / "full" / "empty one").mkdir(parents=True)
    (tree / "full" / "file").write_bytes(b"x")
    archive = folder / "folders.zip"
    zip_tree(orv, tree, archive)
    zip_checks.check_with_tools(archive)
    zip_checks.check_folder_entry(archive, b"full/empty one/")
    back = folder / "back"
    orv.run("unzip", archive, back).expect()
    trees.check_same(tree, back)


if __name__ == "__main__":
    interop.main(
        [special_names_and_times, times_of_another_zone, thousands_of_files, large_file,
         empty_folders],
        "archives written by orv",
    )
