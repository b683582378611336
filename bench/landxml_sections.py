#!/usr/bin/env python3
"""What a surveyor would script instead of tralandxml2nevoWCE, for the benchmark:
the points of one surface of one alignment's cross sections, as RUXO lines
sorted by station and offset, through the standard library's expat binding.

    landxml_sections.py ALIGNMENT SURFACE INPUT.xml OUTPUT.ruxo
"""

import sys
import xml.parsers.expat


def main(alignment, surface, source, target):
    points = []
    state = {"alignment": False, "surface": False, "desc": "", "sta": 0.0}
    text = []

    def start(name, attrs):
        if name == "Alignment":
            state["alignment"] = attrs.get("name") == alignment
        elif name == "CrossSect":
            state["sta"] = float(attrs.get("sta", state["sta"]))
        elif name == "CrossSectSurf":
            state["surface"] = attrs.get("name") == surface
            state["desc"] = attrs.get("desc", "")
        elif name == "PntList2D":
            text.clear()

    def end(name):
        if name == "PntList2D" and state["alignment"] and state["surface"]:
            numbers = "".join(text).split()
            sign = -1.0 if state["desc"].lower() == "left" else 1.0
            for i in range(0, len(numbers) - 1, 2):
                points.append((state["sta"], sign * float(numbers[i]), float(numbers[i + 1]),
                               state["desc"]))

    parser = xml.parsers.expat.ParserCreate()
    parser.StartElementHandler = start
    parser.EndElementHandler = end
    parser.CharacterDataHandler = text.append
    with open(source, "rb") as f:
        parser.ParseFile(f)
    points.sort(key=lambda p: (p[0], p[1]))
    with open(target, "w") as out:
        out.writelines("%8.3f %8.3f %8.3f %s\n" % p for p in points)


if __name__ == "__main__":
    main(*sys.argv[1:5])
