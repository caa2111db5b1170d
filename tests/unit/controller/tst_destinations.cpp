#include <QFileInfo>
#include <QTest>
#include <QUrl>

#include "Defaults.h"
#include "Destinations.h"
#include "ProgramTest.h"
#include "Settings.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

class TestDestinations final : public ProgramTest {
  Q_OBJECT

 private Q_SLOTS:
  void extensionFollowsTheSetting();
  void names_data();
  void names();
  void longNamesFit();
  void lastFolderThatIsAPrefixWins();
  void nextToSourceNeedsAnOpenedFolder();
  void folderTakesTheOutputName();
  void resolvedNamesAreUnique();

 private:
  [[nodiscard]] QString file(const QString &name) const {
    return wholefile::made(m_program->path(name));
  }
  [[nodiscard]] MKVFileInfo record(const QString &path) const {
    MKVFileInfo info;
    info.fileURL = QUrl::fromLocalFile(path);
    info.fileName = QFileInfo(path).fileName();
    return info;
  }
};

void TestDestinations::extensionFollowsTheSetting() {
  QCOMPARE(outputExtension(), u"m4v"_s);
  ostrak::setDefaultInt(u"DefaultExtension"_s, 0);
  QCOMPARE(outputExtension(), u"mp4"_s);
}

void TestDestinations::names_data() {
  QTest::addColumn<QString>("source");
  QTest::addColumn<QString>("name");
  QTest::addColumn<QString>("path");
  QTest::newRow("plain") << u"/f/Film.mkv"_s << u"Film.m4v"_s << u"/f/Film.m4v"_s;
  QTest::newRow("dots") << u"/f/Film.2.mkv"_s << u"Film.2.m4v"_s << u"/f/Film.2.m4v"_s;
  QTest::newRow("percent") << u"/f/100%25.mkv"_s << u"100%25.m4v"_s << u"/f/100%25.m4v"_s;
  QTest::newRow("hash") << u"/f/a#b?.mkv"_s << u"a#b?.m4v"_s << u"/f/a#b?.m4v"_s;
  QTest::newRow("line break") << u"/f/a\nb.mkv"_s << u"a\nb.m4v"_s << u"/f/a\nb.m4v"_s;
}

void TestDestinations::names() {
  QFETCH(const QString, source);
  QTEST(outputName(record(source), u"m4v"_s), "name");
  QTEST(pathNextToSource(record(source), u"m4v"_s), "path");
}

void TestDestinations::longNamesFit() {
  const QString stem(252, u'x');
  const QString folder = m_program->root() + u'/';
  const MKVFileInfo info = record(file(stem + u".ts"_s));
  const QString name = QString(251, u'x') + u".m4v"_s;
  QCOMPARE(outputName(info, u"m4v"_s), name);
  QCOMPARE(pathNextToSource(info, u"m4v"_s), QString(folder + name));
  QCOMPARE(file(name), QString(folder + name));
  const QString numbered = folder + QString(249, u'x') + u"-0.m4v"_s;
  QCOMPARE(resolveDestination({}, info, {u"/"_s}, ClaimedNames()), QUrl::fromLocalFile(numbered));
  QVERIFY(ostrak::isWriteablePath(numbered));
}

void TestDestinations::lastFolderThatIsAPrefixWins() {
  QCOMPARE(lastFolderHolding(u"/Movies/a.mp4"_s, {}), -1);
  QCOMPARE(lastFolderHolding(u"/Movies/a.mp4"_s, {u"/Other"_s}), -1);
  QCOMPARE(lastFolderHolding(u"/Movies/a.mp4"_s, {u"/"_s, u"/Movies"_s, u"/Other"_s}), 1);
  QCOMPARE(lastFolderHolding(u"/Movies/a.mp4"_s, {u"/Movies"_s, u"/"_s}), 1);
  // A plain prefix of the text, whatever it means as a path.
  QCOMPARE(lastFolderHolding(u"/Movies2/a.mp4"_s, {u"/Movies"_s}), 0);
}

void TestDestinations::nextToSourceNeedsAnOpenedFolder() {
  const MKVFileInfo info = record(m_program->path(u"Film.mkv"_s));
  const ClaimedNames claimed;
  QCOMPARE(resolveDestination({}, info, {u"/"_s}, claimed),
           QUrl::fromLocalFile(m_program->path(u"Film.m4v"_s)));
  QCOMPARE(resolveDestination({}, info, {}, claimed), std::optional<QUrl>());
}

void TestDestinations::folderTakesTheOutputName() {
  const DestinationChoice choice{DestinationChoice::Kind::Folder, u"/out"_s};
  QCOMPARE(resolveDestination(choice, record(u"/f/Film.mkv"_s), {}, ClaimedNames()),
           QUrl::fromLocalFile(u"/out/Film.m4v"_s));
}

void TestDestinations::resolvedNamesAreUnique() {
  const MKVFileInfo info = record(m_program->path(u"Film.mkv"_s));
  QVERIFY(!file(u"Film.m4v"_s).isEmpty());
  ClaimedNames claimed;
  claimed.claim(m_program->path(u"Film-0.m4v"_s), info.fileURL.toLocalFile());
  QCOMPARE(resolveDestination({}, info, {u"/"_s}, claimed),
           QUrl::fromLocalFile(m_program->path(u"Film-1.m4v"_s)));
}

QTEST_GUILESS_MAIN(TestDestinations)
#include "tst_destinations.moc"
