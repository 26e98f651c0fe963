"""What the answer to a post says."""

from account import ledger, radio

ACCEPTED, TIMED_OUT, REFUSED, UNRECOGNISED = -1, -200, -300, -400
WRONG_PASSWORD, WRONG_ASSOCIATION, WRONG_FREQUENCY, BROKEN = -600, -601, -602, -1000
UNKNOWN = (TIMED_OUT, UNRECOGNISED, BROKEN)

WORDS = {TIMED_OUT: 'no answer in time', REFUSED: 'submission failed', UNRECOGNISED: 'unrecognised answer',
         WRONG_PASSWORD: 'wrong password', WRONG_ASSOCIATION: 'unknown association',
         WRONG_FREQUENCY: 'bad frequency', BROKEN: 'no complete answer'}


def _of_page(page: str, fields: dict[str, str]) -> int:
    if 'submission failed' in page:
        for words, status in (('password you gave was incorrect', WRONG_PASSWORD),
                              ('association you gave was not valid', WRONG_ASSOCIATION),
                              ('frequency you gave is not valid', WRONG_FREQUENCY)):
            if words in page:
                return status
        return REFUSED
    shown = (fields.get(name, '') for name in ('actCallsign', 'freq', 'mode', 'comments'))
    return ACCEPTED if all(value in page for value in shown) else UNRECOGNISED


def of_post(post: ledger.Post, time_out: int) -> tuple[int, int]:
    """The status, and when the program had it."""
    limit = post.t + time_out * 1000
    answer = post.answer
    if answer is None or answer.t >= limit:
        return TIMED_OUT, limit
    if answer.status == 0 or not answer.whole:
        return BROKEN, answer.t
    return _of_page(answer.body, post.fields), answer.t


def differences(expected: str, found: str) -> str:
    """The fields in which two forms differ."""
    sides = [dict(field.partition('=')[::2] for field in body.split('&')) for body in (expected, found)]
    names = [name for name in dict.fromkeys([*sides[0], *sides[1]]) if sides[0].get(name) != sides[1].get(name)]
    return ', '.join(f'{name}' for name in names) or 'the order of the fields'
