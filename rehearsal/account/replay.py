"""Goes through the ledger as the program did, check by check, and compares what it posted with what the rules
ask for."""

import dataclasses

from account import feed, gates, ledger, outcomes, questions, sources
from account.alerts import Alerts, is_command
from account.bounds import STOOD_STILL, Bounds
from account.gates import TimedSpot
from account.items import Fate, Item, Tally
from account.posted import Posted
from account.settings import Settings
from account.stream import Heard, Parser, form_body

MOST_CURRENT_SPOTS = 200
FEED, ALERTS = '/RssFeed', '/alerts.php'
NOT_ASKED = ''  # a final check that the service does not want
AT_ONCE = 1000  # milliseconds in which a page follows that the same step asks for
DAY = 86_400_000


@dataclasses.dataclass
class Tolerance:
    """How exactly the ledger's clock shows the program's, in milliseconds."""
    margin: int  # this near to a boundary the verdict is open
    jitter: int  # what comes this near to a check may come before or after it
    haste: int   # what follows at once follows within this
    is_real_time: bool = False


EXACT = Tolerance(margin=0, jitter=0, haste=200)
# A busy machine may take its time, but what follows at once comes before the next check.
REAL_TIME = Tolerance(margin=400, jitter=1000, haste=10_000, is_real_time=True)


