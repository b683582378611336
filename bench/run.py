#!/usr/bin/env python3
"""Whole-file benchmark of every converter of the quelcnv command.

For each converter it generates (seeded, cached) an input of N and of 8N
megabytes with bench/generate.py, runs the command on both, and prints the
time per input megabyte, the peak memory of the process (at 8N) and the
ratio t(8N)/t(N), which is about 8 for a converter that is linear. Degenerate
inputs (an alignment whose stations go back and forth, a CLIP PLT file of a
single long line) are timed the same way. Side by side in the same run:

- ruxo2nevo on 2,000,000 points against a mawk one-liner that writes the same
  bytes (checked equal before it is timed);
- tralandxml2nevoWCE on a LandXML document of about 30 MB of cross sections
  against a short Python script with the standard library's expat binding
  that writes the same file (checked equal first), and against xmlwf, which
  only parses (the floor).

Each target is printed with "ok" or "NO"; the exit status is 1 when one is
missed. With --compare-with OTHER_QUELCNV every output at N is also compared
byte for byte with the other command's output on the same input (the date and
time of written LandXML documents left aside).
"""

from __future__ import annotations

import argparse
import filecmp
import hashlib
import os
import re
import shutil
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path
from typing import List, Optional, Sequence

HERE = Path(__file__).resolve().parent
ROOT = HERE.parent
sys.path.insert(0, str(HERE))

import generate  # noqa: E402  (bench/generate.py, next to this file)

MB = 1_000_000
MIB = 1024 * 1024
HOST = str(ROOT / "samples")  # the host folder: its quelvar.ini sets the element-form limit

# Memory classes of the targets.
STREAMING = "streaming"  # under 16 MiB at any size
SECTION = "section"  # one section at a time: under 16 MiB plus the largest section
WHOLE = "whole"  # holds its input: under 2.5 times the input

STREAMING_LIMIT = 16 * MIB
WHOLE_FACTOR = 2.5
RATIO_LIMIT = 9.0
SPEEDUP_TARGET = 5.0


@dataclass
class Case:
    converter: str
    format: str
    args: Sequence[str]  # "{in}", "{out}" and "{host}" are filled in
    memory: str = WHOLE
    size_mb: float = 4.0  # N; the large run is 8N
    outputs: Sequence[str] = ("{out}",)
    status: int = 0  # the exit status expected


