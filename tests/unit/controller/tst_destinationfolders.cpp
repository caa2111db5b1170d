#include <QDir>
#include <QFile>
#include <QList>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>

#include "Bookmark.h"
#include "Defaults.h"
#include "DestinationFolders.h"
#include "Exceptions.h"
#include "ProgramTest.h"
#include "Sandbox.h"
#include "Settings.h"

using namespace Qt::StringLiterals;
using namespace decant;

using Addition = DestinationFolders::Addition;
using Opened = DestinationFolders::Opened;

class TestDestinationFolders final : public ProgramTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    ProgramTest::init();
    m_sandbox = std::make_unique<FakeSandbox>();
  }
  void cleanup() {
    m_folders.reset();
    ProgramTest::cleanup();
  }

  void startsWithEverythingOutsideASandbox();
  void remembersAcrossRestarts();
  void namesAreTheLastComponent_data();
  void namesAreTheLastComponent();
  void refusesADuplicate();
  void refusesWhatIsNoFolder();
  void removes_data();
  void removes();
  void launchKeepsWhatResolves();
  void launchDropsWhatIsGoneOrNotGranted();
  void lastPrefixWins();
  void accessIsStartedForBookmarksOnly();
  void grantThatIsGoneOpensNothing();
  void usesAFolder();
  void followsARenamedFolder();
  void throwsForWhatIsGone();
  void throwsForWhatIsNotGranted();

 private:
  [[nodiscard]] QString used(qsizetype index) {
    return m_folders->use(index, ostrak::folderOfBookmark(DestinationFolders::bookmarkAt(index)));
  }
  void start(bool sandboxed) {
    m_sandbox->active = sandboxed;
    m_folders = std::make_unique<DestinationFolders>(*m_sandbox);
  }
  // A folder of the scratch program, made and granted.
  [[nodiscard]] QString folder(const QString &name) const {
    QDir(m_program->root()).mkpath(name);
    m_sandbox->granted.insert(m_program->path(name));
    return m_program->path(name);
  }
  std::unique_ptr<FakeSandbox> m_sandbox;
  std::unique_ptr<DestinationFolders> m_folders;
};

void TestDestinationFolders::startsWithEverythingOutsideASandbox() {
  start(false);
  QCOMPARE(m_folders->openedFolders(), QList{(Opened{u"/"_s, false})});
  QVERIFY(m_folders->openFor(u"/anywhere/out.m4v"_s).has_value());
  start(true);
  QVERIFY(m_folders->openedFolders().isEmpty());
  QVERIFY(!m_folders->openFor(u"/anywhere/out.m4v"_s).has_value());
}

void TestDestinationFolders::remembersAcrossRestarts() {
  start(true);
  QSignalSpy changed(m_folders.get(), &DestinationFolders::changed);
  QCOMPARE(m_folders->add(folder(u"one"_s)), Addition::added);
  QCOMPARE(m_folders->add(folder(u"two"_s)), Addition::added);
  QCOMPARE(changed.size(), 2);
  QVERIFY(QFile(m_program->path(u"config/org.decant.Decant.conf"_s)).exists());
  m_folders.reset();
  m_program->restart();
  registerSettings();
  start(true);
  QCOMPARE(m_folders->names(), QStringList({u"one"_s, u"two"_s}));
  QCOMPARE(used(1), m_program->path(u"two"_s));
}

void TestDestinationFolders::namesAreTheLastComponent_data() {
  QTest::addColumn<QString>("path");
  QTest::addColumn<QString>("name");
  QTest::newRow("plain") << u"Movies"_s << u"Movies"_s;
  QTest::newRow("slash at the end") << u"Movies/"_s << u"Movies"_s;
  QTest::newRow("dots") << u"Movies.2020.old"_s << u"Movies.2020.old"_s;
  QTest::newRow("hidden") << u".kept"_s << u".kept"_s;
}

