// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace Tarvik {

/// A shared library that is loaded for as long as this lives, unless others need it longer.
class Library {
public:
  explicit Library(const std::string& file) : m_handle(load(file))
  {
    if (m_handle == nullptr)
      throw std::runtime_error("cannot load " + file + ": " + reason());
  }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
  ~Library() { unload(m_handle); }

  /// A function of the library with C linkage.
  template <class Function>
  Function* function(const std::string& name) const
  {
    void* const address = find(m_handle, name);
    if (address == nullptr)
      throw std::runtime_error("no function " + name + ": " + reason());
    return reinterpret_cast<Function*>(address);
  }

  static bool isLoaded(const std::string& file);

private:
#if defined(_WIN32)
  using Handle = HMODULE;
  static std::wstring path(const std::string& file) // these functions want backslashes
  {
    return std::filesystem::path(file).make_preferred().wstring();
  }
  static Handle load(const std::string& file)
  {
    return LoadLibraryW(path(file).c_str());
  }
  static void unload(Handle handle)
  {
    FreeLibrary(handle);
  }
  static void* find(Handle handle, const std::string& name)
  {
    return reinterpret_cast<void*>(GetProcAddress(handle, name.c_str()));
  }
  static std::string reason()
  {
    return "error " + std::to_string(GetLastError());
  }
#else
  using Handle = void*;
  static Handle load(const std::string& file)
  {
    return dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  }
  static void unload(Handle handle)
  {
    dlclose(handle);
  }
  static void* find(Handle handle, const std::string& name)
  {
    return dlsym(handle, name.c_str());
  }
  static std::string reason()
  {
    return dlerror();
  }
#endif

  Handle m_handle;
};

inline bool Library::isLoaded(const std::string& file)
{
#if defined(_WIN32)
  return GetModuleHandleW(path(file).c_str()) != nullptr;
#else
  void* const handle = dlopen(file.c_str(), RTLD_LAZY | RTLD_NOLOAD);
  if (handle != nullptr)
    dlclose(handle);
  return handle != nullptr;
#endif
}

}
