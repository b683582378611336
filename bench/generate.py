#!/usr/bin/env python3
"""Seeded generators of large input files for the converter benchmarks.

Every input format that a converter of quelcnv reads has one generator here.
Each one writes a file of about the size asked for, made of the same kind of
records as the matching sample under samples/, so that a file eight times as
large holds eight times as many records. The same seed always gives the same
bytes. Text is ASCII with "\\n" line ends.

As a module (for the benchmark driver):

    from generate import FORMATS
    FORMATS["ruxo_sections"].write("big.ruxo", 59_000_000, seed=1)

Each Format has a name, a one-line description and
``write(path, size_bytes, seed)``; bench/run.py says which converters read
which format.

As a command:

    python3 bench/generate.py FORMAT SIZE_MB SEED OUTPUT_PATH
    python3 bench/generate.py --list

SIZE_MB counts megabytes of 1,000,000 bytes.

Limits worth knowing: the fixed-column formats keep their columns only while
the numbers fit them. The ISTRAM alignment holds stations up to 99,999 km
(about 70 MB of file) and numbers its elements modulo 100,000; the CLIP TER
stations drop to one decimal beyond 999,999.99 m.
"""

from __future__ import annotations

import math
import random
import sys
from dataclasses import dataclass, field
from typing import Callable, Iterator, List, Optional, Sequence, Tuple

MB = 1_000_000

GRADS_PER_RADIAN = 200.0 / math.pi


# ---------------------------------------------------------------------------
# Output


class _Sink:
    """Collects text and writes it to the binary file in large pieces."""

    FLUSH_AT = 1 << 20

    def __init__(self, stream) -> None:
        self._stream = stream
        self._parts: List[str] = []
        self._pending = 0
        self.written = 0

    def put(self, text: str) -> None:
        self._parts.append(text)
        n = len(text)
        self._pending += n
        self.written += n
        if self._pending >= self.FLUSH_AT:
            self.flush()

    def flush(self) -> None:
        if self._parts:
            self._stream.write("".join(self._parts).encode("ascii"))
            self._parts = []
            self._pending = 0


def _rng(seed: int, part: str) -> random.Random:
    """An independent random stream for one part of a file (string seeds
    are hashed with SHA-512, so they do not depend on the interpreter run)."""
    return random.Random(f"{seed}/{part}")


def _grads(theta: float) -> float:
    """A direction in radians as an azimuth in grads within [0, 400); a value
    that would print as 400 becomes 0."""
    g = (theta * GRADS_PER_RADIAN) % 400.0
    if g >= 399.99995:
        g = 0.0
    return g


# ---------------------------------------------------------------------------
# Ground model shared by the cross-section formats


class _Ground:
    """Natural ground around 400 m: slow undulations along the road, a cross
    fall that changes with the station, and some roughness at every point."""

    def __init__(self, rng: random.Random, mean: float = 404.0) -> None:
        self._rng = rng
        self._mean = mean
        self._p = [rng.uniform(0.0, 2.0 * math.pi) for _ in range(3)]

    def heights(self, station: float, offsets: Sequence[float]) -> List[float]:
        p = self._p
        base = (self._mean + 5.0 * math.sin(station / 900.0 + p[0])
                + 2.0 * math.sin(station / 170.0 + p[1]))
        fall = 0.05 * math.sin(station / 430.0 + p[2])
        r = self._rng.random
        return [base + fall * o + 0.8 * r() - 0.4 for o in offsets]


# The motorway section: 100 points, one metre apart, from -50 to +49.
_WIDE_OFFSETS = [float(o) for o in range(-50, 50)]


def _code_for(offset: float) -> str:
    """The point code of a motorway section point, by its offset."""
    a = abs(offset)
    if a == 0.0:
        return "EJE"
    if a == 6.0:
        return "BORDE"
    if a == 8.0:
        return "CUNETA"
    if a == 15.0:
        return "PIE"
    return "TN"


def _sections_by_size(sink: _Sink, size: int, make_text: Callable[[float], str],
                      start: float = 1000.0, step: float = 5.0) -> None:
    """Writes sections, one every `step` metres, until the file reaches `size`."""
    k = 0
    while sink.written < size:
        sink.put(make_text(start + step * k))
        k += 1


# ---------------------------------------------------------------------------
# Cross-section formats


def _ruxo_sections(sink: _Sink, size: int, seed: int) -> None:
    # One point a line: station offset elevation code. Whole sections of 100 points; 2950 bytes a section puts 2,000,000
    # points in 59 MB.
    sections = max(1, round(size / 2950))
    ground = _Ground(_rng(seed, "ground"))
    template = "".join(f"@ {o:.3f} %.3f P{i}\n" for i, o in enumerate(_WIDE_OFFSETS))
    for k in range(sections):
        s = 1000.0 + 5.0 * k
        sink.put(template.replace("@", f"{s:.3f}") % tuple(ground.heights(s, _WIDE_OFFSETS)))


def _comma_sections(sink: _Sink, size: int, seed: int) -> None:
    # One point a line: station,offset,elevation,code.
    ground = _Ground(_rng(seed, "ground"))
    template = "".join(f"@,{o:.3f},%.3f,{_code_for(o)}\n" for o in _WIDE_OFFSETS)

    def section(s: float) -> str:
        return template.replace("@", f"{s:.3f}") % tuple(ground.heights(s, _WIDE_OFFSETS))

    _sections_by_size(sink, size, section)


def _pairs_template(distances: Sequence[float], per_line: int) -> str:
    """Lines of "distance %.3f" pairs, `per_line` pairs to a line."""
    lines = []
    for i in range(0, len(distances), per_line):
        lines.append(" ".join(f"{d:.3f} %.3f" for d in distances[i:i + per_line]) + "\n")
    return "".join(lines)


def _istram_sections(sink: _Sink, size: int, seed: int) -> None:
    # A title, then for every section a record line (4, 1, two zeros, the
    # station, a zero), a line whose last two numbers count the points on
    # the left and on the right, and the points as distance elevation pairs,
    # five to a line.
    ground = _Ground(_rng(seed, "ground"))
    # Left points are given by their distance, outwards from the axis, and
    # the right ones (the axis point among them) the same way.
    left = [-float(d) for d in range(1, 51)]
    right = [float(d) for d in range(0, 50)]
    order = left + right
    points = (_pairs_template([-o for o in left], 5) + _pairs_template(right, 5))
    counts = f"0 0 0 {len(left)} {len(right)}\n"
    sink.put("ISPOL TRANSVERSALES EJE 1\n")

    def section(s: float) -> str:
        return (f"4 1 0.000 0.000 {s:.3f} 0.000\n" + counts
                + points % tuple(ground.heights(s, order)))

    _sections_by_size(sink, size, section)


