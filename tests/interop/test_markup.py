"""Markup files that packages of this machine install, read by orv and by well-formedness checkers
(expat for XML, Python's reader for HTML): the same verdict and the same tree, except for differences
whose cause is known. They are counted by cause."""

import collections
import glob
import html.parser
import pathlib
import re
import xml.parsers.expat

import interop
from interop import check, check_equal

# Installed by tools/setup (fontconfig-config, imagemagick-6-common and xkb-data alone are more than
# FEWEST), by Debian itself, or by chance: what is there is read.
XML = [
    "/etc/fonts/fonts.conf",
    "/usr/share/fontconfig/conf.avail/*.conf",
    "/etc/ImageMagick-6/*.xml",
    "/usr/share/ImageMagick-6/*.xml",
    "/usr/share/X11/xkb/rules/*.xml",
    "/usr/share/dbus-1/system.d/*.conf",
    "/usr/share/metainfo/*.xml",
    "/usr/share/icons/hicolor/scalable/apps/*.svg",
    "/usr/share/mime/packages/freedesktop.org.xml",
]
HTML = [
    "/usr/share/doc/librapidxml-dev/*.html",
    "/usr/share/doc/libz-mingw-w64-dev/examples/*.html",
    "/usr/share/doc/ninja-build/*.html",
    "/usr/share/doc/base-passwd/*.html",
    "/usr/share/doc/bzip2/*.html",
    "/usr/share/doc/fontconfig/*.html",
    "/usr/share/doc/gcc-*-base/*.html",
    "/usr/share/doc/libffi8/html/*.html",
    "/usr/share/doc/ocl-icd-libopencl1/html/*.html",
    "/usr/share/doc/python3/*.html",
]
MOST_OF_A_KIND = 12
FEWEST = 30

# What orv says of a document that XML allows, and why.
ORV_IS_STRICTER = [
    (r": 105 Illegal character \([^\x00-\x7f]", "a name with letters beyond ASCII"),
    (r": 105 Illegal character \(\.\)", "a name with a dot"),
    (r": 106 Unexpected token\.", "a text that begins with > or ="),
    (r": 108 Bad character entity", "an entity declared elsewhere"),
]
# Why orv refuses a page that browsers show.
HTML_IS_REFUSED = [
    (r": 105 Illegal character \(\.\)", "a name with a dot"),
    (r": 107 Expecting end tag", "a wrong end tag"),
]
# What makes a tree differ on purpose, and how to recognise it.
TREE_DIFFERS = [
    (rb"='[^'<>]*&[^']*'", "a value in single quotes is not decoded"),
    (rb"&#(x[0-9a-fA-F]{3,}|[3-9]\d\d|2[6-9]\d|25[6-9]|\d{4,});", "a character reference above 255"),
    (rb"&#(32|x20);", "a reference to a blank adds nothing"),
    (rb"<!ENTITY", "declared values keep their quotes"),
]


