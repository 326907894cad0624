// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What the file of a DiskLock says about who holds it. All programs of this kind write it in
/// English; whoever reads it shows it in the user's language.
namespace Tarvik::PointCollections {

/// The text for the file: "process 123 (point-collections)".
/// @param program  empty if it is not known
std::string textOfHolder(std::uint64_t process, const std::string& program);

/// The holder for a message, safe to print; "another program" if the text is empty.
/// @param text  of the file; may be anything
std::string shownHolder(std::string_view text);

}
