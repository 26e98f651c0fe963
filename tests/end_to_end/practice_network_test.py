"""The practice network as a process: its promises on the command line, the port and the ledger."""

import re
import signal
import subprocess
import unittest
import urllib.request

from processes import BUILD_BIN, Workshop


class PracticeNetwork(unittest.TestCase):
    def setUp(self) -> None:
        self.workshop = Workshop()
        self.addCleanup(self.workshop.close)

    def test_it_ends_in_order_on_each_signal(self) -> None:
        for ending in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            self.workshop.start_practice_network()
            self.assertEqual(self.workshop.processes[-1].stop(ending)[0], 0)

    def test_a_taken_port_is_refused(self) -> None:
        port = self.workshop.start_practice_network().rsplit(':', 1)[1]
        second = subprocess.run([BUILD_BIN / 'brelwin-practice', '--port', port], capture_output=True, timeout=30)
        self.assertEqual((second.returncode, second.stdout), (1, b''))
        self.assertIn(port.encode(), second.stderr)

    def test_the_ledger_has_what_came_and_what_went(self) -> None:
        base = self.workshop.start_practice_network()
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        opener.open(base + '/RssFeed').read()
        with self.assertRaises(urllib.error.HTTPError):
            opener.open(base + '/elsewhere', b'callsign=G4ABC\nsecond')
        stamp = r'\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z '
        expected = [r'received GET /RssFeed agent="Python-urllib.*"', r'served 200 /RssFeed \d+ bytes .* on .* @ .*',
                    r'received POST /elsewhere agent=.*', r'received body callsign=G4ABC\\x0asecond',
                    r'served 404 /elsewhere 0 bytes.*']
        self.workshop.processes[-1].stop()
        self.assertRegex('\n'.join(self.workshop.ledger()), '^' + '\n'.join(stamp + line for line in expected) + '$')
        self.assertTrue(re.match('127.0.0.1', base.removeprefix('http://')))


if __name__ == '__main__':
    unittest.main()
