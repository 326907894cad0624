// SPDX-License-Identifier: MIT
#include "CommandPattern/EntryList.h"

#include <utility>

namespace Tarvik {

namespace {

template <class T>
auto placeOf(std::vector<T>& places, std::size_t index) noexcept
{
  return places.begin() + static_cast<std::ptrdiff_t>(index);
}

}

void EntryList::makeRoom()
{
  if (m_commands.size() < m_commands.capacity() && m_sizes.size() < m_sizes.capacity())
    return;
  closeGap();
  const std::size_t places = 2 * size() + 1;
  m_commands.reserve(places);
  m_sizes.reserve(places);
}

void EntryList::append(std::shared_ptr<CommandBase> command, std::size_t size) noexcept
{
  m_commands.push_back(std::move(command));
  m_sizes.push_back(size);
  m_bytes.add(size);
  ++m_position;
}

void EntryList::setSizeBefore(std::size_t size) noexcept
{
  m_bytes.subtract(sizeBefore());
  m_bytes.add(size);
  m_sizes[m_first + m_position - 1] = size;
}

std::shared_ptr<CommandBase> EntryList::takeFirst() noexcept
{
  --m_position;
  ++m_firstState;
  if (m_cleanPosition == std::size_t(0))
    m_cleanPosition.reset();
  else if (m_cleanPosition)
    --*m_cleanPosition;
  m_bytes.subtract(m_sizes[m_first]);
  return std::move(m_commands[m_first++]);
}

std::shared_ptr<CommandBase> EntryList::takeLast() noexcept
{
  if (m_cleanPosition == size())
    m_cleanPosition.reset();
  return takeAt(size() - 1);
}

std::shared_ptr<CommandBase> EntryList::takeBefore() noexcept
{
  --m_position;
  return takeAfter();
}

std::shared_ptr<CommandBase> EntryList::takeAfter() noexcept
{
  if (m_cleanPosition > m_position)
    --*m_cleanPosition;
  return takeAt(m_position);
}

void EntryList::startHere() noexcept
{
  m_cleanPosition = isClean() ? std::optional<std::size_t>(0) : std::nullopt;
  m_firstState += m_position;
  m_position = 0;
}

void EntryList::freeMemory() noexcept
{
  std::vector<std::shared_ptr<CommandBase>>().swap(m_commands);
  std::vector<std::size_t>().swap(m_sizes);
  m_first = 0;
}

std::shared_ptr<CommandBase> EntryList::takeAt(std::size_t index) noexcept
{
  const std::size_t place = m_first + index;
  auto taken = std::move(m_commands[place]);
  m_bytes.subtract(m_sizes[place]);
  m_commands.erase(placeOf(m_commands, place));
  m_sizes.erase(placeOf(m_sizes, place));
  return taken;
}

void EntryList::closeGap() noexcept
{
  m_commands.erase(m_commands.begin(), placeOf(m_commands, m_first));
  m_sizes.erase(m_sizes.begin(), placeOf(m_sizes, m_first));
  m_first = 0;
}

}
