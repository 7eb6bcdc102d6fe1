#!/usr/bin/env bash
# Types 255 over the first colour's red, ends editing, and presses Return once more: OK.
. "$(dirname "$0")/with_dialog.sh"
open_dialog
click firstR
xdotool key ctrl+a
xdotool type --delay 30 255
xdotool key Return
xdotool key Return
code=0
wait "$dialog_process" || code=$?
echo "$code" >"$folder/code"
