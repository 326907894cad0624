// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

/// Looking into a DLL of Windows.
namespace Tarvik::ImportTable {

/// A loaded DLL.
inline HMODULE module(const std::string& name)
{
  const HMODULE result = GetModuleHandleA(name.c_str());
  if (result == nullptr)
    throw std::logic_error(name + " is not loaded");
  return result;
}

/// What is at that offset in the DLL.
template <class T>
T* at(HMODULE dll, std::size_t offset)
{
  return reinterpret_cast<T*>(reinterpret_cast<std::byte*>(dll) + offset);
}

/// The first of the libraries that the DLL imports from; an empty entry follows the last one.
inline const IMAGE_IMPORT_DESCRIPTOR* firstLibrary(HMODULE dll)
{
  const auto* const headers =
      at<IMAGE_NT_HEADERS64>(dll, static_cast<std::size_t>(at<IMAGE_DOS_HEADER>(dll, 0)->e_lfanew));
  const auto& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  return at<IMAGE_IMPORT_DESCRIPTOR>(dll, table.VirtualAddress);
}

/// The names of all libraries that the DLL imports from.
inline std::vector<std::string> libraries(HMODULE dll)
{
  std::vector<std::string> names;
  for (const auto* library = firstLibrary(dll); library->FirstThunk != 0; ++library)
    names.emplace_back(at<char>(dll, library->Name));
  return names;
}

/// The place where the DLL keeps the address of an imported function.
inline ULONGLONG& entry(HMODULE dll, ULONGLONG function)
{
  for (const auto* library = firstLibrary(dll); library->FirstThunk != 0; ++library)
    for (auto* thunk = at<IMAGE_THUNK_DATA64>(dll, library->FirstThunk); thunk->u1.Function != 0;
         ++thunk)
      if (thunk->u1.Function == function)
        return thunk->u1.Function;
  throw std::logic_error("the DLL does not import the function");
}

/// Makes a DLL call another function instead of an imported one.
template <class Function>
void redirect(HMODULE user, HMODULE owner, const char* name, Function* replacement)
{
  auto& place = entry(user, reinterpret_cast<ULONGLONG>(GetProcAddress(owner, name)));
  DWORD protection = 0;
  VirtualProtect(&place, sizeof place, PAGE_READWRITE, &protection);
  place = reinterpret_cast<ULONGLONG>(replacement);
  VirtualProtect(&place, sizeof place, protection, &protection);
}

}
