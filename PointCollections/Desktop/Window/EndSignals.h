// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>

namespace Tarvik::PointCollections {

/// Tells in the event loop that the system asks the program to end: by SIGTERM, for instance when
/// the computer is shut down, or SIGHUP, when the terminal is closed that it was started from.
/// Windows has no such signals; there, the end of the session is told to the application object.
///
/// There may be one object at a time.
class EndSignals : public QObject {
  Q_OBJECT

public:
  /// From now on the signals no longer end the program by themselves.
  explicit EndSignals(QObject* parent = nullptr);
  ~EndSignals() override;

  /// Lets the signal end the program, so that whoever has sent it sees that it has worked. Returns
  /// if there was none.
  static void endAsAsked();

Q_SIGNALS:
  void received();
};

}
