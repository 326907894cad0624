// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/EndSignals.h"
#include "PointCollections/Desktop/Window/FileNames.h"
#include "PointCollections/Desktop/Window/Languages.h"
#include "PointCollections/Desktop/Window/MainWindow.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QTimer>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

#include <clocale>
#include <cstdlib>

namespace {

using Tarvik::PointCollections::EndSignals;
using Tarvik::PointCollections::Languages;
using Tarvik::PointCollections::MainWindow;
using Tarvik::PointCollections::pathFrom;

QString translated(const char* text)
{
  return QCoreApplication::translate("main", text);
}

/// Opens the file and, if it is asked for, writes a picture of the window and ends the program.
void begin(MainWindow& window, const QString& file, const QString& picture)
{
  const auto isOpen = file.isEmpty() || window.fileCommands().openFile(pathFrom(file));
  if (picture.isEmpty())
    return;
  QCoreApplication::processEvents(); // lays the window out anew
  const auto isWritten = isOpen && window.grab().save(picture, "PNG");
  QCoreApplication::exit(isWritten ? EXIT_SUCCESS : EXIT_FAILURE);
}

/// @return the exit status
int run(int argc, char** argv)
{
  QApplication application(argc, argv);
#if defined(LC_MESSAGES)
  // The texts of the system, which Qt has switched to its language, come in the language of the
  // menu, from the catalogue.
  std::setlocale(LC_MESSAGES, "C");
#endif
  QCoreApplication::setOrganizationName(QStringLiteral("TKMService"));
  QCoreApplication::setApplicationName(QStringLiteral("point-collections-desktop"));
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Point Collections"));
  QCoreApplication::setApplicationVersion(QStringLiteral(POINT_COLLECTIONS_VERSION));
  QGuiApplication::setDesktopFileName(QCoreApplication::applicationName());
  QGuiApplication::setWindowIcon(QIcon::fromTheme(QCoreApplication::applicationName()));

  Languages::instance();

  QCommandLineParser parser;
  parser.setApplicationDescription(
      translated(QT_TRANSLATE_NOOP("main", "Sorts point collections into named groups.")));
  parser.addHelpOption();
  parser.addVersionOption();
  const QCommandLineOption picture(
      QStringLiteral("picture"),
      translated(
          QT_TRANSLATE_NOOP("main", "Write a picture of the window to a PNG file, and end.")),
      QStringLiteral("file"));
  parser.addOption(picture);
  parser.addPositionalArgument(
      QStringLiteral("file"),
      translated(QT_TRANSLATE_NOOP("main", "A project (.tkpc) or a file of points (.csv).")),
      QStringLiteral("[file]"));
  parser.process(application);

  const EndSignals endSignals;
  MainWindow window;
  window.show();
  QObject::connect(&endSignals, &EndSignals::received, &window, [&window] {
    window.prepareForEnd();
    QCoreApplication::exit(EXIT_SUCCESS);
  });
  // In the event loop, since opening may ask questions.
  QTimer starting;
  starting.setSingleShot(true);
  QObject::connect(&starting, &QTimer::timeout, &window, [&] {
    begin(window, parser.positionalArguments().value(0), parser.value(picture));
  });
  starting.start();
  return QApplication::exec();
}

}

int main(int argc, char* argv[])
{
  const auto status = run(argc, argv);
  EndSignals::endAsAsked(); // after everything is tidy
  return status;
}