def _mxroad_sections(sink: _Sink, size: int, seed: int) -> None:
    # A title, then for every section a header (station, number of points)
    # and the points as offset elevation pairs, three to a line.
    ground = _Ground(_rng(seed, "ground"))
    points = _pairs_template(_WIDE_OFFSETS, 3)
    sink.put("MXROAD CROSS SECTIONS  EJE 1\n")

    def section(s: float) -> str:
        return (f"{s:10.3f}{len(_WIDE_OFFSETS):5d}  SECCION\n"
                + points % tuple(ground.heights(s, _WIDE_OFFSETS)))

    _sections_by_size(sink, size, section)


def _htrazado_sections(sink: _Sink, size: int, seed: int) -> None:
    # "PK: station" opens a section; then one "offset , elevation" a line.
    ground = _Ground(_rng(seed, "ground"))
    points = "".join(f"{o:.3f} , %.3f\n" for o in _WIDE_OFFSETS)

    def section(s: float) -> str:
        return f"PK: {s:.3f}\n" + points % tuple(ground.heights(s, _WIDE_OFFSETS))

    _sections_by_size(sink, size, section)


# The ten column points of a CLIP TER section, left to right.
_CLIP_OFFSETS = [-25.0, -15.0, -9.0, -6.5, -3.5, 3.5, 6.5, 9.0, 15.0, 25.0]


def _clip_ter_sections(sink: _Sink, size: int, seed: int) -> None:
    # A section is a distance line and an elevation line. The station stands
    # in columns 12-20 and the axis elevation in 13-20; the ten points in
    # 8-character fields from columns 26, 36, ... 116, in both lines.
    ground = _Ground(_rng(seed, "ground"))
    fields = "     " + "  ".join("%8.3f" for _ in _CLIP_OFFSETS) + "\n"
    distances = fields % tuple(_CLIP_OFFSETS)
    with_axis = [0.0] + _CLIP_OFFSETS
    sink.put("TRANSVERSALES CLIP  EJE 1\n\n")

    def section(s: float) -> str:
        station = f"{s:16.2f}" if s < 999999.995 else f"{s:16.1f}"
        z = ground.heights(s, with_axis)
        return ("DIST" + station + distances
                + "COTA" + f"{z[0]:16.3f}" + fields % tuple(z[1:]))

    _sections_by_size(sink, size, section, start=0.0)


def _clip_trv_sections(sink: _Sink, size: int, seed: int) -> None:
    # The *TRV header and a title line, then for every section
    # "station , count" and one offset,elevation,code line a point.
    ground = _Ground(_rng(seed, "ground"))
    points = "".join(f"{o:.3f},%.3f,{_code_for(o)}\n" for o in _WIDE_OFFSETS)
    head = f" , {len(_WIDE_OFFSETS)}\n"
    sink.put("*TRV EJE 1\ntransversales de CLIP\n")

    def section(s: float) -> str:
        return f"{s:.3f}" + head + points % tuple(ground.heights(s, _WIDE_OFFSETS))

    _sections_by_size(sink, size, section)


def _cartomap_sections_pk(sink: _Sink, size: int, seed: int) -> None:
    # A title, then '"PK", station' opens a section; one "offset, elevation"
    # a line.
    ground = _Ground(_rng(seed, "ground"))
    points = "".join(f"{o:.3f}, %.3f\n" for o in _WIDE_OFFSETS)
    sink.put("Perfiles transversales CartoMAP\n")

    def section(s: float) -> str:
        return f'"PK", {s:.3f}\n' + points % tuple(ground.heights(s, _WIDE_OFFSETS))

    _sections_by_size(sink, size, section)


def _cartomap_sections_distance(sink: _Sink, size: int, seed: int) -> None:
    # A title naming the columns, then a station written as km+m opens a
    # section; every point line gives offset, X, Y, elevation and code. The
    # road runs straight here, at 50 grads, for the plane coordinates.
    ground = _Ground(_rng(seed, "ground"))
    points = "".join(f"{o:.3f} %.3f %.3f %.3f {_code_for(o)}\n" for o in _WIDE_OFFSETS)
    along = math.sin(50.0 / GRADS_PER_RADIAN)
    across = math.cos(50.0 / GRADS_PER_RADIAN)
    sink.put("Distancia Desplazamiento X Y Cota Codigo\n")

    def section(s: float) -> str:
        x0 = 500000.0 + (s - 1000.0) * along
        y0 = 4400000.0 + (s - 1000.0) * across
        values: List[float] = []
        for o, z in zip(_WIDE_OFFSETS, ground.heights(s, _WIDE_OFFSETS)):
            values += (x0 + o * across, y0 - o * along, z)
        km, m = divmod(s, 1000.0)
        return f"{int(km)}+{m:07.3f}\n" + points % tuple(values)

    _sections_by_size(sink, size, section)


# ---------------------------------------------------------------------------
# Plan geometry shared by the alignment formats

LINE, SPIRAL_IN, ARC, SPIRAL_OUT = range(4)


@dataclass(slots=True)
class _Element:
    kind: int
    station: float
    x: float
    y: float
    theta: float          # direction at the start, radians from +y towards +x
    length: float
    radius: float = 0.0   # signed radius of the arc, or of the spiral's curved end
    parameter: float = 0.0
    end_x: float = 0.0
    end_y: float = 0.0
    end_theta: float = 0.0
    center_x: float = 0.0
    center_y: float = 0.0

    @property
    def azimuth(self) -> float:
        return _grads(self.theta)

    @property
    def end_azimuth(self) -> float:
        return _grads(self.end_theta)

    def tangents_meet(self) -> Tuple[float, float]:
        """Where the tangents at the two ends meet (the element's PI)."""
        ax, ay = math.sin(self.theta), math.cos(self.theta)
        bx, by = math.sin(self.end_theta), math.cos(self.end_theta)
        det = ax * by - ay * bx
        if abs(det) < 1e-12:
            return (self.x + self.end_x) / 2.0, (self.y + self.end_y) / 2.0
        u = ((self.end_x - self.x) * by - (self.end_y - self.y) * bx) / det
        return self.x + u * ax, self.y + u * ay


