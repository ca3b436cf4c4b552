#!/usr/bin/env python3
"""make_hour.py IN.wav OUT.wav: an hour of speech that does not repeat itself, from a short recording of it (16 bits).

Stretches of any place, length and loudness follow each other in random order with pauses of 60 ms to 3 s between them,
over a noise floor of -55 dB. The same input gives the same hour."""
import array
import random
import sys
import wave

HOUR, PAUSES, STRETCHES, FLOOR = 3600, (0.06, 3.0), 60, 32768 * 10 ** (-55 / 20)


def main(recording, hour):
    rng = random.Random(1)
    with wave.open(recording) as file:
        params = file.getparams()
        speech = array.array("h", file.readframes(params.nframes))
    channels, rate = params.nchannels, params.framerate
    noise = array.array("h", (round(rng.uniform(-FLOOR, FLOOR)) for _ in range(7 * rate * channels)))

    def stretch():
        frames = int(rng.uniform(0.15, 6) * rate)
        at, gain, hiss = rng.randrange(params.nframes - frames), rng.uniform(0.25, 1), rng.randrange(rate)
        samples = speech[at * channels:(at + frames) * channels]
        floor = noise[hiss * channels:hiss * channels + len(samples)]
        return array.array("h", (max(-32768, min(32767, round(s * gain) + n)) for s, n in zip(samples, floor))).tobytes()

    def pause():
        frames = int(rng.uniform(*PAUSES) ** 2 / PAUSES[1] * rate)  # short ones come more often
        at = rng.randrange(len(noise) // channels - frames)
        return noise[at * channels:(at + frames) * channels].tobytes()

    stretches = [stretch() for _ in range(STRETCHES)]
    left = HOUR * rate * channels * 2
    with wave.open(hour, "wb") as file:
        file.setparams(params)
        while left > 0:
            for piece in (rng.choice(stretches), pause()):
                file.writeframesraw(piece[:left])
                left -= min(left, len(piece))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
