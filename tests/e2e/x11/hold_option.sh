#!/usr/bin/env bash
# Clicks OK with the Option key down, which chooses the other colour, and then without.
. "$(dirname "$0")/with_dialog.sh"
open_dialog
xdotool keydown alt
click okButton
xdotool keyup alt
close_dialog okButton
