// SPDX-License-Identifier: MIT
#include "GeneralServices/SimpleNameSetProvider.h"

namespace Tarvik {

SimpleNameSetProvider::SimpleNameSetProvider(const SimpleNameSetProvider& other) = default;

SimpleNameSetProvider&
SimpleNameSetProvider::operator=(const SimpleNameSetProvider& other) = default;

SimpleNameSetProvider::~SimpleNameSetProvider() = default;

SimpleNameSetProvider& SimpleNameSetProvider::addName(const std::string& name)
{
  m_names.insert(name);
  return *this;
}

bool SimpleNameSetProvider::contains(std::string_view name) const
{
  return m_names.find(name) != m_names.end();
}

}
