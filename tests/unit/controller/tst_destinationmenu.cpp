#include <QList>
#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include "DestinationMenu.h"

using namespace Qt::StringLiterals;
using namespace decant;

using Kind = DestinationMenuItem::Kind;

class TestDestinationMenu final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void layout_data();
  void layout();
  void titles();
  void folderOfAnIndex_data();
  void folderOfAnIndex();
  void lastFolderStandsThirdFromTheEnd();
  void defaultAfterARemoval_data();
  void defaultAfterARemoval();
};

void TestDestinationMenu::layout_data() {
  QTest::addColumn<QStringList>("folders");
  QTest::addColumn<QList<Kind>>("kinds");
  QTest::newRow("none") << QStringList()
                        << QList{Kind::AskEachTime, Kind::NextToSource, Kind::Separator,
                                 Kind::AddFolder};
  QTest::newRow("one") << QStringList{u"a"_s}
                       << QList{Kind::AskEachTime, Kind::NextToSource, Kind::Separator,
                                Kind::Folder,      Kind::Separator,    Kind::AddFolder};
  QTest::newRow("two") << QStringList{u"a"_s, u"b"_s}
                       << QList{Kind::AskEachTime, Kind::NextToSource, Kind::Separator,
                                Kind::Folder,      Kind::Folder,       Kind::Separator,
                                Kind::AddFolder};
}

void TestDestinationMenu::layout() {
  QFETCH(const QStringList, folders);
  QFETCH(const QList<Kind>, kinds);
  QList<Kind> found;
  for (const DestinationMenuItem &item : destinationMenu(folders))
    found.append(item.kind);
  QCOMPARE(found, kinds);
}

void TestDestinationMenu::titles() {
  const auto menu = destinationMenu({u"Movies"_s, u"R&D"_s, u"Movies"_s});
  QCOMPARE(menu.at(3).title, u"Movies"_s);
  QCOMPARE(menu.at(4).title, u"R&D"_s);
  QCOMPARE(menu.at(5).title, u"Movies"_s);
  for (const DestinationMenuItem &item : menu)
    QCOMPARE(item.title.isEmpty(), item.kind == Kind::Separator);
}

void TestDestinationMenu::folderOfAnIndex_data() {
  QTest::addColumn<int>("index");
  QTest::addColumn<int>("folder");  // -1: none
  QTest::newRow("before the menu") << -1 << -1;
  QTest::newRow("ask each time") << 0 << -1;
  QTest::newRow("next to source") << 1 << -1;
  QTest::newRow("separator") << 2 << -1;
  QTest::newRow("first") << 3 << 0;
  QTest::newRow("last") << 4 << 1;
  QTest::newRow("second separator") << 5 << -1;
  QTest::newRow("command") << 6 << -1;
}

void TestDestinationMenu::folderOfAnIndex() {
  QFETCH(const int, index);
  QFETCH(const int, folder);
  QCOMPARE(folderAtMenuIndex(index, 2).value_or(-1), folder);
  const auto item = destinationMenu({u"a"_s, u"b"_s}).value(index);
  QCOMPARE(item.kind == Kind::Folder, folder >= 0);
}

void TestDestinationMenu::lastFolderStandsThirdFromTheEnd() {
  QStringList folders;
  for (int count = 1; count < 5; ++count) {
    folders.append(QString::number(count));
    const auto menu = destinationMenu(folders);
    QCOMPARE(menuIndexOfLastFolder(count), menu.size() - 3);
    QCOMPARE(menu.at(menuIndexOfLastFolder(count)).title, folders.last());
  }
}

void TestDestinationMenu::defaultAfterARemoval_data() {
  QTest::addColumn<int>("before");
  QTest::addColumn<int>("removed");
  QTest::addColumn<int>("after");
  QTest::newRow("ask each time stays") << 0 << 0 << 0;
  QTest::newRow("next to source stays") << 1 << 0 << 1;
  QTest::newRow("itself") << 4 << 1 << 0;
  QTest::newRow("above falls") << 5 << 1 << 4;
  QTest::newRow("just above falls") << 4 << 0 << 3;
  QTest::newRow("below stays") << 3 << 1 << 3;
}

void TestDestinationMenu::defaultAfterARemoval() {
  QFETCH(const int, before);
  QFETCH(const int, removed);
  QTEST(static_cast<int>(defaultAfterRemoval(before, removed)), "after");
}

QTEST_GUILESS_MAIN(TestDestinationMenu)
#include "tst_destinationmenu.moc"
