// SPDX-License-Identifier: MIT
#pragma once

#include "PersistenceArchiver/BaseClassRegister.h"
#include "PersistenceArchiver/LittleEndian.h"
#include "PersistenceArchiver/MapContainer.h"
#include "PlatformExport.h"

#include <algorithm>
#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <tuple>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

namespace Tarvik {

class Caster;
class PersistenceArchiver;

/// The numbers that an archive takes: those of the same size on every machine. `bool` takes one
/// byte, `double` is written as the 64 bits of IEEE 754.
template <class Value>
concept ArchivedNumber = std::same_as<Value, bool> || std::same_as<Value, double> ||
    std::same_as<Value, std::int8_t> || std::same_as<Value, std::uint8_t> ||
    std::same_as<Value, std::int16_t> || std::same_as<Value, std::uint16_t> ||
    std::same_as<Value, std::int32_t> || std::same_as<Value, std::uint32_t> ||
    std::same_as<Value, std::int64_t> || std::same_as<Value, std::uint64_t>;

/// The numbers that an archive does not take.
template <class Value>
concept UnarchivedNumber =
    !ArchivedNumber<Value> && (std::is_arithmetic_v<Value> || std::is_enum_v<Value>);

/// A class that brings stream operators of its own for the archive. In a list, each object must
/// take a byte or more.
template <class C>
concept StreamedClass = requires(PersistenceArchiver& archive, C& object)
{
  operator<<(archive, std::as_const(object));
  operator>>(archive, object);
};

/// A class that fills a record of itself: see registerClass() in ClassRegistration.h.
template <class C>
concept RegisteredClass = requires(void* record)
{
  C::serialization_register(record);
};

/// Writes values and objects into a growing block of bytes, or reads them back from one, and knows
/// the classes whose objects take part. docs/archive-format.md describes the bytes.
///
/// Writing: fill the archive with `<<`, then take the bytes from finish(). Reading: give the bytes
/// to the constructor, which checks all of them, and read with `>>` in the same order. An archive
/// either writes or reads; using it the other way is a std::logic_error, as is every other mistake
/// of the program. Bytes that are not what the reader needs are an ArchiveError, and so is what
/// does not fit into an archive. After either, and after any other exception that comes out of
/// writing an object or a list, the archive is good for destruction only, one that is written for
/// clear() as well, and the object at hand may be partly loaded.
///
/// Files are the program's affair. One thread at a time; the class registry may be used from any
/// thread.
class TKM_PERSISTENCEARCHIVER_API PersistenceArchiver {
public:
  /// Makes a class known under its name.
  /// @param name     unique among the classes of the program
  /// @param record   the class's record; its class hash is ignored
  /// @param version  the class's version
  /// @return the registered record, with its class hash, valid while the library is loaded. A class
  ///         that is registered again keeps its record, which gets the new entries if they are
  ///         others. Null when the name's hash stands for another class or another version.
  static BaseClassRegister*
  registerFactory(const std::string& name, const BaseClassRegister& record, unsigned int version);

  /// The 32-bit hash of a name: the same in every process and on every machine.
  static unsigned int getHashForName(const std::string& name);

  /// Remembers which class a type is.
  /// @param typeNameHash  getHashForName() of the name that the `std::type_info` gives
  /// @param classHash     of the record that registerFactory() returned
  static void registerHash(unsigned int typeNameHash, unsigned int classHash);

  /// The class registered for a type, or BaseClassRegister::unknownClassHash.
  static unsigned int getHashForType(unsigned int typeNameHash);

  /// Tells how pointers are converted between two classes. A pair that is known gets the new
  /// caster.
  /// @param parentHash  the class that the other is derived from
  /// @param childHash   the derived class
  /// @param caster  made by plain `new`; owned by the registry from now on, whatever the answer. A
  ///                registered one lives for good, and its destructor is not run: its code may have
  ///                been unloaded before.
  /// @return whether the pair is known now; false without a caster, and for the unknown class
  static bool registerCaster(unsigned int parentHash, unsigned int childHash, Caster* caster);

