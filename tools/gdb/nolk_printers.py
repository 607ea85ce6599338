"""Shows the library's strings as text in gdb.

    (gdb) source tools/gdb/nolk_printers.py
    (gdb) print name
    $1 = "Ada"
    (gdb) print title
    $2 = u"Countess"

Prints CString, CSubString and UString in all their forms, zero bytes and units included, without
calling any function of the program, so that it works on core files too. gdb's own settings hold:
`set print elements` for the length of a text, `set target-charset` for what the bytes of a CString
mean.
"""

import gdb
import gdb.printing

NPOS = 0xFFFFFFFF


def header_of(string):
    """The CStringRef that stands in memory right in front of a CString's characters."""
    header = gdb.lookup_type('nolk::CStringRef')
    return (string['data_'] - header.sizeof).cast(header.pointer()).dereference()


class CStringPrinter:
    """A nolk::CString: as many bytes as its header tells."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        length = int(header_of(self.value)['length_'])
        return self.value['data_'].lazy_string(length=length)

    def display_hint(self):
        return 'string'


class CSubStringPrinter:
    """A nolk::CSubString: what its string has of it."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        start = int(self.value['start_'])
        if start == NPOS:
            return 'null'
        parent = self.value['parent_'].dereference()
        length = int(header_of(parent)['length_'])
        start = min(start, length)
        extent = min(int(self.value['extent_']), length - start)
        return (parent['data_'] + start).lazy_string(length=extent)

    def display_hint(self):
        return None if int(self.value['start_']) == NPOS else 'string'


class UStringPrinter:
    """A nolk::UString: short, counted, or borrowed; one not yet measured ends at a zero unit."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        counter = self.value['counter_']
        holder = self.value if int(counter) == 0 else counter.dereference()
        length = int(holder['length_'])
        return self.value['data_'].lazy_string(length=-1 if length == NPOS else length)

    def display_hint(self):
        return 'string'


def make_printers():
    printers = gdb.printing.RegexpCollectionPrettyPrinter('nolk_core')
    printers.add_printer('CString', '^nolk::CString$', CStringPrinter)
    printers.add_printer('CSubString', '^nolk::CSubString$', CSubStringPrinter)
    printers.add_printer('UString', '^nolk::UString$', UStringPrinter)
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), make_printers(), replace=True)
