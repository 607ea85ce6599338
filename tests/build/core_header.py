#!/usr/bin/env python3
"""Checks that nolk/core.h includes every public header, once each and sorted.

usage: core_header.py <tree> [--write]

With --write the header is written anew.
"""

import argparse
import pathlib

from tree import finish, includes, public_headers

TEXT = '''/** @file
 * All of nolk_core at once: includes every public header. Programs that care for their build time
 * include the headers of the classes they use instead.
 */
#ifndef NOLK_CORE_H
#define NOLK_CORE_H

{includes}

#endif
'''


def expected(root):
    # Names are compared as clang-format compares them, upper case before lower case.
    return sorted(public_headers(root))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument('tree', type=pathlib.Path)
    parser.add_argument('--write', action='store_true', help='write the header anew')
    arguments = parser.parse_args()
    core = arguments.tree / 'include/nolk/core.h'
    headers = expected(arguments.tree)
    if arguments.write:
        lines = '\n'.join(f'#include <{header}>' for header in headers)
        core.write_text(TEXT.format(includes=lines), encoding='utf-8')
    found = includes(core)
    problems = [f'nolk/core.h lacks {h}' for h in headers if h not in found]
    problems += [f'nolk/core.h includes {h}, which is no public header'
                 for h in found if h not in headers]
    if not problems and found != headers:
        problems.append('nolk/core.h is not sorted, or includes a header twice')
    finish(problems, f'{len(headers)} public headers')


if __name__ == '__main__':
    main()
