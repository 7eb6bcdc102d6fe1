#!/usr/bin/env bash
# Holds the Option key down while the dialog opens, lets it go, and cancels.
. "$(dirname "$0")/with_dialog.sh"
xdotool keydown alt
open_dialog
xdotool keyup alt
close_dialog cancelButton
