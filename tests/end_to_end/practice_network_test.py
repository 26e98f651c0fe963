"""The practice network as a process: its promises on the command line, the port and the ledger."""

import re
import signal
import subprocess
import time
import unittest
import urllib.error
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
        self.workshop.processes[-1].stop()
        ledger = self.workshop.ledger()
        self.assertEqual([entry['kind'] for entry in ledger], ['asked', 'served'] * 2)
        self.assertAlmostEqual(ledger[0]['t'] / 1000, time.time(), delta=60)
        self.assertRegex(ledger[0]['agent'], 'Python-urllib')
        self.assertIn('<item>', ledger[1]['body'])
        self.assertEqual((ledger[2]['target'], ledger[2]['body']), ('/elsewhere', 'callsign=G4ABC\nsecond'))
        self.assertEqual((ledger[3]['request'], ledger[3]['status']), (2, 404))
        self.assertTrue(re.match('127.0.0.1', base.removeprefix('http://')))


if __name__ == '__main__':
    unittest.main()
