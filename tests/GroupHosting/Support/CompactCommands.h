// SPDX-License-Identifier: MIT
#pragma once

#include "GroupHosting/Commands/CompactTKGroupCmd.h"
#include "Support/CommandCases.h"

#include <memory>
#include <utility>
#include <vector>

/// Every command as a compact one, for the tests of what all commands promise.
namespace Tarvik {

/// A compact command that runs the command of a case:
/// `Case::template make<CompactCommandOf<Case>>(host)`.
template <class Case>
class CompactCommandOf : public CompactTKGroupCmd<typename Case::Element> {
  using Element = typename Case::Element;
  using Host = std::shared_ptr<RecordingHost<Element>>;

public:
  CompactCommandOf(const Host& host, const std::vector<Identifier>& ids)
      : CompactCommandOf(Maker(), host, ids)
  {}

  template <class... Arguments>
  explicit CompactCommandOf(const Host& host, const Arguments&... arguments)
      : CompactCommandOf(Maker(), host, arguments...)
  {}

private:
  struct Maker {};

  template <class... Arguments>
  CompactCommandOf(Maker, const Host& host, const Arguments&... arguments)
      : CompactTKGroupCmd<Element>(
            host, [arguments...](typename CompactTKGroupCmd<Element>::Provider provider) {
              return std::make_shared<typename Case::Command>(std::move(provider), arguments...);
            })
  {}
};

/// The compact command of a case on a host.
template <class Case, class Host>
auto makeCompact(const Host& host)
{
  return Case::template make<CompactCommandOf<Case>>(host);
}

/// A compact command that makes its command with a function.
template <class T, class Make>
CompactTKGroupCmd<T> compact(const std::shared_ptr<RecordingHost<T>>& host, Make make)
{
  return CompactTKGroupCmd<T>(host, make);
}

}
