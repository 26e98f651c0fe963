#!/usr/bin/python3
"""Plays the real console against the practice network over real sockets, in compressed real time, and has the
account judge it: once with everything in order and once with faults.

Usage: rehearse_live.py [--seconds N] [--seed S] [--keep DIR]

The executables are looked for in BRELWIN_BIN. Exit status 1 when a spot was missed, posted twice or posted
wrongly; then the folder is kept in DIR, if one is given."""

import argparse
import pathlib
import shutil
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / 'testing')]

from account import __main__ as account  # noqa: E402
from account.items import BAD, Fate  # noqa: E402
from account.replay import REAL_TIME  # noqa: E402
from processes import Workshop  # noqa: E402

PASSWORD = 'practice'
SETTINGS = """\
[General]
SotawatchSpotsViaRSS=1
SecondsBetweenChecks=15
PlaySoundWhen=0
[ReverseBeaconNetwork]
RBNSpotsEnabled=1
RBNCallsign=Q0ZZ
RBNHost=127.0.0.1
RBNPort={telnet}
FilterSotawatchMatchingAlert=1
FilterDuplicateSpots=1
DuplicateSpotFilteringPeriod=2
SOTAAlertsRefreshInterval=1
MaxMinutesBeforeAlertTime=60
MaxMinutesAfterAlertTime=60
[Gateway]
SotawatchLogin=Q0ZZ
RBNSendAllSpotsToSotawatch=1
SpotliteSpotSubmitURL={base}/Spotlite/postSpot
SotawatchDupeSpotMaxAgeInMinutes=10
GatewayDelayBeforeFinalDupeCheckAndSendInSeconds=1
GatewayMinimumSecondsBetweenSpotsOfSameStation=40
[URLTemplates]
SotawatchRSS={base}/RssFeed
SotawatchAlerts={base}/alerts.php
"""
FAULTS = ['--page-troubles', '40', '--fault', 'cut', '--fault-after', '30', '--spotlite-wait', '7', '--spotlite',
          'honest:30,wrong-password:2,failed:2,without-echo:2,server-error:2,redirect:6,pieces:6,slow:1,cut:3,late:1']
SCRIPT = ['--crowd', '300', '--speed', '20', '--lines', '10', '--spot-lag', '2']


def play(seed: int, seconds: float, faults: list[str], workshop: Workshop) -> pathlib.Path:
    base = workshop.start_practice_network('--seed', str(seed), *SCRIPT, *faults)
    telnet = workshop.processes[-1].out.wait_for_line('telnet=').removeprefix('telnet=')
    before = workshop.root / 'before'
    before.mkdir()
    for folder in (workshop.folder, before):
        (folder / 'Brelwin.INI').write_text(SETTINGS.format(base=base, telnet=telnet))
        (folder / 'SOTAExcludedActivators.txt').write_text('DL1ABC\nG4XYZ/P\n')
    console = workshop.start_console(BRELWIN_SOTAWATCH_PASSWORD=PASSWORD)
    time.sleep(seconds)
    console.stop()
    workshop.processes[0].stop()
    shutil.copy(workshop.root / 'ledger.txt', before)
    shutil.copy(workshop.folder / 'BrelwinEventLog.txt', before)
    return before


def rehearse(name: str, faults: list[str], options: argparse.Namespace) -> bool:
    workshop = Workshop()
    try:
        folder = play(options.seed, options.seconds, faults, workshop)
        tally = account.judge(folder, PASSWORD, REAL_TIME)
        print(f'{name}, {options.seconds:g} seconds, seed {options.seed}:\n{tally.table()}')
        print('\n'.join(map(str, tally.of(*BAD, Fate.UNDECIDABLE)[:20])), flush=True)
        is_good = tally.is_good() and any(item.post for item in tally.items)
        if not is_good and options.keep:
            shutil.copytree(folder, options.keep / name.replace(' ', '-'), dirs_exist_ok=True)
        return is_good
    finally:
        workshop.close()


def main() -> int:
    parser = argparse.ArgumentParser(description='Rehearses the real executables and judges them.')
    parser.add_argument('--seconds', type=float, default=180)
    parser.add_argument('--seed', type=int, default=1)
    parser.add_argument('--keep', type=pathlib.Path)
    options = parser.parse_args()
    results = [rehearse('in order', [], options), rehearse('with faults', FAULTS, options)]
    print('FAILED' if not all(results) else 'Good.')
    return 0 if all(results) else 1


if __name__ == '__main__':
    sys.exit(main())
