// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Support/Programs.h"

#include "PointCollections/Console/Support/Process.h"

namespace Tarvik::PointCollections {
Outcome runProgram(const TemporaryFolder& folder,
                   const std::vector<std::string>& arguments,
                   const std::string& input)
{
  const auto in = folder.write("standard-input", input);
  const auto out = folder.path() / "standard-output";
  const auto err = folder.path() / "standard-error";

  const int status = runProcess(Utf8::toPath(POINT_COLLECTIONS_PROGRAM), arguments, {in, out, err});
  return {status, contentOf(out), contentOf(err)};
}

std::filesystem::path samples()
{
  return Utf8::toPath(POINT_COLLECTIONS_SAMPLES);
}

std::filesystem::path transcripts()
{
  return Utf8::toPath(POINT_COLLECTIONS_TRANSCRIPTS);
}

}
