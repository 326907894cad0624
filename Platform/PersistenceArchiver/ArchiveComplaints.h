// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Throws all errors of the archive. Not for hosts.
namespace Tarvik::ArchiveComplaints {

/// What whoever reads the error should know or do.
inline constexpr std::string_view damaged = "the archive is damaged";
inline constexpr std::string_view useNewerProgram =
    "use the version of the program that wrote it, or a newer one";

/// Refuses what is in an archive, or what does not fit into one.
/// @param position  the byte that the error is about
/// @throws ArchiveError "archive, byte 8: expected …, found …; <advice>"
[[noreturn]] void refuse(std::size_t position,
                         const std::string& expected,
                         const std::string& found,
                         std::string_view advice = {});

/// Reports a mistake of the program.
/// @throws std::logic_error "PersistenceArchiver: <mistake>"
[[noreturn]] void complain(const std::string& mistake);

/// "1 byte", "2 bytes".
std::string bytesText(std::uint64_t count);

}
