// SPDX-License-Identifier: MIT
#pragma once

#include "CommandPattern/CommandHistory.h"
#include "CommandPattern/HistoryEntry.h"
#include "Platform/CommandPattern/HistoryTest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <utility>

namespace Tarvik {

/// What the drags of a test move, and which of their calls fail.
struct Desk {
  int place = 0;
  std::set<std::string> failing = {};    ///< calls that throw a Failure: "undo b"
  std::set<std::string> exhausting = {}; ///< calls that throw std::bad_alloc, once
};

/// What a drag tells about itself.
struct DragTraits {
  std::string hand = ""; ///< drags of the same hand are merged; those of none are not
  std::size_t size = 0;  ///< in bytes
  std::string name = ""; ///< for the calls that fail
  bool isRedoCapable = true;
  bool losesRedoInUndo = false;
};

/// Moves the place to another one. Its description says from where to where: "0>3".
class Drag : public CommandBase, public HistoryEntry {
public:
  Drag(Desk& desk, int to, DragTraits traits = {})
      : CommandBase(std::string()),
        m_desk(desk),
        m_from(desk.place),
        m_to(to),
        m_traits(std::move(traits))
  {}

  void execute() override
  {
    failIfAsked("execute");
    m_from = m_desk.place;
    m_desk.place = m_to;
    describe();
  }

  void undo() override
  {
    failIfAsked("undo");
    EXPECT_EQ(m_desk.place, m_to) << "undone in another state: " << getDescription();
    m_desk.place = m_from;
    if (m_traits.losesRedoInUndo)
      m_traits.isRedoCapable = false;
  }

  void redo() override
  {
    failIfAsked("redo");
    EXPECT_EQ(m_desk.place, m_from) << "redone in another state: " << getDescription();
    m_desk.place = m_to;
  }

  bool isRedoCapable() override { return m_traits.isRedoCapable; }
  const std::string& getDescription() const override { return m_text; }

  std::size_t sizeInBytes() const override { return m_traits.size; }
  bool hasChangedNothing() const override { return m_from == m_to; }

  bool mergeWith(CommandBase& later) override
  {
    auto* const drag = dynamic_cast<Drag*>(&later);
    if (drag == nullptr || m_traits.hand.empty() || drag->m_traits.hand != m_traits.hand)
      return false;
    m_to = drag->m_to;
    m_traits.size += drag->m_traits.size;
    describe();
    return true;
  }

private:
  void describe() { m_text = std::to_string(m_from) + '>' + std::to_string(m_to); }

  void failIfAsked(const std::string& operation)
  {
    const auto call = operation + ' ' + m_traits.name;
    if (m_desk.exhausting.erase(call) > 0)
      throw std::bad_alloc();
    if (m_desk.failing.contains(call))
      throw Failure(call);
  }

  Desk& m_desk;
  int m_from;
  int m_to;
  DragTraits m_traits;
  std::string m_text;
};

/// A history, and the desk that its commands change.
class DragTest : public ::testing::Test {
protected:
  bool drag(int to, DragTraits traits = {})
  {
    return history.execute(std::make_shared<Drag>(desk, to, std::move(traits)));
  }

  Desk desk;
  CommandHistory history;
};

}
