#include <unistd.h>

#include <QFile>
#include <QTest>

#include "Destinations.h"
#include "ProgramTest.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

class TestClaimedNames final : public ProgramTest {
  Q_OBJECT

 private Q_SLOTS:
  void claimedNamesAreNotFree();
  void numbersGoOnWhileNamesAreClaimed();
  void numbersBeginAnewWithoutClaims();
  void manyOfOneNameAreNumbered();
  void claimIsTheSameByEveryPath();
  void sourceIsKnownByEveryName();
  void renamedSourceStaysASource();
  void replacedSourceStaysASourceByName();
  void sourceOfSeveralJobsIsCounted();
  void subtitleFileIsASource();
  void claimMovesWithItsSource();
  void releaseOfAnUnknownNameChangesNothing();
  void longNumbersGivenUpAreFreeAgain();

 private:
  [[nodiscard]] QString file(const QString &name) const {
    return wholefile::made(m_program->path(name));
  }
};

void TestClaimedNames::claimedNamesAreNotFree() {
  ClaimedNames claimed;
  const QString wanted = m_program->path(u"a.m4v"_s);
  QCOMPARE(claimed.uniqueName(wanted), wanted);
  claimed.claim(wanted, m_program->path(u"a.mkv"_s));
  QVERIFY(claimed.isClaimed(wanted));
  QCOMPARE(claimed.uniqueName(wanted), m_program->path(u"a-0.m4v"_s));
  claimed.release(wanted);
  QVERIFY(!claimed.isClaimed(wanted));
  QCOMPARE(claimed.uniqueName(wanted), wanted);
}

void TestClaimedNames::numbersGoOnWhileNamesAreClaimed() {
  const auto path = [this](const QString &name) { return m_program->path(name); };
  const QString wanted = path(u"a.m4v"_s);
  const QString onDisk = file(u"a-0.m4v"_s);
  ClaimedNames claimed;
  claimed.claim(wanted, path(u"1.mkv"_s));
  QCOMPARE(claimed.uniqueName(wanted), path(u"a-1.m4v"_s));
  claimed.claim(path(u"a-1.m4v"_s), path(u"2.mkv"_s));
  QVERIFY(QFile::remove(onDisk));
  QCOMPARE(claimed.uniqueName(wanted), path(u"a-2.m4v"_s));
  claimed.claim(path(u"a-2.m4v"_s), path(u"3.mkv"_s));
  // What is given up, or moved away from, is free again.
  claimed.release(path(u"a-1.m4v"_s));
  QCOMPARE(claimed.uniqueName(wanted), path(u"a-0.m4v"_s));
  claimed.claim(path(u"a-0.m4v"_s), path(u"2.mkv"_s));
  QCOMPARE(claimed.uniqueName(wanted), path(u"a-1.m4v"_s));
  claimed.claim(path(u"a-1.m4v"_s), path(u"4.mkv"_s));
  QCOMPARE(claimed.uniqueName(wanted), path(u"a-3.m4v"_s));
  claimed.move(path(u"a-0.m4v"_s), path(u"b.m4v"_s));
  QCOMPARE(claimed.uniqueName(wanted), path(u"a-0.m4v"_s));
  claimed.release(wanted);
  QCOMPARE(claimed.uniqueName(wanted), wanted);
}

void TestClaimedNames::numbersBeginAnewWithoutClaims() {
  const QString wanted = file(u"a.m4v"_s);
  const QString onDisk = file(u"a-0.m4v"_s);
  const QString second = m_program->path(u"a-1.m4v"_s);
  ClaimedNames claimed;
  QCOMPARE(claimed.uniqueName(wanted), second);
  // Nobody has claimed it, so nothing is remembered of it.
  QVERIFY(QFile::remove(onDisk));
  QCOMPARE(claimed.uniqueName(wanted), onDisk);
  QCOMPARE(file(u"a-0.m4v"_s), onDisk);
  claimed.claim(second, m_program->path(u"a.mkv"_s));
  QCOMPARE(claimed.uniqueName(wanted), m_program->path(u"a-2.m4v"_s));
  claimed.release(second);
  QVERIFY(QFile::remove(onDisk));
  QCOMPARE(claimed.uniqueName(wanted), onDisk);
}

void TestClaimedNames::manyOfOneNameAreNumbered() {
  const QString wanted = m_program->path(u"a.m4v"_s);
  ClaimedNames claimed;
  claimed.claim(wanted, m_program->path(u"a.mkv"_s));
  for (int i = 0; i < 2000; ++i) {
    const QString unique = claimed.uniqueName(wanted);
    QCOMPARE(unique, m_program->path(u"a-"_s + QString::number(i) + u".m4v"_s));
    claimed.claim(unique, m_program->path(QString::number(i) + u".mkv"_s));
  }
}

void TestClaimedNames::claimIsTheSameByEveryPath() {
  const QString link = m_program->path(u"link"_s);
  QVERIFY(QFile::link(m_program->root(), link));
  ClaimedNames claimed;
  claimed.claim(m_program->path(u"a.m4v"_s), m_program->path(u"a.mkv"_s));
  QVERIFY(claimed.isClaimed(link + u"/a.m4v"_s));
  QVERIFY(claimed.isClaimed(m_program->root() + u"/./a.m4v"_s));
  QVERIFY(!claimed.isClaimed(link + u"/b.m4v"_s));
  // In a folder that is not there, the text has to do.
  claimed.claim(u"/nowhere/a.m4v"_s, m_program->path(u"b.mkv"_s));
  QVERIFY(claimed.isClaimed(u"/nowhere/a.m4v"_s));
}

