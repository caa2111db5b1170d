#pragma once

#include <QList>
#include <QObject>
#include <memory>

#include "JobRun.h"

namespace decant {

// A run whose job has been removed: outlives the job until the child has ended, and only then
// deletes what the run wrote. Main thread.
class StoppingRun final : public QObject {
  Q_OBJECT

 public:
  // Waits for the child where it still runs.
  ~StoppingRun() override;

  // Stops the child by the ladder and returns at once; the rest follows when the child has ended.
  static void begin(std::unique_ptr<JobRun> run);
  // Stops the child, waits for its end, at most as long as the ladder takes, and deletes its files.
  static void finish(std::unique_ptr<JobRun> run);
  // Waits until every run that was begun has ended and its files are gone. Needs no event loop.
  static void finishAll();
  // For the end of a program that is broken: ends the children of all that were begun at once, and
  // returns the files that are to be deleted, which live as long as the application object.
  [[nodiscard]] static QList<const OwnFile *> abandonAll();

 private:
  [[nodiscard]] static QList<StoppingRun *> all();
  StoppingRun(std::unique_ptr<JobRun> run, QObject *parent);
  void wait();
  void deleteFiles();

  std::unique_ptr<JobRun> m_run;
};

}  // namespace decant
