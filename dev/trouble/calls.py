"""One session after the other, each with another file call that fails, or that it does not live to make."""
import errno
import os
import random
import signal
import time

from . import session, swatch_files
from .program import Place, expect, finish, wait_for

WRITES = ("pwrite", "write", "ftruncate", "rename", "link", "linkat", "unlink", "fchmod", "fsync", "open", "flock",
          "futimens", "close")
ENDED = -signal.SIGKILL
NOT_MADE = "the call was not made"  # lists are stored beside the rest: another session may make one less


def spread(numbers, most):
    """At most so many of them, evenly."""
    numbers = list(numbers)
    if most is None or len(numbers) <= most:
        return numbers
    return [numbers[i * len(numbers) // most] for i in range(most)]


def counted(programs):
    """The calls of a session in which nothing fails: their names, in order."""
    place, (code, _, err) = session.played(programs, {})
    with place:
        expect(code == 0 and not err, f"the session ended with {code}: {err}")
        expect(session.whole(place) == session.ENDS, "the session made other lists than it should")
        expect(not place.left_behind(), f"left behind: {place.left_behind()}")
        lines = [line.split() for line in session.calls_of(place).splitlines()]
        return [line[1] for line in lines if line[0] != "state"]


def failing(programs, number, how, **more):
    """Call `number` fails; `how` as the library has it."""
    place, (code, _, err) = session.played(programs, {"at": number, "do": how, **more})
    with place:
        session.after_failures(place, code, err)
        left, calls = place.left_behind(), session.calls_of(place)
        if any(" ! unlink" in line for line in calls.splitlines()):
            session.next_session(place)  # nobody could remove it then
        else:
            expect(not left, f"left behind: {left}")
        return None if " ! " in calls else NOT_MADE


def tried(what, numbers, names, trial):
    for number in numbers:
        yield f"{what} {number} ({names[number - 1]})", lambda number=number: trial(number)


def once(programs, chosen):
    names = counted(programs)
    yield from tried("call fails:", spread(range(1, len(names) + 1), chosen.most), names,
                     lambda number: failing(programs, number, "fail"))
    moved = [number for number, name in enumerate(names, 1) if name in ("read", "pread", "write", "pwrite")]
    yield from tried("call does half:", spread(moved, chosen.most), names,
                     lambda number: failing(programs, number, "fail", short=1))
    yield from tried("call is interrupted:", spread(moved, chosen.most), names,
                     lambda number: failing(programs, number, "fail", error=errno.EINTR))


def for_ever(programs, chosen):
    names = counted(programs)
    yield from tried("calls fail from", spread(range(1, len(names) + 1), chosen.most), names,
                     lambda number: failing(programs, number, "always"))


def after_a_kill(place, code):
    expect(code in (ENDED, 0), f"it ended with {code}")
    session.whole(place)
    if session.stored(place) != (session.ONE, session.TWO) and place.state("begin.json"):
        expect((session.ONE, session.TWO) == session.kept(place).get("before"), "the earlier lists were not kept")
    session.next_session(place)


def killed_at(programs, number):
    place, (code, _, _) = session.played(programs, {"at": number, "do": "kill"})
    with place:
        after_a_kill(place, code)
    return None if code == ENDED else NOT_MADE


def kills_at_calls(programs, chosen):
    names = counted(programs)
    writes = [number for number, name in enumerate(names, 1) if name in WRITES]
    yield from tried("killed at call", spread(writes, chosen.most), names, lambda number: killed_at(programs, number))


def killed_after(programs, seconds):
    with Place(programs) as place:
        session.lay(place)
        process = place.play(session.SCRIPT)
        if seconds >= 0:
            wait_for(os.path.join(place.said, "begin.json"), process)
        time.sleep(abs(seconds))
        process.kill()
        after_a_kill(place, finish(process)[0])


def random_kills(programs, chosen):
    """Most of them while the lists change; a few while the program starts."""
    with Place(programs) as place:
        session.lay(place)
        process = place.play(session.SCRIPT)
        wait_for(os.path.join(place.said, "begin.json"), process)
        begun = time.monotonic()
        finish(process)
        lasts = time.monotonic() - begun
    moments = random.Random(chosen.seed)
    for number in range(chosen.kills):
        seconds = -moments.uniform(0.01, 0.3) if number % 8 == 7 else moments.uniform(0, lasts * 1.1)
        yield f"killed after {seconds:.3f} s", lambda seconds=seconds: killed_after(programs, seconds)


def commands(programs, chosen):
    """The program's commands without a window: each call fails, once and for ever, and is where it is killed."""
    for words, trial in ((("recover", "before"), recovery), (("convert", "$/new.aco", "$/out.gpl"), conversion)):
        with Place(programs) as place:
            made = ready(place)
            run_command(place, words, {})
            trial(place, made, 0)
            numbers = range(1, len(session.calls_of(place).splitlines()) + 1)
        for how in ("fail", "always", "kill"):
            for number in spread(numbers, chosen.most and chosen.most * 2):
                yield (f"{words[0]}: {how} at call {number}",
                       lambda words=words, trial=trial, how=how, number=number: command(
                           programs, words, trial, {"at": number, "do": how}))


def ready(place):
    session.lay(place)
    before = ([session.DROPPED], session.TWO)
    swatch_files.write_preferences(place.preferences + ".before", before)
    return before


def run_command(place, words, faults):
    arguments = [word.replace("$", place.work) for word in words]
    if words[0] == "recover":
        arguments[1:1] = ["--data-dir", place.data]
    return finish(place.start(arguments, faults))


def command(programs, words, trial, faults):
    with Place(programs) as place:
        made = ready(place)
        code, _, err = run_command(place, words, faults)
        expect(code in (0, 2) or code == ENDED and faults["do"] == "kill", f"it ended with {code}: {err}")
        expect((code == 2) == bool(err), f"it ended with {code} and said: {err}")
        trial(place, made, code)
        if faults["do"] == "fail" and " ! unlink" not in session.calls_of(place):
            expect(not place.left_behind(), f"left behind: {place.left_behind()}")


def recovery(place, before, code):
    now = session.stored(place)
    copies = list(session.kept(place).values())
    expect(now == ((session.ONE, session.TWO) if code == 2 else before) or code == ENDED,
           f"ended with {code}, and stored are {session.briefly(now)}")
    expect(now in (before, (session.ONE, session.TWO)), f"stored are {session.briefly(now)}")
    expect(before in [now, *copies] and (session.ONE, session.TWO) in [now, *copies], "lists are lost")


def conversion(place, _, code):
    out = swatch_files.read_gpl(os.path.join(place.work, "out.gpl"))
    old, new = (swatch_files.in_bytes(rows) for rows in (session.OLD, session.NEW))
    expect(out == {0: new, 2: old}.get(code, out) and out in (old, new), f"ended with {code}, out.gpl holds {out}")