void TestDestinationFolders::namesAreTheLastComponent() {
  QFETCH(const QString, path);
  start(false);
  QCOMPARE(m_folders->add(folder(path)), Addition::added);
  QTEST(m_folders->names().value(0), "name");
  QCOMPARE(m_folders->add(u"/"_s), Addition::added);
  QCOMPARE(m_folders->names().value(1), u"/"_s);
}

void TestDestinationFolders::refusesADuplicate() {
  start(true);
  const QString one = folder(u"one"_s);
  QCOMPARE(m_folders->add(one), Addition::added);
  ostrak::setDefaultInt(u"DefaultDestination"_s, 3);
  QCOMPARE(m_folders->add(one + u'/'), Addition::alreadyThere);
  QCOMPARE(m_folders->names(), QStringList{u"one"_s});
  QCOMPARE(ostrak::defaultArray(u"DestinationBookmarks"_s).size(), 1);
  QCOMPARE(ostrak::defaultInt(u"DefaultDestination"_s), 0);
}

void TestDestinationFolders::refusesWhatIsNoFolder() {
  start(true);
  QCOMPARE(m_folders->add(m_program->path(u"nowhere"_s)), Addition::failed);
  QVERIFY(m_folders->names().isEmpty());
  QCOMPARE(m_program->loggedWithLevel().last().level, 3);
  QVERIFY(m_program->logged().last().startsWith(u"Error creating bookmark: "_s));
}

void TestDestinationFolders::removes_data() {
  QTest::addColumn<int>("removed");
  QTest::addColumn<QStringList>("left");
  QTest::addColumn<int>("defaultIndex");
  QTest::newRow("below the default") << 0 << QStringList{u"b"_s, u"c"_s} << 3;
  QTest::newRow("the default") << 1 << QStringList{u"a"_s, u"c"_s} << 0;
  QTest::newRow("above the default") << 2 << QStringList{u"a"_s, u"b"_s} << 4;
  QTest::newRow("none chosen") << -1 << QStringList{u"a"_s, u"b"_s, u"c"_s} << 4;
  QTest::newRow("beyond") << 3 << QStringList{u"a"_s, u"b"_s, u"c"_s} << 4;
}

void TestDestinationFolders::removes() {
  QFETCH(const int, removed);
  QFETCH(const QStringList, left);
  start(true);
  for (const QString &name : {u"a"_s, u"b"_s, u"c"_s})
    QCOMPARE(m_folders->add(folder(name)), Addition::added);
  ostrak::setDefaultInt(u"DefaultDestination"_s, 4);
  m_folders->removeAt(removed);
  QCOMPARE(m_folders->names(), left);
  for (int i = 0; i < left.size(); ++i)
    QCOMPARE(used(i), m_program->path(left.at(i)));
  QTEST(static_cast<int>(ostrak::defaultInt(u"DefaultDestination"_s)), "defaultIndex");
}

void TestDestinationFolders::launchKeepsWhatResolves() {
  start(true);
  QCOMPARE(m_folders->add(folder(u"one"_s)), Addition::added);
  start(true);
  QSignalSpy changed(m_folders.get(), &DestinationFolders::changed);
  m_folders->checkStored();
  QCOMPARE(m_folders->openedFolders(), QList{(Opened{m_program->path(u"one"_s), true})});
  QCOMPARE(m_sandbox->open, 0);
  QCOMPARE(changed.size(), 0);
  QVERIFY(!m_program->logged().join(u' ').contains(u"invalid bookmarks"_s));
}

void TestDestinationFolders::launchDropsWhatIsGoneOrNotGranted() {
  start(true);
  for (const QString &name : {u"gone"_s, u"kept"_s, u"refused"_s})
    QCOMPARE(m_folders->add(folder(name)), Addition::added);
  QVERIFY(QDir().rmdir(m_program->path(u"gone"_s)));
  m_sandbox->granted.remove(m_program->path(u"refused"_s));
  start(true);
  QSignalSpy changed(m_folders.get(), &DestinationFolders::changed);
  m_folders->checkStored();
  QCOMPARE(m_folders->names(), QStringList{u"kept"_s});
  QCOMPARE(m_folders->openedFolders(), QList{(Opened{m_program->path(u"kept"_s), true})});
  QCOMPARE(used(0), m_program->path(u"kept"_s));
  QCOMPARE(changed.size(), 1);
  QCOMPARE(m_program->logged().last(), u"Info: going to delete 2 invalid bookmarks"_s);
  QCOMPARE(m_program->loggedWithLevel().last().level, 3);
  QCOMPARE(m_sandbox->open, 1);
}

