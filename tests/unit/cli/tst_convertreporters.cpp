#include <QJsonDocument>
#include <QJsonObject>
#include <QObject>
#include <QRegularExpression>
#include <QTest>

#include "BufferSink.h"
#include "JsonConvertReporter.h"
#include "TextConvertReporter.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

const JobLabel first{1, u"/m/Film.mkv"_s};
const JobLabel second{2, u"/m/Größe\n.mkv"_s};
const JobLabel refusedFile{0, u"/m/notes.txt"_s};
const FileFailure noSpace{u"noSpace"_s, u"Conversion Failed"_s, u"There is not enough\nspace."_s};

ostrak::Alert warning() {
  ostrak::Alert alert;
  alert.identifier = u"warningtoohighres"_s;
  alert.title = u"Warning"_s;
  alert.message = u"The file is \"large\"."_s;
  return alert;
}

QJsonObject objectOf(const QByteArray &line) {
  return line.endsWith('\n') && line.count('\n') == 1 ? QJsonDocument::fromJson(line).object()
                                                      : QJsonObject();
}

}  // namespace

class TestConvertReporters final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }
  void jsonEvents();
  void jsonNulls();
  void plainLines();
  void plainLinesHaveNoControlCodes();
  void terminalLines();
  void terminalMakesRoomForErrors();
};

void TestConvertReporters::jsonEvents() {
  BufferSink out;
  JsonConvertReporter reporter(out);
  reporter.queued(first);
  QCOMPARE(objectOf(out.take()),
           (QJsonObject{{u"event"_s, u"queued"_s}, {u"job"_s, 1}, {u"source"_s, first.source}}));
  reporter.started(second);
  QCOMPARE(objectOf(out.take()),
           (QJsonObject{{u"event"_s, u"started"_s}, {u"job"_s, 2}, {u"source"_s, second.source}}));
  reporter.progress(first, 12.5, 70.0);
  QCOMPARE(objectOf(out.take()), (QJsonObject{{u"event"_s, u"progress"_s},
                                              {u"job"_s, 1},
                                              {u"source"_s, first.source},
                                              {u"percent"_s, 12.5},
                                              {u"etaSeconds"_s, 70}}));
  reporter.finished(first, u"/m/Film.m4v"_s, 3.25);
  QCOMPARE(objectOf(out.take()), (QJsonObject{{u"event"_s, u"finished"_s},
                                              {u"job"_s, 1},
                                              {u"source"_s, first.source},
                                              {u"destination"_s, u"/m/Film.m4v"_s},
                                              {u"seconds"_s, 3.25}}));
  reporter.failed(refusedFile, noSpace);
  QCOMPARE(objectOf(out.take()), (QJsonObject{{u"event"_s, u"failed"_s},
                                              {u"source"_s, refusedFile.source},
                                              {u"kind"_s, noSpace.kind},
                                              {u"title"_s, noSpace.title},
                                              {u"text"_s, noSpace.text}}));
  reporter.alerted(first, warning());
  QCOMPARE(objectOf(out.take()), (QJsonObject{{u"event"_s, u"alert"_s},
                                              {u"job"_s, 1},
                                              {u"source"_s, first.source},
                                              {u"identifier"_s, warning().identifier},
                                              {u"title"_s, warning().title},
                                              {u"message"_s, warning().message}}));
  reporter.summary(1, 2);
  QCOMPARE(objectOf(out.take()),
           (QJsonObject{{u"event"_s, u"summary"_s}, {u"finished"_s, 1}, {u"failed"_s, 2}}));
}

void TestConvertReporters::jsonNulls() {
  BufferSink out;
  JsonConvertReporter reporter(out);
  reporter.progress(first, {}, {});
  const QJsonObject progress = objectOf(out.take());
  QVERIFY(progress.value(u"percent"_s).isNull() && progress.contains(u"percent"_s));
  QVERIFY(progress.value(u"etaSeconds"_s).isNull() && progress.contains(u"etaSeconds"_s));
  ostrak::Alert plain = warning();
  plain.identifier = QString();
  reporter.alerted({}, plain);
  const QJsonObject alert = objectOf(out.take());
  QVERIFY(alert.value(u"identifier"_s).isNull() && alert.contains(u"identifier"_s));
  QVERIFY(!alert.contains(u"job"_s) && !alert.contains(u"source"_s));
}

