// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "CommandPattern/HistoryEntry.h"
#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "GroupHosting/Providers/TKGroupProvider.h"
#include "QtModels/Editing/GroupRequest.h"
#include "QtModels/QtModelsExport.h"
#include "Translator/Translator.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

namespace Tarvik {

/// A request as a command for a history. It keeps only what has changed, knows how many bytes that
/// takes, and names what it was done to, as in "Create Group: Europe (10)". The words before the
/// colon follow a change of language.
template <class T>
class GroupStep : public CompactTKGroupCmd<T>, public HistoryEntry {
public:
  /// @param provider  owner of the groups, shared for the command's life; not null
  /// @param request   what to do; its functions are released after execute()
  GroupStep(std::shared_ptr<TKGroupProviderInterface<T>> provider, GroupRequest<T> request);
  ~GroupStep() override;

  void execute() override;

  std::size_t sizeInBytes() const override;
  bool hasChangedNothing() const override;

private:
  std::string describe() const;

  GroupRequest<T> m_request;
  std::string m_subject;
};

/// A handler that executes each request as a GroupStep in the history. Sets the history to drop
/// commands that have changed nothing, so that such a request leaves no step.
/// @param history   must outlive the handler
/// @param provider  owner of the groups, shared by the handler; not null
template <class T>
GroupRequestHandler<T> handlerIn(CommandHistory& history,
                                 std::shared_ptr<TKGroupProvider<T>> provider)
{
  history.setDropsCommandsWithoutChange(true);
  return [&history, provider = std::move(provider)](GroupRequest<T> request) {
    return history.execute(std::make_shared<GroupStep<T>>(provider, std::move(request)));
  };
}

template <class T>
GroupStep<T>::GroupStep(std::shared_ptr<TKGroupProviderInterface<T>> provider,
                        GroupRequest<T> request)
    : CompactTKGroupCmd<T>(std::move(provider),
                           std::exchange(request.makeCommand, nullptr),
                           [this] { return describe(); }),
      m_request(std::move(request))
{}

template <class T>
GroupStep<T>::~GroupStep() = default;

template <class T>
void GroupStep<T>::execute()
{
  CompactTKGroupCmd<T>::execute();
  try {
    if (m_request.subject)
      m_subject = m_request.subject();
  } catch (...) { // NOLINT(bugprone-empty-catch): the command is done, and a name is not worth it
  }
  m_request.subject = nullptr;
}

template <class T>
std::size_t GroupStep<T>::sizeInBytes() const
{
  return CompactTKGroupCmd<T>::sizeInBytes() + sizeof *this - sizeof(CompactTKGroupCmd<T>) +
         m_subject.capacity();
}

template <class T>
bool GroupStep<T>::hasChangedNothing() const
{
  return CompactTKGroupCmd<T>::hasChangedNothing();
}

template <class T>
std::string GroupStep<T>::describe() const
{
  auto description = Translator::translate(m_request.context, m_request.text, nullptr, -1);
  return m_subject.empty() ? description : description + ": " + m_subject;
}

extern template class TKM_QTMODELS_DECLARE GroupStep<Identifier>;
extern template class TKM_QTMODELS_DECLARE GroupStep<GUIdentifier>;

}
