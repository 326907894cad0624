// SPDX-License-Identifier: MIT
#include "PointCollections/Recovery/UnsavedWork.h"

#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/Translated.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/chrono.h>

#include <algorithm>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

using FileSince = UnsavedWork::FileSince;

FileSince whatHappenedTo(const OpenedDocument& opened, Files& files)
{
  if (opened.file.empty())
    return FileSince::Same; // it came from a pipe, which is not there any more
  try {
    if (!files.exists(opened.file))
      return FileSince::Gone;
    return isUnchanged(files, opened) ? FileSince::Same : FileSince::Changed;
  } catch (const UserError&) {
    return FileSince::Changed; // it cannot even be read any more
  }
}

/// The user may have opened the document by another path, or moved it together with its work: what
/// is recovered is saved where the user has found it.
void belongTo(OpenedDocument& opened, const std::filesystem::path& file)
{
  if (file.empty())
    return;
  opened.file = file;
  opened.title = Utf8::fromPath(file.filename());
  if (!opened.projectFile.empty())
    opened.projectFile = file;
}

/// Whether the work is on another file: the names of recovery files ignore upper and lower case.
bool belongsToAnother(const OpenedDocument& opened, const std::filesystem::path& file, Files& files)
{
  return !file.empty() && opened.file.filename() != file.filename() && files.exists(opened.file) &&
         !files.areSame(opened.file, file);
}

std::string afterwards(FileSince since)
{
  switch (since) {
  case FileSince::Same:
    return {};
  case FileSince::Changed:
    // For translators: follows "2 elements with 4 points, written on 2026-02-28 at 13:59:00"
    return translated("; the file has been changed since");
  case FileSince::Gone:
    // For translators: follows "2 elements with 4 points, written on 2026-02-28 at 13:59:00"
    return translated("; the file has been removed since");
  }
  return {};
}

}

FoundWork findUnsavedWork(Files& files,
                          const std::filesystem::path& file,
                          const std::filesystem::path& stateFolder)
{
  FoundWork found;
  for (const auto& place : recoveryPlaces(file, stateFolder)) {
    for (auto& each : RecoveryFile::takeAbandoned(place)) {
      try {
        auto record =
            loadRecovery(files.readBytes(each.path()), printable(Utf8::fromPath(each.path())));
        if (belongsToAnother(record.opened, file, files))
          continue;
        belongTo(record.opened, file);
        const auto since = whatHappenedTo(record.opened, files);
        found.works.push_back({std::move(each), std::move(record), since});
      } catch (const UserError& error) {
        found.mistakes.emplace_back(error.what());
      }
    }
  }
  std::ranges::stable_sort(found.works, std::ranges::greater(),
                           [](const auto& work) { return work.record.written; });
  return found;
}

std::string summaryOf(const UnsavedWork& work)
{
  const auto written = std::chrono::system_clock::to_time_t(work.record.written);
  // For translators: {0} is "2 elements with 4 points"; {1:...} is a time, with %Y for the year, %m
  // for the month, %d for the day, and %H, %M and %S for hours, minutes and seconds: change the
  // order and what is between, as in {1:%d.%m.%Y, %H:%M:%S}
  return translated("{0}, written on {1:%Y-%m-%d at %H:%M:%S}",
                    contentOf(*work.record.opened.document), fmt::localtime(written)) +
         afterwards(work.fileSince);
}

}
