"""Where the spots of Sotawatch come from: the feed, or the JSON service, which corrects them and takes them back."""

import dataclasses
from typing import Iterable

from account import feed, ledger, service
from account.alerts import Alerts
from account.gates import TimedSpot

DAY_IN_MINUTES = 24 * 60


@dataclasses.dataclass
class Reading:
    """What a reading changes."""
    new: list[feed.Spot]  # newest first
    edited: list[tuple[feed.Spot, feed.Spot]] = dataclasses.field(default_factory=list)  # before and after
    deleted: list[feed.Spot] = dataclasses.field(default_factory=list)

    def applied_to(self, current: list[TimedSpot], read_at: int, most: int) -> list[TimedSpot]:
        gone = {spot.id for spot in self.new} | {spot.id for spot in self.deleted}
        after = {before.id: spot for before, spot in self.edited}
        kept = [TimedSpot(after[held.spot.id], read_at) if held.spot.id in after else held
                for held in current if held.spot.id not in gone]
        return ([TimedSpot(spot, read_at) for spot in self.new] + kept)[:most]


class Feed:
    def __init__(self) -> None:
        self.intake = feed.Intake()

    def read(self, page: ledger.Page, is_first_load: bool) -> Reading | None:
        """Nothing at all when a first load does not come to its end."""
        new = self.intake.read(page.body, page.t, is_first_load)
        return None if new is None else Reading(new)

    def spots(self, page: ledger.Page) -> Iterable[feed.Spot]:
        return (spot for item in feed.spots(page.body)[0] for spot in item)

    def recent(self, page: ledger.Page, minutes: int) -> list[feed.Spot]:
        return feed.recent(page.body, page.t, minutes)

    def announce(self, page: ledger.Page, alerts: Alerts, now: int) -> bool:
        """False when the page is not to be used."""
        is_whole = page.whole or page.body.rstrip(' \t\r\n').lower().endswith('</html>')
        return is_whole and alerts.take_page(page.body, now)


class Service:
    def __init__(self) -> None:
        self.listing = service.Listing()
        self.delivered: set[str] = set()

    def read(self, page: ledger.Page, is_first_load: bool) -> Reading | None:
        found = self._list(page, DAY_IN_MINUTES)
        if is_first_load and (found.is_gone or not found.ended):
            return None
        changes = self.listing.take(found, page.asks_for_all, page.t)
        new = [spot for spot in _spots(changes.added) if spot.id not in self.delivered]
        self.delivered.update(spot.id for spot in new)
        edited = [pair for before, after in changes.edited for pair in zip(before.spots, after.spots)]
        return Reading(new, edited, _spots(changes.deleted))

    def spots(self, page: ledger.Page) -> Iterable[feed.Spot]:
        return (spot for row in self._list(page, DAY_IN_MINUTES).rows for spot in row.spots)

    def recent(self, page: ledger.Page, minutes: int) -> list[feed.Spot]:
        return _spots(self._list(page, minutes).rows)

    def announce(self, page: ledger.Page, alerts: Alerts, now: int) -> bool:
        found = service.read_announcements(page.body)
        if found is not None:
            alerts.take_activations(found, True, now)
        return found is not None

    @staticmethod
    def _list(page: ledger.Page, minutes: int) -> service.List:
        return service.read(page.body, page.t // 1000 - minutes * 60 - 59)


def _spots(rows: Iterable[service.Row]) -> list[feed.Spot]:
    """Of rows that count."""
    return [spot for row in rows if row.kind != 'TEST' for spot in row.spots]
