#!/usr/bin/env python3
"""Runs the fuzz targets built in build-fuzz, as many at once as the machine
has processors, each for the given time, and prints what each did.

    fuzz/run_targets.py [--segundos N] [--fusionar] [OPERACION...]

Each target starts from its kept corpus (fuzz/corpus/OPERACION) and the
seeds of tests/data and samples; what it finds new stays in
build-fuzz/runs/OPERACION. A finding (crash, leak, undefined behaviour, a
run over 1 second, an undocumented result) is written to
build-fuzz/findings/ and makes the script exit 1. With --fusionar, the kept
corpus is replaced by the smallest set of its inputs, the seeds and the new
ones that reaches every edge of the code all of them reach (--segundos 0:
only that, without fuzzing).
"""
import argparse
import concurrent.futures
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build-fuzz"
# Inputs of at most 64 KiB, each converted within a second.
OPTIONS = ["-max_len=65536", "-timeout=1", "-rss_limit_mb=2048", "-print_final_stats=1"]

FIELD_DATA = ("anivel2ing", "puntos2nevo", "puntos2nivel", "topoLea2Medrix", "lectnevo2medrix",
              "procesaCabecera")


def dictionary_of(operation):
    """The dictionary of the format the entry point reads."""
    if operation.startswith(("selecciona", "alandxml", "rlandxml", "tralandxml")):
        name = "landxml"
    elif operation.startswith("aistram"):
        name = "istram"
    elif operation in FIELD_DATA:
        name = "fielddata"
    elif operation.startswith("a"):
        name = "alignment"
    elif operation.startswith(("r", "peralte")) and operation != "ruxo2nevo":
        name = "profile"
    else:
        name = "sections"
    return ROOT / "fuzz/dict" / (name + ".dict")


def targets():
    """The entry points that read a file, as fuzz/CMakeLists.txt builds them,
    and the recogniser of file formats."""
    sys.path.insert(0, str(ROOT / "fuzz"))
    from seed_corpus import arguments_of_entry_points
    return sorted(name for name, arguments in arguments_of_entry_points().items()
                  if "entrada" in arguments or "lecturas" in arguments) + ["recognition"]


def run(operation, seconds, seeds):
    work = BUILD / "runs" / operation
    findings = BUILD / "findings"
    work.mkdir(parents=True, exist_ok=True)
    findings.mkdir(parents=True, exist_ok=True)
    kept = ROOT / "fuzz/corpus" / operation
    command = [str(BUILD / "fuzz" / (operation + "_fuzz")), *OPTIONS,
               f"-max_total_time={seconds}", f"-dict={dictionary_of(operation)}",
               f"-artifact_prefix={findings}/{operation}-", str(work)]
    command += [str(d) for d in (kept, seeds / operation) if d.is_dir()]
    start = time.monotonic()
    done = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                          text=True, errors="replace")
    elapsed = time.monotonic() - start
    log = done.stderr
    (BUILD / "runs" / (operation + ".log")).write_text(log)
    runs = re.search(r"stat::number_of_executed_units: (\d+)", log)
    return operation, done.returncode, int(runs.group(1)) if runs else 0, elapsed, log


def merge(operation, seeds):
    kept = ROOT / "fuzz/corpus" / operation
    merged = Path(tempfile.mkdtemp(prefix=operation + "-", dir=BUILD))
    sources = [d for d in (kept, BUILD / "runs" / operation, seeds / operation) if d.is_dir()]
    # Edges, not hit counts: the kept set stays small.
    subprocess.run([str(BUILD / "fuzz" / (operation + "_fuzz")), "-merge=1", "-use_counters=0",
                    *OPTIONS[:3],
                    str(merged), *map(str, sources)],
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
    shutil.rmtree(kept, ignore_errors=True)
    shutil.move(str(merged), kept)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--segundos", type=int, default=60)
    parser.add_argument("--fusionar", action="store_true")
    parser.add_argument("operaciones", nargs="*")
    args = parser.parse_args()
    operations = args.operaciones or targets()
    if not operations:
        sys.exit("no hay objetivos en build-fuzz/fuzz: cmake --build --preset fuzz")
    seeds = BUILD / "seeds"
    shutil.rmtree(seeds, ignore_errors=True)
    subprocess.run([sys.executable, str(ROOT / "fuzz/seed_corpus.py"), str(seeds)],
                   stdout=subprocess.DEVNULL, check=True)
    os.environ.setdefault("TMPDIR", "/dev/shm" if os.path.isdir("/dev/shm") else "/tmp")
    failed = []
    total_runs = 0
    with concurrent.futures.ThreadPoolExecutor(max_workers=os.cpu_count() or 1) as pool:
        runs_of_each = pool.map(lambda op: run(op, args.segundos, seeds),
                                operations if args.segundos > 0 else [])
        for operation, status, runs, elapsed, log in runs_of_each:
            total_runs += runs
            verdict = "bien" if status == 0 else "HALLAZGO"
            print(f"{operation:28} {runs:>10} ejecuciones {elapsed:7.1f} s  {verdict}",
                  flush=True)
            if status != 0:
                failed.append(operation)
                print("\n".join(line for line in log.splitlines()
                                if "ERROR" in line or "SUMMARY" in line or "Test unit" in line))
    if args.fusionar:
        with concurrent.futures.ThreadPoolExecutor(max_workers=os.cpu_count() or 1) as pool:
            list(pool.map(lambda op: merge(op, seeds), operations))
    print(f"{len(operations)} objetivos, {total_runs} ejecuciones, "
          f"{len(failed)} con hallazgos{': ' + ' '.join(failed) if failed else ''}")
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
