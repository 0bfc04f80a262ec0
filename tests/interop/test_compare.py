"""Folder comparisons by orv, against diff and a rule written down here, on trees of files that
packages install, with edits of every kind; and the pages of the report."""

import collections
import contextlib
import os
import pathlib
import random
import re
import shutil
import urllib.parse

import interop
from interop import ANSI, WORDS, check, check_equal

IS_LONG = "ORVANE_LONG" in os.environ
SOURCES = ["/usr/share/mingw-w64/include", "/usr/include", "/usr/share"]
FILES = 20_000 if IS_LONG else 1_200

SPACE = b" \t\n\v\f\r"
STATES = ["Same", "Modified", "New", "Deleted"]


def is_windows_name(relative):
    """Whether Windows can have the path, in the code page of its programs."""
    try:
        relative.encode(ANSI)
    except UnicodeEncodeError:
        return False
    parts = relative.split("/")
    return len(relative) < 150 and not any(
        re.search(r'[<>:"|?*\\\x00-\x1f]', part) or part[-1] in " ." for part in parts
    )


def copy_installed(target, count, largest=1_000_000):
    """Copies that many installed files, names told apart without regard to case."""
    seen = set()
    for source in map(pathlib.Path, SOURCES):
        for folder, folders, names in os.walk(source):
            folders.sort()
            for name in sorted(names):
                path = pathlib.Path(folder) / name
                relative = f"{source.name}/{path.relative_to(source)}"
                if path.is_symlink() or not path.is_file() or path.stat().st_size > largest:
                    continue
                if not is_windows_name(relative) or relative.lower() in seen:
                    continue
                seen.add(relative.lower())
                copy = target / relative
                copy.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(path, copy)
                if len(seen) == count:
                    return
    check(False, f"only {len(seen)} files were found")


def change_byte(data, place):
    return data[:place] + bytes([data[place] ^ 1]) + data[place + 1 :]


def insert_space(data, place):
    return data[:place] + b" " + data[place:]


# What is done to a file's bytes at a place in it. Some changes don't count in some modes.
EDITS = [
    change_byte,
    insert_space,
    lambda data, _: data + b" \r\n",
    lambda data, _: data[:-1],
    lambda data, place: data[:place] + data[place:].replace(b"\n", b"\r\n"),
    lambda data, place: data[:place] + data[place:].replace(b" ", b"\t  "),
    lambda data, place: data[:place] + data[place:].upper(),
    lambda data, place: data[:place] + data[place:].swapcase(),
    lambda data, place: data[:place] + data[place:].replace(b"\n", b" "),
    lambda data, _: b"",
]


def edit_tree(tree, seed):
    """Changes, adds, deletes and renames some files, and writes some again as they are."""
    chance = random.Random(seed)
    for path in sorted(path for path in tree.rglob("*") if path.is_file()):
        lot = chance.random()
        if lot < 0.15:
            data = path.read_bytes()
            if data:
                path.write_bytes(chance.choice(EDITS)(data, chance.randrange(len(data))))
        elif lot < 0.17:
            path.unlink()
        elif lot < 0.19:
            path.rename(path.with_name(path.name.swapcase()))
        elif lot < 0.21:
            path.with_name("added " + path.name).write_bytes(path.read_bytes())


def lower_table():
    """Lower-case letters of the code page."""
    table = bytearray(range(256))
    for byte in range(256):
        try:
            lower = bytes([byte]).decode(ANSI).lower().encode(ANSI)
        except UnicodeError:
            continue
        if len(lower) == 1:
            table[byte] = lower[0]
    return bytes(table)


LOWER = lower_table()


def normalised(data, space, ignore_case):
    if space == 1:
        data = re.sub(rb"[ \t\n\v\f\r]+", b" ", data.rstrip(SPACE))
    elif space == 2:
        data = data.translate(None, SPACE)
    return data.translate(LOWER) if ignore_case else data


def files_by_key(tree):
    return {str(path.relative_to(tree)).lower(): path for path in tree.rglob("*") if path.is_file()}


def expected_states(base, revised, space, ignore_case):
    left, right = files_by_key(base), files_by_key(revised)
    states = {}
    for key in left.keys() | right.keys():
        if key not in right:
            states[key] = "Deleted"
        elif key not in left:
            states[key] = "New"
        else:
            one, other = left[key].read_bytes(), right[key].read_bytes()
            normal = lambda data: normalised(data, space, ignore_case)
            is_same = one == other or normal(one) == normal(other)
            states[key] = "Same" if is_same else "Modified"
    return states