  /// The version of classes that ask for none of their own when they are registered: that of the
  /// archive format.
  /// @param reserved  0
  static unsigned int getCurrentVersion(unsigned int reserved);

  /// An empty archive to write into.
  PersistenceArchiver();

  /// An archive to read from. Its frame, its checksum and its classes are checked at once.
  /// @param archive  what finish() gave; not copied, must outlive the archive
  /// @throws ArchiveError when it is cut off, damaged or of another format, and when it holds
  ///         objects of a class that the program does not know, or not in that version
  explicit PersistenceArchiver(std::span<const std::byte> archive);

  PersistenceArchiver(const PersistenceArchiver&) = delete;
  PersistenceArchiver& operator=(const PersistenceArchiver&) = delete;
  ~PersistenceArchiver();

  /// Completes what was written by the class table and the checksum. Nothing can be written behind.
  /// @return the whole archive; valid until clear() or the destructor
  /// @throws std::logic_error when a frame is open, or something could not be written
  /// @throws ArchiveError when the class table or the checksum does not fit into the limit
  std::span<const std::byte> finish();

  /// Begins a new archive and keeps the memory of the last one.
  /// @throws std::logic_error in an archive that was opened for reading
  void clear();

  /// Lets the archive grow to so many bytes and no more; what is written beyond is an ArchiveError.
  /// Without it the limit is where 32-bit positions end, at 4 GiB less one byte.
  void limitSize(std::uint32_t bytes);

  /// The write position, in bytes from the beginning of the archive.
  std::uint64_t tellp() const noexcept;

  /// The read position, in bytes from the beginning of the archive.
  std::uint64_t tellg() const noexcept;

  /// Whether all has been read, of the frame that is being read or else of the archive.
  bool isAtEnd() const noexcept;

  /// Opens a frame: a block of known length that begins with a class hash, and whose rest a reader
  /// may skip. Frames may be nested, 250 deep.
  /// @param start      tellp() + 4, cut to 32 bits
  /// @param classHash  any; a class that is registered enters the class table
  void mark_object_start(unsigned int start, unsigned int classHash);

  /// Closes the frame that was opened last.
  /// @param start  what mark_object_start() was given
  /// @param end    tellp(), cut to 32 bits
  void mark_object_end(unsigned int start, unsigned int end);

  /// Enters a frame. What is to be read first in it is its class hash.
  /// @param address  becomes the position of the class hash
  /// @param marker   becomes what end_read_to_address() needs
  void read_to_address_header(unsigned int& address, unsigned int& marker);

  /// Leaves the frame that was entered last, and skips what has not been read of it.
  void end_read_to_address(unsigned int marker);

  /// Refuses a number of elements that the rest of the frame cannot hold, by the least size of an
  /// object of the frame's class. To be called before memory is allocated for them.
  void check_container_size(unsigned int count);

  /// The classes met in the archive, by class hash. In an archive that is read, each has the
  /// version in which its objects were written as its read version. Load entries may add entries
  /// for what they look up.
  std::map<unsigned int, BaseClassRegister>& classTable() noexcept;

  /// @{
  /// Numbers stand one after the other, their lowest byte first on every machine.
  PersistenceArchiver& operator<<(const unsigned int& value);
  PersistenceArchiver& operator>>(unsigned int& value);
  template <ArchivedNumber Number>
  PersistenceArchiver& operator<<(const Number& value);
  template <ArchivedNumber Number>
  PersistenceArchiver& operator>>(Number& value);
  /// @}

  /// Others are not cut to `unsigned int` in silence.
  template <UnarchivedNumber Value>
  PersistenceArchiver& operator<<(const Value& value) = delete;

  /// @{
  /// A fixed number of numbers, as if one after the other, in one step.
  template <ArchivedNumber Number, std::size_t size>
  PersistenceArchiver& operator<<(const std::array<Number, size>& numbers);
  template <ArchivedNumber Number, std::size_t size>
  PersistenceArchiver& operator>>(std::array<Number, size>& numbers);
  /// @}

