// SPDX-License-Identifier: MIT
#include "GeneralServices/NameInterface.h"

#include "PersistenceArchiver/BaseClassRegister.h"
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

void loadName(PersistenceArchiver& archive, BaseClassRegister& record)
{
  std::string name;
  archive >> name;
  static_cast<NameInterface*>(record.object)->setName(name, true);
}

void saveName(PersistenceArchiver& archive, BaseClassRegister& record)
{
  archive << static_cast<const NameInterface*>(record.object)->getName();
}

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
  static const BaseClassRegister* const registered =
      PersistenceArchiver::registerFactory("NameInterface",
                                           {.load = &loadName,
                                            .save = &saveName,
                                            .create = []() -> void* { return new NameInterface; },
                                            .writeVersion = classVersion,
                                            .readVersion = classVersion},
                                           classVersion);
  if (registered != nullptr)
    *static_cast<BaseClassRegister*>(out) = *registered;
}

}
