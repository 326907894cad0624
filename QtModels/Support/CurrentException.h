// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace Tarvik {

/// What the user is told about the exception that is being handled. To be called in a `catch`.
QString messageOfCurrentException();

}