  /// @{
  /// A text: its length in bytes as 32 bits, and the bytes. A reader that throws leaves it as it
  /// was.
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
  /// A shared object, whatever class derived from C it has, or none: the object's number as 32
  /// bits, 0 for none; behind a number that comes for the first time the object in a frame of its
  /// class. What was shared is shared again, cycles included. The archive keeps a share of each
  /// object until clear() or its destructor. Without virtual operations in C, nothing tells of what
  /// derived class an object is: it is saved as a C.
  ///
  /// To load an object as another class than it was saved as, one needs a caster between them; a
  /// polymorphic C needs a virtual destructor.
  template <RegisteredClass C>
  PersistenceArchiver& operator<<(const std::shared_ptr<C>& object);
  template <RegisteredClass C>
  PersistenceArchiver& operator>>(std::shared_ptr<C>& object);
  /// @}

private:
  enum class State { Writing, Failed, Finished, Reading };
  struct Frame;
  struct SharedObject;
  struct SharedObjects;

  template <class C>
  static BaseClassRegister recordOf();
  static void requireRegistered(const BaseClassRegister& record, const std::type_info& type);
  template <class Element>
  static constexpr std::size_t leastSizeOf();

  template <ArchivedNumber Number>
  static void store(std::byte* place, Number value);
  template <ArchivedNumber Number>
  Number load(const std::byte* place) const;
  template <ArchivedNumber Number>
  void append(Number value);
  template <ArchivedNumber Number>
  Number take();
  template <ArchivedNumber Number>
  void appendAll(std::span<const Number> numbers);
  template <ArchivedNumber Number>
  void takeAll(std::span<Number> numbers);
  bool loadBool(const std::byte* place) const;
  template <class Element, class Load>
  void loadEach(std::vector<Element>& elements, std::size_t count, Load load);
  void appendCount(std::size_t count);
  std::size_t takeCount(std::size_t leastSizeOfElement);
  template <class Write>
  void writeWhole(Write write);
  void giveUpWriting() noexcept;
  std::byte* makeRoom(std::size_t count);
  const std::byte* takeBytes(std::size_t count);
  std::size_t remaining() const noexcept;
  void grow(std::size_t count);
  void requireWriting() const;
  void requireReading() const;
  [[noreturn]] void refuseToRead(std::size_t count) const;

  void saveObject(BaseClassRegister& record);
  void loadObject(BaseClassRegister& record);
  void callLoadEntry(BaseClassRegister& record);

  void saveShared(const BaseClassRegister& declared, const std::shared_ptr<void>& object);
  template <class C>
  std::shared_ptr<C> loadShared(const BaseClassRegister& declared, unsigned int number);
  unsigned int takeObjectNumber();
  MapContainer* pointersOf(const BaseClassRegister& declared);
  const SharedObject* knownObject(unsigned int number) const;
  static const std::shared_ptr<void>& ownerOf(const SharedObject& object);
  void* convert(const SharedObject& object, const BaseClassRegister& declared) const;
  void* createObject(const BaseClassRegister& declared);
  void keepObject(std::shared_ptr<void> owner);
  void loadKeptObject(unsigned int number);

  void beginArchive();
  void openArchive();
  void readClassTable(const std::byte* end);
  void addToClassTable(unsigned int classHash);

