#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QLabel>
#include <QList>
#include <QMimeData>
#include <QObject>
#include <QPalette>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>
#include <QWidget>

#include "Defaults.h"
#include "ElidedLabel.h"
#include "WindowBench.h"
#include "WindowTestMain.h"

using namespace Qt::StringLiterals;
using namespace decant;

// How the windows look under other fonts, from right to left, under a drag, and without their
// forms.
class TestWindowDress final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    failOnWindowWarning();
    m_font = QApplication::font();
    m_b = std::make_unique<WindowBench>();
  }
  void cleanup() {
    m_b.reset();
    QApplication::setFont(m_font);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
  }

  void textsFollowTheFont_data();
  void textsFollowTheFont();
  void largeLettersGetALargerWindow();
  void layoutDecidesTheSmallestSize();
  void foldedOptionsPointInward();
  void hintsAreNeverCut_data();
  void hintsAreNeverCut();
  void mirroredTextsStandWithTheirControls();
  void dropMarkShiftsNothing();
  void noMenuHidesTheToolbar();
  void downmixBelongsToItsStyle();
  void typedVolumeIsStoredOnce();
  void missingFormsAreTold();

 private:
  [[nodiscard]] static QFont largeFont(bool inPixels) {
    QFont font = QApplication::font();
    if (inPixels)
      font.setPixelSize(40);
    else
      font.setPointSizeF(30);
    return font;
  }
  QFont m_font;
  std::unique_ptr<WindowBench> m_b;
};

void TestWindowDress::textsFollowTheFont_data() {
  QTest::addColumn<bool>("inPixels");
  QTest::addColumn<double>("hintSize");
  QTest::addColumn<double>("invitationSize");
  QTest::newRow("points") << false << 27.0 << 45.0;
  QTest::newRow("pixels") << true << 36.0 << 60.0;
}

void TestWindowDress::textsFollowTheFont() {
  QFETCH(const bool, inPixels);
  QFETCH(const double, hintSize);
  QFETCH(const double, invitationSize);
  QVERIFY(m_b->open());
  QApplication::setFont(largeFont(inPixels));
  const auto size = [inPixels](const QFont &font) {
    return inPixels ? font.pixelSize() : font.pointSizeF();
  };
  const QList<ostrak::HintLabel *> hints = m_b->window().findChildren<ostrak::HintLabel *>();
  QVERIFY(!hints.isEmpty());
  for (const ostrak::HintLabel *hint : hints)
    QTRY_COMPARE(size(hint->font()), hintSize);
  QTRY_COMPARE(size(m_b->find<QLabel>(u"helpLabel"_s)->font()), invitationSize);
}

void TestWindowDress::largeLettersGetALargerWindow() {
  QVERIFY(m_b->open());
  QCOMPARE(m_b->window().size(), QSize(720, 580).expandedTo(m_b->window().sizeHint()));
  m_b->close();
  ostrak::tk->userDefaults().remove(u"MainWindowGeometry"_s);
  QApplication::setFont(largeFont(false));
  QVERIFY(m_b->open());
  QVERIFY(m_b->window().sizeHint().width() > 720);
  QVERIFY(m_b->window().width() >= m_b->window().sizeHint().width());
}

void TestWindowDress::layoutDecidesTheSmallestSize() {
  QVERIFY(m_b->open());
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  auto *preferences = m_b->find<QWidget>(u"preferencesWindow"_s);
  for (QWidget *window : {static_cast<QWidget *>(&m_b->window()), preferences}) {
    window->resize(1, 1);
    QVERIFY(window->width() >= window->minimumSizeHint().width());
    QVERIFY(window->height() >= window->minimumSizeHint().height());
  }
}

