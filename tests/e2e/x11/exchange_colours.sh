#!/usr/bin/env bash
# Drags a colour from another program into a list and onto the first well, and the first well's back to that program.
. "$(dirname "$0")/with_dialog.sh"
open_dialog
/usr/bin/python3 "$(dirname "$0")/colour_window.py" "$folder/received" &
started="$started $!"
other=$(xdotool search --sync --onlyvisible --name '^Other program$' | head -n 1)
over_source() { xdotool mousemove --window "$other" 60 40; }
over_target() { xdotool mousemove --window "$other" 60 140; }
lift_source() {
  over_source
  xdotool mousedown 1
  for _ in 1 2 3 4 5 6; do
    sleep 0.1
    xdotool mousemove_relative 4 2
  done
}
lift_source
point_at swatch2 50 60
let_go
lift_source
point_at origFirstColor
let_go
lift origFirstColor
over_target
let_go
lift swatch2 50 15
over_target
let_go
close_dialog cancelButton
