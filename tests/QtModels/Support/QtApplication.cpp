// SPDX-License-Identifier: MIT
// Every test runs in an application without a display.

#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

#include <memory>

namespace {

class QtApplication : public ::testing::Environment {
public:
  void SetUp() override
  {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
      qputenv("QT_QPA_PLATFORM", "offscreen");
    m_application = std::make_unique<QApplication>(m_argumentCount, m_arguments);
  }

  void TearDown() override { m_application.reset(); }

private:
  int m_argumentCount = 1;
  char m_name[11] = "QtModels";
  char* m_arguments[2] = {m_name, nullptr};
  std::unique_ptr<QApplication> m_application;
};

const auto* const qtApplication = ::testing::AddGlobalTestEnvironment(new QtApplication);

}
