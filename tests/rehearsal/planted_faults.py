#!/usr/bin/python3
"""Shows that the account catches what it is there for: plants one fault after the other in a copy of the program,
rehearses, and wants every rehearsal to fail. Some faults show in rare situations only: days are played until one
fails.

Usage: planted_faults.py [--scratch DIR] [--days N] [--hours X] [--seed S] [--only PART]

The copy is made in DIR (build/planted_faults unless told otherwise), of the files that git knows. Exit status 1
when a fault was not caught, could not be planted, or when the program without a fault fails."""

import argparse
import os
import pathlib
import shutil
import subprocess
import sys
from typing import NamedTuple

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / 'rehearsal'))

from account import __main__ as account  # noqa: E402
from account.items import Fate, Tally  # noqa: E402
from account.replay import EXACT  # noqa: E402


DAYS_AT_ONCE = 3
BY_SERVICE = ('--json', '1')


class Fault(NamedTuple):
    name: str
    file: str
    old: str
    new: str
    options: tuple[str, ...] = ()  # of the rehearsal, where only such a day shows it


FAULTS = [
    Fault('the final check finds no duplicates', 'src/gateway/gateway_gates.cpp',
          'if (*facts.InFeed == DupeFinding::SameKey)', 'if (false && *facts.InFeed == DupeFinding::SameKey)'),
    Fault('the first check compares the wrong key', 'src/gateway/duplicate_search.cpp',
          'if (held.SpotKey == spot.SpotKey)', 'if (held.ID == spot.SpotKey)'),
    Fault('the interval of a station is ignored', 'src/gateway/gateway_gates.cpp',
          'return facts.SecondsSinceLastSent &&', 'return false && facts.SecondsSinceLastSent &&'),
    Fault('a spot of unknown outcome counts as sent', 'src/gateway/gateway_run.cpp',
          'if (result.Status == StatusAccepted) {',
          'if (result.Status == StatusAccepted || result.Status == StatusUnrecognisedAnswer) {'),
    Fault('the frequency is rounded to kilohertz', 'src/gateway/spotlite_form.cpp',
          'form.Frequency = SingleText(spot.FrequencyInMhz);',
          'form.Frequency = RoundedToThreeDecimalsText(spot.FrequencyInMhz);'),
    Fault('another station is posted', 'src/gateway/spotlite_form.cpp',
          'form.Activator = Trim(spot.Station);', 'form.Activator = Trim(spot.Spotter);'),
    Fault('the comment is not cut', 'src/gateway/spotlite_submission.cpp',
          'return std::string(FirstCharacters(comment, LongestComment));', 'return std::string(comment);'),
    Fault('a submission that timed out is posted again', 'src/gateway/spotlite_submission.cpp',
          '    state->SendInProgress.reset();\n',
          '    state->SendInProgress.reset();\n    if (state->TransferStatus == TransferTimedOut)\n'
          '      transfer.Post(FormAddress(configuration), SpotliteFormBody(form))->SendInProgress.reset();\n'),
    Fault('excluded activators are sent', 'src/gateway/gateway_gates.cpp',
          'if (!facts.ExcludedBy.empty())', 'if (false && !facts.ExcludedBy.empty())'),
    Fault('only base callsigns are excluded', 'src/gateway/gateway_gates.cpp',
          'for (const auto& form : CallsignForms(spot.Station)) {', 'for (const auto& form : CallsignForms({})) {'),
    Fault('switching off counts from the next check on', 'src/gateway/gateway_gates.cpp',
          'const auto sender = SenderFromScreen(gateway.Tab, gateway.RBN);',
          'auto sender = SenderFromScreen(gateway.Tab, gateway.RBN); sender.SendsEveryone |= beginning.WasForEveryone;'),
    Fault('an opt-out in the fresh feed is overlooked', 'src/gateway/gateway_gates.cpp',
          'if (*facts.InFeed == DupeFinding::OptedOut)', 'if (false && *facts.InFeed == DupeFinding::OptedOut)'),
    Fault('what waited during a stall is posted', 'src/gateway/gateway_gates.cpp',
          'if (facts.IsFromBeforeAStall)', 'if (false && facts.IsFromBeforeAStall)'),
    Fault('summit references open windows', 'src/gateway/gateway_gates.cpp',
          'if (!facts.WindowReference.empty())', 'if (false && !facts.WindowReference.empty())'),
    Fault('old spots count as duplicates', 'src/gateway/duplicate_search.cpp',
          'return spot.TimeOfSpot &&', 'return false && spot.TimeOfSpot &&'),
    Fault('a change of band does not end the search', 'src/gateway/duplicate_search.cpp',
          'return IsSameBand(held, spot) ? DupeFinding::NoneFound : DupeFinding::OtherBand;',
          'return DupeFinding::NoneFound;'),
    Fault('nearby frequencies are sent', 'src/gateway/duplicate_search.cpp',
          'constexpr std::int64_t NearInHertz = 1000;', 'constexpr std::int64_t NearInHertz = 0;'),
    Fault('exactly 1 kHz is too near', 'src/gateway/duplicate_search.cpp',
          'spot.FrequencyInMhz) < NearInHertz;', 'spot.FrequencyInMhz) <= NearInHertz;'),
    Fault('withdrawn alerts are kept', 'src/alerts/alerts_intake.cpp',
          'const auto withdrawal = LogWithdrawal(*alert);', 'const auto withdrawal = LogWithdrawal({});'),
    Fault("an alert's own window is ignored", 'src/alerts/matching.cpp',
          'return minutes < 1 ? otherwise : minutes;', 'return minutes < 0 ? minutes : otherwise;'),
    Fault('the farthest alert is taken', 'src/alerts/matching.cpp',
          'if (distance >= nearest) return;', 'if (distance < nearest && nearest != Farthest) return;'),
    Fault('spots by the activator change no alerts', 'src/alerts/alert_commands.cpp',
          'return (spot.IsSelfSpot ||', 'return false && (spot.IsSelfSpot ||'),
    Fault('the last line of a check is dropped', 'src/rbn/spot_parser.cpp',
          'if (!SaysNothing(line)) TakeLine(', 'if (!SaysNothing(line) && !text.empty()) TakeLine('),
    Fault('what was heard once is never forgotten', 'src/rbn/recent_spots.cpp',
          'if (!(minutes > 0)) return;', 'if (minutes < 1e9) return;'),
    Fault('every spot type is posted', 'src/rbn/spot_rules.cpp',
          'return EqualsIgnoringCase(line_.Field(SpotField::Type), "CQ");', 'return true;'),
    Fault('commands do not wait for the alerts', 'src/alerts/alert_commands.cpp',
          'if (scene_.Alerts.WereRead()) {', 'if (scene_.Alerts.WereRead() || true) {'),
    Fault('waiting commands end with the run', 'src/alerts/command_memory.cpp',
          'for (const auto& line : file_.Read()) {', 'for (const auto& line : std::vector<std::string>()) {'),
    Fault('what the gateway posted is a command', 'src/gateway/posted_spots.cpp',
          'return std::ranges::any_of(posts_,', 'return false && std::ranges::any_of(posts_,'),
    Fault('a command without a time acts in every run', 'src/alerts/command_memory.cpp',
          'for (const auto& line : undatedFile_.Read())', 'for (const auto& line : std::vector<std::string>())'),
    Fault('an opt-out reaches one callsign only', 'src/alerts/alert_commands.cpp',
          '|| MayBeOf(alert, command.Station)', ''),
    Fault("the service's comments are not read", 'src/spots/service_feed.cpp',
          'comment_(Text(row, "comments")),', 'comment_(),', BY_SERVICE),
    Fault("the service's test spots count", 'src/spots/service_feed.cpp',
          'if (EqualsIgnoringCase(type, "TEST"))', 'if (false && EqualsIgnoringCase(type, "TEST"))', BY_SERVICE),
    Fault("the service's spots have no time", 'src/spots/service_feed.cpp',
          'time_(row.Time("timeStamp")),', 'time_(),', BY_SERVICE),
    Fault("the service's frequencies are not read", 'src/spots/service_feed.cpp',
          'frequency_(Text(row, "frequency")),', 'frequency_("14.062"),', BY_SERVICE),
]


