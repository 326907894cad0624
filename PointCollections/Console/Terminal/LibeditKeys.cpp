// SPDX-License-Identifier: MIT
#include "PointCollections/Console/Terminal/LibeditKeys.h"

#include <array>
#include <string>

namespace Tarvik::PointCollections {
namespace {

constexpr auto toStart = "ed-move-to-beg";
constexpr auto toEnd = "ed-move-to-end";
constexpr auto toWordBefore = "ed-prev-word";
constexpr auto toWordAfter = "em-next-word";
constexpr auto deleteCharacter = "ed-delete-next-char";
constexpr auto searchBackward = "ed-search-prev-history"; // for what is typed before the cursor
constexpr auto searchForward = "ed-search-next-history";
constexpr auto doNothing = "ed-ignore";

/// What a key sends, in the notation of libedit, and what it does.
struct Key {
  const char* sent;
  const char* command;
};

constexpr std::array keys = {
    Key{"\\e[H", toStart},          // xterm
    Key{"\\e[F", toEnd},            //
    Key{"\\eOH", toStart},          // xterm, in its mode for applications
    Key{"\\eOF", toEnd},            //
    Key{"\\e[1~", toStart},         // Linux, screen, tmux
    Key{"\\e[4~", toEnd},           //
    Key{"\\e[7~", toStart},         // rxvt
    Key{"\\e[8~", toEnd},           //
    Key{"\\e[2~", doNothing},       // Insert
    Key{"\\e[3~", deleteCharacter}, // Delete
    Key{"\\e[5~", searchBackward},  // PgUp
    Key{"\\e[6~", searchForward},   // PgDn
    Key{"\\eOd", toWordBefore},     // Ctrl-arrows: rxvt
    Key{"\\eOc", toWordAfter},      //
    Key{"\\e[5D", toWordBefore},    // old versions of PuTTY and screen
    Key{"\\e[5C", toWordAfter},     //
    Key{"\\eO5D", toWordBefore},    //
    Key{"\\eO5C", toWordAfter},     //
    Key{"\\e\\e[D", toWordBefore},  // Alt-arrows that send Escape first
    Key{"\\e\\e[C", toWordAfter},   //
};

void bindKey(EditLine* line, const std::string& sent, const char* command)
{
  el_set(line, EL_BIND, sent.c_str(), command, nullptr);
}

}

void bindKeys(EditLine* line)
{
  for (const auto& [sent, command] : keys)
    bindKey(line, sent, command);
  // With Shift (2), Alt (3), Ctrl (5) or several of them: xterm, screen, tmux.
  for (char modifier = '2'; modifier <= '8'; ++modifier) {
    const auto start = std::string("\\e[1;") + modifier;
    const bool hasShiftOnly = modifier == '2';
    bindKey(line, start + 'C', hasShiftOnly ? "ed-next-char" : toWordAfter);
    bindKey(line, start + 'D', hasShiftOnly ? "ed-prev-char" : toWordBefore);
    bindKey(line, start + 'H', toStart);
    bindKey(line, start + 'F', toEnd);
    bindKey(line, start + 'A', "ed-prev-history");
    bindKey(line, start + 'B', "ed-next-history");
    bindKey(line, std::string("\\e[3;") + modifier + '~', deleteCharacter);
    bindKey(line, std::string("\\e[5;") + modifier + '~', searchBackward);
    bindKey(line, std::string("\\e[6;") + modifier + '~', searchForward);
  }
  // Its prompt takes every key as text, even Ctrl-C.
  for (const auto* const key : {"\\ex", "\\eX"})
    el_set(line, EL_BIND, "-r", key, nullptr);
}

}
