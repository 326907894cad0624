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

/// Makes both kinds of groups known to the archive while the library is loaded. The order of static
/// members of templates is nobody's to rely on; here it is plain to see.
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

    // the archive keeps each caster: saving and loading have one of their own
    IdGroup::s_isParentRegisteredForSaving = IdGroup::registerCaster();
    IdGroup::s_isParentRegisteredForLoading = IdGroup::registerCaster();
    GUIdGroup::s_isParentRegisteredForSaving = GUIdGroup::registerCaster();
    GUIdGroup::s_isParentRegisteredForLoading = GUIdGroup::registerCaster();
  }
};

const RegistrationAtLoad registrationAtLoad;

}

}
