#include <QAbstractAnimation>
#include <QComboBox>
#include <QFont>
#include <QLabel>
#include <QLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QStringList>
#include <QTest>
#include <QVariantAnimation>

#include "Defaults.h"
#include "ElidedLabel.h"
#include "FilePanel.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The panel that shows the file being looked into or asked about.
class TestFilePanel final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void slidesInAndOut();
  void largerFontsGetWhatTheyNeed();
  void addButtonHasAirInAnyFont();
  void busyWhileProbing();
  void showsTheRecord();
  void namesThePairedSubtitle();
  void longNamesHaveAToolTip();
  void lineBreaksStayOnOneLine();
  void audioMenuFollowsTheRecord();
  void chosenTrackReachesTheJob();
  void menuGoesBackWithTheNextFile();
  void noSound();
  void addButtonTitleFollowsTheQueue();
  void skipGoesOnToTheNext();
  void skipWhileProbing();
  void nothingCanBeAddedWhileProbing();

 private:
  [[nodiscard]] FilePanel &panel() { return *m_b->find<FilePanel>(u"filePanel"_s); }
  [[nodiscard]] QString fullText(const QString &name) {
    return m_b->find<ostrak::ElidedLabel>(name)->fullText();
  }
  [[nodiscard]] QComboBox &audio() { return *m_b->find<QComboBox>(u"audioPopUp"_s); }
  [[nodiscard]] QPushButton &add() { return *m_b->find<QPushButton>(u"addButton"_s); }
};

void TestFilePanel::slidesInAndOut() {
  QVERIFY(!panel().isShown());
  QCOMPARE(panel().height(), 0);
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(panel().isShown());
  QCOMPARE(FilePanel::fullHeight, 117);
  QTRY_COMPARE(panel().height(), qMax(117, panel().layout()->sizeHint().height()));
  QVERIFY(m_b->click(u"skipButton"_s));
  QVERIFY(!panel().isShown());
  QTRY_COMPARE(panel().height(), 0);
  QTRY_VERIFY(!panel().isVisible());  // or the keyboard would reach it
}

void TestFilePanel::largerFontsGetWhatTheyNeed() {
  QVERIFY(m_b->show(u"Film.mkv"_s));
  // Also while it slides.
  const int usual = qMax(117, panel().layout()->sizeHint().height());
  QFont font = panel().font();
  font.setPointSizeF(font.pointSizeF() * 2);
  panel().setFont(font);
  const auto *slide = panel().findChild<QVariantAnimation *>();
  QTRY_COMPARE(slide->state(), QAbstractAnimation::Stopped);
  QTRY_COMPARE(panel().height(), panel().layout()->sizeHint().height());
  QVERIFY(panel().height() > usual);
  // And when it stands.
  font.setPointSizeF(font.pointSizeF() * 1.5);
  const int before = panel().height();
  panel().setFont(font);
  QTRY_VERIFY(panel().height() > before);
  QTRY_COMPARE(panel().height(), panel().layout()->sizeHint().height());
}

void TestFilePanel::addButtonHasAirInAnyFont() {
  QVERIFY(m_b->show(u"Film.mkv"_s));
  const auto air = [this] { return add().width() - add().sizeHint().width(); };
  QTRY_VERIFY(air() > 0);
  const int usual = air();
  QFont font = panel().font();
  font.setPointSizeF(font.pointSizeF() * 3);
  panel().setFont(font);
  QTRY_VERIFY(air() > usual);
}

void TestFilePanel::busyWhileProbing() {
  auto &busy = *m_b->find<QProgressBar>(u"busyIndicator"_s);
  QVERIFY(!busy.isVisible());
  m_b->prober.hold();
  m_b->intake().openFiles({m_b->movie(u"Film.mkv"_s)});
  QVERIFY(busy.isVisible());
  QCOMPARE(busy.maximum(), 0);
  QCOMPARE(fullText(u"fileNameLabel"_s), u"Film.mkv"_s);
  QVERIFY(panel().isShown());
  m_b->prober.finishOne();
  QTRY_VERIFY(!busy.isVisible());
  QCOMPARE(m_b->intake().state(), Intake::State::Showing);
}

