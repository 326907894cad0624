// SPDX-License-Identifier: MIT
#pragma once

#include "PlatformExport.h"

#include <string>

namespace Tarvik {

/// Base class of objects with a name for the user.
///
/// A name is any text; it may be empty, and several objects may have the same.
class TKM_GENERALSERVICES_API NameInterface {
public:
  NameInterface(); ///< an empty name

  /// The name, byte for byte.
  NameInterface(const std::string& name);

  NameInterface(const NameInterface& other);
  NameInterface& operator=(const NameInterface& other);

  virtual ~NameInterface();

  /// Changes the name.
  /// @param name      may be the object's own name
  /// @param verbatim  true: keep every byte of the name; false: remove blanks and tabs at its ends,
  ///                  as for a name that a person has typed
  void setName(const std::string& name, bool verbatim);

  /// The name. The reference is valid until the object is destroyed.
  const std::string& getName() const { return m_name; }

  /// Copies the record of this class, which says how to save and load it. Registers it first if
  /// needed.
  /// @param out  the BaseClassRegister to overwrite
  static void serialization_register(void* out);

private:
  std::string m_name;
};

}
