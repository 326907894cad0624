// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QTranslator>

namespace Tarvik {

/// A language for tests, installed as long as the object lives: the texts in upper case.
class ShoutingTranslator : public QTranslator {
public:
  ShoutingTranslator()
  {
    QCoreApplication::installTranslator(this);
    QCoreApplication::processEvents();
  }

  ~ShoutingTranslator() override
  {
    QCoreApplication::removeTranslator(this);
    QCoreApplication::processEvents();
  }

  bool isEmpty() const override { return false; }

  QString translate(const char*, const char* text, const char*, int) const override
  {
    return QString::fromUtf8(text).toUpper();
  }
};

}
