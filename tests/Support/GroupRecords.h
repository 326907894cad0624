// SPDX-License-Identifier: MIT
#pragma once

#include "HighLevelServices/Groups/TKGroup.h"
#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/PersistenceArchiver.h"

#include <string>
#include <type_traits>
#include <typeinfo>

/// How tests reach the class records of groups, on any platform.
namespace Tarvik {

/// The record that a class fills; in its default state when it fills none.
template <class C>
BaseClassRegister recordOf()
{
  BaseClassRegister record;
  C::serialization_register(&record);
  return record;
}

template <class T>
std::string groupClassName()
{
  return std::is_same_v<T, Identifier> ? "TKIdGroup" : "TKGUIdGroup";
}

/// The hash of a type's name.
template <class C>
unsigned int typeNameHash()
{
  return PersistenceArchiver::getHashForName(typeid(C).name());
}

/// The class hash that the record finds for the object.
template <class C>
unsigned int runtimeClassOf(const BaseClassRegister& asked, C& object)
{
  auto record = asked;
  record.object = &object;
  return record.runtimeClass(record);
}

}
