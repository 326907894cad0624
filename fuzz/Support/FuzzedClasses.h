// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// Classes with what groups do not have: objects in objects, and shared objects in circles.
namespace Tarvik {

struct Box {
  std::string label;
  std::vector<Box> parts;
  std::vector<bool> flags;

  static void serialization_register(void* out);
  friend bool operator==(const Box& a, const Box& b) = default;
};

struct Node {
  Node();
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;
  ~Node();

  double weight = 0;
  std::vector<std::shared_ptr<Node>> neighbours;

  static void serialization_register(void* out);

  /// Nodes that share each other live forever: removes all neighbours.
  /// @return how many nodes are left
  static std::size_t takeApart();
};

}
