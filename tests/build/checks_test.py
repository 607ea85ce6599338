#!/usr/bin/env python3
"""Tests of the checks beside this file: each must find in a small bad tree what it looks for."""

import argparse
import pathlib
import subprocess
import sys
import tempfile
import unittest

import library

HERE = pathlib.Path(__file__).resolve().parent
DIAGRAM = '# Rooms\n\n```mermaid\ngraph TD\n{edges}```\n'


class Tree:
    """A tree in a temporary directory that holds all checks until a test spoils it."""

    def __init__(self):
        self.directory = tempfile.TemporaryDirectory()
        self.root = pathlib.Path(self.directory.name)
        self.write('include/nolk/core/Export.h', '#if defined(_WIN32)\n#endif\n')
        self.write('include/nolk/core/Types.h', '')
        self.write('include/nolk/core/Exception.h', '#include <nolk/core/Export.h>\n')
        self.write('source/nolk/core/platform/Files.h', '')
        self.write('source/nolk/core/platform/posix/Files.cpp',
                   '#include "nolk/core/platform/Files.h"\n#include <fcntl.h>\n')
        self.write('source/nolk/core/foundation/Exception.cpp',
                   '#include <nolk/core/Exception.h>\n#include "nolk/core/platform/Files.h"\n')
        self.draw('    foundation --> platform\n')
        self.run('core_header.py', '--write')

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding='utf-8')

    def draw(self, edges):
        self.write('docs/architecture.md', DIAGRAM.format(edges=edges))

    def run(self, script, *arguments):
        """What a check prints, and whether it holds."""
        done = subprocess.run([sys.executable, HERE / script, self.root, *arguments],
                              capture_output=True, text=True)
        return done.stdout + done.stderr, done.returncode == 0


class ChecksTest(unittest.TestCase):
    def setUp(self):
        self.tree = Tree()
        self.addCleanup(self.tree.directory.cleanup)

    def assert_good(self, script):
        output, good = self.tree.run(script)
        self.assertTrue(good, output)

    def assert_bad(self, script, words):
        output, good = self.tree.run(script)
        self.assertFalse(good, output)
        self.assertIn(words, output)


class Rooms(ChecksTest):
    def test_a_good_tree_holds(self):
        self.assert_good('rooms.py')

    def test_an_include_from_a_room_below_is_found(self):
        self.tree.write('source/nolk/core/xml/XmlName.cpp', '')
        self.tree.write('include/nolk/core/XmlName.h', '')
        self.tree.write('source/nolk/core/platform/Files.h', '#include <nolk/core/XmlName.h>\n')
        self.assert_bad('rooms.py', 'platform may not know xml')

    def test_a_public_header_counts_for_its_room(self):
        self.tree.write('source/nolk/core/xml/XmlName.cpp', '')
        self.tree.write('include/nolk/core/XmlName.h', '')
        self.tree.write('include/nolk/core/Exception.h', '#include <nolk/core/XmlName.h>\n')
        self.assert_bad('rooms.py', 'foundation may not know xml')

    def test_the_message_may_look_down_to_the_catalogs_and_is_drawn_dotted(self):
        self.tree.write('source/nolk/core/catalog/Catalog.h', '')
        self.tree.write('source/nolk/core/foundation/LocalizedMessage.cpp',
                        '#include "nolk/core/catalog/Catalog.h"\n')
        self.tree.draw('    foundation --> platform\n    foundation -.-> catalog\n')
        self.assert_good('rooms.py')

    def test_no_other_file_may(self):
        self.tree.write('source/nolk/core/catalog/Catalog.h', '')
        self.tree.write('source/nolk/core/foundation/Hash.cpp',
                        '#include "nolk/core/catalog/Catalog.h"\n')
        self.assert_bad('rooms.py', 'foundation may not know catalog')

    def test_a_header_is_given_to_a_room_by_its_test(self):
        self.tree.write('include/nolk/core/HashMap.h', '#include "nolk/core/platform/Files.h"\n')
        self.tree.write('tests/foundation/HashMapTest.cpp', '')
        self.assert_good('rooms.py')

    def test_a_header_of_no_room_is_found(self):
        self.tree.write('include/nolk/core/Stray.h', '')
        self.assert_bad('rooms.py', 'nolk/core/Stray.h belongs to no room')

    def test_a_directory_that_is_no_room_is_found(self):
        self.tree.write('source/nolk/core/attic/Old.cpp', '')
        self.assert_bad('rooms.py', 'stands in no room')

    def test_the_header_of_everything_is_not_for_the_library(self):
        self.tree.write('source/nolk/core/foundation/Hash.cpp', '#include <nolk/core.h>\n')
        self.assert_bad('rooms.py', 'for callers only')

    def test_an_edge_that_is_not_drawn_is_found(self):
        self.tree.draw('')
        self.assert_bad('rooms.py', 'lacks the edge foundation --> platform')

    def test_an_edge_that_is_not_there_is_found(self):
        self.tree.draw('    foundation --> platform\n    xml --> foundation\n')
        self.assert_bad('rooms.py', 'draws xml --> foundation')

    def test_an_edge_drawn_twice_is_found(self):
        self.tree.draw('    foundation --> platform\n    foundation --> platform\n')
        self.assert_bad('rooms.py', 'twice')

    def test_the_diagram_is_written_anew(self):
        self.tree.draw('    xml --> foundation\n')
        self.tree.run('rooms.py', '--write')
        self.assert_good('rooms.py')


