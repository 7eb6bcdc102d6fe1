"""One fault after the other: put into the copy, built, tested, taken out."""
import json
import os
import re
import signal
import subprocess
import tempfile
import time

from mutants.copy import BrokenBuild

NOTICED, SURVIVED, BROKEN = "noticed", "survived", "broken"
PATIENCE, LEAST_SECONDS = 8, 20  # a test program that takes this many times its usual time hangs
WHOLE_SECONDS = 1800

# The test programs of each room, the fastest first; those of rooms above where a room has none of its own.
PROGRAMS = {
    "plugin": ["test_pipl", "test_plugin_checks", "test_program_with_plugin"],
    "plugin_check": ["test_plugin_check"],
    "gimp": ["test_gimp", "test_gimp_plug_in"],
    "standalone": ["test_standalone", "test_program", "test_palette_commands", "test_small_host", "test_plugin_checks"],
    "drive": ["test_drive_script", "test_drive_parts", "test_driven_picks"],
    "qt": ["test_qt", "test_keyboard", "test_list_pixels", "test_print_pdf", "test_portal"],
    "dialog": ["test_dialog", "test_qt"],
    "comparison": ["test_comparison"],
    "exchange": ["test_dialog"],
    "judge": ["test_judge", "test_dialog"],
    "pictures": ["test_pictures", "test_qt"],
    "print": ["test_print", "test_print_pdf"],
    "views": ["test_views", "test_second_colour", "test_wheel_picture", "test_qt"],
    "swatches": ["test_list_work", "test_swatch_list_view", "test_dialog"],
    "history": ["test_history", "test_dialog"],
    "colour": ["test_colour", "test_dialog"],
    "formats": ["test_formats"],
    "palettes": ["test_palettes"],
    "prefs": ["test_prefs"],
    "desktop": ["test_desktop", "test_list_work", "test_dialog", "test_qt"],
    "record": ["test_record"],
    "files": ["test_files"],
    "spaces": ["test_spaces", "test_colour_notations", "test_lab_grid", "test_picture_colours"],
    "base": ["test_base", "test_print", "test_dialog"],
    "abi": ["test_abi", "test_record", "test_standalone", "test_plugin_checks"],
}


# Whole picks by scripts, and all that they leave: cheaper than all tests, where a room's own saw nothing.
WHOLE_PICKS = ["test_driven_picks"]


def private_environment(folder):
    """As ./test has it: no display, nobody's files, misuse is fatal."""
    kept = {name: value for name, value in os.environ.items()
            if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME")}
    for name, part in (("XDG_RUNTIME_DIR", "runtime"), ("XDG_DATA_HOME", "data"), ("XDG_CONFIG_HOME", "config"),
                       ("XDG_CACHE_HOME", "cache")):
        kept[name] = os.path.join(folder, part)
        os.mkdir(kept[name], mode=0o700)
    kept["TMPDIR"] = os.path.join(folder, "tmp")
    os.mkdir(kept["TMPDIR"])
    os.chmod(folder, 0o755)  # some tests write as somebody else
    os.chmod(kept["TMPDIR"], 0o1777)
    return {**kept, "QT_QPA_PLATFORM": "offscreen", "CHROMALOG_STRICT": "1", "LC_ALL": "C.UTF-8"}


def run(command, environment, seconds, folder):
    """What it left and what it said; None where it ran out of time. What it started ends with it."""
    with subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          env=environment, cwd=folder, start_new_session=True) as started:
        try:
            said, _ = started.communicate(timeout=seconds)
            return started.returncode, said.decode(errors="replace")
        except subprocess.TimeoutExpired:
            os.killpg(started.pid, signal.SIGKILL)
            return None, started.communicate()[0].decode(errors="replace")


def failed_tests(said):
    return list(dict.fromkeys(re.findall(r"^\[  FAILED  \] ([^\s,]+)(?:,.*)? \(\d+ ms\)$", said, re.M)))


def blamed(said, program):
    """The test that noticed."""
    failed = failed_tests(said)
    if failed:
        return failed[0]
    begun = re.findall(r"^\[ RUN      \] (\S+)", said, re.M)
    return f"{begun[-1] if begun else program} (it crashed)"


