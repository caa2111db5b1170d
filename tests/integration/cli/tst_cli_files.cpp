#include <QFile>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTest>

#include "DecantProgram.h"

using namespace Qt::StringLiterals;

class TestCliFiles final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void subtitlesAmongTheFiles();
  void subtitlesHoweverTheyAreWritten_data();
  void subtitlesHoweverTheyAreWritten();
  void subtitlesBesideTheNamedOneAreTold();
  void anEmptyNameIsASource();
  void missingSubtitles();
  void folders();
  void picturesInAFolderAreLeftOut();
  void folderItself();
  void oddNames_data();
  void oddNames();
  void invalidNamesInAFolder();
  void sameFileTwice();
};

void TestCliFiles::subtitlesAmongTheFiles() {
  const DecantProgram program;
  for (const auto name :
       {"a.mkv"_L1, "a.en.srt"_L1, "a.srt"_L1, "b.mkv"_L1, "b.sub"_L1, "z.srt"_L1})
    program.file(name);
  program.file(u"pictures.sub"_s, QByteArray::fromHex("000001ba00"));
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"b.mkv"_s, u"a.en.srt"_s, u"a.srt"_s,
                   u"b.sub"_s, u"z.srt"_s, u"pictures.sub"_s});
  // Known before the first movie, although they come after it; the exact stem goes first.
  QVERIFY(program.conversion(0).contains(program.path(u"a.srt"_s)));
  QVERIFY(program.conversion(1).contains(program.path(u"b.sub"_s)));
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.texts(u"failed"_s, "source"_L1), QStringList{program.path(u"pictures.sub"_s)});
  QCOMPARE(outcome.story().last(), u"summary 2 1"_s);
}

void TestCliFiles::subtitlesHoweverTheyAreWritten_data() {
  QTest::addColumn<QString>("movie");
  QTest::addColumn<QString>("subtitle");
  QTest::newRow("./ before the movie") << u"./a.mkv"_s << u"a.srt"_s;
  QTest::newRow("./ before the subtitles") << u"a.mkv"_s << u"./a.srt"_s;
  QTest::newRow("out and in again") << u"../movies/a.mkv"_s << u"a.srt"_s;
}

void TestCliFiles::subtitlesHoweverTheyAreWritten() {
  QFETCH(const QString, movie);
  QFETCH(const QString, subtitle);
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"a.srt"_s);
  QCOMPARE(program.run({u"convert"_s, movie, subtitle}).status, 0);
  QVERIFY(program.conversion().contains(program.path(subtitle)));
}

void TestCliFiles::subtitlesBesideTheNamedOneAreTold() {
  const DecantProgram program;
  for (const auto name : {"a.mkv"_L1, "a.srt"_L1, "x.srt"_L1})
    program.file(name);
  const QStringList named{u"convert"_s, u"--subtitle"_s, u"x.srt"_s, u"a.mkv"_s};
  QCOMPARE(program.run(named + QStringList{u"./x.srt"_s}).error, QByteArray());
  const DecantOutcome outcome = program.run(named + QStringList{u"a.srt"_s});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.error.count('\n'), 1);
  QVERIFY2(outcome.error.contains(program.path(u"a.srt"_s).toUtf8()), outcome.error.constData());
  QVERIFY(program.conversion(1).contains(program.path(u"x.srt"_s)));
}

void TestCliFiles::anEmptyNameIsASource() {
  const DecantProgram program;
  const QStringList arguments{u"convert"_s, u"--json"_s, u""_s};
  const QJsonObject failed = program.run(arguments).objects().first();
  QCOMPARE(failed.value("event"_L1), u"failed"_s);
  QCOMPARE(failed.value("source"_L1), QJsonValue(u""_s));
  const QJsonObject dry = program.run(arguments + QStringList{u"--dry-run"_s}).objects().first();
  QCOMPARE(dry.value("source"_L1), QJsonValue(u""_s));
}

void TestCliFiles::missingSubtitles() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  // The movie without the subtitles that were asked for would not be what was asked for.
  const DecantOutcome named =
      program.run({u"convert"_s, u"--json"_s, u"--subtitle"_s, u"gone.srt"_s, u"a.mkv"_s});
  QCOMPARE(named.status, 1);
  QCOMPARE(named.story(), (QStringList{u"failed refused"_s, u"summary 0 1"_s}));
  QVERIFY(named.output.contains("gone.srt"));
  const DecantOutcome movie =
      program.run({u"convert"_s, u"--json"_s, u"--subtitle"_s, u"a.mkv"_s, u"a.mkv"_s});
  QCOMPARE(movie.status, 1);
  QCOMPARE(movie.story(), (QStringList{u"failed refused"_s, u"summary 0 1"_s}));
  const DecantOutcome among = program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"gone.srt"_s});
  QCOMPARE(among.status, 1);
  QCOMPARE(among.story().last(), u"summary 1 1"_s);
}

