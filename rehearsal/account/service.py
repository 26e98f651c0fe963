"""The JSON service: which spots and announcements its lists hold, and what has changed since the last one."""

import calendar
import dataclasses
import functools
import json
import re
import time

from account import alerts, feed, radio

ISO = re.compile(r'(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d)(\.\d+)?(Z)?')
BETWEEN = re.compile(r'[\s,]*')
GIVEN_UP = 'DEPRECATED'
DAY = 86400  # seconds
NEARLY_A_DAY = 24 * 60 - 30  # minutes


class Number(str):
    """A number as the service wrote it."""


@dataclasses.dataclass(frozen=True)
class Row:
    id: str
    kind: str  # NORMAL, TEST or QRT
    spots: tuple[feed.Spot, ...]  # two, when two stations share it


@dataclasses.dataclass(frozen=True)
class List:
    rows: tuple[Row, ...]  # newest first
    ended: bool            # it is a list, and came to its end
    is_gone: bool          # the service says that it is no more
    broken: int            # rows that cannot be read


def text_of(row: dict, name: str) -> str:
    value = row.get(name)
    return feed.decoded(value) if isinstance(value, str) else ''


def seconds_of(row: dict, name: str) -> int | None:
    found = ISO.fullmatch(text_of(row, name))
    return calendar.timegm(time.strptime(found.group(1), '%Y-%m-%dT%H:%M:%S')) if found else None


def summit_of(row: dict) -> str:
    association, code = text_of(row, 'associationCode'), text_of(row, 'summitCode')
    return f'{association}/{code}' if association and code and '/' not in code else code


def is_sentinel(row: dict) -> bool:
    texts = [value for value in row.values() if isinstance(value, str) and not isinstance(value, Number)]
    return GIVEN_UP in texts and all(not text or text == GIVEN_UP or ISO.fullmatch(text) for text in texts)


def _kind(row: dict, frequency: str, mode: str) -> str:
    kind = radio.upper(text_of(row, 'type'))
    if kind == 'TEST':
        return kind
    is_idiom = radio.number(frequency) == 7 and radio.upper(mode) == 'OTHER'
    return 'QRT' if kind == 'QRT' or is_idiom else 'NORMAL'


def _row_of(row: dict) -> Row | None:
    frequency, mode = text_of(row, 'frequency'), text_of(row, 'mode')
    kind = _kind(row, frequency, mode)
    if kind == 'QRT':
        frequency = mode = ''
    title = f'{text_of(row, "activatorCallsign")} on {summit_of(row)} @ {frequency} {mode}'
    spots = feed.spots_of(title, text_of(row, 'comments'), text_of(row, 'callsign'), seconds_of(row, 'timeStamp'))
    spots = [dataclasses.replace(spot, is_qrt=kind == 'QRT') for spot in spots]
    return Row(row['id'] if isinstance(row.get('id'), str) else '', kind, spots) if spots else None


def items_of(body: str) -> tuple[list[str], bool]:
    """The texts of the list's items, and whether it came to its end: of one that broke off those before that."""
    decoder = json.JSONDecoder()
    found: list[str] = []
    at = 1 if body.startswith('[') else len(body)
    while at < len(body):
        at = BETWEEN.match(body, at).end()
        if body.startswith(']', at):
            return found, True
        try:
            end = decoder.raw_decode(body, at)[1]
        except ValueError:
            break
        if body[end:end + 1] in (',', ']'):  # else it may be the half of a number
            found.append(body[at:end])
        at = end
    return found, False


def object_of(item: str) -> dict | None:
    """With its numbers as they are written; nothing for what is no object."""
    value = json.loads(item, parse_int=Number, parse_float=Number)
    return value if isinstance(value, dict) else None


@functools.lru_cache(maxsize=20000)
def _read_item(item: str) -> tuple[bool, Row | None]:
    """Whether it says that the service is no more, and its row, if it is a good one."""
    row = object_of(item)
    if row is None:
        return False, None
    return (True, None) if is_sentinel(row) else (False, _row_of(row))


def read(body: str, oldest: int) -> List:
    """The spots that are not older than that moment, in seconds."""
    items, ended = items_of(body)
    read_items = list(map(_read_item, items))
    rows = [row for _, row in read_items if row is not None]
    broken = sum(row is None and not says_gone for says_gone, row in read_items)
    rows = [row for row in rows if row.spots[0].utc is None or row.spots[0].utc >= oldest]
    rows.sort(key=lambda row: float('inf') if row.spots[0].utc is None else row.spots[0].utc, reverse=True)
    is_gone = ended and (not items or any(says_gone for says_gone, _ in read_items))
    return List(tuple(rows), ended, is_gone, broken)


@dataclasses.dataclass
class Changes:
    added: list[Row] = dataclasses.field(default_factory=list)  # newest first
    edited: list[tuple[Row, Row]] = dataclasses.field(default_factory=list)  # before and after
    deleted: list[Row] = dataclasses.field(default_factory=list)


def _says(row: Row) -> tuple:
    return row.kind, tuple(dataclasses.replace(spot, id='') for spot in row.spots)


class Listing:
    """What the service is known to list."""

    def __init__(self) -> None:
        self.held: dict[str, Row] = {}  # by identity
        self.broken = 0  # in the last whole list

    def take(self, found: List, is_whole: bool, now: int) -> Changes:
        """`is_whole`: all that the service has was asked for. `now` in milliseconds."""
        changes = Changes()
        before, self.held = self.held, {}
        for row in found.rows:
            if row.id in self.held:
                continue
            held = before.pop(row.id, None)
            if held is None:
                changes.added.append(row)
            elif _says(held) != _says(row):
                changes.edited.append((held, row))
            self.held[row.id] = row
        is_whole = is_whole and found.ended and not found.is_gone
        # A broken row more than before may be any of those that are missing.
        if is_whole and found.broken <= self.broken:
            changes.deleted = [row for row in before.values() if not self._leaves_by_itself(row, now)]
        else:
            self.held |= before
        if is_whole:
            self.broken = found.broken
        return changes

    @staticmethod
    def _leaves_by_itself(row: Row, now: int) -> bool:
        utc = row.spots[0].utc
        return utc is not None and (now // 1000 - utc) // 60 >= NEARLY_A_DAY



def read_announcements(body: str) -> list[tuple[int | None, alerts.Activation]] | None:
    """Date and activation of every row, in the order of time; nothing when the list is not to be used."""
    items, ended = items_of(body)
    rows = [row for row in map(object_of, items) if row is not None]
    if not ended or any(map(is_sentinel, rows)):
        return None
    found = [(seconds_of(row, 'dateActivated'), _activation_of(row)) for row in rows]
    found = [(utc, activation) for utc, activation in found if activation.stations]
    found.sort(key=lambda one: float('-inf') if one[0] is None else one[0])
    return [(None if utc is None else utc // DAY * DAY, activation) for utc, activation in found] or None


def _activation_of(row: dict) -> alerts.Activation:
    utc = seconds_of(row, 'dateActivated')
    stations = dict.fromkeys(filter(None, radio.base_callsigns(text_of(row, 'activatingCallsign'))))
    return alerts.Activation(None if utc is None else utc % DAY // 60 * 60, tuple(stations),
                             text_of(row, 'activatingCallsign'), summit_of(row), text_of(row, 'comments'))
