"""The checks before a spot is posted. Each gives the reason of a refusal, or nothing."""

from account import feed, radio
from account.alerts import opts_out
from account.settings import Settings
from account.stream import Heard

MINUTE = 60_000


class TimedSpot:
    """A spot of the feed with its moment on the ledger's clock, in milliseconds."""

    def __init__(self, spot: feed.Spot, read_at: int) -> None:
        self.spot = spot
        # The program knows the wall clock to the second.
        self.moment = None if spot.utc is None else read_at - max(0, read_at // 1000 - spot.utc) * 1000

    def is_too_old(self, now: int, minutes: int) -> bool:
        return self.moment is not None and abs(now - self.moment) // MINUTE > minutes


def by_station(heard: Heard, settings: Settings) -> str:
    if settings.excluded & ({heard.base} | radio.callsign_forms(heard.station)):
        return 'the activator is excluded'
    return 'only a summit reference opens the window' if heard.is_by_reference else ''


def by_current_spots(heard: Heard, current: list[TimedSpot], now: int, settings: Settings) -> str:
    for held in current:
        if held.is_too_old(now, settings.dupe_minutes):
            return ''
        if held.spot.base != heard.base or held.spot.is_qrt:
            continue
        if not held.spot.is_derived and held.spot.key == heard.key:
            return 'a duplicate among the current spots'
        if held.spot.band != heard.band:
            return ''
    return ''


def _speaks_for(spot: feed.Spot, heard: Heard, settings: Settings) -> bool:
    """A word of the station's own, or a trusted one's, under any form of the callsigns."""
    if feed.VIA_GATEWAY in spot.comment or not radio.callsign_forms(spot.station) & radio.callsign_forms(heard.station):
        return False
    is_own = spot.is_self_spot or radio.callsign_forms(spot.spotter) & radio.callsign_forms(spot.station)
    return bool(is_own) or spot.spotter_base in settings.trusted


def by_latest_word(heard: Heard, recent: list[feed.Spot], settings: Settings) -> str:
    word = next((spot for spot in recent if _speaks_for(spot, heard, settings)), None)
    return 'the activator has opted out' if word is not None and opts_out(word.comment) else ''


def by_fresh_spots(heard: Heard, fresh: dict[str, feed.Spot], read_at: int, now: int, settings: Settings) -> str:
    if heard.key in fresh:
        return 'a duplicate in the feed'
    for spot in fresh.values():
        if TimedSpot(spot, read_at).is_too_old(now, settings.dupe_minutes):
            return ''
        if spot.base != heard.base or spot.is_qrt:
            continue
        if spot.band != heard.band:
            return ''
        if abs(radio.hertz(spot.mhz) - radio.hertz(heard.mhz)) < 1000:
            return 'less than 1 kHz from a spot in the feed'
    return ''


def by_interval(heard: Heard, sent: dict[str, int], now: int, settings: Settings) -> str:
    since = sent.get(heard.base)
    if since is None or (now - since) // 1000 >= settings.respot_seconds:
        return ''
    return 'the station was sent too recently'
