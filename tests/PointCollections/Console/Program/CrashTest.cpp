// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Process.h"
#include "PointCollections/Console/Support/Programs.h"
#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Input/TextInput.h"
#include "PointCollections/Project/ProjectFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <random>
#include <string>
#include <thread>

/// Kills the program while it saves, again and again.
namespace Tarvik::PointCollections {
namespace {

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::microseconds;

/// The program at the moment when it starts to save a change. It is killed at the end.
class SavingProgram {
public:
  explicit SavingProgram(const std::filesystem::path& file)
      : m_process(Utf8::toPath(POINT_COLLECTIONS_PROGRAM),
                  {Utf8::fromPath(file), "--quiet", "--command", "create New", "--command", "save"})
  {
    EXPECT_NE(m_process.read(), "") << "it should report the change";
  }

  /// Returns when the program has ended by itself.
  void wait() const
  {
    while (!m_process.read().empty()) {
    }
  }

private:
  RunningProcess m_process;
};

class KilledWhileSaving : public ::testing::Test {
protected:
  static std::shared_ptr<PointDocument> largeDocument()
  {
    std::vector<PointCollection> collections(250);
    for (std::size_t i = 0; i < collections.size(); ++i) {
      collections[i].name = "element " + std::to_string(i);
      collections[i].points.assign(40, Point{static_cast<double>(i), 0.5, -1});
    }
    auto document = PointDocument::create(std::move(collections));
    document->setGroups({TKGroup<GUIdentifier>("Old")});
    return document;
  }

  std::string content() const { return contentOf(m_file); }

  void restore() const { m_folder.write("p.tkpc", m_old); }

  /// How long it takes to save, undisturbed.
  Microseconds timeToSave() const
  {
    const SavingProgram program(m_file);
    const auto start = Clock::now();
    program.wait();
    return std::chrono::duration_cast<Microseconds>(Clock::now() - start);
  }

  /// Whether these are the bytes of the document with the change.
  bool isNew(const std::string& bytes) const
  {
    const auto document = loadProject(std::as_bytes(std::span(bytes)), "p.tkpc");
    const auto& groups = document->getGroups();
    const bool hasGroups =
        groups.size() == 2 && groups[0].getName() == "Old" && groups[1].getName() == "New";
    return hasGroups && document->order() == m_document->order() &&
           std::ranges::all_of(document->order(), [&](const auto& id) {
             return document->find(id)->points == m_document->find(id)->points &&
                    document->find(id)->name == m_document->find(id)->name;
           });
  }

  std::size_t filesLeft() const
  {
    const std::filesystem::directory_iterator entries(m_folder.path());
    const auto count = static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    return count - 1;
  }

  TemporaryFolder m_folder;
  std::shared_ptr<PointDocument> m_document = largeDocument();
  std::vector<std::byte> m_bytes = saveProject(*m_document);
  std::string m_old = {reinterpret_cast<const char*>(m_bytes.data()), m_bytes.size()};
  std::filesystem::path m_file = m_folder.write("p.tkpc", m_old);
};

TEST_F(KilledWhileSaving, LeavesTheOldFileOrTheNewOneComplete)
{
  constexpr int kills = 200;
  const auto longest = timeToSave() * 3 / 2;
  EXPECT_TRUE(isNew(content()));
  std::random_device seed;
  std::mt19937 random(seed());
  std::uniform_int_distribution<Microseconds::rep> moments(0, longest.count());

  int oldFiles = 0;
  int newFiles = 0;
  int cutShort = 0;
  restore();
  for (int i = 0; i < kills; ++i) {
    const Microseconds moment(moments(random));
    {
      const SavingProgram program(m_file);
      std::this_thread::sleep_for(moment);
    }
    cutShort += filesLeft() > 0 ? 1 : 0;
    const auto bytes = content();
    const bool isOld = bytes == m_old;
    oldFiles += isOld ? 1 : 0;
    newFiles += isOld ? 0 : 1;
    ASSERT_TRUE(isOld || isNew(bytes)) << "killed " << moment.count() << " us after the start";
    if (!isOld)
      restore();
  }

  std::cout << "Killed " << kills << " times: " << oldFiles << " old files, " << newFiles
            << " new ones; " << cutShort << " kills came while the new file was written.\n";
  EXPECT_GT(oldFiles, 0);
  EXPECT_GT(newFiles, 0);
  EXPECT_GT(cutShort, 0);

  restore();
  timeToSave();
  EXPECT_TRUE(isNew(content()));
  EXPECT_EQ(filesLeft(), 0U) << "a save removes what killed ones have left";
}

}
}