def cases() -> List[Case]:
    io = ("{in}", "{out}")
    host = ("{in}", "{out}", "{host}")
    sections = ("Eje 1", "Terreno", "{in}", "{out}")
    level_book = ("{in}", "{out}", "Topografia_Norte", "J.Garcia", "M-101", "M-102", "KL500-604233")
    return [
        # cross sections
        Case("ruxo2nevo", "ruxo_sections", io, STREAMING),
        Case("traruxo2nevo", "comma_sections", io, STREAMING),
        Case("istram2nevo", "istram_sections", io, SECTION),
        Case("mxroad2nevo", "mxroad_sections", io),
        Case("htrazado2nevo", "htrazado_sections", io, SECTION),
        Case("clip2nevo", "clip_ter_sections", io, SECTION),
        Case("cliptrv2nevo", "clip_trv_sections", io, SECTION),
        Case("traCartomap2ruxo", "cartomap_sections_pk", io),
        Case("traCartomap2ruxo", "cartomap_sections_distance", io),
        Case("travelm2landxml", "comma_sections", io),
        Case("traistram2landxml", "istram_sections", io),
        Case("tramxroad2landxml", "mxroad_sections", io),
        Case("traclip2landxml", "clip_ter_sections", io),
        Case("tracliptrv2landxml", "clip_trv_sections", io),
        Case("trahtrazado2lamdxml", "htrazado_sections", io),
        Case("seleccionaTransverLandXML", "landxml_sections", ("{in}",), outputs=()),
        Case("tralandxml2nevo", "landxml_sections", sections),
        Case("tralandxml2nevoWCE", "landxml_sections", sections),
        # alignments
        Case("aruxo2nevo", "ruxo_alignment", host, size_mb=2),
        Case("aruxo2nevoWCE", "ruxo_alignment", io, size_mb=2),
        Case("aVELM2LandXML", "ruxo_alignment", io, size_mb=2),
        Case("aistram2nevo", "istram_alignment", host, size_mb=2),
        Case("aistram2ruxo", "istram_alignment", io, size_mb=2),
        Case("aistram2LandXML", "istram_alignment", io, size_mb=2),
        Case("aistramList2nevo", "istram_listing", host, size_mb=2),
        Case("aistramList2LandXML", "istram_listing", io, size_mb=2),
        Case("aispol2nevo", "ispol_alignment", host, size_mb=2),
        Case("aispol2LandXML", "ispol_alignment", io, size_mb=2),
        # the HTRAZADO alignment importer reads the file and keeps no record, by design
        Case("ahtrazado2nevo", "htrazado_alignment", host, size_mb=2, status=1),
        Case("ahtrazado2LandXML", "htrazado_alignment", io, size_mb=2, status=1),
        Case("aclipplt2nevo", "clip_plt_alignment", host, size_mb=2),
        Case("aclipplt2ruxo", "clip_plt_alignment", io, size_mb=2),
        Case("aclipplt2LandXML", "clip_plt_alignment", io, size_mb=2),
        Case("seleccionaEjeLandXML", "landxml_alignments", ("{in}",), outputs=()),
        Case("alandxml2nevo", "landxml_alignments", ("0", "{in}", "{out}", "{host}"), size_mb=2),
        Case("alandxml2nevoWCE", "landxml_alignments", ("0", "{in}", "{out}", "{host}"), size_mb=2),
        # profiles and superelevation
        Case("rasruxo2nevo", "ruxo_profile", io),
        Case("rvelm2nevo", "velm_profile", io),
        Case("rvelm2landxml", "velm_profile", io),
        Case("ristram2nevo", "istram_profile", io),
        Case("ristram2landxml", "istram_profile", io),
        Case("rispol2nevo", "ispol_profile", io),
        Case("rispol2landxml", "ispol_profile", io),
        Case("rascartomap2ruxo", "cartomap_profile", io),
        Case("peralteispol2nevo", "ispol_superelevation", io),
        Case("peralteClip2nevo", "clip_superelevation", io),
        Case("seleccionaRasanteLandXML", "landxml_alignments", ("{in}",), outputs=()),
        Case("rlandxml2nevo", "landxml_alignments", ("Eje 1: Rasante 1", "{in}", "{out}")),
        Case("rlandxml2nevoWCE", "landxml_alignments", ("Eje 1: Rasante 1", "{in}", "{out}")),
        # field data
        Case("anivel2ing", "level_readings", level_book),
        Case("puntos2nevo", "points", io, STREAMING),
        Case("puntos2nivel", "points", io),
        Case("topoLea2Medrix", "lea_survey", io, outputs=("{out}", "{out_cod}")),
        Case("lectnevo2medrix", "observations", io, STREAMING),
        Case("procesaCabecera", "robotic_readings", io),
    ]


# ---------------------------------------------------------------------------
# Running the command


@dataclass
class Run:
    seconds: float
    peak_bytes: int
    status: int


def memory_folder(work: Path) -> Path:
    """Where outputs and scratch files go: a folder in memory when the machine
    has one with room, so that the disk's write-back never times the runs."""
    shm = Path("/dev/shm")
    if shm.is_dir() and os.access(shm, os.W_OK) and shutil.disk_usage(shm).free > 2_000_000_000:
        return shm / f"quelcnv-bench-{os.getpid()}"
    return work


