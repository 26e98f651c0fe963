#!/usr/bin/python3
"""Plays days of the whole program against the practice network, each in seconds, and has the account judge
them.

Usage: rehearse.py --program FILE --folder DIR [--days N] [--seed S] [--hours X] [--without-faults] [--json]

Every day has a seed of its own, S and those after it. A day that was good is thrown away once it has been
judged; a failed one stays in its folder, and its seed is printed, with which it can be played again. Exit status
1 when a day failed."""

import argparse
import pathlib
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

from account import __main__ as account  # noqa: E402
from account.items import BAD, Tally  # noqa: E402
from account.replay import EXACT  # noqa: E402

PASSWORD = 'practice'  # as the rehearsal types it into its box
# Activators beside the usual ones. The JSON service lists all of them again and again.
CROWD = {False: 300, True: 80}


def play(program: pathlib.Path, folder: pathlib.Path, seed: int, options: argparse.Namespace) -> pathlib.Path:
    subprocess.run([program, '--folder', folder, '--seed', str(seed), '--hours', str(options.hours),
                    '--faults', str(int(not options.without_faults)), '--json', str(int(options.json)),
                    '--crowd', str(CROWD[options.json])], check=True, stdout=subprocess.DEVNULL)
    return folder / f'seed-{seed}'


def judge_days(options: argparse.Namespace) -> tuple[Tally, list[int]]:
    whole, failed = Tally(), []
    for seed in range(options.seed, options.seed + options.days):
        day = play(options.program, options.folder, seed, options)
        tally = account.judge(day, PASSWORD, EXACT)
        whole.add_all(tally)
        if tally.is_good():
            shutil.rmtree(day)
            continue
        failed.append(seed)
        print(f'seed {seed}, kept in {day}:')
        print('\n'.join(map(str, tally.of(*BAD)[:10])), flush=True)
    return whole, failed


def main() -> int:
    parser = argparse.ArgumentParser(description='Rehearses days and judges them.')
    parser.add_argument('--program', type=pathlib.Path, required=True)
    parser.add_argument('--folder', type=pathlib.Path, required=True)
    parser.add_argument('--days', type=int, default=1)
    parser.add_argument('--seed', type=int, default=1)
    parser.add_argument('--hours', type=float, default=24)
    parser.add_argument('--without-faults', action='store_true')
    parser.add_argument('--json', action='store_true', help='the spots come from the JSON service')
    options = parser.parse_args()

    whole, failed = judge_days(options)
    print(f'{options.days} days of {options.hours:g} hours, seeds {options.seed} to {options.seed + options.days - 1}')
    print(whole.table())
    for seed in failed:
        print(f'FAILED: seed {seed}')
    if not whole.of(*BAD) and not any(item.post for item in whole.items):
        print('FAILED: nothing was posted')
        return 1
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
