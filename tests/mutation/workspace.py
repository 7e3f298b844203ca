"""A copy of the project's sources, built once, and the workers' own places.
In place of the copy and its build, a build of the working tree can serve.

The build is only read after it has been made. A worker compiles the
changed file into its own folder and links what the tests need out of its
objects and the copy's. The working tree is never touched.
"""

import json
import os
import pathlib
import shlex
import shutil
import subprocess

ROOMS = ("diagnostics", "frame", "loader", "model", "output", "templates")
# Test programs that hold the library's objects.
OBJECT_PROGRAMS = tuple(f"{room}_tests" for room in ROOMS)
# Test programs that load the library from a file.
PLUGIN_PROGRAMS = ("raw_slot_tests", "plugin_tests", "fault_tests")
_LIBRARY = "lib/libDriverFeature.so"
_ARCHIVE = "liblibrary_under_test.a"
# Comes with the compiler's own packages and takes a quarter of the time.
_LINKER = "-fuse-ld=gold"
_KEPT_OUT = ("build", ".git")


def library_sources(root):
    """The library's files, from the project's root."""
    return sorted(str(path.relative_to(root)) for room in ROOMS
                  for path in (root / "library" / room).iterdir()
                  if path.suffix in (".cc", ".h") and not path.stem.endswith("_test"))


class BuildError(Exception):
    """Something that must build does not; the text says what."""


def _require(command, folder):
    done = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, check=False)
    if done.returncode != 0:
        raise BuildError(f"{shlex.join(map(str, command))}\n{done.stdout}")
    return done.stdout


class Workspace:
    """The copy of the sources and its build or, with `build`, that build of
    the working tree; its tests that load the library from a file are left out,
    because they load the one that the build has made."""

    def __init__(self, root, folder, build=None):
        self.folder = folder
        self.sources = root if build else folder / "sources"
        self.base = root / build if build else folder / "base"
        self.programs = OBJECT_PROGRAMS if build else OBJECT_PROGRAMS + PLUGIN_PROGRAMS
        self._root = root
        self._is_own = build is None
        self._links = {}
        self._compiles = {}
        self._objects = {}
        self._users = {}

    def prepare(self):
        """Builds the test programs, in the copy after making it."""
        self.folder.mkdir(parents=True, exist_ok=True)
        if self._is_own:
            self._copy_and_configure()
        _require(["ninja", "-j2", *self.programs], self.base)
        self._read_commands()

    def _copy_and_configure(self):
        """Files keep their times, so that a second run builds only what has
        changed."""
        if self.sources.exists():
            shutil.rmtree(self.sources)
        skipped = {str(self._root / name) for name in _KEPT_OUT}
        shutil.copytree(
            self._root, self.sources,
            ignore=lambda at, names: [name for name in names if f"{at}/{name}" in skipped])
        # The tests load the library that lies in the folder they run in.
        flags = f'-O0 -w -UDRIVER_FEATURE_LIBRARY -DDRIVER_FEATURE_LIBRARY=\\"{_LIBRARY}\\"'
        _require(["cmake", "-S", self.sources, "-B", self.base, "-G", "Ninja",
                  "--log-level=WARNING", "-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_CXX_FLAGS={flags}",
                  "-DDRIVER_FEATURE_BUILD=mutations"], self.folder)

    def _read_commands(self):
        for entry in json.loads((self.base / "compile_commands.json").read_text()):
            command = shlex.split(entry["command"])
            place = command[command.index("-o") + 1]
            if place.startswith("library/"):
                unit = str(pathlib.Path(entry["file"]).relative_to(self.sources))
                self._compiles[unit] = command
                self._objects[unit] = place
        for target in OBJECT_PROGRAMS + ("DriverFeature",):
            commands = _require(["ninja", "-t", "commands", target], self.base)
            link = commands.strip().splitlines()[-1].removeprefix(": && ").split(" && ")[0]
            self._links[target] = shlex.split(link)
        self._read_includes()

    def _read_includes(self):
        """Finds for each header the sources that include it."""
        objects = {place: unit for unit, place in self._objects.items()}
        user = None
        for line in _require(["ninja", "-t", "deps"], self.base).splitlines():
            if not line.startswith(" "):
                user = objects.get(line.split(":")[0])
            elif user is not None and line.strip():
                # Relative to the build where ccache has a say in it.
                header = pathlib.Path(os.path.normpath(self.base / line.strip()))
                if header.is_relative_to(self.sources):
                    self._users.setdefault(str(header.relative_to(self.sources)), []).append(user)

    def units_of(self, path):
        """The sources to compile again when `path` has changed."""
        units = [path] if path in self._compiles else sorted(self._users.get(path, []))
        if not units:
            raise BuildError(f"{path} is part of no object")
        return units

    def compile_command(self, unit, place):
        """Compiles the worker's copy of a source, with its copies of headers."""
        command = [word.replace(f"{self.sources}/{unit}", f"sources/{unit}")
                   for word in self._compiles[unit]]
        command[command.index("-o") + 1] = place
        first = next(at for at, word in enumerate(command) if word.startswith("-I"))
        return command[:first] + ["-Isources/library"] + command[first:] + ["-O0", "-g0", "-w"]

    def _absolute(self, word):
        return str(self.base / word) if (self.base / word).exists() else word

    def link_command(self, target, changed, output):
        """Links a test program or the library; `changed` are the worker's
        objects by source. The library's objects go first, so that its inline
        functions are taken, and not the copies that the tests were built with."""
        objects = [changed.get(unit, str(self.base / self._objects[unit]))
                   for unit in sorted(self._compiles)]
        command = []
        for word in self._links[target]:
            if word in self._objects.values():
                continue
            if word.endswith(_ARCHIVE):
                word = "tests/CMakeFiles/library_under_test.dir/support/recording_host.cc.o"
            command.append(self._absolute(word))
        command[command.index("-o") + 1] = output
        first = next(at for at, word in enumerate(command) if word.endswith((".o", ".so")))
        return command[:first] + [_LINKER] + objects + command[first:]


