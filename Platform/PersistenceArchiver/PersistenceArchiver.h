// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/ArchiveReader.h"
#include "PersistenceArchiver/ArchiveWriter.h"
#include "PersistenceArchiver/ArchivedTypes.h"
#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/ClassTable.h"
#include "PlatformExport.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <typeinfo>
#include <vector>

namespace Tarvik {

class Caster;
class LoadedObjects;
class SavedObjects;
struct SharedPointerAccess;

/// Writes values and objects into a growing block of bytes, or reads them back from one. Its static
/// operations register the classes of the objects. docs/archive-format.md describes the bytes.
///
/// Writing: fill the archive with `<<`, then take the bytes from finish(). Reading: give the bytes
/// to the constructor, which checks all of them, and read with `>>` in the same order.
///
/// An archive either writes or reads. To use it the other way is a std::logic_error, as is every
/// other mistake of the program. Bytes that are not what the reader needs are an ArchiveError, and
/// so is a value that does not fit into an archive. After an error, or any other exception from an
/// object or a list, only destroy the archive, or clear() one that is written; an object that was
/// being loaded may be partly loaded.
///
/// The program reads and writes the files. Use an archive from one thread at a time, the static
/// operations from any.
class TKM_PERSISTENCEARCHIVER_API PersistenceArchiver {
public:
  /// Registers a class under its name.
  /// @param name     unique among the classes of the program
  /// @param record   the class's record; its class hash is ignored
  /// @param version  the class's version
  /// @return the registered record, with its class hash, valid while the library is loaded. A class
  ///         that is registered again keeps its record, which gets the new entries if they differ.
  ///         Null when the name's hash belongs to another class or another version.
  static BaseClassRegister*
  registerFactory(const std::string& name, const BaseClassRegister& record, unsigned int version);

  /// The 32-bit hash of a name: the same in every process and on every machine.
  static unsigned int getHashForName(const std::string& name);

  /// Registers which class a type is.
  /// @param typeNameHash  getHashForName() of the name that the `std::type_info` gives
  /// @param classHash     of the record that registerFactory() returned
  static void registerHash(unsigned int typeNameHash, unsigned int classHash);

  /// The class registered for a type, or BaseClassRegister::unknownClassHash.
  static unsigned int getHashForType(unsigned int typeNameHash);

  /// Registers how pointers are converted between two classes. A pair that is already registered
  /// gets the new caster.
  /// @param parentHash  the base class
  /// @param childHash   the derived class
  /// @param caster  made by plain `new`; owned by the registry from now on, whatever the result. A
  ///                registered one is kept until the program ends, and its destructor is not run:
  ///                its code may have been unloaded before.
  /// @return whether the pair is registered now; false without a caster, and for the unknown class
  static bool registerCaster(unsigned int parentHash, unsigned int childHash, Caster* caster);

  /// The version for classes that are registered without one: that of the archive format.
  /// @param reserved  0
  static unsigned int getCurrentVersion(unsigned int reserved);

  /// Refuses by its first bytes what cannot be an archive, so that a program need not read all of a
  /// huge file to find that out.
  /// @param start  the first 20 bytes, or more; all of them when there are fewer
  /// @param size   how many bytes there are in all
  /// @throws ArchiveError when the constructor would refuse them for their beginning or their size
  static void checkStart(std::span<const std::byte> start, std::uint64_t size);

  /// An empty archive to write into.
  PersistenceArchiver();

  /// An archive to read from. Its frame, its checksum and its classes are checked at once.
  /// @param archive  what finish() returned; not copied, must outlive the archiver
  /// @throws ArchiveError when it is cut off, damaged or of another format, and when it holds
  ///         objects of a class that the program does not know, or not in that version
  explicit PersistenceArchiver(std::span<const std::byte> archive);

  PersistenceArchiver(const PersistenceArchiver&) = delete;
  PersistenceArchiver& operator=(const PersistenceArchiver&) = delete;
  ~PersistenceArchiver();

  /// Appends the class table and the checksum. Nothing can be written after this.
  /// @return the whole archive; valid until clear() or the destructor
  /// @throws std::logic_error when a frame is open, or something could not be written
  /// @throws ArchiveError when the class table or the checksum does not fit into the limit
  std::span<const std::byte> finish();

  /// Begins a new archive and keeps the memory of the last one.
  /// @throws std::logic_error in an archive that was opened for reading
  void clear();

  /// Lets the archive grow to this many bytes and no more: to write more is an ArchiveError.
  /// By default the limit is where 32-bit positions end, at 4 GiB less one byte.
  void limitSize(std::uint32_t bytes);

  /// The write position, in bytes from the beginning of the archive.
  std::uint64_t tellp() const noexcept;

  /// The read position, in bytes from the beginning of the archive.
  std::uint64_t tellg() const noexcept;

  /// Whether everything has been read: of the frame that is open, or else of the archive.
  bool isAtEnd() const noexcept;