def compare(orv, base, revised, *options):
    """The states that orv finds, by path, with its exit status checked against them."""
    result = orv.run("compare", base, revised, *options)
    lines = result.stdout.decode(ANSI).splitlines()
    states = {}
    for line in lines[:-1]:
        state, path = line.split("  ", 1)
        states[path.strip().replace("\\", "/").lower()] = state.strip()
    check_equal(len(states), len(lines) - 1, "documents that are told once")
    counts = collections.Counter(states.values())
    summary = ", ".join(f"{counts[state]} {state.lower()}" for state in STATES)
    if "--brief" not in options:
        check_equal(lines[-1], summary, "the summary")
    is_same = all(state == "Same" for state in states.values())
    result.expect(0 if is_same else 1)
    return states


def check_states(found, expected, what):
    for path in sorted(found.keys() | expected.keys()):
        check_equal(found.get(path), expected.get(path), f"{what}: {path}")


def diff_states(base, revised, *options):
    """What diff says of the pairs, and of what only one tree has."""
    result = interop.run("diff", "-rq", "--ignore-file-name-case", *options, base, revised)
    states = {}

    def add_tree(path, tree, state):
        for file in [path] if path.is_file() else filter(pathlib.Path.is_file, path.rglob("*")):
            states[str(file.relative_to(tree)).lower()] = state

    for line in result.stdout.decode("utf-8", "surrogateescape").splitlines():
        if match := re.fullmatch(r"Files (.*) and (.*) differ", line):
            states[str(pathlib.Path(match[1]).relative_to(base)).lower()] = "Modified"
        elif match := re.fullmatch(r"Only in (.*): (.*)", line):
            path = pathlib.Path(match[1]) / match[2]
            is_base = path.is_relative_to(base)
            add_tree(path, base if is_base else revised, "Deleted" if is_base else "New")
        else:
            check(False, f"diff: {line}")
    return states


def installed_trees(orv, folder):
    base, revised = folder / "base", folder / "revised"
    copy_installed(base, FILES)
    shutil.copytree(base, revised)
    check_equal(set(compare(orv, base, revised).values()), {"Same"}, "equal trees")
    edit_tree(revised, seed=1)

    modes = [(space, ignore) for space in (0, 1, 2) for ignore in (False, True)]
    for space, ignore_case in modes:
        what = f"--space {space}{' --ignore-case' if ignore_case else ''}"
        expected = expected_states(base, revised, space, ignore_case)
        found = compare(orv, base, revised, *what.split())
        check_states(found, expected, what)
        print(f"{what}: {dict(collections.Counter(found.values()))}")

        # diff looks at lines: it takes a line break for no white space, and a last line without one
        # for a different line. So what differs here differs there, but not the other way round.
        flags = [*[[], ["-b"], ["-w"]][space], *(["-i"] if ignore_case else [])]
        differing = diff_states(base, revised, "-a", *flags)
        for path in found.keys() | differing.keys():
            here, there = found.get(path), differing.get(path, "Same")
            is_milder = flags and (here, there) == ("Same", "Modified")
            check(here == there or is_milder, f"{what}: {path} is {here}, diff says {there}")


def write(folder, **contents):
    for name, text in contents.items():
        path = folder / name.replace("_", "/").replace("DOT", ".")
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)


def options_and_exit_status(orv, folder):
    base, revised = folder / "base", folder / "revised"
    write(base, aDOTc="x", bDOTh="x", cDOTcpp="x", sub_dDOTc="x", none="x")
    write(revised, aDOTc="y", bDOTh="x", cDOTcpp="y", sub_dDOTc="y", none="y")
    cases = [
        ([], "a.c b.h c.cpp none sub/d.c"),
        (["--types", "*.c;*.h"], "a.c b.h sub/d.c"),
        (["--exclude", "*.C;*.h"], "c.cpp none"),
        (["--flat"], "a.c b.h c.cpp none"),
        (["--brief"], "a.c c.cpp none sub/d.c"),
        (["--types", "*.h"], "b.h"),  # all the same
    ]
    for options, expected in cases:
        check_equal(" ".join(sorted(compare(orv, base, revised, *options))), expected, str(options))

    wrong = [
        [base],
        [base, revised, revised],
        [base, revised, "--space", "3"],
        [base, revised, "--space"],
        [base, revised, "--unknown"],
        [base, revised, "--types", "*.c", "--exclude", "*.h"],
        [base, folder / "missing"],
        [base / "a.c", revised],
        [base, revised, "--links", base],
    ]
    for arguments in wrong:
        result = orv.run("compare", *arguments).expect(2)
        check(result.stderr, f"{arguments}: no message")
    check_equal((base / "a.c").read_text(), "x", "a document after all that")


class Page(interop.Page):
    def __init__(self, path, **options):
        self.path = path
        super().__init__(path.read_text(encoding="utf-8"), **options)

    def check_links(self):
        """Each leads to a file or a place that is there."""
        for link in self.links:
            address, _, anchor = link.partition("#")
            if address.startswith("http:"):
                continue
            if address.startswith("file:///"):
                target = pathlib.Path(urllib.parse.unquote(address[len("file:///Z:") :]))
            else:
                target = self.path.parent / urllib.parse.unquote(address) if address else self.path
            check(target.resolve().is_file(), f"{self.path.name}: {link} leads nowhere")
            if anchor and not address:
                check(anchor in self.anchors, f"{self.path.name}: there is no {link}")