def _spiral_local(length: float, a: float) -> Tuple[float, float, float]:
    """Local coordinates of the end of a clothoid that starts straight: the
    distance along the start tangent, the distance off it, and the turned
    angle in radians."""
    t = length * length / (2.0 * a * a)
    t2 = t * t
    x = length * (1.0 - t2 / 10.0 + t2 * t2 / 216.0 - t2 * t2 * t2 / 9360.0
                  + t2 * t2 * t2 * t2 / 685440.0)
    y = length * (t / 3.0 - t * t2 / 42.0 + t * t2 * t2 / 1320.0
                  - t * t2 * t2 * t2 / 75600.0)
    return x, y, t


class _Road:
    """A winding road: straight, entry clothoid, arc, exit clothoid, again and
    again. Each curve turns towards a wandering target point, so the road
    stays within `reach` metres of where it started."""

    def __init__(self, rng: random.Random, station: float = 0.0, x: float = 500000.0,
                 y: float = 4400000.0, azimuth: float = 50.0, reach: float = 40000.0) -> None:
        self._rng = rng
        self.station = station
        self.x = x
        self.y = y
        self.theta = azimuth / GRADS_PER_RADIAN
        self._home = (x, y)
        self._reach = reach
        self._target = self._new_target()

    def _new_target(self) -> Tuple[float, float]:
        rnd = self._rng.random
        return (self._home[0] + self._reach * (2.0 * rnd() - 1.0),
                self._home[1] + self._reach * (2.0 * rnd() - 1.0))

    def straight(self, length: Optional[float] = None) -> _Element:
        if length is None:
            length = round(50.0 + 350.0 * self._rng.random(), 3)
        th = self.theta
        e = _Element(LINE, self.station, self.x, self.y, th, length, 0.0, 0.0,
                     self.x + length * math.sin(th), self.y + length * math.cos(th), th)
        self.station += length
        self.x, self.y = e.end_x, e.end_y
        return e

    def _deflection(self) -> float:
        """The signed turn of the next curve, in grads."""
        rnd = self._rng.random
        tx, ty = self._target
        if math.hypot(tx - self.x, ty - self.y) < 3000.0:
            self._target = self._new_target()
            tx, ty = self._target
        error = math.atan2(tx - self.x, ty - self.y) - self.theta
        error = (error + math.pi) % (2.0 * math.pi) - math.pi
        d = max(-60.0, min(60.0, error * GRADS_PER_RADIAN)) * (0.6 + 0.4 * rnd())
        if abs(d) < 10.0:
            d = (10.0 + 15.0 * rnd()) * (1.0 if rnd() < 0.5 else -1.0)
        return d

    def group(self) -> List[_Element]:
        """The next straight and the curve that follows it (four elements)."""
        rnd = self._rng.random
        first = self.straight()
        turn = self._deflection() / GRADS_PER_RADIAN
        sign = 1.0 if turn > 0 else -1.0
        radius = float(round(200.0 + 1000.0 * rnd()))
        total = abs(turn) * radius                     # spiral + arc lengths
        spiral = round(min(40.0 + 110.0 * rnd(), 0.35 * total), 3)
        arc = round(total - spiral, 3)
        a = math.sqrt(radius * spiral)
        lx, ly, tau = _spiral_local(spiral, a)
        rs = sign * radius
        sin, cos = math.sin, math.cos

        # Entry clothoid: from the straight into the radius.
        s0, x0, y0, th0 = self.station, self.x, self.y, self.theta
        th1 = th0 + sign * tau
        x1 = x0 + lx * sin(th0) + sign * ly * cos(th0)
        y1 = y0 + lx * cos(th0) - sign * ly * sin(th0)
        entry = _Element(SPIRAL_IN, s0, x0, y0, th0, spiral, rs, a, x1, y1, th1)

        # Arc.
        s1 = s0 + spiral
        swept = arc / rs
        chord = 2.0 * rs * sin(swept / 2.0)
        th2 = th1 + swept
        x2 = x1 + chord * sin(th1 + swept / 2.0)
        y2 = y1 + chord * cos(th1 + swept / 2.0)
        curve = _Element(ARC, s1, x1, y1, th1, arc, rs, 0.0, x2, y2, th2,
                         x1 + rs * cos(th1), y1 - rs * sin(th1))

        # Exit clothoid: the entry one run backwards from its straight end.
        s2 = s1 + arc
        th3 = th2 + sign * tau
        x3 = x2 + lx * sin(th3) - sign * ly * cos(th3)
        y3 = y2 + lx * cos(th3) + sign * ly * sin(th3)
        leave = _Element(SPIRAL_OUT, s2, x2, y2, th2, spiral, rs, a, x3, y3, th3)

        self.station, self.x, self.y, self.theta = s2 + spiral, x3, y3, th3
        return [first, entry, curve, leave]


def _batch_sizes(sink: _Sink, size: int, first: int = 16, most: int = 4096) -> Iterator[int]:
    """How many records the next batch should hold so that the file ends
    close to `size`: a few at first, then as many as the bytes per record
    of the last batch say will fit in what remains, growing at most
    fourfold from one batch to the next (records get longer as stations
    grow, so the estimate is refined on the way)."""
    n = first
    while sink.written < size:
        before = sink.written
        yield n
        made = sink.written - before
        if made <= 0:
            break
        n = max(1, min(most, 4 * n, int((size - sink.written) * n / made) + 1))


def _road_batches(seed: int, size: int, sink: _Sink, station: float = 0.0
                  ) -> Iterator[List[_Element]]:
    """The elements of a road long enough to fill the file to `size`, in
    batches of whole curve groups; the last batch is the closing straight.
    The caller writes each batch before asking for the next one."""
    road = _Road(_rng(seed, "road"), station=station)
    for n in _batch_sizes(sink, size, most=1024):
        batch: List[_Element] = []
        for _ in range(n):
            batch += road.group()
        yield batch
    yield [road.straight()]


def _road_in_groups(seed: int, groups: int, station: float = 0.0) -> Iterator[_Element]:
    """The elements of a road of a given number of curve groups and a
    closing straight."""
    road = _Road(_rng(seed, "road"), station=station)
    for _ in range(groups):
        yield from road.group()
    yield road.straight()


# ---------------------------------------------------------------------------
# Alignment formats


def _ruxo_line(e: _Element) -> str:
    # station x y azimuth parameter radius; a clothoid that leads into a
    # curve carries the curve's radius, one that leaves it carries 0.
    kind = e.kind
    if kind == LINE:
        tail = "0.000 0.000"
    elif kind == SPIRAL_IN:
        tail = f"{e.parameter:.3f} {e.radius:.3f}"
    elif kind == ARC:
        tail = f"0.000 {e.radius:.3f}"
    else:
        tail = f"{e.parameter:.3f} 0.000"
    return f"{e.station:.3f} {e.x:.3f} {e.y:.3f} {e.azimuth:.4f} {tail}\n"


