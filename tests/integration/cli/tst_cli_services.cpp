#include <QFile>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTest>

#include "Clock.h"
#include "CommandLine.h"
#include "ScratchProgram.h"
#include "SleepInhibitor.h"
#include "TextSink.h"
#include "TrashCan.h"
#include "Volumes.h"
#include "WholeFile.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

class KeptText final : public TextSink {
 public:
  void write(const QByteArray &utf8) override { text += utf8; }
  [[nodiscard]] bool isTerminal() const override { return false; }
  [[nodiscard]] int columns() const override { return 80; }
  QByteArray text;
};

}  // namespace

// The command line in this process, with services that remember or pretend.
class TestCliServices final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    m_scratch = std::make_unique<ScratchProgram>();
    m_output.text.clear();
    m_error.text.clear();
    m_volumes = FakeVolumes();
    for (const auto name : {"a.mkv"_L1, "b.mkv"_L1})
      QVERIFY(wholefile::write(m_scratch->path(name), "a movie"));
  }
  void machineStaysAwakeWhileConverting();
  void sourcesGoToTheTrash();
  void noFreeSpace();
  void nothingHappensInADryRun();
  void libraryIsGoneAfterwards();

 private:
  int run(const QList<QByteArray> &arguments) {
    ostrak::OstrakSetup setup = m_scratch->library().setup();
    setup.systemLog = [](int, const QString &) {};
    CommandLine commandLine({setup,
                             m_sleep,
                             m_trash,
                             m_volumes,
                             m_clock,
                             m_output,
                             m_error,
                             m_scratch->root().toUtf8(),
                             {u"eng"_s},
                             false});
    return commandLine.run(arguments);
  }

  std::unique_ptr<ScratchProgram> m_scratch;
  RecordingSleepInhibitor m_sleep;
  RecordingTrashCan m_trash;
  FakeVolumes m_volumes;
  SystemClock m_clock;
  KeptText m_output;
  KeptText m_error;
};

void TestCliServices::machineStaysAwakeWhileConverting() {
  QCOMPARE(run({"convert", "a.mkv", "b.mkv"}), 0);
  QCOMPARE(m_sleep.reasons(), (QStringList{u"Converting MKV file."_s, u"Converting MKV file."_s}));
  QCOMPARE(m_sleep.held(), 0);
  QCOMPARE(m_error.text, QByteArray());
  QVERIFY(QFile::exists(m_scratch->path(u"a.m4v"_s)));
}

// The stand-in says that every file plays 100 seconds, so each output is as long as its source.
void TestCliServices::sourcesGoToTheTrash() {
  QCOMPARE(run({"convert", "--set", "AutoRemove=1", "a.mkv", "b.mkv"}), 0);
  QCOMPARE(m_trash.trashed,
           (QStringList{m_scratch->path(u"a.mkv"_s), m_scratch->path(u"b.mkv"_s)}));
}

void TestCliServices::noFreeSpace() {
  m_volumes.free = 6;
  QCOMPARE(run({"convert", "a.mkv"}), 1);
  QVERIFY(m_error.text.contains("There is not enough free space on your target disk"));
  QCOMPARE(m_error.text.count('\n'), 1);
  m_volumes.free = 7;  // as much as the source has
  QCOMPARE(run({"convert", "a.mkv"}), 0);
}

void TestCliServices::nothingHappensInADryRun() {
  const qsizetype reasons = m_sleep.reasons().size();
  m_volumes.free = 0;
  QCOMPARE(run({"convert", "--dry-run", "a.mkv"}), 0);
  QCOMPARE(m_sleep.reasons().size(), reasons);
  QVERIFY(!QFile::exists(m_scratch->path(u"a.m4v"_s)));
}

void TestCliServices::libraryIsGoneAfterwards() {
  QCOMPARE(run({"--version"}), 0);
  QCOMPARE(m_output.text, QByteArray("Decant 1.2.3\n"));
  QVERIFY(!ostrak::tk);
  QCOMPARE(run({"settings", "get", "AACBitrate"}), 0);
  QVERIFY(m_output.text.endsWith("\n1\n"));
}

QTEST_GUILESS_MAIN(TestCliServices)
#include "tst_cli_services.moc"