class Bench:
    def __init__(self, command: Path, work: Path, seed: int, repeats: int):
        self.command = command
        self.work = work
        self.seed = seed
        self.repeats = repeats
        self.inputs = work / "inputs"
        self.runs = memory_folder(work)
        self.outputs = self.runs / "outputs"
        self.scratch = self.runs / "scratch"
        for folder in (self.inputs, self.outputs, self.scratch):
            folder.mkdir(parents=True, exist_ok=True)
        self.env = dict(os.environ, QUELCNV_SCRATCH=str(self.scratch), QUELCNV_MESSAGES="stderr")
        self.generator_version = hashlib.sha1((HERE / "generate.py").read_bytes()).hexdigest()[:10]

    def input(self, fmt: str, size_mb: float) -> Path:
        """The generated input, made once and kept (by format, size, seed and generator)."""
        path = self.inputs / f"{fmt}-{size_mb:g}MB-{self.seed}-{self.generator_version}.txt"
        if not path.exists():
            partial = path.with_suffix(".part")
            generate.FORMATS[fmt].write(str(partial), int(size_mb * MB), self.seed)
            partial.rename(path)
        return path

    def run(self, argv: Sequence[str], stdout=subprocess.DEVNULL) -> Run:
        """One run. The peak memory comes from GNU time, which starts the
        command from its own small process: a child started from this Python
        process would count Python's memory too."""
        report = self.runs / "time.txt"
        timed = ["/usr/bin/time", "-f", "%M", "-o", str(report), *argv]
        start = time.perf_counter()
        status = subprocess.run(timed, stdout=stdout, stderr=subprocess.DEVNULL,
                                env=self.env).returncode
        seconds = time.perf_counter() - start
        peak_kib = int(report.read_text().split()[-1])
        return Run(seconds, peak_kib * 1024, status)


def fill(args: Sequence[str], values: dict) -> List[str]:
    return [a.format(**values) for a in args]


def case_argv(bench: Bench, case: Case, command: Path, source: Path, tag: str):
    # the same file name in a folder of its own for each run: a LandXML writer
    # names its alignment after the output file
    folder = bench.outputs / tag
    folder.mkdir(exist_ok=True)
    out = folder / f"{case.converter}.out"
    values = {"in": str(source), "out": str(out), "host": HOST,
              "out_cod": str(out.with_suffix(".cod"))}
    outputs = [Path(o.format(**values)) for o in case.outputs]
    return [str(command), "--silencio", case.converter] + fill(case.args, values), outputs


def remove(paths) -> None:
    for p in paths:
        Path(p).unlink(missing_ok=True)


# ---------------------------------------------------------------------------
# The table


@dataclass
class Row:
    name: str
    small_mb: float
    small_s: float
    large_mb: float
    large_s: float
    peak: int
    memory: str
    status: str

    @property
    def ratio(self) -> float:
        return self.large_s / self.small_s if self.small_s > 0 else float("inf")

    def memory_limit(self) -> Optional[float]:
        """The peak memory allowed; none for the degenerate inputs, whose
        records the splitting multiplies by design."""
        if self.memory == STREAMING:
            return STREAMING_LIMIT
        if self.memory == SECTION:
            return STREAMING_LIMIT + WHOLE_FACTOR * SECTION_BYTES
        if self.memory == WHOLE:
            return WHOLE_FACTOR * self.large_mb * MB
        return None

    def failures(self) -> List[str]:
        missed = []
        if self.status != "ok":
            missed.append(self.status)
        if self.ratio > RATIO_LIMIT:
            missed.append(f"t(8N)/t(N) {self.ratio:.1f} > {RATIO_LIMIT:g}")
        limit = self.memory_limit()
        if limit is not None and self.peak > limit:
            missed.append(f"peak {self.peak / MIB:.1f} MiB > {limit / MIB:.1f} MiB")
        return missed


# The largest section of the generated section files holds 100 points: a few
# kilobytes of text, allowed on top of the 16 MiB.
SECTION_BYTES = 64 * 1024


