// SPDX-License-Identifier: MIT
#include "QtModels/Editing/GroupEditorBase.h"

#include <exception>

namespace Tarvik {

GroupEditorBase::GroupEditorBase(QObject* parent) : QObject(parent) {}

GroupEditorBase::~GroupEditorBase() = default;

bool GroupEditorBase::attempt(const std::function<bool()>& edit)
{
  try {
    return edit();
  } catch (const std::exception& failure) {
    emit failed(QString::fromUtf8(failure.what()));
  } catch (...) {
    emit failed(faultOfUnknownKind());
  }
  return false;
}

QString GroupEditorBase::faultOfUnknownKind()
{
  return tr("This did not work, for an unknown reason.");
}

QString GroupEditorBase::faultOfBlankName()
{
  return tr("A group needs a name.");
}

QString GroupEditorBase::faultOfTakenName()
{
  return tr("Another group has this name.");
}

}
