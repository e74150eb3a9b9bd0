#!/bin/bash
# with_display.sh COMMAND...: runs COMMAND on a virtual screen of its own, which is ended afterwards.
# SCRUBHAVEN_SCREEN is the size, 1024x768 unless given.
set -uo pipefail

NUMBER_FILE=$(mktemp)
mkdir -p /tmp/.X11-unix 2>/dev/null
Xvfb -displayfd 5 -screen 0 "${SCRUBHAVEN_SCREEN:-1024x768}x24" -nolisten tcp -noreset 5>"$NUMBER_FILE" >/dev/null 2>&1 &
XVFB=$!
COMMAND=
end_display() {
  [[ $COMMAND ]] && kill "$COMMAND" 2>/dev/null
  kill "$XVFB" 2>/dev/null
  wait "$XVFB" 2>/dev/null
  rm -f "$NUMBER_FILE"
}
trap end_display EXIT
trap 'exit 143' TERM INT HUP

for ((tries = 0; tries < 200; ++tries)); do
  [[ -s $NUMBER_FILE ]] && break
  kill -0 "$XVFB" 2>/dev/null || break
  sleep 0.05
done
if [[ ! -s $NUMBER_FILE ]]; then
  echo "the virtual screen did not start" >&2
  exit 1
fi

DISPLAY=:$(tr -d '[:space:]' <"$NUMBER_FILE")
export DISPLAY
unset WAYLAND_DISPLAY XAUTHORITY
"$@" &
COMMAND=$!
wait "$COMMAND"
STATUS=$?
COMMAND=
exit "$STATUS"
