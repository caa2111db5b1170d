#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTranslator>

#include "AuxiliaryWindows.h"
#include "BuildTree.h"
#include "Documents.h"
#include "PageBrowser.h"
#include "VKRTFView.h"
#include "VKWebView.h"
#include "WholeFile.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

namespace {

const QStringList languages{u"en"_s, u"de"_s};

// Gives the folder of this language for the English one.
class FolderTranslator final : public QTranslator {
 public:
  explicit FolderTranslator(QString language) : m_language(std::move(language)) {}
  [[nodiscard]] bool isEmpty() const override { return false; }
  QString translate(const char *, const char *text, const char *, int) const override {
    return qstrcmp(text, "documents/en") == 0 ? QString(u"documents/"_s + m_language) : QString();
  }

 private:
  QString m_language;
};

QString contents(const QString &path) {
  return QString::fromUtf8(wholefile::read(path));
}

}  // namespace

// The documentation and promotion windows, with the pages of the program in the text view.
class TestDocumentation final : public WindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    WindowTest::init();
    QVERIFY(QFile::link(folder(), m_b->program.library().resDir() + u"/documents"_s));
    QVERIFY(m_b->open());
  }

  void tagsLeadToTheirTabs_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("page");
    QTest::newRow("documentation") << u"helpAction"_s << u"startPage"_s;
    QTest::newRow("styles") << u"helpStylesAction"_s << u"stylesPage"_s;
    QTest::newRow("devices") << u"helpDevicesAction"_s << u"devicesPage"_s;
  }
  void tagsLeadToTheirTabs() {
    QFETCH(QString, command);
    QVERIFY(m_b->trigger(command));
    QVERIFY(QTest::qWaitForWindowExposed(documentation()));
    QTEST(tabs().currentWidget()->objectName(), "page");
  }

  // The arrow keys lead from tab to tab at once.
  void tabsHaveTheKeyboard_data() {
    QTest::addColumn<int>("tag");
    QTest::newRow("at the first page") << -1;
    QTest::newRow("at another") << 3;
  }
  void tabsHaveTheKeyboard() {
    QFETCH(int, tag);
    auxiliary().openDocumentationWindow(tag);
    QVERIFY(QTest::qWaitForWindowActive(documentation()));
    const int first = tabs().currentIndex();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QCOMPARE(tabs().currentIndex(), first + 1);
  }

  void negativeTagKeepsTheTab() {
    auxiliary().openDocumentationWindow(2);
    QCOMPARE(tabs().currentIndex(), 2);
    const QPointer<QWidget> first = documentation();
    auxiliary().openDocumentationWindow(-1);
    QCOMPARE(documentation(), first.data());
    QCOMPARE(tabs().currentIndex(), 2);
  }

  void closedWindowsOpenAfresh() {
    auxiliary().openDocumentationWindow(2);
    auxiliary().openPromotion();
    const QPointer<QWidget> first = documentation();
    const QPointer<QWidget> promotion = auxiliary().promotionWindow();
    first->close();
    QVERIFY(QTest::qWaitForWindowActive(promotion));
    QTest::keyClick(promotion, Qt::Key_W, Qt::ControlModifier);
    QTRY_VERIFY(!first && !promotion);
    auxiliary().openDocumentationWindow(-1);
    QCOMPARE(tabs().currentIndex(), 0);
    auxiliary().openPromotion();
    QVERIFY(auxiliary().promotionWindow());
  }

  void everyPageShowsItsDocument() {
    auxiliary().openDocumentationWindow(0);
    QVERIFY(QTest::qWaitForWindowExposed(documentation()));
    for (int i = 0; i < tabs().count(); ++i) {
      tabs().setCurrentIndex(i);
      if (auto *page = qobject_cast<ostrak::VKWebView *>(tabs().currentWidget())) {
        QTRY_VERIFY(page->textView());
        QVERIFY2(page->textView()->toPlainText().size() > 300, qPrintable(page->objectName()));
      } else {
        auto *rich = qobject_cast<ostrak::VKRTFView *>(tabs().currentWidget());
        QVERIFY(rich);
        QTRY_VERIFY(rich->toPlainText().contains(u"ffmpeg"_s));
      }
    }
    QCOMPARE(tabs().count(), 7);
  }

  void promotionLinksGoWithTheirKeys() {
    m_b->close();
    m_b->program.setInfo(u"VendorProductPage"_s, u"https://decant.example/"_s);
    m_b->program.restart();
    QVERIFY(m_b->open());
    QVERIFY(m_b->trigger(u"promotionAction"_s));
    QWidget &window = *auxiliary().promotionWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto button = [&](const QString &name) {
      return window.findChild<QAbstractButton *>(name);
    };
    QVERIFY(button(u"homepageButton"_s)->isVisible() && button(u"supportButton"_s)->isVisible());
    QVERIFY(!button(u"rateButton"_s)->isVisible() && !button(u"storeButton"_s)->isVisible());
    QTest::mouseClick(button(u"homepageButton"_s), Qt::LeftButton);
    QCOMPARE(m_b->program.opener().opened, QList<QUrl>{QUrl(u"https://decant.example/"_s)});
    QCOMPARE(window.findChild<QLabel *>(u"versionLabel"_s)->text(),
             u"Version: 1.2.3   Build: 45"_s);
  }

  void documentsGoWithTheLanguage() {
    QCOMPARE(documentName(u"start.html"_s), u"documents/en/start.html"_s);
    FolderTranslator german(u"de"_s);
    QCoreApplication::installTranslator(&german);
    QCOMPARE(documentName(u"start.html"_s), u"documents/de/start.html"_s);
    QCOMPARE(documentName(u"none.html"_s), u"documents/en/none.html"_s);
    QCoreApplication::removeTranslator(&german);
    FolderTranslator other(u"xx"_s);
    QCoreApplication::installTranslator(&other);
    QCOMPARE(documentName(u"start.html"_s), u"documents/en/start.html"_s);
    QCoreApplication::removeTranslator(&other);
  }

  // The page on failures speaks of what the program really says.
  void failuresAreThoseOfTheProgram() {
    const QString source = contents(buildtree::source(u"app/conversion/Diagnosis.cpp"_s))
                               .remove(QRegularExpression(u"\"\\s*\""_s));
    const QString page = contents(folder() + u"/en/failures.html"_s).section(u"<h2>"_s, 0, 0);
    auto quotes = QRegularExpression(u"<dt>“(?:… )?(.*?)(?: …)?”</dt>"_s).globalMatch(page);
    int count = 0;
    while (quotes.hasNext()) {
      const QString quote = quotes.next().captured(1);
      QVERIFY2(source.contains(quote), qPrintable(quote));
      ++count;
    }
    QCOMPARE(count, 8);
  }

  // Nothing is fetched from elsewhere, and what a page needs is there.
  void pagesStandAlone() {
    for (const QString &language : languages) {
      const QStringList names = QDir(folder() + u'/' + language).entryList(QDir::Files);
      QCOMPARE(names, QDir(folder() + u"/en"_s).entryList(QDir::Files));
      for (const QString &name : names) {
        const QString page = contents(folder() + u'/' + language + u'/' + name);
        QVERIFY2(!page.contains(u"<script"_s) && !page.contains(u"<img"_s), qPrintable(name));
        if (!name.endsWith(u".html"_s)) continue;
        QVERIFY2(page.contains(u"<link rel=\"stylesheet\" href=\"../page.css\">"_s),
                 qPrintable(name));
        QVERIFY2(page.contains(QString(u"<html lang=\""_s + language + u'"')), qPrintable(name));
      }
    }
    QVERIFY(QFile::exists(folder() + u"/page.css"_s));
  }

 private:
  static QString folder() { return buildtree::source(u"app/resources/documents"_s); }
  [[nodiscard]] AuxiliaryWindows &auxiliary() { return m_b->desktop().auxiliary(); }
  [[nodiscard]] QWidget *documentation() { return auxiliary().documentationWindow(); }
  [[nodiscard]] QTabWidget &tabs() { return *documentation()->findChild<QTabWidget *>(); }
};

int main(int argc, char **argv) {
  return runWindowTest<TestDocumentation>(argc, argv);
}
#include "tst_documentation.moc"
