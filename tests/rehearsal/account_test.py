"""The account, tried on ledgers made by hand: each says what ought to be found in it."""

import json
import pathlib
import tempfile
import time
import unittest

from account import alerts, feed, ledger, radio, settings
from account.items import BAD, Fate
from account.replay import EXACT, REAL_TIME, Replay

NOON = 1_795_521_600  # 24 November 2026, 12:00 UTC, in seconds
INI = """\
[General]
SecondsBetweenChecks=8
[ReverseBeaconNetwork]
FilterDuplicateSpots=1
DuplicateSpotFilteringPeriod=10
FilterSotawatchMatchingAlert=1
MaxMinutesBeforeAlertTime=60
MaxMinutesAfterAlertTime=60
[Gateway]
SotawatchLogin=Q0ZZ
SotawatchPassword=rvgk~uqu
RBNSendAllSpotsToSotawatch=1
SotawatchDupeSpotMaxAgeInMinutes=30
GatewayDelayBeforeFinalDupeCheckAndSendInSeconds=10
GatewayMinimumSecondsBetweenSpotsOfSameStation=600
"""
BODY = ('actCallsign=G4ABC/P&assoc=G&summit=LD-001&freq=7.032&mode=cw&callsign=Q0ZZ&password=practice&submit=SPOT!'
        '&comments=CQ%20CQ%20at%2022%20wpm%2E%20S%2FN%3D24%20dB%20at%20KM3T%2D2%20%7BVia%20Tarnlink%7D')


def item(title: str, minutes_ago: float, comment: str = 'CQ', spotter: str = 'M0ABC') -> str:
    date = time.strftime('%a, %d %b %Y %H:%M:%S GMT', time.gmtime(NOON - 60 * minutes_ago))
    return (f'<item><title>{title}</title><description>{comment} Posted by {spotter}</description>'
            f'<pubDate>{date}</pubDate></item>')


def feed_page(*items: str) -> str:
    return '<rss><channel>' + ''.join(items) + '</channel></rss>'


def alerts_page(clock: str = '12:10', station: str = 'G4ABC/P', comment: str = 'CW') -> str:
    return ('<span class="alertDate">Tuesday 24th November 2026</span><table class="spots">\n'
            "<tr onMouseOver=\"return overlib('<strong>Operator:</strong> X<br><strong>Summit:</strong> High, 9m, 1 "
            f"point.', W);\"><td><strong>{clock}</strong></td><td>{station} on <a href=\"x\">G/LD-001</a></td>"
            f'<td>7-cw</td></tr><span class="comment">{comment}</span></table>')


OTHER = item('G4XYZ on G/LD-003 @ 14.285 SSB', 3)


class Story:
    """A ledger under construction; the first load and the first check, which reads the alerts, come by
    themselves."""

    def __init__(self, *items: str, page: str = '') -> None:
        self.lines: list[dict] = []
        self.requests = 0
        self.items = items or (OTHER,)
        self.page('/RssFeed', 0, feed_page(*self.items))
        self.write('open', 1, connection=1)
        self.page('/RssFeed', 10, feed_page(*self.items))
        self.page('/alerts.php', 10.1, page or alerts_page())

    def write(self, kind: str, second: float, **members) -> 'Story':
        self.lines.append({'t': round((NOON + second) * 1000), 'kind': kind} | members)
        return self

    def page(self, target: str, second: float, body: str, status: int = 200, whole: bool = True) -> 'Story':
        self.requests += 1
        self.write('asked', second, request=self.requests, method='GET', target=target)
        return self.write('served', second, request=self.requests, method='GET', target=target, status=status,
                          whole=whole, body=body)

    def check(self, second: float, *items: str) -> 'Story':
        return self.page('/RssFeed', second, feed_page(*(items or self.items)))

    def hear(self, second: float, kilohertz: str = '7032.0', station: str = 'G4ABC/P', kind: str = 'CQ',
             mode: str = 'CW', connection: int = 1) -> 'Story':
        text = f'DX de KM3T-2-#: {kilohertz}  {station}          {mode}    24 dB  22 WPM  {kind}      1200Z\r\n'
        return self.write('line', second, connection=connection, text=text)

    def post(self, second: float, body: str = BODY, answer: str = 'accepted', after: float = 0.1, page: str = '',
             whole: bool = True) -> 'Story':
        self.requests += 1
        fields = dict(field.split('=', 1) for field in body.replace('%20', ' ').split('&'))
        fields['comments'] = 'CQ CQ at 22 wpm. S/N=24 dB at KM3T-2 {Via Tarnlink}'
        page = page or ' '.join(fields.values())
        self.write('asked', second, request=self.requests, method='POST', target='/', body=body, fields=fields)
        return self.write('served', second + after, request=self.requests, method='POST', target='/', status=200,
                          whole=whole, body=page, answer=answer, taken=True)

    def end(self, second: float) -> 'Story':
        return self.check(second)

    def judge(self, tolerance=EXACT, ini: str = INI, **files: str):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder)
            (path / 'Brelwin.INI').write_text(ini)
            for name, text in files.items():
                (path / f'{name}.txt').write_text(text)
            events = ledger.read(map(json.dumps, self.lines))
            return Replay(events, settings.read(path), tolerance).run()


