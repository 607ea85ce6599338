#!/usr/bin/env python3
"""Runs gdb on a small program and checks how it prints the program's strings.

usage: printers_test.py <gdb> <nolk_printers.py> <program>
"""

import os
import re
import subprocess
import sys

LETTERS = 'abcdefghijklmnopqrstuvwxyz'

EXPECTED = {
    'emptyBytes': '""',
    'shortBytes': '"abc"',
    'zeroBytes': r'"a\000b"',
    'highBytes': '"caf\u00e9"',
    'longBytes': f'"{3 * LETTERS}"',
    'sharedBytes': f'"{3 * LETTERS}"',
    'partOfBytes': '"bc"',
    'tailOfBytes': '"c"',
    'noBytes': 'null',
    'emptyUnits': 'u""',
    'shortUnits': 'u"abc"',
    'zeroUnits': r'u"a\000b"',
    'highUnits': 'u"caf\u00e9 \U0001f600"',
    'longUnits': f'u"{LETTERS}"',
    'sharedUnits': f'u"{LETTERS}"',
    'borrowedUnits': 'u"kep"',
    'unmeasuredUnits': 'u"kept"',
    'holder': '{name = "abc", title = u"abc"}',
}


def run_gdb(gdb, printers, program):
    """What gdb prints for each name."""
    command = [gdb, '-batch', '-nx', '-ex', 'set charset UTF-8', '-ex', 'set debuginfod enabled off',
               '-ex', f'source {printers}', '-ex', 'break show', '-ex', 'run', '-ex', 'up']
    for name in EXPECTED:
        command += ['-ex', f'print {name}']
    command.append(program)
    environment = dict(os.environ, LC_ALL='C.UTF-8')
    run = subprocess.run(command, capture_output=True, encoding='utf-8', env=environment,
                         stdin=subprocess.DEVNULL, timeout=120, check=False)
    printed = re.findall(r'^\$\d+ = (.*)$', run.stdout, re.MULTILINE)
    if len(printed) != len(EXPECTED):
        sys.exit(f'gdb printed {len(printed)} values of {len(EXPECTED)}:\n{run.stdout}{run.stderr}')
    return printed


def main():
    printed = run_gdb(*sys.argv[1:4])
    wrong = [f'{name} is printed as {text}, not {wanted}'
             for (name, wanted), text in zip(EXPECTED.items(), printed) if text != wanted]
    if wrong:
        sys.exit('\n'.join(wrong))
    print(f'{len(printed)} strings')


if __name__ == '__main__':
    main()
