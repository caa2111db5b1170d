#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QList>
#include <QListWidget>
#include <QSet>
#include <QSpinBox>
#include <QStringList>
#include <QTest>
#include <QWidget>

#include "Defaults.h"
#include "Ostrak.h"
#include "Settings.h"
#include "WholeFile.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

namespace {

// Kept for the program's own use; the two lists are edited as folders, the next two have controls
// of their own.
const QStringList withoutControl{u"Conversions"_s,       u"HasUpgradedFromPre13"_s,
                                 u"WelcomeShown"_s,      u"DestinationBookmarks"_s,
                                 u"DestinationNames"_s,  u"ConversionPreset"_s,
                                 u"DefaultDestination"_s};

// What the user can make of a control, one after the other.
QList<std::function<void()>> choicesOf(QWidget &control) {
  QList<std::function<void()>> choices;
  if (auto *menu = qobject_cast<QComboBox *>(&control)) {
    for (int i = 0; i < menu->count(); ++i)
      choices.append([menu, i] { menu->setCurrentIndex(i); });
  } else if (auto *number = qobject_cast<QSpinBox *>(&control)) {
    choices.append([number] { number->setValue(number->minimum()); });
    choices.append([number] { number->setValue(number->maximum()); });
    choices.append([number] { number->stepDown(); });
  } else if (auto *button = qobject_cast<QAbstractButton *>(&control)) {
    choices.append([button] { button->toggle(); });
    choices.append([button] { button->toggle(); });
  }
  return choices;
}

// What a control shows, to compare those of one key.
int shownBy(const QWidget &control) {
  if (const auto *menu = qobject_cast<const QComboBox *>(&control)) return menu->currentIndex();
  if (const auto *number = qobject_cast<const QSpinBox *>(&control)) return number->value();
  const auto *button = qobject_cast<const QAbstractButton *>(&control);
  return button && button->isChecked() ? 1 : 0;
}

}  // namespace

// Every setting has its control, and every control its effect.
class TestSettingControls final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void everySettingHasAControl();
  void everyControlNamesASetting();
  void controlsShowWhatIsStored_data() { keys(); }
  void controlsShowWhatIsStored();
  void changesReachTheStoreAtOnce_data() { keys(); }
  void changesReachTheStoreAtOnce();
  void onlyValuesInRangeCanBeChosen_data() { keys(); }
  void onlyValuesInRangeCanBeChosen();
  void everyValueInRangeCanBeChosen_data() { keys(); }
  void everyValueInRangeCanBeChosen();
  void withoutEffectIsGreyed();
  void everyControlHasANameAndAnExplanation();
  void preferencesComeBackAsTheyWere();
  void closingThePreferencesFlushes();

 private:
  void furnish() override { QVERIFY(m_b->trigger(u"preferencesAction"_s)); }
  static void keys() {
    QTest::addColumn<QString>("key");
    for (const Setting &setting : settingsTable()) {
      const QString key = QString::fromLatin1(setting.key);
      if (!withoutControl.contains(key)) QTest::newRow(setting.key) << key;
    }
  }
  [[nodiscard]] QList<QWidget *> controls(const QString &key = {}) {
    QList<QWidget *> found;
    for (QWidget *each : m_b->window().findChildren<QWidget *>()) {
      const QString named = each->property("setting").toString();
      if (!named.isEmpty() && (key.isEmpty() || named == key)) found.append(each);
    }
    return found;
  }
};

void TestSettingControls::everySettingHasAControl() {
  QStringList missing;
  for (const Setting &setting : settingsTable()) {
    const QString key = QString::fromLatin1(setting.key);
    if (!withoutControl.contains(key) && controls(key).isEmpty()) missing.append(key);
  }
  QCOMPARE(missing, QStringList());
  QVERIFY(m_b->find<QListWidget>(u"destinationList"_s));
  QVERIFY(m_b->find<QComboBox>(u"preferencesDestinationPopUp"_s));
}

void TestSettingControls::everyControlNamesASetting() {
  for (const QWidget *control : controls()) {
    const QString key = control->property("setting").toString();
    QVERIFY2(findSetting(key), qPrintable(key));
    QVERIFY2(!choicesOf(*const_cast<QWidget *>(control)).isEmpty(), qPrintable(key));
  }
}

