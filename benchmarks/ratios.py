#!/usr/bin/env python3
"""Prints what a run of xml_benchmarks means: how fast we are beside the fastest peer on each row.

usage: ratios.py RESULTS.json

The results are Google Benchmark's JSON. Of several repetitions the fastest counts: other work on
the machine only ever slows one down. Ratios compare across machines, the MB/s beside them don't.
"""
import json
import sys

ROWS = ["soap", "attributes", "text", "nonascii", "envelope", "write"]

# (heading, ours, peers to be compared with, what the fastest of them must be exceeded by)
PULL_PEERS = ["expat", "expat_ns", "libxml2_sax", "libxml2_reader", "pugixml", "rapidxml",
              "rapidxml_fast"]
COMPARISONS = [
    ("pull reader / fastest peer", "nolk_pull", PULL_PEERS, 1.0),
    ("SAX / expat with namespaces", "nolk_sax", ["expat_ns"], 2.0),
    ("writer / xmlTextWriter", "nolk_writer", ["libxml2_writer"], 3.0),
    ("writer / plain appends", "nolk_writer", ["string_appends"], None),
]


def best_speeds(path):
    """MB/s by document and parser, in the order of the run."""
    with open(path, encoding="utf-8") as file:
        results = json.load(file)["benchmarks"]
    speeds = {}
    for result in results:
        if result.get("run_type") == "aggregate":
            continue
        document, _, parser = result["run_name"].partition("/")
        speed = result["bytes_per_second"] / 1e6
        row = speeds.setdefault(document, {})
        row[parser] = max(row.get(parser, 0.0), speed)
    return {document: speeds[document] for document in ROWS if document in speeds}


def print_speeds(speeds):
    for document, row in speeds.items():
        print(f"{document} (MB/s)")
        for parser in sorted(row, key=row.get, reverse=True):
            print(f"    {parser:16} {row[parser]:9.0f}")


def print_ratios(speeds):
    print(f"{'':30}{'row':12}{'ratio':>7}{'wanted':>8}  fastest peer")
    for heading, ours, peers, wanted in COMPARISONS:
        for document, row in speeds.items():
            rivals = [peer for peer in peers if peer in row]
            if ours not in row or not rivals:
                continue
            peer = max(rivals, key=row.get)
            ratio = row[ours] / row[peer]
            goal = "" if wanted is None else f"{wanted:.1f}"
            mark = "" if wanted is None or ratio >= wanted else "   <-- behind"
            print(f"{heading:30}{document:12}{ratio:7.2f}{goal:>8}  {peer}{mark}")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    speeds = best_speeds(sys.argv[1])
    print_speeds(speeds)
    print()
    print_ratios(speeds)


if __name__ == "__main__":
    main()