class Replay:
    def __init__(self, events: list[ledger.Event], settings: Settings, tolerance: Tolerance) -> None:
        self.refusals = questions.refusals(events)
        self.events = questions.as_readings(events) if settings.by_service else events
        self.at = 0
        self.settings = settings
        self.tolerance = tolerance
        self.tally = Tally()
        self.bounds = Bounds(events, settings)
        self.alerts = Alerts(settings)
        self.posted = Posted()
        self.known = set(settings.known)
        self.waiting: list[ledger.Line] = []
        self.taken: list[ledger.Line] = []  # by this check
        self.connection = 0  # the latest that was opened
        self._start_anew()
        self.unknown: dict[str, int] = {}  # keys of posts that were taken without the program knowing

    def _start_anew(self) -> None:
        """What does not outlive the program's end."""
        self.is_first_load = True
        self.source = sources.Service() if self.settings.by_service else sources.Feed()
        self.alerts.start_anew()
        self.parser = Parser(self.settings, self.alerts, self.known, self.tolerance.margin)
        self.current: list[TimedSpot] = []
        self.sent: dict[str, int] = {}
        self.tally.lost += len(self.waiting)
        self.waiting = []
        self.is_connected = False
        self.parsed_at = 0    # when the lines of this check were taken
        self.quiet_since = 0  # the end of the last check

    def run(self) -> Tally:
        while (page := self._next_page()) is not None:
            if self.is_first_load:
                self.is_first_load = False
                self._take_feed(page, is_first_load=True)
            elif page.path == FEED and self._is_final_check_of_nothing(page):
                self.quiet_since = page.t
            elif page.path == FEED:
                self._check(page)
            elif page.path == ALERTS:
                self._take_alerts(page, page.t)
        return self.tally

    # The ledger, event by event.

    def _next(self) -> ledger.Event:
        event = self.events[self.at]
        self.at += 1
        return event

    def _next_page(self) -> ledger.Page | None:
        while self.at < len(self.events):
            event = self._next()
            if isinstance(event, ledger.Page):
                return event
            self._note(event)
        return None

    def _note(self, event: ledger.Event) -> None:
        if isinstance(event, ledger.Start):
            self._start_anew()
        elif isinstance(event, ledger.Line):
            if event.connection == self.connection:
                self.waiting.append(event)
            else:
                self.tally.lost += 1
        elif isinstance(event, ledger.Lost):
            self.tally.lost += 1
        elif isinstance(event, ledger.Connection):
            self._note_connection(event)
        elif isinstance(event, ledger.Post):
            self._note_unexpected(event)

    def _note_connection(self, event: ledger.Connection) -> None:
        if event.kind == 'open':
            self.connection = event.number
        if event.number == self.connection:
            self.is_connected = event.kind != 'close'

    def _peek(self, *kinds: type) -> ledger.Event | None:
        """The next of these in this run of the program."""
        found = next((event for event in self.events[self.at:self.at + 5000]
                      if isinstance(event, (ledger.Start, *kinds))), None)
        return None if isinstance(found, ledger.Start) else found

    def _take_what_came_until(self, t: int) -> None:
        """Lines that came in the same moment as the page before."""
        while self.at < len(self.events):
            event = self.events[self.at]
            if isinstance(event, (ledger.Page, ledger.Post)) or event.t > t:
                return
            self._note(self._next())

    # One check.

    def _check(self, page: ledger.Page) -> None:
        self._take_feed(page)
        now = page.t
        alerts_page = self._alerts_page_asked_for(now)
        if alerts_page is not None:
            now = self._take_alerts(alerts_page, self._check_feed_until(alerts_page))
        self._take_what_came_until(now)
        now = self._after_late_lines(now)
        self.taken, self.waiting = self.waiting, []
        heard, about_stations = self.parser.parse(self.taken, now)
        for spot in heard:
            spot.is_late = now - spot.line.t < self.tolerance.jitter
        late = [spot for spot in heard if spot.is_late]
        for spot in late:
            spot.has_company = len(late) > 1
        self.parsed_at = now
        self.tally.lines += about_stations
        self.quiet_since = self._pass_gates(heard, now) if self.settings.sends else now

    def _alerts_page_asked_for(self, now: int) -> ledger.Page | None:
        for event in self.events[self.at:self.at + 5000]:
            if isinstance(event, ledger.Start):
                return None
            if isinstance(event, ledger.Page) and event.path == ALERTS:
                return event if event.asked - now < AT_ONCE else None
        return None

    def _check_feed_until(self, alerts_page: ledger.Page) -> int:
        """Checks of the feed go on while the alerts page is on its way. Returns when the program has the page."""
        while (page := self._next_page()) is not alerts_page:
            self._take_feed(page)
        page = self._peek(ledger.Page)
        if page is None or page.path != FEED or page.asked >= alerts_page.t:
            return alerts_page.t
        self._take_feed(self._next_page())
        return page.t

    def _is_final_check_of_nothing(self, page: ledger.Page) -> bool:
        """The feed was read sooner than the next check can come: the program looked at a spot that was not thought
        to come so far."""
        return page.asked < self.quiet_since + self.settings.interval * 1000 - AT_ONCE

    def _take_feed(self, page: ledger.Page, is_first_load: bool = False) -> None:
        if page.status == 0:
            return
        self._learn_from_feed(page)
        reading = self.source.read(page, is_first_load)
        if reading is None:
            return
        for spot in reversed(reading.new):
            if not is_command(spot, self.settings):
                continue
            if self.posted.holds(spot, page.t):
                self.alerts.acted_on.add(spot.id)  # its edits are no commands either
            else:
                self.alerts.take_command(spot, page.t // 1000)
        self.current = reading.applied_to(self.current, page.t, MOST_CURRENT_SPOTS)

    def _learn_from_feed(self, page: ledger.Page) -> None:
        self.known.update(spot.base for spot in self.source.spots(page))

    def _take_alerts(self, page: ledger.Page, now: int) -> int:
        succeeded = page.status != 0 and self.source.announce(page, self.alerts, now)
        self.known.update(alert.base for alert in self.alerts.alerts.values() if len(alert.base) > 2)
        if succeeded and self.alerts.were_read:
            self.alerts.take_waiting()
        return now

    def _after_late_lines(self, now: int) -> int:
        """In real time the program takes the lines a little after the page: the final check, if one follows, shows
        when that was."""
        gate = self._gate_time(now)
        self._take_what_came_until(gate)
        return gate

    def _gate_time(self, now: int) -> int:
        """When the program had the spot at its gates, if a final check follows."""
        if not self.tolerance.is_real_time or not self._final_check_follows(now):
            return now
        return max(now, self._peek(ledger.Page).asked - self.settings.delay * 1000)

    # The gates.

    def _pass_gates(self, heard: list[Heard], now: int) -> int:
        """When the gateway is through with all of them."""
        if heard and not self.is_connected:
            now = self._after_reconnection(now)
        ended = None if self.bounds.is_off(now) else now
        for place, spot in enumerate(heard, 1):
            if ended is None:
                break
            now = ended
            ended = self._pass_gates_with(spot, now, heard[place:])
        return now if ended is None else ended

    def _refuse(self, reason: str, now: int, spot: Heard, body: str | None) -> None:
        """What was heard before a standstill is sent when it is heard again."""
        self.tally.add(Item(Fate.REFUSED, reason, now, spot, body))
        if reason == STOOD_STILL:
            self.parser.forget(spot, self.parsed_at)

    def _after_reconnection(self, now: int) -> int:
        """Before the gateway comes into play, the program tries to connect again, and waits for that."""
        opened = self._peek(ledger.Connection, ledger.Page)
        if isinstance(opened, ledger.Connection) and opened.t - now < self.settings.time_out * 1000:
            return opened.t
        following = self._peek(ledger.Page)
        late = following.asked - now - self.settings.delay * 1000 if following else 0
        return now + late if 0 < late <= self.settings.time_out * 1000 + self.tolerance.haste else now

    def _first_refusal(self, spot: Heard, now: int) -> str:
        return self.bounds.refusal(spot, now) or gates.by_station(spot, self.settings) or \
            gates.by_current_spots(spot, self.current, now, self.settings)

    def _final_refusal(self, spot: Heard, page: ledger.Page, now: int) -> str:
        recent = self.source.recent(page, self.settings.dupe_minutes) if page.status else []
        words = [found for found in recent if not self.posted.holds(found, page.t)]
        refusal = self.bounds.refusal(spot, now) or gates.by_latest_word(spot, words, self.settings)
        if refusal:
            return refusal
        if page.path == NOT_ASKED:
            return 'there are no spots: the service wants to be left alone'
        fresh: dict[str, feed.Spot] = {}
        for found in recent:
            fresh.setdefault(found.key, found)
        if not fresh and not self.current:
            return 'there are no spots to compare with'
        return gates.by_fresh_spots(spot, fresh, page.t, now, self.settings) or \
            gates.by_interval(spot, self.sent, now, self.settings)

    def _is_open(self, judge, now: int) -> bool:
        """Whether the verdict would be another one a little sooner or later."""
        margin = self.tolerance.margin
        return len({bool(judge(moment)) for moment in (now - margin, now, now + margin)}) > 1

    def _pass_gates_with(self, spot: Heard, now: int, rest: list[Heard]) -> int | None:
        """When the gateway is through with the spot; nothing when it ends with it."""
        now = self._gate_time(now)
        refusal = self._first_refusal(spot, now)
        is_open = self._is_open(lambda moment: self._first_refusal(spot, moment), now)
        body = form_body(spot, self.settings)
        if refusal and not is_open:
            self._refuse(refusal, now, spot, body)
            return now
        if (spot.is_late or spot.is_near or is_open) and not self._was_looked_at(body, now, rest):
            return self._leave_aside(spot, body, now)
        spot.is_near = spot.is_near or is_open  # that a late one was looked at is decided by now
        stop = self.bounds.first_refusal(spot, now, now + self.settings.delay * 1000)
        if stop is not None:
            self._refuse(self.bounds.refusal(spot, stop), stop, spot, body)
            return stop
        page = self._page_of_final_check(now)
        if page is None:
            return self._miss_final_check(spot, body, now)
        return self._decide_finally(spot, body, page)

    def _leave_aside(self, spot: Heard, body: str | None, now: int) -> int:
        """A late spot comes again in the next check."""
        if spot.is_late:
            self.parser.forget(spot, self.parsed_at)
            self.waiting.append(spot.line)
            self.waiting.sort(key=lambda line: line.t)
        else:
            reason = 'near a boundary of the stream or of the first check'
            self.tally.add(Item(Fate.UNDECIDABLE, reason, now, spot, body))
        return now

    def _was_looked_at(self, body: str | None, now: int, rest: list[Heard]) -> bool:
        """Whether the program took a spot that it might as well have left aside: it is posted next, or the feed is
        read more often than the spots behind it need."""
        if not self._final_check_follows(now):
            return False
        readings, end = 0, now
        for event in self.events[self.at:]:
            if isinstance(event, ledger.Post) and readings == 1 and event.body == body:
                return True
            if isinstance(event, ledger.Page):
                if readings and event.asked >= end + self.settings.interval * 1000 - AT_ONCE:
                    break
                readings += 1
            if isinstance(event, (ledger.Page, ledger.Post)):
                end = event.t
        return readings > sum(not self._first_refusal(spot, now) for spot in rest)

    def _final_check_follows(self, now: int) -> bool:
        page = self._peek(ledger.Page)
        expected = self.bounds.awake(now + self.settings.delay * 1000)
        return page is not None and page.path == FEED and \
            expected - 100 <= page.asked <= expected + self.tolerance.haste

    def _page_of_final_check(self, now: int) -> ledger.Page | None:
        moment = now + self.settings.delay * 1000
        if any(begin <= moment < end for begin, end in self.refusals):
            return ledger.Page(moment, moment, NOT_ASKED, 0, True, '')
        return self._next_page() if self._final_check_follows(now) else None

    def _miss_final_check(self, spot: Heard, body: str | None, now: int) -> int:
        fate, reason = Fate.MISSED, 'no final check was made'
        if self._peek(ledger.Page) is None:
            fate, reason = Fate.UNFINISHED, 'the ledger ends before the final check'
        self.tally.add(Item(fate, reason, now, spot, body))
        return now

    def _decide_finally(self, spot: Heard, body: str | None, page: ledger.Page) -> int | None:
        now = page.t
        self._learn_from_feed(page)
        refusal = self._final_refusal(spot, page, now)
        if body is None and not refusal:
            refusal = 'the form cannot carry it'
        post = self._post_that_follows(now)
        is_open = self._is_open(lambda moment: self._final_refusal(spot, page, moment), now)
        is_confirmed = post is not None and post.body == body and not refusal
        spot.is_near = spot.is_near or is_open or (spot.has_company and not is_confirmed)
        if refusal and not (spot.is_near and post is not None):
            self._refuse(refusal, now, spot, body)
            return None if refusal.startswith('there are no spots') else now
        if post is None:
            return self._miss_post(spot, body, now)
        self._take_post()
        return self._compare(spot, body, post)

    def _post_that_follows(self, now: int) -> ledger.Post | None:
        event = self._peek(ledger.Page, ledger.Post)
        return event if isinstance(event, ledger.Post) and event.t <= now + self.tolerance.haste else None

    def _take_post(self) -> None:
        while not isinstance(event := self._next(), ledger.Post):
            self._note(event)

    def _miss_post(self, spot: Heard, body: str | None, now: int) -> int:
        fate, reason = Fate.MISSED, 'it passes every check'
        if self._peek(ledger.Page) is None:
            fate, reason = Fate.UNFINISHED, 'the ledger ends before the post'
        elif spot.is_near:
            fate, reason = Fate.UNDECIDABLE, 'near a boundary of the final check'
        self.tally.add(Item(fate, reason, now, spot, body))
        return now

    # Posts.

    def _compare(self, spot: Heard, body: str | None, post: ledger.Post) -> int:
        fate, reason = (Fate.UNDECIDABLE, 'near a boundary, and posted') if spot.is_near else (Fate.POSTED, '')
        if body != post.body:
            fate, reason = Fate.WRONGLY, 'other values: ' + outcomes.differences(body or '', post.body)
        self.tally.add(Item(fate, reason, post.t, spot, body, post))
        if spot.key in self.unknown and post.t - self.unknown[spot.key] < DAY:
            self.tally.repeats += 1
        return self._take_outcome(spot.base, spot.key, post)

    def _take_outcome(self, base: str, key: str, post: ledger.Post) -> int:
        self.posted.add(post)
        status, now = outcomes.of_post(post, self.settings.time_out)
        now = self.bounds.awake(now)
        self.unknown.pop(key, None)
        if status == outcomes.ACCEPTED:
            self.sent[base] = now
        else:
            self.tally.failures[outcomes.WORDS[status]] += 1
        if status in outcomes.UNKNOWN and post.answer is not None and post.answer.taken:
            self.unknown[key] = post.t
        return now

    def _note_unexpected(self, post: ledger.Post) -> None:
        """A post that nothing asked for."""
        item = next((item for item in reversed(self.tally.items[-200:])
                     if item.body == post.body and item.heard is not None), None)
        if item is not None and item.fate is Fate.UNDECIDABLE and item.post is None:
            item.post = post
            self._take_outcome(item.heard.base, item.heard.key, post)
            return
        fate, reason = Fate.WRONGLY, 'no skimmer line asks for it'
        if item is not None and item.post is not None:
            fate, reason = Fate.TWICE, 'the same line was posted before'
        elif item is not None:
            reason = f'{item.fate.value}: {item.reason}'
        self.tally.add(Item(fate, reason, post.t, None, None, post))
        if item is not None and item.heard is not None:
            self._take_outcome(item.heard.base, item.heard.key, post)
