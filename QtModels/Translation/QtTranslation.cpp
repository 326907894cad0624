// SPDX-License-Identifier: MIT
#include "QtModels/Translation/QtTranslation.h"

#include "Translator/Translator.h"

#include <QtCore/QCoreApplication>

#include <optional>
#include <string>

namespace Tarvik {

void QtTranslation::install()
{
  Translator::installCatalogue([](const char* context, const char* text, const char* disambiguation,
                                  int count) -> std::optional<std::string> {
    if (text == nullptr)
      return std::nullopt;
    return QCoreApplication::translate(context, text, disambiguation, count).toStdString();
  });
}

}
