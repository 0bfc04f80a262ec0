"""Text files read and converted by orv against Python's codecs: UTF-16 in both byte orders, broken
in the ways that files are, and cut at every offset around the border of the reader's blocks."""

import random

import interop
from interop import check, check_equal

BLOCK = 4098  # bytes that are read at a time
ORDERS = {"little": (b"\xff\xfe", "utf-16-le"), "big": (b"\xfe\xff", "utf-16-be")}
FOLDED = (
    {code: "-" for code in range(0x2010, 0x2016)}
    | {code: "'" for code in range(0x2018, 0x201C)}
    | {code: '"' for code in range(0x201C, 0x2020)}
)


def units(data, codec):
    """The code units of UTF-16, surrogates one by one, without a byte that is left over."""
    wide = data[: len(data) // 2 * 2].decode(codec, "surrogatepass")
    # Pairs that the codec has put together are taken apart again.
    raw = wide.encode("utf-16-le", "surrogatepass")
    return [chr(raw[i] | raw[i + 1] << 8) for i in range(0, len(raw), 2)]


def read(text):
    """What the reader makes of code units."""
    folded = "".join(text).translate(FOLDED)
    return "".join(c if ord(c) < 0x100 else "?" for c in folded).encode("latin-1")


def converted(text):
    """What the converter makes of them."""
    lines = "".join(text).replace("\r\n", "\n").replace("\n", "\r\n")
    return b"".join(c.encode("utf-8", "surrogatepass") for c in lines)


def expected(data):
    """What orv prints, what it writes, and the encoding it names."""
    for order, (mark, codec) in ORDERS.items():
        if data.startswith(mark):
            text = units(data[2:], codec)
            return read(text), converted(text), f"UTF-16, {order}-endian"
    return data, data, None


class Checker:
    def __init__(self, orv, folder):
        self._orv = orv
        self._source = folder / "text.txt"
        self._target = folder / "utf8.txt"

    def __call__(self, data, what, reads=True, writes=True):
        self._source.write_bytes(data)
        printed, written, encoding = expected(data)
        if reads:
            result = self._orv.run("text", self._source).expect()
            check_equal(result.stdout, printed, f"{what}: read")
        if writes:
            self._target.unlink(missing_ok=True)
            result = self._orv.run("text", self._source, "-o", self._target).expect()
            check_equal(self._target.read_bytes(), written, f"{what}: written")
            if encoding is not None:
                check_equal(result.stdout.decode().strip(), encoding, what)


def every_character(orv, folder):
    """All 65,536 code units: of UTF-16 a surrogate pair is two of them."""
    check_file = Checker(orv, folder)
    for order, (mark, codec) in ORDERS.items():
        text = b"".join(chr(code).encode(codec, "surrogatepass") for code in range(0x10000))
        check_file(mark + text, f"all code units, {order}-endian")


def broken_files(orv, folder):
    check_file = Checker(orv, folder)
    for order, (mark, codec) in ORDERS.items():
        encode = lambda text: text.encode(codec, "surrogatepass")
        for name, text in {
            "a mark alone": b"",
            "half a character": b"x",
            "an odd length": encode("ab") + b"\0",
            "lone surrogates": encode("a\ud834b\udd1e\ud834"),
            "surrogates the wrong way round": encode("\udd1e\ud834"),
            "a pair": encode("\U0001d11e"),
            "a second mark": mark + encode("a"),
            "nulls": encode("a\0\0b"),
            "line ends of all kinds": encode("\na\r\nb\n\nc\r\r\nd\r"),
        }.items():
            check_file(mark + text, f"{name}, {order}-endian")
    for name, text in {
        "nothing": b"",
        "half a mark": b"\xff",
        "half the other mark": b"\xfe",
        "a mark's byte and a letter": b"\xfea\xff",
        "two halves": b"\xff\xff\xfe",
        "every byte": bytes(range(256)),
        "a UTF-8 mark": b"\xef\xbb\xbfa\n",
    }.items():
        check_file(text, name)


def cut_around_the_block(orv, folder):
    """Characters of all lengths and line ends meet the border in all their parts."""
    check_file = Checker(orv, folder)
    numbers = random.Random(1)
    alphabet = "ab\r\n\u00e9\u2019\u20ac\u7530\ud834\udd1e"
    text = "".join(numbers.choice(alphabet) for _ in range(BLOCK + 10))
    for mark, codec in ORDERS.values():
        data = mark + text.encode(codec, "surrogatepass")
        for border in (BLOCK, 2 * BLOCK):
            for size in range(border - 3, border + 4):
                what = f"{codec}, {size} bytes"
                check_file(data[:size], what, writes=size % 2 == 0)
    for size in range(BLOCK - 1, BLOCK + 2):
        check_file(bytes(numbers.randrange(256) for _ in range(size)), f"8-bit, {size} bytes")


def utf8_recognised(orv, folder):
    source, target = folder / "text.txt", folder / "copy.txt"
    for text, encoding in {
        b"ascii\r\n": "8-bit",
        "gr\u00fc\u00dfe".encode(): "UTF-8",
        "gr\u00fc\u00dfe".encode("latin-1"): "8-bit",
        b"a" * (BLOCK - 1) + "\u00e9".encode(): "UTF-8",
        b"a" * (BLOCK - 2) + "\u00e9\u00e9\u20ac".encode(): "UTF-8",
        b"\x80" + "\u00e9".encode(): "8-bit",
        b"a\xc3": "8-bit",
    }.items():
        source.write_bytes(text)
        result = orv.run("text", source, "-o", target).expect()
        check_equal(result.stdout.decode().strip(), encoding, f"{text[-20:]}")
        check_equal(target.read_bytes(), text, "the copy")


def command_line(orv, folder):
    """What scripts rely on."""
    source, target = folder / "text.txt", folder / "copy.txt"
    data = b"\xfe\xff" + "a\nb".encode("utf-16-be")
    source.write_bytes(data)
    check_equal(orv.run("text", "-", input=data).expect().stdout, b"a\nb", "from a pipe")
    with open(source, "rb") as stream:
        orv.run("text", "-", "-o", target, stdin=stream).expect()
    check_equal(target.read_bytes(), b"a\r\nb", "from a stream, written")
    for content in (data, b"8-bit"):
        source.write_bytes(content)
        check("written" in orv.run("text", source, "-o", source).expect(1).stderr, "onto itself")
        check_equal(source.read_bytes(), content, "a text that was to be written onto itself")
    check("not found" in orv.run("text", folder / "none").expect(1).stderr, "a missing file")
    check("written" in orv.run("text", source, "-o", folder / "no" / "out").expect(1).stderr, "no folder")
    for arguments in ([], ["-o"], [source, "-o"], [source, source], ["--what", source]):
        check("usage" in orv.run("text", *arguments).expect(2).stderr, f"usage: {arguments}")


if __name__ == "__main__":
    interop.main(
        [command_line, every_character, broken_files, cut_around_the_block, utf8_recognised], "text"
    )
