"""Announced activations: the page, the modifications that outlive it, commands by spots, and matching."""

import calendar
import dataclasses
import functools
import html
import re
import time
from typing import Iterable

from account import feed, radio
from account.settings import Settings

HEADING = re.compile(r'<span class="alertDate">(.*?)</span>', re.DOTALL)
TABLE = re.compile(r'<table class="spots">(.*?)</table>', re.DOTALL)
POP_UP = re.compile(r"<tr onMouseOver=\"return overlib\('(.*?)',", re.DOTALL)
CELL = re.compile(r'<td(?:[^>]*)>(.*?)</td>', re.DOTALL)


@dataclasses.dataclass
class Alert:
    key: str
    utc: int | None  # seconds
    base: str
    summit: str
    before: int  # minutes; 0: the user's
    after: int
    announced: str  # as the activator wrote it; of two stations the base callsign
    before_otherwise: int | None = None  # were it not for the summit reference that opens the window

    def __post_init__(self) -> None:
        self.name = radio.upper(self.key)  # keys are compared without case


@dataclasses.dataclass
class Entry:
    """A line of the modifications file."""
    adds: bool
    alert: Alert
    is_live: bool = True


def _plain(text: str) -> str:
    return re.sub(r'[\r\n\t]', ' ', html.unescape(text)).strip(' ')


def _field(text: str) -> str:
    return text.replace('||', '-')


def _date(heading: str) -> int | None:
    words = _plain(heading).split()[1:4]
    try:
        day = re.sub('st|nd|rd|th', '', words[0])
        return calendar.timegm(time.strptime(' '.join([day, *words[1:]]), '%d %B %Y'))
    except (ValueError, IndexError):
        return None


def hours_after(marker: str, comment: str) -> int:
    """Minutes of the hours that follow the marker; 0 without any."""
    found = re.search(re.escape(marker) + r'([0-9. ]*)', comment, re.IGNORECASE)
    hours = radio.single(radio.number(found.group(1))) if found else 0
    return round(hours * 60) if hours > 0 else 0


def marker_is_in_reference(comment: str) -> bool:
    """Whether the first "S-" is a part of something like "GM/SS-064"."""
    found = re.search(r's-', comment, re.IGNORECASE)
    references = re.finditer(r'(?<![a-z0-9])[a-z0-9]s-[0-9]{3}(?![a-z0-9])', comment, re.IGNORECASE | re.ASCII)
    return found is not None and any(found.start() == reference.start() + 1 for reference in references)


@dataclasses.dataclass(frozen=True)
class Activation:
    """One table of the page: who, when and where."""
    second: int | None  # of the day
    stations: tuple[str, ...]
    callsigns: str
    summit: str
    comment: str


@functools.lru_cache(maxsize=20000)
def _activation(table: str) -> Activation | None:
    pop_up = POP_UP.search(table)
    if not pop_up:
        return None
    cells = [re.sub(r'</?strong>', ' ', cell).replace('&nbsp;', '')
             for cell in CELL.findall(table, pop_up.end())[:3]]
    cells = [re.sub(r'[\r\n\t]', ' ', cell) for cell in cells] + [''] * 3
    clock = re.fullmatch(r'(\d\d):(\d\d)', _plain(cells[0]))
    callsigns, on, link = cells[1].partition(' on ')
    stations = dict.fromkeys(filter(None, radio.base_callsigns(_plain(callsigns))))
    summit = re.search(r'>(.*?)<', link)
    comment = re.search(r'<span class="comment">(.*?)</span>', table, re.DOTALL)
    return Activation(int(clock[1]) * 3600 + int(clock[2]) * 60 if clock else None, tuple(stations),
                      _plain(callsigns), _plain(summit.group(1)) if on and summit else '', _plain(comment.group(1)) if comment else '')


def activations(page: str):
    """Date and activation of every table, in the order of the page."""
    headings = list(HEADING.finditer(page))
    for heading, following in zip(headings, headings[1:] + [None]):
        date = _date(heading.group(1))
        for table in TABLE.findall(page, heading.end(), following.start() if following else len(page)):
            found = _activation(table)
            if not found:
                break
            yield date, found


