// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/Caster.h"

#include <cstddef>

namespace Tarvik {

/// Converts pointers between a class and its base by two plain functions.
///
/// Other code reads the fields at their offsets: keep the fields and their order.
template <class Base, class Derived, unsigned int, unsigned int>
class CasterAccess : public Caster {
public:
  using Conversion = void* (*)(void*);

  /// @param derivedToBase  takes a `Derived*`, returns a `Base*`
  /// @param baseToDerived  takes a `Base*`, returns a `Derived*`, or null when the object is of
  ///                       another class
  CasterAccess(Conversion derivedToBase, Conversion baseToDerived);

  void* toBase(void* derived) const override;
  void* toDerived(void* base) const override;

private:
  [[maybe_unused]] std::size_t m_reserved1 = 0;
  [[maybe_unused]] std::size_t m_reserved2 = 0;
  Conversion m_derivedToBase;
  Conversion m_baseToDerived;
};

template <class Base, class Derived, unsigned int I, unsigned int J>
CasterAccess<Base, Derived, I, J>::CasterAccess(Conversion derivedToBase, Conversion baseToDerived)
    : m_derivedToBase(derivedToBase), m_baseToDerived(baseToDerived)
{}

template <class Base, class Derived, unsigned int I, unsigned int J>
void* CasterAccess<Base, Derived, I, J>::toBase(void* derived) const
{
  return m_derivedToBase(derived);
}

template <class Base, class Derived, unsigned int I, unsigned int J>
void* CasterAccess<Base, Derived, I, J>::toDerived(void* base) const
{
  return m_baseToDerived(base);
}

}
