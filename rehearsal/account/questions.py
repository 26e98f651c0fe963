"""The questions put to the JSON service, seen as readings of a feed and of a page: one for each check, whatever it
asked, one for each final check, and one for each look at the announcements."""

import calendar
import dataclasses
import re
import time

from account import ledger, service

FEED, ALERTS = '/RssFeed', '/alerts.php'
SPOTS_EPOCH, ALERTS_EPOCH = '/api/spots/epoch', '/api/alerts/epoch'
SPOTS_LIST, ALERTS_LIST = re.compile(r'/api/spots/(-?)\d+/all/all'), re.compile(r'/api/alerts/\d+/\d+/all/all')
AT_ONCE = 1000  # milliseconds in which a question follows that the same step asks


def as_readings(events: list[ledger.Event]) -> list[ledger.Event]:
    """Checks and questions as pages of the feed and of the announcements. Those that brought nothing have no
    status."""
    return _Readings(events).found


class _Readings:
    def __init__(self, events: list[ledger.Event]) -> None:
        self.found: list[ledger.Event] = []
        self.announced = ''  # the last good list of announcements
        self.begin: dict[str, int] = {}  # of readings on their way, by what they read
        for place, event in enumerate(events):
            topic, step = _topic_and_step(event)
            if topic is None:
                self.found.append(event)
                continue
            self.begin.setdefault(topic, _begin(event))
            if not _goes_on(events, place, topic, step):
                begin = self.begin.pop(topic)
                self.found.append(_spots(event, begin) if topic == FEED else self._announcements(event, begin))

    def _announcements(self, event: ledger.Page, begin: int) -> ledger.Page:
        is_good = event.status == 304 or (event.status == 200 and event.whole and event.body)
        if is_good and event.status == 200 and event.path != ALERTS_EPOCH:
            found = service.read_announcements(event.body)
            is_good = found is not None
            self.announced = event.body if is_good else self.announced
        status = 200 if is_good and self.announced else 0
        return ledger.Page(begin, event.t, ALERTS, status, True, self.announced if status else '')


def _topic_and_step(event: ledger.Event) -> tuple[str | None, int]:
    """A check begins, asks for the epoch, and then perhaps for a list. Announcements have an epoch and a list."""
    if isinstance(event, ledger.Check):
        return FEED, 0
    path = event.path if isinstance(event, ledger.Page) else ''
    if path in (SPOTS_EPOCH, ALERTS_EPOCH):
        return FEED if path == SPOTS_EPOCH else ALERTS, 1
    return FEED if SPOTS_LIST.fullmatch(path) else ALERTS if ALERTS_LIST.fullmatch(path) else None, 2


def _begin(event: ledger.Event) -> int:
    return event.asked if isinstance(event, ledger.Page) else event.t


def _goes_on(events: list[ledger.Event], place: int, topic: str, step: int) -> bool:
    for event in events[place + 1:place + 1000]:
        if _topic_and_step(event)[0] == topic:
            return _topic_and_step(event)[1] == step + 1 and _begin(event) - events[place].t < AT_ONCE
    return False


def _spots(event: ledger.Event, begin: int) -> ledger.Page:
    kind = SPOTS_LIST.fullmatch(event.path) if isinstance(event, ledger.Page) and event.status == 200 else None
    if kind is None:
        return ledger.Page(begin, event.t, FEED, 0, True, '')
    return dataclasses.replace(event, asked=begin, path=FEED, asks_for_all=kind.group(1) == '-')


def refusals(events: list[ledger.Event]) -> list[tuple[int, int]]:
    """From when until when the service wanted to be left alone, in milliseconds."""
    found: list[tuple[int, int]] = []
    for event in events:
        if isinstance(event, ledger.Start):  # it does not know any more
            found = [(begin, min(end, event.t)) for begin, end in found]
        if isinstance(event, ledger.Page) and event.path.startswith('/api/spots') and event.status == 429:
            found.append((event.t, event.t + _pause(event) * 1000))
    return found


def _pause(page: ledger.Page) -> int:
    if page.retry_after.isdigit():
        return int(page.retry_after)
    until = calendar.timegm(time.strptime(page.retry_after, '%a, %d %b %Y %H:%M:%S GMT'))
    return max(0, until - page.t // 1000)
