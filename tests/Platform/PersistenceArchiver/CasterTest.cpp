// SPDX-License-Identifier: MIT
// Casters, and the registry of casters, which saving and loading shared objects uses.

#include "PersistenceArchiver/Caster.h"

#include "PersistenceArchiver/ClassRegistration.h"
#include "Platform/Support/ArchivedClasses.h"
#include "Platform/Support/Archives.h"
#include "Support/Allocations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <type_traits>

namespace Tarvik {
namespace {

template <class C>
unsigned int hashOf()
{
  BaseClassRegister record;
  C::serialization_register(&record);
  return record.classHash;
}

/// A class without content.
template <class Base, int number>
struct Level : Base {
  static void load(PersistenceArchiver&, Level&, unsigned int) {}
  static void save(PersistenceArchiver&, const Level&, unsigned int) {}
  static void serialization_register(void* out)
  {
    *static_cast<BaseClassRegister*>(out) =
        *registerClass<Level, load, save>("Test.Level" + std::to_string(number), 1);
  }
};

struct Ground {
  Ground() = default;
  Ground(const Ground&) = delete;
  Ground& operator=(const Ground&) = delete;
  virtual ~Ground() = default;
};

using Top = Level<Ground, 1>;
using Middle = Level<Top, 2>;
using Bottom = Level<Middle, 3>;
using Lowest = Level<Bottom, 4>;
using Stranger = Level<Ground, 5>;

/// Counts its uses, and records its destruction.
class CountingCaster : public BaseCaster<Top, Middle> {
public:
  CountingCaster(int& uses, bool& isDestroyed) : m_uses(uses), m_isDestroyed(isDestroyed) {}
  CountingCaster(const CountingCaster&) = delete;
  CountingCaster& operator=(const CountingCaster&) = delete;
  ~CountingCaster() override { m_isDestroyed = true; }

  void* toBase(void* derived) const override
  {
    ++m_uses;
    return BaseCaster::toBase(derived);
  }