def _ruxo_alignment(sink: _Sink, size: int, seed: int) -> None:
    # One line per element start; the last line is the end point.
    last = None
    for batch in _road_batches(seed, size, sink):
        sink.put("".join([_ruxo_line(e) for e in batch]))
        last = batch[-1]
    sink.put(f"{last.station + last.length:.3f} {last.end_x:.3f} {last.end_y:.3f} "
             f"{last.end_azimuth:.4f} 0.000 0.000\n")


_ISTRAM_WORDS = {LINE: "RECTA", SPIRAL_IN: "CLOT.", ARC: "CIRC.", SPIRAL_OUT: "CLOT."}


def _istram_alignment(sink: _Sink, size: int, seed: int) -> None:
    # Fixed columns: element word in 7-11, station 23-34, x 36-47, y 49-60,
    # radius 62-73, parameter 75-86, azimuth 88-99; lines of 101 characters.
    sink.put("LISTADO DE EJE EN PLANTA" + " " * 37 + "EJE: eje de prueba\n\n")
    sink.put("    N TIPO            P.K.            X            Y        RADIO"
             "    PARAMETRO       AZIMUT\n")
    n = 0
    last = None
    for batch in _road_batches(seed, size, sink):
        lines = []
        for e in batch:
            n += 1
            r = e.radius if e.kind == ARC else 0.0
            a = e.parameter if e.kind in (SPIRAL_IN, SPIRAL_OUT) else 0.0
            lines.append(f"{n % 100000:5d} {_ISTRAM_WORDS[e.kind]}{'':11s}{e.station:12.3f} "
                         f"{e.x:12.3f} {e.y:12.3f} {r:12.3f} {a:12.3f} {e.azimuth:12.4f}  \n")
        sink.put("".join(lines))
        last = batch[-1]
    total = last.station + last.length
    sink.put(f"{'':5s} {'':5s}{'':11s}{total:12.3f} {last.end_x:12.3f} {last.end_y:12.3f} "
             f"{0.0:12.3f} {0.0:12.3f} {last.end_azimuth:12.4f}  \n")
    sink.put(f"  LONGITUD TOTAL DEL EJE: {total:.3f}\n")


def _istram_listing(sink: _Sink, size: int, seed: int) -> None:
    # Number, word, length, station, x, y, then the radius of an arc or the
    # parameter of a clothoid (blank for a straight), and the azimuth.
    sink.put("1 2\nLISTADO DE ELEMENTOS DEL EJE 1\n")
    sink.put(" NUM  TIPO    LONGITUD      P.K.           X             Y"
             "   RADIO/PARAM    AZIMUT\n")
    n = 0
    total = 0.0
    for batch in _road_batches(seed, size, sink):
        lines = []
        for e in batch:
            n += 1
            if e.kind == ARC:
                value = f"{e.radius:10.3f}"
            elif e.kind == LINE:
                value = " " * 10
            else:
                value = f"{e.parameter:10.3f}"
            lines.append(f"{n:4d}  {_ISTRAM_WORDS[e.kind]} {e.length:9.3f} {e.station:10.3f} "
                         f"{e.x:13.3f} {e.y:13.3f} {value} {e.azimuth:10.4f}\n")
            total += e.length
        sink.put("".join(lines))
    sink.put(f" TOTAL     {total:9.3f}\n")


def _ispol_line(e: _Element) -> str:
    # Codes: 1 straight; 2 and 3 arcs turning right and left; 4 and 7
    # clothoids into a right or left curve; 5 and 6 clothoids out of them.
    right = e.radius > 0.0          # turning towards growing azimuths
    kind = e.kind
    if kind == LINE:
        code, value = 1, 0.0
    elif kind == SPIRAL_IN:
        code, value = (4 if right else 7), e.parameter
    elif kind == ARC:
        code, value = (2 if right else 3), abs(e.radius)
    else:
        code, value = (5 if right else 6), e.parameter
    return (f"{code} {e.length:9.3f} {e.x:12.3f} {e.y:12.3f} 0 0 "
            f"{e.azimuth:9.4f} {value:9.3f}\n")


def _ispol_alignment(sink: _Sink, size: int, seed: int) -> None:
    # The start station, then one line per element: code, length, start
    # point, two unused zeros, azimuth, and the radius or the parameter.
    sink.put("# eje de prueba\n0.000\n")
    for batch in _road_batches(seed, size, sink):
        sink.put("".join([_ispol_line(e) for e in batch]))
    sink.put("# fin\n")


def _key_point_line(e: _Element) -> str:
    # station, x, y, azimuth, radius, parameter of the element that starts
    # at the key point, separated by tabs.
    r = e.radius if e.kind == ARC else 0.0
    a = e.parameter if e.kind in (SPIRAL_IN, SPIRAL_OUT) else 0.0
    return f"{e.station:.3f}\t{e.x:.3f}\t{e.y:.3f}\t{e.azimuth:.4f}\t{r:.3f}\t{a:.3f}\n"


def _htrazado_alignment(sink: _Sink, size: int, seed: int) -> None:
    # A first line with the number of key points and a 0, then the key
    # points. The count comes first, so the number of curve groups is set
    # from the size (about 58 bytes a key point).
    groups = max(1, round(size / 232))
    sink.put(f"{4 * groups + 2} 0\n")
    lines = []
    last = None
    for e in _road_in_groups(seed, groups):
        lines.append(_key_point_line(e))
        if len(lines) >= 4096:
            sink.put("".join(lines))
            lines = []
        last = e
    lines.append(f"{last.station + last.length:.3f}\t{last.end_x:.3f}\t{last.end_y:.3f}\t"
                 f"{last.end_azimuth:.4f}\t0.000\t0.000\n")
    sink.put("".join(lines))


def _clip_plt_line(e: _Element) -> str:
    # The key point where the element ends, with the element's radius and
    # parameter.
    kind = e.kind
    if kind == LINE:
        tail = "0.000, 0.000"
    elif kind == SPIRAL_IN:
        tail = f"{e.radius:.3f}, {e.parameter:.3f}"
    elif kind == ARC:
        tail = f"{e.radius:.3f}, 0.000"
    else:
        tail = f"0.000, {e.parameter:.3f}"
    return (f"{e.station + e.length:.3f}, {e.end_x:.3f}, {e.end_y:.3f}, "
            f"{e.end_azimuth:.4f}, {tail}\n")


