#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "File.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;

class TestUniqueFile final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void uniqueFile_data();
  void uniqueFile();
  void uniqueFileHeedsClaims();
  void uniqueFileCountsOn();
  void longNamesAreCutForTheirNumber_data();
  void longNamesAreCutForTheirNumber();
  void endlessExtensionIsLeftAlone();
  void uniqueFileOfALocation();

 private:
  [[nodiscard]] QString path(const QString &name) const { return m_folder->filePath(name); }
  void write(const QString &name) const { QVERIFY(wholefile::write(path(name))); }
  std::unique_ptr<QTemporaryDir> m_folder;
};

void TestUniqueFile::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_folder = std::make_unique<QTemporaryDir>();
}

void TestUniqueFile::uniqueFile_data() {
  QTest::addColumn<QStringList>("present");
  QTest::addColumn<QString>("wanted");
  QTest::addColumn<QString>("unique");
  QTest::newRow("free") << QStringList() << u"a.mp4"_s << u"a.mp4"_s;
  QTest::newRow("taken") << QStringList{u"a.mp4"_s} << u"a.mp4"_s << u"a-0.mp4"_s;
  QTest::newRow("taken twice") << QStringList{u"a.mp4"_s, u"a-0.mp4"_s} << u"a.mp4"_s
                               << u"a-1.mp4"_s;
  QTest::newRow("gap") << QStringList{u"a.mp4"_s, u"a-1.mp4"_s} << u"a.mp4"_s << u"a-0.mp4"_s;
  QTest::newRow("no extension") << QStringList{u"a"_s} << u"a"_s << u"a-0."_s;
  QTest::newRow("two dots") << QStringList{u"a.b.mp4"_s} << u"a.b.mp4"_s << u"a.b-0.mp4"_s;
  QTest::newRow("hidden") << QStringList{u".a"_s} << u".a"_s << u".a-0."_s;
  QTest::newRow("dot of the folder") << QStringList{u"d.d/a"_s} << u"d.d/a"_s << u"d.d/a-0."_s;
  QTest::newRow("a folder") << QStringList{u"a.mp4/"_s} << u"a.mp4"_s << u"a-0.mp4"_s;
  QTest::newRow("dangling link") << QStringList{u"@a.mp4"_s} << u"a.mp4"_s << u"a-0.mp4"_s;
  QTest::newRow("percent signs") << QStringList{u"%n%@.mp4"_s} << u"%n%@.mp4"_s << u"%n%@-0.mp4"_s;
}

void TestUniqueFile::uniqueFile() {
  QFETCH(QStringList, present);
  QFETCH(QString, wanted);
  QFETCH(QString, unique);
  QVERIFY(QDir().mkpath(path(u"d.d"_s)));
  for (const QString &name : present) {
    if (name.startsWith(u'@')) {
      QVERIFY(QFile::link(u"nowhere"_s, path(name.mid(1))));
    } else if (name.endsWith(u'/')) {
      QVERIFY(QDir().mkpath(path(name)));
    } else {
      write(name);
    }
  }
  QCOMPARE(ostrak::uniqueFile(path(wanted)), path(unique));
  QCOMPARE(ostrak::uniqueFile(QUrl::fromLocalFile(path(wanted))),
           QUrl::fromLocalFile(path(unique)));
}

void TestUniqueFile::uniqueFileHeedsClaims() {
  write(u"a-0.mp4"_s);
  const QStringList claimed{path(u"a.mp4"_s), path(u"a-1.mp4"_s)};
  const auto isClaimed = [&claimed](const QString &name) { return claimed.contains(name); };
  QCOMPARE(ostrak::uniqueFile(path(u"a.mp4"_s), isClaimed), path(u"a-2.mp4"_s));
  QCOMPARE(ostrak::uniqueFile(path(u"b.mp4"_s), isClaimed), path(u"b.mp4"_s));
}

void TestUniqueFile::uniqueFileCountsOn() {
  QStringList asked;
  const auto isTaken = [&asked](const QString &name) {
    asked.append(QFileInfo(name).fileName());
    return !name.endsWith(u"-9.mp4"_s);
  };
  quint64 number = 7;
  QCOMPARE(ostrak::uniqueFile(path(u"nine.mp4"_s), isTaken, number), path(u"nine-9.mp4"_s));
  QCOMPARE(number, quint64(9));
  QCOMPARE(asked, QStringList({u"nine.mp4"_s, u"nine-7.mp4"_s, u"nine-8.mp4"_s, u"nine-9.mp4"_s}));
}

void TestUniqueFile::longNamesAreCutForTheirNumber_data() {
  QTest::addColumn<QString>("character");
  QTest::newRow("one byte") << u"x"_s;
  QTest::newRow("two bytes") << u"ü"_s;
  QTest::newRow("three bytes") << u"映"_s;
  QTest::newRow("four bytes") << u"🎬"_s;
}

// Every length up to the longest, and each number of up to three digits, can be made as a file.
void TestUniqueFile::longNamesAreCutForTheirNumber() {
  QFETCH(QString, character);
  const qsizetype width = character.toUtf8().size();
  for (int shift = 0; shift < 9; ++shift) {
    QString stem(shift, u'a');
    while (stem.toUtf8().size() + width + 4 <= ostrak::longestFileName)
      stem += character;
    const QString name = stem + u".mp4"_s;
    write(name);
    for (quint64 number : {0, 9, 10, 999}) {
      const QString unique = ostrak::uniqueFile(path(name), {}, number);
      const QString made = unique.mid(unique.lastIndexOf(u'/') + 1);
      QVERIFY(made.endsWith(u'-' + QString::number(number) + u".mp4"_s));
      const QString kept = made.left(made.lastIndexOf(u'-'));
      QVERIFY(name.startsWith(kept));
      QCOMPARE((kept.size() - shift) % character.size(), 0);
      const qsizetype bytes = QFile::encodeName(made).size();
      QVERIFY(bytes <= ostrak::longestFileName);
      QVERIFY(kept == stem || bytes > ostrak::longestFileName - width);
      write(made);
      QVERIFY(QFile::exists(unique));
    }
  }
}

void TestUniqueFile::endlessExtensionIsLeftAlone() {
  const QString name = u"a."_s + QString(250, u'x');
  write(name);
  QCOMPARE(ostrak::uniqueFile(path(name)), path(u"a-0."_s + QString(250, u'x')));
}

void TestUniqueFile::uniqueFileOfALocation() {
  QCOMPARE(ostrak::uniqueFile(QUrl(u"https://example.org/a.mp4"_s)), QUrl());
}

QTEST_GUILESS_MAIN(TestUniqueFile)
#include "tst_uniquefile.moc"
