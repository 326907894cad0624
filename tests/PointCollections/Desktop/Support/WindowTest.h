// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Desktop/Window/FakeQuestions.h"
#include "PointCollections/Desktop/Window/MainWindow.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// The window with a document of three elements, and a user who answers as the test says.
class WindowTest : public ::testing::Test {
protected:
  WindowTest()
  {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    qputenv("XDG_STATE_HOME", m_folder.path().toUtf8());
    std::ofstream(file("points.csv"))
        << "collection,x,y,z\nAthens,1,0,0\nBerlin,0,1,0\nCairo,0,0,1\n";
    window->fileCommands().openFile(file("points.csv"));
    window->show();
  }

  std::filesystem::path file(const char* name) const
  {
    return std::filesystem::path(m_folder.path().toStdString()) / name;
  }

  GUIdentifier element(const char* name) const
  {
    return window->workspace().editor().document()->findByName(name)->id;
  }

  void createGroup(const std::string& name, const std::vector<GUIdentifier>& elements) const
  {
    window->groups().editor().operations().createGroup(elements, name);
  }

  std::vector<std::string> groups() const
  {
    std::vector<std::string> names;
    for (const auto& group : window->workspace().editor().document()->getGroups())
      names.push_back(group.getName());
    return names;
  }

  /// A window with another user.
  std::unique_ptr<MainWindow> windowWith(FakeQuestions*& questions) const
  {
    auto own = std::make_unique<FakeQuestions>();
    questions = own.get();
    return std::make_unique<MainWindow>(diskFiles(), std::move(own));
  }

private:
  QTemporaryDir m_folder;

protected:
  FakeQuestions* user = nullptr;
  std::unique_ptr<MainWindow> window = windowWith(user);
};

}
