// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <string>
#include <utility>
#include <vector>

namespace Tarvik {

/// The signals about the state of a History, a HistoryGroup or their like in Qt, as text: "index
/// 1", "canUndo true", "undoText Type".
class Signals {
public:
  template <class Source>
  explicit Signals(const Source& source)
  {
    record(source, &Source::indexChanged, "index");
    record(source, &Source::canUndoChanged, "canUndo");
    record(source, &Source::undoTextChanged, "undoText");
    record(source, &Source::canRedoChanged, "canRedo");
    record(source, &Source::redoTextChanged, "redoText");
    record(source, &Source::cleanChanged, "clean");
  }

  Signals(const Signals&) = delete;
  Signals& operator=(const Signals&) = delete;
  ~Signals() = default;

  /// What has been sent since this was called last.
  std::vector<std::string> take() { return std::exchange(m_sent, {}); }

private:
  template <class Source, class Value>
  void record(const Source& source, void (Source::*signal)(Value), const std::string& name)
  {
    QObject::connect(&source, signal, &m_context,
                     [this, name](Value value) { m_sent.push_back(name + " " + textOf(value)); });
  }

  static std::string textOf(int value) { return std::to_string(value); }
  static std::string textOf(bool value) { return value ? "true" : "false"; }
  static std::string textOf(const QString& value) { return value.toStdString(); }

  QObject m_context; ///< ends the connections
  std::vector<std::string> m_sent;
};

}