void TestClaimedNames::sourceIsKnownByEveryName() {
  const QString source = file(u"a.mp4"_s);
  const QString symbolic = m_program->path(u"symbolic.mp4"_s);
  const QString hard = m_program->path(u"hard.mp4"_s);
  QVERIFY(QFile::link(source, symbolic));
  QCOMPARE(::link(QFile::encodeName(source).constData(), QFile::encodeName(hard).constData()), 0);
  ClaimedNames claimed;
  claimed.claim(m_program->path(u"out.m4v"_s), source);
  const QString dotted = m_program->root() + u"/./a.mp4"_s;
  for (const QString &path : {source, symbolic, hard, dotted})
    QVERIFY(claimed.isSource(path));
  QVERIFY(!claimed.isSource(file(u"b.mp4"_s)));
  claimed.release(m_program->path(u"out.m4v"_s));
  for (const QString &path : {source, symbolic, hard, dotted})
    QVERIFY(!claimed.isSource(path));
}

void TestClaimedNames::renamedSourceStaysASource() {
  const QString source = file(u"a.mp4"_s);
  const QString out = m_program->path(u"out.m4v"_s);
  ClaimedNames claimed;
  claimed.claim(out, source);
  const QString renamed = m_program->path(u"renamed.mp4"_s);
  QVERIFY(QFile::rename(source, renamed));
  QVERIFY(claimed.isSource(renamed));
  claimed.release(out);
  QVERIFY(!claimed.isSource(renamed));
  QVERIFY(!claimed.isSource(source));
}

void TestClaimedNames::replacedSourceStaysASourceByName() {
  const QString source = file(u"a.mp4"_s);
  ClaimedNames claimed;
  claimed.claim(m_program->path(u"out.m4v"_s), source);
  const QString kept = m_program->path(u"kept.mp4"_s);
  QVERIFY(QFile::rename(source, kept));
  QCOMPARE(file(u"a.mp4"_s), source);
  QVERIFY(claimed.isSource(source));
  QVERIFY(claimed.isSource(kept));
}

void TestClaimedNames::sourceOfSeveralJobsIsCounted() {
  const QString source = file(u"a.mp4"_s);
  const QString first = m_program->path(u"1.m4v"_s);
  const QString second = m_program->path(u"2.m4v"_s);
  ClaimedNames claimed;
  claimed.claim(first, source);
  claimed.claim(second, source);
  claimed.release(first);
  QVERIFY(claimed.isSource(source));
  claimed.release(second);
  QVERIFY(!claimed.isSource(source));
}

void TestClaimedNames::subtitleFileIsASource() {
  const QString source = file(u"a.mkv"_s);
  const QString subtitle = file(u"a.srt"_s);
  const QString out = m_program->path(u"out.m4v"_s);
  const QString moved = m_program->path(u"out-0.m4v"_s);
  const QString hard = m_program->path(u"hard.mp4"_s);
  QCOMPARE(::link(QFile::encodeName(subtitle).constData(), QFile::encodeName(hard).constData()), 0);
  ClaimedNames claimed;
  QVERIFY(claimed.isSourceName(ClaimedNames::look(subtitle, source, subtitle)));
  claimed.claim(out, source, subtitle);
  QVERIFY(claimed.isSource(subtitle));
  QVERIFY(claimed.isSource(hard));
  QVERIFY(claimed.isSourceName(ClaimedNames::look(subtitle, file(u"b.mkv"_s))));
  claimed.move(out, moved);
  // By its name, too, and by its file under another one.
  QVERIFY(QFile::rename(subtitle, m_program->path(u"renamed.srt"_s)));
  QVERIFY(claimed.isSource(m_program->path(u"renamed.srt"_s)));
  QVERIFY(claimed.isSource(subtitle));
  claimed.release(moved);
  QVERIFY(!claimed.isSource(hard));
  QVERIFY(!claimed.isSource(subtitle));
}

void TestClaimedNames::claimMovesWithItsSource() {
  const QString source = file(u"a.mp4"_s);
  const QString before = m_program->path(u"1.m4v"_s);
  const QString after = m_program->path(u"1-0.m4v"_s);
  ClaimedNames claimed;
  claimed.claim(before, source);
  claimed.move(before, after);
  QVERIFY(!claimed.isClaimed(before));
  QVERIFY(claimed.isClaimed(after));
  QVERIFY(claimed.isSource(source));
  claimed.release(after);
  QVERIFY(!claimed.isSource(source));
}

void TestClaimedNames::releaseOfAnUnknownNameChangesNothing() {
  const QString source = file(u"a.mp4"_s);
  ClaimedNames claimed;
  claimed.claim(m_program->path(u"1.m4v"_s), source);
  claimed.release(m_program->path(u"2.m4v"_s));
  claimed.move(m_program->path(u"2.m4v"_s), m_program->path(u"3.m4v"_s));
  QVERIFY(claimed.isSource(source));
  QVERIFY(!claimed.isClaimed(m_program->path(u"3.m4v"_s)));
}

void TestClaimedNames::longNumbersGivenUpAreFreeAgain() {
  const auto path = [this](qsizetype length, const QString &end) {
    return m_program->path(QString(length, u'x') + end);
  };
  const QString wanted = path(251, u".m4v"_s);
  ClaimedNames claimed;
  claimed.claim(wanted, m_program->path(u"a.mkv"_s));
  for (const auto &end : {u"-0.m4v"_s, u"-1.m4v"_s}) {
    QCOMPARE(claimed.uniqueName(wanted), path(249, end));
    claimed.claim(path(249, end), m_program->path(end + u".mkv"_s));
  }
  claimed.release(path(249, u"-0.m4v"_s));
  QCOMPARE(claimed.uniqueName(wanted), path(249, u"-0.m4v"_s));
}

QTEST_GUILESS_MAIN(TestClaimedNames)
#include "tst_claimednames.moc"
