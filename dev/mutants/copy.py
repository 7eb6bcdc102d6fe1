"""A copy of the tree with a build of its own, which faults are put into."""
import glob
import os
import shutil
import subprocess

BUILD_SECONDS = 3600


class BrokenBuild(Exception):
    """With the end of what the build said."""


def tracked(root):
    listed = subprocess.run(["git", "ls-files", "-z", "-co", "--exclude-standard"], cwd=root, check=True,
                            stdout=subprocess.PIPE)
    return [name for name in listed.stdout.decode().split("\0") if name and os.path.isfile(os.path.join(root, name))]


class Copy:
    def __init__(self, root, folder):
        self.root, self.folder, self.build = root, folder, os.path.join(folder, "build")

    def path(self, file):
        return os.path.join(self.folder, file)

    def follow(self):
        """Makes the copy the same as the tree; what is the same already keeps its time, so little is built."""
        wanted = tracked(self.root)
        for file in wanted:
            self._take(file)
        for folder, folders, files in os.walk(self.folder):
            if folder == self.folder:
                folders[:] = [name for name in folders if name != "build"]
            for name in files:
                inside = os.path.relpath(os.path.join(folder, name), self.folder)
                if inside not in self._known(wanted):
                    os.remove(self.path(inside))

    def _known(self, wanted):
        if getattr(self, "_wanted", None) is not wanted:
            self._wanted, self._names = wanted, set(wanted)
        return self._names

    def _take(self, file):
        source, target = os.path.join(self.root, file), self.path(file)
        with open(source, "rb") as one:
            content = one.read()
        if os.path.isfile(target):
            with open(target, "rb") as other:
                if other.read() == content:
                    return
        os.makedirs(os.path.dirname(target), exist_ok=True)
        with open(target, "wb") as other:
            other.write(content)
        shutil.copymode(source, target)

    def configure(self):
        command = ["cmake", "-S", self.folder, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                   "-DCHROMALOG_TESTS=ON"]
        if shutil.which("ccache"):  # most of what is built was built before; precompiled headers defeat it
            command += ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache", "-DCMAKE_C_COMPILER_LAUNCHER=ccache",
                        "-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON"]
        self._run(command)

    def make(self, targets, jobs):
        self._run(["cmake", "--build", self.build, "-j", str(jobs), *(["--target", *targets] if targets else [])])

    def _run(self, command):
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                              timeout=BUILD_SECONDS, check=False)
        if done.returncode:
            raise BrokenBuild(done.stdout)

    def program(self, name):
        """Where the build has put a test program."""
        found = glob.glob(os.path.join(self.build, "tests", "*", name))
        if not found:
            raise BrokenBuild(f"there is no test program {name}")
        return found[0]

    def put(self, fault):
        """Returns the text that was there."""
        with open(self.path(fault.file), encoding="utf-8") as file:
            before = file.read()
        self.write(fault.file, fault.applied(before))
        return before

    def write(self, file, text):
        with open(self.path(file), "w", encoding="utf-8") as target:
            target.write(text)
