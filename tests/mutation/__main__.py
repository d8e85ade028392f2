"""Mutation testing: one small change of the code at a time, and the tests that reach it. A change that no test notices
is a survivor: a test is missing, or the code is not needed.

    python3 -m tests.mutation [--jobs N] [--only START] FILE...

FILE is a source file of the core, or a pattern of such files in quotes. The exit status is 0 if there are no survivors
but those in tests/mutation/equivalent.txt, and 1 otherwise. Files are built in build-mutate.

With --only, all these files contain their mutants, but only those of the files whose names begin like this, or like one
of several with commas between them, are run. To run others after them, nothing has to be compiled again.
"""
import argparse
import collections
import os
import pathlib
import shutil
import subprocess
import sys
import time

from tests.mutation import build, equivalents, mutants, run

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = ROOT / "build-mutate"
EQUIVALENT = ROOT / "tests" / "mutation" / "equivalent.txt"


def step(text):
    subprocess.run([ROOT / "scripts" / "step", text], check=False)


def files(patterns):
    found = []
    for pattern in patterns:
        paths = sorted(ROOT.glob(pattern)) if not pathlib.Path(pattern).is_absolute() else []
        if not paths:
            raise FileNotFoundError(f"there is no file {pattern}")
        found += [str(path.relative_to(ROOT)) for path in paths if path.suffix in (".cpp", ".h")]
    return list(dict.fromkeys(found))


class Progress:
    """A line for each survivor that is not listed, and one from time to time."""

    def __init__(self, count, reasons, reaching):
        self.count = count
        self.reasons = reasons
        self.reaching = reaching
        self.done = 0
        self.survived = []
        self.shown = time.monotonic()

    def finished(self, mutant, verdict):
        self.done += 1
        if verdict == "survived":
            self.survived.append(mutant)
            if mutant.key() not in self.reasons:
                reached = "" if self.reaching[mutant.number] else "  (no test reaches it)"
                print(f"{mutant.file}:{mutant.line}: {mutant.change}  in  {mutant.text}{reached}", flush=True)
        if time.monotonic() - self.shown >= 5 or self.done == self.count:
            self.shown = time.monotonic()
            step(f"{self.done} of {self.count} mutants, {len(self.survived)} survive")


def record(program, sources, environment):
    output = FOLDER / "recorded.txt"
    scenarios = sorted(str(path) for path in (ROOT / "tests" / "scenarios").glob("*/*.txt"))
    command = [program, "--record", str(sources.capacity), output, *scenarios]
    if subprocess.run(command, stdout=subprocess.DEVNULL, env=environment, check=False).returncode != 0:
        sys.exit("tests.mutation: the tests fail without a mutant")
    return run.Recorded(output)


def table(found, survived, listed):
    """Prints a line for each folder."""
    counts = collections.defaultdict(collections.Counter)
    survived, listed = ({mutant.number for mutant in some} for some in (survived, listed))
    for mutant in found:
        where = "survive" if mutant.number in survived else "equivalent" if mutant.number in listed else "killed"
        for name in (str(pathlib.PurePath(mutant.file).parent), "total"):
            counts[name]["mutants"] += 1
            counts[name][where] += 1
    print(f"\n{'':20}{'mutants':>11}{'killed':>11}{'equivalent':>11}{'survive':>11}")
    for name, count in sorted(counts.items(), key=lambda item: (item[0] == "total", item[0])):
        print(f"{name:20}" + "".join(f"{count[kind]:11}" for kind in ("mutants", "killed", "equivalent", "survive")))


def main():
    parser = argparse.ArgumentParser(description="mutation testing")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--only", default="")
    parser.add_argument("files", nargs="+")
    options = parser.parse_args()

    try:
        reasons = equivalents.read(EQUIVALENT.read_text(encoding="utf-8"))
        names = files(options.files)
    except (equivalents.Malformed, FileNotFoundError) as error:
        sys.exit(f"tests.mutation: {error}")
    only = tuple(options.only.split(","))
    step(f"Finding the mutants of {len(names)} files")
    FOLDER.mkdir(exist_ok=True)
    sources = build.MutatedSources(ROOT, FOLDER, names, ["-std=c++20", "-I", str(ROOT / "src")])
    step(f"{len(sources.all())} mutants; building the tests")
    commands = [["cmake", "--build", "--preset", "mutate", "-j", str(options.jobs), "--", "-k", "0"]]
    if not (FOLDER / "build.ninja").exists():
        commands.insert(0, ["cmake", "--preset", "mutate"])
    build.build(sources, commands, step)

    # The tests write their files there; a mutant that is killed leaves them.
    temporary = FOLDER / "tmp"
    shutil.rmtree(temporary, ignore_errors=True)
    temporary.mkdir()
    environment = os.environ | {"TMPDIR": str(temporary)}
    program = FOLDER / "bin" / "plimo-mutation-tests"
    step("Recording which tests reach which mutants")
    recorded = record(program, sources, environment)
    found = [mutant for mutant in sources.all() if mutant.file.startswith(only)]
    progress = Progress(len(found), reasons, recorded.reaching)
    step(f"Running {len(recorded.seconds)} tests with one mutant at a time")
    run.Runner(program, recorded, FOLDER / "killers.json", environment).run(found, options.jobs, progress.finished)
    shutil.rmtree(temporary, ignore_errors=True)

    listed = [mutant for mutant in progress.survived if mutant.key() in reasons]
    survived = [mutant for mutant in progress.survived if mutant.key() not in reasons]
    survivors = {mutant.key() for mutant in progress.survived}
    stale = [key for key in reasons if key[0] in names and key[0].startswith(only) and key not in survivors]
    for key in stale:
        print(f"{EQUIVALENT.relative_to(ROOT)}: this entry is no survivor: " + " | ".join(key))
    table(found, survived, listed)
    with open(FOLDER / "survivors.txt", "w", encoding="utf-8") as file:
        file.writelines(equivalents.entry(mutant) + "\n" for mutant in survived)
    return 1 if survived or stale else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (build.BuildFailed, mutants.NotParsed) as failure:
        sys.exit(f"{failure}\ntests.mutation: the build failed")
