// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <string>

namespace Tarvik {

/// Gives the classes that derive from it a name for the user to read.
///
/// A name is any text, the empty one included; nothing keeps two objects from having the same.
/// Copying an object copies its name and nothing else.
class TKM_GENERALSERVICES_API NameInterface {
public:
  /// An empty name.
  NameInterface();

  /// The name as given, byte for byte.
  NameInterface(const std::string& name);

  /// Copies the name.
  NameInterface(const NameInterface& other);

  /// Takes over the name.
  NameInterface& operator=(const NameInterface& other);

  virtual ~NameInterface();

  /// Changes the name.
  /// @param name      may be the object's own name
  /// @param verbatim  true: the name is taken as given, byte for byte; false: it is taken as
  ///                  something that a person typed, and blanks and tabs at its ends are dropped
  void setName(const std::string& name, bool verbatim);

  /// The name; the reference is valid as long as the object.
  const std::string& getName() const { return m_name; }

  /// Makes the class known to the archive, once, and tells how it is saved and loaded.
  /// @param out  a BaseClassRegister, which is overwritten with the class's record
  static void serialization_register(void* out);

private:
  std::string m_name;
};

}
