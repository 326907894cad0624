// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Sessions.h"
#include "PointCollections/Support/MemoryFiles.h"

#include <gtest/gtest.h>

namespace Tarvik::PointCollections {
namespace {

class Export : public ::testing::Test {
protected:
  std::shared_ptr<MemoryFiles> m_files = std::make_shared<MemoryFiles>();
  Session m_session = sessionOf({"a", "b, c", "d"}, m_files);
};

TEST_F(Export, WritesAFileThatOpenReadsBackWithTheGroups)
{
  EXPECT_EQ(run(m_session, {"create G d", "create Empty", "create H a", "export x.csv"}),
            "Exported 3 elements in 3 groups to x.csv.");
  EXPECT_EQ(m_files->contents["x.csv"], "collection,x,y,z,group,place\n"
                                        ",,,,G,\n"
                                        ",,,,Empty,\n"
                                        ",,,,H,\n"
                                        "a,0,0,0,H,1\n"
                                        "\"b, c\",0,0,0,,\n"
                                        "d,0,0,0,G,1\n");

  EXPECT_EQ(run(m_session, {"open x.csv --discard"}),
            "Opened x.csv: 3 elements with 3 points in 3 groups.");
  EXPECT_EQ(groupsOf(m_session), "G(d) Empty() H(a)");
  EXPECT_EQ(ungroupedOf(m_session), "b, c");
}

TEST_F(Export, LeavesTheDocumentUnsaved)
{
  run(m_session, {"create G", "export x.csv"});

  EXPECT_TRUE(m_session.editor.hasUnsavedChanges());
  EXPECT_EQ(m_session.editor.title(), "test.csv");
}

TEST_F(Export, ReplacesAFileOnlyIfAsked)
{
  m_files->contents["x.csv"] = "precious";

  EXPECT_EQ(mistake(m_session, "export x.csv"),
            "x.csv exists already; add --overwrite to replace it");
  EXPECT_EQ(m_files->contents["x.csv"], "precious");
  run(m_session, {"export x.csv --overwrite"});
  EXPECT_TRUE(m_files->contents["x.csv"].starts_with("collection,"));
}

TEST_F(Export, TakesTheExtensionInCapitalLetters)
{
  run(m_session, {"export X.CSV"});

  EXPECT_TRUE(m_files->contents.contains("X.CSV"));
}

TEST_F(Export, WarnsAsTheFilesDo)
{
  m_files->warning = "The disk is slow.";

  EXPECT_EQ(run(m_session, {"export x.csv"}),
            "Exported 3 elements in 0 groups to x.csv.\nThe disk is slow.");
}

TEST_F(Export, WaitsForNobodyWhoWritesTheSameFile)
{
  m_files->isBeingSaved = true;

  EXPECT_EQ(mistake(m_session, "export x.csv"), "x.csv: process 7 saves in this file; try again");
}

TEST_F(Export, RefusesWhatTheFileCouldNotTell)
{
  auto& document = *m_session.editor.document();
  EXPECT_EQ(mistake(m_session, "export x.tkpc"),
            "x.tkpc is not the name of a file of points; expected one that ends in .csv");
  document.setGroups({TKGroup<GUIdentifier>("G"), TKGroup<GUIdentifier>("G")});
  EXPECT_EQ(mistake(m_session, "export x.csv"), "several groups have the name G, which a file of "
                                                "points cannot tell; rename @2 first");
  document.setGroups({TKGroup<GUIdentifier>("")});
  EXPECT_EQ(mistake(m_session, "export x.csv"),
            "the group @1 has no name, which a file of points cannot tell; rename @1 first");
  EXPECT_TRUE(m_files->contents.empty());
}

}
}
