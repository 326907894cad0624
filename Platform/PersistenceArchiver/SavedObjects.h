// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

namespace Tarvik {

/// The shared objects that one archive has saved: gives each its number, 1 for the first, and keeps
/// a share of it, so that its address does not become another object's. Not for hosts.
class SavedObjects {
public:
  SavedObjects() = default;
  SavedObjects(const SavedObjects&) = delete;
  SavedObjects& operator=(const SavedObjects&) = delete;
  ~SavedObjects();

  struct Number {
    unsigned int value;
    bool isNew; ///< the object must follow
  };

  /// @param object     points to it as an object of its own class
  /// @param classHash  its own class, since an object begins where its first member does
  Number numberOf(const std::shared_ptr<void>& owner, const void* object, unsigned int classHash);

  /// Forgets the objects, and releases them from the last to the first. In a long chain that was
  /// saved from its end, no release sets off the next one then, which would use up the stack.
  void clear();

private:
  struct Key {
    const void* object;
    unsigned int classHash;
    friend bool operator==(const Key&, const Key&) = default;
  };
  struct Hash {
    std::size_t operator()(const Key& key) const;
  };

  std::vector<std::shared_ptr<void>> m_owners;
  std::unordered_map<Key, unsigned int, Hash> m_numbers;
};

}
