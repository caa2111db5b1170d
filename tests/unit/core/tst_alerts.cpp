#include <QSemaphore>
#include <QTest>
#include <thread>

#include "Alerts.h"
#include "Defaults.h"
#include "Dispatch.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestAlerts final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void buttons_data();
  void buttons();
  void answers();
  void apptitled();
  void noPresenterAnswersTheFirstButton();
  void checkbox();
  void texts_data();
  void texts();
  void selections_data();
  void selections();
  void atMostThreeButtons();
  void longItemsOfAMatrix();
  void silenceableAlert();
  void silencedStaysSilent();
  void silencedUntilTheVersionChanges();
  void silenceableFromAnotherThread();

 private:
  [[nodiscard]] QList<Alert> &presented() { return m_program->presenter().presented; }
  void tick(bool ticked);
  std::unique_ptr<ScratchProgram> m_program;
};

void TestAlerts::init() {
  QTest::failOnWarning(QRegularExpression(u".?"_s));
  m_program.reset();
  m_program = std::make_unique<ScratchProgram>();
}

// The user leaves the suppression box like this from now on.
void TestAlerts::tick(bool ticked) {
  m_program->presenter().setWhileShown([ticked](Alert &shown) { shown.value = ticked ? 1 : 0; });
}

void TestAlerts::buttons_data() {
  QTest::addColumn<QString>("defaultButton");
  QTest::addColumn<QString>("alternateButton");
  QTest::addColumn<QString>("otherButton");
  QTest::addColumn<QStringList>("buttons");
  const QString none;
  QTest::newRow("none") << none << none << none << QStringList();
  QTest::newRow("default") << u"A"_s << none << none << QStringList{u"A"_s};
  QTest::newRow("two") << u"A"_s << u"B"_s << none << QStringList{u"A"_s, u"B"_s};
  QTest::newRow("other moves up") << u"A"_s << none << u"C"_s << QStringList{u"A"_s, u"C"_s};
  QTest::newRow("three") << u"A"_s << u"B"_s << u"C"_s << QStringList{u"A"_s, u"B"_s, u"C"_s};
}

void TestAlerts::buttons() {
  QFETCH(QString, defaultButton);
  QFETCH(QString, alternateButton);
  QFETCH(QString, otherButton);
  QFETCH(QStringList, buttons);
  QCOMPARE(alert(u"Title"_s, u"Message"_s, defaultButton, alternateButton, otherButton),
           firstButton);
  Alert expected;
  expected.title = u"Title"_s;
  expected.message = u"Message"_s;
  expected.buttons = buttons;
  QCOMPARE(presented(), QList<Alert>{expected});
}

void TestAlerts::answers() {
  m_program->presenter().answer(secondButton);
  m_program->presenter().answer(thirdButton);
  QCOMPARE(alert(u"t"_s, u"m"_s, u"A"_s, {}, u"C"_s), 1001);
  QCOMPARE(alert(u"t"_s, u"m"_s, u"A"_s, u"B"_s, u"C"_s), 1002);
  QCOMPARE(alert(u"t"_s, u"m"_s, u"A"_s), 1000);
}

void TestAlerts::apptitled() {
  (void)alert_apptitled(u"Message"_s, u"A"_s, u"B"_s);
  QCOMPARE(presented().first(), apptitledAlert(u"Message"_s, {u"A"_s, u"B"_s}));
  QCOMPARE(presented().first().title, u"Decant"_s);
}

void TestAlerts::noPresenterAnswersTheFirstButton() {
  setAlertPresenter(nullptr);
  QCOMPARE(alert(u"t"_s, u"m"_s, u"A"_s, u"B"_s), firstButton);
  QString text = u"kept"_s;
  QCOMPARE(alert_input(u"m"_s, {}, text), firstButton);
  QCOMPARE(text, u"kept"_s);
  alert_feedback_nonfatal(u"message"_s, u"details"_s);
  QVERIFY(m_program->opener().opened.isEmpty());
}

void TestAlerts::checkbox() {
  bool state = true;
  m_program->presenter().setWhileShown([](Alert &shown) { shown.value = false; });
  m_program->presenter().answer(secondButton);
  QCOMPARE(alert_checkbox(u"Message"_s, {u"A"_s, u"B"_s}, u"Box"_s, state), secondButton);
  QVERIFY(!state);
  QCOMPARE(presented().first().title, u"Message"_s);
  QVERIFY(presented().first().message.isEmpty());
  QCOMPARE(presented().first().control, Alert::Control::Checkbox);
  QCOMPARE(presented().first().checkboxTitle, u"Box"_s);
  QCOMPARE(presented().first().value, QVariant(true));
}

using TextAlert = int (*)(const QString &, const QStringList &, QString &);
Q_DECLARE_METATYPE(TextAlert)
Q_DECLARE_METATYPE(Alert::Control)

void TestAlerts::texts_data() {
  QTest::addColumn<TextAlert>("ask");
  QTest::addColumn<Alert::Control>("control");
  QTest::addColumn<QString>("start");
  QTest::newRow("colour") << &alert_colorwell << Alert::Control::Color << u"before"_s;
  QTest::newRow("many lines") << &alert_inputtext << Alert::Control::MultilineText << u""_s;
  QTest::newRow("one line") << &alert_input << Alert::Control::Text << u"before"_s;
  QTest::newRow("masked") << &alert_inputsecure << Alert::Control::SecureText << u"before"_s;
}

