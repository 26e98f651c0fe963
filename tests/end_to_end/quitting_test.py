"""The console ends within two seconds, in order and with status 0, whatever it waits for."""

import http.server
import os
import signal
import time
import unittest

from processes import Workshop, is_spot_line

# The sanitizers' build on a busy machine is not held to it.
SECONDS_TO_QUIT = float(os.environ.get('BRELWIN_SECONDS_TO_QUIT', '2'))


class OneByteASecond(http.server.BaseHTTPRequestHandler):
    def do_GET(self) -> None:
        self.send_response(200)
        self.end_headers()
        try:
            for _ in range(100):
                self.wfile.write(b'<')
                self.wfile.flush()
                time.sleep(1)
        except OSError:
            pass  # the program has gone: that is what we wait for

    def log_message(self, *arguments) -> None:
        pass


class Silent(OneByteASecond):
    def do_GET(self) -> None:
        time.sleep(100)


class Quitting(unittest.TestCase):
    def setUp(self) -> None:
        self.workshop = Workshop()
        self.addCleanup(self.workshop.close)

    def start_console(self, *arguments, **environment):
        (self.workshop.folder / 'BrelwinEventLog.txt').unlink(missing_ok=True)
        return self.workshop.start_console(*arguments, **environment)

    def quit(self, console, with_signal: signal.Signals = signal.SIGTERM) -> None:
        status, seconds = console.stop(with_signal)
        self.assertEqual(status, 0, console.err.all())
        self.assertLess(seconds, SECONDS_TO_QUIT)
        log = [line.split(': ', 1)[-1] for line in self.workshop.event_log().splitlines()]
        ending = log[log.index('Form_QueryUnload'):]
        self.assertEqual([line for line in ending if line.startswith('Form_')],
                         ['Form_QueryUnload', 'Form_Unload Begin', 'Form_Unload End'])
        self.assertEqual(ending[-1], 'Form_Unload End')
        self.assertIn('SecondsBetweenChecks=', self.workshop.read('Brelwin.INI'))

    def test_idle(self) -> None:
        for with_signal in (signal.SIGTERM, signal.SIGINT):
            self.workshop.write_settings(self.workshop.start_practice_network())
            console = self.start_console()
            console.out.wait_for(lambda lines: any(map(is_spot_line, lines)), 'a spot')
            self.quit(console, with_signal)

    def test_while_a_page_trickles_in_or_does_not_come(self) -> None:
        for handler in (OneByteASecond, Silent):
            self.workshop.write_settings(self.workshop.start_server(handler))
            console = self.start_console()
            console.out.wait_for_line('Connecting...')
            time.sleep(1.5)
            self.quit(console)

    def test_during_the_start_up_delay(self) -> None:
        self.workshop.write_settings('http://127.0.0.1:9')
        console = self.start_console('DELAY=100')
        console.out.wait_for_line('initialized in 99 seconds')
        self.quit(console)

    def test_while_a_name_is_being_resolved(self) -> None:
        self.workshop.write_settings('http://sotawatch.invalid')
        console = self.start_console(LD_PRELOAD=os.environ['BRELWIN_SLOW_RESOLVER'],
                                              ASAN_OPTIONS='verify_asan_link_order=0')
        console.err.wait_for_line('resolving')
        self.quit(console)

    def test_at_any_moment_of_the_start(self) -> None:
        base = self.workshop.start_practice_network()
        for milliseconds in (60, 120, 240):
            self.workshop.write_settings(base)
            console = self.start_console()
            console.out.wait_for_line('UTC  ')
            time.sleep(milliseconds / 1000)
            self.quit(console)


if __name__ == '__main__':
    unittest.main()
