"""Runs the cases and tells, for each, what the server, the log and the list say. See ./run."""

import contextlib
import gzip
import re
import sys
import time
import traceback
import urllib.request
from typing import Callable, Iterator

from feeds import first_items, long_feed, pad_to, without_newest_items
from processes import BUILD_BIN, Process, Workshop, expected_stations, is_spot_line, stations
from servers import PLAIN, Nginx, Tinyproxy, free_port
from virtual_screen import VirtualScreen

MEGABYTE = 1 << 20
SECONDS_TO_QUIT = 2.0
SECONDS_TO_REACT = 2.0


class Wrong(Exception):
    """The monitor did not do what it should."""


def must(condition: bool, what: str) -> None:
    if not condition:
        raise Wrong(what)


class Case:
    """One monitor and the servers it meets."""

    def __init__(self) -> None:
        self.workshop = Workshop()
        self.servers: list[Nginx | Tinyproxy] = []
        self.console: Process | None = None
        self.screen: VirtualScreen | None = None
        self.good: list[str] = []
        base = self.workshop.start_practice_network('--speed', '0.001')
        self.feed = fetch(base + '/RssFeed')

    def close(self) -> None:
        self.workshop.close()
        if self.screen:
            self.screen.close()
        for server in self.servers:
            server.stop()

    def nginx(self, locations: str, body: bytes | None = None, tls: bool = False) -> Nginx:
        nginx = Nginx(self.workshop.root / f'nginx{len(self.servers)}', tls)
        nginx.put('feed.xml', self.feed if body is None else body)
        nginx.start(locations)
        self.servers.append(nginx)
        return nginx

    def proxy(self) -> Tinyproxy:
        proxy = Tinyproxy(self.workshop.root / f'proxy{len(self.servers)}')
        proxy.start()
        self.servers.append(proxy)
        return proxy

    def watch(self, base: str, **environment: str) -> None:
        self.workshop.write_settings(base)
        self.console = self.workshop.start_console(**environment)

    def watch_in_a_window(self, base: str) -> str:
        """Returns the window's number once it is there."""
        self.workshop.write_settings(base)
        self.screen = VirtualScreen(self.workshop.root)
        self.console = self.workshop.start([BUILD_BIN / 'brelwin'], DISPLAY=self.screen.name, QT_QPA_PLATFORM='xcb')
        return self.screen.do('search', '--sync', '--onlyvisible', '--name', 'Brelwin v').split()[0]

    def reacts(self, what: str, *command: str) -> None:
        """What the hands do shows on the screen soon."""
        seconds = self.screen.seconds_until_it_changes(*command)
        must(seconds < SECONDS_TO_REACT, f'{what}: nothing to be seen for {seconds:.1f} s')
        self.good.append(f'{what} within {seconds:.2f} s')

    def window_is_alive(self, window: str, list_is_there: bool = False) -> None:
        """It turns to other tabs and back, paints, scrolls and lets a line be chosen."""
        tabs = {'Logs': '230', 'Gateway': '465', 'Spots': '40'}
        for tab, x in tabs.items():
            self.reacts(tab, 'mousemove', '--window', window, x, '25', 'click', '1')
        if not list_is_there:
            return
        self.reacts('scrolls', 'mousemove', '--window', window, '300', '200', 'click', '5')
        self.reacts('chooses', 'mousemove', '--window', window, '300', '120', 'click', '1')

    def shown(self) -> list[tuple[str, str, str]]:
        return stations(self.console.out.lines)

    def whole(self, feed: bytes | None = None, patience: float = 30) -> None:
        """The list has every spot of the feed, each once, in the order of time."""
        expected = expected_stations((self.feed if feed is None else feed).decode())
        with contextlib.suppress(AssertionError):
            self.console.out.wait_for(lambda lines: len(stations(lines)) >= len(expected), 'the list', patience)
        must(self.shown() == expected, f'{len(self.shown())} spots are shown of {len(expected)}')
        self.good.append(f'all {len(expected)} spots, oldest first')

    def whole_in_any_order(self) -> None:
        """As above, for a list that came in two parts."""
        expected = expected_stations(self.feed.decode())
        with contextlib.suppress(AssertionError):
            self.console.out.wait_for(lambda lines: len(stations(lines)) >= len(expected), 'the list', 30)
        time.sleep(2.5)
        must(sorted(self.shown()) == sorted(expected), f'{len(self.shown())} spots are shown of {len(expected)}')
        self.good.append(f'no spot of {len(expected)} lost or shown twice')

    def nothing_for(self, seconds: float) -> None:
        time.sleep(seconds)
        must(not self.shown(), f'{len(self.shown())} spots are shown')
        self.good.append('no spot')

    def checks_go_on(self, count: int = 2, patience: float = 30) -> None:
        """The monitor is alive: it checks that many times more."""
        before = self.checks()
        with contextlib.suppress(AssertionError):
            self.console.out.wait_for(lambda _: self.checks() >= before + count, 'checks', patience)
        must(self.checks() >= before + count, 'the monitor has stopped checking')
        self.good.append('the checks go on')

    def checks(self) -> int:
        return sum(line.startswith('Checking for spots') for line in self.console.out.lines)

    def log(self) -> list[str]:
        """What the event log says of the feed."""
        return [line for line in self.workshop.event_log().splitlines()
                if re.search('No connection|Connected|answer', line)]

    def logged(self, count: int) -> None:
        must(len(self.log()) == count, f'{len(self.log())} event-log lines about the feed, expected {count}')
        self.good.append(f'{count} log line{"" if count == 1 else "s"}')

    def status_says(self, part: str, patience: float = 15) -> None:
        with contextlib.suppress(AssertionError):
            self.console.out.wait_for(lambda lines: any(part in line for line in lines), part, patience)
        said = any(part in line for line in self.console.out.lines if not is_spot_line(line))
        must(said, f'the status line does not say "{part}"')
        self.good.append(f'the status line says "{part}"')

    def quits(self) -> None:
        status, seconds = self.console.stop()
        must(status == 0, f'exit status {status}')
        must(seconds < SECONDS_TO_QUIT, f'quitting took {seconds:.1f} s')
        self.good.append(f'quits in {seconds:.1f} s')

    def report(self) -> None:
        for server in self.servers:
            notes = server.access_log() if isinstance(server, Nginx) else server.requests()
            name = 'nginx' if isinstance(server, Nginx) else 'proxy'
            show(name, notes[:4] or ['(no request)'])
        show('log', self.log()[:5])
        status = [line for line in self.console.out.lines[2:] if not is_spot_line(line)]
        show('status', list(dict.fromkeys(status))[:6])
        shown = [' '.join(line.split()) for line in self.console.out.lines if is_spot_line(line)]
        show('list', [f'{len(shown)} spots'] + ['first ' + shown[0], 'last  ' + shown[-1]] if shown else [])


