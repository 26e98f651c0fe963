"""Reads C++ sources just well enough for the house laws: code without comments and literals, includes,
and where each function begins and ends. Line numbers are kept throughout."""

import re
from typing import Iterator, NamedTuple

_LITERALS = re.compile(
    r'//[^\n]*'
    r'|/\*.*?\*/'
    r'|R"(?P<mark>[^()\\\s]{0,16})\(.*?\)(?P=mark)"'
    r'|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9A-Za-z_])'(?:\\.|[^'\\\n])*'",
    re.DOTALL)
_INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(<[^>\n]+>|"[^"\n]+")', re.MULTILINE)
_DIRECTIVE = re.compile(r'^[ \t]*#(?:[^\n]*\\\n)*[^\n]*', re.MULTILINE)
_TOKEN = re.compile(r'[{};]')
_QUALIFIERS = re.compile(r'(?:\b(?:const|noexcept|override|final|mutable|try)\b|&{1,2}|->[^(){};]*)\s*$')
_ACCESS = re.compile(r'\s*(?:(?:public|private|protected)\s*:\s*)*')
_INITIALIZERS = re.compile(r'\)\s*(?:noexcept\s*)?:(?!:)')


class Include(NamedTuple):
    line: int
    target: str  # as written, with its quotes or brackets


class Function(NamedTuple):
    line: int
    last_line: int
    heading: str

    @property
    def length(self) -> int:
        return self.last_line - self.line + 1


def blank(text: str) -> str:
    """The same number of characters and lines, with nothing in them."""
    return re.sub(r'[^\n]', ' ', text)


def without_literals(text: str) -> str:
    return _LITERALS.sub(lambda match: blank(match.group()), text)


def includes(text: str) -> list[Include]:
    without_comments = _LITERALS.sub(
        lambda match: blank(match.group()) if match.group().startswith('/') else match.group(), text)
    return [Include(text.count('\n', 0, match.start(1)) + 1, match.group(1))
            for match in _INCLUDE.finditer(without_comments)]


def _opens_function(heading: str, outer: str) -> bool:
    if outer not in ('namespace', 'type') or '(' not in heading:
        return False
    ending = heading.rstrip()
    while _QUALIFIERS.search(ending):
        ending = _QUALIFIERS.sub('', ending).rstrip()
    if ending.endswith(')'):
        return True
    # After a constructor's last member initializer, `a_{1} {`.
    return ending.endswith('}') and bool(_INITIALIZERS.search(ending))


def _scope_opened(heading: str, outer: str) -> str:
    if re.search(r'\bnamespace\b', heading) or heading.strip() == 'extern':
        return 'namespace'
    if _opens_function(heading, outer):
        return 'function'
    if outer != 'function' and re.search(r'\b(class|struct|union|enum)\b', heading) and \
            not re.search(r'[=)]', re.sub(r'\([^()]*\)|<[^<>]*>', '', heading)):
        return 'type'
    return 'other'


def functions(text: str) -> Iterator[Function]:
    """Functions with a body, from the first line of their heading to the closing brace. A lambda belongs to
    the function that holds it."""
    code = _DIRECTIVE.sub(lambda match: blank(match.group()), without_literals(text))
    scopes: list[tuple[str, int, str]] = [('namespace', 0, '')]
    heading_start = 0
    for token in _TOKEN.finditer(code):
        kind, start, heading = scopes[-1]
        if token.group() == '{':
            heading = code[heading_start:token.start()]
            kind = _scope_opened(heading, kind)
            scopes.append((kind, heading_start, heading))
            if kind == 'other':
                continue
        elif token.group() == '}' and len(scopes) > 1:
            scopes.pop()
            if kind == 'function':
                first = start + _ACCESS.match(heading).end()
                yield Function(code.count('\n', 0, first) + 1, code.count('\n', 0, token.start()) + 1,
                               ' '.join(code[first:start + len(heading)].split()))
            if kind == 'other' and scopes[-1][0] != 'function':
                continue  # an initializer's brace: the heading goes on behind it
        heading_start = token.end()
