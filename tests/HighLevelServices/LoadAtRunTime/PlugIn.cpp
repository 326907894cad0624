// SPDX-License-Identifier: MIT
// A part of a program that is loaded when it is needed, and brings the libraries with it.

#include "CommandPattern/CommandHistory.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "PersistenceArchiver/BaseClassRegister.h"
#include "Translator/Translator.h"

#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#if defined(_WIN32)
#define PLUG_IN_EXPORT extern "C" __declspec(dllexport)
#else
#define PLUG_IN_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace Tarvik {
namespace {

/// Keeps groups, and has nothing else.
template <class T>
class Host : public TKGroupProviderInterface<T> {
public:
  std::vector<TKGroup<T>>& getGroups() override { return m_groups; }
  std::vector<T> getUngroupedElements() override { return {}; }
  void setGroups(const std::vector<TKGroup<T>>& groups) override { m_groups = groups; }
  std::shared_ptr<CommandBase> createMoveCommand(const T&, const std::vector<T>&, bool) override
  {
    return nullptr;
  }
  std::vector<std::pair<T, std::string>> getGroupMemberNames(const Identifier&) override
  {
    return {};
  }
  void renameGroup(const Identifier&, const std::string&) override {}
  std::string getElementName(const T&) override { return {}; }

private:
  std::vector<TKGroup<T>> m_groups;
};

template <class T>
bool groupsWork()
{
  const auto host = std::make_shared<Host<T>>();
  CommandHistory history;
  history.execute(std::make_shared<CreateTKGroupCmd<T>>(host, std::vector<T>{T(), T()}, "New"));
  history.execute(
      std::make_shared<RenameTKGroupCmd<T>>(host, Identifier::getInvalidId(), "No Group"));
  history.execute(std::make_shared<SortTKGroupsAlphabeticallyCmd<T>>(host));
  history.jumpTo(1);
  return history.undoDescription() == "translated" && host->getGroups().size() == 1;
}

template <class T>
bool isRegistered()
{
  BaseClassRegister record;
  T::serialization_register(&record);
  return record.classHash != BaseClassRegister::unknownClassHash;
}

/// A catalogue of the plug-in's own, which must not stay longer than the plug-in does.
class InstalledCatalogue {
public:
  InstalledCatalogue()
  {
    Translator::installCatalogue([](auto...) { return std::optional<std::string>("translated"); });
  }
  InstalledCatalogue(const InstalledCatalogue&) = delete;
  InstalledCatalogue& operator=(const InstalledCatalogue&) = delete;
  ~InstalledCatalogue() { Translator::installCatalogue({}); }
};

bool allWorks()
{
  const InstalledCatalogue catalogue;
  return groupsWork<Identifier>() && groupsWork<GUIdentifier>() && isRegistered<Identifier>() &&
         isRegistered<GUIdentifier>();
}

}
}

/// Uses something of each library.
/// @return whether it worked
PLUG_IN_EXPORT bool useTheLibraries()
{
  try {
    return Tarvik::allWorks();
  } catch (const std::exception&) {
    return false;
  }
}
