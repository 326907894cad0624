// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/qglobal.h>

/// @file
/// What the commands and other classes without Qt give to the Translator, for lupdate: it does not
/// find these texts where they are used. A test compares this list with the sources.

namespace Tarvik {

/// A text that is translated, and its context.
struct TranslatedText {
  const char* context; ///< the class of the command
  const char* text;    ///< in English
};

/// All texts of HighLevelServices and GroupHosting.
inline constexpr TranslatedText commandTexts[] = {
    {"AddToTKGroupCmd", QT_TRANSLATE_NOOP("AddToTKGroupCmd", "Add to Group")},
    {"CreateTKGroupCmd", QT_TRANSLATE_NOOP("CreateTKGroupCmd", "Create Group")},
    {"CreateTKGroupCmd", QT_TRANSLATE_NOOP("CreateTKGroupCmd", "Group")},
    {"MoveTKGroupElementsCmd", QT_TRANSLATE_NOOP("MoveTKGroupElementsCmd", "Move Elements")},
    {"MoveTKGroupsCmd", QT_TRANSLATE_NOOP("MoveTKGroupsCmd", "Move Groups")},
    {"RemoveFromTKGroupCmd",
     QT_TRANSLATE_NOOP("RemoveFromTKGroupCmd", "Remove Point Collection(s) From Group")},
    {"RemoveTKGroupsCmd", QT_TRANSLATE_NOOP("RemoveTKGroupsCmd", "Remove Group")},
    {"RenameTKGroupCmd", QT_TRANSLATE_NOOP("RenameTKGroupCmd", "Rename Group")},
    {"SortTKGroupsAlphabeticallyCmd",
     QT_TRANSLATE_NOOP("SortTKGroupsAlphabeticallyCmd", "Sort Groups")},
};

}
