#include <QFile>
#include <QTest>
#include <QUrl>

#include "ControllerTest.h"
#include "Defaults.h"
#include "Exceptions.h"
#include "Probe.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What becomes of a record whose destination is asked for, agreed to, refused or gone.
class TestDestinationAnswers final : public ControllerTest {
  Q_OBJECT

 private Q_SLOTS:
  void init();

  void aLateAnswerMakesTheJob();
  void aDeclinedRecordStaysShown();
  void filesWaitWhileTheUserIsAsked();
  void anAgreementHoldsForItsNameOnly();
  void aDestinationThatIsGoneHoldsNothingUp();
  void accessEndsWithTheJob();
  void accessEndsWithARefusedJob();
  void aRecordSkippedMeanwhileIsNotQueued();
  void anAgreementIsForAJobOnly_data();
  void anAgreementIsForAJobOnly();
  void nothingIsAddedAfterTheEnd();
  void noProbeBeginsAfterTheEnd();
  void aRefusedRecordCanBeTriedAgain();
  void skippingStopsAProbeThatHangs();

 private:
  void chooseBy(const DestinationChooser &chooser);
  void show(const QString &name);
  // As the button does.
  void skip() {
    m_p->intake().clearFileInfo();
    m_p->intake().cancelAdd();
  }

  DestinationAnswer m_answer;  // of the question that is open
};

void TestDestinationAnswers::init() {
  ControllerTest::init();
  m_answer = {};
  chooseBy([this](const MKVFileInfo &, const ClaimedNames &, const DestinationAnswer &answer) {
    m_answer = answer;
  });
}

void TestDestinationAnswers::chooseBy(const DestinationChooser &chooser) {
  AppServices services = m_p->services();
  services.destination = chooser;
  m_p->restart(services);
}

