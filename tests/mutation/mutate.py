#!/usr/bin/env python3
"""Mutation testing of the library's sources: does the suite notice a small fault?

Changes one thing at a time in src/ (a comparison, a boundary, a constant, a boolean, an
arithmetic or logical operator, a deleted call), rebuilds incrementally, runs the fast part of
the suite in one process, stopping at its first failure, and restores the file whatever
happens. A mutant is caught when the run fails or outlives its time limit (its whole process
group is then ended), survives when the run passes, and is not counted when it does not
compile. Survivors listed in equivalent.txt beside this script are named as equivalent (they
change no behaviour) and still count as survivors; each score says how many of its survivors are
named, and an entry that names no mutant of today's sources (an edit moved it) is reported first.

The sample is drawn with a seed from every candidate in a stable order, so the same seed over
the same sources draws the same mutants. Without --seed each run draws a fresh seed, and prints
it first: a score holds only if it holds on samples the tests were not tuned to. --seeds N draws
N samples (a mutant drawn twice runs once) and scores each; the survivors are listed by file.
"""

import argparse
import os
import random
import re
import signal
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
EQUIVALENT = Path(__file__).with_name("equivalent.txt")
# The stress test, the installed-package checks and the demo's replays run in CI anyway; the
# rest is the fast part.
SLOW_TESTS = ["StressTest.*", "*DemoSessionTest.*", "DemoTest.*",
              "KitTerminalTest.TextsHoldExactlyOneFrame*"]

# Binary operators as clang-format writes them, a space on each side (which keeps template
# brackets, shifts and pointers out).
SWAPS = [
    ("comparison", " < ", " <= "), ("comparison", " <= ", " < "),
    ("comparison", " > ", " >= "), ("comparison", " >= ", " > "),
    ("comparison", " == ", " != "), ("comparison", " != ", " == "),
    ("logical", " && ", " || "), ("logical", " || ", " && "),
    ("arithmetic", " + ", " - "), ("arithmetic", " - ", " + "),
    ("arithmetic", " * ", " / "), ("arithmetic", " / ", " * "),
    ("arithmetic", "++", "--"), ("arithmetic", "--", "++"),
]
BOOLEAN = re.compile(r"\b(true|false)\b")
NUMBER = re.compile(r"(?<![\w.])(\d+)(?![\w.'])")
CALL_STATEMENT = re.compile(r"^\s*[A-Za-z_][\w:]*(\s*(\.|->)\s*\w+)*\s*\(.*\);\s*$")
NOT_A_CALL = re.compile(r"^\s*(return|delete|throw|if|while|for|switch|case|else|using|static_assert)\b")


@dataclass
class Mutant:
    file: str
    line: int
    column: int
    kind: str
    before: str
    after: str

    @property
    def name(self):
        return f"{self.file}:{self.line}:{self.column} {self.kind} '{self.before.strip()}' -> '{self.after.strip() or '(deleted)'}'"


def code_part(line):
    """The line without its comment, and string and character literals blanked out."""
    out, quote, i = [], None, 0
    while i < len(line):
        c = line[i]
        if quote:
            if c == "\\":
                out.append("  ")
                i += 2
                continue
            out.append(" " if c != quote else c)
            if c == quote:
                quote = None
        elif c in "\"'":
            quote = c
            out.append(c)
        elif line.startswith("//", i):
            break
        else:
            out.append(c)
        i += 1
    return "".join(out)


