"""Two programs on one preferences file, full disks, busy disks."""
import contextlib
import fcntl
import os
import random
import resource
import shutil
import subprocess
import tempfile

from measure.programs import writer

from . import session, swatch_files
from .program import Place, expect, finish, wait_for
from .soak import told_lists

FIRST = [(f"First {i}", (257 * i, 0, 0)) for i in range(9)]
SECOND = [(f"Second {i}", (0, 257 * i, 0)) for i in range(9)]


def rival(name, pauses):
    return f"""
state @/{name}-begin.json
choose $/{name}.aco
press loadSwatch1:
wait {pauses[0]}
menu swatch1 deleteSwatch1:
wait {pauses[1]}
drop swatch2 10 10 '#123456' '{name}'
wait {pauses[2]}
state @/{name}-end.json
ok
"""


def together(programs, pauses):
    """Two picks at once: what each of them ended with is stored or kept."""
    with Place(programs) as place:
        session.lay(place)
        processes = []
        for name, swatches, waits in (("first", FIRST, pauses[:3]), ("second", SECOND, pauses[3:])):
            swatch_files.write_aco(os.path.join(place.work, name + ".aco"), swatches)
            processes.append(place.play(rival(name, waits), name=name))
        endings = [finish(process) for process in processes]
        for code, _, err in endings:
            expect(code in (0, 1) and not err, f"one ended with {code}: {err[-300:]}")
        now, copies = session.stored(place), session.kept(place)
        ends = [tuple(told_lists(place.state(name + "-end.json"))) for name in ("first", "second")]
        expect(now in ends, f"stored are lists that neither ended with: {session.briefly(now)}")
        for end, name in zip(ends, ("first", "second")):
            expect(end in [now, *copies.values()], f"the lists of the {name} program are lost")
        began = [place.state(name + "-begin.json")["status"] for name in ("first", "second")]
        expect(any("Another pick is open" in said for said in began), "neither was told of the other")
        expect((session.ONE, session.TWO) in [now, *copies.values()], "the lists from before are lost")
        expect(not place.left_behind(), f"left behind: {place.left_behind()}")


def two_programs(programs, chosen):
    moments = random.Random(chosen.seed)
    for number in range(chosen.pairs):
        pauses = [moments.randint(0, 150) for _ in range(6)]
        yield f"pair {number + 1}, pauses {pauses}", lambda pauses=pauses: together(programs, pauses)
    yield "recovery beside a pick", lambda: recovery_beside(programs)


def recovery_beside(programs):
    """It refuses, and the pick goes on."""
    with Place(programs) as place:
        session.lay(place)
        swatch_files.write_preferences(place.preferences + ".before", ([session.DROPPED], []))
        process = place.play(session.SCRIPT.replace("wait 50", "wait 1500"))
        wait_for(os.path.join(place.said, "begin.json"), process)
        code, _, err = finish(place.start(["recover", "--data-dir", place.data, "before"]))
        expect(code == 2 and "a pick is open" in err, f"it ended with {code}: {err}")
        expect(finish(process)[0] == 0 and session.whole(place, [([session.DROPPED], [])]) == session.ENDS,
               "the pick stored other lists")


def room_of(programs, room):
    """So many bytes, then the disk is full."""
    place, (code, _, err) = session.played(programs, {"room": room})
    with place:
        session.after_failures(place, code, err)
        expect(not place.left_behind(), f"left behind: {place.left_behind()}")


@contextlib.contextmanager
def small_disk(size):
    """A folder with a file system of its own; nothing where only root may and we are not."""
    folder = tempfile.mkdtemp(prefix="chromalog-disk-")
    mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size}", "none", folder], capture_output=True,
                             check=False).returncode == 0
    try:
        yield folder if mounted else None
    finally:
        if mounted:
            subprocess.run(["umount", "-l", folder], check=True)
        os.rmdir(folder)


def full_tmpfs(programs, spare):
    """A real disk with `spare` bytes left."""
    with small_disk("4m") as disk:
        if disk is None:
            return "only root may make a small disk"
        with Place(programs, work=os.path.join(disk, "work")) as place:
            session.lay(place)
            filling = os.path.join(disk, "filling")
            fill(filling, disk, spare)
            code, _, err = finish(place.play(session.SCRIPT))
            session.after_failures(place, code, err, traced=False)
            os.remove(filling)
            session.next_session(place)
    return None


def fill(file, disk, spare):
    with open(file, "wb") as out:
        left = shutil.disk_usage(disk).free - spare
        while left > 0:
            left -= out.write(b"\1" * min(left, 65536))


def file_limit(programs, size):
    """`ulimit -f`: the signal that comes with it ends nobody."""
    with Place(programs) as place:
        session.lay(place)
        limits = (size, resource.getrlimit(resource.RLIMIT_FSIZE)[1])
        process = place.start(["--data-dir", place.data, "--drive", place.script(session.SCRIPT)],
                              preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, limits))
        code, _, err = finish(process)
        expect(code in (0, 1, 2), f"it ended with {code}: {err[-300:]}")
        session.whole(place)
        session.next_session(place)


def full_disk(programs, chosen):
    for room in chosen.rooms:
        yield f"room for {room} bytes", lambda room=room: room_of(programs, room)
    for spare in chosen.spares:
        yield f"a disk with {spare} bytes left", lambda spare=spare: full_tmpfs(programs, spare)
    for size in chosen.limits:
        yield f"files of {size} bytes at most", lambda size=size: file_limit(programs, size)


def beside_writer(programs):
    with Place(programs) as place:
        session.lay(place)
        with writer(place.path("home")):
            code, _, err = finish(place.play(session.SCRIPT))
        expect(code == 0 and not err, f"it ended with {code}: {err[-300:]}")
        expect(session.whole(place) == session.ENDS, "other lists are stored")
        expect(not place.left_behind(), f"left behind: {place.left_behind()}")


def locked_out(programs):
    """Somebody holds the lock: the dialog says that the lists were not stored, and stores them when it can."""
    with Place(programs) as place:
        session.lay(place)
        with open(place.preferences + ".lock", "wb") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            process = place.play(session.SCRIPT.replace("wait 50", "wait 4000"))
            wait_for(os.path.join(place.said, "end.json"), process)
            fcntl.flock(lock, fcntl.LOCK_UN)
            code, _, err = finish(process)
        said = (place.state("end.json") or {}).get("status", "nothing")
        expect("another program is writing" in said, f"it said: {said}")
        expect(code == 0 and not err, f"it ended with {code}: {err[-300:]}")
        expect(session.whole(place) == session.ENDS, "the lists were not stored when they could be")


def busy_disk(programs, chosen):
    for number in range(chosen.busy):
        yield f"beside a process that writes and waits for the disk, {number + 1}", lambda: beside_writer(programs)
    if chosen.locked:
        yield "the preferences are locked", lambda: locked_out(programs)