def show(name: str, lines: list[str]) -> None:
    for number, line in enumerate(lines or ['(nothing)']):
        print(f'  {name if number == 0 else "":8}{line[:150]}')


def fetch(address: str) -> bytes:
    with urllib.request.build_opener(urllib.request.ProxyHandler({})).open(address) as page:
        return page.read()


def plain(case: Case) -> None:
    case.watch(case.nginx(PLAIN).base)
    case.whole()
    case.logged(0)


def chunked(case: Case) -> None:
    # Pieces of odd length with pauses between them: tags and characters are cut anywhere.
    ends = [1, 700, 2048, 4097, 9001, 20011, len(case.feed)]
    nginx = case.nginx(PLAIN)
    echo = ''
    for number, (begin, end) in enumerate(zip([0] + ends, ends)):
        nginx.put(f'piece{number}', case.feed[begin:end])
        echo += f'echo_location /piece{number}; echo_flush; echo_sleep 0.1;'
    nginx.serve(f'location = /RssFeed {{ {echo} }}')
    case.watch(nginx.base)
    case.whole()


def compressed(case: Case) -> None:
    case.watch(case.nginx('gzip on; gzip_types *; gzip_min_length 1;' + PLAIN).base)
    case.whole()
    must(re.search(r'gzip \d', case.servers[0].access_log()[0]) is not None, 'the server sent it plainly')
    case.good.append('sent compressed')


def redirected(case: Case) -> None:
    case.watch(case.nginx('location = /RssFeed { return 302 /a; } location = /a { return 301 '
                          'http://127.0.0.1:PORT/b; } location = /b { try_files /feed.xml =404; }').base)
    case.whole()


def redirected_in_circles(case: Case) -> None:
    nginx = case.nginx('location = /RssFeed { return 302 /a; } location = /a { return 302 /RssFeed; }')
    case.watch(nginx.base)
    case.checks_go_on()
    case.nothing_for(0)
    must(len(nginx.access_log()) < 500, 'the monitor followed without end')
    nginx.serve(PLAIN)
    case.whole()


def through_a_proxy(case: Case) -> None:
    proxy = case.proxy()
    case.watch(case.nginx(PLAIN).base, http_proxy=f'http://127.0.0.1:{proxy.port}/')
    case.whole()
    must(bool(proxy.requests()), 'the proxy was not asked')


