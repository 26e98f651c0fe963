"""The skimmers' stream: which lines become spots, and which of those match an announced activation."""

import dataclasses
import re

from account import ledger, radio
from account.alerts import Alert, Alerts
from account.settings import Settings

STATION_CHARACTERS = re.compile(r'[A-Za-z0-9/-]*')


@dataclasses.dataclass
class Heard:
    """A line about a station that calls and matches an alert: what the gateway looks at."""
    line: ledger.Line
    station: str
    base: str
    mhz: float
    key: str
    band: float
    mode: str
    signal_to_noise: int
    speed: int
    skimmer: str
    summit: str
    is_by_reference: bool  # the alert's window holds the time only by the "S-" of a summit reference
    is_near: bool  # within the margin of a boundary: it might as well not have come this far
    is_late: bool = False  # came so shortly before the check that it may belong to the next one
    has_company: bool = False  # of other late ones: which of them was looked at only a post can tell


def fields_of(text: str) -> list[str]:
    fields = [re.sub(r'[\r\n\a]', '', field).strip(' ') for field in re.split('  +', text.strip(' '))]
    return fields + [''] * (8 - len(fields))


def pieces(lines: list[ledger.Line]) -> list[tuple[ledger.Line, str]]:
    """Every piece that begins with "DX de", with the line it came in."""
    found: list[tuple[ledger.Line, str]] = []
    for line in lines:
        parts = re.sub(r'-#: *', '-#:  ', line.text).split('DX de')
        if found and parts[0]:
            found[-1] = (found[-1][0], found[-1][1] + parts[0])
        found.extend((line, part) for part in parts[1:])
    return [(line, piece) for line, piece in found if piece.strip(' \r\n\a')]


class Parser:
    def __init__(self, settings: Settings, alerts: Alerts, known: set[str], margin: int) -> None:
        self.settings = settings
        self.alerts = alerts
        self.known = known
        self.margin = margin  # milliseconds
        self.recent: dict[str, int] = {}  # duplicate keys: when they were first heard

    def parse(self, lines: list[ledger.Line], now: int) -> tuple[list[Heard], int]:
        """The spots for the gateway, in order, and how many lines were about a station."""
        period = self.settings.duplicate_minutes * 60_000
        about_to_go = set()
        if period > 0:
            about_to_go = {key for key, since in self.recent.items() if abs(now - since - period) < self.margin}
            self.recent = {key: since for key, since in self.recent.items() if now - since < period}
        heard = []
        found = pieces(lines)
        for line, piece in found:
            spot = self._spot(line, fields_of(piece), now, about_to_go)
            if spot is not None:
                heard.append(spot)
        return heard, len(found)

    def forget(self, heard: Heard, now: int) -> None:
        """Undoes what was remembered of a spot that was heard just now."""
        if self.recent.get(heard.key) == now:
            del self.recent[heard.key]

    def _spot(self, line: ledger.Line, fields: list[str], now: int, about_to_go: set[str]) -> Heard | None:
        settings = self.settings
        is_cq = radio.upper(fields[6]) == 'CQ'
        if not is_cq and not settings.every_spot_type:
            return None
        base = radio.base_callsign(fields[2])
        if settings.known_activators_only and base not in self.known:
            return None
        alert, is_near = self._best(base, now)
        if alert is None and settings.matched_only:
            return None
        mhz = radio.single(radio.single(radio.number(fields[1])) / 1000)
        key = radio.duplicate_key(base, mhz)
        is_near = is_near or key in about_to_go
        if settings.drops_repeats and key in self.recent and key not in about_to_go:
            return None
        skimmer = fields[0].replace('-#:', '').strip(' ')
        if not self._is_wanted(base, mhz, fields[3], skimmer):
            return None
        self.recent.setdefault(key, now)
        if alert is None or not is_cq:
            return None
        return Heard(line, fields[2], base, mhz, key, radio.band(mhz), fields[3],
                     self._whole(fields[4], 'dB'), self._whole(fields[5], 'WPM'), skimmer, alert.summit,
                     self.alerts.is_by_reference(alert, now // 1000), is_near)

    def _best(self, base: str, now: int) -> tuple[Alert | None, bool]:
        """The alert that matches, or would within the margin, and whether that margin decides."""
        if not self.alerts.of_station(base):
            return None, False
        best = self.alerts.best(base, now // 1000)
        others = [self.alerts.best(base, (now + shift) // 1000) for shift in (-self.margin, self.margin)]
        summits = {other.summit if other else None for other in [best, *others]}
        return next((alert for alert in [best, *others] if alert), None), len(summits) > 1

    def _is_wanted(self, base: str, mhz: float, mode: str, skimmer: str) -> bool:
        spotter = radio.base_callsign(skimmer)
        values = {'station': base, 'band': radio.single_text(radio.single(radio.band(mhz))), 'mode': mode,
                  'spotter': spotter}
        excluded = self.settings.wanted['excluded spotter']
        return all(radio.matches_list(self.settings.wanted[name], value) for name, value in values.items()) and \
            not (excluded.strip() and radio.matches_list(excluded, spotter))

    @staticmethod
    def _whole(text: str, unit: str) -> int:
        return round(radio.single(radio.number(text.replace(unit, '').strip(' '))))


def form_body(heard: Heard, settings: Settings) -> str | None:
    """What is to be posted; nothing for a spot that the form cannot carry."""
    association, slash, summit = heard.summit.partition('/')
    parts = heard.station.strip(), association.strip(), summit.strip()
    if not all(parts) or '/' in summit or heard.mhz <= 0 or not heard.mode:
        return None
    if not all(map(STATION_CHARACTERS.fullmatch, parts)):
        return None
    comment = settings.template.replace('XXX', str(heard.speed) if heard.speed > 0 else '?')
    comment = comment.replace('YYY', str(heard.signal_to_noise) if heard.signal_to_noise > 0 else '?')
    comment = comment.replace('ZZZ', heard.skimmer)[:60].strip(' ')
    return (f'actCallsign={parts[0]}&assoc={parts[1]}&summit={parts[2]}&freq={radio.single_text(heard.mhz)}'
            f'&mode={radio.mode_word(heard.mode)}&callsign={settings.login}&password={settings.password}'
            f'&submit=SPOT!&comments={radio.form_encoded(comment)}')
