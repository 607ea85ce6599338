#!/usr/bin/env python3
"""Prints what a run of benchmarks means: how fast we are beside the peers on each row.

usage: ratios.py xml|strings|values|regex RESULTS.json...

The results are Google Benchmark's JSON. Of several repetitions the fastest counts: other work on
the machine only ever slows one down. Ratios compare across machines, the numbers beside them don't.
"""
import json
import pathlib
import re
import sys

# ---- XML: rows are documents, and each has the speed of every parser.

DOCUMENTS = ["soap", "attributes", "text", "nonascii", "envelope", "write"]

# (heading, ours, peers to be compared with, what the fastest of them must be exceeded by)
PULL_PEERS = ["expat", "expat_ns", "libxml2_sax", "libxml2_reader", "pugixml", "rapidxml",
              "rapidxml_fast"]
COMPARISONS = [
    ("pull reader / fastest peer", "nolk_pull", PULL_PEERS, 1.0),
    ("SAX / expat with namespaces", "nolk_sax", ["expat_ns"], 2.0),
    ("writer / xmlTextWriter", "nolk_writer", ["libxml2_writer"], 3.0),
    ("writer / plain appends", "nolk_writer", ["string_appends"], None),
]

# ---- Strings: rows are operations with their sizes or texts, and each has the time of every class,
# as in "find<std::string>/200" or "find/u16string/200".

RUN_NAME = re.compile(r"(\w+)(?:<([\w:]+)>|/([A-Za-z]\w*))(?:/(.*))?")
OURS = {"CString", "UString", "Nolk", "nolk"}

# (operation, what it works on, peer, what our speed must be of the peer's); the first that fits
# counts. Peers that none fits are shown without.
GOALS = [
    (r"copy", r"10000", r"std::string", 5.0),
    (r"find\w*", r".*", r"std::string_view", 1.0),
    (r"construct|copy|compare|equal|find\w*|append\w*", r"12|200", r"std::string", 1 / 1.2),
    (r"(compare|find)\w*", r"200", r"u16string", 5.0),
    (r"decode|encode", r"ascii|latin|cjk", r"QString", 1.0),
    (r"decode", r"ascii_24_bytes", r"QString", 16 / 25),
    (r"base64\w+", r"1\d{6}", r"OpenSSL\w*", 1.0),
    (r"crc", r"1\d{6}", r"zlib", 1.0),
]


# ---- Values and regular expressions: rows are <what>/<on what>/<whose>, and ours begin with "nolk".

# (what, on what, peer, what our speed must be of the fastest such peer's)
ROW_GOALS = [
    (r"search|match", r".*", r"(?!pcre2_jit)\w+", 1.0),
    (r"compile", r".*", r"re2", 1.0),
    (r"iso8601", r"read", r"strptime_timegm", 4.0),
    (r"date_time", r"read_iso", r".*", 4.0),
    (r"date_time", r"write_iso", r".*", 2.0),
    (r"date_time", r"local", r".*", 1.0),
    (r"date", r".*", r".*", 0.5),
    (r"decimal/multiply", r"300|3000", r".*", 1.0),
    (r"decimal/\w+", r".*", r".*", None),
]


def runs(paths):
    """All single runs, without the sums over repetitions."""
    for path in paths:
        with open(path, encoding="utf-8") as file:
            for run in json.load(file)["benchmarks"]:
                if run.get("run_type") != "aggregate" and not run.get("error_occurred"):
                    yield run


def mark(ratio, wanted):
    return "" if wanted is None or ratio >= wanted else "   <-- behind"


def best_speeds(paths):
    """MB/s by document and parser, in the order of the run."""
    speeds = {}
    for run in runs(paths):
        document, _, parser = run["run_name"].partition("/")
        speed = run["bytes_per_second"] / 1e6
        row = speeds.setdefault(document, {})
        row[parser] = max(row.get(parser, 0.0), speed)
    return {document: speeds[document] for document in DOCUMENTS if document in speeds}


def print_speeds(speeds):
    for document, row in speeds.items():
        print(f"{document} (MB/s)")
        for parser in sorted(row, key=row.get, reverse=True):
            print(f"    {parser:16} {row[parser]:9.0f}")