def _clip_plt_alignment(sink: _Sink, size: int, seed: int) -> None:
    # One line per key point: station, x, y, azimuth, then the radius and
    # the parameter of the element that ends there.
    sink.put("* eje de prueba, CLIP PLT\n# P.K., X, Y, AZIMUT, RADIO, PARAMETRO\n")
    first = True
    for batch in _road_batches(seed, size, sink):
        if first:
            e = batch[0]
            sink.put(f"{e.station:.3f}, {e.x:.3f}, {e.y:.3f}, {e.azimuth:.4f}, 0.000, 0.000\n")
            first = False
        sink.put("".join([_clip_plt_line(e) for e in batch]))


# ---------------------------------------------------------------------------
# Vertical profiles

_Vertex = Tuple[float, float, float, float, float, float]


class _Grade:
    """Walks a grade line: vertices 150 to 600 m apart, grades within 5 %
    that change at every vertex, and a parabolic curve laid at each inner
    vertex, short enough to fit between its neighbours. A vertex is
    (station, elevation, grade in, grade out, curve length, kv)."""

    def __init__(self, rng: random.Random, station: float = 0.0, elevation: float = 400.0) -> None:
        self._rng = rng
        self.station = station
        self.elevation = elevation
        self._grade_in: Optional[float] = None
        self._gap_in = 0.0

    def vertices(self, n: int, gap: Optional[float] = None) -> List[_Vertex]:
        """The next `n` vertices, from where the walk stands; each gap to the
        following vertex is `gap` when given, else a random distance."""
        rnd = self._rng.random
        s, z = self.station, self.elevation
        g_in, gap_in = self._grade_in, self._gap_in
        out: List[_Vertex] = []
        for _ in range(n):
            d = 150.0 + 450.0 * rnd() if gap is None else gap
            step = 0.006 + 0.029 * rnd()
            g = 0.0 if g_in is None else g_in
            if g + step > 0.05:
                g_out = g - step
            elif g - step < -0.05:
                g_out = g + step
            elif z > 650.0:
                g_out = g - step
            elif z < 150.0:
                g_out = g + step
            else:
                g_out = g + step if rnd() < 0.5 else g - step
            if g_in is None:
                out.append((s, z, 0.0, g_out, 0.0, 0.0))
            else:
                change = abs(g_out - g_in)
                length = min((3000.0 + 17000.0 * rnd()) * change, 0.9 * min(d, gap_in))
                out.append((s, z, g_in, g_out, length, length / change))
            s += d
            z += g_out * d
            g_in, gap_in = g_out, d
        self.station, self.elevation = s, z
        self._grade_in, self._gap_in = g_in, gap_in
        return out

    def last(self) -> _Vertex:
        """The closing vertex, where the walk stands, with no curve."""
        return (self.station, self.elevation, self._grade_in or 0.0, 0.0, 0.0, 0.0)


def _vertex_batches(sink: _Sink, size: int, seed: int
                    ) -> Iterator[Tuple[List[_Vertex], bool]]:
    """The vertices of a grade line long enough to fill the file to `size`,
    in batches, each with a flag that tells the last batch: the closing
    vertex alone. The caller writes each batch before asking for the next."""
    walk = _Grade(_rng(seed, "grade"))
    for n in _batch_sizes(sink, size):
        yield walk.vertices(n), False
    yield [walk.last()], True


def _ruxo_profile(sink: _Sink, size: int, seed: int) -> None:
    # station,elevation,curve length
    for batch, _ in _vertex_batches(sink, size, seed):
        sink.put("".join([f"{s:.3f},{z:.3f},{length:.3f}\n"
                          for s, z, _, _, length, _ in batch]))


def _velm_profile(sink: _Sink, size: int, seed: int) -> None:
    # station, elevation, kv, tangent and external, separated by tabs; a
    # comment line after the first vertex.
    first = True
    for batch, _ in _vertex_batches(sink, size, seed):
        lines = [f"{s:.3f}\t{z:.3f}\t{kv:.3f}\t{length / 2.0:.3f}\t"
                 f"{abs(g_out - g_in) * length / 8.0:.3f}\n"
                 for s, z, g_in, g_out, length, kv in batch]
        if first:
            lines.insert(1, "# PK, cota, kv, tangente, flecha\n")
            first = False
        sink.put("".join(lines))


def _listing_lines(batch: List[_Vertex], incoming: bool) -> str:
    # station, elevation, start and end of the vertical curve (station and
    # elevation of each), grade in percent, kv.
    out = []
    for s, z, g_in, g_out, length, kv in batch:
        t = length / 2.0
        grade = g_in if incoming else g_out
        out.append(f"{s:10.3f} {z:8.3f} {s - t:8.3f} {z - g_in * t:8.3f} {s + t:8.3f} "
                   f"{z + g_out * t:8.3f} {100.0 * grade:8.3f} {kv:9.3f}\n")
    return "".join(out)


_LISTING_TITLES = ("#       PK     COTA   PK ENT COTA ENT   PK SAL COTA SAL  PEND(%)        KV\n")


def _istram_profile(sink: _Sink, size: int, seed: int) -> None:
    # The grade on a vertex's line is that of the straight leaving it.
    sink.put("# ISTRAM - listado de vertices de la rasante 1\n" + _LISTING_TITLES)
    for batch, _ in _vertex_batches(sink, size, seed):
        sink.put(_listing_lines(batch, incoming=False))


def _ispol_profile(sink: _Sink, size: int, seed: int) -> None:
    # The grade on a vertex's line is that of the straight arriving at it.
    sink.put("# RASANTE EJE 1\n" + _LISTING_TITLES)
    for batch, _ in _vertex_batches(sink, size, seed):
        sink.put(_listing_lines(batch, incoming=True))
    sink.put("# FIN\n")


def _cartomap_profile(sink: _Sink, size: int, seed: int) -> None:
    # Keyword, station, elevation and kv, negative on a crest. A blank always
    # parts the keyword from the station, however long the station.
    sink.put("RASANTE EJE 1\nTipo         PK       Cota         KV\n")
    word = "INICIO "
    for batch, closing in _vertex_batches(sink, size, seed):
        if closing:
            word = "FINAL  "
        lines = []
        for s, z, g_in, g_out, _, kv in batch:
            signed = -kv if g_out < g_in else kv
            lines.append(f"{word} {s:9.3f}{z:10.3f}{signed:11.3f}\n")
            word = "VERTICE"
        sink.put("".join(lines))


# ---------------------------------------------------------------------------
# Superelevation


