#!/bin/bash
# Screenshots for programs in the prefix. A Windows program cannot store a picture of the screen on the host, so it
# requests one:
#
#   1. the program writes a line "@screenshot NAME" (letters, digits, '-' and '_') to its standard output and flushes it;
#   2. the script takes the whole screen into FOLDER/NAME.png;
#   3. the script creates the file C:\demo\NAME.done, for which the program waits. It is empty, or holds the error
#      message when no screenshot could be taken.
#
# play_program SECONDS FOLDER PREFIX PROGRAM [ARGUMENT...]: runs PROGRAM on the current DISPLAY, prints its lines without
# carriage returns, takes the screenshots that it requests, and returns its exit code (124 when the time was up).
#
# To be sourced after seal.sh.

serve_screenshots() {
  local folder=$1 done_folder=$2/drive_c/demo line name
  mkdir -p "$folder" "$done_folder"
  while IFS= read -r line || [[ $line ]]; do
    line=${line%$'\r'}
    if [[ $line =~ ^@screenshot\ ([A-Za-z0-9_-]+)$ ]]; then
      name=${BASH_REMATCH[1]}
      if timeout 20 import -silent -window root "$folder/$name.png" 2>"$done_folder/$name.new"; then
        printf '  [screenshot %s]\n' "${folder#"$SEAL_ROOT"/}/$name.png"
      else
        printf '  [no screenshot %s]\n' "$name"
      fi
      mv "$done_folder/$name.new" "$done_folder/$name.done"
    else
      printf '%s\n' "$line"
    fi
  done
}

play_program() {
  local seconds=$1 folder=$2 prefix=$3
  shift 3
  (
    timeout "$seconds" "$SEAL_ROOT/scripts/in_prefix.sh" "$prefix" "$@" </dev/null
    status=$?
    # Processes that the program left behind would keep the pipe open.
    stop_prefix "$prefix"
    exit "$status"
  ) 2>&1 | serve_screenshots "$folder" "$prefix"
  return "${PIPESTATUS[0]}"
}
