"""Programs that are started on a screen and watched from outside, and a real pointer: samples of one round."""
import json
import os
import shutil
import signal
import statistics
import subprocess
import time

from measure import screen
from measure.programs import Failed, program

REST = 0.3       # seconds until a started program has come to rest
STARTS = 3       # of each program in a round: one alone is at the mercy of whatever else the machine does
MOVEMENTS = 250  # of the pointer, one every 4 ms
ARGUMENTS = {"strip": ["512"], "tone": ["0", "1600", "1200"]}


class Starts:
    """Keys: "start NAME [LISTS]", "memory NAME [LISTS]", "pick first", "pick further"; NAME is a program of this
    project or of the system, LISTS "empty", "full" or a number of swatches."""

    def __init__(self, keys, folder, shown):
        self.folder, self.screen = folder, shown
        self.keys = {key for key in keys if key.split()[0] in ("start", "memory", "pick")}
        self.programs = sorted({key.partition(" ")[2] for key in self.keys if not key.startswith("pick")})
        self.missing = {words for words in self.programs if not self.command(words)}
        for words in self.programs:
            self.prepare(words)
            if words not in self.missing:
                self.start(words)  # once, so that files are in memory

    def command(self, words):
        name = words.split()[0]
        path = program(name)
        if not os.path.exists(path):
            path = shutil.which(name)
        if name == "chromalog":
            return [path, "--data-dir", os.path.join(self.folder, "data")]
        return [path] if path else None

    def prepare(self, words):
        """The lists as they are before a start."""
        lists = words.partition(" ")[2]
        if not lists or lists == "empty":
            return
        count = "4999" if lists == "full" else lists
        kept = os.path.join(self.folder, "lists " + lists)
        if not os.path.exists(kept):
            os.makedirs(kept)
            if subprocess.run([program("write_lists"), kept, count], check=False).returncode != 0:
                raise Failed("write_lists failed")

    def lay_lists(self, words):
        data = os.path.join(self.folder, "data")
        shutil.rmtree(data, ignore_errors=True)
        kept = os.path.join(self.folder, "lists " + words.partition(" ")[2])
        if os.path.exists(kept):
            shutil.copytree(kept, data)
        else:
            os.makedirs(data)

    def environment(self):
        """The same for all: a home of its own, no session bus that one asks and another does not."""
        home = os.path.join(self.folder, "home")
        os.makedirs(os.path.join(home, "runtime"), mode=0o700, exist_ok=True)
        kept = {name: os.environ[name] for name in ("PATH", "LANG") if name in os.environ}
        return {**kept, "HOME": home, "XDG_RUNTIME_DIR": os.path.join(home, "runtime"), "DISPLAY": self.screen.name,
                "DBUS_SESSION_BUS_ADDRESS": "unix:path=" + os.path.join(home, "no-bus"), "NO_AT_BRIDGE": "1"}

    def launch(self, command):
        nothing = os.open(os.devnull, os.O_RDWR)
        try:
            actions = [(os.POSIX_SPAWN_DUP2, nothing, descriptor) for descriptor in (0, 1, 2)]
            return os.posix_spawn(command[0], command, self.environment(), file_actions=actions, setpgroup=0)
        finally:
            os.close(nothing)

    def end(self, process):
        os.killpg(process, signal.SIGKILL)
        os.waitpid(process, 0)
        time.sleep(0.05)
        self.screen.forget()

    def start(self, words, memory=False):
        """(nanoseconds to the mapped window, resident kB or None)"""
        if words.startswith("chromalog"):
            self.lay_lists(words)
        self.screen.forget()
        before = time.perf_counter()
        process = self.launch(self.command(words))
        try:
            mapped = self.screen.wait_for(screen.MAP_NOTIFY)
            if not mapped:
                raise Failed(f"{words} shows no window")
            resident = None
            if memory:
                time.sleep(REST)
                resident = resident_kb(process)
        finally:
            self.end(process)
        return (mapped[0] - before) * 1e9, resident

    def picks(self):
        """A run of three picks, each closed as by its window's frame: nanoseconds from exec to the first window, and
        from the one's end to the next one on the screen (the mean of two)."""
        self.lay_lists("chromalog empty")
        self.screen.forget()
        before = time.perf_counter()
        process = self.launch(self.command("chromalog") + ["--picks", "3"])
        further = []
        try:
            shown = self.screen.wait_for(screen.MAP_NOTIFY)
            first = shown and shown[0] - before
            for _ in range(2):
                if not shown:
                    raise Failed("a further pick shows no window")
                time.sleep(REST)
                window = shown[1]
                self.screen.ask_to_close(window)
                gone = self.screen.wait_for(screen.UNMAP_NOTIFY, window=window)
                shown = gone and self.screen.wait_for(screen.MAP_NOTIFY)
                if shown:
                    further.append(shown[0] - gone[0])
        finally:
            self.end(process)
        return {"pick first": first * 1e9, "pick further": sum(further) / len(further) * 1e9}

    def round(self, number):
        """Every program and every run of picks three times, in turns: the middle one of each."""
        taken = {}
        for turn in range(STARTS):
            for words in reversed(self.programs) if (number + turn) % 2 else self.programs:
                if words in self.missing:
                    continue
                took, resident = self.start(words, turn == 0 and f"memory {words}" in self.keys)
                taken.setdefault(f"start {words}", []).append(took)
                if resident:
                    taken[f"memory {words}"] = [resident]
            if any(key.startswith("pick") for key in self.keys):
                for key, took in self.picks().items():
                    taken.setdefault(key, []).append(took)
        return {key: statistics.median(values) for key, values in taken.items()}


