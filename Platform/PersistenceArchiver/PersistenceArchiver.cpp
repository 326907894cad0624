// SPDX-License-Identifier: MIT
#include "PersistenceArchiver/PersistenceArchiver.h"

#include "PersistenceArchiver/ArchiveError.h"
#include "PersistenceArchiver/ClassRegistry.h"
#include "PersistenceArchiver/Crc32c.h"

#include <array>
#include <limits>
#include <stdexcept>
#include <unordered_map>

namespace Tarvik {

namespace {

// The bytes of an archive: docs/archive-format.md.
constexpr std::array<unsigned char, 8> magic = {0x89, 'T', 'K', 'M', '\r', '\n', 0x1A, '\n'};
constexpr unsigned int formatVersion = 1;
constexpr std::size_t wordSize = 4;
constexpr std::size_t sizePlace = magic.size() + wordSize;
constexpr std::size_t tablePlace = sizePlace + wordSize;
constexpr std::size_t headerSize = tablePlace + wordSize;
constexpr std::size_t leastArchiveSize = headerSize + 2 * wordSize; // an empty table, the checksum
constexpr std::size_t leastTableEntrySize = 3 * wordSize;

constexpr std::size_t greatestArchiveSize = std::numeric_limits<std::uint32_t>::max();
constexpr std::size_t firstMemorySize = 4096;
constexpr std::size_t greatestDepth = 250; ///< of frames: objects in objects use up the stack

std::string bytesText(std::size_t count)
{
  return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

[[noreturn]] void refuse(std::size_t position, const std::string& message)
{
  throw ArchiveError(position, message);
}

[[noreturn]] void complain(const std::string& message)
{
  throw std::logic_error("PersistenceArchiver: " + message);
}

/// Whether an object of the class may be made for a pointer to the declared class. One whose class
/// cannot be told is destroyed as the declared one.
bool mayStandFor(const BaseClassRegister& declared, unsigned int classHash)
{
  if (declared.runtimeClass == nullptr)
    return classHash == declared.classHash;
  return ClassRegistry::isBase(declared.classHash, classHash);
}

}

struct PersistenceArchiver::Frame {
  unsigned int start;            ///< position of the class hash
  unsigned int classHash;        ///< 0 while writing
  const std::byte* enclosingEnd; ///< of what the frame stands in; null while writing
};

struct PersistenceArchiver::SharedObject {
  std::shared_ptr<void> owner;
  void* object; ///< as one of its own class
  unsigned int classHash;
};

/// The shared objects met in the archive. A number is the place in the list, counted from 1.
struct PersistenceArchiver::SharedObjects {
  struct Key {
    const void* object;
    unsigned int classHash; ///< since an object begins where its first member does
    friend bool operator==(const Key&, const Key&) = default;
  };
  struct Hash {
    std::size_t operator()(const Key& key) const
    {
      return std::hash<const void*>()(key.object) ^ key.classHash;
    }
  };

