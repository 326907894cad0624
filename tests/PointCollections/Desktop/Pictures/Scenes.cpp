// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Pictures/Scenes.h"

#include "PointCollections/Desktop/Pictures/Stage.h"

#include <array>
#include <stdexcept>

namespace Tarvik::PointCollections {
namespace {

using Colours = FixedLook::Colours;

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

QImage drawIn(const char* language)
{
  Stage stage(Colours::Light, QString::fromLatin1(language));
  showContinents(stage);
  return stage.draw();
}

QImage drawGerman()
{
  return drawIn("de");
}

QImage drawJapanese()
{
  return drawIn("ja");
}

QImage drawArabic()
{
  return drawIn("ar");
}

}

QImage Scenes::draw(const QString& name)
{
  using Draw = QImage (*)();
  constexpr std::array<Draw, names.size()> scenes = {
      drawTreeAndGlobe, drawDrag, drawHistory, drawDark, drawGerman, drawJapanese, drawArabic};
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (name == QLatin1String(names[i]))
      return scenes[i]();
  }
  throw std::invalid_argument("There is no scene " + name.toStdString());
}

}
