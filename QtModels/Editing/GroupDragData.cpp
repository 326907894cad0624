// SPDX-License-Identifier: MIT
#include "QtModels/Editing/GroupDragData.h"

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

namespace Tarvik {
namespace {

constexpr quint64 markAndVersion = 0x544b4d4752500001; // "TKMGRP", 1
constexpr qsizetype bytesOfHeader = 37;
constexpr qsizetype bytesOfId = 16;

/// Different in each process, even in one that gets the address or the number of another.
const IdentifierBits& idOfProcess()
{
  static const auto id = IdentifierBits::unique();
  return id;
}

struct Header {
  quint64 mark = markAndVersion;
  quint64 processHigh = idOfProcess().high;
  quint64 processLow = idOfProcess().low;
  quint64 document = 0;
  quint8 kind = 0;
  quint32 count = 0;

  bool operator==(const Header&) const = default;
};

QDataStream& operator<<(QDataStream& out, const Header& header)
{
  return out << header.mark << header.processHigh << header.processLow << header.document
             << header.kind << header.count;
}

QDataStream& operator>>(QDataStream& in, Header& header)
{
  return in >> header.mark >> header.processHigh >> header.processLow >> header.document >>
         header.kind >> header.count;
}

bool isKind(quint8 number)
{
  return number == quint8(GroupDragData::Kind::Groups) ||
         number == quint8(GroupDragData::Kind::Elements);
}

/// The header, if it is valid and tells the truth about the size of the data.
std::optional<Header> readHeader(QDataStream& in, qsizetype size, GroupDragData::Document document)
{
  Header header;
  in >> header;
  const Header expected{
      .document = document, .kind = header.kind, .count = header.count}; // the rest must be equal
  if (in.status() != QDataStream::Ok || header != expected || !isKind(header.kind))
    return std::nullopt;
  const auto bytesOfIds = static_cast<quint64>(size - bytesOfHeader);
  if (header.count == 0 || bytesOfIds != quint64(header.count) * bytesOfId)
    return std::nullopt;
  return header;
}

}

QString GroupDragData::mimeType()
{
  return QStringLiteral("application/x-tkmservice-groups");
}

QByteArray GroupDragData::toBytes() const
{
  QByteArray bytes;
  bytes.reserve(bytesOfHeader + static_cast<qsizetype>(ids.size()) * bytesOfId);
  QDataStream out(&bytes, QIODevice::WriteOnly);
  out << Header{
      .document = document, .kind = quint8(kind), .count = static_cast<quint32>(ids.size())};
  for (const auto& id : ids)
    out << quint64(id.high) << quint64(id.low);
  return bytes;
}

std::optional<GroupDragData::Kind> GroupDragData::kindOf(const QByteArray& bytes, Document document)
{
  QDataStream in(bytes);
  const auto header = readHeader(in, bytes.size(), document);
  return header ? std::optional(static_cast<Kind>(header->kind)) : std::nullopt;
}

std::optional<GroupDragData> GroupDragData::fromBytes(const QByteArray& bytes, Document document)
{
  QDataStream in(bytes);
  const auto header = readHeader(in, bytes.size(), document);
  if (!header)
    return std::nullopt;
  GroupDragData data{document, static_cast<Kind>(header->kind), {}};
  data.ids.resize(header->count);
  for (auto& id : data.ids) {
    quint64 high = 0;
    quint64 low = 0;
    in >> high >> low;
    id = {high, low};
  }
  return data;
}

}
