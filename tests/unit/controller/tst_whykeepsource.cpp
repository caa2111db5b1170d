#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QTest>
#include <QUrl>

#include "DisposalTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What keeps a source after its conversion.
class TestWhyKeepSource final : public DisposalTest {
  Q_OBJECT

 private Q_SLOTS:
  void lengths_data();
  void lengths();
  void goodOutputLetsTheSourceGo();
  void missingOutputKeepsIt();
  void emptyOutputKeepsIt();
  void folderInPlaceOfTheOutputKeepsIt();
  void folderThatCannotBeSyncedKeepsIt();
  void shortOutputKeepsIt();
  void outputWithoutLengthKeepsIt();
  void unknownLengthOfTheSourceKeepsIt();
  void anyBadOutputKeepsIt();
  void noOutputAtAllKeepsIt();
  void outputThatIsTheSourceKeepsIt();
  void anotherFileInItsPlaceIsKept();
  void fileThatComesDuringTheCheckIsKept_data();
  void fileThatComesDuringTheCheckIsKept();
  void sourceThatIsGoneIsNoMatter();
  void lengthIsReadByTheTool();

 private:
  [[nodiscard]] QString whyKept(qint32 seconds = 100) const {
    return whyKeepSource(m_request, [seconds](const QUrl &) { return seconds; });
  }
};

void TestWhyKeepSource::lengths_data() {
  QTest::addColumn<int>("source");
  QTest::addColumn<int>("output");
  QTest::addColumn<bool>("asLong");
  const auto row = [](const char *name, int source, int output, bool asLong) {
    QTest::newRow(name) << source << output << asLong;
  };
  row("equal", 50, 50, true);
  row("2 s shorter", 50, 48, true);
  row("3 s shorter", 50, 47, false);
  row("2 s longer", 50, 52, true);
  row("3 s longer", 50, 53, false);
  row("2 % shorter", 1000, 980, true);
  row("more than 2 % shorter", 1000, 979, false);
  row("2 % longer", 1000, 1020, true);
  row("more than 2 % longer", 1000, 1021, false);
  row("2 % of 149 is 2.98", 149, 146, false);
  row("2 % of 150 is 3", 150, 147, true);
  row("nothing of a short one", 2, 0, true);
}

void TestWhyKeepSource::lengths() {
  QFETCH(const int, source);
  QFETCH(const int, output);
  QTEST(isAsLong(source, output), "asLong");
  QVERIFY(!isAsLong({}, output));
}

void TestWhyKeepSource::goodOutputLetsTheSourceGo() {
  QCOMPARE(whyKept(), QString());
}

void TestWhyKeepSource::missingOutputKeepsIt() {
  QVERIFY(QFile::remove(m_request.destinations.at(0)));
  QVERIFY(whyKept().contains(u"no output"_s));
}

void TestWhyKeepSource::emptyOutputKeepsIt() {
  QVERIFY(QFile::resize(m_request.destinations.at(0), 0));
  QVERIFY(whyKept().contains(u"no output"_s));
}

void TestWhyKeepSource::folderInPlaceOfTheOutputKeepsIt() {
  m_request.destinations = {m_program->root()};
  QVERIFY(whyKept().contains(u"no output"_s));
}

void TestWhyKeepSource::folderThatCannotBeSyncedKeepsIt() {
  // A regular file with a size, in a folder that knows of no disk.
  m_request.destinations = {u"/sys/kernel/uevent_seqnum"_s};
  QVERIFY(QFileInfo(m_request.destinations.at(0)).size() > 0);
  QVERIFY(whyKept().contains(u"could not be written to the disk"_s));
}

void TestWhyKeepSource::shortOutputKeepsIt() {
  QVERIFY(whyKept(97).contains(u"97 seconds, the source 100"_s));
}

void TestWhyKeepSource::outputWithoutLengthKeepsIt() {
  QVERIFY(whyKept(-1).contains(u"how long it is"_s));
  m_request.runtimeSeconds = 1;
  QVERIFY(!whyKept(-1).isNull());
}

void TestWhyKeepSource::unknownLengthOfTheSourceKeepsIt() {
  m_request.runtimeSeconds.reset();
  QVERIFY(whyKept().contains(u"how long the source is"_s));
}

void TestWhyKeepSource::anyBadOutputKeepsIt() {
  m_request.destinations.append(write(u"Film-0.m4v"_s, ""));
  QVERIFY(whyKept().contains(u"Film-0.m4v"_s));
}

void TestWhyKeepSource::noOutputAtAllKeepsIt() {
  m_request.destinations.clear();
  QVERIFY(!whyKept().isNull());
}

void TestWhyKeepSource::outputThatIsTheSourceKeepsIt() {
  const QString link = m_program->path(u"hard.m4v"_s);
  QCOMPARE(
      ::link(QFile::encodeName(m_request.source).constData(), QFile::encodeName(link).constData()),
      0);
  m_request.destinations = {link};
  QVERIFY(whyKept().contains(u"source itself"_s));
}

void TestWhyKeepSource::anotherFileInItsPlaceIsKept() {
  QVERIFY(QFile::rename(m_request.source, m_program->path(u"moved.mkv"_s)));
  QCOMPARE(write(u"Film.mkv"_s, "another film"), m_request.source);
  QVERIFY(whyKept().contains(u"another file"_s));
}

void TestWhyKeepSource::fileThatComesDuringTheCheckIsKept_data() {
  QTest::addColumn<bool>("identityIsKnown");
  QTest::newRow("the source was known when it was queued") << true;
  QTest::newRow("the source was not known then") << false;
}

void TestWhyKeepSource::fileThatComesDuringTheCheckIsKept() {
  QFETCH(const bool, identityIsKnown);
  if (!identityIsKnown) m_request.identity.reset();
  const QString kept = whyKeepSource(m_request, [this](const QUrl &) {
    // The first one stays, so that its number is not given to the second.
    const bool moved = QFile::rename(m_request.source, m_program->path(u"moved.mkv"_s));
    return moved && !write(u"Film.mkv"_s, "another film").isNull() ? 100 : -1;
  });
  QVERIFY2(kept.contains(u"another file"_s), qPrintable(kept));
}

void TestWhyKeepSource::sourceThatIsGoneIsNoMatter() {
  QVERIFY(QFile::remove(m_request.source));
  QVERIFY(whyKept().contains(u"not there any more"_s));
}

void TestWhyKeepSource::lengthIsReadByTheTool() {
  playDuration("00:01:39.50");
  QCOMPARE(whyKeepSource(m_request), QString());
  playDuration("00:00:50.00");
  QVERIFY(whyKeepSource(m_request).contains(u"50 seconds"_s));
}

QTEST_GUILESS_MAIN(TestWhyKeepSource)
#include "tst_whykeepsource.moc"
