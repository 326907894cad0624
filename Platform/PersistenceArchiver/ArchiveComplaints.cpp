// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/ArchiveComplaints.h"

#include "PersistenceArchiver/ArchiveError.h"

#include <stdexcept>

namespace Tarvik::ArchiveComplaints {

void refuse(std::size_t position,
            const std::string& expected,
            const std::string& found,
            std::string_view advice)
{
  auto message = "expected " + expected + ", found " + found;
  if (!advice.empty())
    message.append("; ").append(advice);
  throw ArchiveError(position, message);
}

void complain(const std::string& mistake)
{
  throw std::logic_error("PersistenceArchiver: " + mistake);
}

std::string bytesText(std::uint64_t count)
{
  return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

}
