// SPDX-License-Identifier: MIT
#pragma once

#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"
#include "Translator/Translator.h"

#include <array>

/// @file
/// What the program and the library of the check each see of the platform. Everything here is
/// compiled into both; both sides see the same platform if it exists once in the process.

#if defined(_WIN32) && defined(TKM_LIBRARY_SIDE)
#define TKM_LIBRARY_SIDE_API __declspec(dllexport)
#elif defined(_WIN32)
#define TKM_LIBRARY_SIDE_API __declspec(dllimport)
#else
#define TKM_LIBRARY_SIDE_API __attribute__((visibility("default")))
#endif

namespace Tarvik::PlatformCheck {

/// Enough new identifiers for two copies of a generator to repeat each other.
template <class T>
using NewIds = std::array<T, 100>;

/// Any function, to compare addresses.
using Function = void (*)();

/// The address of translate(); null when it is overloaded and so has no single one.
template <class C>
Function addressOfTranslate()
{
  if constexpr (requires { &C::translate; })
    return reinterpret_cast<Function>(&C::translate);
  else
    return nullptr;
}

constexpr const char* registeredName = "registered by the library of the platform check";
constexpr unsigned int registeredHash = 0x50434b31;

// What the library sees and does.
TKM_LIBRARY_SIDE_API void registerInLibrary(); ///< `registeredName`, as `registeredHash`
TKM_LIBRARY_SIDE_API void fillInLibrary(NewIds<Identifier>& ids);
TKM_LIBRARY_SIDE_API void fillInLibrary(NewIds<GUIdentifier>& ids);
TKM_LIBRARY_SIDE_API Function translateOfLibrary();

}