def fates(tally) -> list[tuple[str, str]]:
    return [(found.fate.value, found.reason) for found in tally.items]


POSTED, TWICE = ('posted', ''), ('posted twice', 'the same line was posted before')
MISSED = ('missed', 'it passes every check')
DUPE, FRESH_DUPE = ('refused', 'a duplicate among the current spots'), ('refused', 'a duplicate in the feed')
NEAR, SOON = ('refused', 'less than 1 kHz from a spot in the feed'), ('refused', 'the station was sent too recently')


class Verdicts(unittest.TestCase):
    def heard(self, *items: str, **options) -> Story:
        """One line in the second check."""
        return Story(*items, **options).hear(15).check(20)

    def test_what_passes_is_posted_or_missed(self) -> None:
        self.assertEqual(fates(self.heard().check(30).post(30.1).end(40).judge()), [POSTED])
        self.assertEqual(fates(self.heard().check(30).end(40).judge()), [MISSED])
        self.assertEqual(fates(self.heard().end(35).judge()), [('missed', 'no final check was made')])
        self.assertEqual(fates(self.heard().judge()), [('unfinished', 'the ledger ends before the final check')])

    def test_what_is_posted_beside_the_rules_is_found(self) -> None:
        passed = self.heard().check(30)
        other = BODY.replace('7.032', '7.0320')
        self.assertEqual(fates(passed.post(30.1, other).end(40).judge()), [('posted wrongly', 'other values: freq')])
        twice = self.heard().check(30).post(30.1).post(31).end(40)
        self.assertEqual(fates(twice.judge()), [POSTED, TWICE])
        out_of_nothing = Story().check(20).post(25).end(40)
        self.assertEqual(fates(out_of_nothing.judge()), [('posted wrongly', 'no skimmer line asks for it')])
        refused = self.heard(item('G4ABC/P on G/LD-001 @ 7.032 CW', 5)).post(20.5).end(40)
        self.assertEqual(fates(refused.judge()), [DUPE, ('posted wrongly', 'refused: ' + DUPE[1])])
        early = self.heard().post(20.5).check(30).end(40)
        self.assertFalse(early.judge().is_good())

    def test_the_first_check(self) -> None:
        cases = [('7.032', 5, [DUPE]), ('7.0324', 5, [DUPE]), ('7.032', 32, [POSTED]), ('10.118', 5, [POSTED])]
        for frequency, minutes, expected in cases:
            with self.subTest(frequency=frequency, minutes=minutes):
                story = self.heard(OTHER, item(f'G4ABC/P on G/LD-001 @ {frequency} CW', minutes))
                if expected == [POSTED]:
                    story.check(30, OTHER).post(30.1)
                self.assertEqual(fates(story.end(45).judge()), expected)

    def test_the_final_check(self) -> None:
        cases = [('7.032', 1, FRESH_DUPE), ('7.0328', 1, NEAR), ('7.033', 1, POSTED), ('7.031', 1, POSTED),
                 ('7.0315', 32, POSTED), ('10.118', 1, POSTED)]
        for frequency, minutes, expected in cases:
            with self.subTest(frequency=frequency, minutes=minutes):
                story = self.heard().check(30, item(f'G4ABC on G/LD-001 @ {frequency} CW', minutes), OTHER)
                if expected is POSTED:
                    story.post(30.1)
                self.assertEqual(fates(story.end(45).judge()), [expected])

    def test_a_feed_that_is_down_does_not_stop_a_spot_unless_nothing_was_ever_read(self) -> None:
        story = self.heard().page('/RssFeed', 30, '', 0).post(30.1)
        self.assertEqual(fates(story.end(45).judge()), [POSTED])
        empty = '<rss><channel></channel></rss>'
        story = Story()
        for line in story.lines:
            if line.get('target') == '/RssFeed' and 'body' in line:
                line['body'] = empty
        story.hear(15).page('/RssFeed', 20, empty).page('/RssFeed', 30, empty)
        self.assertEqual(fates(story.end(45).judge()), [('refused', 'there are no spots to compare with')])

    def test_the_interval_begins_with_an_accepted_spot(self) -> None:
        again = self.heard().check(30).post(30.1).hear(100, '7036.0').check(110).check(120)
        self.assertEqual(fates(again.end(130).judge()), [POSTED, SOON])
        failed = self.heard().check(30).post(30.1, page='Your submission failed.').hear(100, '7036.0').check(110)
        failed.check(120).post(120.1, BODY.replace('7.032', '7.036'))
        tally = failed.end(130).judge()
        self.assertEqual(fates(tally), [POSTED, POSTED])
        self.assertEqual(tally.failures, {'submission failed': 1})

    def test_a_repeat_after_an_unknown_outcome_is_counted_apart(self) -> None:
        story = self.heard().check(30).post(30.1, after=8)
        story.hear(700).check(710).check(720).post(720.1)
        tally = story.end(730).judge()
        self.assertEqual((fates(tally), tally.repeats), ([POSTED, POSTED], 1))
        self.assertEqual(tally.failures, {'no answer in time': 1})
        self.assertTrue(tally.is_good())

    def test_who_is_left_out(self) -> None:
        self.assertEqual(fates(self.heard().end(40).judge(SOTAExcludedActivators='g4abc\n')),
                         [('refused', 'the activator is excluded')])
        self.assertEqual(fates(self.heard().end(40).judge(SOTAExcludedActivators='EA8/G4ABC/M\n')),
                         [('refused', 'the activator is excluded')])
        early = self.heard(page=alerts_page('14:00', comment='after GM/SS-064'))
        self.assertEqual(fates(early.end(40).judge()), [('refused', 'only a summit reference opens the window')])
        word = item('EA8/G4ABC on G/LD-001 @ 10.118 CW', 0, comment='no Tarnlink', spotter='G4ABC')
        self.assertEqual(fates(self.heard().check(30, word, OTHER).end(40).judge()),
                         [('refused', 'the activator has opted out')])
        odd = Story(page=alerts_page(station='G4ABC_1')).hear(15, station='G4ABC_1').check(20).check(30)
        self.assertEqual(fates(odd.end(40).judge()), [('refused', 'the form cannot carry it')])
        self.assertEqual(fates(self.heard().end(40).judge(ini=INI.replace('SpotsToSotawatch=1', 'x=0'))), [])

    def test_a_switch_or_a_stall_in_the_wait_ends_it(self) -> None:
        off = dict(everyone=False, mine=True, login=False)
        self.assertEqual(fates(self.heard().write('switch', 25, **off).end(40).judge()),
                         [('refused', 'the gateway is off')])
        self.assertEqual(fates(self.heard().write('switch', 25, **off | {'login': True}).end(40).judge()),
                         [('refused', 'only my own are sent')])
        self.assertEqual(fates(Story().write('switch', 12, **off).hear(15).check(20).end(40).judge()), [])
        stalled = Story().hear(15).write('stall', 200, seconds=180).check(200.1).write('open', 200.2, connection=2)
        stalled.hear(205, connection=2).check(210).check(220).post(220.1)
        self.assertEqual(fates(stalled.end(230).judge()), [('refused', 'the program stood still'), POSTED])