  std::byte* m_writePosition = nullptr;
  std::byte* m_writeEnd = nullptr;
  const std::byte* m_readPosition = nullptr;
  const std::byte* m_readEnd = nullptr; ///< of the frame that is being read, or of the body
  State m_state;
  std::unique_ptr<std::byte[]> m_memory; // NOLINT(modernize-avoid-c-arrays): not filled with zeros
  std::size_t m_capacity = 0;
  std::size_t m_limit;
  std::span<const std::byte> m_source;
  std::vector<Frame> m_frames; ///< the open ones, the innermost last
  std::map<unsigned int, BaseClassRegister> m_classTable;
  std::unique_ptr<SharedObjects> m_sharedObjects;
};

/// Does something in several steps; when one of them throws, the archive lacks the others and must
/// not be finished.
template <class Write>
inline void PersistenceArchiver::writeWhole(Write write)
{
  try {
    write();
  } catch (...) {
    giveUpWriting();
    throw;
  }
}

inline std::byte* PersistenceArchiver::makeRoom(std::size_t count)
{
  if (static_cast<std::size_t>(m_writeEnd - m_writePosition) < count)
    grow(count);
  return std::exchange(m_writePosition, m_writePosition + count);
}

inline std::size_t PersistenceArchiver::remaining() const noexcept
{
  return static_cast<std::size_t>(m_readEnd - m_readPosition);
}

inline const std::byte* PersistenceArchiver::takeBytes(std::size_t count)
{
  if (remaining() < count)
    refuseToRead(count);
  return std::exchange(m_readPosition, m_readPosition + count);
}

template <ArchivedNumber Number>
inline void PersistenceArchiver::store(std::byte* place, Number value)
{
  if constexpr (std::same_as<Number, bool>)
    storeLittleEndian(place, static_cast<std::uint8_t>(value));
  else if constexpr (std::same_as<Number, double>)
    storeLittleEndian(place, std::bit_cast<std::uint64_t>(value));
  else
    storeLittleEndian(place, value);
}

template <ArchivedNumber Number>
inline Number PersistenceArchiver::load(const std::byte* place) const
{
  if constexpr (std::same_as<Number, bool>)
    return loadBool(place);
  else if constexpr (std::same_as<Number, double>)
    return std::bit_cast<double>(loadLittleEndian<std::uint64_t>(place));
  else
    return loadLittleEndian<Number>(place);
}

template <ArchivedNumber Number>
inline void PersistenceArchiver::append(Number value)
{
  store(makeRoom(sizeof value), value);
}

template <ArchivedNumber Number>
inline Number PersistenceArchiver::take()
{
  return load<Number>(takeBytes(sizeof(Number)));
}

template <ArchivedNumber Number>
inline void PersistenceArchiver::appendAll(std::span<const Number> numbers)
{
  auto* place = makeRoom(numbers.size_bytes());
  for (const auto number : numbers) {
    store(place, number);
    place += sizeof number;
  }
}

template <ArchivedNumber Number>
inline void PersistenceArchiver::takeAll(std::span<Number> numbers)
{
  const auto* place = takeBytes(numbers.size_bytes());
  for (auto& number : numbers) {
    number = load<Number>(place);
    place += sizeof number;
  }
}

inline PersistenceArchiver& PersistenceArchiver::operator<<(const unsigned int& value)
{
  append(value);
  return *this;
}

inline PersistenceArchiver& PersistenceArchiver::operator>>(unsigned int& value)
{
  value = take<unsigned int>();
  return *this;
}

template <ArchivedNumber Number>
inline PersistenceArchiver& PersistenceArchiver::operator<<(const Number& value)
{
  append(value);
  return *this;
}

template <ArchivedNumber Number>
inline PersistenceArchiver& PersistenceArchiver::operator>>(Number& value)
{
  value = take<Number>();
  return *this;
}

template <ArchivedNumber Number, std::size_t size>
inline PersistenceArchiver& PersistenceArchiver::operator<<(const std::array<Number, size>& numbers)
{
  appendAll(std::span<const Number>(numbers));
  return *this;
}

template <ArchivedNumber Number, std::size_t size>
inline PersistenceArchiver& PersistenceArchiver::operator>>(std::array<Number, size>& numbers)
{
  takeAll(std::span<Number>(numbers));
  return *this;
}

template <class Element>
PersistenceArchiver& PersistenceArchiver::operator<<(const std::vector<Element>& elements)
{
  writeWhole([&] {
    appendCount(elements.size());
    if constexpr (RegisteredClass<Element> && !StreamedClass<Element>) {
      auto record = recordOf<Element>();
      for (const Element& element : elements) {
        record.object = const_cast<Element*>(&element); // saving does not change it
        saveObject(record);
      }
    } else if constexpr (ArchivedNumber<Element> && !std::same_as<Element, bool>) {
      appendAll(std::span<const Element>(elements));
    } else {
      for (const Element& element : elements)
        *this << element;
    }
  });
  return *this;
}

template <class Element>
PersistenceArchiver& PersistenceArchiver::operator>>(std::vector<Element>& elements)
{
  const auto count = takeCount(leastSizeOf<Element>());
  if constexpr (std::same_as<Element, bool>) {
    elements.resize(count);
    std::generate(elements.begin(), elements.end(), [this] { return take<bool>(); });
  } else if constexpr (ArchivedNumber<Element>) {
    elements.resize(count);
    takeAll(std::span<Element>(elements));
  } else if constexpr (RegisteredClass<Element> && !StreamedClass<Element>) {
    auto record = recordOf<Element>();
    loadEach(elements, count, [&](Element& element) {
      record.object = &element;
      loadObject(record);
    });
  } else {
    loadEach(elements, count, [this](Element& element) { *this >> element; });
  }
  return *this;
}

template <class Element, class Load>
void PersistenceArchiver::loadEach(std::vector<Element>& elements, std::size_t count, Load load)
{
  if (elements.size() > count)
    elements.erase(elements.begin() + static_cast<std::ptrdiff_t>(count), elements.end());
  std::for_each(elements.begin(), elements.end(), load);
  // A count is not to be trusted with large elements: their memory is not to exceed the archive's,
  // and grows with what is really there.
  elements.reserve((std::min)(count, elements.size() + remaining() / sizeof(Element)));
  while (elements.size() < count)
    load(elements.emplace_back());
}

template <RegisteredClass C>
PersistenceArchiver& PersistenceArchiver::operator<<(const C& object)
{
  writeWhole([&] {
    auto record = recordOf<C>();
    record.object = const_cast<C*>(&object); // saving does not change it
    saveObject(record);
  });
  return *this;
}

template <RegisteredClass C>
PersistenceArchiver& PersistenceArchiver::operator>>(C& object)
{
  auto record = recordOf<C>();
  record.object = &object;
  loadObject(record);
  return *this;
}

template <RegisteredClass C>
PersistenceArchiver& PersistenceArchiver::operator<<(const std::shared_ptr<C>& object)
{
  writeWhole([&] { saveShared(recordOf<C>(), object); });
  return *this;
}

template <RegisteredClass C>
PersistenceArchiver& PersistenceArchiver::operator>>(std::shared_ptr<C>& object)
{
  static_assert(!std::is_polymorphic_v<C> || std::has_virtual_destructor_v<C>,
                "objects of derived classes are destroyed as this one");

  const auto declared = recordOf<C>();
  const auto number = takeObjectNumber();
  object = number != 0 ? loadShared<C>(declared, number) : nullptr;
  return *this;
}

template <class C>
std::shared_ptr<C> PersistenceArchiver::loadShared(const BaseClassRegister& declared,
                                                   unsigned int number)
{
  auto* const pointers = static_cast<PointerMapContainerBase<C>*>(pointersOf(declared));
  if (auto pointer = pointers->getPointer(number))
    return pointer;

  if (const auto* const known = knownObject(number)) {
    std::shared_ptr<C> pointer(ownerOf(*known), static_cast<C*>(convert(*known, declared)));
    pointers->addPointer(number, pointer);
    return pointer;
  }

  std::shared_ptr<C> pointer(static_cast<C*>(createObject(declared)));
  keepObject(pointer);
  pointers->addPointer(number, pointer); // before it is loaded: it may lead back to itself
  loadKeptObject(number);
  return pointer;
}

template <class C>
BaseClassRegister PersistenceArchiver::recordOf()
{
  BaseClassRegister record;
  C::serialization_register(&record);
  requireRegistered(record, typeid(C));
  return record;
}

template <class Element>
constexpr std::size_t PersistenceArchiver::leastSizeOf()
{
  [[maybe_unused]] constexpr std::size_t word = 4;
  if constexpr (ArchivedNumber<Element>)
    return sizeof(Element);
  else if constexpr (StreamedClass<Element>)
    return 1;
  else if constexpr (RegisteredClass<Element>)
    return 2 * word; // the frame
  else if constexpr (requires { std::tuple_size<Element>::value; }) {
    static_assert(std::tuple_size_v<Element> > 0, "elements without bytes cannot be counted");
    return sizeof(Element); // numbers without a count
  } else
    return word; // a count or an object's number comes first in all others
}

}
