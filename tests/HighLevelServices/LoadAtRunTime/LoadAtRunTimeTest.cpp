// SPDX-License-Identifier: MIT
// A program that is not linked with the libraries may load and unload them any number of times.
// With AddressSanitizer, the test also reports memory that an unloaded library has not released.

#include "HighLevelServices/LoadAtRunTime/Library.h"
#include "HighLevelServices/LoadAtRunTime/OccupiedPlace.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <future>
#include <list>
#include <string>
#include <thread>
#include <vector>

namespace Tarvik {
namespace {

constexpr int often = 300;

const std::string plugIn = PLUG_IN;
const std::string groupHosting = GROUP_HOSTING; // which needs all others
const std::string persistenceArchiver = PERSISTENCE_ARCHIVER;
const std::vector<std::string> allLibraries = {ALL_LIBRARIES};

std::vector<std::string> loadedLibraries()
{
  std::vector<std::string> result;
  for (const auto& library : allLibraries)
    if (Library::isLoaded(library))
      result.push_back(library);
  return result;
}

bool useTheLibraries(const Library& loadedPlugIn)
{
  return loadedPlugIn.function<bool()>("useTheLibraries")();
}

bool loadAndSaveGroups(const Library& loadedPlugIn, std::vector<std::byte>& bytes)
{
  return loadedPlugIn.function<bool(std::vector<std::byte>&)>("loadAndSaveGroups")(bytes);
}

TEST(LibraryAtRunTime, BringsItsPlatformAndIsGoneWithItWhenItIsUnloaded)
{
  for (int i = 0; i < often; ++i) {
    {
      const Library library(groupHosting);
      ASSERT_EQ(loadedLibraries(), allLibraries) << "time " << i;
    }
    ASSERT_EQ(loadedLibraries(), std::vector<std::string>()) << "time " << i;
  }
}

TEST(LibraryAtRunTime, IsGoneAfterItHasBeenUsed)
{
  for (int i = 0; i < often; ++i) {
    {
      const Library library(plugIn);
      ASSERT_TRUE(useTheLibraries(library)) << "time " << i;
    }
    ASSERT_EQ(loadedLibraries(), std::vector<std::string>()) << "time " << i;
  }
}

TEST(LibraryAtRunTime, StaysWhileSomebodyElseNeedsIt)
{
  const Library user(groupHosting);
  {
    const Library other(plugIn);
    EXPECT_TRUE(useTheLibraries(other));
  }

  EXPECT_EQ(loadedLibraries(), allLibraries);
}

TEST(LibraryAtRunTime, MayBeUnloadedBeforeAThreadThatUsedIt)
{
  for (int i = 0; i < often; ++i) {
    std::promise<bool> used;
    std::promise<void> unloaded;
    std::thread thread;
    {
      const Library library(plugIn);
      thread = std::thread([&] {
        used.set_value(useTheLibraries(library));
        unloaded.get_future().wait();
      });
      EXPECT_TRUE(used.get_future().get()) << "time " << i;
    }
    EXPECT_EQ(loadedLibraries(), std::vector<std::string>()) << "time " << i;
    unloaded.set_value();
    thread.join();
  }
}

std::vector<void*> placesOfCode(const Library& loadedPlugIn)
{
  std::vector<void*> places;
  loadedPlugIn.function<void(std::vector<void*>&)>("tellPlaces")(places);
  return places;
}

/// The registry then keeps records of libraries that are gone. The libraries are loaded to another
/// place each time, and nothing is at their last place any more.
TEST(LibraryAtRunTime, SavesAndLoadsEachTimeWhileTheArchiveStays)
{
  const Library archive(persistenceArchiver);
  std::vector<std::byte> bytes;
  std::vector<void*> lastPlaces;
  std::list<OccupiedPlace> occupied;
  for (int i = 0; i < often; ++i) {
    {
      const Library library(plugIn);
      const auto places = placesOfCode(library);
      ASSERT_NE(places, lastPlaces) << "time " << i;
      ASSERT_TRUE(loadAndSaveGroups(library, bytes)) << "time " << i;
      lastPlaces = places;
    }
    occupied.clear();
    for (void* const place : lastPlaces)
      occupied.emplace_back(place);
    ASSERT_EQ(loadedLibraries(), std::vector<std::string>{persistenceArchiver}) << "time " << i;
  }
}

}
}
