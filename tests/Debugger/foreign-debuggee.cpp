// SPDX-License-Identifier: MIT
// Values of a platform whose classes have other fields than those of the bundled one.

namespace Tarvik {

struct Identifier {
  int number;
};

struct GUIdentifier {
  int number;
};

struct NameInterface {
  char letter;
};

template <class T>
struct TKGroup : NameInterface {
  T m_members;
  Identifier m_id;
};

struct CommandBase {
  char text;
};

struct RenameTKGroupCmd : CommandBase {
  int m_newName;
};

struct MacroCommand : CommandBase {
  int held;
};

}

namespace {

using namespace Tarvik;

const Identifier id{1};
const GUIdentifier guid{2};
const TKGroup<GUIdentifier> group{{'A'}, {3}, {4}};
const RenameTKGroupCmd command{{'B'}, 5};
const MacroCommand macro{{'C'}, 6};

/// Where the debugger stops.
int stop()
{
  return id.number + guid.number + group.m_id.number + command.m_newName + macro.held;
}

}

int main()
{
  return stop() == 0 ? 1 : 0;
}
