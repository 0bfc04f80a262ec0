"""Archives that orv writes into a pipe: sizes and sums stand in data descriptors, and the same tools
take them."""

import interop
import trees
import zip_checks


def zip_into_pipe(orv, tree, archive):
    """Through a real pipe: cat is what writes the file."""
    with open(archive, "wb") as file:
        cat = interop.subprocess.Popen(["cat"], stdin=interop.subprocess.PIPE, stdout=file)
        orv.run("zip", "-", tree, stdout=cat.stdin).expect()
        cat.stdin.close()
        interop.check_equal(cat.wait(), 0, "exit status of cat")


def special_tree(orv, folder):
    tree = trees.special(folder / "tree")
    archive = folder / "piped.zip"
    zip_into_pipe(orv, tree, archive)
    zip_checks.check_records(archive, tree, streamed=True)
    zip_checks.check_with_python(archive, tree)
    zip_checks.check_with_tools(archive)
    zip_checks.check_extracted_by_unzip(archive, tree, folder / "unzipped")
    zip_checks.check_attributes_in_7z(archive, tree)


def read_back(orv, folder):
    tree = trees.special(folder / "tree")
    archive = folder / "piped.zip"
    zip_into_pipe(orv, tree, archive)
    orv.run("test", archive).expect()
    orv.run("unzip", archive, folder / "back").expect()
    trees.check_same(tree, folder / "back")


def no_files(orv, folder):
    (folder / "tree").mkdir()
    archive = folder / "piped.zip"
    zip_into_pipe(orv, folder / "tree", archive)
    interop.check_equal(archive.read_bytes(), b"PK\5\6" + bytes(18), "an empty archive")


if __name__ == "__main__":
    interop.main([special_tree, read_back, no_files], "archives piped by orv")
