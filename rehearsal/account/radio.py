"""Numbers, callsigns, bands and form values as the rules of the field have them."""

import re
import struct

BANDS = ((0, 0, 0.135), (1, 2, 1.8), (3, 4, 3.5), (28, 30, 28), (50, 55, 50), (144, 148, 144), (420, 450, 420),
         (219, 225, 220), (902, 928, 902), (1240, 1300, 1240), (2300, 2350, 2300), (3300, 3500, 3300),
         (5650, 5925, 5700), (10000, 10500, 10000), (24000, 24250, 24000), (47000, 47200, 47000),
         (75500, 81000, 76000), (119980, 120020, 120000), (122000, 123000, 122000), (134000, 136000, 134000),
         (136001, 141000, 136000), (142000, 149000, 142000), (241000, 250000, 250000))
MODE_WORDS = {'am': 'am', 'cw': 'cw', 'data': 'data', 'fm': 'fm', 'rtty': 'rtty', 'ssb': 'ssb', 'psk': 'psk',
              'bpsk': 'psk'}
CALLSIGN = re.compile(r'[A-Z0-9]*[A-Z][A-Z0-9]*\d[A-Z]+')


def upper(text: str) -> str:
    """ASCII letters only."""
    return text.upper() if text.isascii() else ''.join(c.upper() if 'a' <= c <= 'z' else c for c in text)


def number(text: str) -> float:
    """The leading number of the text, blanks left out; 0 where there is none."""
    found = re.match(r'\+?-?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?', text.replace(' ', ''))
    return float(found.group()) if found else 0.0


def single(value: float) -> float:
    """The value as a single-precision number holds it."""
    return struct.unpack('f', struct.pack('f', value))[0]


def single_text(value: float) -> str:
    """Seven digits, as a single-precision number is written."""
    return format(value, '.7g')


def three_decimals(value: float) -> str:
    text = f'{round(value * 1000) / 1000:.3f}'
    return text.rstrip('0').rstrip('.')


def hertz(mhz: float) -> int:
    return round(float(single_text(mhz)) * 1_000_000)


def band(mhz: float) -> float:
    text = single_text(mhz)
    whole = int(text.partition('.')[0]) if '.' in text else 0
    return next((edge for first, last, edge in BANDS if first <= whole <= last), float(whole))


def mode_word(text: str) -> str:
    return MODE_WORDS.get(text.lower(), 'other')


def _split(text: str, at: int) -> tuple[str, str] | None:
    """Two stations, when both sides of the divider are long enough for one."""
    if at < 0 or at < 4 or len(text) - at - 1 < 4:
        return None
    return text[:at].strip(), text[at + 1:]


def _without_affix(callsign: str) -> str:
    slash = callsign.find('/')
    if slash < 1:
        return callsign
    return callsign[slash + 1:] if (slash + 1) / len(callsign) <= 0.5 else callsign[:slash]


def _base_of_one(text: str) -> str:
    for mark in ('/P', '[', ']'):
        text = text.replace(mark, '')
    return _without_affix(_without_affix(text.strip()))


def base_callsigns(text: str) -> tuple[str, str]:
    """The base callsign of the first station, and of the second one where the text names two."""
    text = upper(text).replace('&', ' ').replace(' AND ', ' ').strip()
    slash = text.find('/')
    divides_at_slash = slash >= 4
    parts = _split(text, slash if divides_at_slash else text.find(' '))
    if parts is None:
        return _base_of_one(text), ''
    second = base_callsigns(parts[1])[0]
    if divides_at_slash and ' ' in second:
        second = base_callsigns(second.partition(' ')[2])[0]
    return _base_of_one(parts[0]), second if re.search(r'\d', second) else ''


def base_callsign(text: str) -> str:
    return base_callsigns(text)[0]


def callsign_forms(text: str) -> set[str]:
    """Every callsign that the text may stand for: its base callsign and the pieces that look like one."""
    pieces = re.findall(r'[A-Z0-9]+', upper(text))
    return {form for form in [base_callsign(text), *(piece for piece in pieces if CALLSIGN.fullmatch(piece))] if form}


def duplicate_key(base: str, mhz: float) -> str:
    return base + three_decimals(mhz)


def form_encoded(text: str) -> str:
    def encoded(c: str) -> str:
        if c.isascii() and c.isalnum():
            return c
        return f'%{ord(c):02X}' if ord(c) < 256 else ''.join(f'%{byte:02X}' for byte in c.encode())
    return ''.join(map(encoded, text))


def matches_list(wanted: str, value: str) -> bool:
    """A comma list of exact values and of prefixes that end in "*"; nothing on either side matches."""
    wanted, value = upper(wanted.strip()), upper(value.strip())
    if not wanted or not value:
        return True
    for item in filter(None, map(str.strip, wanted.split(','))):
        if value.startswith(item.replace('*', '').strip()) if item.endswith('*') else value == item:
            return True
    return False
