#!/bin/bash
# render.sh: generates the icon, pictures and sounds in this folder. Needs rsvg-convert (librsvg2-bin), convert
# (imagemagick), icotool (icoutils), sox and the Liberation fonts. Run it only after changing a source: the results are
# under version control.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT

# Sizes with 256 colours for old versions of Windows, and with full colour and an alpha channel for later ones.
for side in 16 24 32 48; do
  rsvg-convert -w "$side" -h "$side" application.svg -o "$WORK/full-$side.png"
  convert "$WORK/full-$side.png" -channel A -threshold 50% +channel -colors 255 "PNG8:$WORK/few-$side.png"
done
icotool --create --output=application.ico "$WORK"/few-{16,32,48}.png "$WORK"/full-{16,24,32,48}.png

# In percent of the size at 96 dots per inch.
for percent in 75 100 150 200; do
  rsvg-convert -z "$(awk "BEGIN { print $percent / 100 }")" logo.svg -o "$WORK/logo.png"
  convert "$WORK/logo.png" -alpha off -colors 255 -type palette -compress none "BMP3:logo-$percent.bmp"
done

# Quiet ticks: one for the pointer entering a button, a lower one for a click.
sox -n -r 22050 -b 8 -c 1 -e unsigned-integer over.wav synth 0.03 sine 1600 fade t 0.002 0.03 0.025 gain -26
sox -n -r 22050 -b 8 -c 1 -e unsigned-integer click.wav synth 0.05 sine 900 fade t 0.001 0.05 0.045 gain -20
