"""Runs the real executables as a person would, and reads what they say. For tests that need processes,
sockets and files; everything that can be tested without them is tested without them."""

import http.server
import json
import os
import pathlib
import shutil
import signal
import socketserver
import subprocess
import tempfile
import threading
import time
import xml.etree.ElementTree
from typing import Callable

BUILD_BIN = pathlib.Path(os.environ.get('BRELWIN_BIN', 'build/dev/bin')).resolve()
# Long enough for the slowest machine and build; nothing waits for it unless something is broken.
PATIENCE = 60.0

SETTINGS = """\
[General]
SotawatchSpotsViaRSS={rss}
SecondsBetweenChecks=1
MaximumSpotsInList=200
AlertSound=chimes.wav
PlaySoundWhen=0
AlertSpotSourceSotawatch=1

[URLTemplates]
SotawatchRSS={base}/RssFeed
Twitter={base}/search.json?q=from:SOTAwatch&include_entities=true&result_type=recent&since_id=ZZZZ
Callsign={base}/db/ZZZZ
Summit={base}/summits.php?summit=ZZZZ
SotawatchAlerts={base}/alerts.php
"""


class Output:
    """The lines of a process as they come."""

    def __init__(self, stream) -> None:
        self.lines: list[str] = []
        self._changed = threading.Condition()
        self._ended = False
        self._thread = threading.Thread(target=self._read, args=(stream,), daemon=True)
        self._thread.start()

    def _read(self, stream) -> None:
        for line in stream:
            with self._changed:
                self.lines.append(line.decode('utf-8').removesuffix('\n'))
                self._changed.notify_all()
        with self._changed:
            self._ended = True
            self._changed.notify_all()

    def wait_for(self, condition: Callable[[list[str]], bool], what: str, patience: float = PATIENCE) -> list[str]:
        """The lines so far, once the condition holds for them."""
        with self._changed:
            self._changed.wait_for(lambda: condition(self.lines) or self._ended, patience)
            if not condition(self.lines):
                raise AssertionError(f'waited in vain for {what}; the output was:\n' + '\n'.join(self.lines))
            return list(self.lines)

    def wait_for_line(self, part: str, patience: float = PATIENCE) -> str:
        lines = self.wait_for(lambda lines: any(part in line for line in lines), f'"{part}"', patience)
        return next(line for line in lines if part in line)

    def all(self) -> list[str]:
        self._thread.join(PATIENCE)
        return self.lines


class Process:
    def __init__(self, command: list, environment: dict[str, str]) -> None:
        self.process = subprocess.Popen([str(part) for part in command], env=environment,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.out = Output(self.process.stdout)
        self.err = Output(self.process.stderr)

    def stop(self, with_signal: signal.Signals = signal.SIGTERM) -> tuple[int, float]:
        """Asks the process to end. Returns its exit status and how many seconds it took."""
        beginning = time.monotonic()
        self.process.send_signal(with_signal)
        status = self.process.wait(PATIENCE)
        return status, time.monotonic() - beginning

    def kill(self) -> None:
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        for output, stream in ((self.out, self.process.stdout), (self.err, self.process.stderr)):
            output.all()
            stream.close()


class Workshop:
    """A folder of its own and the processes of one test; leaves neither behind."""

    def __init__(self) -> None:
        self._folder = tempfile.TemporaryDirectory(prefix='brelwin-test-')
        self.root = pathlib.Path(self._folder.name)
        self.folder = self.root / 'brelwin'
        self.folder.mkdir()
        self.processes: list[Process] = []
        self.servers: list[socketserver.BaseServer] = []

    def close(self) -> None:
        for process in self.processes:
            process.kill()
        for server in self.servers:
            server.shutdown()
            server.server_close()
        shutil.rmtree(self.root, ignore_errors=True)
        self._folder.cleanup()

    def environment(self, **changes: str) -> dict[str, str]:
        proxies = {'http_proxy', 'https_proxy', 'no_proxy', 'all_proxy'}
        kept = {name: value for name, value in os.environ.items()
                if name.lower() not in proxies and not name.startswith('BRELWIN_')}
        return kept | {'BRELWIN_FOLDER': str(self.folder), 'TZ': 'UTC', 'HOME': str(self.root)} | changes

    def start(self, command: list, **environment: str) -> Process:
        process = Process(command, self.environment(**environment))
        self.processes.append(process)
        return process

    def start_practice_network(self, *options: str) -> str:
        """Returns the address where it is reached."""
        process = self.start([BUILD_BIN / 'brelwin-practice', '--ledger', self.root / 'ledger.txt', *options])
        return 'http://127.0.0.1:' + process.out.wait_for_line('http=').removeprefix('http=')

    def ledger(self) -> list[dict]:
        return [json.loads(line) for line in (self.root / 'ledger.txt').read_text().splitlines()]

    def start_server(self, handler: type[http.server.BaseHTTPRequestHandler]) -> str:
        """A web server of our own, for answers that no sane server gives."""
        server = http.server.ThreadingHTTPServer(('127.0.0.1', 0), handler)
        server.daemon_threads = True
        server.block_on_close = False
        threading.Thread(target=server.serve_forever, daemon=True).start()
        self.servers.append(server)
        return f'http://127.0.0.1:{server.server_address[1]}'

    def write_settings(self, base: str, rss: int = 1) -> None:
        (self.folder / 'Brelwin.INI').write_text(SETTINGS.format(base=base, rss=rss))

    def start_console(self, *arguments: str, **environment: str) -> Process:
        return self.start([BUILD_BIN / 'brelwin-console', *arguments], **environment)

    def read(self, name: str) -> str:
        file = self.folder / name
        return file.read_text(encoding='utf-8') if file.exists() else ''

    def event_log(self) -> str:
        return self.read('BrelwinEventLog.txt')


def is_spot_line(line: str) -> bool:
    return len(line) > 100 and line[2:3] == ':' and line[:2].isdigit()


def expected_stations(feed: str) -> list[tuple[str, str, str]]:
    """Time, station and summit of every spot that a feed holds, oldest first, read by another reader than the
    program's. An item that names two stations is two spots."""
    spots = []
    for item in xml.etree.ElementTree.fromstring(feed).iter('item'):
        title = item.findtext('title', '').split(' ')
        on = [token.upper() for token in title].index('ON')
        time_of_day = item.findtext('pubDate', '').split(' ')[4][:5]
        spots.append((time_of_day, title[0], title[on + 1]))
        if on == 3:
            spots.append((time_of_day, title[2], title[on + 1]))
    return spots[::-1]


def stations(lines: list[str]) -> list[tuple[str, str, str]]:
    """The same of every line of the list, taken from its columns."""
    return [(line[:7].strip(), line[7:19].strip(), line[19:31].strip()) for line in filter(is_spot_line, lines)]
