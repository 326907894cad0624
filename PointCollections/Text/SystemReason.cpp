// SPDX-License-Identifier: MIT
#include "PointCollections/Text/SystemReason.h"

#include "PointCollections/Text/Translated.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace Tarvik::PointCollections {
namespace {

struct Reason {
  std::errc code;
  const char* text;
};

constexpr std::array reasons = {
    // For translators: the reasons of the operating system; use its usual words
    Reason{std::errc::no_such_file_or_directory, translatable("No such file or directory")},
    Reason{std::errc::permission_denied, translatable("Permission denied")},
    Reason{std::errc::operation_not_permitted, translatable("Operation not permitted")},
    Reason{std::errc::operation_not_supported, translatable("Operation not supported")},
    Reason{std::errc::is_a_directory, translatable("Is a directory")},
    Reason{std::errc::not_a_directory, translatable("Not a directory")},
    Reason{std::errc::file_exists, translatable("File exists")},
    Reason{std::errc::filename_too_long, translatable("File name too long")},
    Reason{std::errc::file_too_large, translatable("File too large")},
    Reason{std::errc::no_space_on_device, translatable("No space left on device")},
    Reason{std::errc::read_only_file_system, translatable("Read-only file system")},
    Reason{std::errc::io_error, translatable("Input/output error")},
    Reason{std::errc::device_or_resource_busy, translatable("Device or resource busy")},
    Reason{std::errc::text_file_busy, translatable("Text file busy")},
    Reason{std::errc::no_such_device, translatable("No such device")},
    Reason{std::errc::no_such_device_or_address, translatable("No such device or address")},
    Reason{std::errc::invalid_argument, translatable("Invalid argument")},
    Reason{std::errc::too_many_files_open, translatable("Too many open files")},
    Reason{std::errc::too_many_files_open_in_system, translatable("Too many open files in system")},
    Reason{std::errc::too_many_symbolic_link_levels,
           translatable("Too many levels of symbolic links")},
    Reason{std::errc::no_lock_available, translatable("No locks available")},
    Reason{std::errc::not_enough_memory, translatable("Cannot allocate memory")},
#if defined(EDQUOT) // which std::errc lacks
    Reason{static_cast<std::errc>(EDQUOT), translatable("Disk quota exceeded")},
#endif
};

}

std::string systemReason(const std::error_code& code)
{
  const auto condition = code.default_error_condition();
  const auto* const found = std::find_if(reasons.begin(), reasons.end(), [&](const auto& reason) {
    return condition == std::make_error_condition(reason.code);
  });
  if (found == reasons.end())
    return condition.message();
  const auto translation = translated(found->text);
  return translation != found->text ? translation : condition.message();
}

}
