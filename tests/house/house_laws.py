#!/usr/bin/python3
"""The laws of the house: what must stay true of the sources wherever they grow. Each law says why.

Usage: house_laws.py [root of the source tree]. Prints one line for every breach; exit status 1 when there
is one."""

import os
import pathlib
import posixpath
import re
import sys
from typing import Callable, Iterator, NamedTuple

import cpp_text

NOT_OURS = {'.git', 'build', '__pycache__'}
SKINS = {'qt', 'console'}
CODE_SUFFIXES = {'.h', '.cpp'}
CODE_FOLDERS = ('src', 'practice', 'rehearsal', 'testing', 'tests', 'benchmarks', 'fuzz')
TEXT_SUFFIXES = CODE_SUFFIXES | {'.py', '.md', '.txt', '.cmake', '.sh', '.json', '.in', '.yml', ''}

Tree = dict[str, str]  # path from the root, with slashes: the file's text


class Law(NamedTuple):
    name: str
    why: str
    breaches: Callable[[Tree], Iterator[str]]


def is_code(path: str) -> bool:
    return pathlib.PurePosixPath(path).suffix in CODE_SUFFIXES


def code_of(tree: Tree, *folders: str) -> Iterator[tuple[str, str]]:
    for path, text in tree.items():
        if is_code(path) and path.split('/')[0] in folders:
            yield path, text


def room(path: str) -> str:
    parts = path.split('/')
    return parts[1] if parts[0] == 'src' and len(parts) > 2 else ''


def floors(tree: Tree) -> dict[str, int]:
    """The floor of every room, lowest 0: the order in which the build names them, with the skins on top."""
    named = re.search(r'set\(CORE_ROOMS ([^)]*)\)', tree.get('src/CMakeLists.txt', ''))
    core = named.group(1).split() if named else []
    return {name: number for number, name in enumerate(core)} | dict.fromkeys(SKINS, len(core))


def own_includes(path: str, text: str, tree: Tree) -> Iterator[tuple[int, str]]:
    """The files of src that a file includes: by the path from src, or from beside it."""
    for line, target in cpp_text.includes(text):
        name = target[1:-1]
        beside = posixpath.normpath(posixpath.join(posixpath.dirname(path), name))
        for candidate in ('src/' + name, beside):
            if candidate in tree:
                yield line, candidate
                break


def upward_includes(tree: Tree) -> Iterator[str]:
    floor = floors(tree)
    for path, text in code_of(tree, 'src'):
        if room(path) not in floor:
            yield f'{path}: the room "{room(path)}" is on no floor of src/CMakeLists.txt'
            continue
        for line, target in own_includes(path, text, tree):
            up = floor.get(room(target), 0) - floor[room(path)]
            if up > 0:
                yield f'{path}:{line}: includes {target}, {up} floor(s) up'


def unit_circles(tree: Tree) -> Iterator[str]:
    """A header and its source are one unit."""
    edges: dict[str, set[str]] = {}
    for path, text in code_of(tree, 'src'):
        unit = path.rsplit('.', 1)[0]
        targets = {target.rsplit('.', 1)[0] for _, target in own_includes(path, text, tree)}
        edges.setdefault(unit, set()).update(targets - {unit})
    done: set[str] = set()

    def walk(unit: str, trail: list[str]) -> Iterator[str]:
        if unit in trail:
            yield ' -> '.join(trail[trail.index(unit):] + [unit])
        elif unit not in done:
            for target in sorted(edges.get(unit, ())):
                yield from walk(target, trail + [unit])
            done.add(unit)

    for unit in sorted(edges):
        yield from walk(unit, [])


def qt_in_the_core(tree: Tree) -> Iterator[str]:
    for path, text in code_of(tree, 'src'):
        if room(path) in SKINS:
            continue
        for line, target in cpp_text.includes(text):
            if re.match(r'<(Q[A-Z]|Qt|q[a-z]+\.h>)', target):
                yield f'{path}:{line}: includes {target}'


