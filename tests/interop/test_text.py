"""Text files read and converted by orv against Python's codecs: UTF-16 in both byte orders, broken
in the ways that files are, with all kinds of characters at the borders of the reader's blocks."""

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


def check_converted(orv, folder, data, name, expected):
    source, target = folder / "text.txt", folder / "utf8.txt"
    source.write_bytes(data)
    what = f"{name}, {len(data)} bytes, {data[:20]}"
    check_equal(orv.run("text", source, "-o", target).expect().stdout.strip(), name, what)
    check_equal(target.read_bytes(), expected, f"{what}: written")


def check_wide(orv, folder, data):
    codec = CODECS[data[:2]]
    text = units(data[2:], codec)
    check_converted(orv, folder, data, NAMES[codec], converted(text))
    printed = orv.run("text", folder / "text.txt").expect().stdout
    check_equal(printed, read(text), f"{codec}, {len(data)} bytes: read")


def wide_texts(orv, folder):
    """Characters of all lengths and line ends meet the borders of blocks in all their parts."""
    numbers = random.Random(1)
    alphabet = "ab\r\n\u00e9\u2019\u20ac\u7530\ud834\udd1e\0"
    mixed = "".join(numbers.choice(alphabet) for _ in range(20 * BLOCK))
    every = "".join(map(chr, range(0x10000)))
    for mark, codec in CODECS.items():
        encode = lambda text: mark + text.encode(codec, "surrogatepass")
        check_wide(orv, folder, encode("\U0001d11e\ufeff" + every + mixed) + b"x")
        for size in (2, BLOCK - 1, BLOCK, BLOCK + 1):
            check_wide(orv, folder, encode(mixed)[:size])


def narrow_texts(orv, folder):
    for data, name in {
        b"": b"8-bit",
        b"\xff": b"8-bit",
        b"\xfea\xff": b"8-bit",
        b"\xff\xff\xfe": b"8-bit",
        bytes(range(256)): b"8-bit",
        b"a" * (BLOCK - 2) + "\u00e9\u00e9\u20ac".encode(): b"UTF-8",
        b"\x80" + "\u00e9".encode(): b"8-bit",
        b"a\xc3": b"8-bit",
    }.items():
        check_converted(orv, folder, data, name, data)
    data = bytes(range(256)) * 40
    (folder / "text.txt").write_bytes(data)
    check_equal(orv.run("text", folder / "text.txt").expect().stdout, data, "8-bit text")


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
    interop.main([command_line, wide_texts, narrow_texts], "text")