void TestWindowDress::foldedOptionsPointInward() {
  const auto arrow = [this] {
    return m_b->find<QToolButton>(u"styleOptionsButton"_s)->icon().pixmap(16, 16).toImage();
  };
  // How much of the arrow lies on this side.
  const auto weight = [](const QImage &image, Qt::Edge edge) {
    int sum = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if ((x < image.width() / 2) == (edge == Qt::LeftEdge))
          sum += image.pixelColor(x, y).alpha();
    return sum;
  };
  QVERIFY(m_b->open());
  QVERIFY(weight(arrow(), Qt::LeftEdge) > weight(arrow(), Qt::RightEdge));
  m_b->close();
  QGuiApplication::setLayoutDirection(Qt::RightToLeft);
  QVERIFY(m_b->open());
  QVERIFY(weight(arrow(), Qt::RightEdge) > weight(arrow(), Qt::LeftEdge));
  QVERIFY(m_b->click(u"styleOptionsButton"_s));
  const double sides = weight(arrow(), Qt::RightEdge) / double(weight(arrow(), Qt::LeftEdge));
  QVERIFY(sides > 0.95 && sides < 1.05);
}

void TestWindowDress::hintsAreNeverCut_data() {
  QTest::addColumn<bool>("large");
  QTest::newRow("usual") << false;
  QTest::newRow("large") << true;
}

void TestWindowDress::hintsAreNeverCut() {
  QFETCH(const bool, large);
  if (large) QApplication::setFont(largeFont(false));
  QVERIFY(m_b->open());
  QVERIFY(m_b->click(u"styleOptionsButton"_s));
  for (const QString &style : {u"styleCustom"_s, u"styleFast"_s, u"styleCompatible"_s}) {
    QVERIFY(m_b->click(style));
    m_b->window().resize(1, 1);
    int seen = 0;
    for (const ostrak::HintLabel *hint : m_b->window().findChildren<ostrak::HintLabel *>()) {
      if (!hint->isVisible()) continue;
      ++seen;
      QTRY_VERIFY2(hint->height() >= hint->heightForWidth(hint->width()),
                   qPrintable(hint->objectName()));
    }
    QVERIFY(seen >= 2);
  }
  const auto &picture = *m_b->find<QWidget>(u"helpImageView"_s);
  QVERIFY(picture.height() >= 56);
  QCOMPARE(QAccessible::queryAccessibleInterface(m_b->find<QWidget>(u"helpImageView"_s))->role(),
           QAccessible::Graphic);
}

void TestWindowDress::mirroredTextsStandWithTheirControls() {
  QGuiApplication::setLayoutDirection(Qt::RightToLeft);
  QVERIFY(m_b->open());
  QVERIFY(m_b->show(u"Film.mkv"_s));
  const Qt::Alignment right = Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter;
  for (const QString &name :
       {u"fileNameLabel"_s, u"informationLabel"_s, u"compatibleHint"_s, u"includeSurroundHint"_s})
    QCOMPARE(m_b->find<QLabel>(name)->alignment() & ~Qt::Alignment(Qt::TextWordWrap), right);
  QVERIFY(m_b->find<QLabel>(u"helpHint"_s)->alignment().testFlag(Qt::AlignHCenter));
  // "#1: eng (ac3) [5.1]" and "128 kb/s" keep their order; what is stored is not touched.
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  for (const QString &name : {u"audioPopUp"_s, u"destinationPopUp"_s, u"AACBitrate"_s}) {
    const QString entry = m_b->find<QComboBox>(name)->itemText(0);
    QVERIFY2(entry.startsWith(QChar(0x2068)) && entry.endsWith(QChar(0x2069)), qPrintable(name));
  }
  const QString track = m_b->intake().fileInfo()->audioTrackInformation.first().text;
  QVERIFY(!track.contains(QChar(0x2068)));
  m_b->close();
  QGuiApplication::setLayoutDirection(Qt::LeftToRight);
  QVERIFY(m_b->open());
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QCOMPARE(m_b->find<QComboBox>(u"audioPopUp"_s)->itemText(0), track);
}

