// SPDX-License-Identifier: MIT
// A part of a program that is loaded when it is needed, and brings the libraries with it.

#include "CommandPattern/CommandHistory.h"
#include "HighLevelServices/GroupCommands/CreateTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/RenameTKGroupCmd.h"
#include "HighLevelServices/GroupCommands/SortTKGroupsAlphabeticallyCmd.h"
#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/PersistenceArchiver.h"
#include "Translator/Translator.h"

#include <cstddef>
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

/// Where the library of the class was loaded, or near to it.
template <class C>
void* placeOf()
{
  BaseClassRegister record;
  C::serialization_register(&record);
  return reinterpret_cast<void*>(record.save);
}

/// The plug-in's own catalogue, which must not outlive the plug-in.
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

/// Groups as a document has them: by value, and shared as groups and as names.
struct SavedGroups {
  std::vector<TKGroup<Identifier>> groups;
  std::shared_ptr<TKGroup<GUIdentifier>> shared;
  std::shared_ptr<NameInterface> name;
};

SavedGroups newGroups()
{
  const auto shared = std::make_shared<TKGroup<GUIdentifier>>("Valves");
  SavedGroups saved{.groups = {TKGroup<Identifier>("Pumps")}, .shared = shared, .name = shared};
  saved.groups.front().addGroupMember(Identifier());
  return saved;
}

std::vector<std::byte> bytesOf(const SavedGroups& saved)
{
  PersistenceArchiver archive;
  archive << saved.groups << saved.shared << saved.name;
  const auto bytes = archive.finish();
  return {bytes.begin(), bytes.end()};
}

SavedGroups loadedFrom(const std::vector<std::byte>& bytes)
{
  SavedGroups loaded;
  PersistenceArchiver archive(bytes);
  archive >> loaded.groups >> loaded.shared >> loaded.name;
  return loaded;
}

bool areWhole(const SavedGroups& saved)
{
  return saved.groups.size() == 1 && saved.groups.front().getName() == "Pumps" &&
         saved.groups.front().numberOfGroupMembers() == 1 && saved.shared &&
         saved.shared->getName() == "Valves" && saved.name == saved.shared;
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

/// Loads the groups that an earlier call has saved, if there was one, and saves some.
/// @param bytes  what the earlier call saved, or nothing; gets what this call saves
/// @return whether it worked
PLUG_IN_EXPORT bool loadAndSaveGroups(std::vector<std::byte>& bytes)
{
  try {
    const bool isFirst = bytes.empty();
    const auto groups = isFirst ? Tarvik::newGroups() : Tarvik::loadedFrom(bytes);
    auto saved = Tarvik::bytesOf(groups);
    const bool isAsBefore = isFirst || saved == bytes;
    bytes.swap(saved);
    return isAsBefore && Tarvik::areWhole(groups);
  } catch (const std::exception&) {
    return false;
  }
}

/// @param places  gets the addresses of code that is registered with the archive
PLUG_IN_EXPORT void tellPlaces(std::vector<void*>& places)
{
  using namespace Tarvik;
  places = {placeOf<TKGroup<Identifier>>(), placeOf<NameInterface>(), placeOf<Identifier>()};
}