def opts_out(comment: str) -> bool:
    letters = radio.upper(comment).replace(' ', '')
    return 'RBNN' in letters or 'NOTARNLINK' in letters


def is_withdrawn(comment: str) -> bool:
    return 'CANCELLED' in radio.upper(comment) or 'CANCELED' in radio.upper(comment) or opts_out(comment)


def is_command(spot: feed.Spot, settings: Settings) -> bool:
    return (spot.is_self_spot or spot.spotter_base in settings.trusted) and feed.VIA_GATEWAY not in spot.comment


def _stamp(utc: int | None, form: str) -> str:
    return time.strftime(form, time.gmtime(utc)) if utc is not None else ''


def _own_part(found: Activation, base: str) -> str:
    """What the announcement calls the station; of two that are announced together each has its own part."""
    if len(found.stations) == 1:
        return found.callsigns
    names = found.callsigns.replace('&', ' ').split()
    return ' '.join(name for name in names if radio.base_callsign(name) == base)


class Alerts:
    def __init__(self, settings: Settings) -> None:
        self.settings = settings
        self.were_read = False
        self.alerts: dict[str, Alert] = {}  # by key in capitals, in order
        self.entries: list[Entry] = []
        self.waiting: list[tuple[feed.Spot, int]] = []  # commands that came before any alerts were read, and when
        self.acted_on: set[str] = set()  # commands, by their spots
        self.by_station: dict[str, list[Alert]] | None = None  # none: to be made again

    def start_anew(self) -> None:
        """The program ends and starts: the modifications, what waits and what was acted on outlive it."""
        self.were_read = False
        self.alerts, self.by_station = {}, None

    # The page.

    def take_page(self, page: str, now: int) -> bool:
        """False when the reading did not succeed."""
        if not page:
            return False
        has_days = HEADING.search(page) or '<span class="alertDate">' in page
        self.take_activations(activations(page), bool(has_days), now)
        return True

    def take_activations(self, activations: Iterable[tuple[int | None, Activation]], has_days: bool, now: int) -> None:
        """Of dates and activations, in the order of time."""
        utc = now // 1000
        self._prune(utc)
        scraped: dict[str, Alert] = {}
        for date, found in activations:
            time_of_day = None if date is None or found.second is None else date + found.second
            if time_of_day is not None and 0 < self.settings.hours_ahead < int((time_of_day - utc) / 60) // 60:
                break
            for base in found.stations:
                self._take(base, time_of_day, found, utc, scraped)
        if has_days:
            self.alerts, self.were_read = scraped, True
            self._apply()
            self.by_station = None

    def _take(self, base: str, utc: int | None, found: Activation, now: int, scraped: dict[str, Alert]) -> None:
        base = radio.base_callsign(base)
        before, after = self.settings.overrides.get(radio.upper(base), (0, 0))
        is_custom = before != 0 or after != 0
        by_hours = hours_after('S-', found.comment), hours_after('S+', found.comment)
        before, after = by_hours[0] or before, by_hours[1] or after
        is_custom = is_custom or any(by_hours)
        start = f'{_stamp(utc, "%Y-%m-%d %H:%M:%S")}_{base}_{found.summit}_'
        custom_key = _field(start + '!CUSTOM_WINDOW!')
        key = custom_key if is_custom else _field(start + found.comment.replace(' ', '')[:10])
        alert = Alert(key, utc, base, found.summit, before, after, _own_part(found, base))
        if by_hours[0] and marker_is_in_reference(found.comment):
            alert.before_otherwise = self.settings.overrides.get(radio.upper(base), (0, 0))[0]
        if is_withdrawn(found.comment):
            self._remove_entries(custom_key)
        elif alert.name not in scraped:
            scraped[alert.name] = alert
            if is_custom and not any(not entry.adds and entry.alert.name == alert.name for entry in self.entries):
                self._remove_entries(key)
                self._add_entry(True, alert, now)

    # The modifications.

    def _remove_entries(self, key: str) -> None:
        name = radio.upper(key)
        self.entries = [entry for entry in self.entries if not (entry.is_live and entry.alert.name == name)]

    def _is_kept(self, entry: Entry, utc: int) -> bool:
        if entry.alert.utc is None:
            return False
        age = int((utc - entry.alert.utc) / 60)
        entry.is_live = age < (entry.alert.after or self.settings.minutes_after)
        return entry.is_live or (not entry.adds and age < 24 * 60)

    def _prune(self, utc: int) -> None:
        self.entries = [entry for entry in self.entries if self._is_kept(entry, utc)]

    def _add_entry(self, adds: bool, alert: Alert, utc: int) -> None:
        entry = Entry(adds, alert)
        if self._is_kept(entry, utc):
            self.entries.append(entry)

    def _apply(self) -> None:
        for entry in self.entries:
            if entry.adds:
                self._add_in_front(entry.alert)
            else:
                self.alerts.pop(entry.alert.name, None)

    def _add_in_front(self, alert: Alert) -> bool:
        if alert.name in self.alerts:
            return False
        self.alerts = {alert.name: alert, **self.alerts}
        self.by_station = None
        return True

    # Commands by spots.

    def take_command(self, spot: feed.Spot, now: int) -> None:
        """`now`: when the spot was read, in seconds."""
        if spot.id in self.acted_on:
            return
        self.acted_on.add(spot.id)
        utc = now if spot.utc is None else spot.utc
        if self.were_read:
            self._change(spot, utc)
        else:
            self.waiting.append((spot, utc))

    def take_waiting(self) -> None:
        waiting, self.waiting = self.waiting, []
        for spot, utc in waiting:
            self._change(spot, utc)

    def _change(self, spot: feed.Spot, utc: int) -> None:
        is_opt_out = opts_out(spot.comment)
        bases = {spot.base} | (self._bases_that_may_be(spot) if is_opt_out else set())
        for alert in [alert for base in bases for alert in self.matching(base, utc)]:
            del self.alerts[alert.name]
            self.by_station = None
            self.entries.append(Entry(False, alert))
        if not is_opt_out:
            self._add(spot, utc)

    def _bases_that_may_be(self, spot: feed.Spot) -> set[str]:
        forms = radio.callsign_forms(spot.station)
        return {alert.base for alert in self.alerts.values() if forms & radio.callsign_forms(alert.announced)}

    def _add(self, spot: feed.Spot, utc: int) -> None:
        before, after = self.settings.overrides.get(radio.upper(spot.base), (0, 0))
        key = _field(f'!SPOT_ALERT!_{_stamp(utc, "%Y%m%d%H%M")}_{spot.base}_{spot.summit}')
        alert = Alert(key, utc, spot.base, spot.summit, before, after, spot.station)
        if self._add_in_front(alert):
            self.entries.append(Entry(True, alert))

    # Matching.

    def matching(self, base: str, utc: int) -> list[Alert]:
        return [alert for alert in self.of_station(base) if self._distance(alert, utc) is not None]

    def of_station(self, base: str) -> list[Alert]:
        if self.by_station is None:
            self.by_station = {}
            for alert in self.alerts.values():
                self.by_station.setdefault(alert.base, []).append(alert)
        return self.by_station.get(radio.upper(base), [])

    def best(self, base: str, utc: int) -> Alert | None:
        matches = self.matching(base, utc)
        return min(matches, key=lambda alert: self._distance(alert, utc) or 0) if matches else None

    def is_by_reference(self, alert: Alert, utc: int) -> bool:
        if alert.before_otherwise is None or alert.utc is None or utc >= alert.utc:
            return False
        return int((alert.utc - utc) / 60) > (alert.before_otherwise or self.settings.minutes_before)

    def _distance(self, alert: Alert, utc: int) -> int | None:
        """Whole minutes, where the window holds the time."""
        if alert.utc is None:
            return None
        minutes = int((utc - alert.utc) / 60)
        before = alert.before if alert.before >= 1 else self.settings.minutes_before
        after = alert.after if alert.after >= 1 else self.settings.minutes_after
        limit = after if minutes >= 0 else before
        return abs(minutes) if abs(minutes) <= limit else None
