#include "StoppingRun.h"

#include <QCoreApplication>

namespace decant {

StoppingRun::StoppingRun(std::unique_ptr<JobRun> run, QObject *parent)
    : QObject(parent), m_run(std::move(run)) {
  if (m_run->hasEnded()) {
    deleteFiles();
    return;
  }
  connect(m_run.get(), &JobRun::ended, this, &StoppingRun::deleteFiles);
  m_run->stop();
}

StoppingRun::~StoppingRun() {
  wait();
}

void StoppingRun::begin(std::unique_ptr<JobRun> run) {
  // The application object owns it, so that it ends with the program at the latest.
  auto *stopping = new StoppingRun(std::move(run), QCoreApplication::instance());
  if (stopping->m_run->hasEnded()) {
    stopping->deleteLater();
  } else {
    connect(stopping->m_run.get(), &JobRun::ended, stopping, &QObject::deleteLater);
  }
}

void StoppingRun::finish(std::unique_ptr<JobRun> run) {
  StoppingRun(std::move(run), nullptr).wait();
}

QList<StoppingRun *> StoppingRun::all() {
  const QObject *application = QCoreApplication::instance();
  if (!application) return {};
  return application->findChildren<StoppingRun *>(Qt::FindDirectChildrenOnly);
}

void StoppingRun::finishAll() {
  for (StoppingRun *stopping : all())
    stopping->wait();
}

QList<const OwnFile *> StoppingRun::abandonAll() {
  QList<const OwnFile *> files;
  for (StoppingRun *stopping : all()) {
    if (stopping->m_run->abandon()) files.append(&stopping->m_run->output());
  }
  return files;
}

void StoppingRun::wait() {
  if (!m_run->hasEnded()) m_run->waitForEnd();
}

void StoppingRun::deleteFiles() {
  m_run->letGo();
  m_run->output().remove();
}

}  // namespace decant
