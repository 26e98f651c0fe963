"""When a spot may not go, whatever it is: the user has switched the gateway off or to himself, or the program stood
still since the connection was made that brought it."""

from account import ledger
from account.settings import Settings
from account.stream import Heard

SHORTEST_STALL = 120  # seconds
STOOD_STILL = 'the program stood still'


class Bounds:
    def __init__(self, events: list[ledger.Event], settings: Settings) -> None:
        self.settings = settings
        self.switches = [event for event in events if isinstance(event, ledger.Switch)]
        self.sleeps = [event for event in events if isinstance(event, ledger.Stall)]
        self.stalls = [sleep.t for sleep in self.sleeps if sleep.seconds > SHORTEST_STALL]
        self.opened = {event.number: event.t for event in events
                       if isinstance(event, ledger.Connection) and event.kind == 'open'}

    def _switch(self, now: int) -> ledger.Switch:
        before = [switch for switch in self.switches if switch.t <= now]
        return before[-1] if before else ledger.Switch(0, everyone=True, mine=False, login=True)

    def is_off(self, now: int) -> bool:
        switch = self._switch(now)
        return not switch.login or not (switch.everyone or switch.mine)

    def has_stalled(self, connection: int, now: int) -> bool:
        return any(self.opened.get(connection, 0) < end <= now for end in self.stalls)

    def awake(self, moment: int) -> int:
        """When the program notices that the moment has come: a machine that sleeps notices nothing."""
        return next((sleep.t for sleep in self.sleeps if sleep.t - sleep.seconds * 1000 <= moment < sleep.t), moment)

    def refusal(self, heard: Heard, now: int) -> str:
        if self.is_off(now):
            return 'the gateway is off'
        if not self._switch(now).everyone and heard.base != self.settings.own_base:
            return 'only my own are sent'
        return STOOD_STILL if self.has_stalled(heard.line.connection, now) else ''

    def first_refusal(self, heard: Heard, begin: int, end: int) -> int | None:
        """When, between the two, the spot may not go any more."""
        moments = [begin, *(switch.t for switch in self.switches if switch.t < end),
                   *(t for t in self.stalls if t <= self.awake(end))]
        return min((t for t in moments if begin <= t and self.refusal(heard, t)), default=None)
