#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QSemaphore>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>

#include "Dispatch.h"
#include "DisposalTest.h"
#include "Scenario.h"
#include "TrashCan.h"

using namespace Qt::StringLiterals;
using namespace decant;

namespace {

// Refuses everything.
class FullTrashCan final : public TrashCan {
 public:
  [[nodiscard]] QString moveToTrash(const QString &) override { return u"the Trash is full"_s; }
};

// Moves nothing until it may.
class SlowTrashCan final : public TrashCan {
 public:
  [[nodiscard]] QString moveToTrash(const QString &) override {
    entered.release();
    mayEnd.acquire();
    left.release();
    return {};
  }
  QSemaphore entered;
  QSemaphore mayEnd;
  QSemaphore left;
};

}  // namespace

class TestSourceDisposal final : public DisposalTest {
  Q_OBJECT

 private Q_SLOTS:
  void trashTakesTheSource();
  void deletingTakesTheSource();
  void keptSourceIsLogged();
  void failingTrashIsToldAndTheSourceStays();
  void failingDeletionIsTold();
  void oneAfterTheOther();
  void mayGoWhileOneIsChecked();
  void waitsForTheMove();
  void leavesAMoveThatDoesNotEnd();
};

void TestSourceDisposal::trashTakesTheSource() {
  playDuration("00:01:40.00");
  RecordingTrashCan trashCan;
  SourceDisposal disposal(trashCan);
  QSignalSpy idle(&disposal, &SourceDisposal::idle);
  QVERIFY(disposal.isIdle());
  disposal.dispose(m_request);
  QVERIFY(!disposal.isIdle());
  QTRY_COMPARE(idle.size(), 1);
  QVERIFY(disposal.isIdle());
  QCOMPARE(trashCan.trashed, QStringList(m_request.source));
}

void TestSourceDisposal::deletingTakesTheSource() {
  playDuration("00:01:40.00");
  RecordingTrashCan trashCan;
  SourceDisposal disposal(trashCan);
  m_request.deleteOutright = true;
  disposal.dispose(m_request);
  QTRY_VERIFY(disposal.isIdle());
  QVERIFY(!QFile::exists(m_request.source));
  QVERIFY(QFile::exists(m_request.destinations.at(0)));
  QVERIFY(trashCan.trashed.isEmpty());
}

void TestSourceDisposal::keptSourceIsLogged() {
  playDuration("00:00:50.00");
  RecordingTrashCan trashCan;
  SourceDisposal disposal(trashCan);
  m_request.deleteOutright = true;
  disposal.dispose(m_request);
  QTRY_VERIFY(disposal.isIdle());
  QVERIFY(QFile::exists(m_request.source));
  QCOMPARE(m_program->logged().size(), 1);
  const QString message = m_program->logged().at(0);
  QVERIFY(message.startsWith(u"Warning: the source "_s + m_request.source + u" stays: "_s));
  QVERIFY(message.contains(u"50 seconds, the source 100"_s));
  QVERIFY(m_program->presenter().presented.isEmpty());
}

void TestSourceDisposal::failingTrashIsToldAndTheSourceStays() {
  playDuration("00:01:40.00");
  FullTrashCan trashCan;
  SourceDisposal disposal(trashCan);
  disposal.dispose(m_request);
  QTRY_VERIFY(disposal.isIdle());
  QVERIFY(QFile::exists(m_request.source));
  QTRY_COMPARE(m_program->presenter().presented.size(), 1);
  const ostrak::Alert &told = m_program->presenter().presented.at(0);
  QCOMPARE(told.message, u"The converted file "_s + m_request.source +
                             u" could not be moved to the Trash: the Trash is full"_s);
  QCOMPARE(told.subject, m_request.source);
  QVERIFY(m_program->logged().at(0).contains(u"the Trash is full"_s));
}

void TestSourceDisposal::failingDeletionIsTold() {
  if (::geteuid() == 0) {
    // Nothing is forbidden to root but to delete a folder as if it were a file.
    QVERIFY(QFile::remove(m_request.source));
    QVERIFY(QDir().mkdir(m_request.source));
    m_request.identity = ostrak::fileIdentity(m_request.source);
  } else {
    QFile(m_program->root()).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  }
  playDuration("00:01:40.00");
  RecordingTrashCan trashCan;
  SourceDisposal disposal(trashCan);
  m_request.deleteOutright = true;
  disposal.dispose(m_request);
  QTRY_VERIFY(disposal.isIdle());
  QTRY_COMPARE(m_program->presenter().presented.size(), 1);
  QVERIFY(m_program->presenter().presented.at(0).message.contains(u"could not be deleted"_s));
  QFile(m_program->root()).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void TestSourceDisposal::oneAfterTheOther() {
  playDuration("00:01:40.00");
  RecordingTrashCan trashCan;
  SourceDisposal disposal(trashCan);
  QSignalSpy idle(&disposal, &SourceDisposal::idle);
  QSignalSpy disposed(&disposal, &SourceDisposal::disposed);
  DisposalRequest second = m_request;
  second.source = write(u"Second.mkv"_s, "source");
  second.identity = ostrak::fileIdentity(second.source);
  disposal.dispose(m_request);
  disposal.dispose(second);
  disposal.dispose(m_request);
  QTRY_COMPARE(idle.size(), 1);
  QCOMPARE(disposed.size(), 3);
  QCOMPARE(trashCan.trashed, QStringList({m_request.source, second.source, m_request.source}));
}

// Nobody waits for the tool, which has nothing to say as long as the test does not let it.
void TestSourceDisposal::mayGoWhileOneIsChecked() {
  Scenario scenario(m_program->path(u"bundle/resources/ffmpeg.scenario"_s));
  scenario.probe()
      .announce(u"asked"_s)
      .wait(u"go"_s)
      .reportText("  Duration: 00:01:40.00, start: 0.000000, bitrate: 10 kb/s\n");
  QVERIFY(scenario.write());
  RecordingTrashCan trashCan;
  {
    SourceDisposal disposal(trashCan);
    disposal.dispose(m_request);
    disposal.dispose(m_request);
    QTRY_VERIFY(scenario.announced(u"asked"_s));
  }
  QVERIFY(scenario.release(u"go"_s));
  ostrak::dispatch_end();
  // The output is as long as the source, but nobody wants to know any more.
  QVERIFY(trashCan.trashed.isEmpty());
  QCOMPARE(scenario.calls().size(), 1);
}

void TestSourceDisposal::waitsForTheMove() {
  playDuration("00:01:40.00");
  SlowTrashCan trashCan;
  {
    SourceDisposal disposal(trashCan);
    disposal.dispose(m_request);
    trashCan.entered.acquire();
    trashCan.mayEnd.release();
  }
  QVERIFY(trashCan.left.tryAcquire());
}

void TestSourceDisposal::leavesAMoveThatDoesNotEnd() {
  playDuration("00:01:40.00");
  SlowTrashCan trashCan;
  {
    SourceDisposal disposal(trashCan);
    disposal.dispose(m_request);
    trashCan.entered.acquire();
  }
  QVERIFY(!trashCan.left.tryAcquire());
  trashCan.mayEnd.release();
  trashCan.left.acquire();
  ostrak::dispatch_end();
}

QTEST_GUILESS_MAIN(TestSourceDisposal)
#include "tst_sourcedisposal.moc"
