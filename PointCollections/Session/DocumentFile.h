// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Session/Session.h"

#include <filesystem>
#include <string>

/// How a session's document comes from a file and goes into one.
namespace Tarvik::PointCollections {

/// Makes the document in a file the session's: that of a project when the name ends in .tkpc, the
/// points of a text otherwise. The history is forgotten. The file is read and checked before.
/// @throws UserError when it is no good; the session is as it was then
void openDocument(Session& session, const std::filesystem::path& file);

/// Saves the session's document as a project, which becomes the session's own file.
/// @throws UserError when that fails; the session and what is in the file are as they were then
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
