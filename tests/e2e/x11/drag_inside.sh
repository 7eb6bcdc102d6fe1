#!/usr/bin/env bash
# Drags the second row of list 1 into list 2, the first row of list 1 below its third, and OK's colour well's into list 2.
. "$(dirname "$0")/with_dialog.sh"
open_dialog
lift swatch1 50 37
point_at swatch2 50 60
let_go
lift swatch1 50 15
point_at swatch1 50 60
let_go
lift origSecondColor
point_at swatch2 50 200
let_go
close_dialog cancelButton
