// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace Tarvik::PointCollections {

/// A mistake in the user's input. what() says in the user's language what is wrong and what would
/// be right, in one line that in English starts with a small letter and has no full stop.
class UserError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

}