OUTSIDE_WORLD = re.compile(
    r'\b(?:system_clock|steady_clock|utc_clock|high_resolution_clock|clock_gettime|gettimeofday|localtime(?:_r)?'
    r'|gmtime(?:_r)?|mktime|timegm|strftime|setlocale)\b'
    r'|\b(?:sleep_for|sleep_until|this_thread|nanosleep|usleep)\b'
    r'|\b(?:getenv|secure_getenv|setenv|putenv)\b'
    r'|\b(?:i|o)?fstream\b|\bfilesystem\b|\b(?:fopen|freopen|opendir|mkstemp|tmpfile)\b'
    r'|(?<![\w.>:])(?:std::|::)?time\s*\(\s*(?:nullptr|NULL|0|&)'
    r'|(?<![\w.>:])(?:::)?(?:sleep|socket|connect|recv|unlink|stat)\s*\((?!\))'
    r'|\bQ(?:File|SaveFile|Dir|TcpSocket|NetworkAccessManager|ElapsedTimer|Process)\b'
    r'|\bQ(?:DateTime|Date|Time)::current\w+|\bqgetenv\b|\bqEnvironmentVariable\b')
OUTSIDE_HEADERS = re.compile(
    r'<(?:fstream|filesystem|ctime|time\.h|thread|unistd\.h|fcntl\.h|netdb\.h|dirent\.h|sys/\w+\.h|netinet/\w+\.h'
    r'|arpa/\w+\.h|cstdio|stdio\.h)>')


def outside_world_in_rooms(tree: Tree) -> Iterator[str]:
    for path, text in code_of(tree, 'src'):
        if room(path) in ('platform', 'qt'):
            continue
        for line, target in cpp_text.includes(text):
            if OUTSIDE_HEADERS.match(target) and not (room(path) == 'console' and 'stdio' in target):
                yield f'{path}:{line}: includes {target}'
        for number, line in enumerate(cpp_text.without_literals(text).split('\n'), 1):
            found = OUTSIDE_WORLD.search(line)
            if found and not line.lstrip().startswith('#'):
                yield f'{path}:{number}: uses {found.group().rstrip("( ")}'


def line_count(text: str) -> int:
    return text.count('\n')


def long_files(tree: Tree) -> Iterator[str]:
    for path, text in code_of(tree, *CODE_FOLDERS):
        if line_count(text) > 500:
            yield f'{path}: {line_count(text)} lines, 500 are the most'


def share_breach(small: int, total: int, least: float, what: str) -> Iterator[str]:
    if total and small / total < least:
        yield f'{small} of {total} {what}, {100 * small / total:.0f} %, should be {100 * least:.0f} % at least'


def few_short_files(tree: Tree) -> Iterator[str]:
    lengths = [line_count(text) for _, text in code_of(tree, *CODE_FOLDERS)]
    yield from share_breach(sum(length < 100 for length in lengths), len(lengths), 0.5,
                            'files have fewer than 100 lines')


def long_functions(tree: Tree) -> Iterator[str]:
    for path, text in code_of(tree, *CODE_FOLDERS):
        for function in cpp_text.functions(text):
            if function.length > 60:
                yield f'{path}:{function.line}: {function.heading}: {function.length} lines, 60 are the most'


def few_short_functions(tree: Tree) -> Iterator[str]:
    lengths = [function.length for _, text in code_of(tree, 'src', 'practice')
               for function in cpp_text.functions(text)]
    yield from share_breach(sum(length <= 10 for length in lengths), len(lengths), 2 / 3,
                            'functions have 10 lines or fewer')


def silent_headers(tree: Tree) -> Iterator[str]:
    for path, text in code_of(tree, *CODE_FOLDERS):
        if path.endswith('.h') and not re.match(r'//\s*\w', text):
            yield f'{path}:1: does not open with a comment'


