// SPDX-License-Identifier: MIT
// Copies more or fewer bytes than there is room for: only a check while it runs can tell.
#include <cstdlib>
#include <cstring>
#include <string>

int main(int argc, char** argv)
{
  char buffer[8] = {};
  const std::size_t count = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 0;
  const std::string bytes(count, 'x');
  std::memcpy(buffer, bytes.data(), count);
  return buffer[0] == (count > 0 ? 'x' : '\0') ? 0 : 1;
}
