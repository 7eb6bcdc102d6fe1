#!/usr/bin/env bash
# Lets assistive technology listen while the lists cannot be stored, and cancels. To be run in a message bus session of
# its own.
. "$(dirname "$0")/with_dialog.sh"
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
open_dialog
mkdir -p "$folder/data/Quorvex/com_Quorvex_Chromalog_64_3-50.prf"
/usr/bin/python3 -B "$(dirname "$0")/hear_status.py" "$folder/heard.json"
close_dialog cancelButton
