// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/Completion.h"

#include "GeneralServices/StringUtility.h"
#include "PointCollections/Console/Verbs/AllVerbs.h"
#include "PointCollections/Input/PointFile.h"
#include "PointCollections/Project/ProjectFile.h"
#include "PointCollections/Selection/Lookup.h"
#include "PointCollections/Selection/SelectedLists.h"
#include "PointCollections/Selection/SelectionTerm.h"
#include "PointCollections/Text/Quoting.h"
#include "PointCollections/Text/UserError.h"
#include "PointCollections/Text/Utf8.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>

namespace Tarvik::PointCollections {
namespace {

using Names = std::vector<std::string>;

/// What separates folders. Windows accepts both.
constexpr auto folderEnds = std::filesystem::path::preferred_separator == '/' ? "/" : "/\\";

/// The words before the one to complete.
struct Context {
  const Verb* verb = nullptr;
  Names arguments;
  Word group; ///< the first argument, if that is one
  Names options;
  std::set<std::string> choices;       ///< that the options and arguments make
  std::optional<ArgumentKind> awaited; ///< the kind of value, if the last word is an option
};

const Option* findOption(const Verb& verb, const Word& word)
{
  const auto found =
      std::find_if(verb.options.begin(), verb.options.end(), [&](const Option& option) {
        return !word.isQuoted && option.name == word.text;
      });
  return found != verb.options.end() ? &*found : nullptr;
}

/// The parameter that takes the argument at an index; null if there is none.
const Parameter* parameterAt(const Verb& verb, std::size_t index)
{
  const auto& parameters = verb.parameters;
  if (index < parameters.size())
    return &parameters[index];
  return !parameters.empty() && isOpen(parameters.back().occurrence) ? &parameters.back() : nullptr;
}

Context contextOf(const std::vector<Word>& words)
{
  Context context;
  context.verb = &verbNamed(allVerbs(), words.front().text);
  for (auto word = words.begin() + 1; word != words.end(); ++word) {
    const Option* option = context.awaited ? nullptr : findOption(*context.verb, *word);
    if (option != nullptr) {
      context.options.push_back(option->name);
      context.choices.insert(option->choice);
    } else if (!context.awaited) {
      if (context.arguments.empty())
        context.group = *word;
      context.arguments.push_back(word->text);
      if (const auto* parameter = parameterAt(*context.verb, context.arguments.size() - 1))
        context.choices.insert(parameter->choice);
    }
    context.awaited = option != nullptr ? option->value : std::nullopt;
  }
  return context;
}

bool isChosen(const Context& context, const std::string& choice)
{
  return !choice.empty() && context.choices.contains(choice);
}

std::optional<ArgumentKind> kindExpected(const Context& context)
{
  if (context.awaited)
    return context.awaited;
  const auto* parameter = parameterAt(*context.verb, context.arguments.size());
  if (parameter == nullptr)
    return std::nullopt;
  const bool isOneOfMany = isOpen(parameter->occurrence) && !context.arguments.empty();
  const bool isExcluded = !isOneOfMany && isChosen(context, parameter->choice);
  return isExcluded ? std::nullopt : std::optional(parameter->kind);
}

/// The options that can still be given.
Names optionsExpected(const Context& context)
{
  Names names;
  for (const Option& option : context.verb->options) {
    const auto& given = context.options;
    if (!isChosen(context, option.choice) &&
        std::find(given.begin(), given.end(), option.name) == given.end())
      names.push_back(option.name);
  }
  return names;
}

Names without(const Names& names, Names excluded)
{
  std::sort(excluded.begin(), excluded.end());
  Names result;
  std::copy_if(names.begin(), names.end(), std::back_inserter(result), [&](const auto& name) {
    return !std::binary_search(excluded.begin(), excluded.end(), name);
  });
  return result;
}

bool areFiles(std::optional<ArgumentKind> kind)
{
  return kind == ArgumentKind::File || kind == ArgumentKind::ProjectFile ||
         kind == ArgumentKind::PointFile;
}

bool isOfKind(const std::filesystem::path& file, ArgumentKind kind)
{
  const bool isProject = isProjectName(file);
  if (kind == ArgumentKind::NameFile)
    return !isProject;
  return (isProject && kind != ArgumentKind::PointFile) ||
         (isPointsName(file) && kind != ArgumentKind::ProjectFile);
}

/// The names in the folder that the start of a path leads to: folders, and files of the kind.
/// Hidden ones are listed only if the user has typed the dot.
Names fileNames(Files& files, ArgumentKind kind, const std::string& start)
{
  const auto folder = start.substr(0, start.find_last_of(folderEnds) + 1);
  const bool showsHidden = start.substr(folder.size()).starts_with('.');
  Names names;
  for (const auto& name : files.namesIn(Utf8::toPath(folder))) {
    if (Utf8::findInvalid(name) != std::string::npos || (name.starts_with('.') && !showsHidden))
      continue;
    if (name.ends_with('/') || isOfKind(Utf8::toPath(name), kind))
      names.push_back(folder + name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// The names of the members of the group that is the first argument; none if there is no such
/// group.
Names namesInGroup(PointDocument& document, const Context& context)
{
  Names names;
  if (context.arguments.empty())
    return names;
  const auto& group = groupNamed(document, context.group);
  for (const auto& member : group.getGroupMembers()) {
    if (const auto* collection = document.find(member))
      names.push_back(collection->name);
  }
  return names;
}

Names namesOfKind(Session& session,
                  const Context& context,
                  ArgumentKind kind,
                  const std::string& start)
{
  switch (kind) {
  case ArgumentKind::Group:
    return groupNames(*session.editor.document());
  case ArgumentKind::Element:
    return elementNames(*session.editor.document());
  case ArgumentKind::Member:
    return memberNames(*session.editor.document());
  case ArgumentKind::MemberOfGroup:
    return namesInGroup(*session.editor.document(), context);
  case ArgumentKind::Any: {
    auto names = groupNames(*session.editor.document());
    const auto elements = elementNames(*session.editor.document());
    names.insert(names.end(), elements.begin(), elements.end());
    return names;
  }
  case ArgumentKind::Verb:
    return namesOf(allVerbs());
  case ArgumentKind::File:
  case ArgumentKind::ProjectFile:
  case ArgumentKind::PointFile:
  case ArgumentKind::NameFile:
    return fileNames(session.editor.files(), kind, start);
  case ArgumentKind::Text:
  case ArgumentKind::Number:
    break;
  }
  return {};
}

/// An argument must not repeat another one; the value of an option may.
Names namesExpected(Session& session, const Context& context, const std::string& start)
{
  const auto kind = kindExpected(context).value_or(ArgumentKind::Text);
  const auto names = namesOfKind(session, context, kind, start);
  return context.awaited ? names : without(names, context.arguments);
}

Names startingWith(const std::string& start, const Names& names)
{
  Names result;
  std::copy_if(names.begin(), names.end(), std::back_inserter(result),
               [&start](const auto& name) { return name.starts_with(start); });
  if (!result.empty())
    return result;
  const auto lower = StringUtility::toLower(start);
  std::copy_if(names.begin(), names.end(), std::back_inserter(result), [&lower](const auto& name) {
    return StringUtility::toLower(name).starts_with(lower);
  });
  return result;
}

/// The names that start with the last word of the line. An escape that is half typed stands for any
/// character that is written so.
Names matchesFor(const UnfinishedLine& line, const Names& names)
{
  if (line.openEscape.empty())
    return startingWith(line.last.text, names);
  auto start = inQuotes(line.last.text);
  start.replace(start.size() - 1, 1, line.openEscape);
  Names result;
  std::copy_if(names.begin(), names.end(), std::back_inserter(result),
               [&start](const auto& name) { return inQuotes(name).starts_with(start); });
  return result;
}

std::string_view commonStart(const Names& names)
{
  std::string_view common = names.front();
  for (const std::string_view name : names) {
    const auto ends = std::mismatch(common.begin(), common.end(), name.begin(), name.end());
    common = common.substr(0, static_cast<std::size_t>(ends.first - common.begin()));
  }
  return common.substr(0, Utf8::findInvalid(common));
}

/// The start of a name as the user types it, with the quote still open.
std::string unfinished(std::string_view start, bool isQuoted)
{
  auto text = isQuoted ? inQuotes(start) : asTyped(start);
  if (text.size() > start.size())
    text.pop_back();
  return text;
}

enum class Form {
  Word,       ///< never in quotes
  Name,       ///< in quotes if it needs them
  NameInTerm, ///< like Name, but also in quotes if it reads as places
  Path,       ///< like Name, but one that ends in a slash can go on
  PathInTerm  ///< both
};

std::string typedAs(Form form, const std::string& text)
{
  const bool isInTerm = form == Form::NameInTerm || form == Form::PathInTerm;
  if (isInTerm && readsAsPlaces(text))
    return inQuotes(text);
  return form == Form::Word ? text : asTyped(text);
}

Completion completedWith(const Names& matches, const UnfinishedLine& line, Form form)
{
  Completion result = {line.lastAt, {}, {}};
  if (matches.empty())
    return result;
  for (const auto& match : matches)
    result.candidates.push_back(typedAs(form, match));
  const auto common = commonStart(matches);
  const bool endsBefore = common.size() < line.last.text.size(); // they differ in case
  if (endsBefore || (!line.openEscape.empty() && common == line.last.text)) {
    result.from = line.size;
    return result;
  }
  const bool arePaths = form == Form::Path || form == Form::PathInTerm;
  if (matches.size() == 1 && !(arePaths && common.ends_with('/')))
    result.text = result.candidates.front() + ' ';
  else if (!common.empty())
    result.text = form == Form::Word ? std::string(common) : unfinished(common, line.last.isQuoted);
  else if (line.last.isQuoted)
    result.text = '"';
  return result;
}

bool areMembers(std::optional<ArgumentKind> kind)
{
  return kind == ArgumentKind::Member || kind == ArgumentKind::MemberOfGroup;
}

bool areElements(std::optional<ArgumentKind> kind)
{
  return kind == ArgumentKind::Element || areMembers(kind) || kind == ArgumentKind::Any;
}

/// The byte after the first colon outside quotes; npos if there is none.
std::size_t afterColon(std::string_view typed)
{
  bool isQuoted = false;
  for (std::size_t i = 0; i < typed.size(); ++i) {
    if (isQuoted && typed[i] == '\\')
      ++i;
    else if (typed[i] == '"')
      isQuoted = !isQuoted;
    else if (typed[i] == ':' && !isQuoted)
      return i + 1;
  }
  return std::string_view::npos;
}

/// The names of the elements in the lists that a term looks into.
/// @param lists  as they are typed: "Europe:", "@2:", "A*:" or ":"
Names namesInLists(PointDocument& document, std::string_view lists)
{
  const auto term = termOf(splitWords(std::string(lists) + '*').front());
  std::set<std::string> names; // an element may be in several lists
  for (const auto& list : listsOf(document, term)) {
    for (const auto& element : *list.elements) {
      if (const auto* collection = document.find(element))
        names.insert(collection->name);
    }
  }
  return {names.begin(), names.end()};
}

/// Completes a word that selects elements: the file after "@", or the name after the group.
/// @param word  as it is typed
/// @param at    where the word is in its line
/// @param accepted  the elements that the verb accepts; null for all
Completion
completeTerm(Session& session, std::string_view word, std::size_t at, const Names* accepted)
{
  const auto colon = afterColon(word);
  const bool isInLists = colon != std::string_view::npos;
  const bool isFile = !isInLists && word.starts_with('@');
  if (!isInLists && !isFile)
    return {at + word.size(), {}, {}};
  const auto begin = isInLists ? colon : 1;
  auto rest = splitUnfinished(word.substr(begin));
  rest.lastAt = at + begin;
  rest.size += at + begin;
  auto names = isInLists
                   ? namesInLists(*session.editor.document(), word.substr(0, colon))
                   : fileNames(session.editor.files(), ArgumentKind::NameFile, rest.last.text);
  if (isInLists && accepted != nullptr)
    names = without(names, without(names, *accepted));
  return completedWith(matchesFor(rest, names), rest, isFile ? Form::PathInTerm : Form::NameInTerm);
}

Completion completeLine(Session& session, const UnfinishedLine& line, std::string_view text)
{
  const std::string& start = line.last.text;
  if (line.words.empty())
    return completedWith(startingWith(start, namesOf(allVerbs())), line, Form::Word);

  const Context context = contextOf(line.words);
  if (!context.awaited && !line.last.isQuoted && start.starts_with('-')) {
    return completedWith(startingWith(start, optionsExpected(context)), line, Form::Word);
  }
  const auto kind = kindExpected(context);
  const auto names = namesExpected(session, context, start);
  const auto matches = matchesFor(line, names);
  if (matches.empty() && areElements(kind))
    return completeTerm(session, text.substr(line.lastAt), line.lastAt,
                        areMembers(kind) ? &names : nullptr);
  return completedWith(matches, line, areFiles(kind) ? Form::Path : Form::Name);
}

}

Completion complete(Session& session, std::string_view line)
{
  try {
    return completeLine(session, splitUnfinished(line), line);
  } catch (const UserError&) {
    return {line.size(), {}, {}}; // the line is already wrong; running it says why
  }
}

Completion
completeAnswer(Session& session, const std::vector<std::string>& answers, std::string_view line)
{
  try {
    const auto unfinished = splitUnfinished(line);
    if (unfinished.words.empty())
      return completedWith(startingWith(unfinished.last.text, answers), unfinished, Form::Word);
    const auto& word = unfinished.words.front().text;
    const auto verbs = namesOf(allVerbs());
    const auto isIn = [&](const Names& names) {
      return std::find(names.begin(), names.end(), word) != names.end();
    };
    if (isIn(answers) && isIn(verbs))
      return completeLine(session, unfinished, line);
  } catch (const UserError&) { // NOLINT(bugprone-empty-catch): the line is already wrong
  }
  return {line.size(), {}, {}};
}

}
