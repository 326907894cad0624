// SPDX-License-Identifier: MIT
#pragma once

#include "PointCollections/Document/PointDocument.h"
#include "PointCollections/Files/Files.h"
#include "PointCollections/Selection/SelectionTerm.h"
#include "PointCollections/Text/Words.h"

#include <span>
#include <vector>

namespace Tarvik::PointCollections {

/// Finds the elements that the user selects by names, patterns, groups, places and files. The
/// grammar is in SelectionTerm.h.
///
/// The elements come in the order of the words. Those of a pattern are in the document's order,
/// those of a group in the order of its members. An element that several words select counts once,
/// at the first of them; only a name that is typed twice is a mistake. So is a word that selects
/// nothing.
///
/// A file has one name on each line, exactly as it is; empty lines are skipped. A line that starts
/// with a quote is read as a quoted word: so a name may have line breaks or start with a quote. The
/// file must be UTF-8, with or without a byte order mark.
class Selection {
public:
  /// Both must outlive the selection.
  Selection(PointDocument& document, Files& files) : m_document(document), m_files(files) {}

  /// The elements that the words select.
  /// @throws UserError if a word selects nothing or breaks the grammar, or a file cannot be read
  std::vector<GUIdentifier> elements(std::span<const Word> words) const;

  /// The one element that the word selects.
  /// @throws UserError as elements(), and if there are several
  GUIdentifier element(const Word& word) const;

private:
  std::vector<GUIdentifier> selectedBy(const Word& word) const;
  std::vector<GUIdentifier> inFile(const Word& file) const;

  PointDocument& m_document;
  Files& m_files;
};

}
