// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/FileNames.h"
#include "PointCollections/Desktop/Window/MainWindow.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QLibraryInfo>
#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtWidgets/QApplication>

int main(int argc, char* argv[])
{
  QApplication application(argc, argv);
  QCoreApplication::setOrganizationName(QStringLiteral("TKMService"));
  QCoreApplication::setApplicationName(QStringLiteral("point-collections-desktop"));
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Point Collections"));
  QCoreApplication::setApplicationVersion(QStringLiteral(POINT_COLLECTIONS_VERSION));

  QTranslator textsOfQt; // dialogs and standard buttons
  if (textsOfQt.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&textsOfQt);

  QCommandLineParser parser;
  parser.setApplicationDescription(
      QCoreApplication::translate("main", "Sorts point collections into named groups."));
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument(
      QStringLiteral("file"),
      QCoreApplication::translate("main", "a project (.tkpc) or a file of points (.csv)"),
      QStringLiteral("[file]"));
  parser.process(application);

  Tarvik::PointCollections::MainWindow window;
  window.show();
  const auto files = parser.positionalArguments();
  if (!files.isEmpty()) {
    // In the event loop, since opening may ask questions.
    QTimer::singleShot(0, &window, [&] {
      window.fileCommands().openFile(Tarvik::PointCollections::pathFrom(files.constFirst()));
    });
  }
  return QApplication::exec();
}