void TestSettingControls::controlsShowWhatIsStored() {
  QFETCH(const QString, key);
  const Setting &setting = *findSetting(key);
  for (const qint64 value : {setting.minimum, setting.maximum}) {
    m_b->close();
    ostrak::setDefaultInt(key, value);
    QVERIFY(m_b->open());
    QVERIFY(m_b->trigger(u"preferencesAction"_s));
    for (QWidget *control : controls(key)) {
      const int shown = shownBy(*control);
      for (const auto &choose : choicesOf(*control)) {
        choose();
        const bool same = shownBy(*control) == shown;
        QCOMPARE(ostrak::defaultInt(key) == value, same);
      }
    }
  }
}

void TestSettingControls::changesReachTheStoreAtOnce() {
  QFETCH(const QString, key);
  for (QWidget *control : controls(key)) {
    QSet<qint64> values;
    for (const auto &choose : choicesOf(*control)) {
      choose();
      values.insert(ostrak::defaultInt(key));
      for (const QWidget *other : controls(key))
        QCOMPARE(shownBy(*other), shownBy(*control));
    }
    QVERIFY(values.size() >= 2);
  }
}

void TestSettingControls::onlyValuesInRangeCanBeChosen() {
  QFETCH(const QString, key);
  const Setting &setting = *findSetting(key);
  for (QWidget *control : controls(key)) {
    for (const auto &choose : choicesOf(*control)) {
      choose();
      QCOMPARE(refusalOfValue(setting, QString::number(ostrak::defaultInt(key))), QString());
    }
  }
}

void TestSettingControls::everyValueInRangeCanBeChosen() {
  QFETCH(const QString, key);
  const Setting &setting = *findSetting(key);
  for (QWidget *control : controls(key)) {
    QSet<qint64> values;
    for (const auto &choose : choicesOf(*control)) {
      choose();
      values.insert(ostrak::defaultInt(key));
    }
    QVERIFY(values.contains(setting.minimum));
    QVERIFY(values.contains(setting.maximum));
    if (setting.kind == SettingKind::Number) continue;
    const qint64 all = setting.maximum - setting.minimum + 1 - (setting.retired >= 0 ? 1 : 0);
    QCOMPARE(values.size(), all);
  }
}

void TestSettingControls::withoutEffectIsGreyed() {
  int found = 0;
  for (QWidget *control : m_b->window().findChildren<QWidget *>()) {
    const QString key = control->property("enabledBy").toString();
    // What belongs to one style is tested with the styles.
    if (key.isEmpty() || control->property("enabledByValue").isValid()) continue;
    ++found;
    QVERIFY2(findSetting(key), qPrintable(key));
    QAbstractButton *enabling = qobject_cast<QAbstractButton *>(controls(key).value(0));
    QVERIFY(enabling);
    for (int i = 0; i < 2; ++i) {
      enabling->click();
      QCOMPARE(control->isEnabledTo(control->parentWidget()), ostrak::defaultInt(key) != 0);
    }
  }
  QVERIFY(found >= 2);
  QCOMPARE(m_b->find<QWidget>(u"AutoRemoveType"_s)->property("enabledBy").toString(),
           u"AutoRemove"_s);
}

void TestSettingControls::everyControlHasANameAndAnExplanation() {
  for (const QWidget *control : controls()) {
    QVERIFY(!control->objectName().isEmpty());
    const auto *button = qobject_cast<const QAbstractButton *>(control);
    const QString name = button ? button->text() : control->accessibleName();
    QVERIFY2(!name.isEmpty(), qPrintable(control->objectName()));
    QVERIFY2(control->focusPolicy() & Qt::TabFocus, qPrintable(control->objectName()));
  }
}

void TestSettingControls::preferencesComeBackAsTheyWere() {
  auto *preferences = m_b->find<QDialog>(u"preferencesWindow"_s);
  QVERIFY(preferences->isVisible());
  preferences->close();
  QVERIFY(!preferences->isVisible());
  ostrak::setDefaultInt(u"AutoAdd"_s, 0);
  QVERIFY(m_b->trigger(u"preferencesAction"_s));
  QCOMPARE(m_b->find<QDialog>(u"preferencesWindow"_s), preferences);
  QVERIFY(preferences->isVisible());
}

void TestSettingControls::closingThePreferencesFlushes() {
  const QString file = m_b->path(u"config/org.decant.Decant.conf"_s);
  ostrak::tk->userDefaults().synchronize();
  auto *box = qobject_cast<QAbstractButton *>(controls(u"AutoClean"_s).value(0));
  QVERIFY(box);
  box->click();
  m_b->find<QDialog>(u"preferencesWindow"_s)->close();
  QVERIFY(wholefile::read(file).contains("AutoClean=1"));
}

int main(int argc, char **argv) {
  return runWindowTest<TestSettingControls>(argc, argv);
}
#include "tst_settingcontrols.moc"
