// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/IdentifierBits.h"
#include "QtModels/QtModelsExport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace Tarvik {

/// Which groups or elements are dragged, and of which document.
///
/// As bytes: a mark and a version, the id of the process, the document, the kind, the number of
/// ids, and 16 bytes for each id; all numbers big-endian.
struct TKM_QTMODELS_API GroupDragData {
  /// What the ids are of.
  enum class Kind : std::uint8_t { Groups = 1, Elements = 2 };

  /// Tells the documents of one process apart: the address of the provider.
  using Document = std::uint64_t;

  Document document;               ///< which the ids are from
  Kind kind;                       ///< what the ids are of
  std::vector<IdentifierBits> ids; ///< in the order of the rows

  /// "application/x-tkmservice-groups".
  static QString mimeType();

  /// The data as bytes, in the format above.
  QByteArray toBytes() const;

  /// What kind of data the bytes are, if they come from that document in this process. Reads no
  /// ids, however many there are.
  static std::optional<Kind> kindOf(const QByteArray& bytes, Document document);

  /// Reads what toBytes() writes.
  /// @return nothing for any other bytes, and for those of another document
  static std::optional<GroupDragData> fromBytes(const QByteArray& bytes, Document document);
};

}
