// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

/// Counted things in the user's language: "1 element", "2 elements".
namespace Tarvik::PointCollections {

std::string countOfElements(std::size_t number);
std::string countOfGroups(std::size_t number);
std::string countOfPoints(std::size_t number);

}
