#pragma once

#include "ProgramTest.h"
#include "SourceDisposal.h"

// A test class whose functions each get a converted movie, whose source may go.
class DisposalTest : public ProgramTest {
  Q_OBJECT

 protected Q_SLOTS:
  void init();

 protected:
  // A file of the program; null when it cannot be written.
  [[nodiscard]] QString write(const QString &name, const QByteArray &bytes) const;
  // What the tool reads as the length of every output.
  void playDuration(const char *duration) const;

  decant::DisposalRequest m_request;
};