class Copy:
    """The program's sources elsewhere, to be spoilt."""

    def __init__(self, folder: pathlib.Path) -> None:
        self.folder = folder
        self.sound: dict[str, str] = {}  # texts of spoilt files
        self.environment = os.environ | {'CCACHE_BASEDIR': str(folder), 'CCACHE_NOHASHDIR': '1'}
        known = subprocess.run(['git', 'ls-files', '-z', '--cached', '--others', '--exclude-standard'], cwd=ROOT,
                               check=True, capture_output=True).stdout.decode().split('\0')
        for name in filter(None, known):
            if (ROOT / name).is_file():
                self._copy_if_changed(name)
        self._run('cmake', '--preset', 'release')

    def _copy_if_changed(self, name: str) -> None:
        target = self.folder / name
        text = (ROOT / name).read_bytes()
        if not target.exists() or target.read_bytes() != text:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(text)
            shutil.copymode(ROOT / name, target)

    def _run(self, *command: str) -> None:
        done = subprocess.run(command, cwd=self.folder, env=self.environment, capture_output=True, text=True)
        if done.returncode != 0:
            raise RuntimeError(f'{" ".join(command)} failed:\n{done.stdout[-3000:]}{done.stderr[-1000:]}')

    def plant(self, fault: Fault) -> None:
        file = self.folder / fault.file
        text = file.read_text()
        if text.count(fault.old) != 1:
            raise RuntimeError(f'{fault.file} does not hold once: {fault.old}')
        self.sound[fault.file] = text
        file.write_text(text.replace(fault.old, fault.new))

    def mend(self) -> None:
        for name, text in self.sound.items():
            (self.folder / name).write_text(text)
        self.sound.clear()

    def rehearse(self, options: argparse.Namespace, day: tuple[str, ...] = ()) -> Tally:
        """Plays days until one fails."""
        self._run('cmake', '--build', '--preset', 'release', '--target', 'brelwin-rehearsal')
        tally = Tally()
        for seed in range(options.seed, options.seed + options.days, DAYS_AT_ONCE):
            days = min(DAYS_AT_ONCE, options.seed + options.days - seed)
            tally.add_all(self._play(seed, days, options.hours, day))
            if not tally.is_good():
                break
        return tally

    def _play(self, seed: int, count: int, hours: float, day: tuple[str, ...]) -> Tally:
        days = self.folder / 'days'
        shutil.rmtree(days, ignore_errors=True)
        self._run('build/release/bin/brelwin-rehearsal', '--folder', str(days), '--seed', str(seed), '--days',
                  str(count), '--hours', str(hours), *day)
        tally = Tally()
        for day in sorted(days.iterdir()):
            tally.add_all(account.judge(day, 'practice', EXACT))
        return tally