def _cross_fall_batches(sink: _Sink, size: int, seed: int
                        ) -> Iterator[List[Tuple[float, float, float]]]:
    """Rows of (station, left fall, right fall) in percent, in batches: the
    normal crown on the straights, and at each curve a turn to full
    superelevation and back, towards the inside of the curve. Five rows a
    curve; the last batch is the crown row that closes the table."""
    rnd = _rng(seed, "falls").random
    s = 0.0
    inside = 1.0
    for n in _batch_sizes(sink, size):
        rows = []
        for _ in range(n):
            full = round(3.0 + 5.0 * rnd(), 1) * inside
            ramp = round(30.0 + 50.0 * rnd(), 1)
            rows.append((s, 2.0, -2.0))
            s += round(50.0 + 250.0 * rnd(), 1)
            rows.append((s, 2.0, -2.0))
            s += ramp / 2.0
            rows.append((s, -full / 2.0, full / 2.0))
            s += ramp / 2.0
            rows.append((s, -full, full))
            s += round(60.0 + 340.0 * rnd(), 1)
            rows.append((s, -full, full))
            s += ramp
            if rnd() < 0.7:
                inside = -inside
        yield rows
    yield [(s, 2.0, -2.0)]


def _ispol_superelevation(sink: _Sink, size: int, seed: int) -> None:
    # Row number, station, left, right, and on every other row the crown.
    sink.put("PERALTES EJE 1\n# n\tPK\tizq\tdcha\tbombeo\n")
    n = 0
    for rows in _cross_fall_batches(sink, size, seed):
        lines = []
        for s, left, right in rows:
            n += 1
            crown = "\t-2.000" if n % 2 == 0 else ""
            lines.append(f"{n}\t{s:.3f}\t{left:.3f}\t{right:.3f}{crown}\n")
        sink.put("".join(lines))


def _clip_superelevation(sink: _Sink, size: int, seed: int) -> None:
    # station, left fall, right fall
    for rows in _cross_fall_batches(sink, size, seed):
        sink.put("".join([f"{s:.3f} {left:.3f} {right:.3f}\n" for s, left, right in rows]))


# ---------------------------------------------------------------------------
# Field data


def _level_readings(sink: _Sink, size: int, seed: int) -> None:
    # A KL500 job: the start stamp, then for every set up a back sight, two
    # fore sights and a second back sight (g, i, j, h), then the end stamp.
    # Readings and distances are whole instrument units: with unit code 2
    # tenths of a millimetre and centimetres, with code 3 hundredths of a
    # millimetre and millimetres.
    rnd = _rng(seed, "level").random
    sink.put("c,0,KL500,604233,0711160830,2,1,0,0,0\n")
    point = 1000
    for n in _batch_sizes(sink, size):
        lines = []
        for _ in range(n):
            if rnd() < 0.2:
                unit, rf, df = 3, 100000.0, 1000.0
            else:
                unit, rf, df = 2, 10000.0, 100.0
            back = int((0.4 + 3.4 * rnd()) * rf)
            fore = int((0.4 + 3.4 * rnd()) * rf)
            db = int((5.0 + 40.0 * rnd()) * df)
            dfo = int((5.0 + 40.0 * rnd()) * df)
            jitter = int(5.0 * rnd()) - 2
            nxt = point + 1
            lines.append(f"g,1{unit},{back},{db},0,0,0,{point},1\n"
                         f"i,1{unit},{fore},{dfo},0,0,0,{nxt},1\n"
                         f"j,1{unit},{fore + jitter},{dfo},0,0,0,{nxt},1\n"
                         f"h,1{unit},{back - jitter},{db + 1},0,0,0,{point},1\n")
            point = nxt
        sink.put("".join(lines))
    sink.put("v,0,0,0711161745,0\n")


_POINT_CODES = ("BASE", "EJE", "BORDE", "CUNETA", "POZO", "ARBOL", "FAROLA", "TN", "MURO")


def _points(sink: _Sink, size: int, seed: int) -> None:
    # Number, X, Y, Z and, on most lines, a code; the points follow a survey
    # that walks across the site.
    rnd = _rng(seed, "points").random
    codes = [""] * 3 + [" " + c for c in _POINT_CODES]     # a quarter without
    nc = len(codes)
    x, y, z = 312045.125, 4500123.250, 101.235
    number = 1000
    for n in _batch_sizes(sink, size):
        lines = []
        for _ in range(n):
            x += 9.0 * rnd() - 3.0
            y += 9.0 * rnd() - 3.0
            z += 0.6 * rnd() - 0.3
            if x > 318000.0:
                x -= 6000.0
            if y > 4506000.0:
                y -= 6000.0
            lines.append(f"{number} {x:.3f} {y:.3f} {z:.3f}{codes[int(nc * rnd())]}\n")
            number += 1
        sink.put("".join(lines))


# Survey codes; the empty ones leave the code out, and "ruxo" is the word
# the Medrix conversion blanks.
_SURVEY_CODES = ("", "", "ARBOL", "BORDE", "ESQ", "EJE", "POZO", "FAROLA", "MURO", "TN",
                 "ruxo", "RUXO")
_TARGET_HEIGHTS = ("1.300", "1.500", "1.800", "2.000")


def _sights(rnd: Callable[[], float], n: int, sep: str
            ) -> Iterator[Tuple[str, str, str, str, str]]:
    """`n` observations as texts: horizontal angle, zenith angle, distance,
    target height and code (preceded by `sep`, or empty)."""
    nc = len(_SURVEY_CODES)
    for _ in range(n):
        code = _SURVEY_CODES[int(nc * rnd())]
        yield (f"{399.9999 * rnd():.4f}", f"{88.0 + 24.0 * rnd():.4f}",
               f"{3.0 + 347.0 * rnd():.3f}", _TARGET_HEIGHTS[int(4 * rnd())],
               sep + code if code else "")


def _lea_survey(sink: _Sink, size: int, seed: int) -> None:
    # For every station: the station line with its instrument height, the
    # sight to the previous station, and 20 to 60 points taken from it.
    r = _rng(seed, "lea")
    rnd = r.random
    station = 1
    point = 101
    while sink.written < size:
        lines = [f"S E{station} {1.4 + 0.3 * rnd():.3f}\n"]
        if station > 1:
            hz, v, d, th, _ = next(_sights(rnd, 1, " "))
            lines.append(f"E E{station - 1} {hz} {v} {d} {th} BASE\n")
        for hz, v, d, th, code in _sights(rnd, r.randint(20, 60), " "):
            lines.append(f"P {point} {hz} {v} {d} {th}{code}\n")
            point += 1
        sink.put("".join(lines))
        station += 1


