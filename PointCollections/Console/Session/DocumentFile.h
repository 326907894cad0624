// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Console/Session/Session.h"

#include <filesystem>
#include <string>

/// How a session's document comes from a file and goes into one.
namespace Tarvik::PointCollections {

/// A document that was read from a file.
struct OpenedDocument {
  std::shared_ptr<PointDocument> document;
  std::string title;
  std::filesystem::path projectFile; ///< empty when it comes from a text
  std::size_t projectContent = 0;    ///< hash of the project's bytes
};

/// Reads and checks the document in a file: that of a project when the name ends in .tkpc, the
/// points of a text otherwise.
/// @throws UserError when it is no good
OpenedDocument readDocument(Files& files, const std::filesystem::path& file);

/// Makes the document the session's, and forgets the history.
void adopt(Session& session, OpenedDocument opened);

/// Saves the session's document as a project, which becomes the session's own file.
/// @throws UserError when that fails; the session and what is in the file are as they were then,
/// see
///         Files::write()
void saveDocument(Session& session, const std::filesystem::path& file);

/// Whether the session's own file has another content now than when it was opened or saved last.
/// @throws UserError when the file cannot be read
bool hasChangedOnDisk(const Session& session);

/// What the document is: "cities.tkpc: 418 elements with 418 points in 3 groups".
std::string documentInWords(const Session& session);

/// Whether a document may go that has changes which are not saved.
enum class Farewell {
  Granted,   ///< there are none, or the person has saved them or wants to lose them
  Refused,   ///< the person wants to go on
  Unanswered ///< the input ended, or there is no person
};

/// Asks the person, if need be and possible, what is to become of changes that are not saved.
/// @throws UserError when they are to be saved and that fails
Farewell askForFarewell(Session& session);

}
