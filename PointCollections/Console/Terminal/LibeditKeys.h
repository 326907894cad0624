// SPDX-License-Identifier: MIT
#pragma once

#include <histedit.h>

namespace Tarvik::PointCollections {

/// Binds the keys that terminals send as more than one byte, whatever TERM says: Home, End, Delete,
/// PgUp and PgDn, and the arrows with Ctrl, Alt and Shift, as xterm, rxvt, screen, tmux and the
/// Linux console send them. Takes away the key of libedit's own command prompt.
void bindKeys(EditLine* line);

}
