"""The account, tried on ledgers made by hand in which the spots come from the JSON service."""

import json
import time
import unittest

import account_test
from account import service
from account_test import BODY, DUPE, FRESH_DUPE, INI, NOON, POSTED, fates

SETTINGS = INI.replace('[General]', '[General]\nSotawatchSpotsSource=1')


def row(number: int, frequency: object = 7.032, minutes_ago: int = 5, **members) -> dict:
    stamp = time.strftime('%Y-%m-%dT%H:%M:%S', time.gmtime(NOON - 60 * minutes_ago))
    return {'id': number, 'timeStamp': stamp + '.5Z', 'activatorCallsign': 'G4ABC/P', 'callsign': 'M0ABC',
            'comments': None, 'frequency': frequency, 'mode': 'CW', 'summitCode': 'G/LD-001',
            'type': 'NORMAL'} | members


OTHER = row(1, 14.285, 3, activatorCallsign='G4XYZ', summitCode='G/LD-003')


ANNOUNCED = json.dumps([
    {'id': 4, 'dateActivated': '2026-11-24T12:10:00', 'activatingCallsign': 'G4ABC/P', 'associationCode': 'G',
     'summitCode': 'LD-001', 'comments': 'CW'}, None])


class Story(account_test.Story):
    """Every check asks for the epoch, and for the whole list."""

    def __init__(self, *rows: dict) -> None:
        self.lines, self.requests, self.rows = [], 0, rows
        self.ask(0)
        self.write('open', 1, connection=1)
        self.look(10).page('/api/alerts/epoch', 10.1, '77aa').page('/api/alerts/24/99/all/all', 10.2, ANNOUNCED)

    def ask(self, second: float, *rows: object, target: str = '/api/spots/-24/all/all', epoch: bool = True) -> 'Story':
        if epoch:
            self.page('/api/spots/epoch', second, '3f9d')
        return self.page(target, second, json.dumps(list(rows or (OTHER, *self.rows))))

    def look(self, second: float, *rows: object) -> 'Story':
        return self.write('check', second).ask(second, *rows)


class Service(unittest.TestCase):
    def judge(self, story: Story) -> list[tuple[str, str]]:
        return fates(story.write('check', 60).judge(ini=SETTINGS))

    def heard(self, *rows: object) -> Story:
        """One line in the second check, which lists these rows."""
        return Story(row(7)).hear(15).look(20, *rows)

    def final(self, story: Story, *rows: object) -> Story:
        return story.ask(30, *rows, epoch=False)

    def test_what_is_listed_edited_or_gone(self) -> None:
        old = row(2**60 + 1, '7.000', mode='Other', associationCode='G', summitCode='LD-001')
        cases = [('as it was', [OTHER, row(7)], DUPE), ('another frequency', [OTHER, row(7, 10.118)], POSTED),
                 ('deleted', [OTHER], POSTED), ('a broken row may be it', [OTHER, 17], DUPE),
                 ('the service is gone', [{'id': 1, 'mode': 'DEPRECATED'}], DUPE),
                 ('a test', [OTHER, row(8, type='TEST')], POSTED), ('home by now', [OTHER, row(7, type='QRT')], POSTED),
                 ('home by now, of old', [OTHER, old], POSTED)]
        for name, rows, expected in cases:
            with self.subTest(name):
                story = self.heard(*rows)
                if expected is POSTED:
                    self.final(story, OTHER).post(30.1)
                self.assertEqual(self.judge(story), [expected])

    def test_the_final_check_and_a_check_that_asks_nothing(self) -> None:
        story = Story().hear(15).write('check', 20)
        self.assertEqual(self.judge(self.final(story, OTHER, row(9))), [FRESH_DUPE])
        story = Story().hear(15).write('check', 20)
        self.assertEqual(self.judge(self.final(story).post(30.1)), [POSTED])

    def test_nothing_is_sent_while_the_service_wants_to_be_left_alone(self) -> None:
        story = Story().hear(15).write('check', 20).page('/api/spots/epoch', 20, '', 429)
        story.lines[-1]['retry_after'] = '60'
        left_alone = 'there are no spots: the service wants to be left alone'
        self.assertEqual(self.judge(story), [('refused', left_alone)])

    def test_a_list_that_broke_off_has_the_rows_before_that(self) -> None:
        body = json.dumps([row(1), [], row(2)])
        self.assertEqual([found.id for found in service.read(body[:-20], 0).rows], ['1'])
        self.assertFalse(service.read(body[:-1], 0).ended)


if __name__ == '__main__':
    unittest.main()
