// SPDX-License-Identifier: MIT
// Takes the place of HighLevelServices: a shared library on the platform, built with the same
// settings.

#include "Side.h"

#include "PersistenceArchiver/PersistenceArchiver.h"

namespace Tarvik::PlatformCheck {

void registerInLibrary()
{
  PersistenceArchiver::registerHash(PersistenceArchiver::getHashForName(registeredName),
                                    registeredHash);
}

void fillInLibrary(NewIds<Identifier>& ids)
{
  for (auto& id : ids)
    id = Identifier();
}

void fillInLibrary(NewIds<GUIdentifier>& ids)
{
  for (auto& id : ids)
    id = GUIdentifier();
}

Function translateOfLibrary()
{
  return addressOfTranslate<Translator>();
}

}
