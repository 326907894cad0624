// SPDX-License-Identifier: MIT
#include "PointCollections/Desktop/Window/Progress.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtWidgets/QProgressDialog>

#include <exception>
#include <memory>
#include <utility>

namespace Tarvik::PointCollections {
namespace {

constexpr int millisecondsOfPatience = 1000;

/// A thread that does the work once. It deletes itself, and the program does not end before that.
QThread* threadFor(std::function<void()> work, std::shared_ptr<std::exception_ptr> failure)
{
  auto* const thread = QThread::create([work = std::move(work), failure = std::move(failure)] {
    try {
      work();
    } catch (...) {
      *failure = std::current_exception();
    }
  });
  QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
  QObject::connect(qApp, &QCoreApplication::aboutToQuit, thread, [thread] { thread->wait(); });
  return thread;
}

}

bool runWithProgress(QWidget* window, const QString& text, std::function<void()> work)
{
  const auto failure = std::make_shared<std::exception_ptr>();
  QProgressDialog dialog(text, QProgressDialog::tr("Cancel"), 0, 0, window);
  dialog.setWindowModality(Qt::ApplicationModal);
  dialog.reset(); // otherwise it decides itself when to appear
  QTimer patience;
  patience.setSingleShot(true);
  QObject::connect(&patience, &QTimer::timeout, &dialog, &QWidget::show);

  QEventLoop loop;
  auto* const thread = threadFor(std::move(work), failure);
  QObject::connect(thread, &QThread::finished, &loop, &QEventLoop::quit);
  QObject::connect(&dialog, &QProgressDialog::canceled, &loop, [&loop] { loop.exit(1); });
  patience.start(millisecondsOfPatience);
  thread->start();
  if (loop.exec(QEventLoop::AllEvents) != 0)
    return false;
  if (*failure)
    std::rethrow_exception(*failure);
  return true;
}

}
