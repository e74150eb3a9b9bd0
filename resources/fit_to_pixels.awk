# fit_to_pixels.awk: scales a drawing of 16x16 units to -v side=N pixels so that its lines fill whole pixels.
# A coordinate in the middle of a unit (2.5) becomes the middle of a pixel, a whole one the edge of a pixel, anything
# else is placed between the two in proportion. A line of width 1 is one pixel wide, and two from 32 pixels on.
# Paths have absolute commands without arcs (M L H V C Z), other shapes are circles.
BEGIN {
  RS = ">"
  scale = side / 16
}

function floor(value) { return value < 0 && value != int(value) ? int(value) - 1 : int(value) }

# The pixel position of a coordinate that is a multiple of half a unit. Both halves of the drawing mirror each other.
function fitHalf(value, scaled) {
  scaled = value * scale
  if (scale == int(scale)) return scaled
  if (value != floor(value)) return floor(scaled) + 0.5
  return value < 8 ? -floor(0.5 - scaled) : floor(scaled + 0.5)
}

function fit(value, below, from, to) {
  below = floor(2 * value) / 2
  from = fitHalf(below)
  to = fitHalf(below + 0.5)
  return from + (value - below) * 2 * (to - from)
}

function fitPath(path, words, count, i, result) {
  if (path ~ /[^MLHVCZ0-9. \n]/) {
    print FILENAME ": not an absolute path without arcs: " path > "/dev/stderr"
    exit 1
  }
  gsub(/[A-Z]/, " & ", path)
  count = split(path, words)
  for (i = 1; i <= count; ++i) result = result " " (words[i] ~ /[A-Z]/ ? words[i] : fit(words[i]))
  return substr(result, 2)
}

function has(name) { return match($0, "[ \n]" name "=\"[^\"]*\"") }

function get(name) {
  has(name)
  return substr($0, RSTART + length(name) + 3, RLENGTH - length(name) - 4)
}

function set(name, text) {
  has(name)
  $0 = substr($0, 1, RSTART) text substr($0, RSTART + RLENGTH)
}

function fitCircle(x, y, r) {
  x = get("cx")
  y = get("cy")
  r = get("r")
  set("cx", "cx=\"" (fit(x - r) + fit(x + r)) / 2 "\"")
  set("cy", "cy=\"" (fit(y - r) + fit(y + r)) / 2 "\"")
  set("r", "rx=\"" (fit(x + r) - fit(x - r)) / 2 "\" ry=\"" (fit(y + r) - fit(y - r)) / 2 "\"")
  sub(/<circle/, "<ellipse")
}

function fitLine(width) {
  if (width == 1) return scale < 2 ? 1 : int(scale)
  return width * scale
}

/<svg/ { set("viewBox", "viewBox=\"0 0 " side " " side "\" width=\"" side "\" height=\"" side "\"") }
/<circle/ { fitCircle() }
/<path/ { set("d", "d=\"" fitPath(get("d")) "\"") }
has("stroke-width") { set("stroke-width", "stroke-width=\"" fitLine(get("stroke-width")) "\"") }
/</ { printf "%s>", $0 }
END { print "" }
