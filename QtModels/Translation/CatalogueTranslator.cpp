// SPDX-License-Identifier: MIT
#include "QtModels/Translation/CatalogueTranslator.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QRegularExpression>

#include <optional>
#include <string>
#include <utility>

namespace Tarvik {
namespace {

/// The text with an isolate around each placeholder for a name: those of QString::arg(), and those
/// of std::format() and its like, which writes braces as "{{". Numbers (%n) need none.
QString isolated(QString text)
{
  static const QRegularExpression placeholder(
      QStringLiteral(R"((%L?[0-9]{1,2}|(?<!\{|\\u)\{[0-9]*(?::[^{}]*)?\}(?!\})))"));
  return text.replace(placeholder, QStringLiteral("\u2068\\1\u2069"));
}

}

CatalogueTranslator::CatalogueTranslator(Translator::Catalogue catalogue,
                                         Qt::LayoutDirection direction)
    : m_catalogue(std::move(catalogue)), m_direction(direction)
{}

/// Leaves the application while the catalogue is still there for other threads.
CatalogueTranslator::~CatalogueTranslator()
{
  if (QCoreApplication::instance() != nullptr)
    QCoreApplication::removeTranslator(this);
}

bool CatalogueTranslator::isEmpty() const
{
  return !m_catalogue;
}

QString CatalogueTranslator::translate(const char* context,
                                       const char* text,
                                       const char* disambiguation,
                                       int count) const
{
  try {
    const auto translation = m_catalogue ? m_catalogue(context, text, disambiguation, count)
                                         : std::optional<std::string>();
    if (!translation)
      return {};
    auto result = QString::fromStdString(*translation);
    return m_direction == Qt::RightToLeft ? isolated(std::move(result)) : result;
  } catch (...) { // texts are asked for where nobody expects an exception
    return {};
  }
}

}
