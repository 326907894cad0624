// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <functional>

namespace Tarvik::PointCollections {

/// Runs work in another thread, and waits for it. If that takes longer than a second, a dialog says
/// so and lets the user cancel: the work goes on then, and nobody waits for it. It must therefore
/// own everything that it uses, and share none of it with this thread until it has finished.
/// @param window  the parent of the dialog
/// @param text    what the user waits for
/// @return false if the user has cancelled
/// @throws what the work throws
bool runWithProgress(QWidget* window, const QString& text, std::function<void()> work);

}
