// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// Classes for the archives of tests, registered as "Test.<Name>" in version 1.
namespace Tarvik {

struct Point {
  std::int32_t x = 0;
  std::int32_t y = 0;

  static void serialization_register(void* out);
  friend bool operator==(const Point&, const Point&) = default;
};

/// May point to others, to itself, or back.
struct Node {
  std::uint32_t value = 0;
  std::shared_ptr<Node> next;

  static void serialization_register(void* out);
};

/// An abstract base.
struct Figure {
  Figure();
  Figure(const Figure&) = delete;
  Figure& operator=(const Figure&) = delete;
  virtual ~Figure();
  virtual double area() const = 0;

  std::uint32_t colour = 0;
  static int s_count; ///< of the figures that exist

  static void serialization_register(void* out);
};

struct Circle : Figure {
  double area() const override;

  double radius = 1;

  static void serialization_register(void* out);
};

/// A figure with the circle in between.
struct Ring : Circle {
  double area() const override;

  double width = 0.5;

  static void serialization_register(void* out);
};

struct Labelled {
  Labelled();
  Labelled(const Labelled&) = delete;
  Labelled& operator=(const Labelled&) = delete;
  virtual ~Labelled();

  std::string label;

  static void serialization_register(void* out);
};

/// Its circle does not begin where the sign does.
struct Sign : Labelled, Circle {
  static void serialization_register(void* out);
};

/// A ring of a class that the archive does not know.
struct SecretRing : Ring {};

}
