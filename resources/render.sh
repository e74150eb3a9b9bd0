#!/bin/bash
# render.sh: makes the pictures and sounds that the program carries from their sources, and puts them beside those.
# Needs rsvg-convert (librsvg2-bin), convert (imagemagick), icotool (icoutils), sox and the Liberation fonts; run it only
# when a source has changed: the results are kept with the sources.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT

# Every size once with 256 colours, for the oldest systems, and once in full colour with soft edges.
for side in 16 24 32 48; do
  rsvg-convert -w "$side" -h "$side" application.svg -o "$WORK/full-$side.png"
  convert "$WORK/full-$side.png" -channel A -threshold 50% +channel -colors 255 "PNG8:$WORK/few-$side.png"
done
icotool --create --output=application.ico "$WORK"/few-{16,32,48}.png "$WORK"/full-{16,24,32,48}.png

# Percent of the size at 96 dots per inch.
for percent in 100 150 200; do
  rsvg-convert -z "$(awk "BEGIN { print $percent / 100 }")" logo.svg -o "$WORK/logo.png"
  convert "$WORK/logo.png" -alpha off -colors 255 -type palette -compress none "BMP3:logo-$percent.bmp"
done

# Quiet ticks: one for the pointer that comes onto a button, a deeper one for a click.
sox -n -r 22050 -b 8 -c 1 -e unsigned-integer over.wav synth 0.03 sine 1600 fade t 0.002 0.03 0.025 gain -26
sox -n -r 22050 -b 8 -c 1 -e unsigned-integer click.wav synth 0.05 sine 900 fade t 0.001 0.05 0.045 gain -20
