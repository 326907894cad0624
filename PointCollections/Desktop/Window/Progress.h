// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Files/Cancellation.h"

#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <functional>

namespace Tarvik::PointCollections {

/// Runs work in another thread, and waits for it. The user can do nothing else meanwhile. If it
/// takes longer than a second, a dialog says so and lets the user cancel: the work is told, and
/// nobody waits for it, unless it is past the point of no return. The work must therefore own
/// everything that it uses, and share none of it with this thread until it has finished.
/// @param window  the parent of the dialog
/// @param text    what the user waits for
/// @return false if it was cancelled, by the user or because the program ends
/// @throws what the work throws
bool runWithProgress(QWidget* window, const QString& text, std::function<void(Cancellation&)> work);

}
