#!/usr/bin/python3
"""Plants a breach of every law, one at a time, and looks whether that law, and no other, finds it.

A law that cannot fail guards nothing."""

import sys

import house_laws

HEADER = '// What this is for.\n#pragma once\n'


def lines(count: int) -> str:
    return '  Step();\n' * count


CLEAN = {
    'src/CMakeLists.txt': 'set(CORE_ROOMS base platform core spots ui cycle)\n',
    'src/base/text.h': HEADER + '// Not #include "ui/list.h", TrimTime(now), nor "getenv(x)".\nint Trim(int time);\n',
    'src/platform/clock.cpp': '#include <ctime>\nlong Now() { return time(nullptr); }\n',
    'src/ui/list.h': HEADER + '#include "base/text.h"\n',
    'src/ui/list.cpp': '#include "ui/list.h"\n\nvoid List::Show() {\n' + lines(7) + '}\n'
                       'auto time = Value("<QWidget>") + clock.time(1) + clock.time();\n',
    'src/qt/window.cpp': '#include <QWidget>\n#include "ui/list.h"\n',
}

# The law's name, what is planted, and a piece of the message that must come.
PLANTED = [
    ('no upward include', {'src/base/up.cpp': '#include "ui/list.h"\n'}, 'src/base/up.cpp:1'),
    ('no upward include', {'src/platform/up.cpp': '\n#include "../ui/list.h"\n'}, 'src/platform/up.cpp:2'),
    ('no upward include', {'src/attic/old.h': HEADER}, 'attic'),
    ('no circle of units', {'src/ui/a.h': HEADER + '#include "ui/b.h"\n',
                            'src/ui/b.h': HEADER + '#include "ui/c.h"\n',
                            'src/ui/c.h': HEADER + '#include "a.h"\n'}, 'src/ui/b -> src/ui/c'),
    ('no circle of units', {'src/ui/a.h': HEADER, 'src/ui/a.cpp': '#include "ui/b.h"\n',
                            'src/ui/b.h': HEADER, 'src/ui/b.cpp': '#include "ui/a.h"\n'}, 'src/ui/a -> src/ui/b'),
    ('no Qt in the core', {'src/cycle/a.cpp': '#include <QtCore/QString>\n'}, 'src/cycle/a.cpp:1'),
    ('no Qt in the core', {'src/ui/a.cpp': '// x\n#include <QString>\n'}, 'src/ui/a.cpp:2'),
    *[('no outside world but through the ports', {'src/core/a.cpp': f'\nint F() {{ {call}; }}\n'},
       'src/core/a.cpp:2') for call in (
           'std::chrono::steady_clock::now()', 'auto t = std::time(nullptr)', 'time(nullptr)',
           'std::this_thread::sleep_for(x)', 'sleep(1)', 'std::getenv("HOME")', 'std::ofstream out("a")',
           'std::filesystem::exists(p)', 'fopen("a", "r")', '::socket(1, 2, 3)', 'QFile file("a")',
           'QDateTime::currentDateTime()', 'localtime(&t)')],
    ('no outside world but through the ports', {'src/spots/a.cpp': '#include <fstream>\n'}, 'src/spots/a.cpp:1'),
    ('no long file', {'src/core/a.cpp': 'int x;\n' * 501, 'src/ui/b.cpp': '\n'}, '501 lines'),
    ('short files', {f'src/core/a{i}.cpp': 'int x;\n' * 100 for i in range(9)}, '5 of 14'),
    ('no long function', {'tests/a.cpp': 'TEST(A, B) {\n' + lines(59) + '}\n'}, 'TEST(A, B): 61 lines'),
    ('no long function',
     {'tests/a.cpp': 'A::A(int b) noexcept\n    : b_{b}, c_{"}"} {\n' + lines(59) + '}\n'}, '62 lines'),
    ('short functions', {'src/core/a.cpp': ('int F() {\n' + lines(9) + '}\n') * 2}, '2 of 4'),
    ('every header opens with its comment', {'src/core/a.h': '#pragma once\n'}, 'src/core/a.h:1'),
    ('what may nest is told as it is',
     {'src/platform/activities.h': HEADER + 'StartRules{{{Work::Send, {Activity::A, Activity::B}}}};\n',
      'docs/architecture.md': '| Send | A |\n'}, '| Send | A, B |'),
    ('no forbidden words', {'docs/a.md': 'x\nTO' + 'DO\n'}, 'docs/a.md:2'),
    ('no forbidden words', {'src/core/a.cpp': '// See Pa' + 'rt 2.3.\n'}, 'src/core/a.cpp:1'),
    ('no forbidden words', {'run': 'cd /wo' + 'rk/here\n'}, 'run:1'),
]


def breaches_of(tree: house_laws.Tree) -> dict[str, list[str]]:
    found = {law.name: list(law.breaches(tree)) for law in house_laws.LAWS}
    return {name: breaches for name, breaches in found.items() if breaches}


def main() -> int:
    faults = [f'the clean tree breaks {found}' for found in [breaches_of(CLEAN)] if found]
    for law, files, message in PLANTED:
        found = breaches_of(CLEAN | files)
        if list(found) != [law] or message not in '\n'.join(found[law]):
            faults.append(f'{law}: planted {list(files)}, found {found}')
    unproved = {law.name for law in house_laws.LAWS} - {law for law, _, _ in PLANTED}
    faults += [f'no breach is planted for: {name}' for name in unproved]
    print('\n'.join(faults) or f'{len(PLANTED)} planted breaches, each found by its law alone.')
    return 1 if faults else 0


if __name__ == '__main__':
    sys.exit(main())
