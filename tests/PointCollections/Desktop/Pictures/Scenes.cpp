// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Pictures/Scenes.h"

#include "PointCollections/Desktop/Pictures/Stage.h"
#include "QtModels/Translation/QtTranslation.h"
#include "Translator/Translator.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QTranslator>

#include <memory>
#include <stdexcept>
#include <vector>

namespace Tarvik::PointCollections {
namespace {

using Colours = FixedLook::Colours;

/// While it exists, all texts of the library and of the program are German.
class German {
public:
  German()
  {
    QtTranslation::install();
    for (const auto* const folder : {QtTranslation::folder, ":/point-collections"})
      install(QDir(QString::fromLatin1(folder)));
  }

  German(const German&) = delete;
  German& operator=(const German&) = delete;

  ~German() { Translator::installCatalogue({}); }

private:
  void install(const QDir& folder)
  {
    for (const auto& name : folder.entryList({QStringLiteral("*_de.qm")})) {
      auto texts = std::make_unique<QTranslator>();
      if (!texts->load(folder.filePath(name)))
        throw std::runtime_error("These texts cannot be loaded: " + name.toStdString());
      QCoreApplication::installTranslator(texts.get());
      m_texts.push_back(std::move(texts));
    }
  }

  std::vector<std::unique_ptr<QTranslator>> m_texts; ///< each leaves the application when it goes
};

/// Europe and Africa in the middle, seen from a little to the north.
void showContinents(Stage& stage)
{
  stage.createContinents();
  stage.turn(-3, 5);
  stage.expand("Oceania");
  stage.window().groups().tree().scrollToTop();
}

QImage drawTreeAndGlobe()
{
  Stage stage(Colours::Light);
  showContinents(stage);
  return stage.draw();
}

QImage drawDrag()
{
  Stage stage(Colours::Light);
  stage.createContinents();
  stage.turn(-3, 5);
  stage.select(QStringLiteral("Canary,Cape Verde,Madeira,St Helena"));
  stage.window().groups().tree().scrollToTop();
  return stage.drawDragOnto("Africa");
}

QImage drawHistory()
{
  Stage stage(Colours::Light);
  showContinents(stage);
  auto& window = stage.window();
  const auto& operations = window.groups().editor().operations();
  const auto group = [&](std::size_t number) {
    return window.workspace().editor().document()->getGroups()[number].getId();
  };
  operations.addToGroup(stage.elements(QStringLiteral("Istanbul")), group(0));
  operations.addToGroup(stage.elements(QStringLiteral("Canary,Madeira,Azores")), group(0));
  operations.renameGroup(group(5), "Pacific");
  operations.sortGroups();
  operations.deleteGroups({group(1)});
  window.workspace().history().setIndex(7);
  return stage.draw();
}

QImage drawDark()
{
  Stage stage(Colours::Dark);
  showContinents(stage);
  stage.expand("Africa");
  stage.select(QStringLiteral("Cairo,Casablanca,Dakar,Nairobi"));
  return stage.draw();
}

QImage drawGerman()
{
  const German german;
  Stage stage(Colours::Light, QLocale(QLocale::German));
  showContinents(stage);
  return stage.draw();
}

}

QImage Scenes::draw(const QString& name)
{
  using Draw = QImage (*)();
  constexpr std::array<Draw, names.size()> scenes = {drawTreeAndGlobe, drawDrag, drawHistory,
                                                     drawDark, drawGerman};
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (name == QLatin1String(names[i]))
      return scenes[i]();
  }
  throw std::invalid_argument("There is no scene " + name.toStdString());
}

}
