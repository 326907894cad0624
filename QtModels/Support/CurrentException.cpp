// SPDX-License-Identifier: MIT
#include "QtModels/Support/CurrentException.h"

#include <QtCore/QCoreApplication>

#include <exception>
#include <new>

namespace Tarvik {

QString messageOfCurrentException()
{
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return QCoreApplication::translate("Tarvik::History", "there is not enough memory");
  } catch (const std::exception& error) {
    return QString::fromUtf8(error.what());
  } catch (...) {
    return QCoreApplication::translate("Tarvik::History", "the cause is unknown");
  }
}

}