def print_table(rows: List[Row]) -> None:
    header = (f"{'converter (input)':44} {'N MB':>6} {'t(N) s':>7} {'ms/MB':>7} {'8N MB':>6} "
              f"{'t(8N) s':>8} {'8N/N':>5} {'peak MiB':>9} {'peak/in':>7} {'memory':>9}  target")
    print(header)
    print("-" * len(header))
    for r in rows:
        per_mb = 1000 * r.large_s / r.large_mb if r.large_mb else 0
        missed = r.failures()
        print(f"{r.name:44} {r.small_mb:6.1f} {r.small_s:7.3f} {per_mb:7.1f} {r.large_mb:6.1f} "
              f"{r.large_s:8.3f} {r.ratio:5.2f} {r.peak / MIB:9.1f} "
              f"{r.peak / (r.large_mb * MB):7.2f} {r.memory:>9}  "
              f"{'ok' if not missed else 'NO: ' + '; '.join(missed)}")


# ---------------------------------------------------------------------------
# Whole-file runs


def measure(bench: Bench, name: str, case: Case, small: Path, large: Path,
            compare_with: Optional[Path], memory: str) -> Row:
    """Runs the converter on both inputs in turns, so that a busy moment of
    the machine falls on both sizes alike; the fastest run of each counts."""
    status = "ok"
    runs = {"N": [], "8N": []}
    argvs = {tag: case_argv(bench, case, bench.command, source, tag)
             for tag, source in (("N", small), ("8N", large))}
    for _ in range(bench.repeats):
        for tag, (argv, _outputs) in argvs.items():
            run = bench.run(argv)
            if run.status != case.status:
                status = f"exit {run.status} at {tag}"
            runs[tag].append(run)
    _, outputs = argvs["N"]
    if compare_with is not None and not same_outputs(bench, case, small, outputs, compare_with):
        status = "output differs from the other command"
    for _, outputs in argvs.values():
        remove(outputs)
    fastest = {tag: min(r.seconds for r in done) for tag, done in runs.items()}
    return Row(name, small.stat().st_size / MB, fastest["N"], large.stat().st_size / MB,
               fastest["8N"], max(r.peak_bytes for r in runs["8N"]), memory, status)


def measure_case(bench: Bench, case: Case, scale: float, compare_with: Optional[Path]) -> Row:
    small = bench.input(case.format, case.size_mb * scale)
    large = bench.input(case.format, 8 * case.size_mb * scale)
    return measure(bench, f"{case.converter} ({case.format})", case, small, large, compare_with,
                   case.memory)


DATE_TIME = re.compile(rb'(date|time)="[^"]*"')


def same_outputs(bench: Bench, case: Case, source: Path, outputs: List[Path], other: Path) -> bool:
    argv, other_outputs = case_argv(bench, case, other, source, "other")
    bench.run(argv)
    same = True
    for ours, theirs in zip(outputs, other_outputs):
        a = ours.read_bytes() if ours.exists() else None
        b = theirs.read_bytes() if theirs.exists() else None
        if a is not None and b is not None:
            a, b = DATE_TIME.sub(b"", a), DATE_TIME.sub(b"", b)
        same = same and a == b
    remove(other_outputs)
    return same


# ---------------------------------------------------------------------------
# Degenerate inputs


