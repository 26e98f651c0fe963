"""The spot feed: which spots a page holds, and which of them are new."""

import calendar
import dataclasses
import functools
import html
import re
import time

from account import radio

TOKEN = re.compile(r'<!\[CDATA\[(.*?)(?:\]\]>|\Z)|<(/?)(rss|item|title|description|pubDate)\b[^>]*>', re.DOTALL)
VIA_GATEWAY = '{Via Tarnlink}'


@dataclasses.dataclass(frozen=True)
class Spot:
    id: str
    utc: int | None  # seconds
    station: str
    base: str
    summit: str
    mhz: float
    key: str  # duplicate key
    band: float
    mode: str
    comment: str
    spotter: str
    spotter_base: str
    is_self_spot: bool
    is_derived: bool = False
    is_qrt: bool = False  # a state, not a frequency


def decoded(text: str) -> str:
    """Entities as characters, but not inside CDATA; line ends and control characters as blanks."""
    parts = re.split(r'<!\[CDATA\[(.*?)(?:\]\]>|\Z)', text, flags=re.DOTALL)
    plain = ''.join(html.unescape(part) if place % 2 == 0 else part for place, part in enumerate(parts))
    plain = re.sub(r' *[\r\n][ \t\r\n]*', ' ', plain)
    return re.sub(r'[\x00-\x1f\x7f-\x9f]', ' ', plain).strip(' ')


def _time(text: str) -> int | None:
    text = decoded(text).replace('GMT', '')
    if text.count(',') != 1:
        return None
    try:
        return calendar.timegm(time.strptime(text.partition(',')[2].strip(), '%d %b %Y %H:%M:%S'))
    except ValueError:
        return None


def _title(text: str) -> tuple[str, str, list[str]]:
    """Station, all callsigns, and what follows the word "on"."""
    tokens = text.split(' ')
    on = next((i for i, token in enumerate(tokens[:-1]) if token.upper() == 'ON'), 1)
    return ' '.join(tokens[:2]) if on == 2 else tokens[0], ' '.join(tokens[:on]), tokens[on + 1:] + [''] * 4


def _said(description: str) -> tuple[str, str]:
    comment, found, spotter = description.rpartition('Posted by')
    if not found:
        return description.strip(), ''
    if comment.endswith('(') and spotter.strip().endswith(')'):
        comment, spotter = comment[:-1], spotter.strip()[:-1]
    return comment.strip(), spotter.strip()


@functools.lru_cache(maxsize=20000)
def _spots_of(raw: tuple[str, str, str]) -> tuple[Spot, ...]:
    title, description, date = raw
    return spots_of(decoded(title), *_said(decoded(description)), _time(date))


def spots_of(title: str, comment: str, spotter: str, utc: int | None) -> tuple[Spot, ...]:
    """The spots that a title like "G4ABC on G/LD-001 @ 7.032 CW" is about: none, one, or those of two stations."""
    if ' ' not in title:
        return ()
    station, callsigns, rest = _title(title)
    base, second = radio.base_callsigns(callsigns)
    if not base:
        return ()
    is_aprs = 'APRS' in spotter
    spotter = station if is_aprs else spotter
    spotter_base = base if is_aprs else radio.base_callsign(spotter)
    stamp = time.strftime('%Y%m%d%H%M%S', time.gmtime(utc)) if utc is not None else f'untimed|{title}|{comment}|'
    mhz = radio.single(radio.number(rest[2]))

    def spot(station: str, base: str, is_derived: bool) -> Spot:
        return Spot(stamp + station + spotter, utc, station, base, rest[0], mhz, radio.duplicate_key(base, mhz),
                    radio.band(mhz), rest[3].upper(), comment, spotter, spotter_base,
                    spotter_base == base and VIA_GATEWAY not in comment, is_derived)
    first = spot(station, base, False)
    return (first, spot(second, second, True)) if second else (first,)


def items(body: str) -> tuple[list[tuple[str, str, str]], bool]:
    """Title, description and date of every whole item, and whether the feed's end was there."""
    found, item, open_tag, begin = [], None, '', 0
    for token in TOKEN.finditer(body):
        name = token.group(3)
        if name is None:
            continue  # CDATA: whatever looks like a tag in it is none
        if open_tag and item is not None:
            item[open_tag] = body[begin:token.start()]
        open_tag = ''
        closes = token.group(2) == '/'
        if name == 'rss' and closes:
            return found, True
        if name == 'item':
            if closes and item is not None:
                found.append((item.get('title', ''), item.get('description', ''), item.get('pubDate', '')))
            item = None if closes else {}
        elif name != 'rss' and not closes and item is not None:
            open_tag, begin = name, token.end()
    return found, False


@functools.lru_cache(maxsize=200)
def spots(body: str) -> tuple[tuple[tuple[Spot, ...], ...], bool]:
    """The spots of every item, newest first; one item may name two stations."""
    raw, ended = items(body)
    return tuple(filter(None, map(_spots_of, raw))), ended


class Intake:
    """What the program has taken from the feed so far."""

    def __init__(self) -> None:
        self.delivered: set[str] = set()
        self.newest = ''

    def read(self, body: str, now: int, is_first_load: bool = False) -> list[Spot] | None:
        """The new spots, newest first; none at all when a first load does not come to its end."""
        read: list[Spot] = []
        found, ended = spots(body)
        newest = ''
        for item in found:
            if item[0].utc is not None and (now // 1000 - item[0].utc) / 60 >= 24 * 60 + 1:
                ended = True
                break
            newest = newest or item[0].id
            if item[0].id == self.newest:
                ended = True
                break
            read.extend(item)
        if not ended and is_first_load:
            return None
        if ended and newest:
            self.newest = newest
        new = []
        for spot in read:
            if spot.id not in self.delivered:
                self.delivered.add(spot.id)
                new.append(spot)
        return new


def recent(body: str, now: int, dupe_minutes: int) -> list[Spot]:
    """Every spot that the final check reads: down to the age limit, newest first."""
    found: list[Spot] = []
    for item in spots(body)[0]:
        if item[0].utc is not None and (now // 1000 - item[0].utc) // 60 > dupe_minutes:
            break
        found.extend(item)
    return found
