#!/usr/bin/python3
"""Runs the benchmarks and prints one table: our figure, a floor measured in the same run, the ratio, the goal.
The figures are of a warm process: the first runs, which wait for the system to hand out memory, do not count.

Usage: table.py [--core] [seconds to watch the whole program]. With --core, only what brelwin_bench measures."""

import json
import subprocess
import sys
from typing import Callable, NamedTuple, Optional

import whole_program

REPETITIONS = 5
WARM_UP_SECONDS = 0.5
TABLE = '-(Sort|Search|Follow)Board|KeyIndex|BloomFilter|Standard'  # all but what the table does not show
NANOSECONDS = {'ns': 1, 'us': 1e3, 'ms': 1e6, 's': 1e9}

Medians = dict[str, dict]  # by the name of the benchmark


class Row(NamedTuple):
    subject: str
    ours: float
    floor: Optional[float]
    unit: str
    goal: str
    met: Optional[bool]

    def ratio(self) -> str:
        if not self.floor or not self.ours:
            return ''
        return f'{max(self.ours, self.floor) / min(self.ours, self.floor):.1f}'


def run_benchmarks() -> Medians:
    output = subprocess.run(
        [whole_program.BUILD_BIN / 'brelwin_bench', f'--benchmark_repetitions={REPETITIONS}',
         f'--benchmark_min_warmup_time={WARM_UP_SECONDS}', '--benchmark_report_aggregates_only=true',
         f'--benchmark_filter={TABLE}', '--benchmark_format=json'],
        check=True, capture_output=True).stdout
    return {result['run_name']: result for result in json.loads(output)['benchmarks']
            if result['aggregate_name'] == 'median'}


def time_of(result: dict) -> float:
    """Of the processor, so that what else runs on the machine counts for less; all of these run on one thread."""
    return result['cpu_time'] * NANOSECONDS[result['time_unit']]


def milliseconds(result: dict) -> float:
    return time_of(result) / 1e6


def microseconds(result: dict) -> float:
    return time_of(result) / 1e3


def elapsed_milliseconds(result: dict) -> float:
    """Of the wall clock, where only a part of each run is timed."""
    return result['real_time'] * NANOSECONDS[result['time_unit']] / 1e6


def nanoseconds_per_item(result: dict) -> float:
    return 1e9 / result['items_per_second']


def core_rows(medians: Medians) -> list[Row]:
    def row(subject: str, ours: str, floor: str, figure: Callable[[dict], float], unit: str, goal: float) -> Row:
        value = figure(medians[ours])
        return Row(subject, value, figure(medians[floor]), unit, f'{goal:g}', value <= goal)

    def merge_row(length: int) -> Row:
        return Row(f'merge 100 spots into {length:,}', microseconds(medians[f'Merge/{length}']),
                   microseconds(medians[f'MergeFloor/{length}']), 'us', 'alike', None)

    def ratio_row(subject: str, ours: str, floor: str, goal: float,
                  figure: Callable[[dict], float] = nanoseconds_per_item, unit: str = 'ns/line') -> Row:
        value, least = figure(medians[ours]), figure(medians[floor])
        return Row(subject, value, least, unit, f'{goal:g}x', value <= goal * least)

    def goal_row(subject: str, ours: str, goal: float, figure: Callable[[dict], float] = milliseconds) -> Row:
        value = figure(medians[ours])
        return Row(subject, value, None, 'ms', f'{goal:g}', value <= goal)

    return [
        ratio_row('read a feed of 50,000 items', 'ReadFeed', 'ReadFeedFloor', 2.5, milliseconds, 'ms'),
        ratio_row('filter 100,000 spots by 6 lists', 'Filter', 'FilterFloor', 1.5, nanoseconds_per_item,
                  'ns/spot+list'),
        row('text of 10,000 list lines', 'ListText', 'ListTextFloor', milliseconds, 'ms', 3),
        merge_row(1_000), merge_row(10_000), merge_row(100_000),
        row('put 10,000 lines into the window', 'PutLines', 'PaintLines', milliseconds, 'ms', 16),
        ratio_row('add 10 lines to them', 'AddLines', 'PaintLines', 1.5, milliseconds, 'ms'),
        ratio_row('read an alerts page of 10,000 rows', 'ReadAlertsPage/10000', 'ReadAlertsPageFloor/10000', 3,
                  milliseconds, 'ms'),
        ratio_row('drop lines by type, blocks of 10', 'DropByType/10', 'DropByTypeFloor', 2),
        ratio_row('drop lines by type', 'DropByType/1000', 'DropByTypeFloor', 2),
        ratio_row('drop lines by type, in 10,000s', 'DropByType/10000', 'DropByTypeFloor', 2),
        ratio_row('keep 1 line in 20, 10 alerts', 'KeepFivePercent/10', 'KeepFivePercentFloor', 2.5),
        ratio_row('keep 1 line in 20, 2,000 alerts', 'KeepFivePercent/2000', 'KeepFivePercentFloor', 2.5),
        ratio_row('keep 1 line in 20, 100,000 alerts', 'KeepFivePercent/100000', 'KeepFivePercentFloor', 2.5),
        ratio_row('keep every line', 'KeepEveryLine/1000', 'KeepEveryLineFloor/1000', 3),
        ratio_row('keep every line, in 100,000s', 'KeepEveryLine/100000', 'KeepEveryLineFloor/100000', 3),
        row('from a line to its post', 'LineToPost/manual_time', 'LineToPostFloor/manual_time', elapsed_milliseconds,
            'ms', 10),
        row('refuse 200 duplicates', 'RefuseDuplicates', 'RefuseDuplicatesFloor', milliseconds, 'ms', 50),
        row('the gates of one spot', 'Gates', 'GatesFloor', microseconds, 'us', 10),
        goal_row('longest stretch of a check', 'CheckOfALongDay/iterations:40/manual_time', 16, elapsed_milliseconds),
        goal_row('read a list of 180,000 summits', 'ReadListOfSummits', 1_000),
        goal_row('import a list of 180,000 summits', 'ImportListOfSummits', 1_000),
        goal_row('look up 5,000 summits', 'LookUpSummitsOfABoard', 100),
        goal_row('read 100,000 contacts, ADIF', 'ReadLog/Adif', 1_000),
        goal_row('read 100,000 contacts, SOTA CSV', 'ReadLog/SotaCsv', 1_000),
    ]


def whole_rows(seconds: float) -> list[Row]:
    return [Row(figure.subject, figure.value, None, figure.unit, f'{figure.goal:g}', figure.value <= figure.goal)
            for figure in whole_program.measure(seconds)]


def print_table(rows: list[Row]) -> None:
    print(f'{"subject":34}{"ours":>9}{"floor":>9}  {"unit":13}{"ratio":>7}{"goal":>7}')
    for row in rows:
        floor = '' if row.floor is None else f'{row.floor:.2f}'
        missed = '  missed' if row.met is False else ''
        print(f'{row.subject:34}{row.ours:9.2f}{floor:>9}  {row.unit:13}{row.ratio():>7}{row.goal:>7}{missed}')


if __name__ == '__main__':
    arguments = sys.argv[1:]
    core_only = '--core' in arguments
    seconds = [float(argument) for argument in arguments if argument != '--core']
    rows = core_rows(run_benchmarks())
    print_table(rows if core_only else rows + whole_rows(seconds[0] if seconds else 120))
