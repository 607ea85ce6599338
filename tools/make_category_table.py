#!/usr/bin/env python3
"""Writes the table of general categories that the wide regular expressions use.

usage: make_category_table.py RUNS [OUTPUT]

RUNS tells the General_Category of Unicode 3.2.0 over the Basic Multilingual Plane, one run of code
points a line: `0041..005A Lu`, hexadecimal, both ends included, gapless from 0000 to FFFF; a line
that begins with # is a comment. OUTPUT defaults to the table in the tree.
"""

import pathlib
import re
import sys

# The numbers of the categories are their places here.
CATEGORIES = ['Cn', 'Lu', 'Ll', 'Lt', 'Lm', 'Lo', 'Mn', 'Me', 'Mc', 'Nd', 'Nl', 'No', 'Zs', 'Zl', 'Zp',
              'Cc', 'Cf', 'Co', 'Cs', 'Pd', 'Ps', 'Pe', 'Pc', 'Po', 'Sm', 'Sc', 'Sk', 'So', 'Pi', 'Pf']

RUN = re.compile(r'([0-9A-F]{4})\.\.([0-9A-F]{4}) ([A-Z][a-z])$')

TABLE = pathlib.Path(__file__).parent.parent / 'source/nolk/core/regex/URegexCategoryTable.h'

TEXT = '''// The general categories of Unicode 3.2.0. Written by tools/make_category_table.py.
#ifndef NOLK_CORE_REGEX_UREGEX_CATEGORY_TABLE_H
#define NOLK_CORE_REGEX_UREGEX_CATEGORY_TABLE_H

#include <cstdint>

namespace nolk::categories {{

// clang-format off

// The lower bits of a unit, its place in a block.
inline constexpr unsigned blockBits = {bits};

// The block of a unit's upper bits.
inline constexpr std::uint8_t blockOf[{block_count}] = {{
{blocks}
}};

inline constexpr std::uint8_t blocks[][1 << blockBits] = {{
{values}
}};

// clang-format on

}}  // namespace nolk::categories

#endif
'''


def read_runs(path):
    categories = []
    for number, line in enumerate(path.read_text(encoding='ascii').splitlines(), 1):
        if line.startswith('#') or not line.strip():
            continue
        match = RUN.match(line)
        if not match:
            sys.exit(f'{path}:{number}: not a run: {line}')
        first, last = int(match.group(1), 16), int(match.group(2), 16)
        if first != len(categories) or last < first:
            sys.exit(f'{path}:{number}: a gap or an overlap before {match.group(1)}')
        categories += [CATEGORIES.index(match.group(3))] * (last - first + 1)
    if len(categories) != 0x10000:
        sys.exit(f'{path}: ends at {len(categories):04X}')
    return categories


def split(categories, bits):
    """The different blocks of 1 << bits values, and which of them stands where."""
    blocks, order = {}, []
    for start in range(0, len(categories), 1 << bits):
        block = tuple(categories[start:start + (1 << bits)])
        order.append(blocks.setdefault(block, len(blocks)))
    return list(blocks), order


def size(categories, bits):
    blocks, order = split(categories, bits)
    return (len(blocks) << bits) + len(order) if len(blocks) <= 256 else sys.maxsize


def lines(values, indent):
    rows = [values[i:i + 32] for i in range(0, len(values), 32)]
    return ',\n'.join(indent + ','.join(map(str, row)) for row in rows)


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    categories = read_runs(pathlib.Path(sys.argv[1]))
    bits = min(range(4, 9), key=lambda b: size(categories, b))
    blocks, order = split(categories, bits)
    output = pathlib.Path(sys.argv[2]) if len(sys.argv) == 3 else TABLE
    output.write_text(TEXT.format(
        bits=bits, block_count=len(order), blocks=lines(order, '    '),
        values=',\n'.join('    {\n' + lines(block, '        ') + '}' for block in blocks)),
        encoding='ascii')


if __name__ == '__main__':
    main()