class CoreHeader(ChecksTest):
    def test_a_good_tree_holds(self):
        self.assert_good('core_header.py')

    def test_a_header_left_out_is_found(self):
        self.tree.write('include/nolk/core/regex/RegexImp.h', '')
        self.assert_bad('core_header.py', 'lacks nolk/core/regex/RegexImp.h')

    def test_a_header_that_went_away_is_found(self):
        (self.tree.root / 'include/nolk/core/Exception.h').unlink()
        self.assert_bad('core_header.py', 'includes nolk/core/Exception.h')


class PlatformOnly(ChecksTest):
    def test_a_good_tree_holds(self):
        self.assert_good('platform_only.py')

    def test_a_condition_in_another_room_is_found(self):
        self.tree.write('source/nolk/core/xml/XmlName.cpp', '#  if !defined(_WIN32)\n#endif\n')
        self.assert_bad('platform_only.py', 'XmlName.cpp asks for _WIN32')

    def test_a_condition_in_a_test_is_found(self):
        self.tree.write('tests/xml/XmlNameTest.cpp', '#ifdef __linux__\n#endif\n')
        self.assert_bad('platform_only.py', 'XmlNameTest.cpp asks for __linux__')

    def test_a_system_header_in_another_room_is_found(self):
        self.tree.write('source/nolk/core/xml/XmlName.cpp', '#include <sys/stat.h>\n')
        self.assert_bad('platform_only.py', 'includes sys/stat.h')

    def test_a_word_in_a_comment_is_none(self):
        self.tree.write('source/nolk/core/xml/XmlName.cpp', '// _WIN32 has its own\n')
        self.assert_good('platform_only.py')


class Library(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        exports = pathlib.Path(directory.name) / 'exports.map'
        exports.write_text('{\nglobal:\n    _ZN4nolk*;\n    createPlain;\nlocal:\n    *;\n};\n')
        self.arguments = argparse.Namespace(library='/lib/nolk_core.so', name='nolk_core',
                                            exports=exports)
        self.facts = {'name': ['nolk_core.so'], 'needed': ['libstdc++.so.6', 'libc.so.6'],
                      'paths': [],
                      'exported': ['_ZN4nolk5CountEv', '_ZTIN4nolk9ExceptionE', 'createPlain',
                                   '_ZThn8_N4nolk1BD0Ev', '_ZN4nolk1fIiEEvT_']}

    def assert_found(self, words):
        self.assertIn(words, '\n'.join(library.find_problems(self.facts, self.arguments)))

    def test_a_good_library_holds(self):
        self.assertEqual([], library.find_problems(self.facts, self.arguments))

    def test_a_name_of_the_standard_library_is_found(self):
        self.facts['exported'].append('_ZNSt6vectorIN4nolk9ExceptionESaIS1_EE4growEv')
        self.assert_found('it exports std::vector<nolk::Exception')

    def test_a_plain_name_that_the_map_does_not_list_is_found(self):
        self.facts['exported'].append('helper')
        self.assert_found('it exports helper')

    def test_a_missing_entry_point_is_found(self):
        self.facts['exported'].remove('createPlain')
        self.assert_found('it does not export createPlain')

    def test_a_library_that_exports_nothing_of_ours_is_found(self):
        self.facts['exported'] = ['createPlain']
        self.assert_found('nothing of namespace nolk')

    def test_another_soname_is_found(self):
        self.facts['name'] = ['libnolk_core.so']
        self.assert_found("it calls itself ['libnolk_core.so']")

    def test_another_file_name_is_found(self):
        self.arguments.library = '/lib/libnolk_core.so'
        self.assert_found('the file is libnolk_core.so')

    def test_a_foreign_library_is_found(self):
        self.facts['needed'].append('libicuuc.so.72')
        self.assert_found('it needs libicuuc.so.72')

    def test_a_search_path_is_found(self):
        self.facts['paths'] = ['/home/me/lib']
        self.assert_found('it searches /home/me/lib')


if __name__ == '__main__':
    unittest.main()