def documents(patterns):
    """The files that are there, without doubles."""
    seen = set()
    for pattern in patterns:
        paths = sorted(glob.glob(pattern))
        step = max(1, len(paths) // MOST_OF_A_KIND)
        for path in map(pathlib.Path, paths[::step]):
            data = path.read_bytes()
            if data not in seen and data.lstrip(b"\xef\xbb\xbf \r\n").startswith(b"<"):
                seen.add(data)
                yield path, data


class Tree:
    """What a checker reads: start tags with attributes, and the characters without white space."""

    def __init__(self):
        self.error = None
        self.unknown = None
        self.elements = []
        self.depth = 0
        self._open = 0
        self._text = []

    @classmethod
    def of_xml(cls, data):
        tree = cls()
        parser = xml.parsers.expat.ParserCreate()
        parser.specified_attributes = True  # not those that a declaration adds
        parser.StartElementHandler = tree.start
        parser.EndElementHandler = tree.end
        parser.CharacterDataHandler = tree._text.append
        try:
            parser.Parse(data, True)
        except ValueError as error:  # an encoding that expat doesn't know
            tree.unknown = str(error)
        except xml.parsers.expat.ExpatError as error:
            tree.error = str(error)
        return tree

    def start(self, name, attributes):
        values = {key: "".join(value.split()) for key, value in attributes.items()}
        self.elements.append((name, values))
        self._open += 1
        self.depth = max(self.depth, self._open)

    def end(self, _):
        self._open -= 1

    @property
    def attributes(self):
        return sum(len(attributes) for _, attributes in self.elements)

    @property
    def text(self):
        return "".join("".join(self._text).split())


class TagCounter(html.parser.HTMLParser):
    def __init__(self, data):
        super().__init__()
        self.elements = self.attributes = 0
        self.feed(data.decode("latin-1"))
        self.close()

    def handle_starttag(self, _, attributes):
        self.elements += 1
        self.attributes += len(attributes)


def summary(output):
    return {key: int(value) for key, value in (line.split() for line in output.decode().splitlines())}


def cause(table, text, what):
    for pattern, name in table:
        if re.search(pattern, text):
            return name
    raise interop.Failure(f"{what}: {text[:300]}")


def check_xml(orv, folder, path, data, causes):
    """Counts a difference by its cause."""
    written = folder / "written.xml"
    written.unlink(missing_ok=True)
    expected = Tree.of_xml(data)
    if expected.unknown is not None:
        causes[expected.unknown] += 1
        return
    result = orv.run("xml", path, "-o", written)
    check(result.status in (0, 1), f"{path}: exit status {result.status}\n{result.stderr}")
    if result.status != 0:
        if expected.error is None:
            causes[cause(ORV_IS_STRICTER, result.stderr, f"{path}: only orv refuses it")] += 1
        return
    if expected.error is not None:
        dashes = re.search(rb"(?s)<!--(?:(?!-->).)*--(?!>)", data)
        check(dashes, f"{path}: only orv takes it: {expected.error}")
        causes["two dashes inside a comment"] += 1
        return
    found = summary(result.stdout)
    check_equal(found["elements"], len(expected.elements), f"{path}: elements")
    check_equal(found["attributes"], expected.attributes, f"{path}: attributes")
    check_equal(found["depth"], expected.depth, f"{path}: depth")

    output = written.read_bytes()
    # The internal subset isn't kept, and leaves its closing bracket.
    output = re.sub(rb"(<!DOCTYPE[^>\]]*)\]", rb"\1", output)
    tree = Tree.of_xml(output)
    if (tree.error, tree.elements, tree.text) != (None, expected.elements, expected.text):
        known = [name for pattern, name in TREE_DIFFERS if re.search(pattern, data)]
        check(known, f"{path}: the written tree differs: {tree.error or ''}")
        causes[known[0]] += 1


def installed_xml(orv, folder):
    causes = collections.Counter()
    count = 0
    for path, data in documents(XML):
        check_xml(orv, folder, path, data, causes)
        count += 1
    check(count >= FEWEST, f"only {count} XML files were found")
    print(f"{count} XML files; differences: {dict(causes)}")


def installed_html(orv, folder):
    count = 0
    causes = collections.Counter()
    for path, data in documents(HTML):
        result = orv.run("xml", "--html", path, "-o", folder / "written.html")
        count += 1
        if result.status != 0:
            causes[cause(HTML_IS_REFUSED, result.stderr, f"{path}: orv refuses it")] += 1
            continue
        tags = TagCounter(data)
        found = summary(result.stdout)
        check_equal(found["elements"], tags.elements, f"{path}: elements")
        check_equal(found["attributes"], tags.attributes, f"{path}: attributes")
        written = TagCounter((folder / "written.html").read_bytes())
        check_equal(written.elements, tags.elements, f"{path}: written elements")
    print(f"{count} HTML files; differences: {dict(causes)}")
    check(causes.total() * 3 <= count, "more than a third of the HTML files are refused")


def html_page(orv, folder):
    """End tags that are left out, elements without any, values without quotes, scripts."""
    page = folder / "page.html"
    page.write_bytes(
        b"<!DOCTYPE html><HTML><body><p>one<p>&eacute;<br>two</P><ul><li>a<li><b>=</b></ul><script>if (a < b)"
        b"</script><table><tr><td width=50%>1<td>2<tr><th>3</table><select><option selected>x<option>y</select>"
    )
    orv.run("xml", "--html", page, "-o", folder / "written.html").expect()
    lines = (folder / "written.html").read_bytes().decode().split("\r\n")
    check_equal(
        "".join(line.strip() for line in lines),
        "<!DOCTYPE html><HTML><body><p>one</p><p>é<br/>two</p><ul><li>a</li><li><b>&#61;</b></li></ul>"
        "<script><![CDATA[if (a < b)]]></script><table><tr><td width=\"50%\">1</td><td>2</td></tr><tr><th>3</th>"
        "</tr></table><select><option selected=\"\">x</option><option>y</option></select></body></HTML>",
        "the written page",
    )


def command_line(orv, folder):
    """What scripts rely on."""
    good = folder / "good.xml"
    good.write_bytes(b"<a x='1'>t<b/></a><![CDATA[u]]>")
    bad = folder / "bad.xml"
    bad.write_bytes(b"<a>\n &x; </b>")
    out = folder / "new" / "out.xml"
    result = orv.run("xml", good, "-o", out).expect()
    check_equal(summary(result.stdout), {"elements": 2, "attributes": 1, "texts": 2, "depth": 2}, "summary")
    check(out.exists(), "-o wrote nothing")
    result = orv.run("xml", bad).expect(1)
    check_equal(result.stdout, b"", "stdout for a file with problems")
    name = interop.windows_path(bad)
    check_equal(
        result.stderr.splitlines(),
        [
            f"{name}:2:4: 108 Bad character entity '&x;' encountered.",
            f"{name}:2:9: 107 Expecting end tag 'a'. Found end tag 'b' instead.",
        ],
        "problems",
    )
    orv.run("xml", good, "-o", good).expect()
    check_equal(good.read_bytes(), out.read_bytes(), "a file written in place")
    empty = folder / "empty.xml"
    empty.write_bytes(b"")
    wide = folder / "wide.xml"
    wide.write_bytes("<a/>".encode("utf-16"))
    blank = folder / "blank.xml"
    blank.write_bytes(b" \n")
    for arguments, message in (
        ([folder / "none.xml"], "there is no such file"),
        ([folder], "can't be opened"),
        ([empty], "is empty"),
        ([wide], "is no 8-bit text"),
        ([blank, "-o", out], "there is nothing to write"),
        ([good, "-o", folder], "can't be written"),
    ):
        result = orv.run("xml", *arguments).expect(1)
        check(message in result.stderr, f"{result.stderr} instead of {message}")
    left = {path.name for path in folder.iterdir()}
    check_equal(left, {"bad.xml", "blank.xml", "empty.xml", "good.xml", "new", "wide.xml"}, "files left")
    for arguments in (["--html"], [good, good], [good, "-o"], [good, "--what"]):
        check("usage" in orv.run("xml", *arguments).expect(2).stderr, f"usage: {arguments}")


if __name__ == "__main__":
    interop.main([command_line, html_page, installed_xml, installed_html], "markup")
