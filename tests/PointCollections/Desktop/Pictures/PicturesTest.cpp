// SPDX-License-Identifier: MIT
// Draws the scenes that the documents show, and compares. scripts/screenshots makes the pictures
// anew.

#include "PointCollections/Desktop/Pictures/DifferingPixels.h"
#include "PointCollections/Desktop/Pictures/Scenes.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

constexpr double toleratedShare = 0.002; ///< of all pixels
constexpr qint64 greatestSize = 150'000; ///< in bytes: the documents are read in browsers

class Pictures : public ::testing::TestWithParam<const char*> {
protected:
  Pictures()
  {
    if (qEnvironmentVariableIsSet("POINT_COLLECTIONS_RENEW_PICTURES"))
      write(shown);
  }

  void write(const QString& file) const
  {
    QDir().mkpath(QFileInfo(file).path());
    constexpr int smallest = 0;
    ASSERT_TRUE(drawn.save(file, "PNG", smallest)) << file.toStdString();
  }

  /// Where the drawn picture can be looked at if it is not the one of the documents.
  QString keepDrawn() const
  {
    auto file = QDir(QStringLiteral(POINT_COLLECTIONS_PICTURES)).filePath(name);
    write(file);
    return file;
  }

  const QString name = QString::fromLatin1(GetParam()) + ".png";
  const QString shown = QDir(QStringLiteral(POINT_COLLECTIONS_DOCUMENTS)).filePath(name);
  const QImage drawn = Scenes::draw(GetParam());
};

TEST_P(Pictures, ShowTheProgramAsItIs)
{
  const QImage stored(shown);
  ASSERT_EQ(stored.size(), drawn.size())
      << shown.toStdString() << " differs from " << keepDrawn().toStdString();

  const auto differing = differingPixels(stored, drawn);
  const auto all = drawn.width() * drawn.height();

  if (differing > toleratedShare * all)
    FAIL() << differing << " of " << all << " pixels differ between " << shown.toStdString()
           << " and what the program shows now, " << keepDrawn().toStdString()
           << ". If the new picture is right, run scripts/screenshots.";
}

TEST_P(Pictures, AreSmall)
{
  EXPECT_LE(QFileInfo(shown).size(), greatestSize) << shown.toStdString();
}

INSTANTIATE_TEST_SUITE_P(OfTheDocuments,
                         Pictures,
                         ::testing::ValuesIn(Scenes::names),
                         [](const auto& each) {
                           return QString(each.param).replace('-', '_').toStdString();
                         });

TEST(DifferingPixels, AreNoneInTheSamePicture)
{
  const QImage picture(7, 5, QImage::Format_RGB32);

  EXPECT_EQ(differingPixels(picture, picture), 0);
}

TEST(DifferingPixels, AreThoseThatAnEyeCanTellApart)
{
  QImage picture(7, 5, QImage::Format_RGB32);
  picture.fill(Qt::white);
  auto other = picture;
  other.setPixelColor(3, 2, QColor(255, 255, 255 - tolerancePerColour - 1));
  other.setPixelColor(6, 4, Qt::red);
  other.setPixelColor(0, 0, QColor(255 - tolerancePerColour, 255, 255));

  EXPECT_EQ(differingPixels(picture, other), 2);
}

}
}
