"""Builds the benchmarks and runs them: samples of one round."""
import contextlib
import json
import os
import re
import signal
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
BUILD = os.path.join(ROOT, "build-bench")
OWN = ["pointer_bench", "write_lists", "label_window", "colour_dialog", "chromalog", "Chromalog"]
UNITS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
NOT_INSTALLED = "not installed"  # what a benchmark says of a peer
WRITER = 'while :; do dd if=/dev/zero of="$0" bs=1M count=8 conv=fsync status=none; done'


class Failed(Exception):
    """Something could not be built or run; the text says what."""


def program(name):
    folder = "bin" if name in ("chromalog", "Chromalog") else "bench"
    return os.path.join(BUILD, folder, name)


def built_for(keys):
    """The targets that the keys need."""
    benches = {key.split()[0] for key in keys if key.startswith("bench_")}
    return sorted(benches) + (OWN if any(not key.startswith("bench_") for key in keys) else [])


def build(targets):
    os.makedirs(BUILD, exist_ok=True)
    log = os.path.join(BUILD, "bench.log")
    configure = ["cmake", "-S", ROOT, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release", "-DCHROMALOG_BENCH=ON",
                 "-DCHROMALOG_TESTS=ON"]
    print("bench: building (a few minutes the first time)", file=sys.stderr)
    with open(log, "w", encoding="utf-8") as out:
        for command in (configure, ["cmake", "--build", BUILD, "-j", str(os.cpu_count()), "--target", *targets]):
            if subprocess.run(command, stdout=out, stderr=out, check=False).returncode != 0:
                raise Failed(f"building failed: {log}")


@contextlib.contextmanager
def writer(folder):
    """Another process that writes and syncs, for as long as this stands."""
    process = subprocess.Popen(["bash", "-c", WRITER, os.path.join(folder, "written")], start_new_session=True)
    try:
        yield
    finally:
        os.killpg(process.pid, signal.SIGTERM)
        process.wait()


def samples_of(output):
    """The time of every benchmark in what a program printed: the processor's, the clock's where it says so; None
    of what is not installed."""
    found = {}
    for run in json.loads(output)["benchmarks"]:
        if run.get("error_message") == NOT_INSTALLED:
            found[run["name"].removesuffix("/real_time")] = None
            continue
        if run.get("error_occurred"):
            raise Failed(f"{run['name']}: {run['error_message']}")
        name = run["name"].removesuffix("/real_time")
        kind = "cpu_time" if name == run["name"] else "real_time"
        found[name] = run[kind] * UNITS[run["time_unit"]]
    return found


class Programs:
    """Benchmarks by key: "PROGRAM BENCHMARK", "+writer" behind it for one that runs beside a writer."""

    def __init__(self, keys, folder, seconds):
        self.folder, self.seconds, self.wanted = folder, seconds, {}
        for key in sorted(key for key in keys if key.startswith("bench_")):
            words = key.split()
            self.wanted.setdefault((words[0], "+writer" in words), []).append(words[1])

    def environment(self):
        runtime = os.path.join(self.folder, "runtime")
        os.makedirs(runtime, mode=0o700, exist_ok=True)
        return {**os.environ, "QT_QPA_PLATFORM": "offscreen", "XDG_RUNTIME_DIR": runtime, "TMPDIR": self.folder,
                "XDG_CONFIG_HOME": os.path.join(self.folder, "config")}

    def run(self, name, benchmarks):
        wanted = "|".join(re.escape(benchmark) for benchmark in benchmarks)
        command = [program(name), f"--benchmark_filter=^({wanted})(/real_time)?$", "--benchmark_format=json",
                   f"--benchmark_min_time={self.seconds}"]
        done = subprocess.run(command, env=self.environment(), cwd=self.folder, capture_output=True, text=True,
                              check=False)
        if done.returncode != 0:
            raise Failed(f"{name} ended with {done.returncode}: {done.stderr.strip()[-300:]}")
        found = samples_of(done.stdout)
        missing = [benchmark for benchmark in benchmarks if benchmark not in found]
        if missing:
            raise Failed(f"{name} has no {', '.join(missing)}")
        return found

    def round(self, number):
        """All of them once; every other round backwards."""
        samples = {}
        for name, beside_writer in sorted(self.wanted, reverse=number % 2 == 1):
            with writer(self.folder) if beside_writer else contextlib.nullcontext():
                found = self.run(name, self.wanted[name, beside_writer])
            for benchmark, value in found.items():
                if value is None:
                    continue
                samples[f"{name} {benchmark}" + (" +writer" if beside_writer else "")] = value
        return samples
