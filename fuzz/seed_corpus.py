#!/usr/bin/env python3
"""Writes the seed inputs of every fuzz target, one folder per entry point,
from the conversions of tests/data/*/cases.txt and samples/demo.txt, and
one for the recogniser of file formats from every sample and test input.

A seed is what the target reads: for an entry point with arguments besides
its input and output, a first line holding them separated by "|" (the
settings line of the host's quelvar.ini for pathAp), then the input file.

    fuzz/seed_corpus.py FOLDER
"""
import hashlib
import shlex
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

# Entry points that read the same format share their inputs as seeds.
SAME_INPUT = [
    ["aruxo2nevo", "aruxo2nevoWCE", "aVELM2LandXML"],
    ["aistram2nevo", "aistram2ruxo", "aistram2LandXML"],
    ["aistramList2nevo", "aistramList2LandXML"],
    ["aispol2nevo", "aispol2LandXML"],
    ["aclipplt2nevo", "aclipplt2ruxo", "aclipplt2LandXML"],
    ["ahtrazado2nevo", "ahtrazado2LandXML"],
    ["seleccionaEjeLandXML", "alandxml2nevo", "alandxml2nevoWCE", "seleccionaRasanteLandXML",
     "rlandxml2nevo", "rlandxml2nevoWCE", "seleccionaTransverLandXML", "tralandxml2nevo",
     "tralandxml2nevoWCE"],
    ["traruxo2nevo", "travelm2landxml"],
    ["istram2nevo", "traistram2landxml"],
    ["mxroad2nevo", "tramxroad2landxml"],
    ["htrazado2nevo", "trahtrazado2lamdxml"],
    ["clip2nevo", "traclip2landxml"],
    ["cliptrv2nevo", "tracliptrv2landxml"],
    ["rvelm2nevo", "rvelm2landxml"],
    ["ristram2nevo", "ristram2landxml"],
    ["rispol2nevo", "rispol2landxml"],
]


def arguments_of_entry_points():
    table = {}
    for line in (ROOT / "frame/entry_points.txt").read_text().splitlines():
        if line.startswith("#") or not line.strip():
            continue
        name, _result, arguments, state, _output, _help = line.split(" | ")
        if state in ("built", "readsOnly"):
            table[name] = arguments.split()
    return table


def settings_line(folder):
    settings = folder / "quelvar.ini"
    if not settings.is_file():
        return b""
    return settings.read_bytes().split(b"\n")[0].rstrip(b"\r")


def has_others(names):
    return any(name not in ("entrada", "lecturas", "salida") for name in names)


def seed(names, words, resolve):
    """(first line, input) of one conversion, or None when it reads no file."""
    extras, data = [], None
    for name, word in zip(names, words):
        if name in ("entrada", "lecturas"):
            path = resolve(word.lstrip("%"))
            if not path.is_file():
                return None
            data = path.read_bytes()
        elif name == "pathAp":
            extras.append(settings_line(resolve(word.lstrip("="))))
        elif name != "salida":
            extras.append(word.encode("latin-1", "replace"))
    if data is None:
        return None
    return b"|".join(extras), data


def seed_bytes(names, first_line, data):
    return first_line + b"\n" + data if has_others(names) else data


def conversions():
    """(operation, words, folder the paths are relative to) of every case and sample."""
    for cases in sorted((ROOT / "tests/data").glob("*/cases.txt")):
        for line in cases.read_text(encoding="latin-1").splitlines():
            if line.strip() and not line.startswith("#"):
                words = shlex.split(line)
                yield words[1], words[2:], ROOT / "tests/data"
    for line in (ROOT / "samples/demo.txt").read_text(encoding="latin-1").splitlines():
        if line.strip() and not line.startswith("#"):
            words = shlex.split(line)
            yield words[0], words[1:], ROOT


def recognition_seeds(folder):
    """Every sample and test input of at most 64 KiB, for the recogniser of
    file formats; how many."""
    folder.mkdir(parents=True, exist_ok=True)
    count = 0
    for base in (ROOT / "samples", ROOT / "tests/data"):
        for path in sorted(base.rglob("*")):
            if path.is_file() and path.stat().st_size <= 65536:
                data = path.read_bytes()
                (folder / hashlib.sha1(data).hexdigest()).write_bytes(data)
                count += 1
    return count


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    out = Path(sys.argv[1])
    table = arguments_of_entry_points()
    seeds = {}  # operation: [(first line, input)]
    for operation, words, base in conversions():
        names = table.get(operation)
        if names is None or not any(n in ("entrada", "lecturas") for n in names):
            continue
        found = seed(names, words, lambda word: base / word)
        if found is not None:
            seeds.setdefault(operation, []).append(found)
    inputs = {}  # operation: every input of its format
    for group in SAME_INPUT:
        shared = [data for member in group for _line, data in seeds.get(member, [])]
        for member in group:
            inputs[member] = shared
    count = 0
    for operation, found in seeds.items():
        names = table[operation]
        first_line = found[0][0]
        every = set(seed_bytes(names, line, data) for line, data in found)
        every |= set(seed_bytes(names, first_line, data) for data in inputs.get(operation, []))
        folder = out / operation
        folder.mkdir(parents=True, exist_ok=True)
        for data in every:
            (folder / hashlib.sha1(data).hexdigest()).write_bytes(data)
        count += len(every)
    count += recognition_seeds(out / "recognition")
    print(f"{count} semillas de {len(seeds)} operaciones y del reconocedor en {out}")


if __name__ == "__main__":
    main()
