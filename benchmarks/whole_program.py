#!/usr/bin/python3
"""Measures the executables as a whole and from outside, against the practice network: the time to the first
paint, the memory they hold, and the processor time they use while they only look at the feed now and then.

Usage: whole_program.py [seconds to watch, 120 when left out]. The executables are those of the folder that
BRELWIN_BIN names. Needs Xvfb."""

import datetime
import http.server
import pathlib
import statistics
import sys
import time
from typing import NamedTuple

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / 'testing'))
from processes import BUILD_BIN, Process, Workshop  # noqa: E402
from virtual_screen import VirtualScreen  # noqa: E402

STARTS = 11
SETTLING_SECONDS = 15.0
SECONDS_BETWEEN_CHECKS = 30
LONG_LIST = 10_000
DESIGN_SECONDS_BETWEEN_CHECKS = 1  # of the workshop's settings file


class Figure(NamedTuple):
    subject: str
    value: float
    unit: str
    goal: float


def write_settings(workshop: Workshop, network: str) -> None:
    workshop.write_settings(network)
    file = workshop.folder / 'Brelwin.INI'
    file.write_text(file.read_text().replace(f'SecondsBetweenChecks={DESIGN_SECONDS_BETWEEN_CHECKS}\n',
                                             f'SecondsBetweenChecks={SECONDS_BETWEEN_CHECKS}\n'))


def start_window(workshop: Workshop, screen: VirtualScreen) -> Process:
    return workshop.start([BUILD_BIN / 'brelwin'], DISPLAY=screen.name, QT_QPA_PLATFORM='xcb')


def seconds_to_first_paint(workshop: Workshop, screen: VirtualScreen) -> float:
    """From the start of the process until a pixel of the screen differs."""
    empty = screen.picture()
    beginning = time.monotonic()
    window = start_window(workshop, screen)
    while screen.picture() == empty:
        if time.monotonic() - beginning > 60 or window.process.poll() is not None:
            raise RuntimeError('the window did not appear:\n' + '\n'.join(window.err.lines))
        time.sleep(0.001)
    seconds = time.monotonic() - beginning
    window.stop()
    while screen.picture() != empty:
        time.sleep(0.01)
    return seconds


def resident_megabytes(process: Process) -> float:
    status = pathlib.Path(f'/proc/{process.process.pid}/status').read_text()
    kilobytes = next(line.split()[1] for line in status.splitlines() if line.startswith('VmRSS:'))
    return int(kilobytes) / 1024


def processor_seconds(process: Process) -> float:
    """Of all threads, so far."""
    tasks = pathlib.Path(f'/proc/{process.process.pid}/task').iterdir()
    return sum(int((task / 'schedstat').read_text().split()[0]) for task in tasks) / 1e9


def watch(processes: list[Process], seconds: float) -> list[float]:
    """The share of a core, in per cent, that each process uses."""
    before = [processor_seconds(process) for process in processes]
    time.sleep(seconds)
    after = [processor_seconds(process) for process in processes]
    return [100 * (end - start) / seconds for start, end in zip(before, after)]


def measure_start(network: str) -> Figure:
    workshop = Workshop()
    screen = VirtualScreen(workshop.root)
    try:
        write_settings(workshop, network)
        times = [seconds_to_first_paint(workshop, screen) for _ in range(STARTS)]
        return Figure('first paint of the window', 1000 * statistics.median(times), 'ms', 250)
    finally:
        workshop.close()
        screen.close()


def measure_running(network: str, seconds: float) -> list[Figure]:
    with_window, with_console = Workshop(), Workshop()
    screen = VirtualScreen(with_window.root)
    try:
        for workshop in (with_window, with_console):
            write_settings(workshop, network)
        window = start_window(with_window, screen)
        console = with_console.start_console()
        time.sleep(SETTLING_SECONDS)
        window_share, console_share = watch([window, console], seconds)
        return [Figure('memory of the window', resident_megabytes(window), 'MB', 60),
                Figure('memory of the console', resident_megabytes(console), 'MB', 25),
                Figure('processor time of the window', window_share, '% of a core', 0.2),
                Figure('processor time of the console', console_share, '% of a core', 0.2)]
    finally:
        with_window.close()
        with_console.close()
        screen.close()


def long_feed() -> bytes:
    """As many spots as the longest list holds, one every second, of a thousand stations."""
    newest = datetime.datetime.now(datetime.timezone.utc)
    items = []
    for number in range(LONG_LIST):
        time_of_spot = newest - datetime.timedelta(seconds=number)
        items.append(f'<item><title>G{number % 10}X{number % 1000:03d} on G/LD-{number % 1000 % 900 + 100} 8pts 14.062 CW</title>'
                     f'<pubDate>{time_of_spot:%a, %d %b %Y %H:%M:%S} GMT</pubDate>'
                     f'<description>on the summit now, good signals (Posted by M{number % 10}ABC)</description></item>')
    return ('<?xml version="1.0"?><rss version="2.0"><channel>' + ''.join(items) + '</channel></rss>').encode()


class LongFeedHandler(http.server.BaseHTTPRequestHandler):
    FEED = long_feed()

    def do_GET(self) -> None:
        body = self.FEED if self.path == '/RssFeed' else b'<html></html>'
        self.send_response(200)
        self.send_header('Content-Length', str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_) -> None:
        pass


def measure_long_lists() -> list[Figure]:
    with_window, with_console = Workshop(), Workshop()
    screen = VirtualScreen(with_window.root)
    try:
        network = with_window.start_server(LongFeedHandler)
        for workshop in (with_window, with_console):
            write_settings(workshop, network)
            file = workshop.folder / 'Brelwin.INI'
            file.write_text(file.read_text().replace('InList=200', f'InList={LONG_LIST}'))
        window = start_window(with_window, screen)
        console = with_console.start_console()
        console.out.wait_for(lambda lines: len(lines) >= LONG_LIST, f'{LONG_LIST} lines')
        time.sleep(SETTLING_SECONDS)
        return [Figure(f'window, {LONG_LIST:,} spots listed', resident_megabytes(window), 'MB', 50),
                Figure(f'console, {LONG_LIST:,} spots listed', resident_megabytes(console), 'MB', 25)]
    finally:
        with_window.close()
        with_console.close()
        screen.close()


def measure(seconds: float) -> list[Figure]:
    workshop = Workshop()
    try:
        network = workshop.start_practice_network('--seed', '1')
        return [measure_start(network)] + measure_running(network, seconds) + measure_long_lists()
    finally:
        workshop.close()


if __name__ == '__main__':
    for figure in measure(float(sys.argv[1]) if len(sys.argv) > 1 else 120):
        print(f'{figure.subject:32}{figure.value:10.2f} {figure.unit} (goal {figure.goal:g})')
