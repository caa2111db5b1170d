#include <QClipboard>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QList>
#include <QMimeData>
#include <QPoint>
#include <QStringList>
#include <QTest>
#include <QUrl>
#include <QWidget>

#include "Defaults.h"
#include "DropMark.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

using State = Intake::State;

// The ways of files into the window: drag, paste, the open panel, a second start; and that none of
// them is lost.
class TestWindowIntake final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void drags_data();
  void drags();
  void dropShowsItsPlace();
  void droppedSubtitlePairs();
  void picturesTakeNoDrops();
  void paste_data();
  void paste();
  void openPanelTakesMoviesAndSubtitles();
  void cancelledOpenPanelAddsNothing();
  void filesOfTheCommandLine();
  void secondStartHandsOver();
  void filesArriveWhileProbing();
  void filesArriveWhileShowing();
  void filesArriveWhileAsking();
  void everyFileInOrder();
  void autoAddNeedsNoClick();
  void refusedFileDoesNotStopTheNext();

 private:
  [[nodiscard]] QStringList shownInTurn() {
    QStringList names;
    while (QTest::qWaitFor([this] { return m_b->intake().state() != State::Probing; }) &&
           m_b->intake().state() == State::Showing) {
      names.append(m_b->intake().fileInfo()->fileName);
      if (!m_b->click(u"skipButton"_s)) break;
    }
    return names;
  }
};

void TestWindowIntake::drags_data() {
  QTest::addColumn<QStringList>("files");
  QTest::addColumn<bool>("taken");
  QTest::addColumn<QStringList>("shown");
  const QStringList none;
  QTest::newRow("movie") << QStringList{u"a.mkv"_s} << true << QStringList{u"a.mkv"_s};
  QTest::newRow("upper case") << QStringList{u"a.MKV"_s} << true << QStringList{u"a.MKV"_s};
  QTest::newRow("every type") << QStringList{u"1.mkv"_s, u"2.mp4"_s,  u"3.mov"_s,
                                             u"4.ogm"_s, u"5.wmv"_s,  u"6.mpg"_s,
                                             u"7.flv"_s, u"8.webm"_s, u"9.ts"_s}
                              << true << QStringList{u"1.mkv"_s, u"2.mp4"_s,  u"3.mov"_s,
                                                     u"4.ogm"_s, u"5.wmv"_s,  u"6.mpg"_s,
                                                     u"7.flv"_s, u"8.webm"_s, u"9.ts"_s};
  QTest::newRow("subtitles only") << QStringList{u"a.srt"_s, u"b.ass"_s} << false << none;
  QTest::newRow("mixed") << QStringList{u"a.srt"_s, u"a.mkv"_s, u"a.txt"_s} << true
                         << QStringList{u"a.mkv"_s};
  QTest::newRow("text file") << QStringList{u"a.txt"_s} << false << none;
  QTest::newRow("hidden, without extension") << QStringList{u".mkv"_s} << false << none;
  QTest::newRow("nothing") << none << false << none;
}

void TestWindowIntake::drags() {
  QFETCH(const QStringList, files);
  QFETCH(const QStringList, shown);
  QStringList paths;
  for (const QString &name : files)
    paths.append(m_b->movie(name));
  QTEST(m_b->drop(paths), "taken");
  QCOMPARE(shownInTurn(), shown);
  QVERIFY(m_b->presented().isEmpty());
}

void TestWindowIntake::dropShowsItsPlace() {
  auto *mark = m_b->window().findChild<DropMark *>();
  QVERIFY(mark && !mark->isVisible());
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(m_b->movie(u"a.mkv"_s))});
  QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&m_b->window(), &enter);
  QVERIFY(enter.isAccepted() && mark->isVisible());
  QDragLeaveEvent leave;
  QCoreApplication::sendEvent(&m_b->window(), &leave);
  QVERIFY(!mark->isVisible());
  QVERIFY(m_b->drop({m_b->movie(u"a.mkv"_s)}));
  QVERIFY(!mark->isVisible());
}

void TestWindowIntake::droppedSubtitlePairs() {
  const QString subtitle = m_b->movie(u"a.srt"_s);
  QVERIFY(m_b->drop({subtitle, m_b->movie(u"a.mkv"_s)}));
  QTRY_COMPARE(m_b->intake().state(), State::Showing);
  QCOMPARE(m_b->intake().fileInfo()->subtitleFileURL.toLocalFile(), subtitle);
}

