// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Session/DocumentFile.h"

#include "PointCollections/Console/Shell/Interpreter.h"
#include "PointCollections/Console/Text/Words.h"
#include "PointCollections/Input/PointFile.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <fmt/format.h>

#include <functional>
#include <new>
#include <numeric>
#include <span>
#include <string_view>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

std::size_t hashOf(std::span<const std::byte> bytes)
{
  return std::hash<std::string_view>()({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::size_t countPoints(const PointDocument& document)
{
  const auto& order = document.order();
  return std::accumulate(order.begin(), order.end(), std::size_t(0), [&](auto sum, const auto& id) {
    return sum + document.find(id)->points.size();
  });
}

/// The first word of an answer; empty when there is none.
std::string firstWord(const std::string& answer)
{
  const auto start = answer.find_first_not_of(" \t");
  return start == std::string::npos
             ? std::string()
             : answer.substr(start, answer.find_first_of(" \t", start) - start);
}

}

OpenedDocument readDocument(Files& files, const std::filesystem::path& file)
{
  const auto name = printable(Utf8::fromPath(file));
  try {
    auto title = Utf8::fromPath(file.filename());
    if (!isProjectName(file))
      return {PointDocument::create(parsePoints(files.readText(file), name)), std::move(title), {}};
    const auto bytes = files.readBytes(file);
    return {loadProject(bytes, name), std::move(title), file, hashOf(bytes)};
  } catch (const std::bad_alloc&) {
    throw UserError(fmt::format("{}: there is not enough memory for what is in this file", name));
  }
}

void adopt(Session& session, OpenedDocument opened)
{
  session.document = std::move(opened.document);
  session.title = std::move(opened.title);
  session.projectFile = std::move(opened.projectFile);
  session.projectContent = opened.projectContent;
  session.history.clear();
  session.history.markClean();
}

void saveDocument(Session& session, const std::filesystem::path& file)
{
  auto title = Utf8::fromPath(file.filename());
  auto projectFile = file;
  const auto bytes = saveProject(*session.document);
  session.files->write(file, bytes);

  session.title = std::move(title);
  session.projectFile = std::move(projectFile);
  session.projectContent = hashOf(bytes);
  session.history.markClean();
}

bool hasChangedOnDisk(const Session& session)
{
  return session.files->exists(session.projectFile) &&
         hashOf(session.files->readBytes(session.projectFile)) != session.projectContent;
}

std::string documentInWords(const Session& session)
{
  const auto elements = session.document->order().size();
  const auto groups = session.document->getGroups().size();
  return fmt::format("{}: {} with {}{}", mentioned(session.title), counted(elements, "element"),
                     counted(countPoints(*session.document), "point"),
                     groups > 0 ? " in " + counted(groups, "group") : std::string());
}

Farewell askForFarewell(Session& session)
{
  if (session.history.isClean())
    return Farewell::Granted;
  const auto question = fmt::format(
      "{} has changes that are not saved. Type {}, discard or cancel: ", mentioned(session.title),
      session.projectFile.empty() ? "save FILE" : "save");
  while (const auto answer = session.ask ? session.ask(question) : std::nullopt) {
    const auto word = firstWord(*answer);
    if (word == "cancel")
      return Farewell::Refused;
    if (word == "save")
      runLine(session, *answer);
    if (word == "save" || word == "discard")
      return Farewell::Granted;
  }
  return Farewell::Unanswered;
}

}
