"""Runs the tests with one mutant at a time."""
import collections
import json
import queue
import subprocess
import threading

# The processor time that a test may take with a mutant: this many times what it takes without, and at least this.
SLOWER = 10
LEAST_SECONDS = 0.3


class Recorded:
    """The tests that reach each mutant, and how long each test takes."""

    def __init__(self, path):
        self.seconds = {}
        self.reaching = collections.defaultdict(list)
        for line in path.read_text().splitlines():
            name, milliseconds, *numbers = line.split("\t")
            self.seconds[name] = float(milliseconds) / 1000
            for number in numbers:
                self.reaching[int(number)].append(name)


class Runner:
    def __init__(self, program, recorded, killers_file, environment):
        self.program = program
        self.recorded = recorded
        self.environment = environment
        self.killers_file = killers_file
        # The test that killed each mutant the last time, and how many mutants of each file each test has killed.
        self.killers = dict(json.loads(killers_file.read_text())) if killers_file.exists() else {}
        self.kills = collections.defaultdict(collections.Counter)

    def order(self, mutant):
        last = self.killers.get("\t".join(mutant.key()))
        kills = self.kills[mutant.file]
        return sorted(self.recorded.reaching[mutant.number],
                      key=lambda test: (test != last, self.recorded.seconds[test] / (1 + kills[test] ** 2)))

    def run(self, mutants, jobs, finished):
        """Calls `finished(mutant, verdict)` for each of them: "survived", "killed" or "hung"."""
        waiting = queue.Queue()
        for mutant in mutants:
            waiting.put(mutant)
        lock = threading.Lock()
        workers = [threading.Thread(target=self.work, args=(waiting, lock, finished)) for _ in range(jobs)]
        for worker in workers:
            worker.start()
        for worker in workers:
            worker.join()
        self.killers_file.write_text(json.dumps(sorted(self.killers.items()), indent=1))

    def work(self, waiting, lock, finished):
        with subprocess.Popen([str(self.program), "--run"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                              env=self.environment) as process:
            while True:
                try:
                    mutant = waiting.get_nowait()
                except queue.Empty:
                    break
                with lock:
                    tests = self.order(mutant)
                words = [str(mutant.number)]
                for test in tests:
                    words += [test, f"{max(LEAST_SECONDS, SLOWER * self.recorded.seconds[test]):.1f}"]
                process.stdin.write("\t".join(words) + "\n")
                process.stdin.flush()
                _, verdict, test = process.stdout.readline().rstrip("\n").split("\t")
                with lock:
                    if verdict != "survived":
                        self.killers["\t".join(mutant.key())] = test
                        self.kills[mutant.file][test] += 1
                    finished(mutant, verdict)
            process.stdin.close()
