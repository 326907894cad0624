// SPDX-License-Identifier: MIT
#include "PointCollections/Support/Files.h"

#include <gmock/gmock.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>

namespace Tarvik::PointCollections {
namespace {

using ::testing::HasSubstr;

/// Runs the program with an output that nobody reads.
/// @return its exit status, or -1 if a signal ended it
int runUnread(const std::string& points, const std::string& errors)
{
  std::array<int, 2> pipeEnds{};
  EXPECT_EQ(pipe(pipeEnds.data()), 0);
  close(pipeEnds[0]);
  const pid_t child = fork();
  if (child == 0) {
    dup2(pipeEnds[1], STDOUT_FILENO);
    dup2(open(errors.c_str(), O_WRONLY | O_CREAT, 0600), STDERR_FILENO);
    execl(POINT_COLLECTIONS_PROGRAM, "point-collections", points.c_str(), "--quiet", "--command",
          "create G a", nullptr);
    _exit(127);
  }
  close(pipeEnds[1]);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(ClosedPipe, IsReportedTogetherWithUnsavedChanges)
{
  const TemporaryFolder folder;
  const auto points = folder.write("points.csv", "collection,x,y,z\na,1,2,3\n").string();
  const auto errors = folder.path() / "errors";

  EXPECT_EQ(runUnread(points, errors.string()), 1);

  const auto told = contentOf(errors);
  EXPECT_THAT(told, HasSubstr("standard output cannot be written"));
  EXPECT_THAT(told, HasSubstr("points.csv: the changes are not saved"));
}

}
}
