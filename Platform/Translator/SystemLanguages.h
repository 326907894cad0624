// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace Tarvik {

/// The languages that the user has chosen in the system's settings, such as "de-AT"; empty where
/// only the environment tells.
std::vector<std::string> systemLanguages();

}
