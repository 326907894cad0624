// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/BaseClassRegister.h"

#include <cstdint>
#include <map>
#include <string>

namespace Tarvik {

class Caster;
struct RecordedArchive;

/// Records every call. Its state is in RecordedArchive and RecordedRegistry, for tests to read and
/// set.
class PersistenceArchiver {
public:
  static BaseClassRegister*
  registerFactory(const std::string& name, const BaseClassRegister& record, unsigned int version);
  static unsigned int getHashForName(const std::string& name);
  static void registerHash(unsigned int typeNameHash, unsigned int classHash);
  static unsigned int getHashForType(unsigned int typeNameHash);
  static bool registerCaster(unsigned int parentHash, unsigned int childHash, Caster* caster);
  static unsigned int getCurrentVersion(unsigned int reserved);

  explicit PersistenceArchiver(RecordedArchive& archive) : m_archive(archive) {}

  std::uint64_t tellp();
  void mark_object_start(unsigned int start, unsigned int classHash);
  void mark_object_end(unsigned int start, unsigned int end);
  void read_to_address_header(unsigned int& address, unsigned int& marker);
  void end_read_to_address(unsigned int marker);
  void check_container_size(unsigned int count);
  [[nodiscard]] PersistenceArchiver& operator<<(const unsigned int& value);
  [[nodiscard]] PersistenceArchiver& operator>>(unsigned int& value);
  std::map<unsigned int, BaseClassRegister>& classTable();

private:
  friend RecordedArchive& recorded(PersistenceArchiver& archive) { return archive.m_archive; }

  RecordedArchive& m_archive;
};

}
