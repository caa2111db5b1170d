#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QPushButton>
#include <QStringList>
#include <QTest>

#include "Defaults.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The panel that asks for the output: what it suggests, holds and takes.
class TestSavePanel final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void suggestsAndTakes();
  void cancelledKeepsTheFileShown();
  void sourceAsTargetIsRefused();
  void holdsTheExtension_data();
  void holdsTheExtension();
  void asksBeforeItReplaces();
  void anotherNameInstead();
  void waitingMoviesAreNotReplaced_data();
  void waitingMoviesAreNotReplaced();
  void unwritableSettingsAreTold();

 private:
  void furnish() override {
    m_b->app().pauseContinueClicked(true);
    QVERIFY(m_b->show(u"in/Film.mkv"_s));
    QVERIFY(m_b->click(u"addButton"_s));
  }
  [[nodiscard]] QString destination() {
    const auto &jobs = m_b->queue().taskArray();
    return jobs.isEmpty() ? QString() : jobs.first()->fileInfo().destinationURL.toLocalFile();
  }
};

void TestSavePanel::suggestsAndTakes() {
  QTRY_VERIFY(m_b->panel());
  QFileDialog &panel = *m_b->panel();
  QCOMPARE(panel.acceptMode(), QFileDialog::AcceptSave);
  QCOMPARE(panel.directory().absolutePath(), m_b->path(u"in"_s));
  QCOMPARE(panel.selectedFiles(), QStringList{m_b->path(u"in/Film.m4v"_s)});
  QCOMPARE(panel.defaultSuffix(), u"m4v"_s);
  QVERIFY(panel.nameFilters().first().endsWith(u"(*.m4v)"_s));
  QCOMPARE(panel.windowModality(), Qt::WindowModal);
  QVERIFY(m_b->answerPanel(m_b->path(u"out.m4v"_s)));
  QCOMPARE(m_b->names(), QStringList{u"Film.mkv"_s});
  QCOMPARE(destination(), m_b->path(u"out.m4v"_s));
}

void TestSavePanel::cancelledKeepsTheFileShown() {
  QVERIFY(m_b->cancelPanel());
  QCOMPARE(m_b->intake().state(), Intake::State::Showing);
  QVERIFY(m_b->names().isEmpty());
  QVERIFY(m_b->find<QPushButton>(u"addButton"_s)->isEnabled());
  QVERIFY(m_b->click(u"addButton"_s));
  QVERIFY(m_b->answerPanel(m_b->path(u"out.m4v"_s)));
  QCOMPARE(m_b->names(), QStringList{u"Film.mkv"_s});
}

void TestSavePanel::sourceAsTargetIsRefused() {
  QVERIFY(m_b->cancelPanel());
  QVERIFY(m_b->click(u"skipButton"_s));
  ostrak::setDefaultInt(u"DefaultExtension"_s, 0);
  QVERIFY(m_b->show(u"Film.mp4"_s));
  QVERIFY(m_b->click(u"addButton"_s));
  QVERIFY(m_b->answerPanel(m_b->path(u"Film.mp4"_s)));
  QTRY_COMPARE(m_b->presented().size(), 1);
  QCOMPARE(m_b->presented().first().buttons, QStringList{u"D'oh"_s});
  QVERIFY(QFile::exists(m_b->path(u"Film.mp4"_s)));
  QVERIFY(m_b->names().isEmpty());
  QCOMPARE(m_b->intake().state(), Intake::State::Showing);
}

void TestSavePanel::holdsTheExtension_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("taken");
  QTest::newRow("as it should be") << u"out.m4v"_s << u"out.m4v"_s;
  QTest::newRow("capitals") << u"out.M4V"_s << u"out.M4V"_s;
  QTest::newRow("none") << u"out"_s << u"out.m4v"_s;
  QTest::newRow("a number") << u"Film 1.5"_s << u"Film 1.5.m4v"_s;
  QTest::newRow("another one") << u"x.avi"_s << u"x.avi.m4v"_s;
}