class Trials:
    def __init__(self, copy, jobs, whole):
        self.copy, self.jobs, self.whole = copy, jobs, whole
        self.usual = {}  # by program: seconds, and the tests that fail without any fault
        self.hints = {}  # by fault: the test that noticed it the last time
        self.before = None  # the text of the file that a fault is in now

    def _run(self, command, seconds):
        with tempfile.TemporaryDirectory(prefix="mutate-") as private:
            return run(command, private_environment(private), seconds, os.path.dirname(command[0]) or None)

    def measure(self, program):
        """How long it takes, and what fails, without any fault."""
        if program in self.usual:
            return
        self.copy.make([program], self.jobs)
        began = time.monotonic()
        code, said = self._run([self.copy.program(program), "--gtest_color=no"], WHOLE_SECONDS)
        failing = failed_tests(said)
        if code is None or (code != 0 and not failing):
            raise BrokenBuild(f"{program} fails without any fault:\n{said[-2000:]}")
        if failing:
            print(f"not counted, they fail without any fault: {program}: {' '.join(failing)}", flush=True)
        self.usual[program] = (time.monotonic() - began, failing)

    def _noticed_by(self, program, only=None):
        seconds, failing = self.usual[program]
        chosen = only or "*"
        command = [self.copy.program(program), "--gtest_color=no", "--gtest_fail_fast",
                   f"--gtest_filter={chosen}-{':'.join(failing)}"]
        limit = max(LEAST_SECONDS, PATIENCE * seconds)
        code, said = self._run(command, limit)
        if code is None:
            begun = re.findall(r"^\[ RUN      \] (\S+)", said, re.M)
            return f"{begun[-1] if begun else program} (it hung)"
        return blamed(said, program) if code else None

    def _by_hint(self, fault):
        program, test = self.hints[fault.key()]
        self._measure_without(program, fault)
        self.copy.make([program], self.jobs)
        return program, self._noticed_by(program, test)

    def _by_room(self, fault):
        programs = PROGRAMS[fault.room] + [name for name in WHOLE_PICKS if name not in PROGRAMS[fault.room]]
        if fault.first:
            programs = [fault.first] + [program for program in programs if program != fault.first]
        for program in programs:
            self._measure_without(program, fault)
            self.copy.make([program], self.jobs)
            test = self._noticed_by(program)
            if test:
                return program, test
        return None, None

    def _measure_without(self, program, fault):
        """The fault is out of the copy for that long."""
        if program in self.usual:
            return
        self.copy.write(fault.file, self.before)
        self.measure(program)
        self.copy.put(fault)

    def _by_all(self):
        self.copy.make([], self.jobs)
        code, said = self._run(["ctest", "--test-dir", self.copy.build, f"-j{self.jobs}", "--stop-on-failure"],
                               WHOLE_SECONDS)
        if code == 0:
            return None, None
        failed = re.findall(r"\d+ - (\S+) \((?:Failed|Timeout|SEGFAULT|ILLEGAL|Subprocess aborted|SIGTRAP)\)", said)
        return "ctest", failed[0] if failed else "nothing that it names"

    def _try(self, fault):
        if self.hints.get(fault.key()):
            program, test = self._by_hint(fault)
            if test:
                return program, test
        program, test = self._by_room(fault)
        if not test and self.whole:
            program, test = self._by_all()
        return program, test

    def outcome(self, fault):
        began = time.monotonic()
        self.before = self.copy.put(fault)
        found = {"key": fault.key(), "room": fault.room, "title": fault.title, "kind": fault.kind, "none": fault.none}
        try:
            program, test = self._try(fault)
            found.update(outcome=NOTICED if test else SURVIVED, program=program, by=test)
            if not test:
                found["ran"] = "all tests" if self.whole else "the room's tests"
        except BrokenBuild as why:
            asserted = re.search(r"static assertion failed:?.*", str(why))
            found.update(outcome=NOTICED if asserted else BROKEN, program="the compiler",
                         by=asserted.group(0)[:120] if asserted else str(why)[-1500:])
        finally:
            self.copy.write(fault.file, self.before)
        found["seconds"] = round(time.monotonic() - began, 1)
        return found


def stored(path):
    """The last outcome of each fault, by its key."""
    found = {}
    if os.path.isfile(path):
        with open(path, encoding="utf-8") as lines:
            for line in lines:
                one = json.loads(line)
                found[one["key"]] = one
    return found


def hints(outcomes):
    """The program and the test that noticed each fault: they are asked first the next time."""
    return {key: (one["program"], one["by"].split(" ")[0]) for key, one in outcomes.items()
            if one["outcome"] == NOTICED and one["program"].startswith("test_")}
