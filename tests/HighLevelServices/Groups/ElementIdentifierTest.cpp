// SPDX-License-Identifier: MIT
#include "HighLevelServices/Groups/ElementIdentifier.h"

#include "Identifier/GUIdentifier.h"
#include "Identifier/Identifier.h"

#include <gtest/gtest.h>

#include <string>

namespace Tarvik {
namespace {

/// The least that a host's own identifier offers; each class below lacks one thing of it.
struct Complete {
  Complete();
  Complete(const Complete&);
  Complete& operator=(const Complete&);
  bool isValid() const;
  static const Complete& getInvalidId();
  static void serialization_register(void* record);
  bool operator==(const Complete&) const;
};

struct WithoutDefault : Complete {
  explicit WithoutDefault(int);
  static const WithoutDefault& getInvalidId();
};

struct WithoutCopy : Complete {
  WithoutCopy();
  WithoutCopy(const WithoutCopy&) = delete;
  WithoutCopy& operator=(const WithoutCopy&);
  static const WithoutCopy& getInvalidId();
};

struct WithoutAssignment : Complete {
  WithoutAssignment();
  WithoutAssignment(const WithoutAssignment&);
  WithoutAssignment& operator=(const WithoutAssignment&) = delete;
  static const WithoutAssignment& getInvalidId();
};

struct WithoutEquality {
  bool isValid() const;
  static const WithoutEquality& getInvalidId();
  static void serialization_register(void* record);
};

struct WithoutValidity {
  static const WithoutValidity& getInvalidId();
  static void serialization_register(void* record);
  bool operator==(const WithoutValidity&) const;
};

struct WithoutInvalidId {
  bool isValid() const;
  static void serialization_register(void* record);
  bool operator==(const WithoutInvalidId&) const;
};

struct WithInvalidIdByValue {
  bool isValid() const;
  static WithInvalidIdByValue getInvalidId();
  static void serialization_register(void* record);
  bool operator==(const WithInvalidIdByValue&) const;
};

struct WithoutRegistration {
  bool isValid() const;
  static const WithoutRegistration& getInvalidId();
  bool operator==(const WithoutRegistration&) const;
};

struct WithPrivateRegistration : Complete {
  static const WithPrivateRegistration& getInvalidId();

private:
  static void serialization_register(void* record);
};

TEST(ElementIdentifier, AsksForWhatGroupsAndCommandsNeedAndNoMore)
{
  EXPECT_TRUE(ElementIdentifier<Identifier>);
  EXPECT_TRUE(ElementIdentifier<GUIdentifier>);
  EXPECT_TRUE(ElementIdentifier<Complete>);

  EXPECT_FALSE(ElementIdentifier<WithoutDefault>);
  EXPECT_FALSE(ElementIdentifier<WithoutCopy>);
  EXPECT_FALSE(ElementIdentifier<WithoutAssignment>);
  EXPECT_FALSE(ElementIdentifier<WithoutEquality>);
  EXPECT_FALSE(ElementIdentifier<WithoutValidity>);
  EXPECT_FALSE(ElementIdentifier<WithoutInvalidId>);
  EXPECT_FALSE(ElementIdentifier<WithInvalidIdByValue>);
  EXPECT_FALSE(ElementIdentifier<WithoutRegistration>);
  EXPECT_FALSE(ElementIdentifier<WithPrivateRegistration>);
  EXPECT_FALSE(ElementIdentifier<std::string>);
  EXPECT_FALSE(ElementIdentifier<int>);
}

}
}
