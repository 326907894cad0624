// SPDX-License-Identifier: MIT
#include "PointCollections/Support/Files.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <string>

namespace Tarvik::PointCollections {
namespace {

/// Runs the program with an output that nobody reads.
/// @return the signal that ended it; 0 if none did
int runUnread(const std::string& points, const std::string& errors, const char* command)
{
  std::array<int, 2> pipeEnds{};
  EXPECT_EQ(pipe(pipeEnds.data()), 0);
  close(pipeEnds[0]);
  const pid_t child = fork();
  if (child == 0) {
    dup2(pipeEnds[1], STDOUT_FILENO);
    dup2(open(errors.c_str(), O_WRONLY | O_CREAT, 0600), STDERR_FILENO);
    execl(POINT_COLLECTIONS_PROGRAM, "point-collections", points.c_str(), "--quiet", "--command",
          command, nullptr);
    _exit(127);
  }
  close(pipeEnds[1]);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

class ClosedPipe : public ::testing::Test {
protected:
  int run(const char* command) const { return runUnread(m_points, m_errors.string(), command); }

  TemporaryFolder m_folder;
  std::string m_points = m_folder.write("points.csv", "collection,x,y,z\na,1,2,3\n").string();
  std::filesystem::path m_errors = m_folder.path() / "errors";
};

TEST_F(ClosedPipe, EndsTheProgramQuietly)
{
  EXPECT_EQ(run("show"), SIGPIPE);
  EXPECT_EQ(contentOf(m_errors), "");
}

TEST_F(ClosedPipe, DoesNotHideThatChangesAreNotSaved)
{
  EXPECT_EQ(run("create G a"), SIGPIPE);
  EXPECT_EQ(contentOf(m_errors), "points.csv: the changes are not saved; save keeps them\n");
}

}
}