void TestConvertReporters::plainLines() {
  BufferSink out;
  BufferSink error;
  TextConvertReporter reporter(out, error, u"Decant"_s);
  reporter.queued(first);
  QCOMPARE(out.take(), QByteArray());
  reporter.started(first);
  QCOMPARE(out.take(), QByteArray("1 /m/Film.mkv: started\n"));
  reporter.progress(first, 50.0, 10.0);
  QCOMPARE(out.take(), QByteArray());
  reporter.finished(first, u"/m/Film.m4v"_s, 125.9);
  QCOMPARE(out.take(), QByteArray("1 /m/Film.mkv: finished in 2m 5s: /m/Film.m4v\n"));
  QCOMPARE(error.take(), QByteArray());
  reporter.failed({2, u"/m/b.mkv"_s}, noSpace);
  QCOMPARE(out.take(), QByteArray("2 /m/b.mkv: failed\n"));
  QCOMPARE(error.take(), QByteArray("decant: /m/b.mkv: There is not enough space.\n"));
  // A file that is no job has no line of a job, and is not named twice.
  reporter.failed(refusedFile, {u"refused"_s, u"Decant"_s, u"'/m/notes.txt' is not taken."_s});
  QCOMPARE(out.take(), QByteArray());
  QCOMPARE(error.take(), QByteArray("decant: '/m/notes.txt' is not taken.\n"));
  reporter.alerted(first, warning());
  QCOMPARE(error.take(), QByteArray("decant: /m/Film.mkv: Warning: The file is \"large\".\n"));
  reporter.summary(1, 2);
  QCOMPARE(out.take() + error.take(), QByteArray());
}

void TestConvertReporters::plainLinesHaveNoControlCodes() {
  BufferSink out;
  BufferSink error;
  TextConvertReporter reporter(out, error, u"Decant"_s);
  const JobLabel odd{1, u"/m/a\n\x1b[2J.mkv"_s};
  reporter.started(odd);
  QCOMPARE(out.take(), QByteArray("1 /m/a\\n\\x1b[2J.mkv: started\n"));
  reporter.finished(odd, u"/m/a\n\x1b[2J.m4v"_s, 1);
  QCOMPARE(out.take(), QByteArray("1 /m/a\\n\\x1b[2J.mkv: finished in 1s: /m/a\\n\\x1b[2J.m4v\n"));
  reporter.failed(odd, {u"unknown"_s, QString(), u"\x07"_s});
  for (const QByteArray &written : {out.take(), error.take()}) {
    for (const char c : written)
      QVERIFY(c == '\n' || (c >= ' ' && c < 0x7f));
  }
}

void TestConvertReporters::terminalLines() {
  BufferSink out(true, 60);
  BufferSink error(true, 60);
  TextConvertReporter reporter(out, error, u"Decant"_s);
  reporter.started(first);
  QCOMPARE(out.take(), QByteArray("\rFilm.mkv  converting\x1b[K"));
  reporter.progress(first, 50.0, 10.0);
  QCOMPARE(out.take(),
           QByteArray("\rFilm.mkv  [###############---------------]   50%  10s left\x1b[K"));
  reporter.finished(first, u"/m/Film.m4v"_s, 20);
  QCOMPARE(out.take(), QByteArray("\rFilm.mkv  done in 20s: Film.m4v\x1b[K\n"));
  reporter.summary(1, 0);
  QCOMPARE(out.take(), QByteArray("\r1 finished, 0 failed\x1b[K\n"));
  QCOMPARE(error.take(), QByteArray());
}

// A refused file must not end the line of the job that is running.
void TestConvertReporters::terminalMakesRoomForErrors() {
  BufferSink out(true, 60);
  BufferSink error(true, 60);
  TextConvertReporter reporter(out, error, u"Decant"_s);
  reporter.started(first);
  out.take();
  reporter.failed(refusedFile, {u"refused"_s, u"Decant"_s, u"Not taken."_s});
  QCOMPARE(out.take(), QByteArray("\r\x1b[K\rFilm.mkv  converting\x1b[K"));
  QCOMPARE(error.take(), QByteArray("decant: /m/notes.txt: Not taken.\n"));
  reporter.failed(first, noSpace);
  QCOMPARE(out.take(), QByteArray("\rFilm.mkv  failed\x1b[K\n"));
  QCOMPARE(error.take(), QByteArray("decant: /m/Film.mkv: There is not enough space.\n"));
}

QTEST_GUILESS_MAIN(TestConvertReporters)
#include "tst_convertreporters.moc"
