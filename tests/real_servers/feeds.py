"""Feeds to be served: that of the practice network, cut to measure."""

import datetime
import email.utils


def pad_to(feed: bytes, length: int) -> bytes:
    """The feed with a comment before its last closing tag, so that it has this many bytes."""
    head, tail = feed[:feed.rindex(b'</rss>')], b'</rss>\n'
    padding = length - len(head) - len(tail) - len(b'<!---->')
    return head + b'<!--' + b' ' * padding + b'-->' + tail


def first_items(feed: bytes, limit: int) -> bytes:
    """As many items as fit with the feed's end into so many bytes."""
    end = b'  </channel>\n</rss>\n'
    kept = feed[:limit - len(end) - len(b'<!---->')]
    return kept[:kept.rindex(b'</item>\n') + len(b'</item>\n')] + end


def without_newest_items(feed: bytes, count: int) -> bytes:
    items = feed.split(b'    <item>\n')
    return b'    <item>\n'.join(items[:1] + items[1 + count:])


def long_feed(count: int, comment: str) -> bytes:
    """That many items, one a second back from now, newest first."""
    now = datetime.datetime.now(datetime.timezone.utc)
    items = ''.join(
        f'<item>\n<title>G{number % 10}ABC/P on G/LD-{number % 999 + 1:03} @ 14.{number % 350:03} SSB</title>\n'
        f'<description>{comment} {number} Posted by M0ABC</description>\n'
        f'<pubDate>{email.utils.format_datetime(now - datetime.timedelta(seconds=number), usegmt=True)}</pubDate>\n'
        '</item>\n' for number in range(count))
    return f'<rss version="2.0">\n<channel>\n{items}</channel>\n</rss>\n'.encode()