void TestSavePanel::holdsTheExtension() {
  QFETCH(const QString, typed);
  QFETCH(const QString, taken);
  QVERIFY(m_b->answerPanel(m_b->path(typed)));
  QTRY_COMPARE(destination(), m_b->path(taken));
  QVERIFY(m_b->presented().isEmpty());
}

void TestSavePanel::asksBeforeItReplaces() {
  (void)m_b->movie(u"Film 1.5.m4v"_s);
  QVERIFY(m_b->answerPanel(m_b->path(u"Film 1.5"_s)));
  QTRY_COMPARE(destination(), m_b->path(u"Film 1.5.m4v"_s));
  QCOMPARE(m_b->presented().size(), 1);
  QVERIFY(m_b->presented().first().message.contains(m_b->path(u"Film 1.5.m4v"_s)));
}

void TestSavePanel::anotherNameInstead() {
  (void)m_b->movie(u"Film 1.5.m4v"_s);
  m_b->program.presenter().answer(ostrak::secondButton);
  QVERIFY(m_b->answerPanel(m_b->path(u"Film 1.5"_s)));
  QTRY_COMPARE(m_b->presented().size(), 1);
  QVERIFY(QTest::qWaitFor([this] { return m_b->panel() != nullptr; }));
  QVERIFY(m_b->names().isEmpty());
  QVERIFY(m_b->answerPanel(m_b->path(u"new.m4v"_s)));
  QTRY_COMPARE(destination(), m_b->path(u"new.m4v"_s));
}

void TestSavePanel::waitingMoviesAreNotReplaced_data() {
  QTest::addColumn<QString>("chosen");
  QTest::addColumn<bool>("refused");
  QTest::newRow("by its name") << u"Waiting.mp4"_s << true;
  QTest::newRow("by a link") << u"link/Waiting.mp4"_s << true;
  QTest::newRow("another") << u"Other.mp4"_s << false;
}

// Files that arrive while the panel is up wait behind the movie that it asks about.
void TestSavePanel::waitingMoviesAreNotReplaced() {
  QFETCH(const QString, chosen);
  QFETCH(const bool, refused);
  QVERIFY(m_b->cancelPanel());
  ostrak::setDefaultInt(u"DefaultExtension"_s, 0);
  QVERIFY(m_b->click(u"addButton"_s));
  QVERIFY(QFile::link(m_b->path(QString()), m_b->path(u"link"_s)));
  const QString other = m_b->movie(u"Other.mp4"_s);
  const QString waiting = m_b->movie(u"Waiting.mp4"_s);
  m_b->intake().openFiles({waiting});
  QVERIFY(m_b->answerPanel(m_b->path(chosen)));
  QTRY_COMPARE(m_b->told().size(), refused ? 1 : 0);
  QCOMPARE(m_b->names().size(), refused ? 0 : 1);
  QVERIFY(QFile::exists(waiting));
  QVERIFY(QFile::exists(other));
  if (refused) {
    QVERIFY(m_b->told().first().startsWith(u"You've tried to overwrite the source file"_s));
    QCOMPARE(m_b->presented().first().buttons, QStringList{u"D'oh"_s});
  }
}

void TestSavePanel::unwritableSettingsAreTold() {
  QVERIFY(m_b->cancelPanel());
  const QString folder = m_b->path(u"config"_s);
  QVERIFY(QDir().rename(folder, folder + u"-away"_s));
  (void)m_b->movie(u"config"_s);
  for (int value : {1, 2}) {
    ostrak::setDefaultInt(u"AACBitrate"_s, value);
    ostrak::tk->userDefaults().synchronize();
  }
  QTRY_COMPARE(m_b->told().size(), 1);
  QVERIFY(m_b->told().first().contains(ostrak::tk->userDefaults().path()));
}

int main(int argc, char **argv) {
  return runWindowTest<TestSavePanel>(argc, argv);
}
#include "tst_savepanel.moc"
