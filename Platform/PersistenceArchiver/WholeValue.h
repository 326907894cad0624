// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/ArchiveWriter.h"

namespace Tarvik {

/// Guards a value that is written in several steps: when an exception keeps complete() from being
/// called, the writer gives up its archive, which is incomplete. Not for hosts.
class WholeValue {
public:
  /// @param writer  must outlive the guard
  explicit WholeValue(ArchiveWriter& writer) noexcept : m_writer(writer) {}
  WholeValue(const WholeValue&) = delete;
  WholeValue& operator=(const WholeValue&) = delete;
  ~WholeValue()
  {
    if (!m_isComplete)
      m_writer.giveUp();
  }

  /// The last step is done.
  void complete() noexcept { m_isComplete = true; }

private:
  ArchiveWriter& m_writer;
  bool m_isComplete = false;
};

}
