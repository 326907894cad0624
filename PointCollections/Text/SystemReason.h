// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <system_error>

namespace Tarvik::PointCollections {

/// Why the operating system refuses something: "Permission denied". Reasons that users meet are in
/// their language; the others, and all of them in English, are in the words of the C library.
/// Never in those of Windows itself, which has its own language and code page.
std::string systemReason(const std::error_code& code);

}
