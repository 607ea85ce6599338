#!/usr/bin/env python3
"""Holds the rooms' includes against the order of rooms, and the diagram against the includes.

usage: rooms.py <tree> [--write]

A room is a directory of source/nolk/core. A file may include from its own room and from rooms
above it. The Mermaid diagram in docs/architecture.md shows exactly the edges that there are: solid
ones, and dotted ones for the exceptions. With --write the edges of the diagram are written anew.
"""

import argparse
import collections
import pathlib
import re

from tree import EXCEPTIONS, ROOMS, finish, includes, public_headers, sources

# Below every room: what they say is part of the language here.
NO_ROOM = {'nolk/core/Export.h', 'nolk/core/Types.h'}

# Public headers that neither a source nor a test of their own name gives to a room.
HEADER_ROOMS = {
    'nolk/core/IntrusiveListLink.h': 'foundation',
    'nolk/core/MessageCatalogId.h': 'foundation',
    'nolk/core/MessageIds.h': 'foundation',
    'nolk/core/NestableXmlContentHandler.h': 'xml',
    'nolk/core/StaticCtor.h': 'foundation',
}

DIAGRAM = re.compile(r'(```mermaid\n)(.*?)(```)', re.DOTALL)
EDGE = re.compile(r'^\s*(\w+)\s*(-->|-\.->)\s*(\w+)\s*$')


def room_of_header(root, header):
    """The room that implements a public header, or tests it if there is nothing to implement."""
    if header in HEADER_ROOMS:
        return HEADER_ROOMS[header]
    stem = pathlib.PurePosixPath(header).stem
    for place, name in (('source/nolk/core', f'{stem}.cpp'), ('tests', f'{stem}Test.cpp')):
        rooms = [room for room in ROOMS if (root / place / room / name).is_file()]
        if len(rooms) == 1:
            return rooms[0]
    for prefix, room in (('nolk/core/regex/', 'regex'), ('nolk/core/Xml', 'xml')):
        if header.startswith(prefix):
            return room
    return None


def target_room(path, included, header_rooms):
    """The room that an include leads to; None where it leaves the rooms."""
    if included in header_rooms:
        return header_rooms[included]
    match = re.match(r'nolk/core/(\w+)/', included)
    if match and match.group(1) in ROOMS:
        return match.group(1)
    return None


def find_edges(root, problems):
    """All pairs of rooms (knowing, known), each with the files and includes it comes from."""
    header_rooms = {}
    for header in public_headers(root):
        if header in NO_ROOM:
            continue
        room = room_of_header(root, header)
        if room:
            header_rooms[header] = room
        else:
            problems.append(f'{header} belongs to no room: it has neither a source nor a test of '
                            f'its name in exactly one room, nor a line in {__file__}')
    core = root / 'source/nolk/core'
    files = [(path, path.relative_to(core).parts[0]) for path in sources(core)]
    files += [(root / 'include' / header, room) for header, room in header_rooms.items()]
    edges = collections.defaultdict(list)
    for path, room in files:
        if room not in ROOMS:
            problems.append(f'{path} stands in no room')
            continue
        for included in includes(path):
            if included == 'nolk/core.h':
                problems.append(f'{path} includes {included}, which is for callers only')
            target = target_room(path, included, header_rooms)
            if target and target != room:
                edges[room, target].append((path, included))
    return edges


def is_exception(root, path, target):
    core = root / 'source/nolk/core'
    return path.is_relative_to(core) and (path.relative_to(core).as_posix(), target) in EXCEPTIONS


def check_order(root, edges, problems):
    for (room, target), places in edges.items():
        for path, included in places:
            down = ROOMS.index(target) > ROOMS.index(room)
            if down and not is_exception(root, path, target):
                problems.append(f'{path} includes {included}: {room} may not know {target}, '
                                'which stands below it')


def diagram_lines(edges):
    def key(edge):
        return ROOMS.index(edge[0]), ROOMS.index(edge[1])
    return [f'{a} {"-.->" if ROOMS.index(b) > ROOMS.index(a) else "-->"} {b}'
            for a, b in sorted(edges, key=key)]


def drawn_lines(document):
    match = DIAGRAM.search(document)
    if not match:
        return []
    found = [EDGE.match(line) for line in match.group(2).splitlines()]
    return [f'{m.group(1)} {m.group(2)} {m.group(3)}' for m in found if m]


def check_diagram(document, edges, problems):
    real, drawn = diagram_lines(edges), drawn_lines(document)
    problems += [f'docs/architecture.md lacks the edge {e}' for e in real if e not in drawn]
    problems += [f'docs/architecture.md draws {e}, which no include bears out'
                 for e in drawn if e not in real]
    if len(drawn) != len(set(drawn)):
        problems.append('docs/architecture.md draws an edge twice')


def redraw(document, edges):
    def block(match):
        kept = [line for line in match.group(2).splitlines() if not EDGE.match(line)]
        lines = kept + [f'    {line}' for line in diagram_lines(edges)]
        return match.group(1) + '\n'.join(lines) + '\n' + match.group(3)
    return DIAGRAM.sub(block, document, count=1)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument('tree', type=pathlib.Path)
    parser.add_argument('--write', action='store_true', help='draw the edges anew')
    arguments = parser.parse_args()
    problems = []
    edges = find_edges(arguments.tree, problems)
    check_order(arguments.tree, edges, problems)
    page = arguments.tree / 'docs/architecture.md'
    document = page.read_text(encoding='utf-8')
    if arguments.write:
        document = redraw(document, edges)
        page.write_text(document, encoding='utf-8')
    check_diagram(document, edges, problems)
    finish(problems, f'{len(edges)} edges between rooms, all of them drawn')


if __name__ == '__main__':
    main()
