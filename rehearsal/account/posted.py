"""What the gateway has posted: where the feed shows it again, it is no command."""

from account import feed, ledger, radio

DAY = 86_400_000


def _letters(comment: str) -> str:
    return ''.join(c for c in radio.upper(comment) if c.isascii() and c.isalnum())


class Posted:
    def __init__(self) -> None:
        self.posts: list[tuple[int, str, int, str]] = []  # when, base callsign, hertz, letters of the comment

    def add(self, post: ledger.Post) -> None:
        mhz = radio.single(radio.number(post.fields.get('freq', '')))
        self.posts.append((post.t, radio.base_callsign(post.fields.get('actCallsign', '')), radio.hertz(mhz),
                           _letters(post.fields.get('comments', ''))))

    def holds(self, spot: feed.Spot, now: int) -> bool:
        return any(now - t < DAY and base == spot.base and abs(hertz - radio.hertz(spot.mhz)) < 1000
                   and letters == _letters(spot.comment) for t, base, hertz, letters in self.posts)
