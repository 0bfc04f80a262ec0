"""The guide holds: its C++ examples compile against the headers, its links lead somewhere, and its
index names every page. The reference has the headers' comments.

An example, a block fenced as cpp, is a whole translation unit in front of which stands nothing but
<afxwin.h>.
"""

import concurrent.futures
import re

import interop
from interop import check

ROOT = interop.ROOT
INDEX = ROOT / "docs" / "README.md"
PAGES = [ROOT / "README.md", *sorted((ROOT / "docs").glob("*.md"))]
COMPILE = ["i686-w64-mingw32-g++-posix", "-std=c++20", "-fsyntax-only", "-Wall", "-Wextra",
           "-Werror", "-Wno-unused", "-DNOMINMAX", "-DSTRICT", "-DWINVER=0x0601", "-D_WIN32_WINNT=0x0601",
           "-D_WIN32_IE=0x0800", "-isystem", ROOT / "framework/include",
           "-I", ROOT / "orvane"]  # fmt: skip


def examples(page):
    """The first line and the text of each."""
    text = page.read_text()
    for block in re.finditer(r"^```cpp\n(.*?)^```$", text, re.MULTILINE | re.DOTALL):
        yield text.count("\n", 0, block.start(1)) + 1, block[1]


def examples_compile(orv, folder):
    prefix = folder / "prefix.h"
    # The headers that take longest, once.
    prefix.write_text("#include <afxwin.h>\n#include <string>\n#include <vector>\n")
    interop.run(*COMPILE[:2], *COMPILE[3:], "-x", "c++-header", prefix).expect()

    def faults(example):
        page, line, text = example
        source = folder / f"{page.stem}_{line}.cpp"
        source.write_text(f'#include <afxwin.h>\n#line {line} "{page.relative_to(ROOT)}"\n{text}')
        return interop.run(*COMPILE, "-include", prefix, source).stderr

    all_examples = [(page, *example) for page in PAGES for example in examples(page)]
    check(len(all_examples) > 10, f"only {len(all_examples)} examples were found")
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        found = "".join(pool.map(faults, all_examples))
    check(not found, f"examples that don't compile:\n{found}")


def anchor(heading):
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def links_lead_somewhere(orv, folder):
    lost = []
    for page in PAGES:
        for link in re.findall(r"\]\(([^)\s]+)\)", page.read_text()):
            if re.match(r"\w+:", link):
                continue
            path, _, place = link.partition("#")
            target = page.parent / path if path else page
            headings = re.findall(r"^#+ (.*)$", target.read_text(), re.MULTILINE) if place else []
            if not target.exists() or (place and place not in map(anchor, headings)):
                lost.append(f"{page.relative_to(ROOT)}: {link}")
    check(not lost, "links that lead nowhere:\n" + "\n".join(lost))


def index_names_every_page(orv, folder):
    index = INDEX.read_text()
    others = {page.name for page in PAGES} - {INDEX.name}
    missing = sorted(name for name in others if f"({name})" not in index)
    check(not missing, f"docs/README.md does not lead to {missing}")


def reference_has_the_comments(orv, folder):
    interop.run(ROOT / "tools" / "api-reference", folder).expect()  # fails at a warning
    for page, comment in {
        "XUnzip_8h.html": "Opens an archive.",  # above a function
        "structZIPENTRY.html": "bytes when extracted",  # behind a field
        "classMMultiOperation.html": "Long-running work",  # the file's, about its class
        "annotated.html": "Extracts an archive into a folder",  # likewise, of one with its own
        "classMListCtrl.html": "1, or 0: there are kMostColumns already, or no memory.",  # a group's
        "AssertVerifyTrace_8h.html": "VERIFY(expression): always evaluated.",  # a macro's
    }.items():
        text = re.sub(r"<[^>]*>", "", (folder / "html" / page).read_text())
        check(comment in text, f"{page} lacks: {comment}")


if __name__ == "__main__":
    interop.main(
        [examples_compile, links_lead_somewhere, index_names_every_page, reference_has_the_comments],
        "the guide",
    )
