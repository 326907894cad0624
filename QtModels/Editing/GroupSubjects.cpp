// SPDX-License-Identifier: MIT
#include "QtModels/Editing/GroupSubjects.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace Tarvik::GroupSubjects {
namespace {

QString shortened(const std::string& name)
{
  constexpr int longest = 60;
  auto text = QString::fromStdString(name);
  if (text.size() <= longest)
    return text;
  const bool splitsCharacter = text.at(longest - 2).isHighSurrogate();
  return text.left(longest - (splitsCharacter ? 2 : 1)) + u'…';
}

}

std::string groupWith(const std::string& name, std::size_t elements)
{
  if (elements == 0)
    return shortened(name).toStdString();
  return QCoreApplication::translate("GroupSubjects", "%1 (%2)", "group and number of elements")
      .arg(shortened(name), QString::number(elements))
      .toStdString();
}

std::string elements(std::size_t count, const std::string& nameOfFirst)
{
  if (count == 1)
    return shortened(nameOfFirst).toStdString();
  const auto number = static_cast<int>(count); // lupdate overlooks texts beside a cast
  return QCoreApplication::translate("GroupSubjects", "%n elements", nullptr, number).toStdString();
}

std::string groups(const std::vector<std::string>& names)
{
  constexpr std::size_t mostNames = 3;
  const auto number = static_cast<int>(names.size());
  if (names.size() > mostNames)
    return QCoreApplication::translate("GroupSubjects", "%n groups", nullptr, number).toStdString();
  QStringList texts;
  for (const auto& name : names)
    texts += shortened(name);
  return texts.join(QStringLiteral(", ")).toStdString();
}

std::string into(const std::string& subject, const std::string& target)
{
  return QCoreApplication::translate("GroupSubjects", "%1 → %2", "what goes into a group")
      .arg(QString::fromStdString(subject), shortened(target))
      .toStdString();
}

std::string beside(const std::string& subject, Side side, const std::string& target)
{
  const auto text = side == Side::Before
                        ? QCoreApplication::translate("GroupSubjects", "%1 → before %2")
                        : QCoreApplication::translate("GroupSubjects", "%1 → after %2");
  return text.arg(QString::fromStdString(subject), shortened(target)).toStdString();
}

}