void TestAlerts::texts() {
  QFETCH(TextAlert, ask);
  QFETCH(Alert::Control, control);
  QFETCH(QString, start);
  QString text = u"before"_s;
  m_program->presenter().setWhileShown([](Alert &shown) { shown.value = u"after"_s; });
  m_program->presenter().answer(secondButton);
  QCOMPARE(ask(u"Message"_s, {u"OK"_s, u"Cancel"_s}, text), secondButton);
  QCOMPARE(text, u"after"_s);
  QCOMPARE(presented().first().title, u"Message"_s);
  QCOMPARE(presented().first().buttons, (QStringList{u"OK"_s, u"Cancel"_s}));
  QCOMPARE(presented().first().control, control);
  QCOMPARE(presented().first().value.toString(), start);
}

using SelectionAlert = int (*)(const QString &, const QStringList &, const QStringList &, int &);
Q_DECLARE_METATYPE(SelectionAlert)

void TestAlerts::selections_data() {
  QTest::addColumn<SelectionAlert>("ask");
  QTest::addColumn<Alert::Control>("control");
  QTest::newRow("popup") << &alert_selection_popup << Alert::Control::Popup;
  QTest::newRow("matrix") << &alert_selection_matrix << Alert::Control::Matrix;
}

void TestAlerts::selections() {
  QFETCH(SelectionAlert, ask);
  QFETCH(Alert::Control, control);
  int selected = 2;
  m_program->presenter().setWhileShown([](Alert &shown) { shown.value = 1; });
  QCOMPARE(ask(u"Message"_s, {u"OK"_s}, {u"a"_s, u"b"_s, u"c"_s}, selected), firstButton);
  QCOMPARE(selected, 1);
  QCOMPARE(presented().first().control, control);
  QCOMPARE(presented().first().items, (QStringList{u"a"_s, u"b"_s, u"c"_s}));
  QCOMPARE(presented().first().value, QVariant(0));
}

void TestAlerts::atMostThreeButtons() {
  QString text;
  (void)alert_input(u"m"_s, {u"A"_s, u"B"_s, u"C"_s, u"D"_s}, text);
  QCOMPARE(presented().first().buttons, (QStringList{u"A"_s, u"B"_s, u"C"_s}));
}

void TestAlerts::longItemsOfAMatrix() {
  const QString fits = QString(75, u'a') + QString(75, u'b');
  const QString tooLong = QString(75, u'a') + u'x' + QString(75, u'b');
  int selected = 0;
  (void)alert_selection_matrix(u"m"_s, {}, {fits, tooLong}, selected);
  const QString shortened = QString(70, u'a') + u" […] "_s + QString(70, u'b');
  QCOMPARE(presented().first().items, (QStringList{fits, shortened}));
  (void)alert_selection_popup(u"m"_s, {}, {tooLong}, selected);
  QCOMPARE(presented().last().items, QStringList{tooLong});
}

void TestAlerts::silenceableAlert() {
  alert_dontwarnagain_version(u"warningx"_s, u"Title"_s, u"Message"_s, u"OK"_s, u"Don't warn"_s,
                              u"/a.mkv"_s);
  Alert expected;
  expected.identifier = u"warningx"_s;
  expected.title = u"Title"_s;
  expected.message = u"Message"_s;
  expected.buttons = QStringList{u"OK"_s};
  expected.control = Alert::Control::Suppression;
  expected.checkboxTitle = u"Don't warn"_s;
  expected.value = 0;
  expected.subject = u"/a.mkv"_s;
  QCOMPARE(presented(), QList<Alert>{expected});
  QCOMPARE(defaultObject(u"_warningx_1.2.3_asked"_s), QVariant(qint64{0}));
  QVERIFY(!isSilencedForVersion(u"warningx"_s));
}

void TestAlerts::silencedStaysSilent() {
  const auto warn = [](const QString &identifier) {
    alert_dontwarnagain_version(identifier, u"t"_s, u"m"_s, u"OK"_s, u"c"_s);
  };
  tick(false);
  warn(u"one"_s);
  warn(u"one"_s);
  QCOMPARE(presented().size(), 2);
  tick(true);
  warn(u"one"_s);
  QCOMPARE(defaultInt(u"_one_1.2.3_asked"_s), 1);
  QVERIFY(isSilencedForVersion(u"one"_s));
  warn(u"one"_s);
  QCOMPARE(presented().size(), 3);
  warn(u"other"_s);
  QCOMPARE(presented().size(), 4);
}

void TestAlerts::silencedUntilTheVersionChanges() {
  const auto warnBoth = [] {
    alert_dontwarnagain_version(u"id"_s, u"version"_s, u"m"_s, u"OK"_s, u"c"_s);
    alert_dontwarnagain_ever(u"id"_s, u"ever"_s, u"m"_s, u"OK"_s, u"c"_s);
  };
  tick(true);
  warnBoth();
  QCOMPARE(defaultInt(u"_id_asked"_s), 1);
  QCOMPARE(presented().size(), 2);
  m_program->restart();
  warnBoth();
  QCOMPARE(presented().size(), 2);
  m_program->setInfo(u"CFBundleShortVersionString"_s, u"2.0"_s);
  m_program->restart();
  warnBoth();
  QCOMPARE(presented().size(), 3);
  QCOMPARE(presented().last().title, u"version"_s);
}

void TestAlerts::silenceableFromAnotherThread() {
  tick(true);
  std::thread([] {
    for (int round = 0; round < 2; ++round) {
      alert_dontwarnagain_ever(u"id"_s, u"t"_s, u"m"_s, u"OK"_s, u"c"_s);
    }
  }).join();
  QVERIFY(presented().isEmpty());
  QTRY_COMPARE_WITH_TIMEOUT(defaultInt(u"_id_asked"_s), 1, 20000);
  bool later = false;
  dispatch_async_main([&later] { later = true; });
  QTRY_VERIFY_WITH_TIMEOUT(later, 20000);
  QCOMPARE(presented().size(), 1);
}

QTEST_GUILESS_MAIN(TestAlerts)
#include "tst_alerts.moc"
