"""What became of each spot that the gateway looked at, and the table of it all."""

import collections
import dataclasses
import enum

from account import ledger
from account.stream import Heard


class Fate(enum.Enum):
    REFUSED = 'refused'
    POSTED = 'posted'
    MISSED = 'missed'
    TWICE = 'posted twice'
    WRONGLY = 'posted wrongly'
    UNDECIDABLE = 'undecidable'
    UNFINISHED = 'unfinished'  # the ledger ends before it


BAD = (Fate.MISSED, Fate.TWICE, Fate.WRONGLY)


@dataclasses.dataclass
class Item:
    fate: Fate
    reason: str
    t: int
    heard: Heard | None = None
    body: str | None = None  # what is, or would be, posted
    post: ledger.Post | None = None

    def __str__(self) -> str:
        line = ' '.join(self.heard.line.text.split()) if self.heard else self.post.body if self.post else ''
        return f'{self.t}: {self.fate.value}: {self.reason}\n    {line}'


@dataclasses.dataclass
class Tally:
    items: list[Item] = dataclasses.field(default_factory=list)
    lines: int = 0           # about a station
    lost: int = 0            # that nobody was sent whole
    failures: collections.Counter = dataclasses.field(default_factory=collections.Counter)
    repeats: int = 0         # after a submission of unknown outcome that had been taken

    def add(self, item: Item) -> Item:
        self.items.append(item)
        return item

    def add_all(self, other: 'Tally') -> None:
        self.items += other.items
        self.lines += other.lines
        self.lost += other.lost
        self.failures += other.failures
        self.repeats += other.repeats

    def of(self, *fates: Fate) -> list[Item]:
        return [item for item in self.items if item.fate in fates]

    def matched(self) -> int:
        return len([item for item in self.items if item.heard])

    def is_good(self) -> bool:
        """Nothing bad, and at most one spot in a hundred undecidable; a single one shows nothing."""
        return not self.of(*BAD) and len(self.of(Fate.UNDECIDABLE)) <= max(1, self.matched() // 100)

    def table(self) -> str:
        posted = [item for item in self.items if item.post is not None]
        rows = [('skimmer lines about a station', self.lines, {}),
                ('lines that nobody was sent whole', self.lost, {}),
                ('alert-matched spots', self.matched(), {}),
                ('should be posted', len(self.of(Fate.POSTED, Fate.MISSED)), {}),
                ('posted', len(posted), {})]
        for fate in (Fate.MISSED, Fate.TWICE, Fate.WRONGLY, Fate.UNDECIDABLE, Fate.REFUSED, Fate.UNFINISHED):
            rows.append((fate.value, len(self.of(fate)), collections.Counter(item.reason for item in self.of(fate))))
        rows.append(('failed, and not tried again', sum(self.failures.values()), self.failures))
        rows.append(('repeats after an unknown outcome', self.repeats, {}))
        return '\n'.join(self._row(*row) for row in rows)

    @staticmethod
    def _row(name: str, count: int, reasons: dict[str, int]) -> str:
        lines = [f'{name:<34}{count:>8}']
        lines += [f'    {reason:<50}{number:>8}' for reason, number in sorted(reasons.items())]
        return '\n'.join(lines)
