"""Judges one or more rehearsals by their ledgers.

Usage: python3 -m account [--real-time] [--password TEXT] FOLDER...

Each folder has the ledger, "ledger.txt", and the settings and lists that the program was run with. Prints one
table over all of them, and every spot that was missed, posted twice or posted wrongly. Exit status 1 when there
is one, or when more than one matched spot in a hundred (of fewer, more than one) cannot be decided."""

import argparse
import pathlib
import sys

from account import ledger, settings
from account.items import BAD, Fate, Tally
from account.replay import EXACT, REAL_TIME, Replay


def judge(folder: pathlib.Path, password: str | None, tolerance) -> Tally:
    events = ledger.read_file(folder / 'ledger.txt')
    return Replay(events, settings.read(folder, password), tolerance).run()


def main() -> int:
    parser = argparse.ArgumentParser(description='Judges rehearsals by their ledgers.')
    parser.add_argument('--real-time', action='store_true', help='the ledgers are of real executables')
    parser.add_argument('--password', help='the password that was in the environment, if not in the settings')
    parser.add_argument('--least-posts', type=int, default=1, help='fewer posts than that prove nothing')
    parser.add_argument('folders', nargs='+', type=pathlib.Path)
    options = parser.parse_args()

    whole = Tally()
    failed = []
    for folder in options.folders:
        tally = judge(folder, options.password, REAL_TIME if options.real_time else EXACT)
        whole.add_all(tally)
        if not tally.is_good():
            failed.append(folder)
            print(f'{folder}:')
            print('\n'.join(map(str, tally.of(*BAD, Fate.UNDECIDABLE)[:20])))
    print(whole.table())
    for folder in failed:
        print(f'FAILED: {folder}')
    if len([item for item in whole.items if item.post]) < options.least_posts:
        print('FAILED: too few posts')
        return 1
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
