"""What happened, as the practice network wrote it down. All times are milliseconds."""

import dataclasses
import json
import pathlib
from typing import Iterable


@dataclasses.dataclass
class Page:
    asked: int
    t: int  # when its last byte left
    path: str
    status: int  # 0: there was no answer
    whole: bool
    body: str
    retry_after: str = ''
    asks_for_all: bool = False  # that the JSON service has


@dataclasses.dataclass
class Check:
    """The program begins to look for spots, as its window shows."""
    t: int


@dataclasses.dataclass
class Answer:
    t: int
    status: int
    whole: bool
    body: str
    name: str
    taken: bool  # the practice network publishes the spot


@dataclasses.dataclass
class Post:
    t: int
    body: str
    fields: dict[str, str]
    answer: Answer | None = None  # none: the ledger ends before it


@dataclasses.dataclass
class Line:
    t: int
    connection: int
    text: str


@dataclasses.dataclass
class Lost:
    """A line that nobody was sent whole."""
    t: int
    text: str


@dataclasses.dataclass
class Connection:
    t: int
    number: int
    kind: str  # open, login or close
    how: str = ''


@dataclasses.dataclass
class Switch:
    """The user has changed who is sent for; without login nobody is."""
    t: int
    everyone: bool
    mine: bool
    login: bool


@dataclasses.dataclass
class Stall:
    """The program begins to run again."""
    t: int
    seconds: int


@dataclasses.dataclass
class Start:
    """The program was ended and started anew."""
    t: int


Event = Start | Check | Page | Post | Line | Lost | Connection | Switch | Stall


def _text(entry: dict, name: str) -> str:
    raw = entry.get(name + '_bytes')
    return entry.get(name, '') if raw is None else raw.encode('latin-1').decode('utf-8', 'replace')


class _Reader:
    def __init__(self) -> None:
        self.events: list[Event] = []
        self.asked: dict[int, dict] = {}
        self.posts: dict[int, Post] = {}
        self.redirected: dict[str, Post] = {}
        self.bodies: dict[int, str] = {}  # of the latest answers, by their requests

    def take(self, entry: dict) -> None:
        getattr(self, '_take_' + entry['kind'], lambda entry: None)(entry)

    def _take_asked(self, entry: dict) -> None:
        self.asked[entry['request']] = entry
        if entry['method'] == 'POST' and 'fields' in entry:
            post = Post(entry['t'], _text(entry, 'body'), entry['fields'])
            self.posts[entry['request']] = post
            self.events.append(post)

    def _take_served(self, entry: dict) -> None:
        asked = self.asked.pop(entry['request'])
        body = self.bodies[entry['body_of']] if 'body_of' in entry else _text(entry, 'body')
        self.bodies[entry['request']] = body
        post = self.posts.pop(entry['request'], None) or self.redirected.pop(entry['target'], None)
        if post is None:
            self.events.append(Page(asked['t'], entry['t'], entry['target'].partition('?')[0], entry['status'],
                                    entry['whole'], body, entry.get('retry_after', '')))
            return
        name, taken = (post.answer.name, post.answer.taken) if post.answer else (entry['answer'], entry['taken'])
        post.answer = Answer(entry['t'], entry['status'], entry['whole'], body, name, taken)
        if entry.get('location'):
            self.redirected[entry['location']] = post

    def _take_check(self, entry: dict) -> None:
        self.events.append(Check(entry['t']))

    def _take_line(self, entry: dict) -> None:
        self.events.append(Line(entry['t'], entry['connection'], _text(entry, 'text')))

    def _take_lost(self, entry: dict) -> None:
        self.events.append(Lost(entry['t'], _text(entry, 'text')))

    def _take_start(self, entry: dict) -> None:
        self.events.append(Start(entry['t']))

    def _take_connection(self, entry: dict) -> None:
        self.events.append(Connection(entry['t'], entry['connection'], entry['kind'], entry.get('how', '')))

    def _take_switch(self, entry: dict) -> None:
        self.events.append(Switch(entry['t'], entry['everyone'], entry['mine'], entry['login']))

    def _take_stall(self, entry: dict) -> None:
        self.events.append(Stall(entry['t'], entry['seconds']))

    _take_open = _take_login = _take_close = _take_connection


def read(lines: Iterable[str]) -> list[Event]:
    reader = _Reader()
    for line in lines:
        reader.take(json.loads(line))
    return reader.events


def read_file(path: pathlib.Path) -> list[Event]:
    with path.open(encoding='utf-8') as file:
        return read(file)