void TestDestinationAnswers::show(const QString &name) {
  m_p->intake().openFiles({m_p->movie(name)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
}

void TestDestinationAnswers::aLateAnswerMakesTheJob() {
  show(u"a.mkv"_s);
  QCOMPARE(m_p->controller->addToQueue(), std::optional<Admission>());
  QCOMPARE(m_p->intake().state(), Intake::State::Asking);
  // A second press of the button asks nothing more.
  m_answer = {};
  QCOMPARE(m_p->controller->addToQueue(), std::optional<Admission>());
  QVERIFY(!m_answer);
  m_p->controller.reset();  // an answer that comes after the end is heard by nobody
  init();
  show(u"b.mkv"_s);
  (void)m_p->controller->addToQueue();
  m_answer(Destination{QUrl::fromLocalFile(m_p->path(u"out.m4v"_s)), {}, false});
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QVERIFY(QFile::exists(m_p->path(u"out.m4v"_s)));
  QVERIFY(m_p->intake().isIdle());
}

void TestDestinationAnswers::aDeclinedRecordStaysShown() {
  show(u"a.mkv"_s);
  (void)m_p->controller->addToQueue();
  m_answer({});
  QCOMPARE(m_p->intake().state(), Intake::State::Showing);
  QCOMPARE(m_p->intake().fileInfo()->fileName, u"a.mkv"_s);
  QVERIFY(m_p->queue().taskArray().isEmpty());
}

void TestDestinationAnswers::filesWaitWhileTheUserIsAsked() {
  show(u"a.mkv"_s);
  (void)m_p->controller->addToQueue();
  m_p->intake().openFiles({m_p->movie(u"b.mkv"_s), m_p->movie(u"c.mkv"_s)});
  QCOMPARE(m_p->intake().state(), Intake::State::Asking);
  QCOMPARE(m_p->intake().importFiles().size(), 2);
  m_answer(Destination{QUrl::fromLocalFile(m_p->path(u"out.m4v"_s)), {}, false});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QCOMPARE(m_p->intake().fileInfo()->fileName, u"b.mkv"_s);
  QCOMPARE(m_p->queue().taskArray().size(), 1);
}

void TestDestinationAnswers::anAgreementHoldsForItsNameOnly() {
  const QString agreed = m_p->path(u"film.m4v"_s);
  const QString other = m_p->path(u"film-0.m4v"_s);
  pauseClick();
  auto first = m_p->job(m_p->movie(u"a.mkv"_s), agreed);
  QCOMPARE(m_p->controller->addJob(std::move(first)), Admission::added);
  show(u"b.mkv"_s);
  (void)m_p->controller->addToQueue();
  m_answer(Destination{QUrl::fromLocalFile(agreed), {}, true});
  QCOMPARE(m_p->queue().taskArray().at(0)->fileInfo().destinationURL.toLocalFile(), other);
  QVERIFY(wholefile::write(other, "another's"));
  pauseClick();
  QTRY_COMPARE(m_p->count(JobStateFinished), 2);
  QCOMPARE(wholefile::read(other), "another's");
}

void TestDestinationAnswers::aDestinationThatIsGoneHoldsNothingUp() {
  chooseBy(
      [this](const MKVFileInfo &record, const ClaimedNames &, const DestinationAnswer &answer) {
        if (record.fileName == "b.mkv"_L1)
          throw ostrak::Exception(u"Bookmark Problem"_s, u"gone"_s);
        answer(Destination{QUrl::fromLocalFile(m_p->path(u"out.m4v"_s)), {}, false});
      });
  ostrak::setDefaultInt(u"AutoAdd"_s, 1);
  m_p->intake().openFiles({m_p->movie(u"a.mkv"_s), m_p->movie(u"b.mkv"_s)});
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QTRY_COMPARE(m_p->program.presenter().presented.size(), 1);
  QVERIFY(m_p->program.presenter().presented.first().message.contains(u"Bookmark Problem"_s));
}

void TestDestinationAnswers::accessEndsWithTheJob() {
  m_p->sandbox.granted = {m_p->program.root()};
  pauseClick();
  show(u"a.mkv"_s);
  (void)m_p->controller->addToQueue();
  QVERIFY(m_p->sandbox.startAccess(m_p->program.root()));
  m_answer(Destination{QUrl::fromLocalFile(m_p->path(u"out.m4v"_s)),
                       QUrl::fromLocalFile(m_p->program.root()), false});
  QCOMPARE(m_p->sandbox.open, 1);
  m_p->queue().taskArray().first()->remove();
  QCOMPARE(m_p->sandbox.open, 0);
}

void TestDestinationAnswers::accessEndsWithARefusedJob() {
  m_p->sandbox.granted = {m_p->program.root()};
  show(u"a.mkv"_s);
  (void)m_p->controller->addToQueue();
  QVERIFY(m_p->sandbox.startAccess(m_p->program.root()));
  m_answer(Destination{QUrl::fromLocalFile(m_p->path(u"nowhere/out.m4v"_s)),
                       QUrl::fromLocalFile(m_p->program.root()), false});
  QVERIFY(m_p->queue().taskArray().isEmpty());
  QCOMPARE(m_p->sandbox.open, 0);
}

void TestDestinationAnswers::aRecordSkippedMeanwhileIsNotQueued() {
  show(u"a.mkv"_s);
  (void)m_p->controller->addToQueue();
  m_p->intake().openFiles({m_p->movie(u"b.mkv"_s)});
  skip();
  const QString folder = m_p->program.root();
  m_p->sandbox.granted = {folder};
  QVERIFY(m_p->sandbox.startAccess(folder));
  m_answer(
      Destination{QUrl::fromLocalFile(folder + u"/a.m4v"_s), QUrl::fromLocalFile(folder), false});
  QVERIFY(m_p->queue().taskArray().isEmpty());
  QCOMPARE(m_p->sandbox.open, 0);
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QCOMPARE(m_p->intake().fileInfo()->fileName, u"b.mkv"_s);
}

void TestDestinationAnswers::anAgreementIsForAJobOnly_data() {
  QTest::addColumn<bool>("skipped");
  QTest::newRow("added") << false;
  QTest::newRow("skipped meanwhile") << true;
}

void TestDestinationAnswers::anAgreementIsForAJobOnly() {
  QFETCH(bool, skipped);
  const QString there = m_p->path(u"out.m4v"_s);
  QVERIFY(wholefile::write(there, "the user's own"));
  show(u"fail.mkv"_s);
  (void)m_p->controller->addToQueue();
  if (skipped) skip();
  m_answer(Destination{QUrl::fromLocalFile(there), {}, true});
  QTRY_COMPARE(m_p->count(JobStateFailed), skipped ? 0 : 1);
  QVERIFY(QFile::exists(there));
  QCOMPARE(wholefile::read(there) == "the user's own", skipped);
}

void TestDestinationAnswers::nothingIsAddedAfterTheEnd() {
  show(u"a.mkv"_s);
  (void)m_p->controller->addToQueue();
  m_p->controller->applicationWillTerminate();
  m_answer(Destination{QUrl::fromLocalFile(m_p->path(u"a.m4v"_s)), {}, false});
  QVERIFY(m_p->queue().taskArray().isEmpty());
  QVERIFY(m_p->converted().isEmpty());
}

void TestDestinationAnswers::noProbeBeginsAfterTheEnd() {
  show(u"a.mkv"_s);
  (void)m_p->controller->addToQueue();
  skip();
  m_p->intake().openFiles({m_p->movie(u"b.mkv"_s)});
  m_p->controller->applicationWillTerminate();
  m_answer({});
  QVERIFY(!m_p->intake().isScanning());
}

// A record that was refused stays where it can be tried once more.
void TestDestinationAnswers::aRefusedRecordCanBeTriedAgain() {
  show(u"a.mkv"_s);
  const auto tryAt = [this](const QString &path) {
    (void)m_p->controller->addToQueue();
    m_answer(Destination{QUrl::fromLocalFile(path), {}, false});
  };
  const auto told = [this] { return m_p->program.presenter().presented.size(); };
  for (int refusals = 1; refusals <= 2; ++refusals) {
    tryAt(m_p->path(u"nowhere/a.m4v"_s));
    QTRY_COMPARE(told(), refusals);
  }
  tryAt(m_p->path(u"a.m4v"_s));
  QCOMPARE(m_p->queue().taskArray().size(), 1);
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
}

void TestDestinationAnswers::skippingStopsAProbeThatHangs() {
  m_p->scenario.probe(u"stuck.mkv"_s).announce(u"probing"_s).hang();
  QVERIFY(m_p->scenario.write());
  AppServices services = m_p->services();
  services.prober = [real = services.prober](const QUrl &source, const ProbeSettings &settings) {
    return source.fileName() == "stuck.mkv"_L1 ? probeFile(source, settings)
                                               : real(source, settings);
  };
  m_p->restart(services);
  m_p->intake().openFiles({m_p->movie(u"stuck.mkv"_s), m_p->movie(u"next.mkv"_s)});
  QTRY_VERIFY(m_p->scenario.announced(u"probing"_s));
  m_p->intake().cancelAdd();
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QCOMPARE(m_p->intake().fileInfo()->fileName, u"next.mkv"_s);
  QVERIFY(m_p->program.presenter().presented.isEmpty());
}

QTEST_GUILESS_MAIN(TestDestinationAnswers)
#include "tst_destinationanswers.moc"
