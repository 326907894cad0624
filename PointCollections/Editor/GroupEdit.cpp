// SPDX-License-Identifier: MIT
#include "PointCollections/Editor/GroupEdit.h"

#include "PointCollections/Text/Interruption.h"
#include "PointCollections/Text/Translated.h"
#include "Translator/Translator.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace Tarvik::PointCollections {

namespace {

bool isSame(const TKGroup<GUIdentifier>& a, const TKGroup<GUIdentifier>& b)
{
  return a.getId() == b.getId() && a.getName() == b.getName() &&
         a.getGroupMembers() == b.getGroupMembers();
}

/// What a document was like, to go back to.
class RestorePoint {
public:
  explicit RestorePoint(PointDocument& document)
      : m_document(document), m_groups(document.getGroups()), m_order(document.order())
  {}

  bool isHere() const
  {
    return m_document.order() == m_order &&
           std::ranges::equal(m_document.getGroups(), m_groups, isSame);
  }

  void restore() const
  {
    m_document.setGroups(m_groups);
    m_document.setOrder(m_order);
  }

private:
  PointDocument& m_document;
  std::vector<TKGroup<GUIdentifier>> m_groups;
  std::vector<GUIdentifier> m_order;
};

}

GroupEdit::GroupEdit(std::shared_ptr<PointDocument> document,
                     EditRequest request,
                     std::shared_ptr<MemoryReserve> reserve)
    : CompactTKGroupCmd(
          document, std::exchange(request.makeCommand, nullptr), [this] { return describe(); }),
      m_document(std::move(document)),
      m_reserve(std::move(reserve)),
      m_request(std::move(request))
{}

void GroupEdit::execute()
{
  doAllOrNothing([this] { CompactTKGroupCmd::execute(); });
  try {
    if (m_request.subject)
      m_subject = m_request.subject();
  } catch (...) { // NOLINT(bugprone-empty-catch): the command is done, and a name is not worth it
  }
  m_request.subject = nullptr;
}

void GroupEdit::undo()
{
  checkInterruption(); // of several steps: the history takes back those that are done
  doAllOrNothing([this] { CompactTKGroupCmd::undo(); });
}

void GroupEdit::redo()
{
  checkInterruption();
  doAllOrNothing([this] { CompactTKGroupCmd::redo(); });
}

/// A command that changes groups and the order reverses the first change when the second one fails.
/// If that fails as well, since there is no memory for it, the reserve has some.
template <class Action>
void GroupEdit::doAllOrNothing(Action action)
{
  if (m_request.bytesOfDocument == 0)
    return action();
  const RestorePoint before(*m_document);
  try {
    action();
  } catch (...) {
    if (!before.isHere()) {
      m_reserve->release();
      before.restore();
    }
    throw;
  }
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
  return m_subject.empty() ? description : translated("{}: {}", description, m_subject);
}

}
