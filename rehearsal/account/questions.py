"""The questions put to the JSON service, seen as readings of a feed: one for each check, whatever it asked, and
one for each final check."""

import calendar
import dataclasses
import re
import time

from account import ledger

FEED = '/RssFeed'
EPOCH = '/api/spots/epoch'
LIST = re.compile(r'/api/spots/(-?)\d+/all/all')
AT_ONCE = 1000  # milliseconds in which a question follows that the same step asks


def as_readings(events: list[ledger.Event]) -> list[ledger.Event]:
    """Checks and questions about spots as pages of the feed. Those that brought no list have no status."""
    found: list[ledger.Event] = []
    begin = None
    for place, event in enumerate(events):
        if _step(event) is None:
            found.append(event)
            continue
        if begin is None:
            begin = _begin(event)
        if not _goes_on(events, place):
            found.append(_reading(event, begin))
            begin = None
    return found


def _step(event: ledger.Event) -> int | None:
    """A check begins, asks for the epoch, and then perhaps for a list."""
    if isinstance(event, ledger.Check):
        return 0
    if not isinstance(event, ledger.Page):
        return None
    return 1 if event.path == EPOCH else 2 if LIST.fullmatch(event.path) else None


def _begin(event: ledger.Event) -> int:
    return event.asked if isinstance(event, ledger.Page) else event.t


def _goes_on(events: list[ledger.Event], place: int) -> bool:
    following = next((event for event in events[place + 1:place + 1000] if _step(event) is not None), None)
    return following is not None and _step(following) == _step(events[place]) + 1 and \
        _begin(following) - events[place].t < AT_ONCE


def _reading(event: ledger.Event, begin: int) -> ledger.Page:
    kind = LIST.fullmatch(event.path) if isinstance(event, ledger.Page) and event.status == 200 else None
    if kind is None:
        return ledger.Page(begin, event.t, FEED, 0, True, '')
    return dataclasses.replace(event, asked=begin, path=FEED, asks_for_all=kind.group(1) == '-')


def refusals(events: list[ledger.Event]) -> list[tuple[int, int]]:
    """From when until when the service wanted to be left alone, in milliseconds."""
    return [(event.t, event.t + _pause(event) * 1000) for event in events
            if isinstance(event, ledger.Page) and event.path.startswith('/api/spots') and event.status == 429]


def _pause(page: ledger.Page) -> int:
    if page.retry_after.isdigit():
        return int(page.retry_after)
    until = calendar.timegm(time.strptime(page.retry_after, '%a, %d %b %Y %H:%M:%S GMT'))
    return max(0, until - page.t // 1000)
