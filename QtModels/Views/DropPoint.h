// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPoint>

class QDropEvent;
class QTreeView;

namespace Tarvik {

/// Where a view is to take a drop to be. Qt divides a group's row into three: above, onto and below
/// it. Where the data cannot go, this is the part of the same row where it can: elements go into
/// the group, groups go to its nearer side. Otherwise it is where the mouse is.
QPoint dropPoint(const QTreeView& view, const QDropEvent& event);

}