def through_a_proxy_without_scheme(case: Case) -> None:
    proxy = case.proxy()
    case.watch(case.nginx(PLAIN).base, http_proxy=f'127.0.0.1:{proxy.port}')
    case.whole()
    must(bool(proxy.requests()), 'the proxy was not asked')


def past_a_proxy(case: Case) -> None:
    proxy = case.proxy()
    case.watch(case.nginx(PLAIN).base, http_proxy=f'http://127.0.0.1:{proxy.port}', no_proxy='localhost,127.0.0.1')
    case.whole()
    must(not proxy.requests(), 'the proxy was asked')


def a_proxy_that_is_gone(case: Case) -> None:
    nginx = case.nginx(PLAIN)
    case.watch(nginx.base, http_proxy=f'http://127.0.0.1:{free_port()}')
    case.checks_go_on()
    case.nothing_for(0)
    case.logged(1)
    must(not nginx.access_log(), 'the proxy was passed by')


def a_bad_certificate(case: Case) -> None:
    nginx = case.nginx(PLAIN, tls=True)
    case.watch(nginx.base)
    case.checks_go_on()
    case.nothing_for(0)
    case.logged(1)
    must(not nginx.access_log(), 'a request went to a server that nobody vouches for')
    case.good.append('refused')


def a_bad_certificate_behind_a_proxy(case: Case) -> None:
    proxy = case.proxy()
    nginx = case.nginx(PLAIN, tls=True)
    case.watch(nginx.base, https_proxy=f'127.0.0.1:{proxy.port}')
    case.checks_go_on()
    case.nothing_for(0)
    case.logged(1)
    must(any('CONNECT' in line for line in proxy.requests()), 'the proxy was not asked for a tunnel')
    must(not nginx.access_log(), 'a request went to a server that nobody vouches for')


def slow(case: Case) -> None:
    # The head of the answer comes at once, its body a byte a second: longer than the 120 s that a page gets.
    nginx = case.nginx('limit_rate_after 400; limit_rate 1;' + PLAIN)
    case.watch(nginx.base)
    case.nothing_for(110)
    must(case.checks() == 0, 'the page was given up too early')
    case.status_says('120 seconds', patience=20)
    nginx.serve(PLAIN)
    case.whole(patience=150)


def slow_to_begin(case: Case) -> None:
    # Not a byte comes for longer than the 30 s that a silence may last.
    nginx = case.nginx('location = /RssFeed { echo_sleep 60; echo late; }')
    case.watch(nginx.base)
    case.status_says('30 seconds', patience=40)
    nginx.serve(PLAIN)
    case.whole(patience=60)
    case.logged(2)


def cut_in_the_middle(case: Case) -> None:
    # A server behind the server dies in the middle of a page whose first part is new.
    behind = case.nginx('limit_rate 4k;' + PLAIN)
    old = without_newest_items(case.feed, 60)
    nginx = case.nginx(PLAIN, old)
    case.watch(nginx.base)
    case.whole(old)
    nginx.serve(f'location = /RssFeed {{ proxy_pass {behind.base}; proxy_buffering off; }}')
    time.sleep(2.5)
    behind.kill_workers()
    case.status_says('broke off')
    time.sleep(0.5)  # what came before the cut is shown right after
    partly = len(case.shown()) - len(expected_stations(old.decode()))
    must(0 < partly < 60, f'{partly} new spots of the cut page')
    case.good.append(f'{partly} of its new spots')
    behind.serve(PLAIN)
    case.whole_in_any_order()
    case.logged(2)


