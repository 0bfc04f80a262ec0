"""The commands of orv: how they say what they take, and that wrong arguments do nothing."""

import re

import interop
from interop import check, check_equal


def every_command_tells_its_usage(orv, folder):
    listed = re.findall(r"^  ([a-z]+) ", orv.run("--help").expect().stdout.decode(), re.MULTILINE)
    check(len(listed) > 10, f"commands: {listed}")
    for name in listed:
        usage = orv.run(name, "--help").expect().stdout.decode()
        check(usage.startswith(f"usage: orv {name}"), usage)


def wrong_arguments_do_nothing(orv, folder):
    (folder / "--mask").write_text("x")
    for arguments in (
        "nonsense",
        "zip a.zip . --windw",
        "libs --window",
        "clean . --mask",
        "clean . --name x",
    ):
        found = orv.run(*arguments.split(), cwd=folder).expect(2)
        name = arguments.split()[0]
        hint = "orv --help" if name == "nonsense" else f"usage: orv {name}"
        check(hint in found.stderr, f"{arguments}: {found.stderr}")
        check_equal(found.stdout, b"", arguments)
    check_equal([each.name for each in folder.iterdir()], ["--mask"], "what is left")


if __name__ == "__main__":
    interop.main([every_command_tells_its_usage, wrong_arguments_do_nothing], "usage")