  void* toDerived(void* base) const override
  {
    ++m_uses;
    return BaseCaster::toDerived(base);
  }

private:
  int& m_uses;
  bool& m_isDestroyed;
};

TEST(Casters, ConvertBetweenAClassAndItsBase)
{
  const BaseCaster<Circle, Sign> caster{};
  Sign sign;
  Circle* const circle = &sign;
  Ring ring;

  EXPECT_EQ(caster.toBase(&sign), circle);
  EXPECT_EQ(caster.toDerived(circle), &sign);
  EXPECT_NE(static_cast<void*>(circle), static_cast<void*>(&sign));
  EXPECT_EQ(caster.toDerived(static_cast<Circle*>(&ring)), nullptr) << "is no sign";
  EXPECT_EQ(caster.toBase(nullptr), nullptr);
  EXPECT_EQ(caster.toDerived(nullptr), nullptr);
}

TEST(Casters, CannotBeCopied)
{
  static_assert(!std::is_copy_constructible_v<Caster>);
  static_assert(!std::is_copy_assignable_v<Caster>);
  static_assert(std::has_virtual_destructor_v<Caster>);
}

TEST(CasterRegistry, FindsAWayOverSeveralBases)
{
  registerBase<Bottom, Lowest>();
  registerBase<Middle, Bottom>();
  registerBase<Top, Middle>();
  const auto lowest = std::make_shared<Lowest>();

  const auto loaded = loadedFrom<std::shared_ptr<Top>>(archived(std::shared_ptr<Top>(lowest)));

  EXPECT_NE(dynamic_cast<const Lowest*>(loaded.get()), nullptr);
}

TEST(CasterRegistry, StopsInCircles)
{
  registerBase<Top, Middle>();
  const auto top = hashOf<Top>();
  const auto middle = hashOf<Middle>();
  ASSERT_TRUE(PersistenceArchiver::registerCaster(middle, top, new BaseCaster<Top, Middle>));
  ASSERT_TRUE(PersistenceArchiver::registerCaster(top, top, new BaseCaster<Top, Middle>));
  const auto archive = archived(std::make_shared<Middle>());
  PersistenceArchiver source(archive);
  std::shared_ptr<Stranger> stranger;

  EXPECT_NE(refusalOf([&] { source >> stranger; }), "nothing was refused");
}

TEST(CasterRegistry, UsesTheNewestCasterAndLeavesTheOthersAlone)
{
  int olderUses = 0;
  int newerUses = 0;
  bool isOlderDestroyed = false;
  bool isNewerDestroyed = false;
  const auto saveAsTop = [] {
    PersistenceArchiver archive;
    archive << std::shared_ptr<Top>(std::make_shared<Middle>());
  };

  ASSERT_TRUE(PersistenceArchiver::registerCaster(hashOf<Top>(), hashOf<Middle>(),
                                                  new CountingCaster(olderUses, isOlderDestroyed)));
  saveAsTop();
  EXPECT_GT(olderUses, 0);

  olderUses = 0;
  ASSERT_TRUE(PersistenceArchiver::registerCaster(hashOf<Top>(), hashOf<Middle>(),
                                                  new CountingCaster(newerUses, isNewerDestroyed)));
  saveAsTop();
  EXPECT_GT(newerUses, 0);
  EXPECT_EQ(olderUses, 0);

  registerBase<Top, Middle>(); // since the counters end with this test
  EXPECT_FALSE(isOlderDestroyed);
  EXPECT_FALSE(isNewerDestroyed);
}

/// Ends the program with 3 when it is destroyed.
struct FatefulCaster : BaseCaster<Top, Middle> {
  FatefulCaster() = default;
  FatefulCaster(const FatefulCaster&) = delete;
  FatefulCaster& operator=(const FatefulCaster&) = delete;
  ~FatefulCaster() override { m_end(3); }

private:
  void (*m_end)(int) = &std::_Exit; // or compilers warn of a destructor that does not return
};

TEST(CasterRegistry, LeavesCastersAloneWhenTheProgramEnds)
{
  const auto top = hashOf<Top>();
  const auto middle = hashOf<Middle>();

  EXPECT_EXIT(
      {
        PersistenceArchiver::registerCaster(top, middle, new FatefulCaster);
        std::exit(0);
      },
      ::testing::ExitedWithCode(0), "");
}

TEST(CasterRegistry, DestroysCastersThatItRefuses)
{
  constexpr auto unknown = BaseClassRegister::unknownClassHash;
  int uses = 0;
  bool isDestroyed = false;

  EXPECT_FALSE(PersistenceArchiver::registerCaster(unknown, hashOf<Middle>(),
                                                   new CountingCaster(uses, isDestroyed)));
  EXPECT_TRUE(isDestroyed);

  isDestroyed = false;
  EXPECT_FALSE(PersistenceArchiver::registerCaster(hashOf<Top>(), unknown,
                                                   new CountingCaster(uses, isDestroyed)));
  EXPECT_TRUE(isDestroyed);
}

TEST(CasterRegistry, RefusesNullForACaster)
{
  EXPECT_FALSE(PersistenceArchiver::registerCaster(hashOf<Top>(), hashOf<Middle>(), nullptr));
}

#if !defined(_MSC_VER) // the watch does not reach into DLLs there

TEST(CasterRegistry, IsAsItWasWhenThereIsNoMemoryForACaster)
{
  constexpr unsigned int child = 0x5eed0000; // no class
  const auto top = hashOf<Top>();
  unsigned int failures = 0;
  bool isRegistered = false;
  while (!isRegistered) {
    auto caster = std::make_unique<BaseCaster<Top, Middle>>();
    const AllocationWatch watch(failures);
    try {
      isRegistered = PersistenceArchiver::registerCaster(top, child + failures, caster.release());
    } catch (const std::bad_alloc&) {
      ++failures;
    }
  }

  EXPECT_GT(failures, 0U);
}

#endif

}
}
