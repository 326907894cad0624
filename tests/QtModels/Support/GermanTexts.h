// SPDX-License-Identifier: MIT
#pragma once

#include "QtModels/Translation/CatalogueTranslator.h"
#include "Translator/CatalogueFolder.h"

#include <stdexcept>

namespace Tarvik {

/// The German texts of this project, for Qt.
class GermanTexts : public CatalogueTranslator {
public:
  GermanTexts() : CatalogueTranslator(catalogue()) {}

private:
  static MoCatalogue catalogue()
  {
    const auto folder = CatalogueFolder::ofThisProject();
    const auto found = folder.load({"de"});
    if (!found)
      throw std::runtime_error("There are no German texts in " + folder.path().string());
    return *found;
  }
};

}
