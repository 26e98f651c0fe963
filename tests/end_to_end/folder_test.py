"""The console and the files of its folder: what it keeps, what it refuses, what it does without."""

import os
import unittest

from processes import BUILD_BIN, Workshop, is_spot_line


class Folder(unittest.TestCase):
    def setUp(self) -> None:
        self.workshop = Workshop()
        self.addCleanup(self.workshop.close)

    def start_and_wait(self, *command, **environment):
        console = self.workshop.start([*command, BUILD_BIN / 'brelwin-console'], **environment)
        console.out.wait_for(lambda lines: any(map(is_spot_line, lines)), 'a spot')
        return console

    def snapshot(self) -> dict[str, bytes]:
        return {file.name: file.read_bytes() for file in self.workshop.folder.iterdir()}

    def test_a_first_start_makes_its_own_settings(self) -> None:
        proxy = 'http://127.0.0.1:9'  # nobody listens there: the real services are not asked
        console = self.workshop.start_console(http_proxy=proxy, https_proxy=proxy)
        console.out.wait_for_line('Connecting...')
        self.assertEqual(console.stop()[0], 0)
        saved = self.workshop.read('Brelwin.INI')
        for line in ('SecondsBetweenChecks=30', 'MaximumSpotsInList=200', 'AlertSound=chimes.wav'):
            self.assertIn(line, saved.splitlines())

    def test_a_password_of_the_environment_stays_out_of_the_file(self) -> None:
        self.workshop.write_settings(self.workshop.start_practice_network())
        self.start_and_wait(BRELWIN_SOTAWATCH_PASSWORD='sesame').stop()
        self.assertNotRegex(self.workshop.read('Brelwin.INI'), 'SotawatchPassword=.')

    def test_a_second_instance_is_refused_before_it_writes(self) -> None:
        self.workshop.write_settings(self.workshop.start_practice_network('--speed', '0.01'))
        first = self.start_and_wait()
        before = self.snapshot()
        second = self.workshop.start_console()
        self.assertNotEqual(second.process.wait(30), 0)
        self.assertIn(str(self.workshop.folder), '\n'.join(second.err.all()))
        self.assertFalse([line for line in second.out.all() if is_spot_line(line)])
        after = self.snapshot()
        after['SotawatchSpotsRSS.txt'] = before['SotawatchSpotsRSS.txt']  # the first one's, and it is at work
        self.assertEqual(after, before)
        self.assertEqual(first.stop()[0], 0)
        third = self.start_and_wait()
        self.assertEqual(third.stop()[0], 0)

    def test_a_read_only_folder_is_enough_to_watch(self) -> None:
        self.workshop.write_settings(self.workshop.start_practice_network())
        before = self.snapshot()
        self.workshop.folder.chmod(0o500)
        for file in self.workshop.folder.iterdir():
            file.chmod(0o400)
        # The superuser may write anywhere unless that power is taken from him.
        powerless = ['setpriv', '--bounding-set=-dac_override,-fowner'] if os.geteuid() == 0 else []
        console = self.start_and_wait(*powerless)
        self.assertEqual(console.stop()[0], 0)
        self.assertEqual(self.snapshot(), before)
        self.workshop.folder.chmod(0o700)


if __name__ == '__main__':
    unittest.main()