# Put together from pieces, since this file is under the law too.
FORBIDDEN_WORDS = re.compile(r'\b(?:TO' r'DO|FIX' r'ME)\b|\bPa' r'rts? \d+\.\d+|/wo' r'rk/|/ro' r'ot/')


def forbidden_words(tree: Tree) -> Iterator[str]:
    for path, text in tree.items():
        for found in FORBIDDEN_WORDS.finditer(text):
            yield f'{path}:{text.count(chr(10), 0, found.start()) + 1}: "{found.group()}"'


def start_rules(text: str) -> list[tuple[str, str]]:
    table = text[text.find('StartRules{{'):]
    rows = re.findall(r'\{Work::(\w+),\s*\{([^}]*)\}', table[:table.find('}};')])
    return [(work, ', '.join(re.findall(r'Activity::(\w+)', during))) for work, during in rows]


def rules_told_otherwise(tree: Tree) -> Iterator[str]:
    page = re.findall(r'^\| (\w+) \| ([\w, ]+) \|$', tree.get('docs/architecture.md', ''), re.MULTILINE)
    for rule in start_rules(tree.get('src/platform/activities.h', '')):
        if rule not in page:
            yield f'docs/architecture.md: has no row "| {rule[0]} | {rule[1]} |"'


LAWS = [
    Law('no upward include',
        'A room rests on the rooms below it. An include upward ties it to everything above, and it can no '
        'longer be read, tested or changed alone.', upward_includes),
    Law('no circle of units',
        'A header with its source is one unit; units that use each other in a circle can only be understood, '
        'tested and changed together.', unit_circles),
    Law('no Qt in the core',
        'What the program knows and decides must run without a window: in tests, in the console, '
        'without Qt.', qt_in_the_core),
    Law('no outside world but through the ports',
        'A clock, sleep, environment, file or socket call outside platform/ and qt/ escapes the scripted '
        'world of the tests: add it to a port.', outside_world_in_rooms),
    Law('no long file', 'A file holds one idea; past 500 lines it holds several.', long_files),
    Law('short files', 'Half of all files stay under 100 lines, so that a newcomer reads one at a sitting.',
        few_short_files),
    Law('no long function', 'A function past 60 lines does not fit on a screen or in a head.', long_functions),
    Law('short functions', 'Two functions in three stay within 10 lines: each is one step of a story.',
        few_short_functions),
    Law('every header opens with its comment',
        'The first lines of a header are where a reader learns what it is for.', silent_headers),
    Law('what may nest is told as it is',
        'Whoever adds a wait reads on one page what may begin in it; a page that differs misleads him.',
        rules_told_otherwise),
    Law('no forbidden words',
        'A comment speaks to a reader who has this tree and nothing else: work left undone, chapters of '
        'other papers and folders of one machine tell him nothing.', forbidden_words),
]


def read_tree(root: pathlib.Path) -> Tree:
    tree = {}
    for folder, subfolders, names in os.walk(root):
        subfolders[:] = [name for name in subfolders if name not in NOT_OURS]
        for name in set(names) - NOT_OURS:
            file = pathlib.Path(folder, name)
            if file.suffix in TEXT_SUFFIXES:
                tree[file.relative_to(root).as_posix()] = file.read_text(encoding='utf-8', errors='replace')
    return tree


def main() -> int:
    root = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2]
    tree = read_tree(root)
    broken = 0
    for law in LAWS:
        breaches = list(law.breaches(tree))
        if breaches:
            broken += 1
            print(f'Broken: {law.name}. {law.why}')
            print(''.join(f'  {breach}\n' for breach in breaches), end='')
    print(f'{len(LAWS) - broken} of {len(LAWS)} laws hold over {sum(map(is_code, tree))} source files.')
    return 1 if broken else 0


if __name__ == '__main__':
    sys.exit(main())
