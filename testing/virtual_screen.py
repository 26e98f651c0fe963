"""A screen without a monitor, and hands on it. Needs Xvfb; the hands need xdotool."""

import mmap
import os
import pathlib
import subprocess
import time


class VirtualScreen:
    """A screen whose picture is a file: what is in there is what a person would see."""

    def __init__(self, folder: pathlib.Path) -> None:
        read_end, write_end = os.pipe()
        self.server = subprocess.Popen(
            ['Xvfb', '-displayfd', str(write_end), '-screen', '0', '1440x1024x24', '-fbdir', folder],
            pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        with os.fdopen(read_end) as numbers:
            self.name = ':' + numbers.readline().strip()
        with open(folder / 'Xvfb_screen0', 'rb') as picture:
            self._picture = mmap.mmap(picture.fileno(), 0, prot=mmap.PROT_READ)

    def picture(self) -> bytes:
        return self._picture[:]

    def close(self) -> None:
        self.server.terminate()
        self.server.wait()

    def seconds_until_it_changes(self, *command: str, patience: float = 20) -> float:
        """From the command of the hands on; the whole patience when nothing changes."""
        before = self.picture()
        beginning = time.monotonic()
        self.do(*command)
        while self.picture() == before and time.monotonic() - beginning < patience:
            time.sleep(0.005)
        return time.monotonic() - beginning

    def do(self, *command: str) -> str:
        return subprocess.run(['xdotool', *command], env=os.environ | {'DISPLAY': self.name}, check=True,
                              capture_output=True, text=True).stdout