def resident_kb(process):
    with open(f"/proc/{process}/status", encoding="ascii") as status:
        return next(float(line.split()[1]) for line in status if line.startswith("VmRSS:"))


class Pointer:
    """Keys: "pointer strip WHAT" and "pointer tone WHAT"; WHAT is ns (the median of the movements), frames (an
    event) or unshown (the part of the movements that came to no frame of their own)."""

    def __init__(self, keys, folder, shown):
        self.folder, self.screen = folder, shown
        self.which = sorted({key.split()[1] for key in keys if key.startswith("pointer")})

    def sweep(self, which):
        environment = {**os.environ, "DISPLAY": self.screen.name, "QT_QPA_PLATFORM": "xcb", "TMPDIR": self.folder,
                       "XDG_CONFIG_HOME": os.path.join(self.folder, "config"),
                       "XDG_RUNTIME_DIR": os.path.join(self.folder, "runtime")}
        os.makedirs(environment["XDG_RUNTIME_DIR"], mode=0o700, exist_ok=True)
        with subprocess.Popen([program("pointer_bench"), *ARGUMENTS[which]], env=environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, text=True) as process:
            words = process.stdout.readline().split()
            if not words:
                raise Failed("pointer_bench shows no strip")
            x, top, height = map(int, words[1:])
            self.drag(x, top, height)
            try:
                told, _ = process.communicate(timeout=20)
            except subprocess.TimeoutExpired as late:
                process.kill()
                raise Failed("pointer_bench saw no pointer") from late
        return json.loads(told)

    def drag(self, x, top, height):
        self.screen.point(x, top + 2)
        self.screen.button(True)
        time.sleep(0.2)
        due = time.perf_counter()
        for i in range(MOVEMENTS):
            due += 0.004
            time.sleep(max(0.0, due - time.perf_counter()))
            self.screen.point(x, top + 2 + i * 7 % (height - 4))
        time.sleep(0.2)
        self.screen.button(False)

    def round(self, _):
        samples = {}
        for which in self.which:
            told = self.sweep(which)
            samples[f"pointer {which} ns"] = sorted(told["ns"])[len(told["ns"]) // 2]
            samples[f"pointer {which} frames"] = told["frames"] / told["movements"]
            samples[f"pointer {which} unshown"] = 1 - len(told["ns"]) / told["movements"]
        return samples
