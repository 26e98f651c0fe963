"""The console on the practice network: what comes onto the screen, and in which order."""

import json
import re
import time
import unittest
import urllib.request

from processes import Workshop, expected_stations, is_spot_line, stations

HEADER = ('UTC    Station     Summit      Summit Name                     Pts  Freq     Mode  Operator      '
          'Comment                                                      Spotter')


def fetch(address: str) -> str:
    with urllib.request.build_opener(urllib.request.ProxyHandler({})).open(address) as page:
        return page.read().decode('utf-8')


class Listing(unittest.TestCase):
    def setUp(self) -> None:
        self.workshop = Workshop()
        self.addCleanup(self.workshop.close)

    def start(self, *options: str, rss: int = 1):
        base = self.workshop.start_practice_network(*options)
        self.workshop.write_settings(base, rss)
        return base, self.workshop.start_console()

    def wait_for_spots(self, console, count: int) -> list[str]:
        return console.out.wait_for(lambda lines: len(list(filter(is_spot_line, lines))) >= count, f'{count} spots')

    def test_the_first_list_is_whole_and_oldest_first(self) -> None:
        base, console = self.start('--seed', '5', '--speed', '0.01')
        expected = expected_stations(fetch(base + '/RssFeed'))
        lines = self.wait_for_spots(console, len(expected))
        self.assertEqual(lines[:2], [HEADER, '=' * len(HEADER)])
        self.assertLess(lines.index('Connecting...'), next(i for i, line in enumerate(lines) if is_spot_line(line)))
        self.assertEqual(stations(lines), expected)
        self.assertEqual(expected_stations(self.workshop.read('SotawatchSpotsRSS.txt')), expected)

    def test_a_new_spot_comes_last_and_only_once(self) -> None:
        base, console = self.start('--seed', '2', '--speed', '600')
        self.wait_for_spots(console, 1)
        first = expected_stations(self.workshop.read('SotawatchSpotsRSS.txt'))
        shown = stations(self.wait_for_spots(console, len(first) + 5))
        feed = expected_stations(fetch(base + '/RssFeed'))
        # The feed has moved on: it begins somewhere in what is shown, and goes on where that ends.
        begins = [at for at in range(len(shown)) if shown[at:] == feed[:len(shown) - at]]
        self.assertEqual(len(begins), 1, (shown, feed))
        first = self.workshop.ledger()[0]
        self.assertEqual((first['method'], first['target'], first['agent']), ('GET', '/RssFeed', 'VB OpenUrl'))

    def test_the_search_feed_gives_the_same_spots(self) -> None:
        base, console = self.start('--seed', '5', '--speed', '0.01', rss=0)
        expected = expected_stations(fetch(base + '/RssFeed'))
        self.assertEqual(stations(self.wait_for_spots(console, len(expected))), expected)
        time.sleep(2.5)  # two more checks: since_id keeps what was seen from coming again
        self.assertEqual(stations(console.out.lines), expected)
        asked = [entry['target'].rpartition('since_id=')[2] for entry in self.workshop.ledger()
                 if entry['kind'] == 'asked' and entry['target'].startswith('/search.json')]
        self.assertIn(json.loads(fetch(base + '/search.json'))['results'][0]['id_str'], asked)

    def test_an_unreachable_feed_is_told_once_and_missed_nothing(self) -> None:
        base = self.workshop.start_practice_network('--seed', '3', '--speed', '0.01')
        network = self.workshop.processes[-1]
        self.workshop.write_settings(base)
        console = self.workshop.start_console()
        first = expected_stations(fetch(base + '/RssFeed'))
        self.wait_for_spots(console, len(first))
        network.stop()
        console.out.wait_for_line('No connection to Sotawatch')
        time.sleep(2.5)  # two more checks say nothing more
        self.workshop.start_practice_network('--seed', '4', '--speed', '0.01', '--port', base.rsplit(':', 1)[1])
        second = expected_stations(fetch(base + '/RssFeed'))
        self.wait_for_spots(console, len(first) + len(second))
        self.assertEqual(stations(console.out.lines), first + second)
        told = [line.partition(' - ')[2].partition(':')[0] for line in self.workshop.event_log().splitlines()
                if re.search('No connection|Connected', line)]
        self.assertEqual(told, ['No connection to Sotawatch', 'Connected to Sotawatch'])


if __name__ == '__main__':
    unittest.main()
