// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"
#include "PointCollections/Console/Verbs/Arguments.h"
#include "PointCollections/Text/Translated.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// What an argument is, which decides how it is completed.
enum class ArgumentKind {
  Text,          ///< anything new; not completed
  Number,        ///< not completed
  Group,         ///< the name of a group
  Element,       ///< the name of an element
  Member,        ///< the name of an element that is in a group
  MemberOfGroup, ///< the name of a member of the group that is the first argument
  Any,           ///< the name of a group or of an element
  Verb,          ///< the name of a verb
  File,          ///< the name of a file that the program can open
  ProjectFile,   ///< the name of a project
  PointFile,     ///< the name of a file of points
  NameFile       ///< the name of a file with names of elements
};

/// How often an argument is given.
enum class Occurrence {
  Once,
  Optionally,
  OnceOrMore, ///< for the last parameter only
  AnyNumber   ///< for the last parameter only
};

/// An argument that is known by its position.
struct Parameter {
  std::string label; ///< as in the usage: "GROUP"
  ArgumentKind kind = ArgumentKind::Text;
  Occurrence occurrence = Occurrence::Once;
  std::string choice = {}; ///< as that of an option
};

/// Whether such a parameter takes all arguments that are left.
constexpr bool isOpen(Occurrence occurrence)
{
  return occurrence == Occurrence::OnceOrMore || occurrence == Occurrence::AnyNumber;
}

/// An argument that is known by its name. It may come anywhere after the verb.
struct Option {
  std::string name;                  ///< with its dashes: "--at"
  std::optional<ArgumentKind> value; ///< the kind of its value; nothing if it takes none
  std::string label = {};            ///< of its value, as in the usage: "N"
  std::string choice = {}; ///< of several with the same one, only one is accepted; none if empty
};

/// What the answer of a verb is.
enum class AnswerKind {
  Message, ///< sentences; they are wrapped at the width of the terminal
  Table    ///< its lines stay as they are
};

/// A command that the user can type, with all that the program knows about it.
struct Verb {
  std::string name;
  std::string usage; ///< "add GROUP [ELEMENT…]"

  /// One line, for the list of commands; no full stop. It is translated where it is shown.
  const char* summary;

  /// Returns what the summary leaves open, in the user's language: ranges and special cases, in
  /// sentences.
  std::string (*details)();

  std::string example;
  std::vector<Parameter> parameters;
  std::vector<Option> options;

  /// Runs the command. The arguments fit `parameters` and `options`. Returns what the user reads,
  /// without a line end. Throws UserError, with nothing changed, if the command cannot be done.
  std::function<std::string(Session&, const Arguments&)> run;

  AnswerKind answer = AnswerKind::Message;

  /// What else the user may type for the name; not listed by help.
  std::vector<std::string> otherNames = {};
};

/// The names of the verbs, in their order.
std::vector<std::string> namesOf(const std::vector<Verb>& verbs);

/// The verb with exactly that name, or other name.
/// @throws UserError if there is none
const Verb& verbNamed(const std::vector<Verb>& verbs, const std::string& name);

}
