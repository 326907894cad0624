// SPDX-License-Identifier: MIT
#include "PointCollections/Editor/Saving.h"

namespace Tarvik::PointCollections {

using Risk = Editor::OverwriteRisk;

Risk Saving::overwriteRisk(Files& files,
                           const OpenedDocument& opened,
                           const std::filesystem::path& file)
{
  const bool isOwn = file == opened.projectFile || files.areSame(file, opened.projectFile);
  if (!files.exists(file))
    return Risk::None;
  if (!isOwn)
    return Risk::OtherFile;
  return isUnchanged(files, opened) ? Risk::None : Risk::OtherChanges;
}

std::optional<Editor::SaveResult> Saving::write(Cancellation& cancellation)
{
  const auto& file = m_saved.file;
  const auto lock = m_files->lockForSaving(file);
  const auto risk = m_mayOverwrite ? Risk::None : overwriteRisk(*m_files, m_opened, file);
  if (risk != Risk::None)
    return Editor::SaveResult{risk};
  auto written = m_files->writeUnlessCancelled(file, m_bytes, cancellation);
  if (!written)
    return std::nullopt;
  return Editor::SaveResult{Risk::None, std::move(written->warning)};
}

}
