"""The package that host developers receive: made, unpacked, and a program built on it and run."""

import shutil
import struct

import interop
from interop import check, check_equal

COMPILER = "i686-w64-mingw32-g++-posix"
STRICT = "-Wall -Wextra -Werror"


def unpacked(orv, folder):
    """Makes the package and gives the folder that it unpacks to: nothing else is used of it."""
    interop.run(interop.ROOT / "tools" / "package", folder).expect()
    archives = list(folder.glob("orvane-*-win32.zip"))
    check_equal(len(archives), 1, "archives")
    target = folder / "a folder"
    orv.run("unzip", archives[0], target).expect()
    return target / archives[0].stem


def version_of(binary):
    """Of its version record (VS_FIXEDFILEINFO): major, minor, build."""
    data = binary.read_bytes()
    record = data.find(b"\xbd\x04\xef\xfe")
    check(record >= 0, f"{binary.name} has no version record")
    minor, major, _, build = struct.unpack_from("<4H", data, record + 8)
    return f"{major}.{minor}.{build}"


def check_contents(package):
    for name in ["lib/liborvane.dll.a", "lib/libappframe.dll.a", "docs/README.md", "README.md",
                 "include/orvane/resources/resource.h", "THIRD-PARTY.md", "licences/versions.txt",
                 "licences/zlib.txt", "licences/gcc-runtime.txt", "licences/GPL-3.txt",
                 "licences/mingw-w64.txt"]:  # fmt: skip
        check((package / name).exists(), f"the package lacks {name}")
    hosts = [path.name for path in (interop.ROOT / "hosts").iterdir() if path.is_dir()]
    version = package.name.split("-")[1]
    for name in ["orvane.dll", "appframe.dll", *(f"{host}.exe" for host in hosts)]:
        check_equal(version_of(package / "bin" / name), version, f"version of {name}")
    program = interop.run(
        interop.ROOT / "tools" / "run", package / "bin" / "orv.exe", "--version").expect()
    check_equal(program.stdout.split(), ["orv".encode(), version.encode()], "orv --version")


def check_headers(package, folder):
    """What the headers include is in the package, too."""
    include = package / "include"
    headers = sorted(path for path in (include / "orvane").rglob("*.h"))
    source = folder / "headers.cpp"
    source.write_text("".join(f'#include "{path.relative_to(include / "orvane")}"\n'
                              for path in headers))  # fmt: skip
    interop.run(COMPILER, "-std=c++20", "-fsyntax-only", *STRICT.split(), "-DNOMINMAX", "-DSTRICT",
                "-D_WIN32_WINNT=0x0601", "-D_WIN32_IE=0x0800", "-isystem", include / "framework",
                "-I", include / "orvane", source).expect()  # fmt: skip


def build_example(package, build):
    source = build.parent / "host"  # not below the package: it is found by the toolchain file
    shutil.copytree(package / "examples" / "host", source)
    interop.run("cmake", "-S", source, "-B", build, "-G", "Ninja",
                "--toolchain", package / "cmake" / "orvane-toolchain.cmake",
                f"-DCMAKE_CXX_FLAGS={STRICT}").expect()  # fmt: skip
    interop.run("cmake", "--build", build).expect()


def package(orv, folder):
    package = unpacked(orv, folder)
    check_contents(package)
    check_headers(package, folder)
    build_example(package, folder / "build")

    tree = folder / "tree"
    (tree / "inner").mkdir(parents=True)
    (tree / "three.txt").write_bytes(b"1\r\n2\r\n3\r\n")
    (tree / "inner" / "two.txt").write_bytes("\ufeff1\n2\n".encode("utf-16-le"))
    with open(tree / "long.txt", "wb") as file:
        file.truncate(200_000_000)  # takes long enough for a progress window, and no room
    driver = orv.other("window_driver")
    shown = driver.run(folder / "build" / "lines.exe", tree).expect().stdout.decode()
    progress, *others = shown.splitlines()
    check("% Completed - Counting lines|Counting the lines of 3 files." in progress, progress)
    check_equal(others, ["Lines|5 lines in 3 files.", "Lines|3x3"], "windows")
    shown = driver.run(folder / "build" / "lines.exe", tree / "none").expect(1).stdout.decode()
    check_equal(shown.count("|There are no files in "), 1, "messages of " + shown)


if __name__ == "__main__":
    interop.main([package], "the package and a program on it")