def cut_while_compressed(case: Case) -> None:
    body = gzip.compress(case.feed)
    nginx = case.nginx('gzip_static always;' + PLAIN)
    nginx.put('feed.xml.gz', body[:len(body) // 2])
    case.watch(nginx.base)
    case.checks_go_on()
    must(len(case.shown()) < len(expected_stations(case.feed.decode())), 'all spots of half a page')
    nginx.put('feed.xml.gz', body)
    case.whole_in_any_order()


def not_found(case: Case) -> None:
    nginx = case.nginx('location = /RssFeed { return 404; }')
    case.watch(nginx.base)
    case.checks_go_on()
    case.nothing_for(0)
    case.status_says('404')
    nginx.serve(PLAIN)
    case.whole()


def a_server_in_trouble(case: Case) -> None:
    nginx = case.nginx(PLAIN)
    case.watch(nginx.base)
    case.whole()
    nginx.serve('location = /RssFeed { return 500 "<html>Internal Server Error"; }')
    case.checks_go_on(3)
    case.status_says('500')
    nginx.serve(PLAIN)
    case.checks_go_on()
    case.whole()


def an_empty_page(case: Case) -> None:
    nginx = case.nginx('location = /RssFeed { return 200 ""; }')
    case.watch(nginx.base)
    case.checks_go_on()
    case.nothing_for(0)
    nginx.serve(PLAIN)
    case.whole()


def of_2048_bytes(case: Case) -> None:
    body = pad_to(first_items(case.feed, 2048), 2048)
    must(len(body) == 2048, f'the page made for this case has {len(body)} bytes')
    case.watch(case.nginx(PLAIN, body).base)
    case.whole(body)


def of_40_megabytes(case: Case) -> None:
    # So many spots that the list keeps only its newest 200.
    body = long_feed(80_000, 'calling ' * 48)
    must(len(body) > 40 * MEGABYTE, f'the page made for this case has {len(body)} bytes')
    case.watch(case.nginx(PLAIN, body).base)
    case.console.out.wait_for(lambda lines: len(stations(lines)) >= 200, 'the list', 60)
    must(case.shown()[:200] == expected_stations(body.decode())[-200:], 'not the newest 200 spots')
    case.good.append('the newest 200 spots')
    case.checks_go_on(2, patience=60)
    case.quits()


def of_40_megabytes_from_a_small_file(case: Case) -> None:
    body = pad_to(case.feed, 40 * MEGABYTE)
    nginx = case.nginx('gzip_static always;' + PLAIN, body)
    nginx.put('feed.xml.gz', gzip.compress(body))
    case.watch(nginx.base)
    case.whole(patience=60)
    case.checks_go_on(2, patience=60)


def a_window_while_a_page_is_slow(case: Case) -> None:
    nginx = case.nginx(PLAIN)
    window = case.watch_in_a_window(nginx.base)
    time.sleep(3)  # the list is there
    nginx.serve('limit_rate_after 400; limit_rate 1;' + PLAIN)
    time.sleep(3)  # the next check is reading
    case.window_is_alive(window, list_is_there=True)


def a_window_while_no_answer_comes(case: Case) -> None:
    window = case.watch_in_a_window(case.nginx('limit_rate 1;' + PLAIN).base)
    time.sleep(2)
    case.window_is_alive(window)


def a_window_without_a_server(case: Case) -> None:
    window = case.watch_in_a_window(f'http://127.0.0.1:{free_port()}')
    time.sleep(2)
    case.window_is_alive(window)


def no_server(case: Case) -> None:
    nginx = Nginx(case.workshop.root / 'nginx')
    nginx.put('feed.xml', case.feed)
    case.servers.append(nginx)
    case.watch(nginx.base)
    case.checks_go_on(3)
    case.nothing_for(0)
    case.logged(1)
    nginx.start(PLAIN)
    case.whole()
    case.logged(2)


CASES: dict[str, Callable[[Case], None]] = {
    function.__name__: function for function in (
        plain, chunked, compressed, redirected, redirected_in_circles, through_a_proxy,
        through_a_proxy_without_scheme, past_a_proxy, a_proxy_that_is_gone, a_bad_certificate,
        a_bad_certificate_behind_a_proxy, slow, slow_to_begin, cut_in_the_middle, cut_while_compressed, not_found,
        a_server_in_trouble, an_empty_page, of_2048_bytes, of_40_megabytes, of_40_megabytes_from_a_small_file,
        no_server, a_window_while_a_page_is_slow, a_window_while_no_answer_comes, a_window_without_a_server)}


def run_case(name: str) -> bool:
    print(f'{name.replace("_", " ")}')
    case = Case()
    try:
        CASES[name](case)
        if case.console.process.poll() is None:
            case.quits()
        wrong = ''
    except Wrong as reason:
        wrong = str(reason)
    except Exception:  # a fault of this script is shown, and the other cases still run
        wrong = traceback.format_exc()
    finally:
        if case.console:
            case.report()
        case.close()
    show('verdict', ['WRONG: ' + wrong if wrong else 'right: ' + ', '.join(case.good)])
    print(flush=True)
    return not wrong


def main() -> int:
    if sys.argv[1:] == ['--list']:
        print('\n'.join(CASES))
        return 0
    names = sys.argv[1:] or list(CASES)
    if unknown := [name for name in names if name not in CASES]:
        print(f'No such case: {", ".join(unknown)}. Their names: {", ".join(CASES)}', file=sys.stderr)
        return 2
    right = sum([run_case(name) for name in names])
    print(f'{right} passed, {len(names) - right} failed')
    return 0 if right == len(names) else 1


if __name__ == '__main__':
    sys.exit(main())