  std::vector<SharedObject> objects;
  std::unordered_map<Key, unsigned int, Hash> numbers;            ///< while writing
  std::map<unsigned int, std::unique_ptr<MapContainer>> pointers; ///< while reading, by class
};

BaseClassRegister* PersistenceArchiver::registerFactory(const std::string& name,
                                                        const BaseClassRegister& record,
                                                        unsigned int version)
{
  return ClassRegistry::registerClass(name, record, version);
}

unsigned int PersistenceArchiver::getHashForName(const std::string& name)
{
  return ClassRegistry::hashOf(name);
}

void PersistenceArchiver::registerHash(unsigned int typeNameHash, unsigned int classHash)
{
  ClassRegistry::registerType(typeNameHash, classHash);
}

unsigned int PersistenceArchiver::getHashForType(unsigned int typeNameHash)
{
  return ClassRegistry::classOfType(typeNameHash);
}

bool PersistenceArchiver::registerCaster(unsigned int parentHash,
                                         unsigned int childHash,
                                         Caster* caster)
{
  return ClassRegistry::registerCaster(parentHash, childHash, caster);
}

unsigned int PersistenceArchiver::getCurrentVersion(unsigned int /*reserved*/)
{
  return formatVersion;
}

PersistenceArchiver::PersistenceArchiver()
    : m_state(State::Writing),
      m_limit(greatestArchiveSize),
      m_sharedObjects(std::make_unique<SharedObjects>())
{
  beginArchive();
}

PersistenceArchiver::PersistenceArchiver(std::span<const std::byte> archive)
    : m_state(State::Reading),
      m_limit(greatestArchiveSize),
      m_source(archive),
      m_sharedObjects(std::make_unique<SharedObjects>())
{
  openArchive();
}

PersistenceArchiver::~PersistenceArchiver() = default;

void PersistenceArchiver::beginArchive()
{
  m_writePosition = m_memory.get();
  m_writeEnd = m_writePosition + std::min(m_capacity, m_limit);
  auto* const place = makeRoom(headerSize);
  std::ranges::copy(std::as_bytes(std::span(magic)), place);
  storeLittleEndian(place + magic.size(), formatVersion);
}

std::span<const std::byte> PersistenceArchiver::finish()
{
  if (m_state == State::Finished)
    return {m_memory.get(), m_writePosition};
  requireWriting();
  if (!m_frames.empty())
    complain("the archive cannot be finished in the middle of an object");

  std::erase_if(m_classTable,
                [](const auto& entry) { return ClassRegistry::find(entry.first) == nullptr; });
  const auto tablePosition = static_cast<std::uint32_t>(tellp());
  appendCount(m_classTable.size());
  for (const auto& [hash, record] : m_classTable)
    *this << hash << record.writeVersion << ClassRegistry::find(hash)->name;

  const auto* const checksumPlace = makeRoom(wordSize);
  const std::span written(m_memory.get(), checksumPlace);
  storeLittleEndian(m_memory.get() + sizePlace, static_cast<std::uint32_t>(tellp()));
  storeLittleEndian(m_memory.get() + tablePlace, tablePosition);
  storeLittleEndian(m_writePosition - wordSize, crc32c(written));

  m_state = State::Finished;
  m_writeEnd = m_writePosition;
  return {m_memory.get(), m_writePosition};
}

void PersistenceArchiver::clear()
{
  if (m_state == State::Reading)
    complain("an archive that was opened for reading cannot be cleared");
  m_frames.clear();
  m_classTable.clear();
  *m_sharedObjects = {};
  m_state = State::Writing;
  beginArchive();
}

void PersistenceArchiver::limitSize(std::uint32_t bytes)
{
  if (m_state == State::Reading)
    complain("this archive was opened for reading");
  m_limit = bytes;
  if (m_state == State::Writing)
    m_writeEnd =
        m_memory.get() + std::clamp(m_limit, static_cast<std::size_t>(tellp()), m_capacity);
}

std::uint64_t PersistenceArchiver::tellp() const noexcept
{
  return static_cast<std::uint64_t>(m_writePosition - m_memory.get());
}

std::uint64_t PersistenceArchiver::tellg() const noexcept
{
  return static_cast<std::uint64_t>(m_readPosition - m_source.data());
}

bool PersistenceArchiver::isAtEnd() const noexcept
{
  return m_readPosition == m_readEnd;
}

void PersistenceArchiver::requireWriting() const
{
  if (m_state == State::Reading)
    complain("this archive was opened for reading");
  if (m_state == State::Finished)
    complain("this archive is finished; clear() begins another one");
  if (m_state == State::Failed)
    complain("writing to this archive has failed; clear() begins another one");
}

void PersistenceArchiver::requireReading() const
{
  if (m_state != State::Reading)
    complain("this archive was opened for writing");
}

void PersistenceArchiver::giveUpWriting() noexcept
{
  if (m_state != State::Writing)
    return;
  m_state = State::Failed;
  m_writeEnd = m_writePosition; // so that nothing more is written without a look at the state
}

void PersistenceArchiver::grow(std::size_t count)
{
  requireWriting();
  giveUpWriting(); // unless there is room

  const auto size = static_cast<std::size_t>(tellp());
  if (size > m_limit || count > m_limit - size)
    refuse(size, "expected an archive of at most " + bytesText(m_limit) + ", found " +
                     bytesText(count) + " more to write; save less in one archive");

  const auto capacity =
      std::min(m_limit, std::max({firstMemorySize, 2 * m_capacity, size + count}));
  // NOLINTNEXTLINE(modernize-avoid-c-arrays): a vector would fill the memory with zeros first
  auto memory = std::make_unique_for_overwrite<std::byte[]>(capacity);
  std::copy_n(m_memory.get(), size, memory.get());
  m_memory = std::move(memory);
  m_capacity = capacity;
  m_writePosition = m_memory.get() + size;
  m_writeEnd = m_memory.get() + capacity;
  m_state = State::Writing;
}

void PersistenceArchiver::refuseToRead(std::size_t count) const
{
  requireReading();
  refuse(tellg(), "expected " + bytesText(count) + " more, found " + bytesText(remaining()) +
                      " before the end of the " + (m_frames.empty() ? "archive" : "object") +
                      "; the archive is damaged");
}

void PersistenceArchiver::openArchive()
{
  const auto* const begin = m_source.data();
  const auto size = m_source.size();
  if (size < leastArchiveSize || size > greatestArchiveSize)
    refuse(0, "expected an archive of " + std::to_string(leastArchiveSize) + " to " +
                  bytesText(greatestArchiveSize) + ", found " + bytesText(size) +
                  "; it is no archive, or cut off");
  if (!std::ranges::equal(m_source.first(magic.size()), std::as_bytes(std::span(magic))))
    refuse(0, "expected the first 8 bytes of an archive, found others; it is no archive");

  m_readPosition = begin + magic.size();
  m_readEnd = begin + headerSize;
  if (const auto version = take<std::uint32_t>(); version != formatVersion)
    refuse(magic.size(), "expected format version " + std::to_string(formatVersion) + ", found " +
                             std::to_string(version) +
                             "; use the version of the program that wrote it, or a newer one");
  if (const auto expected = take<std::uint32_t>(); expected != size)
    refuse(sizePlace, "expected an archive of " + bytesText(expected) + ", found " +
                          bytesText(size) + "; it is cut off or damaged");

  const auto checksumPlace = size - wordSize;
  const auto expected = loadLittleEndian<std::uint32_t>(begin + checksumPlace);
  if (const auto found = crc32c(m_source.first(checksumPlace)); found != expected)
    refuse(checksumPlace, "expected the checksum " + std::to_string(expected) + ", found " +
                              std::to_string(found) + "; the archive is damaged");

  const auto tablePosition = take<std::uint32_t>();
  if (tablePosition < headerSize || tablePosition > checksumPlace)
    refuse(tablePlace, "expected the position of the class table, found " +
                           std::to_string(tablePosition) + "; the archive is damaged");
  m_readPosition = begin + tablePosition;
  m_readEnd = begin + checksumPlace;
  readClassTable(m_readEnd);

  m_readPosition = begin + headerSize;
  m_readEnd = begin + tablePosition;
}

void PersistenceArchiver::readClassTable(const std::byte* end)
{
  const auto count = takeCount(leastTableEntrySize);
  for (std::size_t i = 0; i < count; ++i) {
    const auto position = tellg();
    unsigned int hash = 0;
    unsigned int version = 0;
    std::string name;
    *this >> hash >> version >> name;

    if (hash != getHashForName(name))
      refuse(position, "expected the hash of the class \"" + name + "\", " +
                           std::to_string(getHashForName(name)) + ", found " +
                           std::to_string(hash) + "; the archive is damaged");
    const auto* const known = ClassRegistry::find(hash);
    if (known == nullptr || known->name != name)
      refuse(position, "expected classes that the program knows, found \"" + name +
                           "\" in version " + std::to_string(version) +
                           "; use the version of the program that wrote it, or a newer one");
    if (version > known->record.writeVersion)
      refuse(position, "expected the class \"" + name + "\" in version " +
                           std::to_string(known->record.writeVersion) + " at most, found version " +
                           std::to_string(version) +
                           "; use the version of the program that wrote it, or a newer one");

    const auto [entry, isNew] = m_classTable.try_emplace(hash, known->record);
    if (!isNew)
      refuse(position, "expected each class once in the table, found \"" + name +
                           "\" again; the archive is damaged");
    entry->second.readVersion = version;
  }
  if (m_readPosition != end)
    refuse(tellg(), "expected the end of the class table, found " + bytesText(remaining()) +
                        " more; the archive is damaged");
}

void PersistenceArchiver::addToClassTable(unsigned int classHash)
{
  if (m_classTable.contains(classHash))
    return;
  if (const auto* const known = ClassRegistry::find(classHash))
    m_classTable.emplace(classHash, known->record);
}

std::map<unsigned int, BaseClassRegister>& PersistenceArchiver::classTable() noexcept
{
  return m_classTable;
}

void PersistenceArchiver::mark_object_start(unsigned int start, unsigned int classHash)
{
  writeWhole([&] {
    append(std::uint32_t{0}); // the length, for mark_object_end()
    if (start != static_cast<unsigned int>(tellp()))
      complain("a frame starts 4 bytes behind the write position");
    if (m_frames.size() == greatestDepth)
      refuse(start, "expected objects in objects at most " + std::to_string(greatestDepth) +
                        " deep, found one more");
    append(classHash);
    addToClassTable(classHash);
    m_frames.push_back({start, 0, nullptr});
  });
}

void PersistenceArchiver::mark_object_end(unsigned int start, unsigned int end)
{
  requireWriting();
  if (m_frames.empty() || m_frames.back().start != start ||
      end != static_cast<unsigned int>(tellp()))
    complain("frames are closed at the write position, the last one first");
  storeLittleEndian(m_memory.get() + start - wordSize, end - start);
  m_frames.pop_back();
}

void PersistenceArchiver::read_to_address_header(unsigned int& address, unsigned int& marker)
{
  const auto position = tellg();
  const auto length = take<std::uint32_t>();
  if (length < wordSize || length > remaining())
    refuse(position, "expected the length of an object, " + std::to_string(wordSize) + " to " +
                         bytesText(remaining()) + ", found " + std::to_string(length) +
                         "; the archive is damaged");
  if (m_frames.size() == greatestDepth)
    refuse(position, "expected objects in objects at most " + std::to_string(greatestDepth) +
                         " deep, found one more; the archive is damaged");

  address = static_cast<unsigned int>(tellg());
  marker = address + length;
  m_frames.push_back({address, loadLittleEndian<std::uint32_t>(m_readPosition), m_readEnd});
  m_readEnd = m_readPosition + length;
}

void PersistenceArchiver::end_read_to_address(unsigned int marker)
{
  requireReading();
  if (m_frames.empty() || marker != tellg() + remaining())
    complain("frames are left with their own marker, the last one first");
  m_readPosition = std::exchange(m_readEnd, m_frames.back().enclosingEnd);
  m_frames.pop_back();
}

void PersistenceArchiver::check_container_size(unsigned int count)
{
  requireReading();
  std::size_t leastSize = 1;
  if (!m_frames.empty())
    if (const auto* const known = ClassRegistry::find(m_frames.back().classHash))
      leastSize = std::max(1U, known->record.word);
  if (count > remaining() / leastSize)
    refuse(tellg() - wordSize, "expected at most " + std::to_string(remaining() / leastSize) +
                                   " elements in the " + bytesText(remaining()) +
                                   " that follow, found a count of " + std::to_string(count) +
                                   "; the archive is damaged");
}

void PersistenceArchiver::appendCount(std::size_t count)
{
  if (count > std::numeric_limits<std::uint32_t>::max()) {
    giveUpWriting();
    refuse(tellp(), "expected at most " +
                        std::to_string(std::numeric_limits<std::uint32_t>::max()) +
                        " elements or bytes in a list or text, found " + std::to_string(count));
  }
  append(static_cast<std::uint32_t>(count));
}

std::size_t PersistenceArchiver::takeCount(std::size_t leastSizeOfElement)
{
  const auto position = tellg();
  const auto count = take<std::uint32_t>();
  if (count > remaining() / leastSizeOfElement)
    refuse(position, "expected a count of at most " +
                         std::to_string(remaining() / leastSizeOfElement) + ", found " +
                         std::to_string(count) + " with " + bytesText(remaining()) +
                         " left; the archive is damaged");
  return count;
}

bool PersistenceArchiver::loadBool(const std::byte* place) const
{
  const auto value = std::to_integer<unsigned int>(*place);
  if (value > 1)
    refuse(static_cast<std::size_t>(place - m_source.data()),
           "expected 0 or 1, found " + std::to_string(value) + "; the archive is damaged");
  return value == 1;
}

PersistenceArchiver& PersistenceArchiver::operator<<(const std::string& text)
{
  appendCount(text.size());
  std::ranges::copy(std::as_bytes(std::span(text)), makeRoom(text.size()));
  return *this;
}

PersistenceArchiver& PersistenceArchiver::operator>>(std::string& text)
{
  const auto size = takeCount(1);
  // not assign(), whose iterators would go through every byte twice
  std::string loaded(size, '\0');
  std::copy_n(takeBytes(size), size, std::as_writable_bytes(std::span(loaded)).data());
  text = std::move(loaded);
  return *this;
}

void PersistenceArchiver::requireRegistered(const BaseClassRegister& record,
                                            const std::type_info& type)
{
  if (record.classHash == BaseClassRegister::unknownClassHash ||
      record.classHash != getHashForType(getHashForName(type.name())))
    complain(std::string("the class ") + type.name() +
             " is not registered; a derived class needs a registration of its own");
}

void PersistenceArchiver::saveObject(BaseClassRegister& record)
{
  if (record.save == nullptr)
    complain("the class " + ClassRegistry::describe(record.classHash) + " has no save entry");
  const auto start = static_cast<unsigned int>(tellp() + wordSize);
  mark_object_start(start, record.classHash);
  record.save(*this, record);
  mark_object_end(start, static_cast<unsigned int>(tellp()));
}

void PersistenceArchiver::loadObject(BaseClassRegister& record)
{
  unsigned int address = 0;
  unsigned int marker = 0;
  read_to_address_header(address, marker);
  if (const auto found = m_frames.back().classHash; found != record.classHash)
    refuse(address, "expected an object of the class " + ClassRegistry::describe(record.classHash) +
                        ", found one of the class " + ClassRegistry::describe(found));
  callLoadEntry(record);
}

void PersistenceArchiver::callLoadEntry(BaseClassRegister& record)
{
  if (record.load == nullptr)
    complain("the class " + ClassRegistry::describe(record.classHash) + " has no load entry");
  const auto known = m_classTable.find(record.classHash);
  if (known == m_classTable.end() || known->second.classHash != record.classHash)
    refuse(tellg(), "expected a class of the class table, found the class " +
                        ClassRegistry::describe(record.classHash) + "; the archive is damaged");
  record.readVersion = known->second.readVersion;
  const auto depth = m_frames.size();
  const auto marker = static_cast<unsigned int>(tellg() + remaining());
  takeBytes(wordSize); // the class hash
  record.load(*this, record);
  if (m_frames.size() != depth) // a frame within may have the same marker
    complain("the load entry of the class " + ClassRegistry::describe(record.classHash) +
             " leaves other frames than it enters");
  end_read_to_address(marker);
}

void PersistenceArchiver::saveShared(const BaseClassRegister& declared,
                                     const std::shared_ptr<void>& object)
{
  if (object == nullptr) {
    append(std::uint32_t{0});
    return;
  }

  auto record = declared;
  record.object = object.get();
  if (declared.runtimeClass != nullptr)
    record.classHash = declared.runtimeClass(record);
  const auto* const known = ClassRegistry::find(record.classHash);
  auto* const asItself =
      ClassRegistry::toDerived(object.get(), declared.classHash, record.classHash);
  if (known == nullptr || asItself == nullptr)
    complain("a shared object saved as one of the class " +
             ClassRegistry::describe(declared.classHash) +
             " is of a derived class that is not registered, or has no caster");

  auto& [objects, numbers, pointers] = *m_sharedObjects;
  const auto [place, isNew] = numbers.try_emplace({asItself, record.classHash},
                                                  static_cast<unsigned int>(objects.size() + 1));
  append(place->second);
  if (!isNew)
    return;
  objects.push_back({object, asItself, record.classHash});
  record = known->record;
  record.object = asItself;
  saveObject(record);
}

unsigned int PersistenceArchiver::takeObjectNumber()
{
  const auto position = tellg();
  const auto number = take<std::uint32_t>();
  if (const auto count = m_sharedObjects->objects.size(); number > count + 1)
    refuse(position, "expected the number of a shared object, at most " +
                         std::to_string(count + 1) + ", found " + std::to_string(number) +
                         "; the archive is damaged");
  return number;
}

MapContainer* PersistenceArchiver::pointersOf(const BaseClassRegister& declared)
{
  auto& pointers = m_sharedObjects->pointers[declared.classHash];
  if (pointers == nullptr && declared.createContainer != nullptr)
    pointers.reset(declared.createContainer());
  if (pointers == nullptr)
    complain("the class " + ClassRegistry::describe(declared.classHash) +
             " makes no containers for shared pointers");
  return pointers.get();
}

const PersistenceArchiver::SharedObject* PersistenceArchiver::knownObject(unsigned int number) const
{
  const auto& objects = m_sharedObjects->objects;
  return number <= objects.size() ? &objects[number - 1] : nullptr;
}

const std::shared_ptr<void>& PersistenceArchiver::ownerOf(const SharedObject& object)
{
  return object.owner;
}

void* PersistenceArchiver::convert(const SharedObject& object,
                                   const BaseClassRegister& declared) const
{
  auto* const converted =
      ClassRegistry::toBase(object.object, object.classHash, declared.classHash);
  if (converted == nullptr)
    refuse(tellg() - wordSize,
           "expected a shared object of the class " + ClassRegistry::describe(declared.classHash) +
               ", found one of the class " + ClassRegistry::describe(object.classHash));
  return converted;
}

void* PersistenceArchiver::createObject(const BaseClassRegister& declared)
{
  unsigned int address = 0;
  unsigned int marker = 0;
  read_to_address_header(address, marker);
  const auto classHash = m_frames.back().classHash;
  const auto* const known = ClassRegistry::find(classHash);
  if (known == nullptr || !mayStandFor(declared, classHash))
    refuse(address, "expected an object of the class " +
                        ClassRegistry::describe(declared.classHash) +
                        " or one derived from it, found one of the class " +
                        ClassRegistry::describe(classHash));
  if (known->record.create == nullptr || known->record.load == nullptr)
    refuse(address, "expected an object of a class that makes and loads objects, found one of the "
                    "class " +
                        ClassRegistry::describe(classHash));

  auto& objects = m_sharedObjects->objects;
  objects.push_back({nullptr, nullptr, classHash}); // first: the new object has no owner yet
  objects.back().object = known->record.create();
  return convert(objects.back(), declared);
}

void PersistenceArchiver::keepObject(std::shared_ptr<void> owner)
{
  m_sharedObjects->objects.back().owner = std::move(owner);
}

void PersistenceArchiver::loadKeptObject(unsigned int number)
{
  const auto& object = m_sharedObjects->objects[number - 1];
  auto record = ClassRegistry::find(object.classHash)->record;
  record.object = object.object;
  callLoadEntry(record);
}

}
