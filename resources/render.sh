#!/bin/bash
# render.sh: generates the icons, pictures and sounds in this folder. Needs rsvg-convert (librsvg2-bin), convert
# (imagemagick), icotool (icoutils), sox and the Liberation fonts; README.md names the versions. Run it only after
# changing a source: the results are under version control.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT

# render_fitted DRAWING SIDE: a drawing of 16x16 units with its lines on whole pixels.
render_fitted() { awk -v side="$2" -f fit_to_pixels.awk "$1" | rsvg-convert -o "$WORK/full-$2.png"; }

# render_scaled DRAWING SIDE
render_scaled() { rsvg-convert -w "$2" -h "$2" "$1" -o "$WORK/full-$2.png"; }

# reduce SIDE: 256 colours and a mask, for versions of Windows that know no alpha channel.
reduce() {
  convert "$WORK/full-$1.png" -channel A -threshold 50% +channel -colors 255 "PNG8:$WORK/few-$1.png"
}

render_application_icon() {
  local side
  for side in 16 20 24; do render_fitted application-small.svg "$side"; done
  for side in 32 40 48 64 256; do render_scaled application.svg "$side"; done
  for side in 16 32 48; do reduce "$side"; done
  convert "$WORK/full-256.png" -strip -define png:compression-level=9 -define png:exclude-chunks=date,time \
    "PNG32:$WORK/large.png"
  icotool --create --output=application.ico -b 8 "$WORK"/few-{16,32,48}.png \
    -b 32 "$WORK"/full-{16,20,24,32,40,48,64}.png --raw="$WORK/large.png"
}

# render_tool_icon NAME
render_tool_icon() {
  local side
  for side in 16 20 24 32; do
    render_fitted "icons/$1.svg" "$side"
    reduce "$side"
  done
  icotool --create --output="icons/$1.ico" -b 8 "$WORK"/few-{16,20,24,32}.png -b 32 "$WORK"/full-{16,20,24,32}.png
}

# render_logo PERCENT: of the size at 96 dots per inch.
render_logo() {
  rsvg-convert -z "$(awk "BEGIN { print $1 / 100 }")" logo.svg -o "$WORK/logo.png"
  convert "$WORK/logo.png" -alpha off -colors 255 -type palette -compress none "BMP3:logo-$1.bmp"
}

# Quiet ticks: one for the pointer entering a button, a lower one for a click. -R fixes the dither.
render_sounds() {
  sox -R -n -r 22050 -b 8 -c 1 -e unsigned-integer over.wav synth 0.03 sine 1600 fade t 0.002 0.03 0.025 gain -26
  sox -R -n -r 22050 -b 8 -c 1 -e unsigned-integer click.wav synth 0.05 sine 900 fade t 0.001 0.05 0.045 gain -20
}

render_application_icon
for drawing in icons/*.svg; do render_tool_icon "$(basename "$drawing" .svg)"; done
for percent in 75 100 150 200; do render_logo "$percent"; done
render_sounds