void TestDestinationFolders::lastPrefixWins() {
  start(true);
  m_folders->open(u"/Movies/New"_s);
  m_folders->open(u"/Movies"_s);
  m_folders->open(u"/Other"_s);
  QCOMPARE(m_folders->openFor(u"/Movies/New/out.m4v"_s)->path, u"/Movies"_s);
  QCOMPARE(m_folders->openFor(u"/Movies2/out.m4v"_s)->path, u"/Movies"_s);
  QVERIFY(!m_folders->openFor(u"/Mov/out.m4v"_s));
}

void TestDestinationFolders::accessIsStartedForBookmarksOnly() {
  start(true);
  QCOMPARE(m_folders->add(folder(u"kept"_s)), Addition::added);
  m_folders->checkStored();
  m_folders->open(m_program->path(u"picked"_s));
  const auto picked = m_folders->openFor(m_program->path(u"picked/out.m4v"_s));
  QVERIFY(picked && !picked->securityScoped);
  QCOMPARE(m_sandbox->open, 0);
  const auto kept = m_folders->openFor(m_program->path(u"kept/out.m4v"_s));
  QVERIFY(kept && kept->securityScoped);
  QCOMPARE(m_sandbox->open, 1);
}

void TestDestinationFolders::grantThatIsGoneOpensNothing() {
  start(true);
  QCOMPARE(m_folders->add(folder(u"kept"_s)), Addition::added);
  m_folders->checkStored();
  m_sandbox->granted.clear();
  QVERIFY(!m_folders->openFor(m_program->path(u"kept/out.m4v"_s)));
  QCOMPARE(m_sandbox->open, 0);
}

void TestDestinationFolders::usesAFolder() {
  start(true);
  QCOMPARE(m_folders->add(folder(u"one"_s)), Addition::added);
  QCOMPARE(used(0), m_program->path(u"one"_s));
  QCOMPARE(m_sandbox->open, 1);
}

void TestDestinationFolders::followsARenamedFolder() {
  start(false);
  QCOMPARE(m_folders->add(folder(u"before"_s)), Addition::added);
  QVERIFY(QDir(m_program->root()).rename(u"before"_s, u"after"_s));
  QCOMPARE(used(0), m_program->path(u"after"_s));
  QCOMPARE(m_folders->names(), QStringList{u"before"_s});
}

void TestDestinationFolders::throwsForWhatIsGone() {
  start(false);
  QCOMPARE(m_folders->add(folder(u"gone"_s)), Addition::added);
  QVERIFY(QDir().rmdir(m_program->path(u"gone"_s)));
  for (const int index : {0, 1, -1}) {
    try {
      QFAIL(qPrintable(used(index)));
    } catch (const ostrak::Exception &exception) {
      QCOMPARE(exception.name(), u"Bookmark Problem: URLByResolvingBookmarkData"_s);
      QVERIFY(!exception.reason().isEmpty());
    }
  }
}

void TestDestinationFolders::throwsForWhatIsNotGranted() {
  start(true);
  const QString one = folder(u"one"_s);
  QCOMPARE(m_folders->add(one), Addition::added);
  m_sandbox->granted.clear();
  try {
    QFAIL(qPrintable(used(0)));
  } catch (const ostrak::Exception &exception) {
    QCOMPARE(exception.name(), u"Bookmark Problem: startAccessingSecurityScopedResource"_s);
    QCOMPARE(exception.reason(), one);
  }
  QCOMPARE(m_sandbox->open, 0);
}

QTEST_GUILESS_MAIN(TestDestinationFolders)
#include "tst_destinationfolders.moc"