class Lines(unittest.TestCase):
    def count(self, story: Story, **options) -> int:
        return len(story.check(20).judge(**options).items)

    def test_which_lines_are_looked_at(self) -> None:
        self.assertEqual(self.count(Story().hear(15)), 1)
        self.assertEqual(self.count(Story().hear(15, kind='DX')), 0)
        self.assertEqual(self.count(Story().hear(15).hear(16, '7032.04')), 1, 'a repeat on the same frequency')
        self.assertEqual(self.count(Story().hear(15).hear(16, '7033.0')), 2)
        self.assertEqual(self.count(Story(page=alerts_page('13:00')).hear(15)), 1, '59 minutes and 40 seconds before')
        self.assertEqual(self.count(Story(page=alerts_page('13:02')).hear(15)), 0)
        self.assertEqual(self.count(Story(page=alerts_page('14:00', comment='S-2')).hear(15)), 1)
        self.assertEqual(self.count(Story(page=alerts_page(comment='cancelled')).hear(15)), 0)
        self.assertEqual(self.count(Story(page=alerts_page(comment='no tarn link')).hear(15)), 0)
        filtered = INI.replace('[Gateway]', 'FilterSpotterExclude=KM*\n[Gateway]')
        self.assertEqual(self.count(Story().hear(15), ini=filtered), 0)

    def test_lines_without_a_connection_are_lost(self) -> None:
        story = Story().write('lost', 12, connection=1, text='DX de half').write('close', 12, connection=1, how='cut')
        story.write('open', 13, connection=2).hear(14)  # sent to the one that is gone
        tally = story.check(20).judge()
        self.assertEqual((len(tally.items), tally.lost), (0, 2))

    def test_a_self_spot_adds_an_alert_and_an_opt_out_takes_it_away(self) -> None:
        spot = item('G4ABC/P on G/LD-009 @ 14.062 CW', 1, spotter='G4ABC')
        story = Story(OTHER, page=alerts_page('15:00')).check(20, spot, OTHER).hear(25).check(30, spot, OTHER)
        found = story.judge().items
        self.assertIn('summit=LD-009', found[0].body)
        out = item('G4ABC/P on G/LD-009 @ 14.062 CW', 0, comment='RBNN', spotter='G4ABC')
        story = Story(OTHER).check(20, out, OTHER).hear(25).check(30, out, OTHER)
        self.assertEqual(story.judge().items, [])
        cut = Story(page=alerts_page('15:00')).check(20)
        cut.page('/alerts.php', 20.1, alerts_page(), whole=False).hear(25).check(30)
        self.assertEqual(cut.judge().items, [], 'what is behind the break is unknown')
        later = Story(OTHER).check(20, out, OTHER).page('/alerts.php', 20.1, alerts_page()).hear(25)
        self.assertEqual(later.check(30, out, OTHER).judge().items, [], 'the deletion outlives the next page')

    def test_commands_wait_for_the_alerts_and_an_own_post_is_none(self) -> None:
        early = item('G4ABC/P on G/LD-009 @ 14.062 CW', 1, spotter='G4ABC')
        self.assertIn('summit=LD-009', Story(early, OTHER).hear(15).check(20).judge().items[0].body)
        later = alerts_page('12:40').split('</span>', 1)[1].replace('LD-001', 'LD-005')
        own = item('G4ABC/P on G/LD-001 @ 7.032 CW', 0, 'CQ CQ at 22 wpm. S/N=24 dB at KM3T-2 (Via Tarnlink)', 'Q0ZZ')
        story = Story(page=alerts_page('12:05') + later).hear(15).check(20).check(30).post(30.1)
        story.check(40, own, OTHER).hear(1800, '7036.0').check(1805, own, OTHER)
        self.assertIn('summit=LD-005', story.judge(SOTATrustedSpotters='Q0ZZ\n').items[1].body)

    def test_near_a_boundary_in_real_time_nothing_is_decided(self) -> None:
        story = Story(page=alerts_page('13:02')).hear(55).check(60.7)
        self.assertEqual(story.end(67).judge(REAL_TIME).of(Fate.UNDECIDABLE)[0].reason,
                         'near a boundary of the stream or of the first check')
        posted = Story(page=alerts_page('13:02')).hear(55).check(60.7).check(70.6).post(70.7)
        self.assertEqual(fates(posted.end(80).judge(REAL_TIME)), [('undecidable', 'near a boundary, and posted')])

    def test_of_two_late_lines_either_may_have_been_looked_at(self) -> None:
        both = alerts_page() + alerts_page(station='M0XYZ/P').split('</span>', 1)[1]
        duplicate = item('G4ABC/P on G/LD-001 @ 7.032 CW', 0)
        story = Story(page=both).hear(59.95).hear(60.001, '7042.0', 'M0XYZ/P').check(60).check(70.01, duplicate, OTHER)
        story.check(78.05, duplicate, OTHER).check(88.1, duplicate, OTHER)
        story.post(88.2, BODY.replace('G4ABC', 'M0XYZ').replace('freq=7.032', 'freq=7.042'))
        self.assertEqual(story.end(100).judge(REAL_TIME).of(*BAD), [])


