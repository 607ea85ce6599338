"""What the checks of the tree share: its files, its rooms, and how a check ends."""

import pathlib
import re
import sys

# The rooms, in the order of who may know whom: a room includes from rooms above it only.
ROOMS = ['platform', 'foundation', 'strings', 'regex', 'system', 'values', 'threads', 'plugins',
         'config', 'xml', 'catalog', 'logging', 'naming']

# The one file that may look down: a message asks the catalogs for its translation.
EXCEPTIONS = {('foundation/LocalizedMessage.cpp', 'catalog')}

INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)


def sources(directory):
    """All C++ files below a directory, sorted."""
    return sorted(p for p in pathlib.Path(directory).rglob('*') if p.suffix in ('.h', '.cpp'))


def includes(path):
    """What a file includes, in its own order."""
    return INCLUDE.findall(path.read_text(encoding='utf-8'))


def public_headers(root):
    """The public headers as they are included, core.h itself left out."""
    include = pathlib.Path(root) / 'include'
    headers = [p.relative_to(include).as_posix() for p in sources(include)]
    return [h for h in headers if h != 'nolk/core.h']


def finish(problems, good):
    """Prints the problems, or what is good, and ends the program accordingly."""
    for problem in problems:
        print(problem)
    if problems:
        sys.exit(1)
    print(good)