def candidates(files):
    found = []
    for path in files:
        relative = str(path.relative_to(ROOT))
        for number, line in enumerate(path.read_text().splitlines(), 1):
            code = code_part(line)
            stripped = code.strip()
            if not stripped or stripped.startswith(("#", "*", "/*")):
                continue
            for kind, before, after in SWAPS:
                start = code.find(before)
                while start != -1:
                    if not (before in ("++", "--") and code[start - 1:start + 3].count(before[0]) > 2):
                        found.append(Mutant(relative, number, start, kind, before, after))
                    start = code.find(before, start + 1)
            for match in BOOLEAN.finditer(code):
                flipped = "false" if match.group(1) == "true" else "true"
                found.append(Mutant(relative, number, match.start(), "boolean", match.group(1), flipped))
            for match in NUMBER.finditer(code):
                value = int(match.group(1))
                found.append(Mutant(relative, number, match.start(), "constant", match.group(1), str(value + 1)))
                if value > 0:
                    found.append(Mutant(relative, number, match.start(), "constant", match.group(1), str(value - 1)))
            if CALL_STATEMENT.match(code) and not NOT_A_CALL.match(code) and " = " not in code and code.count("(") == code.count(")"):
                indent = len(line) - len(line.lstrip())
                found.append(Mutant(relative, number, indent, "deleted call", line[indent:], ";"))
    return found


def apply(mutant):
    path = ROOT / mutant.file
    text = path.read_text()
    lines = text.splitlines(keepends=True)
    line = lines[mutant.line - 1]
    if mutant.kind == "deleted call":
        lines[mutant.line - 1] = line[:mutant.column] + ";\n"
    else:
        assert line[mutant.column:].startswith(mutant.before), mutant.name
        lines[mutant.line - 1] = line[:mutant.column] + mutant.after + line[mutant.column + len(mutant.before):]
    path.write_text("".join(lines))
    return text


def run(command, timeout=None, log=None):
    """Runs command in a process group of its own; returns (exit code, seconds), None on time-out."""
    start = time.monotonic()
    with subprocess.Popen(command, cwd=ROOT, stdout=log or subprocess.DEVNULL, stderr=subprocess.STDOUT,
                          start_new_session=True) as process:
        try:
            code = process.wait(timeout=timeout)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
            return None, time.monotonic() - start
    return code, time.monotonic() - start


