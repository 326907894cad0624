// SPDX-License-Identifier: MIT
#include "GeneralServices/NameInterface.h"

#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/ClassRegistration.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

namespace Tarvik {

namespace {

constexpr unsigned int classVersion = 1;

std::string trimmed(const std::string& text)
{
  constexpr const char* blanks = " \t";
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string::npos)
    return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

void loadName(PersistenceArchiver& archive, NameInterface& object, unsigned int /*version*/)
{
  std::string name;
  archive >> name;
  object.setName(name, true);
}

void saveName(PersistenceArchiver& archive, const NameInterface& object, unsigned int /*version*/)
{
  archive << object.getName();
}

const BaseClassRegister* registeredRecord()
{
  constexpr unsigned int leastSize = 4; // the length of an empty name
  static const auto* const registered =
      registerClass<NameInterface, loadName, saveName>("NameInterface", classVersion, leastSize);
  return registered;
}

/// Registers when the library is loaded: an archive may hold names before the program has made one.
[[maybe_unused]] const auto* const registeredAtLoad = registeredRecord();

}

NameInterface::NameInterface() = default;

NameInterface::NameInterface(const std::string& name) : m_name(name) {}

NameInterface::NameInterface(const NameInterface& other) = default;

NameInterface& NameInterface::operator=(const NameInterface& other) = default;

NameInterface::~NameInterface() = default;

void NameInterface::setName(const std::string& name, bool verbatim)
{
  if (verbatim)
    m_name = name;
  else
    m_name = trimmed(name);
}

void NameInterface::serialization_register(void* out)
{
  if (const auto* const registered = registeredRecord())
    *static_cast<BaseClassRegister*>(out) = *registered;
}

}