class Worker:
    """One worker's folder: its copy of the library's sources, and what it
    builds."""

    def __init__(self, workspace, number):
        self._workspace = workspace
        self.folder = workspace.folder / f"worker{number}"
        self._changed = {}
        self._linked = set()
        if self.folder.exists():
            shutil.rmtree(self.folder)
        for name in ("bin", "lib", "objects", "sources"):
            (self.folder / name).mkdir(parents=True)
        for path in library_sources(workspace.sources):
            copy = self.folder / "sources" / path
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(workspace.sources / path, copy)

    def compile(self, path, text):
        """Compiles what a changed file changes; false when that fails."""
        copy = self.folder / "sources" / path
        original = copy.read_text()
        self._changed = {}
        self._linked = set()
        copy.write_text(text)
        try:
            for unit in self._workspace.units_of(path):
                place = f"objects/{unit.replace('/', '.')}.o"
                if not self._run(self._workspace.compile_command(unit, place)):
                    return False
                self._changed[unit] = place
        finally:
            copy.write_text(original)
        return True

    def link(self, program):
        """Makes a test program ready; false when it does not link."""
        target = program if program in OBJECT_PROGRAMS else "DriverFeature"
        if target in self._linked:
            return True
        self._linked.add(target)
        output = f"bin/{target}" if program in OBJECT_PROGRAMS else _LIBRARY
        return self._run(self._workspace.link_command(target, self._changed, output))

    def program_path(self, program):
        if program in OBJECT_PROGRAMS:
            return self.folder / "bin" / program
        return self._workspace.base / "bin" / program

    def _run(self, command):
        done = subprocess.run(command, cwd=self.folder, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL, check=False)
        return done.returncode == 0
