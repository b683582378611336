#!/usr/bin/env bash
# Draws a sample alignment, profile, superelevation table, set of cross
# sections and point list with the command, has headless Chromium render each drawing, and checks that the
# picture shows it: enough dark ink, and the colours of the lines drawn.
#   check_drawing_screenshot.sh QUELCNV SAMPLES CHROMIUM
set -euo pipefail
command="$1"
samples="$2"
chromium="$3"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# NAME  INPUT  [OPTIONS...]
drawings=(
    "planta|$samples/alignment/eje.ruxo"
    "rasante|$samples/profile/rasante.ruxo"
    "peralte|$samples/profile/peralte.ispol"
    "transversales|$samples/crosssection/eje.ruxo"
    "puntos|$samples/fielddata/puntos.txt"
    "landxml|$samples/landxml/obra.xml"
)
for drawing in "${drawings[@]}"; do
    name="${drawing%%|*}"
    "$command" dibujo "${drawing#*|}" "$work/$name.svg" 2>/dev/null
    # --no-sandbox: CI runs as root, where Chromium's sandbox refuses to start.
    timeout 120 "$chromium" --headless --no-sandbox --disable-gpu --hide-scrollbars \
        --window-size=1200,900 --screenshot="$work/$name.png" "file://$work/$name.svg" \
        >"$work/$name.log" 2>&1 || { cat "$work/$name.log" >&2; exit 1; }
done

# Debian's Python, where python3-pil installs.
/usr/bin/python3 - "$work" <<'PYTHON'
import sys
from PIL import Image

# Ink: pixels clearly darker than the white page. Line colours: the blue of
# straights, grades and the left cross-fall, the red of arcs, vertical
# curves and the right cross-fall; points are black dots and their names.
blue, red = (0x1f, 0x4e, 0x9c), (0xc0, 0x39, 0x2b)

def near(pixel, colour):
    return all(abs(a - b) < 40 for a, b in zip(pixel, colour))

failed = False
for name, colours in [("planta", [blue, red]), ("rasante", [blue, red]),
                      ("peralte", [blue, red]), ("transversales", [blue]),
                      ("puntos", []), ("landxml", [blue, red])]:
    picture = Image.open(f"{sys.argv[1]}/{name}.png").convert("RGB")
    pixels = list(picture.getdata())
    ink = sum(1 for p in pixels if sum(p) < 600)
    counts = [sum(1 for p in pixels if near(p, c)) for c in colours]
    print(f"{name}: {picture.size[0]}x{picture.size[1]}, {ink} ink pixels, colours {counts}")
    if ink < 3000 or min(counts, default=150) < 150:
        print(f"{name}: the screenshot does not show the drawing", file=sys.stderr)
        failed = True
sys.exit(1 if failed else 0)
PYTHON
