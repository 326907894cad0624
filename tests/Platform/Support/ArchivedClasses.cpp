// SPDX-License-Identifier: MIT
#include "Platform/Support/ArchivedClasses.h"

#include "PersistenceArchiver/ClassRegistration.h"

#include <numbers>

namespace Tarvik {

namespace {

template <class C, LoadOperation<C> load, SaveOperation<C> save>
void registerAs(const std::string& name, unsigned int leastSize, void* out)
{
  static const auto* const registered = registerClass<C, load, save>(name, 1, leastSize);
  *static_cast<BaseClassRegister*>(out) = *registered;
}

void loadPoint(PersistenceArchiver& archive, Point& point, unsigned int)
{
  archive >> point.x >> point.y;
}

void savePoint(PersistenceArchiver& archive, const Point& point, unsigned int)
{
  archive << point.x << point.y;
}

void loadNode(PersistenceArchiver& archive, Node& node, unsigned int)
{
  archive >> node.value >> node.next;
}

void saveNode(PersistenceArchiver& archive, const Node& node, unsigned int)
{
  archive << node.value << node.next;
}

void loadFigure(PersistenceArchiver& archive, Figure& figure, unsigned int)
{
  archive >> figure.colour;
}

void saveFigure(PersistenceArchiver& archive, const Figure& figure, unsigned int)
{
  archive << figure.colour;
}

void loadCircle(PersistenceArchiver& archive, Circle& circle, unsigned int)
{
  archive >> circle.colour >> circle.radius;
}

void saveCircle(PersistenceArchiver& archive, const Circle& circle, unsigned int)
{
  archive << circle.colour << circle.radius;
}

void loadRing(PersistenceArchiver& archive, Ring& ring, unsigned int)
{
  archive >> ring.colour >> ring.radius >> ring.width;
}

void saveRing(PersistenceArchiver& archive, const Ring& ring, unsigned int)
{
  archive << ring.colour << ring.radius << ring.width;
}

void loadLabelled(PersistenceArchiver& archive, Labelled& labelled, unsigned int)
{
  archive >> labelled.label;
}

void saveLabelled(PersistenceArchiver& archive, const Labelled& labelled, unsigned int)
{
  archive << labelled.label;
}

void loadSign(PersistenceArchiver& archive, Sign& sign, unsigned int)
{
  archive >> sign.label >> sign.colour;
}

void saveSign(PersistenceArchiver& archive, const Sign& sign, unsigned int)
{
  archive << sign.label << sign.colour;
}

/// A program may read an archive before it uses one of the classes.
[[maybe_unused]] const bool areRegistered = [] {
  BaseClassRegister record;
  Point::serialization_register(&record);
  Node::serialization_register(&record);
  registerBase<Figure, Circle>();
  registerBase<Circle, Ring>();
  registerBase<Labelled, Sign>();
  registerBase<Circle, Sign>();
  return true;
}();

}

void Point::serialization_register(void* out)
{
  registerAs<Point, loadPoint, savePoint>("Test.Point", 8, out);
}

void Node::serialization_register(void* out)
{
  registerAs<Node, loadNode, saveNode>("Test.Node", 8, out);
}

int Figure::s_count = 0;

Figure::Figure()
{
  ++s_count;
}

Figure::~Figure()
{
  --s_count;
}

void Figure::serialization_register(void* out)
{
  registerAs<Figure, loadFigure, saveFigure>("Test.Figure", 4, out);
}

double Circle::area() const
{
  return std::numbers::pi * radius * radius;
}

void Circle::serialization_register(void* out)
{
  registerAs<Circle, loadCircle, saveCircle>("Test.Circle", 12, out);
}

double Ring::area() const
{
  const auto inner = radius - width;
  return std::numbers::pi * (radius * radius - inner * inner);
}

void Ring::serialization_register(void* out)
{
  registerAs<Ring, loadRing, saveRing>("Test.Ring", 20, out);
}

Labelled::Labelled() = default;

Labelled::~Labelled() = default;

void Labelled::serialization_register(void* out)
{
  registerAs<Labelled, loadLabelled, saveLabelled>("Test.Labelled", 4, out);
}

void Sign::serialization_register(void* out)
{
  registerAs<Sign, loadSign, saveSign>("Test.Sign", 8, out);
}

}