void TestCliFiles::folders() {
  const DecantProgram program;
  for (const auto name :
       {"s/b.mkv"_L1, "s/B.mkv"_L1, "s/a/2.mkv"_L1, "s/a/10.mkv"_L1, "s/a.mkv"_L1, "s/a/2.srt"_L1,
        "s/notes.txt"_L1, "s/.hidden.mkv"_L1, "s/.git/x.mkv"_L1, "elsewhere/e.mkv"_L1})
    program.file(name);
  QFile::link(program.path(u"elsewhere"_s), program.path(u"s/link"_s));
  QFile::link(program.path(u"s"_s), program.path(u"s/a/loop"_s));
  QFile::link(program.path(u"elsewhere/e.mkv"_s), program.path(u"s/e.mkv"_s));
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--json"_s, u"-r"_s, u"-o"_s, u"out"_s, u"s/"_s});
  QCOMPARE(outcome.status, 0);
  QStringList expected;
  for (const auto name :
       {"s/B.mkv"_L1, "s/a.mkv"_L1, "s/a/10.mkv"_L1, "s/a/2.mkv"_L1, "s/b.mkv"_L1, "s/e.mkv"_L1})
    expected.append(program.path(name));
  QCOMPARE(outcome.texts(u"started"_s, "source"_L1), expected);
  QVERIFY(program.conversion(3).contains(program.path(u"s/a/2.srt"_s)));
}

void TestCliFiles::picturesInAFolderAreLeftOut() {
  const DecantProgram program;
  program.file(u"s/a.mkv"_s);
  const QString pictures = program.file(u"s/a.sub"_s, QByteArray::fromHex("000001ba00"));
  const DecantOutcome walked = program.run({u"convert"_s, u"--json"_s, u"-r"_s, u"s"_s});
  QCOMPARE(walked.status, 0);
  QCOMPARE(walked.error, QByteArray());
  QCOMPARE(walked.story().last(), u"summary 1 0"_s);
  QVERIFY(!program.conversion().contains(pictures));
  // One that is named is meant.
  const DecantOutcome named =
      program.run({u"convert"_s, u"--json"_s, u"-r"_s, u"s"_s, u"s/a.sub"_s});
  QCOMPARE(named.status, 1);
  QCOMPARE(named.story().last(), u"summary 1 1"_s);
}

void TestCliFiles::folderItself() {
  const DecantProgram program;
  program.file(u"s/a.mkv"_s);
  program.file(u"b.mkv"_s);
  const DecantOutcome outcome = program.run({u"convert"_s, u"--json"_s, u"s"_s, u"b.mkv"_s});
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.story().first(), u"failed refused"_s);
  QCOMPARE(outcome.story().last(), u"summary 1 1"_s);
  QVERIFY(outcome.events(u"failed"_s).first().value("text"_L1).toString().contains(u"-r"_s));
  QCOMPARE(program.run({u"convert"_s, u"s"_s}).status, 1);
}

void TestCliFiles::oddNames_data() {
  QTest::addColumn<QString>("stem");
  for (const QString &stem : {u"it's \"odd\""_s, u"two\nlines"_s, u"100%n%41%s%@"_s, u"-dash"_s,
                              u"file:x"_s, u"pipe:1"_s, u" "_s, u"Größe 映画 🎬"_s, u"\ufeffmark"_s,
                              u"a?b#c&d;e"_s, u"back\\slash"_s, u"\x1b[2J"_s, QString(240, u'x')})
    QTest::newRow(qPrintable(stem.left(20))) << stem;
}

void TestCliFiles::oddNames() {
  QFETCH(const QString, stem);
  const DecantProgram program;
  const QString source = program.file(stem + u".mkv"_s);
  const DecantOutcome outcome = program.run({u"convert"_s, u"--"_s, QString(stem + u".mkv"_s)});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.output.count('\n'), 2);
  const QString made = stem + u".m4v"_s;
  QVERIFY(program.files().contains(made));
  QVERIFY(program.conversion().contains(source));
  QCOMPARE(program.conversion().last(), program.path(made));
}

void TestCliFiles::invalidNamesInAFolder() {
  const DecantProgram program;
  program.file(u"s/a.mkv"_s);
  const DecantOutcome outcome = program.shell(
      "name=s/$'b\\xff''b.mkv'; cp s/a.mkv $name; mkdir -p s/$'\\xfe'; "
      "cp s/a.mkv s/$'\\xfe'/c.mkv; cp s/a.mkv s/d.mkv; $decant convert --json -r s; status=$?; "
      "rm -r $name s/$'\\xfe'; exit $status");
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.story().last(), u"summary 2 2"_s);
  const QList<QJsonObject> failed = outcome.events(u"failed"_s);
  QVERIFY(failed.at(0).value("text"_L1).toString().contains(u"s/b\\xffb.mkv"_s));
  QVERIFY(failed.at(1).value("text"_L1).toString().contains(u"s/\\xfe/c.mkv"_s));
}

void TestCliFiles::sameFileTwice() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  const DecantOutcome outcome = program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"./a.mkv"_s});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.texts(u"finished"_s, "destination"_L1),
           (QStringList{program.path(u"a.m4v"_s), program.path(u"./a-0.m4v"_s)}));
}

QTEST_GUILESS_MAIN(TestCliFiles)
#include "tst_cli_files.moc"
