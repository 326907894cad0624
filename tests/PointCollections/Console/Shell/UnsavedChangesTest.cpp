// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Shell/UnsavedChanges.h"

#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Support/MemoryFiles.h"

#include <gtest/gtest.h>

#include <sstream>

namespace Tarvik::PointCollections {
namespace {

class UnsavedChanges : public ::testing::Test {
protected:
  /// What the user's one answer leads to; the input ends after it.
  Confirmation confirmationAfter(std::optional<std::string> answer)
  {
    return confirmDiscardingChanges(m_session, [&answer](const auto&, const auto&) {
      return std::exchange(answer, std::nullopt);
    });
  }

  std::string warning()
  {
    std::ostringstream output;
    std::ostringstream errors;
    Transcript transcript(output, errors, Transcript::Detail::Full);
    warnOfUnsavedChanges(m_session, transcript);
    return errors.str();
  }

  std::shared_ptr<MemoryFiles> m_files = std::make_shared<MemoryFiles>();
  Session m_session = sessionOf({"a"}, m_files);
};

TEST_F(UnsavedChanges, AreNotAskedForWhenThereAreNone)
{
  EXPECT_EQ(confirmationAfter("cancel"), Confirmation::Given);
}

TEST_F(UnsavedChanges, AreDiscardedOrKeptAsTheUserSays)
{
  run(m_session, {"create G"});

  EXPECT_EQ(confirmationAfter("discard"), Confirmation::Given);
  EXPECT_EQ(confirmationAfter("cancel"), Confirmation::Refused);
  EXPECT_EQ(confirmationAfter("what?"), Confirmation::Missing);
  EXPECT_EQ(confirmationAfter(std::nullopt), Confirmation::Missing);
  EXPECT_TRUE(m_session.editor.hasUnsavedChanges());
}

TEST_F(UnsavedChanges, AreSavedByTheCommandThatTheUserTypes)
{
  run(m_session, {"create G"});

  EXPECT_EQ(confirmationAfter("save p.tkpc --overwrite"), Confirmation::Given);

  EXPECT_TRUE(m_files->contents.contains("p.tkpc"));
  EXPECT_FALSE(m_session.editor.hasUnsavedChanges());
}

TEST_F(UnsavedChanges, StayWhenSavingFails)
{
  run(m_session, {"create G"});
  m_files->isFull = true;

  EXPECT_THROW(confirmationAfter("save p.tkpc"), UserError);

  EXPECT_TRUE(m_session.editor.hasUnsavedChanges());
}

TEST_F(UnsavedChanges, AreWarnedOf)
{
  EXPECT_EQ(warning(), "");

  run(m_session, {"create G"});
  EXPECT_EQ(warning(), "test.csv: the changes are not saved; save keeps them\n");
}

}
}
