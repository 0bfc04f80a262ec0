"""Dates of the library against this machine's C library, in time zones set from outside."""

import calendar
import os
import pathlib
import random
import sys
import time

import interop
from interop import check, check_equal

LONG = "ORVANE_LONG" in os.environ
DATES = 10_000 if LONG else 600  # for each zone
# With and without daylight saving, of both hemispheres, with half hours, on both sides of Greenwich.
ZONES = ["UTC", "Europe/Berlin", "America/New_York", "America/Los_Angeles", "America/St_Johns",
         "Asia/Kolkata", "Asia/Tokyo", "Australia/Sydney", "Pacific/Auckland"]  # fmt: skip
# Windows applies a zone's present rule for daylight saving to all years; that of these zones is
# older than this.
FIRST = calendar.timegm((2012, 1, 2, 0, 0, 0))
LAST = calendar.timegm((2037 if LONG else 2016, 12, 30, 0, 0, 0))
SECONDS_FROM_1601_TO_1970 = 11_644_473_600


def ask(zone, questions):
    """The answers of the program in a zone."""
    program = pathlib.Path(sys.argv[1]) / "dates_host.exe"
    text = "".join(question + "\n" for question in questions).encode()
    result = interop.run(interop.ROOT / "tools" / "run", program, zone=zone, input=text).expect()
    return result.stdout.decode().splitlines()


def moments(zone):
    """Times all over the range, and around the changes of the clock."""
    numbers = random.Random(zone)
    offset = lambda t: time.localtime(t).tm_gmtoff
    changes = [t for t in range(FIRST, LAST, 1800) if offset(t) != offset(t - 1800)]
    near = [t + delta for t in changes for delta in (-3601, -3600, -1, 0, 1, 3599, 3600)]
    near = near[: DATES // 2]
    return near + [numbers.randrange(FIRST, LAST) for _ in range(DATES - len(near))]


def read_as_local(fields):
    """The two times of an hour that comes twice; either guess for one that does not come."""
    guesses = {int(time.mktime(fields[:8] + (daylight,))) for daylight in (0, 1)}
    right = {guess for guess in guesses if time.localtime(guess)[:6] == fields[:6]}
    return {str(guess) for guess in right or guesses}


def check_zone(zone):
    os.environ["TZ"] = zone
    time.tzset()
    bias = -time.localtime().tm_gmtoff
    expected = [("bias - 0", {str(bias)})]
    for t in moments(zone):
        ticks = (t + SECONDS_FROM_1601_TO_1970) * 10_000_000
        utc = time.gmtime(t)
        show = lambda t: {time.strftime("%Y-%m-%d %H:%M", time.localtime(t))}
        expected += [
            (f"show {t} -1", show(t)),
            (f"show {t} 3600", show(t - (3600 - bias))),
            (f"parse {time.strftime('%y.%m.%d.%H.%M.%S', utc)} 1", {str(t)}),
            (f"file {ticks} 1", read_as_local(tuple(time.gmtime(t - bias)))),
            (f"file {ticks} 0", read_as_local(tuple(utc))),
        ]
    answers = ask(zone, [question for question, _ in expected])
    check_equal(len(answers), len(expected), "answers")
    wrong = [(*pair, answer) for pair, answer in zip(expected, answers) if answer not in pair[1]]
    check(not wrong, f"{zone}: {len(wrong)} of {len(expected)} differ, as {wrong[:3]}")


def all_zones(orv, folder):
    for zone in ZONES:
        check_zone(zone)


def zone_that_changes(orv, folder):
    """Clocks are set forward while the program runs; Wine knows such rules to the minute."""
    now = time.time()
    moment = (now + 4) // 60 * 60 + 60
    change = time.gmtime(moment)
    day = change.tm_yday - (calendar.isleap(change.tm_year) and change.tm_mon > 2)
    zone = f"STD0DST,J{day}/{time.strftime('%H:%M', change)},J{(day + 99) % 365 + 1}"
    pause = f"pause {1000 * (moment - now + 1):.0f} -"
    questions = ["bias - 0", "change - -", pause, "change - -", "bias - 0", "bias - 1", "change - -"]
    check_equal(ask(zone, questions), ["0", "0", "", "3600", "0", "-3600", "0"], str(questions))


if __name__ == "__main__":
    interop.main([all_zones] + [zone_that_changes] * LONG, f"dates, {DATES} a zone")
