// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// How PersistenceArchiver writes and reads numbers, lists, objects and shared objects: the
/// definitions of its templates. Included by PersistenceArchiver.h.

#include "PersistenceArchiver/ArchiveFormat.h"
#include "PersistenceArchiver/PersistenceArchiver.h" // IWYU pragma: keep
#include "PersistenceArchiver/SharedPointerAccess.h"
#include "PersistenceArchiver/WholeValue.h"

#include <algorithm>
#include <concepts>
#include <tuple>
#include <type_traits>

namespace Tarvik {

inline PersistenceArchiver& PersistenceArchiver::operator<<(const unsigned int& value)
{
  m_writer.append(value);
  return *this;
}

inline PersistenceArchiver& PersistenceArchiver::operator>>(unsigned int& value)
{
  value = m_reader.take<unsigned int>();
  return *this;
}

template <ArchivedNumber Number>
inline PersistenceArchiver& PersistenceArchiver::operator<<(const Number& value)
{
  m_writer.append(value);
  return *this;
}

template <ArchivedNumber Number>
inline PersistenceArchiver& PersistenceArchiver::operator>>(Number& value)
{
  value = m_reader.take<Number>();
  return *this;
}

template <ArchivedNumber Number, std::size_t size>
inline PersistenceArchiver& PersistenceArchiver::operator<<(const std::array<Number, size>& numbers)
{
  m_writer.append(std::span<const Number>(numbers));
  return *this;
}

template <ArchivedNumber Number, std::size_t size>
inline PersistenceArchiver& PersistenceArchiver::operator>>(std::array<Number, size>& numbers)
{
  m_reader.take(std::span<Number>(numbers));
  return *this;
}

template <class Element>
PersistenceArchiver& PersistenceArchiver::operator<<(const std::vector<Element>& elements)
{
  WholeValue list(m_writer);
  m_writer.appendCount(elements.size());
  if constexpr (RegisteredClass<Element> && !StreamedClass<Element>) {
    auto record = recordOf<Element>();
    for (const Element& element : elements) {
      record.object = const_cast<Element*>(&element); // saving does not change it
      saveObject(record);
    }
  } else if constexpr (ArchivedNumber<Element> && !std::same_as<Element, bool>) {
    m_writer.append(std::span<const Element>(elements));
  } else {
    for (const Element& element : elements)
      *this << element;
  }
  list.complete();
  return *this;
}

template <class Element>
PersistenceArchiver& PersistenceArchiver::operator>>(std::vector<Element>& elements)
{
  const auto count = m_reader.takeCount(leastSizeOf<Element>());
  if constexpr (std::same_as<Element, bool>) {
    elements.resize(count);
    std::generate(elements.begin(), elements.end(), [this] { return m_reader.take<bool>(); });
  } else if constexpr (ArchivedNumber<Element>) {
    elements.resize(count);
    m_reader.take(std::span<Element>(elements));
  } else if constexpr (RegisteredClass<Element> && !StreamedClass<Element>) {
    auto record = recordOf<Element>();
    loadEach(elements, count, [&](Element& element) {
      record.object = &element;
      loadObject(record);
    });
  } else {
    loadEach(elements, count, [this](Element& element) { *this >> element; });
  }
  return *this;
}

template <class Element, class Load>
void PersistenceArchiver::loadEach(std::vector<Element>& elements, std::size_t count, Load load)
{
  if (elements.size() > count)
    elements.erase(elements.begin() + static_cast<std::ptrdiff_t>(count), elements.end());
  std::for_each(elements.begin(), elements.end(), load);
  // Do not trust a count of large elements: reserve no more memory than the rest of the archive
  // has bytes, and let the list grow with what is really there.
  elements.reserve((std::min)(count, elements.size() + m_reader.remaining() / sizeof(Element)));
  while (elements.size() < count)
    load(elements.emplace_back());
}

template <RegisteredClass C>
PersistenceArchiver& PersistenceArchiver::operator<<(const C& object)
{
  WholeValue whole(m_writer);
  auto record = recordOf<C>();
  record.object = const_cast<C*>(&object); // saving does not change it
  saveObject(record);
  whole.complete();
  return *this;
}

template <RegisteredClass C>
PersistenceArchiver& PersistenceArchiver::operator>>(C& object)
{
  auto record = recordOf<C>();
  record.object = &object;
  loadObject(record);
  return *this;
}

template <RegisteredClass C>
PersistenceArchiver& PersistenceArchiver::operator<<(const std::shared_ptr<C>& object)
{
  WholeValue whole(m_writer);
  saveShared(recordOf<C>(), object);
  whole.complete();
  return *this;
}

template <RegisteredClass C>
PersistenceArchiver& PersistenceArchiver::operator>>(std::shared_ptr<C>& object)
{
  static_assert(!std::is_polymorphic_v<C> || std::has_virtual_destructor_v<C>,
                "objects of derived classes are destroyed as this one");

  object = std::static_pointer_cast<C>(loadShared(recordOf<C>(), sharedPointersTo<C>));
  return *this;
}

template <class C>
BaseClassRegister PersistenceArchiver::recordOf()
{
  BaseClassRegister record;
  C::serialization_register(&record);
  requireRegistered(record, typeid(C));
  return record;
}

/// The fewest bytes that an element takes. Shows whether a count can be true.
template <class Element>
constexpr std::size_t PersistenceArchiver::leastSizeOf()
{
  if constexpr (ArchivedNumber<Element>)
    return sizeof(Element);
  else if constexpr (StreamedClass<Element>)
    return 1;
  else if constexpr (RegisteredClass<Element>)
    return ArchiveFormat::frameHeaderSize;
  else if constexpr (requires { std::tuple_size<Element>::value; }) {
    static_assert(std::tuple_size_v<Element> > 0, "elements without bytes cannot be counted");
    return sizeof(Element); // numbers without a count
  } else
    return ArchiveFormat::wordSize; // all others begin with a count or an object's number
}

}