def print_xml(paths):
    speeds = best_speeds(paths)
    print_speeds(speeds)
    print()
    print(f"{'':30}{'row':12}{'ratio':>7}{'wanted':>8}  fastest peer")
    for heading, ours, peers, wanted in COMPARISONS:
        for document, row in speeds.items():
            rivals = [peer for peer in peers if peer in row]
            if ours not in row or not rivals:
                continue
            peer = max(rivals, key=row.get)
            ratio = row[ours] / row[peer]
            goal = "" if wanted is None else f"{wanted:.1f}"
            print(f"{heading:30}{document:12}{ratio:7.2f}{goal:>8}  {peer}{mark(ratio, wanted)}")


def best_times(path):
    """Nanoseconds of CPU time by (operation, subject) and class, and bytes where there are any."""
    units = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
    times, sizes = {}, {}
    for run in runs([path]):
        match = RUN_NAME.fullmatch(run["run_name"])
        if not match:
            sys.exit(f"no operation, class and subject: {run['run_name']}")
        operation, name, subject = match[1], match[2] or match[3], match[4] or ""
        time = run["cpu_time"] * units[run["time_unit"]]
        row = times.setdefault((operation, subject), {})
        row[name] = min(row.get(name, time), time)
        if "bytes_per_second" in run:
            sizes[operation, subject] = run["bytes_per_second"] * run["cpu_time"] * \
                units[run["time_unit"]] / 1e9
    return times, sizes


def goal_for(operation, subject, peer):
    for wanted_operation, wanted_subject, wanted_peer, goal in GOALS:
        if re.fullmatch(wanted_operation, operation) and re.fullmatch(wanted_subject, subject) \
                and re.fullmatch(wanted_peer, peer):
            return goal
    return None


def natural(key):
    """Sorts the numbers in subjects by their size."""
    return [[(not part.isdigit(), int(part) if part.isdigit() else 0, part)
             for part in re.split(r"(\d+)", text) if part] for text in key]


def print_subject(path):
    times, sizes = best_times(path)
    for operation, subject in sorted(times, key=natural):
        row = times[operation, subject]
        speed = ""
        for ours in OURS & row.keys():
            if (operation, subject) in sizes:
                speed = f"{sizes[operation, subject] / row[ours] * 1e3:.0f}"
            for peer in sorted(row.keys() - OURS):
                ratio = row[peer] / row[ours]
                goal = goal_for(operation, subject, peer)
                wanted = "" if goal is None else f"{goal:.2f}"
                print(f"{operation:20}{subject:16}{row[ours]:12.1f}{speed:>8}{ratio:8.2f}"
                      f"{wanted:>8}  {peer}{mark(ratio, goal)}")


def print_strings(paths):
    for path in paths:
        print(pathlib.Path(path).stem.replace("_benchmarks", ""))
        print(f"{'operation':20}{'on':16}{'ns':>12}{'MB/s':>8}{'ratio':>8}{'wanted':>8}  beside")
        print_subject(path)
        print()


def row_times(paths):
    """Nanoseconds of CPU time by (what, on what) and whose, in the order of the run."""
    units = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
    rows = {}
    for run in runs(paths):
        what, on, name = run["run_name"].rsplit("/", 2)
        row = rows.setdefault((what, on), {})
        time = run["cpu_time"] * units[run["time_unit"]]
        row[name] = min(row.get(name, time), time)
    return rows


def print_rows(paths):
    print(f"{'':18}{'on':20}{'ours':16}{'ns':>14}{'ratio':>8}{'wanted':>8}  fastest peer")
    for (what, on), row in sorted(row_times(paths).items(), key=lambda item: item[0][0]):
        for pattern_what, pattern_on, pattern_peer, wanted in ROW_GOALS:
            if not re.fullmatch(pattern_what, what) or not re.fullmatch(pattern_on, on):
                continue
            ours = [name for name in row if name.startswith("nolk")]
            rivals = [name for name in row if name not in ours and
                      re.fullmatch(pattern_peer, name)]
            for name in ours if rivals else []:
                peer = min(rivals, key=row.get)
                ratio = row[peer] / row[name]
                goal = "" if wanted is None else f"{wanted:.1f}"
                print(f"{what:18}{on:20}{name:16}{row[name]:14.1f}{ratio:8.2f}{goal:>8}  "
                      f"{peer} {row[peer]:.1f}{mark(ratio, wanted)}")


def main():
    printers = {"xml": print_xml, "strings": print_strings, "values": print_rows,
                "regex": print_rows}
    if len(sys.argv) < 3 or sys.argv[1] not in printers:
        sys.exit(__doc__)
    printers[sys.argv[1]](sys.argv[2:])


if __name__ == "__main__":
    main()
