"""Dates of the library against this machine's C library, in time zones set from outside."""

import calendar
import os
import pathlib
import random
import sys
import time

import interop
from interop import check, check_equal

# With and without daylight saving, of both hemispheres, with half hours, on both sides of Greenwich.
ZONES = [
    "UTC",
    "Europe/Berlin",
    "America/New_York",
    "America/Los_Angeles",
    "America/St_Johns",
    "Asia/Kolkata",
    "Asia/Tokyo",
    "Australia/Sydney",
    "Pacific/Auckland",
]
DATES = 10_000 if "ORVANE_LONG" in os.environ else 600
# Windows applies a zone's present rule for daylight saving to all years; that of these zones is
# older than this.
FIRST_YEAR = 2012
FIRST, LAST = calendar.timegm((FIRST_YEAR, 1, 2, 0, 0, 0)), calendar.timegm((2037, 12, 30, 0, 0, 0))
SECONDS_FROM_1601_TO_1970 = 11_644_473_600


def ask(zone, questions):
    """The answers of the program in a zone."""
    program = pathlib.Path(sys.argv[1]) / "dates_host.exe"
    text = "".join(question + "\n" for question in questions).encode()
    result = interop.run(interop.ROOT / "tools" / "run", program, zone=zone, input=text).expect()
    answers = result.stdout.decode().splitlines()
    check_equal(len(answers), len(questions), f"{zone}: answers")
    return answers


class Zone:
    """This machine's local time in a zone."""

    def __init__(self, name):
        self._name = name

    def __enter__(self):
        os.environ["TZ"] = self._name
        time.tzset()

    def __exit__(self, *_):
        del os.environ["TZ"]
        time.tzset()


def changes(zone):
    """When clocks are changed, to the second."""
    found = []
    with Zone(zone):
        offset = lambda moment: time.localtime(moment).tm_gmtoff
        for start in range(FIRST, LAST, 7 * 86400):
            low, high = start, start + 7 * 86400
            if offset(low) == offset(high):
                continue
            while high - low > 1:
                middle = (low + high) // 2
                low, high = (middle, high) if offset(middle) == offset(low) else (low, middle)
            found.append(high)
    return found


def moments(zone):
    """Times all over the range, and many around every change."""
    numbers = random.Random(zone)
    found = [change + delta for change in changes(zone) for delta in (-3601, -1, 0, 1, 3599, 3600)]
    found = found[: DATES // 2]
    return found + [numbers.randrange(FIRST, LAST) for _ in range(DATES - len(found))]


def local_readings(fields):
    """What a local time can mean: two things when it comes twice, and when it does not come."""
    readings = set()
    for daylight in (-1, 0, 1):
        readings.add(int(time.mktime(tuple(fields[:8]) + (daylight,))))
    standard = int(time.mktime(tuple(fields[:8]) + (0,)))
    same = {r for r in readings if time.localtime(r)[:6] == tuple(fields[:6])}
    return same or readings | {standard}


def check_answers(zone, kind, questions, answers, expected):
    wrong = [
        f"{question}: {answer} instead of {right}"
        for question, answer, right in zip(questions, answers, expected)
        if (answer not in right if isinstance(right, set) else answer != right)
    ]
    check(not wrong, f"{zone}, {kind}: {len(wrong)} of {len(questions)} differ, as {wrong[:3]}")


def check_zone(zone):
    times = moments(zone)
    with Zone(zone):
        bias = -time.localtime().tm_gmtoff
        stamp = lambda t: time.strftime("%Y-%m-%d %H:%M", time.localtime(t))
        shown = [stamp(t) for t in times]
        other = [stamp(t - (3600 - bias)) for t in times]
        utc = [time.gmtime(t) for t in times]
        by_local = [{str(r) for r in local_readings(time.gmtime(t - bias))} for t in times]
        as_local = [{str(r) for r in local_readings(fields)} for fields in utc]
    ticks = [divmod((t + SECONDS_FROM_1601_TO_1970) * 10_000_000, 1 << 32) for t in times]
    kinds = {
        "bias": (["bias"], [str(bias)]),
        "local time": ([f"show {t} -1" for t in times], shown),
        "time in a zone an hour west": ([f"show {t} 3600" for t in times], other),
        "text": (
            [f"parse {time.strftime('%y.%m.%d.%H.%M.%S', fields)} 1" for fields in utc],
            [str(t) for t in times],
        ),
        "text with four digits": (
            [f"parse {time.strftime('%Y/%m/%d-%H:%M:%S', fields)} 0" for fields in utc],
            [str(t) for t in times],
        ),
        "file time": ([f"file {high} {low} 1" for high, low in ticks], by_local),
        "file time as it is": ([f"file {high} {low} 0" for high, low in ticks], as_local),
    }
    # One run: what takes the time is the program's start.
    answers = iter(ask(zone, [question for questions, _ in kinds.values() for question in questions]))
    for kind, (questions, expected) in kinds.items():
        check_answers(zone, kind, questions, [next(answers) for _ in questions], expected)


def tests():
    for zone in ZONES:
        test = lambda orv, folder, zone=zone: check_zone(zone)
        test.__name__ = zone
        yield test


if __name__ == "__main__":
    interop.main(list(tests()), f"dates, {DATES} a zone")
