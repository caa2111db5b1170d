#include "DisposalTest.h"

#include <QTest>

#include "File.h"
#include "Scenario.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;

void DisposalTest::init() {
  ProgramTest::init();
  m_request = decant::DisposalRequest{
      write(u"Film.mkv"_s, "source"), {}, {write(u"Film.m4v"_s, "output")}, 100, false};
  m_request.identity = ostrak::fileIdentity(m_request.source);
}

QString DisposalTest::write(const QString &name, const QByteArray &bytes) const {
  return wholefile::made(m_program->path(name), bytes);
}

void DisposalTest::playDuration(const char *duration) const {
  Scenario scenario(m_program->path(u"bundle/resources/ffmpeg.scenario"_s));
  scenario.probe().reportText(QByteArray("  Duration: ") + duration +
                              ", start: 0.000000, bitrate: 10 kb/s\n");
  QVERIFY(scenario.write());
}
