// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/ArchiveError.h"

namespace Tarvik {

ArchiveError::ArchiveError(std::size_t position, const std::string& message)
    : std::runtime_error("archive, byte " + std::to_string(position) + ": " + message),
      m_position(position)
{}

ArchiveError::ArchiveError(const ArchiveError& other) noexcept = default;

ArchiveError& ArchiveError::operator=(const ArchiveError& other) noexcept = default;

ArchiveError::~ArchiveError() = default;

}