void TestWindowDress::dropMarkShiftsNothing() {
  QVERIFY(m_b->open());
  const auto &area = *m_b->find<QWidget>(u"jobArea"_s);
  auto &mark = *m_b->find<QWidget>(u"dropMark"_s);
  const QRect inside = m_b->find<QWidget>(u"emptyPage"_s)->geometry();
  QVERIFY(!mark.isVisible());
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(m_b->movie(u"Film.mkv"_s))});
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &files, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&m_b->window(), &enter);
  QVERIFY(mark.isVisible());
  QVERIFY(mark.testAttribute(Qt::WA_TransparentForMouseEvents));
  QCOMPARE(mark.geometry(), area.geometry());
  QCOMPARE(m_b->find<QWidget>(u"emptyPage"_s)->geometry(), inside);
  QCOMPARE(mark.grab().toImage().pixelColor(mark.width() / 2, 1),
           mark.palette().color(QPalette::Highlight));
  m_b->window().resize(m_b->window().size() + QSize(50, 50));
  QTRY_COMPARE(mark.geometry(), area.geometry());
  QDragLeaveEvent leave;
  QCoreApplication::sendEvent(&m_b->window(), &leave);
  QVERIFY(!mark.isVisible());
}

void TestWindowDress::noMenuHidesTheToolbar() {
  QVERIFY(m_b->open());
  auto &toolBar = *m_b->find<QToolBar>(u"toolBar"_s);
  const QPoint place(toolBar.width() - 4, toolBar.height() / 2);
  QContextMenuEvent event(QContextMenuEvent::Mouse, place, toolBar.mapToGlobal(place));
  QCoreApplication::sendEvent(&toolBar, &event);
  QCoreApplication::processEvents();
  QVERIFY(!QApplication::activePopupWidget());
}

void TestWindowDress::downmixBelongsToItsStyle() {
  QVERIFY(m_b->open());
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  struct Row {
    QString style;
    bool enabled;
  };
  for (const Row &row : {Row{u"styleFast"_s, true}, Row{u"styleCustom"_s, false},
                         Row{u"styleFast"_s, true}, Row{u"styleCompatible"_s, false}}) {
    QVERIFY(m_b->click(row.style));
    for (const QString &name : {u"prefAC3Downmix"_s, u"prefDTSDownmix"_s})
      QCOMPARE(m_b->find<QCheckBox>(name)->isEnabled(), row.enabled);
  }
}

void TestWindowDress::typedVolumeIsStoredOnce() {
  QVERIFY(m_b->open());
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  auto &tabs = *m_b->find<QTabWidget>(u"preferencesTabs"_s);
  tabs.setCurrentWidget(m_b->find<QWidget>(u"audioPage"_s));
  auto &volume = *m_b->find<QSpinBox>(u"AudioVolume"_s);
  volume.setFocus();
  volume.selectAll();
  QTest::keyClicks(&volume, u"250"_s);
  QCOMPARE(ostrak::defaultInt(u"AudioVolume"_s), 100);
  m_b->find<QWidget>(u"preferencesWindow"_s)->close();
  QCOMPARE(ostrak::defaultInt(u"AudioVolume"_s), 250);
}

void TestWindowDress::missingFormsAreTold() {
  QVERIFY(m_b->open());
  // The forms are linked into the scratch program.
  QVERIFY(QFile::remove(ostrak::tk->resDir() + u"/ui"_s));
  struct Row {
    QString action;
    QString file;
  };
  for (const Row &row : {Row{u"preferencesAction"_s, u"PreferencesWindow.ui"_s},
                         Row{u"helpAction"_s, u"DocumentationWindow.ui"_s},
                         Row{u"promotionAction"_s, u"PromotionWindow.ui"_s}}) {
    m_b->presented().clear();
    QVERIFY(m_b->trigger(row.action));
    QTRY_COMPARE(m_b->presented().size(), 1);
    QCOMPARE(m_b->told().first(),
             QString(row.file + u" is missing from the program's folder; install Decant again."_s));
  }
}

int main(int argc, char **argv) {
  return runWindowTest<TestWindowDress>(argc, argv);
}
#include "tst_windowdress.moc"
