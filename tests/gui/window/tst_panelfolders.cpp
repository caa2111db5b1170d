#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QObject>
#include <QStandardPaths>
#include <QTest>

#include "Defaults.h"
#include "WindowBench.h"
#include "WindowTestMain.h"

using namespace Qt::StringLiterals;
using namespace decant;

// Where the panels for files and folders open.
class TestPanelFolders final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    failOnWindowWarning();
    m_b = std::make_unique<WindowBench>();
    m_folderBefore = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_b->folder(u"elsewhere"_s)));
    QVERIFY(m_b->open());
  }
  void cleanup() {
    m_b.reset();
    QVERIFY(QDir::setCurrent(m_folderBefore));
  }

  void addOpensInTheLastFolder();
  void goneFolderLeadsToTheFilms();
  void foldersOpenInTheLastFolder();
  void cancelRemembersNothing();

 private:
  [[nodiscard]] QString shownFolder() {
    if (!QTest::qWaitFor([this] { return m_b->panel() != nullptr; })) return {};
    return m_b->panel()->directory().path();
  }
  [[nodiscard]] static QString films() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
  }
  std::unique_ptr<WindowBench> m_b;
  QString m_folderBefore;
};

void TestPanelFolders::addOpensInTheLastFolder() {
  QVERIFY(m_b->trigger(u"addAction"_s));
  QCOMPARE(shownFolder(), films());
  QVERIFY(m_b->answerPanel(m_b->movie(u"in/Film.mkv"_s)));
  QVERIFY(m_b->click(u"skipButton"_s));
  QVERIFY(m_b->trigger(u"addAction"_s));
  QCOMPARE(shownFolder(), m_b->path(u"in"_s));
  QVERIFY(m_b->cancelPanel());
  m_b->close();
  QVERIFY(m_b->open());
  QVERIFY(m_b->trigger(u"addAction"_s));
  QCOMPARE(shownFolder(), m_b->path(u"in"_s));
}

void TestPanelFolders::goneFolderLeadsToTheFilms() {
  QVERIFY(m_b->trigger(u"addAction"_s));
  QVERIFY(m_b->answerPanel(m_b->movie(u"in/Film.mkv"_s)));
  QVERIFY(m_b->click(u"skipButton"_s));
  QVERIFY(QDir(m_b->path(u"in"_s)).removeRecursively());
  QVERIFY(m_b->trigger(u"addAction"_s));
  QCOMPARE(shownFolder(), films());
}

void TestPanelFolders::foldersOpenInTheLastFolder() {
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  QVERIFY(m_b->addFolder(u"preferencesDestinationPopUp"_s, u"out"_s));
  auto *const menu = m_b->find<QComboBox>(u"preferencesDestinationPopUp"_s);
  QVERIFY(m_b->pick(u"preferencesDestinationPopUp"_s, menu->count() - 1));
  QCOMPARE(shownFolder(), QFileInfo(m_b->path(u"out"_s)).absolutePath());
}

void TestPanelFolders::cancelRemembersNothing() {
  QVERIFY(m_b->trigger(u"addAction"_s));
  QCOMPARE(shownFolder(), films());
  m_b->panel()->setDirectory(m_b->path(QString()));
  QVERIFY(m_b->cancelPanel());
  QVERIFY(m_b->trigger(u"addAction"_s));
  QCOMPARE(shownFolder(), films());
}

int main(int argc, char **argv) {
  return runWindowTest<TestPanelFolders>(argc, argv);
}
#include "tst_panelfolders.moc"