def _observations(sink: _Sink, size: int, seed: int) -> None:
    # Station, point, horizontal and zenith angles, slope distance, target
    # and instrument heights, and most often a code.
    r = _rng(seed, "obs")
    rnd = r.random
    station = 1
    point = 101
    while sink.written < size:
        head = f"E{station},"
        hi = f"{1.4 + 0.3 * rnd():.3f}"
        lines = []
        for hz, v, d, th, code in _sights(rnd, r.randint(20, 60), ","):
            lines.append(f"{head}{point},{hz},{v},{d},{th},{hi}{code}\n")
            point += 1
        sink.put("".join(lines))
        station += 1


def _robotic_readings(sink: _Sink, size: int, seed: int) -> None:
    # The NEVO-800 job header, then set ups: station, back sight and side
    # shots, with a note now and then.
    r = _rng(seed, "robot")
    rnd = r.random
    sink.put("INST NEVO-800,SN 604233\nJOB NORTE,OBRA_NORTE.JOB\n"
             "NOTE replanteo del eje 1\nDATE 16/11/07,10:20:35\nUNITS M,GRADS\n")
    station = 1
    point = 1001
    while sink.written < size:
        lines = [f"STN E{station},{1.4 + 0.3 * rnd():.3f}\n",
                 f"BS E{station + 1},{399.9999 * rnd():.4f},1.300\n"]
        if station % 10 == 0:
            lines.append(f"NOTE estacion E{station}\n")
        for hz, v, d, th, code in _sights(rnd, r.randint(20, 60), ","):
            lines.append(f"SS {point},{hz},{v},{d},{th}{code}\n")
            point += 1
        sink.put("".join(lines))
        station += 1


# ---------------------------------------------------------------------------
# LandXML

_LANDXML_HEAD = (
    '<?xml version="1.0" encoding="UTF-8"?>\n'
    '<LandXML xmlns="http://www.landxml.org/schema/LandXML-1.2" version="1.2" '
    'date="2026-11-23" time="10:00:00">\n'
    '  <Units>\n'
    '    <Metric areaUnit="squareMeter" linearUnit="meter" volumeUnit="cubicMeter" '
    'temperatureUnit="celsius" pressureUnit="milliBars" angularUnit="grads" '
    'directionUnit="grads"/>\n'
    '  </Units>\n'
    '  <Project name="Obra de prueba"/>\n'
    '  <Alignments name="Ejes">\n')

_LANDXML_TAIL = "  </Alignments>\n</LandXML>\n"


def _xml_point(tag: str, x: float, y: float) -> str:
    # LandXML gives the northing first.
    return f"<{tag}>{y:.4f} {x:.4f}</{tag}>"


def _xml_element(e: _Element) -> str:
    ind = "          "
    rot = "cw" if e.radius > 0 else "ccw"
    if e.kind == LINE:
        return (f'        <Line staStart="{e.station:.4f}" length="{e.length:.4f}">\n'
                f"{ind}{_xml_point('Start', e.x, e.y)}\n"
                f"{ind}{_xml_point('End', e.end_x, e.end_y)}\n"
                f"        </Line>\n")
    if e.kind == ARC:
        return (f'        <Curve rot="{rot}" crvType="arc" staStart="{e.station:.4f}" '
                f'length="{e.length:.4f}" radius="{abs(e.radius):.4f}">\n'
                f"{ind}{_xml_point('Start', e.x, e.y)}\n"
                f"{ind}{_xml_point('Center', e.center_x, e.center_y)}\n"
                f"{ind}{_xml_point('End', e.end_x, e.end_y)}\n"
                f"{ind}{_xml_point('PI', *e.tangents_meet())}\n"
                f"        </Curve>\n")
    if e.kind == SPIRAL_IN:
        radii = f'radiusStart="INF" radiusEnd="{abs(e.radius):.4f}"'
    else:
        radii = f'radiusStart="{abs(e.radius):.4f}" radiusEnd="INF"'
    return (f'        <Spiral rot="{rot}" spiType="clothoid" staStart="{e.station:.4f}" '
            f'length="{e.length:.4f}" {radii}>\n'
            f"{ind}{_xml_point('Start', e.x, e.y)}\n"
            f"{ind}{_xml_point('PI', *e.tangents_meet())}\n"
            f"{ind}{_xml_point('End', e.end_x, e.end_y)}\n"
            f"        </Spiral>\n")


def _landxml_sections(sink: _Sink, size: int, seed: int) -> None:
    # One alignment, "Eje 1", with its plan geometry and a cross section
    # every 5 m: the ground surface "Terreno" in two point lists, the left
    # one by distances from the axis (desc="left") and the right one.
    # About 1730 bytes a station.
    stations = max(1, round(size / 1730))
    start = 1000.0
    reach = 5.0 * stations
    road = _Road(_rng(seed, "road"), station=start)
    elements: List[_Element] = []
    while road.station - start < reach:
        elements += road.group()
    elements.append(road.straight())
    length = road.station - start

    sink.put(_LANDXML_HEAD)
    sink.put(f'    <Alignment name="Eje 1" length="{length:.4f}" staStart="{start:.4f}">\n'
             "      <CoordGeom>\n")
    for e in elements:
        sink.put(_xml_element(e))
    sink.put("      </CoordGeom>\n      <CrossSects>\n")

    ground = _Ground(_rng(seed, "ground"))
    left = [-float(d) for d in range(50, 0, -1)]
    right = [float(d) for d in range(0, 50)]
    order = left + right
    body = ('">\n'
            '          <CrossSectSurf name="Terreno" desc="left"><PntList2D>'
            + " ".join(f"{-o:.3f} %.3f" for o in left)
            + "</PntList2D></CrossSectSurf>\n"
            '          <CrossSectSurf name="Terreno" desc="right"><PntList2D>'
            + " ".join(f"{o:.3f} %.3f" for o in right)
            + "</PntList2D></CrossSectSurf>\n"
            "        </CrossSect>\n")
    for k in range(stations):
        s = start + 5.0 * k
        sink.put(f'        <CrossSect sta="{s:.3f}' + body % tuple(ground.heights(s, order)))
    sink.put("      </CrossSects>\n    </Alignment>\n" + _LANDXML_TAIL)


