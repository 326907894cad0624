// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Import/ColumnsDialog.h"

#include <QtWidgets/QDialogButtonBox>

#include <gtest/gtest.h>

#include <string>

namespace Tarvik::PointCollections {
namespace {

enum Which : std::size_t { Collection, X, Y, Z, Group, Place };

class ColumnsDialogTest : public ::testing::Test {
protected:
  static UnknownTable table()
  {
    return {"found Town, Lon, Lat, H; expected others", findHeader(text, "towns.csv"),
            [](char separator) { return readHeader(text, "towns.csv", separator); }};
  }

  static void choose(ColumnsDialog& dialog, Which which, const QString& name)
  {
    auto& box = dialog.columnBox(which);
    ASSERT_GE(box.findText(name), 0) << name.toStdString();
    box.setCurrentIndex(box.findText(name));
  }

  static bool canBeAccepted(const ColumnsDialog& dialog)
  {
    for (const auto* const button : dialog.findChild<QDialogButtonBox*>()->buttons()) {
      if (button->text() == "&Open")
        return button->isEnabled();
    }
    return false;
  }

  static constexpr auto text = "H;Lon;Lat;Town;Group\n1;2;3;Athens;Europe\n4;5;6;Cairo;\n";
};

TEST_F(ColumnsDialogTest, ShowsWhatWasFound)
{
  ColumnsDialog dialog(table());

  EXPECT_EQ(dialog.separatorBox().currentText(), "Semicolon");
  EXPECT_TRUE(dialog.namesBox().isChecked());
  EXPECT_EQ(dialog.preview().rowCount(), 2);
  EXPECT_EQ(dialog.preview().horizontalHeaderItem(3)->text(), "Town");
  EXPECT_EQ(dialog.preview().item(1, 3)->text(), "Cairo");
  EXPECT_EQ(dialog.columnBox(Group).currentText(), "Group") << "it has the usual name";
}

TEST_F(ColumnsDialogTest, ShowsRowsAsInTheFileInBothDirections)
{
  ColumnsDialog dialog(table());

  dialog.setLayoutDirection(Qt::RightToLeft);

  EXPECT_TRUE(dialog.isRightToLeft());
  EXPECT_FALSE(dialog.preview().viewport()->isRightToLeft());
}

TEST_F(ColumnsDialogTest, CanBeAcceptedOnceAllColumnsAreChosen)
{
  ColumnsDialog dialog(table());
  EXPECT_FALSE(canBeAccepted(dialog));

  choose(dialog, Collection, "Town");
  choose(dialog, X, "Lon");
  choose(dialog, Y, "Lat");
  EXPECT_FALSE(canBeAccepted(dialog)) << "z is missing";
  choose(dialog, Z, "Lat");
  EXPECT_FALSE(canBeAccepted(dialog)) << "Lat is chosen twice";
  choose(dialog, Z, "H");
  EXPECT_TRUE(canBeAccepted(dialog));

  const auto [header, columns] = dialog.choice();
  EXPECT_EQ(header.separator, ';');
  const PointColumns expected{
      .collection = 3, .x = 1, .y = 2, .z = 0, .group = 4, .place = std::nullopt};
  EXPECT_EQ(columns, expected);
}

TEST_F(ColumnsDialogTest, LooksAgainWithAnotherSeparator)
{
  ColumnsDialog dialog(table());

  dialog.separatorBox().setCurrentText("Comma");

  EXPECT_EQ(dialog.preview().columnCount(), 1);
  EXPECT_FALSE(canBeAccepted(dialog));
  EXPECT_EQ(dialog.choice().header.separator, ',');
}

TEST_F(ColumnsDialogTest, TakesTheFirstRowForPointsIfTheUserSaysSo)
{
  ColumnsDialog dialog(table());

  dialog.namesBox().setChecked(false);

  EXPECT_FALSE(dialog.choice().header.hasNames);
  EXPECT_EQ(dialog.preview().rowCount(), 3);
  EXPECT_EQ(dialog.preview().item(0, 3)->text(), "Town");
  EXPECT_EQ(dialog.columnBox(X).itemText(1), "Column 1");
}

}
}
