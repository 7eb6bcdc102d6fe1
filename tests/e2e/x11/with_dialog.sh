# Sourced by the scripts that use the dialog with a real pointer and keyboard.
# usage: SCRIPT PROGRAM FOLDER OPTION...; outlets' frames are read from FOLDER/frames ("NAME X Y W H" a line).
set -eu
program=$1
folder=$2
shift 2
options=("$@")

# Nothing outlives the script.
started=""
# shellcheck disable=SC2086 # a list of processes
trap 'kill $started 2>/dev/null || true' EXIT

# Starts the dialog and waits until it is on the screen and has the keyboard.
open_dialog() {
  "$program" "${options[@]}" >"$folder/out" 2>"$folder/err" &
  dialog_process=$!
  started="$started $dialog_process"
  dialog=$(xdotool search --sync --onlyvisible --name '^Chromalog$' | head -n 1)
  xdotool windowfocus --sync "$dialog"
}

# close_dialog NAME: presses the control and waits for the end of the pick.
close_dialog() {
  click "$1"
  local code=0
  wait "$dialog_process" || code=$?
  echo "$code" >"$folder/code"
}

# place NAME [X Y]: the point of the dialog in pixels; X Y from the control's top left, its middle where left out.
place() {
  awk -v name="$1" -v x="${2:-}" -v y="${3:-}" '
    $1 == name { print int($2 + (x == "" ? $4 / 2 : x)), int($3 + (y == "" ? $5 / 2 : y)); found = 1 }
    END { exit !found }' "$folder/frames"
}

point_at() { # NAME [X Y]
  local at
  at=$(place "$@")
  # shellcheck disable=SC2086 # two numbers
  xdotool mousemove --window "$dialog" $at
}

click() {
  point_at "$@"
  xdotool click 1
}

# Drags go through the window system in small steps: both programs answer to each of them.
lift() { # NAME [X Y]
  point_at "$@"
  xdotool mousedown 1
  for _ in 1 2 3 4 5 6; do
    sleep 0.1
    xdotool mousemove_relative 4 2
  done
}

let_go() {
  sleep 0.3
  for _ in 1 2 3; do
    xdotool mousemove_relative -- 1 0
    sleep 0.2
  done
  xdotool mouseup 1
  sleep 1
}
