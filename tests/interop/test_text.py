"""Text files read and converted by orv against Python's codecs: UTF-16 in both byte orders, broken
in the ways that files are, and cut at every offset around the border of the reader's blocks."""

import random

import interop
from interop import check, check_equal

BLOCK = 4098  # bytes that are read at a time
CODECS = {b"\xff\xfe": "utf-16-le", b"\xfe\xff": "utf-16-be"}
NAMES = {"utf-16-le": b"UTF-16, little-endian", "utf-16-be": b"UTF-16, big-endian"}
FOLDED = {0x2010: "-", 0x2018: "'", 0x201C: '"', 0x2016: None, 0x2020: None}  # from there on


def units(data, codec):
    """The code units of UTF-16, surrogates one by one, without a byte that is left over."""
    wide = data[: len(data) // 2 * 2].decode(codec, "surrogatepass")
    raw = wide.encode("utf-16-le", "surrogatepass")
    return [chr(raw[i] | raw[i + 1] << 8) for i in range(0, len(raw), 2)]


def read(text):
    """What the reader makes of code units."""
    fold = lambda c: FOLDED[max((f for f in FOLDED if f <= ord(c)), default=0x2016)]
    return "".join(c if c < "\u0100" else fold(c) or "?" for c in text).encode("latin-1")


def converted(text):
    """What the converter makes of them."""
    lines = "".join(text).replace("\r\n", "\n").replace("\n", "\r\n")
    return b"".join(c.encode("utf-8", "surrogatepass") for c in lines)


def check_text(orv, folder, data):
    source, target = folder / "text.txt", folder / "utf8.txt"
    source.write_bytes(data)
    codec = CODECS.get(data[:2])
    text = units(data[2:], codec) if codec else None
    what = f"{codec}, {len(data)} bytes, {data[:20]}"
    printed = orv.run("text", source).expect().stdout
    check_equal(printed, read(text) if codec else data, f"{what}: read")
    name = orv.run("text", source, "-o", target).expect().stdout.strip()
    check_equal(target.read_bytes(), converted(text) if codec else data, f"{what}: written")
    if codec:
        check_equal(name, NAMES[codec], what)
    return name


def whole_and_broken_files(orv, folder):
    for mark, codec in CODECS.items():
        encode = lambda text: text.encode(codec, "surrogatepass")
        for text in (
            b"".join(encode(chr(code)) for code in range(0x10000)),
            b"",
            b"x",
            encode("ab") + b"\0",
            encode("a\ud834b\udd1e\udd1e\ud834"),
            encode("\U0001d11e"),
            mark + encode("a\0\0b"),
            encode("\na\r\nb\n\nc\r\r\nd\r"),
        ):
            check_text(orv, folder, mark + text)
    for text, name in {
        b"": b"8-bit",
        b"\xff": b"8-bit",
        b"\xfea\xff": b"8-bit",
        b"\xff\xff\xfe": b"8-bit",
        bytes(range(256)): b"8-bit",
        "gr\u00fc\u00dfe".encode(): b"UTF-8",
        "gr\u00fc\u00dfe".encode("latin-1"): b"8-bit",
        b"a" * (BLOCK - 2) + "\u00e9\u00e9\u20ac".encode(): b"UTF-8",
        b"\x80" + "\u00e9".encode(): b"8-bit",
        b"a\xc3": b"8-bit",
    }.items():
        check_equal(check_text(orv, folder, text), name, str(text[-20:]))


def cut_around_the_block(orv, folder):
    """Characters of all lengths and line ends meet the border in all their parts."""
    numbers = random.Random(1)
    alphabet = "ab\r\n\u00e9\u2019\u20ac\u7530\ud834\udd1e"
    text = "".join(numbers.choice(alphabet) for _ in range(BLOCK + 10))
    for mark, codec in CODECS.items():
        data = mark + text.encode(codec, "surrogatepass")
        for size in [*range(BLOCK - 3, BLOCK + 4), *range(2 * BLOCK - 1, 2 * BLOCK + 2)]:
            check_text(orv, folder, data[:size])


def command_line(orv, folder):
    """What scripts rely on."""
    source, target = folder / "text.txt", folder / "copy.txt"
    data = b"\xfe\xff" + "a\nb".encode("utf-16-be")
    check_equal(orv.run("text", "-", input=data).expect().stdout, b"a\nb", "from a pipe")
    for content in (data, b"8-bit"):
        source.write_bytes(content)
        check("written" in orv.run("text", source, "-o", source).expect(1).stderr, "onto itself")
        check_equal(source.read_bytes(), content, "a text that was to be written onto itself")
    check("not found" in orv.run("text", folder / "none").expect(1).stderr, "a missing file")
    for arguments in ([], [source, "-o"], [source, source], ["--what", source]):
        check("usage" in orv.run("text", *arguments).expect(2).stderr, f"usage: {arguments}")


if __name__ == "__main__":
    interop.main([command_line, whole_and_broken_files, cut_around_the_block], "text")
