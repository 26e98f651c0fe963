#!/usr/bin/python3
"""Makes the wave files that are shipped with the program: chimes.wav, a short bell, and Q0ZZ.wav, the
callsign in Morse.

Usage: make_sounds.py            writes them into packaging/sounds
       make_sounds.py --check    exit status 1 when those files are not what this script makes"""

import io
import math
import pathlib
import struct
import sys
import wave

RATE = 22050  # samples a second
FOLDER = pathlib.Path(__file__).parent / 'sounds'

MORSE = {'Q': '--.-', '0': '-----', 'Z': '--..'}
PITCH = 700.0  # Hz
DOT = 1.2 / 20  # seconds at 20 words a minute, counted in the word PARIS
EDGE = 0.005  # seconds of rise and fall of a keyed tone, against clicks

# Partials of a small bell: frequency ratio, loudness, seconds until it has faded to a third.
PARTIALS = [(0.5, 0.3, 0.50), (1.0, 1.0, 0.40), (2.0, 0.5, 0.25), (2.99, 0.25, 0.16), (4.17, 0.12, 0.10)]
STROKES = [(0.0, 880.0), (0.22, 1108.73), (0.44, 1318.51)]  # seconds, Hz: a rising major chord


def tone(seconds: float) -> list[float]:
    def loudness(time: float) -> float:
        edge = min(time, seconds - time, EDGE) / EDGE
        return 0.5 - 0.5 * math.cos(math.pi * edge)
    times = [sample / RATE for sample in range(round(seconds * RATE))]
    return [0.7 * loudness(time) * math.sin(2 * math.pi * PITCH * time) for time in times]


def silence(seconds: float) -> list[float]:
    return [0.0] * round(seconds * RATE)


def morse(text: str) -> list[float]:
    samples = silence(DOT)
    for letter in text:
        for sign in MORSE[letter]:
            samples += tone(DOT if sign == '.' else 3 * DOT) + silence(DOT)
        samples += silence(2 * DOT)
    return samples


def bell(time: float, pitch: float) -> float:
    if time < 0:
        return 0.0
    rise = min(time / 0.004, 1.0)
    return rise * sum(loudness * math.exp(-time / fading) * math.sin(2 * math.pi * pitch * ratio * time)
                      for ratio, loudness, fading in PARTIALS)


def chimes() -> list[float]:
    length = 1.8
    times = [sample / RATE for sample in range(round(length * RATE))]
    samples = [sum(bell(time - start, pitch) for start, pitch in STROKES) * min(1.0, (length - time) / 0.3)
               for time in times]
    loudest = max(map(abs, samples))
    return [0.7 * sample / loudest for sample in samples]


def wave_file(samples: list[float]) -> bytes:
    file = io.BytesIO()
    with wave.open(file, 'wb') as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(b''.join(struct.pack('<h', round(32767 * sample)) for sample in samples))
    return file.getvalue()


def main() -> int:
    files = {'chimes.wav': wave_file(chimes()), 'Q0ZZ.wav': wave_file(morse('Q0ZZ'))}
    if sys.argv[1:] == ['--check']:
        changed = [name for name, made in files.items() if (FOLDER / name).read_bytes() != made]
        for name in changed:
            print(f'{FOLDER / name} is not what {__file__} makes: run it and commit both')
        return 1 if changed else 0
    for name, made in files.items():
        (FOLDER / name).write_bytes(made)
    return 0


if __name__ == '__main__':
    sys.exit(main())
