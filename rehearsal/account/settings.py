"""The settings and lists that the program was run with, read from its folder."""

import dataclasses
import pathlib

from account import radio


def _profile(path: pathlib.Path) -> dict[str, dict[str, str]]:
    """Sections and keys in capitals; the first of a name counts."""
    sections: dict[str, dict[str, str]] = {}
    section: dict[str, str] = {}
    for line in path.read_text(encoding='utf-8').splitlines() if path.exists() else []:
        line = line.strip()
        if line.startswith('['):
            section = sections.setdefault(line.strip('[]').upper(), {})
        elif '=' in line and not line.startswith(';'):
            key, _, value = line.partition('=')
            section.setdefault(key.strip().upper(), value.strip())
    return sections


def _unscrambled(text: str) -> str:
    """The password box, from what is stored: each character moved by twice its place."""
    moves = [2 * place if 2 * place <= 100 else 57 for place in range(1, len(text) + 1)]
    return ''.join(chr(ord(c) - move) for c, move in zip(text, moves))


def _excluded(path: pathlib.Path) -> set[str]:
    lines = path.read_text(encoding='utf-8').splitlines() if path.exists() else []
    return {form for line in lines for form in radio.callsign_forms(line.strip())}


def _callsigns(path: pathlib.Path) -> set[str]:
    lines = path.read_text(encoding='utf-8').splitlines() if path.exists() else []
    return {radio.base_callsign(line.strip()) for line in lines} - {''}


@dataclasses.dataclass
class Settings:
    by_service: bool  # the spots come from the JSON service
    every_spot_type: bool
    known_activators_only: bool
    matched_only: bool
    drops_repeats: bool
    duplicate_minutes: float
    wanted: dict[str, str]  # the stream's filter lists: station, band, mode, spotter, excluded spotter
    minutes_before: int
    minutes_after: int
    hours_ahead: int
    sends: bool
    own_base: str
    login: str
    password: str
    template: str
    interval: int  # seconds between checks
    dupe_minutes: int
    delay: int
    respot_seconds: int
    time_out: int
    excluded: set[str]
    trusted: set[str]
    known: set[str]
    overrides: dict[str, tuple[int, int]]  # station in capitals: minutes before and after


TEMPLATE = 'CQ CQ at XXX wpm. S/N=YYY dB at ZZZ {Via Tarnlink}'


def _overrides(path: pathlib.Path) -> dict[str, tuple[int, int]]:
    def minutes(section: dict[str, str], key: str) -> int:
        return round(radio.number(section.get(key, '')))
    return {name: (minutes(section, 'MAXMINUTESBEFOREALERTTIME'), minutes(section, 'MAXMINUTESAFTERALERTTIME'))
            for name, section in _profile(path).items()}


def read(folder: pathlib.Path, password: str | None = None) -> Settings:
    profile = _profile(folder / 'Brelwin.INI')
    stream = profile.get('REVERSEBEACONNETWORK', {})
    gateway = profile.get('GATEWAY', {})

    def whole(section: dict[str, str], key: str) -> int:
        return round(radio.number(section.get(key.upper(), '')))

    age = whole(gateway, 'SotawatchDupeSpotMaxAgeInMinutes')
    interval = whole(profile.get('GENERAL', {}), 'SecondsBetweenChecks')
    hours = profile.get('GENERAL', {}).get('MAXALERTAGEINHOURS', '')
    time_out = whole(stream, 'RBNConnectionTimeout')
    stored = gateway.get('SOTAWATCHPASSWORD', '')
    lists = {'station': 'FILTERSTATION', 'band': 'FILTERBAND', 'mode': 'FILTERMODE', 'spotter': 'FILTERSPOTTER',
             'excluded spotter': 'FILTERSPOTTEREXCLUDE'}
    return Settings(
        by_service=whole(profile.get('GENERAL', {}), 'SotawatchSpotsSource') == 1,
        every_spot_type=whole(stream, 'RBNShowAllSpottedTypes') != 0,
        known_activators_only=whole(stream, 'FilterKnownActivators') != 0,
        matched_only=whole(stream, 'FilterSotawatchMatchingAlert') != 0,
        drops_repeats=whole(stream, 'FilterDuplicateSpots') != 0,
        duplicate_minutes=radio.number(stream.get('DUPLICATESPOTFILTERINGPERIOD', '')),
        wanted={name: stream.get(key, '') for name, key in lists.items()},
        minutes_before=whole(stream, 'MaxMinutesBeforeAlertTime'),
        minutes_after=whole(stream, 'MaxMinutesAfterAlertTime'),
        hours_ahead=round(radio.number(hours)) if hours[:1].isdigit() else 72,
        sends=whole(gateway, 'RBNSendAllSpotsToSotawatch') != 0 and whole(gateway, 'DryRun') == 0,
        own_base=radio.base_callsign(stream.get('RBNCALLSIGN', '').strip()),
        login=gateway.get('SOTAWATCHLOGIN', '').strip(),
        password=(password if password is not None else _unscrambled(stored)).strip(),
        template=(gateway.get('SPOTCOMMENTTEMPLATE', '') or TEMPLATE).strip(),
        interval=interval if 1 <= interval <= 64 else 5,
        dupe_minutes=age if age >= 1 else 30,
        delay=max(0, whole(gateway, 'GatewayDelayBeforeFinalDupeCheckAndSendInSeconds')),
        respot_seconds=max(5, whole(gateway, 'GatewayMinimumSecondsBetweenSpotsOfSameStation')),
        time_out=time_out if time_out >= 1 else 5,
        excluded=_excluded(folder / 'SOTAExcludedActivators.txt'),
        trusted=_callsigns(folder / 'SOTATrustedSpotters.txt'),
        known=_callsigns(folder / 'SOTAActivators.txt'),
        overrides=_overrides(folder / 'SOTAAlertDurationOverrides.ini'))