class Rules(unittest.TestCase):
    def test_callsigns(self) -> None:
        cases = {'G4ABC/P': ('G4ABC', ''), 'EA8/G4ABC': ('G4ABC', ''), 'G4ABC/M': ('G4ABC', ''),
                 'DL/G4ABC/P': ('G4ABC', ''), 'G4ABC/G4XYZ': ('G4ABC', 'G4XYZ'),
                 'g4abc and g4xyz': ('G4ABC', 'G4XYZ'), 'G4ABC & PORTABLE': ('G4ABC', '')}
        for text, expected in cases.items():
            self.assertEqual(radio.base_callsigns(text), expected)

    def test_numbers(self) -> None:
        self.assertEqual([radio.band(mhz) for mhz in (7.032, 14.285, 145.5, 432.1, 7.0)], [7, 14, 144, 420, 0.135])
        self.assertEqual(radio.duplicate_key('G4ABC', radio.single(7.02604)), 'G4ABC7.026')
        self.assertEqual(radio.form_encoded('a b/c\t'), 'a%20b%2Fc%09')
        self.assertEqual([radio.matches_list('W6*, K6ABC', value) for value in ('w6xyz', 'K6ABCD', '')],
                         [True, False, True])

    def test_a_feed_in_every_way_of_writing(self) -> None:
        body = ('<rss><item><title>G4ABC AND G4XYZ on G/LD-001 @ 7.032 cw</title><description><![CDATA[<item> & '
                'Posted by me]]> Posted by M0ABC</description><pubDate>Tue, 24 Nov 2026 12:00:00 GMT</pubDate></item>'
                '<item><title>G4ABC on')
        found, ended = feed.spots(body)
        self.assertEqual([(spot.base, spot.comment) for spot in found[0]],
                         [('G4ABC', '<item> & Posted by me'), ('G4XYZ', '<item> & Posted by me')])
        self.assertEqual((len(found), ended), (1, False))

    def test_a_table_without_a_row_ends_its_day(self) -> None:
        day, table = alerts_page().split('</span>', 1)
        page = (day + '</span>' + table + '<table class="spots"><tr></table>' + table) * 2
        self.assertEqual(len(list(alerts.activations(page))), 2)

    def test_marker_numbers(self) -> None:
        self.assertEqual([alerts.hours_after('S+', text) for text in ('late s+1.5 h', 'S+ 2', 'S+', 'S-2')],
                         [90, 120, 0, 0])


if __name__ == '__main__':
    unittest.main()
