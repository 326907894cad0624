// SPDX-License-Identifier: MIT
// Qt programs include our headers after Qt's, which have macros called `slots`, `signals` and
// `emit`.

#include <QtWidgets/QtWidgets>

#include "AllPublicHeaders.h" // generated: those of the libraries without Qt

#include "GroupHosting/Support/TestProvider.h"
#include "QtModels/History/History.h"
#include "QtModels/History/HistoryGroup.h"
#include "QtModels/History/HistoryModel.h"
#include "QtModels/History/HistoryView.h"
#include "QtModels/History/UndoStackCommand.h"
#include "QtModels/Models/GroupItemModel.h"
#include "QtModels/Translation/CatalogueTranslator.h"
#include "QtModels/Translation/LanguageWatcher.h"
#include "QtModels/Translation/QtTranslation.h"

#include <gtest/gtest.h>

#ifndef slots
#error "This test needs Qt's macros"
#endif

namespace Tarvik {
namespace {

TEST(Headers, CompileWithTheMacrosOfQt)
{
  const GUIdentifier oak;
  TestProvider<GUIdentifier> plants({oak}); // compiled here, macros and all

  EXPECT_EQ(plants.ungroupedElements(), std::vector{oak});
}

}
}
