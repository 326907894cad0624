// SPDX-License-Identifier: MIT
#include "HighLevelServices/Groups/TKGroupPersistence.h"

namespace Tarvik {

unsigned int GroupPersistence::versionOrCurrent(unsigned int requested)
{
  return requested != noVersion ? requested : PersistenceArchiver::getCurrentVersion(0);
}

template class GroupRegistration<Identifier>;
template class GroupRegistration<GUIdentifier>;

namespace {

/// Registers both kinds of groups while the library is loaded, in this order: static members of
/// templates have no order that we could rely on.
struct RegistrationAtLoad {
  RegistrationAtLoad()
  {
    using IdGroup = GroupRegistration<Identifier>;
    using GUIdGroup = GroupRegistration<GUIdentifier>;

    IdGroup::s_classHash = IdGroup::registeredClassHash();
    TKGroup<Identifier>::s_force_serialization_registration = IdGroup::registerClass() != nullptr;
    GUIdGroup::s_classHash = GUIdGroup::registeredClassHash();
    TKGroup<GUIdentifier>::s_force_serialization_registration =
        GUIdGroup::registerClass() != nullptr;

    // the archive owns each caster, so saving and loading need one each
    IdGroup::s_isParentRegisteredForSaving = IdGroup::registerCaster();
    IdGroup::s_isParentRegisteredForLoading = IdGroup::registerCaster();
    GUIdGroup::s_isParentRegisteredForSaving = GUIdGroup::registerCaster();
    GUIdGroup::s_isParentRegisteredForLoading = GUIdGroup::registerCaster();
  }
};

const RegistrationAtLoad registrationAtLoad;

}

}