void TestFilePanel::showsTheRecord() {
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QCOMPARE(fullText(u"fileNameLabel"_s), u"Film.mkv"_s);
  QCOMPARE(fullText(u"informationLabel"_s), m_b->intake().fileInfo()->informationString);
  QCOMPARE(fullText(u"subtitleLabel"_s), QString());
}

void TestFilePanel::namesThePairedSubtitle() {
  const QString subtitle = m_b->movie(u"Film.en.srt"_s);
  m_b->intake().openFiles({m_b->movie(u"Film.mkv"_s), subtitle});
  QTRY_COMPARE(m_b->intake().state(), Intake::State::Showing);
  QVERIFY(fullText(u"subtitleLabel"_s).contains(u"Film.en.srt"_s));
  QCOMPARE(fullText(u"informationLabel"_s), u"Audiotracks: 2 (3+1) x (0+1)"_s);
  QVERIFY(m_b->click(u"skipButton"_s));
  QVERIFY(m_b->show(u"Other.mkv"_s));
  QCOMPARE(fullText(u"subtitleLabel"_s), QString());
}

void TestFilePanel::longNamesHaveAToolTip() {
  const QString name = QString(120, u'W') + u".mkv"_s;
  QVERIFY(m_b->show(u"Film.mkv"_s));
  auto &label = *m_b->find<ostrak::ElidedLabel>(u"fileNameLabel"_s);
  QVERIFY(label.toolTip().isEmpty());
  QVERIFY(m_b->click(u"skipButton"_s));
  QVERIFY(m_b->show(name));
  QTRY_COMPARE(label.toolTip(), name);
  QVERIFY(label.text().contains(u'…'));
  QVERIFY(label.text().endsWith(u".mkv"_s));
  QVERIFY(label.fontMetrics().horizontalAdvance(label.text()) <= label.width());
  QCOMPARE(label.accessibleName(), name);
  QCOMPARE(label.accessibleDescription(), u"File name"_s);
  m_b->window().resize(6000, 600);
  QTRY_COMPARE(label.text(), name);
  QVERIFY(label.toolTip().isEmpty());
}

void TestFilePanel::lineBreaksStayOnOneLine() {
  QVERIFY(m_b->show(u"a\nb.mkv"_s));
  QVERIFY(!m_b->find<QLabel>(u"fileNameLabel"_s)->text().contains(u'\n'));
}

void TestFilePanel::audioMenuFollowsTheRecord() {
  m_b->prober.tracks =
      QStringList{u"#1: ger (dts) [5.1]"_s, u"#2: eng (ac3)"_s, u"#3: fra (mp3)"_s};
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(audio().isEnabled());
  QCOMPARE(audio().count(), 3);
  QCOMPARE(audio().itemText(0), u"#1: ger (dts) [5.1]"_s);
  QCOMPARE(audio().currentIndex(), 1);
  QCOMPARE(m_b->intake().audioTrackIndex(), 1U);
}

void TestFilePanel::chosenTrackReachesTheJob() {
  m_b->prober.tracks = QStringList{u"#1: ger (aac)"_s, u"#2: eng (ac3)"_s, u"#3: fra (mp3)"_s};
  m_b->app().pauseContinueClicked(true);
  ostrak::setDefaultInt(u"DefaultDestination"_s, 1);
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QVERIFY(m_b->pick(u"audioPopUp"_s, 2));
  QCOMPARE(audio().currentIndex(), 2);
  QVERIFY(m_b->click(u"addButton"_s));
  QCOMPARE(m_b->names(), QStringList{u"Film.mkv"_s});
  QCOMPARE(m_b->queue().taskArray().first()->audioTrackIndex(), 2U);
}

