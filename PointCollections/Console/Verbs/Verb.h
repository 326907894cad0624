// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"
#include "PointCollections/Console/Verbs/Arguments.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Tarvik::PointCollections {

/// What an argument stands for: how it is completed while the user types.
enum class ArgumentKind {
  Text,    ///< anything new; not completed
  Number,  ///< not completed
  Group,   ///< the name of a group
  Element, ///< the name of an element
  Member,  ///< the name of an element that lies in a group
  Verb,    ///< the name of a verb
  File     ///< the name of a file that the program opens
};

/// How often an argument is given.
enum class Occurrence {
  Once,
  Optionally,
  OnceOrMore, ///< for the last parameter only
  AnyNumber   ///< for the last parameter only
};

/// An argument that is known by its place.
struct Parameter {
  std::string label; ///< as in the usage: "GROUP"
  ArgumentKind kind = ArgumentKind::Text;
  Occurrence occurrence = Occurrence::Once;
};

/// Whether such a parameter takes all arguments that are left.
constexpr bool isOpen(Occurrence occurrence)
{
  return occurrence == Occurrence::OnceOrMore || occurrence == Occurrence::AnyNumber;
}

/// An argument that is known by its name and may stand anywhere behind the verb.
struct Option {
  std::string name;                  ///< with its dashes: "--at"
  std::optional<ArgumentKind> value; ///< what follows it; nothing when it stands alone
  std::string label = {};            ///< of its value, as in the usage: "N"
};

/// One of the commands that the user can type: all that the program knows of it.
struct Verb {
  std::string name;
  std::string usage;   ///< "add GROUP [ELEMENT…]"
  std::string summary; ///< one line, for the list of verbs; no full stop
  std::string details; ///< what the summary leaves open: ranges and special cases; sentences
  std::string example;
  std::vector<Parameter> parameters;
  std::vector<Option> options;

  /// Carries it out and returns what the user reads, without a line end; throws UserError, with
  /// nothing changed, when that cannot be done. The arguments fit parameters and options.
  std::function<std::string(Session&, const Arguments&)> run;
};

}
