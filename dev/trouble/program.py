"""The stand-alone host in folders of its own, and what it is started with."""
import json
import os
import subprocess
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
PREFERENCES = os.path.join("Quorvex", "com_Quorvex_Chromalog_64_3-50.prf")
LONGEST = 120  # seconds that a session may take; a busy machine takes ten times as long as an idle one


class Failed(Exception):
    """Nothing could be tried; the text says why."""


class Wrong(Exception):
    """What was tried went wrong; the text says how."""


def expect(holds, said):
    if not holds:
        raise Wrong(said)


class Programs:
    """The program that is tried, and the library that makes its file calls fail."""

    def __init__(self, program, folder):
        self.program = program or os.path.join(ROOT, "build", "bin", "chromalog")
        if not os.access(self.program, os.X_OK):
            raise Failed(f"there is no {self.program}: ./run builds it")
        self.library = os.path.join(folder, "file_faults.so")
        source = os.path.join(os.path.dirname(os.path.abspath(__file__)), "file_faults.c")
        command = [os.environ.get("CC", "cc"), "-O1", "-Wall", "-shared", "-fPIC", "-o", self.library, source, "-ldl"]
        built = subprocess.run(command, capture_output=True, text=True, check=False)
        if built.returncode != 0:
            raise Failed(f"{' '.join(command)}: {built.stderr}")


class Place:
    """Folders for one session: `work` holds the lists and every file that it reads and writes, `said` what it tells."""

    def __init__(self, programs, work=None):
        self.programs = programs
        self.holder = tempfile.TemporaryDirectory(prefix="chromalog-faults-")
        self.root = self.holder.name
        self.work, self.said = work or self.path("work"), self.path("said")
        self.data = os.path.join(self.work, "data")
        for folder in (self.work, self.data, self.said, *map(self.path, ("run", "config", "home", "tmp"))):
            os.mkdir(folder, 0o700)
        self.preferences = os.path.join(self.data, PREFERENCES)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.holder.cleanup()

    def path(self, name):
        return os.path.join(self.root, name)

    def environment(self, faults=None):
        told = {key: value for key, value in os.environ.items() if not key.startswith(("XDG_", "QT_", "CHROMALOG_"))}
        told.update(QT_QPA_PLATFORM="offscreen", CHROMALOG_STRICT="1", XDG_RUNTIME_DIR=self.path("run"),
                    XDG_CONFIG_HOME=self.path("config"), XDG_CACHE_HOME=self.path("config"), HOME=self.path("home"),
                    TMPDIR=self.path("tmp"), LC_ALL="C.UTF-8")
        if faults is not None:
            told.update(LD_PRELOAD=self.programs.library, FAULTS_BELOW=self.work, FAULTS_TOLD=self.path("said/calls"))
            told.update({"FAULTS_" + key.upper(): str(value) for key, value in faults.items()})
        return told

    def script(self, text, name="script"):
        """Writes a script; $ stands for the work folder, @ for the folder of what is told."""
        file = self.path("said/" + name)
        with open(file, "w", encoding="utf-8") as out:
            out.write(text.replace("$", self.work).replace("@", self.said))
        return file

    def start(self, arguments, faults=None, **more):
        command = [self.programs.program, *arguments]
        return subprocess.Popen(command, env=self.environment(faults), cwd=self.path("tmp"), stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, text=True, errors="replace", start_new_session=True, **more)

    def play(self, text, faults=None, options=(), name="script"):
        return self.start(["--data-dir", self.data, *options, "--drive", self.script(text, name)], faults)

    def state(self, name):
        """What a script has told, or nothing where it did not come so far."""
        try:
            with open(os.path.join(self.said, name), encoding="utf-8") as text:
                return json.load(text)
        except (FileNotFoundError, json.JSONDecodeError):
            return None

    def left_behind(self):
        """Temporary files anywhere below."""
        below = [os.path.join(folder, name) for folder, _, names in os.walk(self.work) for name in names]
        return [name for name in below if name.endswith(".tmp")] + os.listdir(self.path("tmp"))


def finish(process, longest=LONGEST):
    """How it ended, and what it said; a process that hangs is ended, and wrong."""
    try:
        out, err = process.communicate(timeout=longest)
    except subprocess.TimeoutExpired:
        process.kill()
        process.communicate()
        raise Wrong(f"it still ran after {longest} s") from None
    try:
        os.killpg(process.pid, 0)
    except ProcessLookupError:
        return process.returncode, out, err
    raise Wrong("it left a process behind")


def memory_of(process):
    """Resident bytes, or nothing where the process has ended."""
    try:
        with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
            lines = [line.split() for line in status if line.startswith("VmRSS:")]
    except FileNotFoundError:
        return None
    return int(lines[0][1]) * 1024 if lines else None


def wait_for(file, process, longest=LONGEST):
    """Until a file is there or the process has ended."""
    end = time.monotonic() + longest
    while not os.path.exists(file) and process.poll() is None and time.monotonic() < end:
        time.sleep(0.002)
