// SPDX-License-Identifier: MIT
// Has nothing of its own. CMake compiles GoogleTest's headers along with it, for all test programs.