def counts(tally: Tally) -> str:
    return (f'missed {len(tally.of(Fate.MISSED)):>4}   twice {len(tally.of(Fate.TWICE)):>4}   '
            f'wrongly {len(tally.of(Fate.WRONGLY)):>4}   of {len(tally.of(Fate.POSTED)):>5} right ones')


def try_sound(copy: Copy, day: tuple[str, ...], options: argparse.Namespace) -> bool:
    tally = copy.rehearse(options, day)
    verdict = 'good' if tally.is_good() else 'FAILED'
    print(f'{verdict:<10}  {" ".join(("without a fault", *day)):<48}{counts(tally)}', flush=True)
    return tally.is_good()


def try_fault(copy: Copy, fault: Fault, options: argparse.Namespace) -> bool:
    try:
        copy.plant(fault)
        tally = copy.rehearse(options, fault.options)
    finally:
        copy.mend()
    verdict = 'caught' if not tally.is_good() else 'NOT CAUGHT'
    print(f'{verdict:<10}  {fault.name:<48}{counts(tally)}', flush=True)
    return not tally.is_good()


def main() -> int:
    parser = argparse.ArgumentParser(description='Plants faults and wants them caught.')
    parser.add_argument('--scratch', type=pathlib.Path, default=ROOT / 'build/planted_faults')
    parser.add_argument('--days', type=int, default=60)
    parser.add_argument('--hours', type=float, default=6)
    parser.add_argument('--seed', type=int, default=1)
    parser.add_argument('--only', default='', help='faults that have this in their names')
    options = parser.parse_args()

    copy = Copy(options.scratch.resolve())
    sound = [try_sound(copy, day, options) for day in ((), BY_SERVICE)]
    faults = [fault for fault in FAULTS if options.only in fault.name]
    caught = [try_fault(copy, fault, options) for fault in faults]
    print(f'{sum(caught)} of {len(faults)} faults caught')
    return 0 if all(sound) and all(caught) else 1


if __name__ == '__main__':
    sys.exit(main())
