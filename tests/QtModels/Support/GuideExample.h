// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QString>

#include <gtest/gtest.h>

namespace Tarvik {

/// The content of a file of the sources.
/// @param name  from the top folder of the sources
inline QString sourceFile(const QString& name)
{
  QFile input(QStringLiteral(TKM_SOURCE_FOLDER "/") + name);
  EXPECT_TRUE(input.open(QIODevice::ReadOnly)) << name.toStdString();
  return QString::fromUtf8(input.readAll());
}

/// Expects that a guide has the example of a test, which the test marks with "[the example begins]"
/// and "[the example ends]" in comments.
inline void expectGuideToHaveTheExample(const QString& guide, const QString& test)
{
  const QRegularExpression marked("// \\[the example begins\\]\n(.*)// \\[the example ends\\]",
                                  QRegularExpression::DotMatchesEverythingOption);
  const auto example = marked.match(sourceFile(test)).captured(1);
  ASSERT_FALSE(example.isEmpty()) << test.toStdString();
  EXPECT_TRUE(sourceFile(guide).contains(example)) << guide.toStdString();
}

}