void TestFilePanel::menuGoesBackWithTheNextFile() {
  m_b->prober.tracks = QStringList{u"#1: ger (aac)"_s, u"#2: eng (ac3)"_s};
  m_b->intake().openFiles({m_b->movie(u"1.mkv"_s), m_b->movie(u"2.mkv"_s)});
  QTRY_COMPARE(m_b->intake().state(), Intake::State::Showing);
  QVERIFY(m_b->pick(u"audioPopUp"_s, 0));
  QVERIFY(m_b->click(u"skipButton"_s));
  QTRY_COMPARE(m_b->intake().state(), Intake::State::Showing);
  QCOMPARE(fullText(u"fileNameLabel"_s), u"2.mkv"_s);
  QCOMPARE(audio().currentIndex(), 1);
}

void TestFilePanel::noSound() {
  m_b->prober.tracks = QStringList();
  QVERIFY(m_b->show(u"Silent.mkv"_s));
  QCOMPARE(audio().count(), 0);
  QVERIFY(!audio().isEnabled());
  QCOMPARE(audio().placeholderText(), u"No sound"_s);
  QVERIFY(add().isEnabled());
  QVERIFY(m_b->click(u"skipButton"_s));
  m_b->prober.tracks = QStringList{u"#1: eng (aac)"_s};
  QVERIFY(m_b->show(u"Loud.mkv"_s));
  QVERIFY(audio().isEnabled());
  QCOMPARE(audio().currentIndex(), 0);
}

void TestFilePanel::addButtonTitleFollowsTheQueue() {
  QVERIFY(m_b->show(u"Film.mkv"_s));
  QCOMPARE(add().text(), u"Start Conversion"_s);
  QVERIFY(m_b->trigger(u"pauseContinueToolbarItem"_s));
  QCOMPARE(add().text(), u"Add to Queue"_s);
  QCOMPARE(add().accessibleName(), u"Add to Queue"_s);
  QVERIFY(m_b->trigger(u"pauseContinueMenuItem"_s));
  QCOMPARE(add().text(), u"Start Conversion"_s);
}

void TestFilePanel::skipGoesOnToTheNext() {
  m_b->intake().openFiles({m_b->movie(u"1.mkv"_s), m_b->movie(u"2.mkv"_s)});
  QTRY_COMPARE(m_b->intake().state(), Intake::State::Showing);
  QVERIFY(m_b->click(u"skipButton"_s));
  QTRY_COMPARE(m_b->intake().state(), Intake::State::Showing);
  QCOMPARE(m_b->intake().fileInfo()->fileName, u"2.mkv"_s);
  QVERIFY(m_b->click(u"skipButton"_s));
  QVERIFY(m_b->intake().isIdle());
  QVERIFY(!m_b->intake().fileInfo());
  QVERIFY(m_b->names().isEmpty());
}

void TestFilePanel::skipWhileProbing() {
  m_b->prober.hold();
  m_b->intake().openFiles({m_b->movie(u"1.mkv"_s), m_b->movie(u"2.mkv"_s)});
  QTRY_COMPARE(panel().height(), qMax(117, panel().layout()->sizeHint().height()));
  QVERIFY(m_b->click(u"skipButton"_s));
  m_b->prober.finishOne();
  QTRY_COMPARE(fullText(u"fileNameLabel"_s), u"2.mkv"_s);
  m_b->prober.finishAll();
  QTRY_COMPARE(m_b->intake().state(), Intake::State::Showing);
  QCOMPARE(m_b->intake().fileInfo()->fileName, u"2.mkv"_s);
}

void TestFilePanel::nothingCanBeAddedWhileProbing() {
  m_b->prober.hold();
  m_b->intake().openFiles({m_b->movie(u"1.mkv"_s)});
  QVERIFY(panel().isShown());
  QVERIFY(!add().isEnabled());
  QVERIFY(!audio().isEnabled());
  m_b->prober.finishAll();
  QTRY_VERIFY(add().isEnabled());
}

int main(int argc, char **argv) {
  return runWindowTest<TestFilePanel>(argc, argv);
}
#include "tst_filepanel.moc"
