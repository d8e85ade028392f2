"""Builds the tests over a copy of the sources in which some files contain their mutants."""
import hashlib
import json
import pathlib
import pickle
import re
import subprocess

from tests.mutation import mutants, schema

PROBLEM = re.compile(r"^(?P<file>[^\s:]+):(?P<line>\d+):(?P<column>\d+): (?P<severity>fatal error|error|note): ", re.M)


class BuildFailed(Exception):
    pass


def write_if_changed(path, content):
    if not path.exists() or path.read_bytes() != content:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)


def find_once(root, folder, name, flags):
    """The mutants of the file, remembered until it changes."""
    state = hashlib.sha256()
    for path in (root / name, pathlib.Path(mutants.__file__)):
        state.update(path.read_bytes())
    memory = folder / "found" / (name.replace("/", "-") + "." + state.hexdigest()[:16])
    if memory.exists():
        return pickle.loads(memory.read_bytes())
    found = mutants.find(root, name, flags)
    write_if_changed(memory, pickle.dumps(found))
    return found


class MutatedSources:
    """The copy of the sources in `folder`/src. The mutants that no compiler accepts are left out, and remembered."""

    def __init__(self, root, folder, names, flags):
        self.root = root
        self.copy = folder / "src"
        self.memory = folder / "left_out.json"
        remembered = json.loads(self.memory.read_text()) if self.memory.exists() else {}
        every = sorted(str(path.relative_to(root)) for path in (root / "src").rglob("*") if path.is_file())
        self.capacity = (len(every) + 1) * schema.CAPACITY
        self.bases = {name: (number + 1) * schema.CAPACITY for number, name in enumerate(every)}
        self.found = {}
        self.left_out = {}
        self.hashes = {}
        self.mutants = {}
        self.rewritten = {}
        for name in names:
            self.found[name] = find_once(root, folder, name, flags)
            self.hashes[name] = hashlib.sha256(self.found[name][0]).hexdigest()
            known = remembered.get(name, {})
            fits = known.get("hash") == self.hashes[name]
            self.left_out[name] = {tuple(key) for key in known["keys"]} if fits else set()
        for path in self.copy.rglob("*"):
            if path.is_file() and str("src" / path.relative_to(self.copy)) not in self.bases:
                path.unlink()
        for name in every:
            if name not in self.found:
                write_if_changed(folder / name, (root / name).read_bytes())
        for name in names:
            self.write(name)

    def write(self, name):
        source, sites = self.found[name]
        self.rewritten[name], self.mutants[name] = schema.rewrite(source, sites, self.bases[name], self.left_out[name])
        write_if_changed(self.copy.parent / name, self.rewritten[name].code)

    def leave_out_failed(self, output):
        """Leaves out the mutants that the compiler complains about. Returns how many."""
        failed = {}
        for error in self.errors(output):
            guilty = next(filter(None, (self.mutants_at(place, "around") for place in error)), [])
            for mutant in guilty or self.mutants_at(error[0], "behind"):
                failed.setdefault(mutant.file, set()).add(mutant.key())
        for name, keys in failed.items():
            self.left_out[name] |= keys
            self.write(name)
        self.remember()
        return sum(map(len, failed.values()))

    @staticmethod
    def errors(output):
        """For each error, its place and those of its notes."""
        errors = []
        for problem in PROBLEM.finditer(output):
            if problem["severity"] != "note":
                errors.append([])
            if errors:
                errors[-1].append((problem["file"], int(problem["line"]), int(problem["column"])))
        return errors

    def mutants_at(self, place, where):
        file, line, column = place
        name = self.name_of(file)
        return getattr(self.rewritten[name], where)(line, column) if name else []

    def name_of(self, file):
        for name in self.found:
            if file.endswith("/" + name) and str(self.copy.parent) in file or file == name:
                return name
        return None

    def remember(self):
        remembered = json.loads(self.memory.read_text()) if self.memory.exists() else {}
        for name, keys in self.left_out.items():
            remembered[name] = {"hash": self.hashes[name], "keys": sorted(keys)}
        self.memory.write_text(json.dumps(remembered, indent=1))

    def all(self):
        return [mutant for of_file in self.mutants.values() for mutant in of_file]


def build(sources, commands, report):
    """Runs the commands until they succeed, each time without the mutants that do not compile."""
    while True:
        for command in commands:
            done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                  errors="replace", check=False)
            if done.returncode != 0:
                break
        else:
            return
        count = sources.leave_out_failed(done.stdout)
        if count == 0:
            raise BuildFailed(done.stdout)
        report(f"{count} mutants do not compile and are left out")
