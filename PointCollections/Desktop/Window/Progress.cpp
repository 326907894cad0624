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

/// Work in another thread, which owns this together with whoever waits.
struct Job {
  std::function<void(Cancellation&)> work;
  Cancellation cancellation;
  std::exception_ptr failure;
};

/// A thread that does the work once. It deletes itself, and the program does not end before that.
QThread* threadFor(std::shared_ptr<Job> job)
{
  auto* const thread = QThread::create([job = std::move(job)] {
    try {
      job->work(job->cancellation);
    } catch (...) {
      job->failure = std::current_exception();
    }
  });
  QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
  QObject::connect(qApp, &QCoreApplication::aboutToQuit, thread, [thread] { thread->wait(); });
  return thread;
}

/// A dialog that appears after a while and lets the user cancel the job.
class Patience {
public:
  Patience(QWidget* window, const QString& text, Job& job)
      : m_dialog(text, QProgressDialog::tr("Cancel"), 0, 0, window)
  {
    m_dialog.setWindowModality(Qt::ApplicationModal);
    m_dialog.reset(); // otherwise it decides itself when to appear
    m_dialog.setAccessibleName(text);
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_loop, &QEventLoop::quit);
    const auto cancel = [this, &job] {
      if (job.cancellation.cancel())
        m_loop.quit();
    };
    QObject::connect(&m_dialog, &QProgressDialog::canceled, &m_loop, cancel);
    QObject::connect(&m_dialog, &QDialog::rejected, &m_loop, cancel); // by Escape, if not active
  }

  QEventLoop& loop() { return m_loop; }

  /// Waits until somebody ends the loop. Before the dialog is shown, what the user types and clicks
  /// waits, too: the window must not begin anything else.
  void wait(const bool& isDone)
  {
    m_timer.start(millisecondsOfPatience);
    m_loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (isDone)
      return;
    m_dialog.show();
    m_loop.exec(QEventLoop::AllEvents);
  }

private:
  QProgressDialog m_dialog;
  QTimer m_timer;
  QEventLoop m_loop;
};

}

bool runWithProgress(QWidget* window, const QString& text, std::function<void(Cancellation&)> work)
{
  const auto job = std::make_shared<Job>();
  job->work = std::move(work);
  Patience patience(window, text, *job);
  bool isDone = false;
  auto* const thread = threadFor(job);
  QObject::connect(thread, &QThread::finished, &patience.loop(), [&] {
    isDone = true;
    patience.loop().quit();
  });
  thread->start();
  patience.wait(isDone);
  if (!isDone) { // cancelled, or the program ends
    if (job->cancellation.cancel())
      return false;
    thread->wait(); // the rest takes no time
  }
  if (job->failure)
    std::rethrow_exception(job->failure);
  return true;
}

}
