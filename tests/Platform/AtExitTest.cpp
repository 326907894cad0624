// SPDX-License-Identifier: MIT
// Objects that a program destroys at its end may still use the platform, which is destroyed later.

#include "Identifier/Identifier.h"
#include "PersistenceArchiver/BaseClassRegister.h"
#include "Translator/Translator.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace Tarvik {
namespace {

/// Uses the platform in its destructor. Ends the program with 3 when that goes wrong.
class LateUser {
public:
  LateUser() = default;
  LateUser(const LateUser&) = delete;
  LateUser& operator=(const LateUser&) = delete;
  ~LateUser()
  {
    BaseClassRegister record;
    Identifier::serialization_register(&record);
    const bool isFine = Translator::translate("AtExit", "text", nullptr, -1) == "translated" &&
                        record.classHash != BaseClassRegister::unknownClassHash;
    if (!isFine)
      std::_Exit(3);
  }
};

TEST(AtExit, TheTranslatorAndTheClassRegistryStillAnswer)
{
  EXPECT_EXIT(
      {
        static const LateUser late{}; // constructed before anything of the platform is used
        Translator::installCatalogue(
            [](auto...) { return std::optional<std::string>("translated"); });
        std::exit(0);
      },
      ::testing::ExitedWithCode(0), "");
}

}
}