def _landxml_alignments(sink: _Sink, size: int, seed: int) -> None:
    # One long alignment, "Eje 1" (lines, clothoids, arcs), with one profile,
    # "Rasante 1" (vertices with parabolic curves) over its whole length.
    # The alignment's length stands before its geometry, so the road is laid
    # out once to measure it and once more to write it. About 1040 bytes a
    # curve group, and the profile adds about a tenth.
    groups = max(1, round(size / 1140))
    start = 1000.0
    end = start
    for e in _road_in_groups(seed, groups, station=start):
        end = e.station + e.length
    length = end - start

    sink.put(_LANDXML_HEAD)
    sink.put(f'    <Alignment name="Eje 1" length="{length:.4f}" staStart="{start:.4f}">\n'
             "      <CoordGeom>\n")
    lines = []
    for e in _road_in_groups(seed, groups, station=start):
        lines.append(_xml_element(e))
        if len(lines) >= 1024:
            sink.put("".join(lines))
            lines = []
    sink.put("".join(lines))
    sink.put('      </CoordGeom>\n      <Profile name="Eje 1">\n'
             '        <ProfAlign name="Rasante 1">\n')
    walk = _Grade(_rng(seed, "grade"), station=start)
    lines = []
    while True:
        # The last vertex before the end is placed so that the grade line
        # closes exactly at the end of the alignment.
        remaining = end - walk.station
        gap = None if remaining > 900.0 else remaining
        s, z, _, _, curve, _ = walk.vertices(1, gap)[0]
        if not lines:
            lines.append(f"          <PVI>{s:.4f} {z:.4f}</PVI>\n")
        else:
            lines.append(f'          <ParaCurve length="{curve:.4f}">{s:.4f} {z:.4f}</ParaCurve>\n')
        if gap is not None:
            break
        if len(lines) >= 4096:
            sink.put("".join(lines))
            lines = []
    sink.put("".join(lines))
    s, z = walk.last()[:2]
    sink.put(f"          <PVI>{s:.4f} {z:.4f}</PVI>\n"
             "        </ProfAlign>\n      </Profile>\n    </Alignment>\n" + _LANDXML_TAIL)


# ---------------------------------------------------------------------------
# The table of formats


@dataclass(frozen=True)
class Format:
    """One generated input format."""

    name: str
    description: str
    body: Callable[[_Sink, int, int], None] = field(repr=False)

    def write(self, path: str, size_bytes: int, seed: int) -> None:
        """Writes a file of about `size_bytes` bytes to `path`; the same seed
        gives the same file."""
        with open(path, "wb") as stream:
            sink = _Sink(stream)
            self.body(sink, int(size_bytes), int(seed))
            sink.flush()


_TABLE = [
    Format("ruxo_sections",
           "RUXO cross-section points, station offset elevation code",
           _ruxo_sections),
    Format("comma_sections",
           "comma-separated cross-section points s,o,e,CODE",
           _comma_sections),
    Format("istram_sections",
           "ISTRAM/ISPOL cross sections (section records and point pairs)",
           _istram_sections),
    Format("mxroad_sections",
           "MXROAD cross sections (station and count, then point pairs)",
           _mxroad_sections),
    Format("htrazado_sections",
           "HTRAZADO cross sections (PK lines and offset , elevation)",
           _htrazado_sections),
    Format("clip_ter_sections",
           "CLIP TER cross sections (fixed-column DIST and COTA lines)",
           _clip_ter_sections),
    Format("clip_trv_sections",
           "CLIP TRV cross sections (station , count, then points)",
           _clip_trv_sections),
    Format("cartomap_sections_pk",
           'CartoMAP cross sections, "PK" header layout',
           _cartomap_sections_pk),
    Format("cartomap_sections_distance",
           "CartoMAP cross sections, distance listing layout",
           _cartomap_sections_distance),
    Format("ruxo_alignment",
           "RUXO alignment key points (straights, clothoids, arcs)",
           _ruxo_alignment),
    Format("istram_alignment",
           "ISTRAM fixed-column alignment listing",
           _istram_alignment),
    Format("istram_listing",
           "ISTRAM alignment element listing",
           _istram_listing),
    Format("ispol_alignment",
           "ISPOL alignment elements (code, length, start point)",
           _ispol_alignment),
    Format("htrazado_alignment",
           "HTRAZADO alignment key points",
           _htrazado_alignment),
    Format("clip_plt_alignment",
           "CLIP PLT alignment key points",
           _clip_plt_alignment),
    Format("ruxo_profile",
           "RUXO profile vertices station,elevation,curve length",
           _ruxo_profile),
    Format("velm_profile",
           "VELM five-column profile vertices",
           _velm_profile),
    Format("istram_profile",
           "ISTRAM profile vertex listing (grade leaving each vertex)",
           _istram_profile),
    Format("ispol_profile",
           "ISPOL profile vertex listing (grade arriving at each vertex)",
           _ispol_profile),
    Format("cartomap_profile",
           "CartoMAP profile vertices (INICIO, VERTICE, FINAL)",
           _cartomap_profile),
    Format("ispol_superelevation",
           "ISPOL superelevation table",
           _ispol_superelevation),
    Format("clip_superelevation",
           "CLIP superelevation table",
           _clip_superelevation),
    Format("level_readings",
           "KELDAR KL500 digital level readings",
           _level_readings),
    Format("points",
           "points list: number X Y Z code",
           _points),
    Format("lea_survey",
           "LEA survey: stations and observed points",
           _lea_survey),
    Format("observations",
           "NEVO observation list, comma-separated",
           _observations),
    Format("robotic_readings",
           "NEVO-800 robotic total-station readings",
           _robotic_readings),
    Format("landxml_sections",
           'LandXML alignment "Eje 1" with "Terreno" cross sections',
           _landxml_sections),
    Format("landxml_alignments",
           'LandXML alignment "Eje 1" with profile "Rasante 1"',
           _landxml_alignments),
]

FORMATS = {f.name: f for f in _TABLE}


def main(argv: Sequence[str]) -> int:
    usage = ("usage: generate.py FORMAT SIZE_MB SEED OUTPUT_PATH\n"
             "       generate.py --list\n")
    if len(argv) == 1 and argv[0] == "--list":
        for name in FORMATS:
            print(name)
        return 0
    if len(argv) != 4:
        sys.stderr.write(usage)
        return 2
    name, size_mb, seed, path = argv
    if name not in FORMATS:
        sys.stderr.write(f"generate.py: unknown format {name!r} (see --list)\n")
        return 2
    try:
        size = float(size_mb)
        seed_value = int(seed)
    except ValueError:
        sys.stderr.write(usage)
        return 2
    if size <= 0:
        sys.stderr.write("generate.py: SIZE_MB must be positive\n")
        return 2
    FORMATS[name].write(path, int(size * MB), seed_value)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
