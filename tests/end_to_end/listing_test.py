"""The console on the practice network: what comes onto the screen, and in which order."""

import json
import re
import time
import unittest
import urllib.request

from processes import Workshop, expected_stations, is_spot_line, spot_lines, stations

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

    def test_comments_and_spotters_come_through(self) -> None:
        # Everything the feed says of an item, its markup undone, stands in the line.
        base, console = self.start('--seed', '9', '--speed', '0.01')
        feed = json.loads(fetch(base + '/search.json'))
        lines = self.wait_for_spots(console, len(feed['results']))
        texts = [' '.join(result['text'].replace('&lt;', '<').replace('&gt;', '>').replace('&quot;', '"')
                          .replace('&#39;', "'").replace('&amp;', '&').split()) for result in feed['results']]
        for spot in spot_lines(lines):
            comment = ' '.join(spot.comment.split()).replace('\\/', '/')
            self.assertTrue(any(comment in text.replace('\\/', '/') for text in texts), spot)
            self.assertTrue(any(spot.summit in text and f'Posted by {spot.spotter}'[:17] in text or
                                'APRS' in text and spot.station == spot.spotter for text in texts), spot)

    def test_a_new_spot_comes_last_and_only_once(self) -> None:
        base, console = self.start('--seed', '2', '--speed', '600')
        first = len(stations(self.wait_for_spots(console, 30)))
        lines = self.wait_for_spots(console, first + 5)
        shown = stations(lines)
        expected = expected_stations(fetch(base + '/RssFeed'))
        new = [spot for spot in expected if spot in shown[first:]]
        self.assertGreaterEqual(len(new), 3)
        order = [spot for spot in shown[first:] if spot in new]
        self.assertEqual(order, new[:len(order)])
        log = [line.split(' ') for line in self.workshop.ledger() if ' received ' in line]
        self.assertTrue(all(words[2:4] == ['GET', '/RssFeed'] for words in log if 'urllib' not in ' '.join(words)))
        self.assertIn('agent="VB OpenUrl"', self.workshop.ledger()[0])

    def test_the_search_feed_gives_the_same_spots(self) -> None:
        base, console = self.start('--seed', '5', '--speed', '0.01', rss=0)
        expected = expected_stations(fetch(base + '/RssFeed'))
        self.assertEqual(stations(self.wait_for_spots(console, len(expected))), expected)
        time.sleep(2.5)  # two more checks: since_id keeps what was seen from coming again
        self.assertEqual(stations(console.out.lines), expected)
        asked = re.findall(r'received GET /search.json\?\S*since_id=(\d*)', '\n'.join(self.workshop.ledger()))
        self.assertIn(json.loads(fetch(base + '/search.json'))['results'][0]['id_str'], asked)

    def test_a_delay_is_counted_down_before_anything_is_fetched(self) -> None:
        base = self.workshop.start_practice_network()
        self.workshop.write_settings(base)
        console = self.workshop.start_console('delay=2')
        console.out.wait_for_line('Internet connections will be initialized in 2 seconds...')
        self.assertFalse((self.workshop.root / 'ledger.txt').read_text())
        lines = console.out.wait_for(lambda lines: any(map(is_spot_line, lines)), 'a spot')
        countdown = [line for line in lines if line.startswith('Internet connections')]
        self.assertEqual(countdown, [f'Internet connections will be initialized in {seconds} seconds...'
                                     for seconds in (2, 1)])

    def test_an_unreachable_feed_is_told_once_and_missed_nothing(self) -> None:
        base = self.workshop.start_practice_network('--seed', '3')
        network = self.workshop.processes[-1]
        self.workshop.write_settings(base)
        console = self.workshop.start_console()
        first = self.wait_for_spots(console, 30)
        network.stop()
        told = len(self.workshop.event_log().splitlines())
        console.out.wait_for(lambda lines: len(lines) > len(first) + 2 and 'Checking' in lines[-1], 'more checks')
        time.sleep(3)
        news = self.workshop.event_log().splitlines()[told:]
        self.assertEqual(len(news), 1, news)
        self.workshop.start_practice_network('--seed', '4', '--port', base.rsplit(':', 1)[1])
        self.wait_for_spots(console, len(list(filter(is_spot_line, first))) + 10)
        news = self.workshop.event_log().splitlines()[told:]
        self.assertEqual(len([line for line in news if 'Sotawatch' in line]), 2, news)


if __name__ == '__main__':
    unittest.main()