  /// Opens a frame: a block with a class hash and a known length, which a reader may skip. Frames
  /// may be nested, 250 deep.
  /// @param start      tellp() + 4, cut to 32 bits
  /// @param classHash  any; a class that is registered enters the class table
  void mark_object_start(unsigned int start, unsigned int classHash);

  /// Closes the frame that was opened last.
  /// @param start  what mark_object_start() was given
  /// @param end    tellp(), cut to 32 bits
  void mark_object_end(unsigned int start, unsigned int end);

  /// Enters a frame. Read its class hash next.
  /// @param address  becomes the position of the class hash
  /// @param marker   becomes what end_read_to_address() needs
  void read_to_address_header(unsigned int& address, unsigned int& marker);

  /// Leaves the frame that was entered last, and skips what has not been read of it.
  void end_read_to_address(unsigned int marker);

  /// Refuses a number of elements that the rest of the frame cannot hold, by the least size of an
  /// object of the frame's class. Call it before you allocate memory for them.
  void check_container_size(unsigned int count);

  /// The classes met in the archive, by class hash. In an archive that is read, the read version of
  /// each is the version in which its objects were written. Load entries may add the classes that
  /// they look up.
  std::map<unsigned int, BaseClassRegister>& classTable() noexcept;

  /// @{
  /// Numbers follow one another, each with its lowest byte first on every machine.
  PersistenceArchiver& operator<<(const unsigned int& value);
  PersistenceArchiver& operator>>(unsigned int& value);
  template <ArchivedNumber Number>
  PersistenceArchiver& operator<<(const Number& value);
  template <ArchivedNumber Number>
  PersistenceArchiver& operator>>(Number& value);
  /// @}

  /// Other numbers would be cut to `unsigned int` without a warning.
  template <UnarchivedNumber Value>
  PersistenceArchiver& operator<<(const Value& value) = delete;

  /// @{
  /// A fixed number of numbers: the same bytes as one after the other, but in one step.
  template <ArchivedNumber Number, std::size_t size>
  PersistenceArchiver& operator<<(const std::array<Number, size>& numbers);
  template <ArchivedNumber Number, std::size_t size>
  PersistenceArchiver& operator>>(std::array<Number, size>& numbers);
  /// @}

  /// @{
  /// A text: its length in bytes as 32 bits, and the bytes. When reading throws, the text is
  /// unchanged.
  PersistenceArchiver& operator<<(const std::string& text);
  PersistenceArchiver& operator>>(std::string& text);
  /// @}

  /// @{
  /// A list: the number of elements as 32 bits, and each element as `<<` writes it alone. Reading
  /// makes the list as long as the one that was written, loads into the elements that are there
  /// and default-constructs those that are missing.
  template <class Element>
  PersistenceArchiver& operator<<(const std::vector<Element>& elements);
  template <class Element>
  PersistenceArchiver& operator>>(std::vector<Element>& elements);
  /// @}

  /// @{
  /// An object in a frame of its class, through the class's save and load entries, as one of
  /// exactly the class C.
  template <RegisteredClass C>
  PersistenceArchiver& operator<<(const C& object);
  template <RegisteredClass C>
  PersistenceArchiver& operator>>(C& object);
  /// @}

  /// @{
  /// A shared object of C or a class derived from C, or none: the object's number as 32 bits, 0 for
  /// none; when the number is new, the object follows in a frame of its class. What was shared is
  /// shared again, cycles included. The archive keeps a share of each object until clear() or its
  /// destructor, which release them from the last to the first. If C has no virtual operations, the
  /// archive cannot see an object's derived class, and saves it as a C.
  ///
  /// Loading an object as a class other than the one it was saved as needs a caster between the
  /// two. A polymorphic C needs a virtual destructor.
  template <RegisteredClass C>
  PersistenceArchiver& operator<<(const std::shared_ptr<C>& object);
  template <RegisteredClass C>
  PersistenceArchiver& operator>>(std::shared_ptr<C>& object);
  /// @}

private:
  template <class C>
  static BaseClassRegister recordOf();
  static void requireRegistered(const BaseClassRegister& record, const std::type_info& type);
  template <class Element>
  static constexpr std::size_t leastSizeOf();
  template <class Element, class Load>
  void loadEach(std::vector<Element>& elements, std::size_t count, Load load);

  void saveObject(BaseClassRegister& record);
  void loadObject(BaseClassRegister& record);
  void saveShared(const BaseClassRegister& declared, const std::shared_ptr<void>& object);
  std::shared_ptr<void> loadShared(const BaseClassRegister& declared,
                                   const SharedPointerAccess& access);

  // first: every value goes through one of them
  ArchiveReader m_reader; ///< unused in an archive that is written
  ArchiveWriter m_writer; ///< unused in an archive that is read
  ClassTable::Records m_classTable;
  std::unique_ptr<SavedObjects> m_savedObjects;
  std::unique_ptr<LoadedObjects> m_loadedObjects;
};

}

#include "PersistenceArchiver/ArchivedValues.h"