def degenerate_alignment(path: Path, lines: int) -> None:
    """Stations that go back and forth: the arc splitting's worst case."""
    pair = "100 -6 411.2 0 0 411.2\n411.2 0 100 -6 -6 100\n"
    path.write_text(pair * (lines // 2))


def one_line_plt(path: Path, size_mb: float, seed: int) -> None:
    """A CLIP PLT file of one comma-separated line of random numbers."""
    import random
    rng = random.Random(seed)
    count = int(size_mb * MB / 8)
    with open(path, "w") as f:
        for start in range(0, count, 100000):
            n = min(100000, count - start)
            f.write(",".join(f"{rng.uniform(-999, 999):.3f}" for _ in range(n)) + ",")
        f.write("\n")


def measure_degenerate(bench: Bench, scale: float, compare_with: Optional[Path]) -> List[Row]:
    specs = [
        ("aruxo2nevoWCE (stations back and forth)", "aruxo2nevoWCE", ("{in}", "{out}"),
         lambda p, k: degenerate_alignment(p, 4000 * k)),
        ("aclipplt2nevo (one 10 MB line)", "aclipplt2nevo", ("{in}", "{out}", "{host}"),
         lambda p, k: one_line_plt(p, 10 / 8 * k * scale, bench.seed)),
    ]
    rows = []
    for name, converter, args, make in specs:
        sources = []
        for tag, k in (("N", 1), ("8N", 8)):
            source = bench.inputs / f"degenerate-{converter}-{tag}-{scale:g}.txt"
            if not source.exists():
                make(source, k)
            sources.append(source)
        # the splitting multiplies records by design: no memory target
        rows.append(measure(bench, name, Case(converter, "degenerate", args), *sources,
                            compare_with, "-"))
    return rows


# ---------------------------------------------------------------------------
# Side by side with what a user would script instead

MAWK_PROGRAM = r'''
NF >= 4 { printf "%.3f,%.3f,%.3f,%s\n", $1, $2, $3, $4; next }
NF == 3 { printf "%.3f,%.3f,%.3f\n", $1, $2, $3 }
'''


def interleaved(bench: Bench, commands: dict, rounds: int) -> dict:
    """The fastest of `rounds` runs of each command, taken in turns so that a
    slower or busier moment of the machine falls on all of them alike."""
    best = {name: float("inf") for name in commands}
    for _ in range(rounds):
        for name, (argv, stdout) in commands.items():
            with open(stdout, "wb") if stdout else open(os.devnull, "wb") as sink:
                run = bench.run(argv, stdout=sink)
            if run.status != 0:
                raise RuntimeError(f"{name} failed with status {run.status}")
            best[name] = min(best[name], run.seconds)
    return best


def compare_mawk(bench: Bench, scale: float, rounds: int):
    """Lines to print, and whether the target is met."""
    mawk = shutil.which("mawk")
    if mawk is None:
        return ["mawk not installed: scripts/setup installs it"], False
    source = bench.input("ruxo_sections", 59 * scale)
    ours_out = bench.outputs / "ruxo2nevo-vs-mawk.nev"
    awk_out = bench.outputs / "mawk.nev"
    program = bench.work / "ruxo2nevo.awk"
    program.write_text(MAWK_PROGRAM)
    ours = [str(bench.command), "--silencio", "ruxo2nevo", str(source), str(ours_out)]
    theirs = [mawk, "-f", str(program), str(source)]
    bench.run(ours)
    with open(awk_out, "wb") as sink:
        bench.run(theirs, stdout=sink)
    lines = sum(1 for _ in open(source, "rb"))
    if not filecmp.cmp(ours_out, awk_out, shallow=False):
        return [f"ruxo2nevo and mawk write different files from {source.name}: not timed"], False
    best = interleaved(bench, {"ours": (ours, None), "mawk": (theirs, awk_out)}, rounds)
    remove([ours_out, awk_out])
    speedup = best["mawk"] / best["ours"]
    met = speedup >= SPEEDUP_TARGET
    return [
        f"ruxo2nevo on {lines:,} points ({source.stat().st_size / MB:.0f} MB), the same bytes as mawk:",
        f"  quelcnv ruxo2nevo {best['ours']:.3f} s   mawk one-liner {best['mawk']:.3f} s   "
        f"{speedup:.1f} times faster (target {SPEEDUP_TARGET:g}): {'ok' if met else 'NO'}",
    ], met


PYTHON_SECTIONS = HERE / "landxml_sections.py"


def compare_landxml(bench: Bench, scale: float, rounds: int):
    """Lines to print, and whether the target is met."""
    # 34.6 MB of the generated layout hold 20,000 stations of 100 points
    source = bench.input("landxml_sections", 34.6 * scale)
    ours_out = bench.outputs / "tralandxml2nevoWCE.ruxo"
    python_out = bench.outputs / "python.ruxo"
    ours = [str(bench.command), "--silencio", "tralandxml2nevoWCE", "Eje 1", "Terreno", str(source),
            str(ours_out)]
    python = [sys.executable, str(PYTHON_SECTIONS), "Eje 1", "Terreno", str(source), str(python_out)]
    bench.run(ours)
    bench.run(python)
    if not filecmp.cmp(ours_out, python_out, shallow=False):
        return ["tralandxml2nevoWCE and the Python script write different files: not timed"], False
    commands = {"ours": (ours, None), "python": (python, None)}
    xmlwf = shutil.which("xmlwf")
    if xmlwf is not None:
        commands["xmlwf"] = ([xmlwf, str(source)], None)
    best = interleaved(bench, commands, rounds)
    remove([ours_out, python_out])
    speedup = best["python"] / best["ours"]
    met = speedup >= SPEEDUP_TARGET
    floor = f"xmlwf (parsing only) {best['xmlwf']:.3f} s" if "xmlwf" in best else \
        "xmlwf not installed"
    return [
        f"tralandxml2nevoWCE on {source.stat().st_size / MB:.0f} MB of LandXML cross sections, "
        f"the same bytes as the Python script:",
        f"  quelcnv {best['ours']:.3f} s   Python/expat {best['python']:.3f} s   {floor}   "
        f"{speedup:.1f} times faster than Python (target {SPEEDUP_TARGET:g}): "
        f"{'ok' if met else 'NO'}",
    ], met


# ---------------------------------------------------------------------------


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--command", default=str(ROOT / "build" / "quelcnv"),
                        help="the quelcnv command to measure (default: build/quelcnv)")
    parser.add_argument("--work", default=str(ROOT / "build" / "bench"),
                        help="folder for the generated inputs and the outputs")
    parser.add_argument("--seed", type=int, default=20261123)
    parser.add_argument("--scale", type=float, default=1.0,
                        help="multiplies every input size (0.25 for a quick run)")
    parser.add_argument("--repeats", type=int, default=7,
                        help="runs per measurement, the fastest counting")
    parser.add_argument("--only", help="a regular expression: only converters it matches")
    parser.add_argument("--compare-with", metavar="OTHER_QUELCNV",
                        help="compare every output at N with this command's")
    options = parser.parse_args()

    bench = Bench(Path(options.command), Path(options.work), options.seed, options.repeats)
    compare_with = Path(options.compare_with) if options.compare_with else None
    selected = [c for c in cases() if not options.only or re.search(options.only, c.converter)]

    rows = []
    for case in selected:
        print(f"  {case.converter} ({case.format}) ...", file=sys.stderr, flush=True)
        rows.append(measure_case(bench, case, options.scale, compare_with))
    if not options.only or re.search(options.only, "aruxo2nevoWCE aclipplt2nevo"):
        rows += measure_degenerate(bench, options.scale, compare_with)

    print()
    print_table(rows)
    print()
    met = all(not r.failures() for r in rows)
    comparisons = [("ruxo2nevo", compare_mawk, 5), ("tralandxml2nevoWCE", compare_landxml, 3)]
    for name, compare, rounds in comparisons:
        if options.only and not re.search(options.only, name):
            continue
        lines, ok = compare(bench, options.scale, rounds)
        print("\n".join(lines))
        met = met and ok
    print()
    print("Targets: t(8N)/t(N) at most 9; streaming converters under 16 MiB; importers of one "
          "section at a time under 16 MiB plus their largest section; the others under 2.5 times "
          "their input (at 8N).")
    print("All targets met." if met else "Some targets are not met.")
    if bench.runs != bench.work:
        shutil.rmtree(bench.runs, ignore_errors=True)
    return 0 if met else 1


if __name__ == "__main__":
    sys.exit(main())
