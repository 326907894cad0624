// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <cstddef>
#include <stdexcept>
#include <string>

namespace Tarvik {

/// The bytes of an archive are not what its reader needs, or a value does not fit into an archive.
class TKM_PERSISTENCEARCHIVER_API ArchiveError : public std::runtime_error {
public:
  /// @param position  the byte of the archive that the error is about, counted from 0
  /// @param message   what was expected and what was found
  ArchiveError(std::size_t position, const std::string& message);

  /// @{
  /// The copies share the message, so that copying does not throw.
  ArchiveError(const ArchiveError& other) noexcept;
  ArchiveError& operator=(const ArchiveError& other) noexcept;
  /// @}

  ~ArchiveError() override;

  /// The byte of the archive that the error is about, counted from 0.
  std::size_t position() const noexcept { return m_position; }

private:
  std::size_t m_position;
};

}
