#!/usr/bin/env bash
# Lets assistive technology listen while keys walk and change list 1 and undo the change, and cancels. To be run in a
# message bus session of its own.
. "$(dirname "$0")/with_dialog.sh"
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
open_dialog
/usr/bin/python3 -B "$(dirname "$0")/hear_lists.py" "$folder/heard.json"
close_dialog cancelButton