void TestWindowIntake::picturesTakeNoDrops() {
  QVERIFY(m_b->window().acceptDrops());
  QVERIFY(!m_b->find<QWidget>(u"helpImageView"_s)->acceptDrops());
}

void TestWindowIntake::paste_data() {
  QTest::addColumn<QString>("text");  // %1 is the folder
  QTest::addColumn<bool>("asAddresses");
  QTest::addColumn<QStringList>("shown");
  QTest::newRow("copied files") << u"%1/a.mkv\n%1/b c.mkv"_s << true
                                << QStringList{u"a.mkv"_s, u"b c.mkv"_s};
  QTest::newRow("names") << u"%1/a.mkv\n%1/b c.mkv\n"_s << false
                         << QStringList{u"a.mkv"_s, u"b c.mkv"_s};
  QTest::newRow("addresses") << u"file://%1/a.mkv\r\nfile://%1/b%20c.mkv"_s << false
                             << QStringList{u"a.mkv"_s, u"b c.mkv"_s};
  QTest::newRow("web address") << u"http://example.org/a.mkv"_s << false << QStringList();
  QTest::newRow("prose") << u"a.mkv"_s << false << QStringList();
}

void TestWindowIntake::paste() {
  QFETCH(QString, text);
  QFETCH(const bool, asAddresses);
  QFETCH(const QStringList, shown);
  (void)m_b->movie(u"a.mkv"_s);
  (void)m_b->movie(u"b c.mkv"_s);
  text.replace(u"%1"_s, m_b->program.root());
  auto *data = new QMimeData;
  if (asAddresses) {
    QList<QUrl> urls;
    for (const QString &line : text.split(u'\n'))
      urls.append(QUrl::fromLocalFile(line));
    data->setUrls(urls);
  } else {
    data->setText(text);
  }
  QGuiApplication::clipboard()->setMimeData(data);
  QTest::keyClick(&m_b->window(), Qt::Key_V, Qt::ControlModifier);
  QCOMPARE(shownInTurn(), shown);
  // Whoever brings files wants to see what becomes of them.
  m_b->window().setWindowState(Qt::WindowMinimized);
  QVERIFY(m_b->trigger(u"pasteAction"_s));
  QCOMPARE(m_b->window().isMinimized(), shown.isEmpty());
}

void TestWindowIntake::openPanelTakesMoviesAndSubtitles() {
  QVERIFY(m_b->trigger(u"addAction"_s));
  QTRY_VERIFY(m_b->panel());
  QFileDialog &panel = *m_b->panel();
  QCOMPARE(panel.fileMode(), QFileDialog::ExistingFiles);
  QCOMPARE(panel.windowModality(), Qt::WindowModal);
  QCOMPARE(panel.parentWidget(), &m_b->window());
  QCOMPARE(panel.nameFilters().size(), 1);
  const QString filter = panel.nameFilters().first();
  for (const QString &type :
       {u"mkv"_s, u"mp4"_s, u"mov"_s, u"ogm"_s, u"wmv"_s, u"mpg"_s, u"flv"_s, u"webm"_s, u"ts"_s,
        u"srt"_s, u"ass"_s, u"ssa"_s, u"smi"_s, u"sub"_s}) {
    QVERIFY2(filter.contains(u"*."_s + type + u' '), qPrintable(type));
  }
  QVERIFY(m_b->answerPanel(m_b->movie(u"a.mkv"_s)));
  QTRY_COMPARE(m_b->intake().state(), State::Showing);
  QCOMPARE(m_b->intake().fileInfo()->fileName, u"a.mkv"_s);
}

void TestWindowIntake::cancelledOpenPanelAddsNothing() {
  QVERIFY(m_b->trigger(u"addAction"_s));
  QVERIFY(m_b->cancelPanel());
  QVERIFY(m_b->intake().isIdle());
}

void TestWindowIntake::filesOfTheCommandLine() {
  const QStringList files{m_b->movie(u"a.mkv"_s), m_b->movie(u"b.mkv"_s)};
  m_b->close();
  QVERIFY(m_b->open(files));
  QCOMPARE(shownInTurn(), QStringList({u"a.mkv"_s, u"b.mkv"_s}));
}

