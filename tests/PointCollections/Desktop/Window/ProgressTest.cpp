// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/Progress.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QProgressDialog>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>

namespace Tarvik::PointCollections {
namespace {

/// The dialog that the user sees; null if there is none.
QProgressDialog* shownDialog()
{
  for (auto* const widget : QApplication::topLevelWidgets()) {
    auto* const dialog = qobject_cast<QProgressDialog*>(widget);
    if (dialog && dialog->isVisible())
      return dialog;
  }
  return nullptr;
}

/// Work that takes until it is told to end, or is cancelled.
class ProgressTest : public ::testing::Test {
protected:
  using Flag = std::shared_ptr<std::atomic<bool>>;

  ProgressTest()
  {
    window.show();
    QObject::connect(&user, &QTimer::timeout, &window, [this] {
      if (auto* const dialog = shownDialog()) {
        user.stop();
        text = dialog->labelText();
        act(*dialog);
      }
    });
    user.start(10);
  }

  bool run()
  {
    return runWithProgress(
        &window, "Counting …",
        [mayEnd = mayEnd, wasCancelled = wasCancelled](Cancellation& cancellation) {
          while (!*mayEnd && !cancellation.isCancelled())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
          *wasCancelled = cancellation.isCancelled();
        });
  }

  QWidget window;
  QTimer user; ///< looks for the dialog
  QString text;
  std::function<void(QProgressDialog&)> act;
  Flag mayEnd = std::make_shared<std::atomic<bool>>(false);
  Flag wasCancelled = std::make_shared<std::atomic<bool>>(false);
};

TEST_F(ProgressTest, ShowsNothingIfTheWorkIsShort)
{
  *mayEnd = true;
  act = [](auto&) { FAIL() << "a dialog"; };

  EXPECT_TRUE(run());
}

TEST_F(ProgressTest, SaysAfterASecondWhatTheUserWaitsFor)
{
  QElapsedTimer timer;
  timer.start();
  act = [&](auto&) {
    EXPECT_GE(timer.elapsed(), 950);
    *mayEnd = true;
  };

  EXPECT_TRUE(run());

  EXPECT_EQ(text, "Counting …");
  EXPECT_EQ(shownDialog(), nullptr);
}

TEST_F(ProgressTest, TellsTheWorkThatTheUserHasCancelled)
{
  act = [](QProgressDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); };

  EXPECT_FALSE(run());

  EXPECT_TRUE(QTest::qWaitFor([this] { return wasCancelled->load(); }));
}

TEST_F(ProgressTest, WaitsForWorkThatIsPastThePointOfNoReturn)
{
  act = [this](QProgressDialog& dialog) {
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QTimer::singleShot(50, &window, [this] { *mayEnd = true; });
  };

  EXPECT_TRUE(runWithProgress(&window, "Counting …", [this](Cancellation& cancellation) {
    EXPECT_TRUE(cancellation.passPointOfNoReturn());
    while (!*mayEnd)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }));
}

TEST_F(ProgressTest, PassesFailuresOn)
{
  const auto fail = [](Cancellation&) { throw std::runtime_error("no"); };

  EXPECT_THROW(runWithProgress(&window, "Counting …", fail), std::runtime_error);
}

TEST_F(ProgressTest, KeepsTheWindowFromBeginningAnythingElseMeanwhile)
{
  QMetaObject::invokeMethod(
      &window, [] { EXPECT_EQ(QApplication::activeModalWidget(), nullptr); }, Qt::QueuedConnection);
  bool isModal = false;
  act = [&](QProgressDialog& dialog) {
    isModal = QApplication::activeModalWidget() == &dialog;
    *mayEnd = true;
  };

  run();

  EXPECT_TRUE(isModal);
}

}
}
