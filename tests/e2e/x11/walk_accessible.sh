#!/usr/bin/env bash
# Lets assistive technology walk the dialog, press a button in it and set a value, and cancels. To be run in a message
# bus session of its own.
. "$(dirname "$0")/with_dialog.sh"
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
open_dialog
/usr/bin/python3 -B "$(dirname "$0")/walk_accessible.py" "$folder/accessible.json"
close_dialog cancelButton
