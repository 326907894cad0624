// SPDX-License-Identifier: MIT
#include "GeneralServices/NameSetProvider.h"

namespace Tarvik {

NameSetProvider::NameSetProvider() = default;

NameSetProvider::NameSetProvider(const NameSetProvider& other) = default;

NameSetProvider& NameSetProvider::operator=(const NameSetProvider& other) = default;

NameSetProvider::~NameSetProvider() = default;

}
