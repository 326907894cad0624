// SPDX-License-Identifier: MIT
#include "PointCollections/Editor/GroupEdit.h"

#include "Translator/Translator.h"

#include <utility>

namespace Tarvik::PointCollections {

GroupEdit::GroupEdit(Provider provider, EditRequest request)
    : CompactTKGroupCmd(std::move(provider),
                        std::exchange(request.makeCommand, nullptr),
                        [this] { return describe(); }),
      m_request(std::move(request))
{}

void GroupEdit::execute()
{
  CompactTKGroupCmd::execute();
  try {
    if (m_request.subject)
      m_subject = m_request.subject();
  } catch (...) { // NOLINT(bugprone-empty-catch): the command is done, and a name is not worth it
  }
  m_request.subject = nullptr;
}

std::size_t GroupEdit::sizeInBytes() const
{
  return CompactTKGroupCmd::sizeInBytes() + sizeof *this - sizeof(CompactTKGroupCmd) +
         m_subject.capacity() + m_request.bytesOfDocument;
}

bool GroupEdit::hasChangedNothing() const
{
  return CompactTKGroupCmd::hasChangedNothing();
}

std::string GroupEdit::describe() const
{
  auto description = Translator::translate(m_request.context, m_request.text, nullptr, -1);
  return m_subject.empty() ? description : description + ": " + m_subject;
}

}