def first_failure(log_path):
    """The first test the run reports failed, else the first sign of a crash."""
    lines = Path(log_path).read_text(errors="replace").splitlines()
    for line in lines:
        if line.startswith("[  FAILED  ]"):
            return line[len("[  FAILED  ]"):].split("(")[0].strip()
    for line in lines:
        if "terminate called" in line or "Segmentation" in line or "Aborted" in line:
            return line.strip()[:100]
    return "the run failed"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--seed", type=int, help="draw with this seed, to reproduce a run (default: a fresh one)")
    parser.add_argument("--seeds", type=int, default=1, help="samples to draw, each with a seed of its own")
    parser.add_argument("--count", type=int, default=60, help="mutants in a sample (default 60)")
    parser.add_argument("--files", nargs="*", default=["src/*.cpp", "src/*.hpp", "src/ctls/*.cpp"],
                        help="globs under the top folder to mutate (default: the library's sources)")
    parser.add_argument("--build", default="build/mutate", help="the build folder (preset 'mutate')")
    parser.add_argument("--list", action="store_true", help="print the sample and stop")
    args = parser.parse_args()

    first = args.seed if args.seed is not None else random.SystemRandom().randrange(1, 2**31)
    seeds = [first + i for i in range(args.seeds)] if args.seed is not None else \
        [first] + [random.SystemRandom().randrange(1, 2**31) for _ in range(args.seeds - 1)]
    print("seeds: " + ", ".join(str(seed) for seed in seeds), flush=True)
    files = sorted({p for pattern in args.files for p in ROOT.glob(pattern) if p.is_file()})
    pool = candidates(files)
    samples = {seed: random.Random(seed).sample(pool, min(args.count, len(pool))) for seed in seeds}
    sample = list({m.name: m for seed in seeds for m in samples[seed]}.values())
    print(f"{len(pool)} candidate mutants in {len(files)} files; {len(sample)} drawn", flush=True)
    equivalent = {}
    if EQUIVALENT.exists():
        for line in EQUIVALENT.read_text().splitlines():
            if line.strip() and not line.startswith("#"):
                name, _, reason = line.partition(" | ")
                equivalent[name.strip()] = reason.strip()
    # An entry names a mutant by line and column, so an edit above it silently unnames it: its
    # survivor would then read as a new fault. Say so before spending half an hour.
    names = {m.name for m in pool}
    mutated = {str(path.relative_to(ROOT)) for path in files}
    stale = [name for name in equivalent if name.split(":")[0] in mutated and name not in names]
    if stale:
        print(f"{EQUIVALENT.name}: {len(stale)} entries name no mutant of today's sources (moved or gone):")
        for name in stale:
            print("  " + name)
    if args.list:
        for mutant in sample:
            print("  " + mutant.name)
        return 0

    build = ["cmake", "--build", args.build, "--target", "ui_tests"]
    tests = [f"{args.build}/bin/ui_tests", "--gtest_fail_fast", "--gtest_brief=1",
             "--gtest_filter=-" + ":".join(SLOW_TESTS)]
    log = ROOT / args.build / "mutate.log"
    if not (ROOT / args.build / "build.ninja").exists():
        subprocess.run(["cmake", "--preset", "mutate"], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    if run(build)[0] != 0:
        print("the unmutated sources do not build")
        return 2
    with open(log, "w") as out:
        code, seconds = run(tests, log=out)
    if code != 0:
        print(f"the unmutated suite fails ({first_failure(log)}): no score")
        return 2
    limit = max(30.0, 3 * seconds)
    print(f"unmutated suite: passes in {seconds:.0f} s; a mutant's run is stopped after {limit:.0f} s", flush=True)

    verdicts = {}  # mutant name -> "caught", "survived" or "skipped"
    started = time.monotonic()
    for index, mutant in enumerate(sample, 1):
        original = apply(mutant)
        try:
            if run(build)[0] != 0:
                verdict, verdicts[mutant.name] = "does not compile (not counted)", "skipped"
            else:
                with open(log, "w") as out:
                    code, seconds = run(tests, timeout=limit, log=out)
                if code is None:
                    verdict, verdicts[mutant.name] = f"caught (past the {limit:.0f} s limit)", "caught"
                elif code != 0:
                    verdict, verdicts[mutant.name] = f"caught by {first_failure(log)} ({seconds:.0f} s)", "caught"
                else:
                    reason = equivalent.get(mutant.name)
                    verdict = f"SURVIVED (equivalent: {reason})" if reason else "SURVIVED"
                    verdicts[mutant.name] = "survived"
        finally:
            (ROOT / mutant.file).write_text(original)
        print(f"[{index:2}/{len(sample)}] {mutant.name}: {verdict}", flush=True)
        if verdict.startswith("SURVIVED"):
            print(f"        {original.splitlines()[mutant.line - 1].strip()}", flush=True)

    run(build)  # leaves the build as the sources are
    counts = {v: sum(1 for x in verdicts.values() if x == v) for v in ("caught", "survived", "skipped")}
    print(f"\n{counts['caught']} caught, {counts['survived']} survived, {counts['skipped']} did not compile; "
          f"{(time.monotonic() - started) / 60:.0f} min")
    survivors = [m for m in sample if verdicts[m.name] == "survived"]
    if survivors:
        print("survivors, by file:")
        for file in sorted({m.file for m in survivors}):
            print(f"  {file}")
            for mutant in sorted((m for m in survivors if m.file == file), key=lambda m: (m.line, m.column)):
                reason = equivalent.get(mutant.name)
                print(f"    {mutant.name[len(file) + 1:]}" + (f"  (equivalent: {reason})" if reason else ""))
    for seed in seeds:
        caught = sum(1 for m in samples[seed] if verdicts[m.name] == "caught")
        survived = [m for m in samples[seed] if verdicts[m.name] == "survived"]
        scored = caught + len(survived)
        if scored:
            named = sum(1 for m in survived if m.name in equivalent)
            print(f"score with seed {seed}: {100 * caught / scored:.1f} % ({caught}/{scored}); "
                  f"{len(survived)} survived, {named} of them named equivalent")
    return 0


if __name__ == "__main__":
    sys.exit(main())