void TestWindowIntake::secondStartHandsOver() {
  m_b->window().showMinimized();
  m_b->instance.arrive({m_b->movie(u"a.mkv"_s)});
  QVERIFY(!m_b->window().isMinimized());
  QCOMPARE(shownInTurn(), QStringList{u"a.mkv"_s});
  m_b->window().hide();
  m_b->instance.arrive({});
  QVERIFY(m_b->window().isVisible());
  QVERIFY(m_b->intake().isIdle());
}

void TestWindowIntake::filesArriveWhileProbing() {
  m_b->prober.hold();
  QVERIFY(m_b->drop({m_b->movie(u"1.mkv"_s)}));
  m_b->instance.arrive({m_b->movie(u"2.mkv"_s)});
  QVERIFY(m_b->drop({m_b->movie(u"3.mkv"_s)}));
  m_b->prober.finishAll();
  QStringList shown = shownInTurn();
  shown.sort();
  QCOMPARE(shown, QStringList({u"1.mkv"_s, u"2.mkv"_s, u"3.mkv"_s}));
  QCOMPARE(m_b->prober.mostAtOnce(), 1);
}

void TestWindowIntake::filesArriveWhileShowing() {
  QVERIFY(m_b->show(u"1.mkv"_s));
  QVERIFY(m_b->drop({m_b->movie(u"2.mkv"_s)}));
  QCOMPARE(m_b->intake().state(), State::Showing);
  QCOMPARE(m_b->intake().fileInfo()->fileName, u"1.mkv"_s);
  QCOMPARE(shownInTurn(), QStringList({u"1.mkv"_s, u"2.mkv"_s}));
}

void TestWindowIntake::filesArriveWhileAsking() {
  QVERIFY(m_b->show(u"1.mkv"_s));
  QVERIFY(m_b->click(u"addButton"_s));
  QTRY_VERIFY(m_b->panel());
  QCOMPARE(m_b->intake().state(), State::Asking);
  m_b->instance.arrive({m_b->movie(u"2.mkv"_s)});
  QCOMPARE(m_b->intake().state(), State::Asking);
  QVERIFY(m_b->answerPanel(m_b->path(u"out.m4v"_s)));
  QCOMPARE(m_b->names(), QStringList{u"1.mkv"_s});
  QCOMPARE(shownInTurn(), QStringList{u"2.mkv"_s});
}

void TestWindowIntake::everyFileInOrder() {
  QVERIFY(m_b->drop({m_b->movie(u"c.mkv"_s), m_b->movie(u"a.mkv"_s), m_b->movie(u"b.mkv"_s)}));
  QCOMPARE(shownInTurn(), QStringList({u"c.mkv"_s, u"a.mkv"_s, u"b.mkv"_s}));
}

void TestWindowIntake::autoAddNeedsNoClick() {
  m_b->app().pauseContinueClicked(true);
  ostrak::setDefaultInt(u"AutoAdd"_s, 1);
  ostrak::setDefaultInt(u"DefaultDestination"_s, 1);
  ostrak::setDefaultInt(u"InsertJobsAtBottom"_s, 1);
  QVERIFY(m_b->drop({m_b->movie(u"a.mkv"_s), m_b->movie(u"b.mkv"_s)}));
  QTRY_VERIFY(m_b->intake().isIdle());
  QCOMPARE(m_b->names(), QStringList({u"a.mkv"_s, u"b.mkv"_s}));
  QVERIFY(!m_b->panel());
}

void TestWindowIntake::refusedFileDoesNotStopTheNext() {
  m_b->prober.refuse = QStringList{m_b->path(u"bad.mkv"_s)};
  m_b->prober.breakOn = QStringList{m_b->path(u"odd.mkv"_s)};
  QVERIFY(
      m_b->drop({m_b->movie(u"bad.mkv"_s), m_b->movie(u"odd.mkv"_s), m_b->movie(u"good.mkv"_s)}));
  QTRY_COMPARE(m_b->intake().state(), State::Showing);
  QCOMPARE(m_b->intake().fileInfo()->fileName, u"good.mkv"_s);
  QTRY_COMPARE(m_b->presented().size(), 2);
}

int main(int argc, char **argv) {
  return runWindowTest<TestWindowIntake>(argc, argv);
}
#include "tst_windowintake.moc"
