#!/usr/bin/env python3
"""Writes src/places/coast_table.cpp, the coast of the map, from a TopoJSON file of the world's land.

Usage: make_coast.py land-110m.json

The file is in the npm package world-atlas, version 2.0.2 (ISC); what it holds is Natural Earth's, which is in
the public domain. Such files cut land where it crosses the date line and close Antarctica through the pole;
these seams are taken out here, since they are no coast.
"""
import json
import pathlib
import sys

TABLE = pathlib.Path(__file__).parent.parent / 'src' / 'places' / 'coast_table.cpp'
WORLD = 36000  # hundredths of a degree around
FIRST_DIGIT = ord('0')
MORE = 32  # added to a digit that is followed by another one of the same number
LINE_LENGTH = 100

HEAD = '''// Made by packaging/make_coast.py from land-110m.json of world-atlas 2.0.2 (Natural Earth, public domain).
#include "places/coast_table.h"

namespace brelwin {
namespace {

// clang-format off
constexpr std::string_view Table =
'''
TAIL = ''';
// clang-format on

}  // namespace

std::string_view CoastTable() { return Table; }

}  // namespace brelwin
'''


def arcs(topology):
    """The arcs as lists of (longitude, latitude) in hundredths of a degree."""
    scale, start = topology['transform']['scale'], topology['transform']['translate']
    for arc in topology['arcs']:
        x = y = 0
        points = []
        for dx, dy in arc:
            x, y = x + dx, y + dy
            points.append((round(100 * (x * scale[0] + start[0])), round(100 * (y * scale[1] + start[1]))))
        yield points


def rings(topology):
    lines = list(arcs(topology))
    for geometry in topology['objects']['land']['geometries']:
        for polygon in geometry['arcs']:
            for numbers in polygon:
                ring = []
                for number in numbers:
                    ring += (lines[number] if number >= 0 else lines[~number][::-1])[:-1]
                yield ring


def one_place(point):
    """Both sides of the date line have one name, and so has the pole, whatever the longitude."""
    longitude, latitude = point
    return (0, latitude) if abs(latitude) == 9000 else (-WORLD // 2 if longitude == WORLD // 2 else longitude, latitude)


def on_seam(start, end):
    return all(place[0] == -WORLD // 2 or abs(place[1]) == 9000 for place in (start, end))


def without_seams(all_rings):
    """The rings joined over the seams: what is left when edges of a seam and rings of no extent are gone."""
    edges = []
    for ring in all_rings:
        places = [one_place(point) for point in ring]
        edges += [(a, b) for a, b in zip(places, places[1:] + places[:1]) if a != b and not on_seam(a, b)]
    following = {}
    for start, end in edges:
        following.setdefault(start, []).append(end)
    while following:
        first = next(iter(following))
        ring = [first]
        while (place := take(following, ring[-1])) != first:
            ring.append(place)
        if len(ring) > 2:
            yield ring


def take(following, place):
    ends = following[place]
    end = ends.pop()
    if not ends:
        del following[place]
    return end


def number_text(number):
    """Small numbers of either sign become one digit, larger ones two or three."""
    rest = 2 * number if number >= 0 else -2 * number - 1
    text = ''
    while rest >= MORE:
        text += chr(FIRST_DIGIT + MORE + rest % MORE)
        rest //= MORE
    return text + chr(FIRST_DIGIT + rest)


def ring_text(ring):
    text = ''
    before = (0, 0)
    for longitude, latitude in ring:
        step = (longitude - before[0] + WORLD // 2) % WORLD - WORLD // 2
        text += number_text(step) + number_text(latitude - before[1])
        before = (longitude, latitude)
    return text + '!'


def main():
    topology = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding='utf-8'))
    joined = list(without_seams(rings(topology)))
    text = ''.join(ring_text(ring) for ring in joined)
    pieces = [text[i:i + LINE_LENGTH].replace('\\', '\\\\') for i in range(0, len(text), LINE_LENGTH)]
    TABLE.write_text(HEAD + '\n'.join(f'      "{piece}"' for piece in pieces) + TAIL, encoding='ascii')
    print(f'{len(joined)} rings, {sum(map(len, joined))} corners, {len(text)} characters')


if __name__ == '__main__':
    main()
