// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/EndSignals.h"

#include "PointCollections/Desktop/Support/WindowTest.h"
#include "PointCollections/Desktop/Window/FileNames.h"

#include <QtCore/QProcess>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <gmock/gmock.h>
#include <signal.h>

#include <csignal>

namespace Tarvik::PointCollections {
namespace {

class EndSignalsTest : public WindowTest {};

TEST_F(EndSignalsTest, AreToldInTheEventLoop)
{
  for (const int signal : {SIGTERM, SIGHUP}) {
    const EndSignals watched;
    QSignalSpy received(&watched, &EndSignals::received);

    std::raise(signal);

    EXPECT_EQ(received.count(), 0) << "not in the handler";
    EXPECT_TRUE(received.wait(1000)) << signal;
  }
}

TEST_F(EndSignalsTest, EndTheProgramAfterItHasTidiedUp)
{
  QProcess program;
  program.setProgram(POINT_COLLECTIONS_DESKTOP);
  program.setArguments({nameOf(file("points.csv"))});
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert("QT_QPA_PLATFORM", "offscreen");
  environment.insert("XDG_CONFIG_HOME", nameOf(file("config")));
  program.setProcessEnvironment(environment);
  program.start();
  ASSERT_TRUE(program.waitForStarted());
  const auto settings = file("config") / "TKMService" / "point-collections-desktop.conf";
  ASSERT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(settings); }, 20000))
      << "the file is open, and among the recent ones";

  kill(static_cast<pid_t>(program.processId()), SIGTERM);

  ASSERT_TRUE(program.waitForFinished(20000));
  EXPECT_EQ(program.exitStatus(), QProcess::CrashExit) << "as SIGTERM ends a program";
  EXPECT_EQ(program.exitCode(), SIGTERM);
  EXPECT_TRUE(QSettings(nameOf(settings), QSettings::IniFormat).contains("window/geometry"))
      << "the window has been remembered";
}

}
}
