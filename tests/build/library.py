#!/usr/bin/env python3
"""Checks the built library: its names, what it exports, what it needs, and that no path is in it.

usage: library.py --name <name> --exports <exports.map> --objdump <tool> --nm <tool>
                  [--foreign-path <path>]... <library file>

It exports names of namespace nolk and the plain entry points that exports.map lists, nothing else.
Loading it starts no thread, and on Windows it asks not to be told of those that start and end.
"""

import argparse
import pathlib
import re
import subprocess
import sys

from tree import finish

# What a demangled name may have in front of the name it is about.
ABOUT = re.compile(r'^(typeinfo (name )?for|vtable for|VTT for|construction vtable for|'
                   r'guard variable for|(non-virtual|virtual|covariant return) thunk to|'
                   r'TLS (init|wrapper) function for|reference temporary #\d+ for) ')

# Libraries that come with the compiler or the system: the library may need no others.
NEEDED = re.compile(r'lib(stdc\+\+|gcc_s|c|m)\.so\.\d+|ld-linux.*|'
                    r'libstdc\+\+-6\.dll|libgcc_s_seh-1\.dll|libwinpthread-1\.dll|'
                    r'KERNEL32\.dll|msvcrt\.dll|USER32\.dll|ADVAPI32\.dll', re.IGNORECASE)


def output_of(*command, stdin=None):
    return subprocess.run(command, check=True, capture_output=True, text=True, input=stdin).stdout


def demangle(names):
    return output_of('c++filt', stdin='\n'.join(names)).splitlines()


def is_ours(demangled):
    """Whether a demangled name, a leading result type aside, is one of namespace nolk."""
    return bool(re.match(r'(\S+ )?nolk::', ABOUT.sub('', demangled)))


def entry_points(map_file):
    text = re.sub(r'/\*.*?\*/', '', map_file.read_text(encoding='utf-8'), flags=re.DOTALL)
    exported = text.split('global:')[1].split('local:')[0]
    return set(re.findall(r'^\s*([A-Za-z]\w*);', exported, re.MULTILINE))


def elf_facts(arguments):
    dump = output_of(arguments.objdump, '-p', arguments.library)
    names = [line.split()[-1] for line in
             output_of(arguments.nm, '-D', '--defined-only', arguments.library).splitlines()]
    return {
        'name': re.findall(r'^\s*SONAME\s+(\S+)', dump, re.MULTILINE),
        'needed': re.findall(r'^\s*NEEDED\s+(\S+)', dump, re.MULTILINE),
        'paths': re.findall(r'^\s*(?:RPATH|RUNPATH)\s+(\S+)', dump, re.MULTILINE),
        'exported': names,
    }


def dll_facts(arguments):
    dump = output_of(arguments.objdump, '-p', arguments.library)
    table = dump.split('[Ordinal/Name Pointer] Table')[1].split('\n\n')[0]
    return {
        'name': re.findall(r'^Name\s+[0-9a-f]+ (\S+)', dump, re.MULTILINE),
        'needed': re.findall(r'^\s*DLL Name: (\S+)', dump, re.MULTILINE),
        'paths': [],
        'exported': re.findall(r'^\s*\[\s*\d+\](?: \+base\[\s*\d+\])?\s+(?:[0-9a-f]+ )?(\S+)$',
                               table, re.MULTILINE),
    }


def threads_after_load(library):
    """How many threads a process has that has loaded an ELF library and done nothing else."""
    program = ('import ctypes, os, sys; ctypes.CDLL(sys.argv[1]);'
               ' print(len(os.listdir("/proc/self/task")))')
    return int(output_of(sys.executable, '-c', program, library))


def loading_problems(arguments):
    if arguments.library.endswith('.dll'):
        imports = output_of(arguments.objdump, '-p', arguments.library)
        if 'DisableThreadLibraryCalls' not in imports:
            return ['it does not call DisableThreadLibraryCalls']
    elif threads_after_load(arguments.library) != 1:
        return ['loading it starts a thread']
    return []


def find_problems(facts, arguments):
    file_name = pathlib.Path(arguments.library).name
    problems = []
    if pathlib.Path(file_name).stem != arguments.name:
        problems.append(f'the file is {file_name}, not {arguments.name}')
    if facts['name'] != [file_name]:
        problems.append(f'it calls itself {facts["name"]}, not {file_name}')
    problems += [f'it needs {n}' for n in facts['needed'] if not NEEDED.fullmatch(n)]
    problems += [f'it searches {p}' for p in facts['paths']]
    plain = entry_points(arguments.exports)
    names = facts['exported']
    for name, demangled in zip(names, demangle(names)):
        if name not in plain and not is_ours(demangled):
            problems.append(f'it exports {demangled} ({name})')
    problems += [f'it does not export {name}' for name in sorted(plain - set(names))]
    if not any(is_ours(name) for name in demangle(names)):
        problems.append('it exports nothing of namespace nolk')
    return problems


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument('--name', required=True)
    parser.add_argument('--exports', required=True, type=pathlib.Path)
    parser.add_argument('--objdump', required=True)
    parser.add_argument('--nm', required=True)
    parser.add_argument('--foreign-path', action='append', default=[])
    parser.add_argument('library')
    arguments = parser.parse_args()
    facts = (dll_facts if arguments.library.endswith('.dll') else elf_facts)(arguments)
    problems = find_problems(facts, arguments) + loading_problems(arguments)
    content = pathlib.Path(arguments.library).read_bytes()
    problems += [f'the path {path} is in it' for path in arguments.foreign_path
                 if path.encode() in content]
    finish(problems, f'{len(facts["exported"])} exported names')


if __name__ == '__main__':
    main()
