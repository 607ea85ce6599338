#!/usr/bin/env python3
"""Checks that nothing but the platform room asks which system it is on, or talks to it.

usage: platform_only.py <tree>

Conditions on the system stand in room platform, Export.h and Types.h only, tests, examples and
benchmarks included; headers of an operating system are included by room platform and its tests
only, but for what the peers of the benchmarks need.
"""

import pathlib
import re
import sys

from tree import finish, includes, sources

MAY_ASK = ('source/nolk/core/platform/', 'include/nolk/core/Export.h', 'include/nolk/core/Types.h')
MAY_TALK = ('source/nolk/core/platform/', 'tests/platform/', 'benchmarks/')
PLACES = ('include', 'source', 'tests', 'examples', 'benchmarks', 'fuzz')

CONDITION = re.compile(r'^\s*#\s*(?:el)?if.*?\b(_WIN32|_WIN64|WIN32|__MINGW32__|__MINGW64__|_MSC_VER|'
                       r'__linux__|__linux|__unix__|__unix|__CYGWIN__|__APPLE__)\b', re.MULTILINE)
SYSTEM_HEADER = re.compile(r'(windows|winsock2|process|io|direct|unistd|pthread|fcntl|dlfcn|dirent|'
                           r'sched|semaphore|signal|poll|termios|sys/\w+)\.h')


def main():
    root = pathlib.Path(sys.argv[1])
    problems = []
    count = 0
    for path in (p for place in PLACES for p in sources(root / place)):
        name = path.relative_to(root).as_posix()
        count += 1
        if not name.startswith(MAY_ASK):
            problems += [f'{name} asks for {macro}'
                         for macro in CONDITION.findall(path.read_text(encoding='utf-8'))]
        if not name.startswith(MAY_TALK):
            problems += [f'{name} includes {header}, which is for room platform'
                         for header in includes(path) if SYSTEM_HEADER.fullmatch(header)]
    finish(problems, f'{count} files')


if __name__ == '__main__':
    main()
