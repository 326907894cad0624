// SPDX-License-Identifier: MIT
#pragma once

namespace Tarvik::LegacyProgress::Speed {

enum class Rate { Only };

}
