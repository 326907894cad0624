// SPDX-License-Identifier: MIT
// Compares what the program and the library see of the platform, and checks what a registry must
// allow. Fails with a line for each problem.

#include "Side.h"

#include "PersistenceArchiver/Caster.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

#ifdef TKM_CHECK_GROUPS
#include "HighLevelServices/Groups/TKGroup.h"

#include <typeinfo>
#endif

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>

namespace Tarvik::PlatformCheck {

namespace {

int problems = 0;
bool areThereTwo = false;

/// One line; while configuring, the user sees the lines with this start.
void report(const std::string& problem)
{
  std::cerr << "platform check: " << problem << std::endl;
  ++problems;
}

void reportTwo(const std::string& problem)
{
  report("There are two " + problem);
  areThereTwo = true;
}

unsigned int classOf(const std::string& typeName)
{
  return PersistenceArchiver::getHashForType(PersistenceArchiver::getHashForName(typeName));
}

void checkRegistry()
{
  registerInLibrary();
  if (classOf(registeredName) != registeredHash)
    reportTwo("registries: the program does not find what a library registers with "
              "PersistenceArchiver.");
}

template <class T>
void checkIds(const std::string& kind)
{
  NewIds<T> inProgram;
  NewIds<T> inLibrary;
  fillInLibrary(inLibrary);
  const bool repeat = std::any_of(inProgram.begin(), inProgram.end(), [&](const T& id) {
    return std::find(inLibrary.begin(), inLibrary.end(), id) != inLibrary.end();
  });
  if (repeat)
    reportTwo("sources of " + kind +
              "s: new ones made in a library equal new ones made in the program.");
}

/// Not on Windows, where the address may be that of a stub in each DLL.
void checkTranslator()
{
#if defined(TKM_CHECK_TRANSLATOR) && !defined(_WIN32)
  if (addressOfTranslate<Translator>() != translateOfLibrary())
    reportTwo("translators: Translator::translate() is compiled into the library and into the "
              "program, and each copy may have its own texts. If it keeps no state, set "
              "TKM_CHECK_TRANSLATOR=OFF.");
#endif
}

class NoConversion : public Caster {
public:
  void* toBase(void* derived) const override { return derived; }
  void* toDerived(void* base) const override { return base; }
};

/// The library registers a pair for saving and again for loading.
void checkCasters()
{
  for (const char* const time : {"first", "second"})
    if (!PersistenceArchiver::registerCaster(registeredHash, registeredHash + 1, new NoConversion))
      report(std::string("registerCaster() returns false for a pair that it is given for the ") +
             time + " time. It must return true each time.");
}

#ifdef TKM_CHECK_GROUPS
template <class T>
void checkGroups(const std::string& className)
{
  if (!TKGroup<T>::s_force_serialization_registration)
    report("registerFactory() refused the class " + className +
           " when HighLevelServices was loaded.");
  else if (classOf(typeid(TKGroup<T>).name()) == BaseClassRegister::unknownClassHash)
    report("The program does not find the class " + className +
           ", which HighLevelServices registered.");
}
#endif

}

}

int main()
{
  using namespace Tarvik;
  PlatformCheck::checkRegistry();
  PlatformCheck::checkIds<Identifier>("Identifier");
  PlatformCheck::checkIds<GUIdentifier>("GUIdentifier");
  PlatformCheck::checkTranslator();
  PlatformCheck::checkCasters();
#ifdef TKM_CHECK_GROUPS
  PlatformCheck::checkGroups<Identifier>("TKIdGroup");
  PlatformCheck::checkGroups<GUIdentifier>("TKGUIdGroup");
#endif
  if (PlatformCheck::areThereTwo)
    PlatformCheck::report(
        "The platform exists twice in the process. Build it as shared libraries, and "
        "do not define its state in headers.");
  return PlatformCheck::problems == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