def check_pages(report, states):
    """All pages below a report, and their links. Gives the first."""
    pages = [Page(report / "index.html"), *map(Page, (report / "differences").rglob("*.html"))]
    for page in pages:
        page.check_links()
    check_equal(len(pages), list(states.values()).count("Modified") + 1, "pages")
    return pages[0]


def edited_trees(folder, count):
    base, revised = folder / "base", folder / "revised"
    copy_installed(base, count, largest=50_000)
    shutil.copytree(base, revised)
    edit_tree(revised, seed=count)
    return base, revised


def report_pages(orv, folder):
    base, revised = edited_trees(folder, 300)
    report = folder / "report & more"
    for tree, text in ((base, b"a"), (revised, b"b")):
        (tree / f"100% #1 & co '{WORDS[0]}'.txt").write_bytes(b"<script>alert('%s')</script>\0\n" % text)
        (tree / "plain &amp;.txt").write_bytes(b"</td><script>%s\x01\x1b</script>\r\n" % text)
    states = compare(orv, base, revised, "--links", report, "--copy")
    index = check_pages(report, states)
    for state in ("Modified", "New", "Deleted"):
        count = list(states.values()).count(state)
        check(f"{state} ({count})" in index.text, f"no section of {count} {state}")
    # With links to the documents where they are, over the same report.
    states = compare(orv, base, revised, "--links", report, "--link-sources", "--space", "0")
    check_pages(report, states)


def list_reports(orv, folder):
    """A report of the list, with its pages beside it; in the other formats it has none."""
    base, revised = edited_trees(folder, 100)
    for options in ([], ["--copy"], ["--link-sources"]):
        report = folder / f"out{len(options)}" / "my report.htm"
        command = f"C:0215 S:5D O:{interop.windows_path(report)}"
        states = compare(orv, base, revised, "--report", command, *options)
        page = Page(report, unwanted=("link",))
        page.check_links()
        differing = sum(state != "Same" for state in states.values())
        documents = len(states) if options else 0
        check_equal(len(page.links), differing + documents + 1, f"{options}: links")
        check_pages(report.parent / "my report_files", states)
        shutil.rmtree(report.parent)
    table = folder / "table.tsv"
    compare(orv, base, revised, "--report", f"R:T O:{interop.windows_path(table)}")
    rows = table.read_text(encoding="utf-8-sig").splitlines()
    check(len(rows) >= len(states) + 1, f"{len(rows)} rows")
    check_equal(sorted(path.name for path in folder.iterdir()), ["base", "revised", table.name], "files")
    for command in ("S:9", "X:1", "R:T", f"O:{interop.windows_path(base)}"):
        result = orv.run("compare", base, revised, "--report", command).expect(2)
        check(b"same" in result.stdout and "report" in result.stderr, f"{command}: {result.stderr}")


def is_open(path):
    for entry in pathlib.Path("/proc").glob("[0-9]*/fd/*"):
        with contextlib.suppress(OSError):
            if entry.readlink() == path:
                return True
    return False


def stopped_comparison(orv, folder):
    """Ctrl+C in the middle of a large file: what was found is printed."""
    base, revised = folder / "base", folder / "revised"
    for tree in (base, revised):
        write(tree, a="x")
        with open(tree / "huge", "wb") as file:
            file.truncate(1 << 36)
    started = lambda: is_open(revised / "huge")
    output, _ = interop.stopped(orv, folder, started, 2, "compare", base, revised, "--space", "0")
    expected = ["Same      a", "Unknown   huge", "1 same, 0 modified, 0 new, 0 deleted, 1 unknown"]
    check_equal(output.splitlines(), expected, "what it has found")


def many_modified_documents(orv, folder):
    """The report of so many documents has an index that opens."""
    base, revised, report = folder / "base", folder / "revised", folder / "report"
    count = 10_000 if IS_LONG else 600  # in more than one folder
    for tree, word in ((base, "old"), (revised, "new")):
        for number in range(count):
            path = tree / str(number % 100) / f"document {number}.txt"
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(f"a first line\nthe {word} word of {number}\n")
    check_pages(report, compare(orv, base, revised, "--links", report))
    size = (report / "index.html").stat().st_size
    check(size < 500 * count + 10_000, f"the index has {size} bytes")
    print(f"{count} modified documents: an index of {size} bytes")
    command = f"O:{interop.windows_path(folder / 'r.htm')}"
    check_pages(folder / "r_files", compare(orv, base, revised, "--report", command))


interop.main(
    [
        options_and_exit_status,
        installed_trees,
        report_pages,
        list_reports,
        stopped_comparison,
        many_modified_documents,
    ],
    "folder comparisons against diff",
)
