#include "SettingBinder.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QWidget>

#include "Defaults.h"
#include "Settings.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

// The value of a menu entry, and back; entries are their own indexes unless the form lists values.
qint64 valueOfEntry(const QComboBox &menu, int index) {
  const QStringList values = menu.property("settingValues").toStringList();
  return values.isEmpty() ? index : values.value(index).toLongLong();
}

int entryOfValue(const QComboBox &menu, qint64 value) {
  const QStringList values = menu.property("settingValues").toStringList();
  return values.isEmpty() ? static_cast<int>(value)
                          : static_cast<int>(values.indexOf(QString::number(value)));
}

qint64 storedValue(const QString &key) {
  const QByteArray name = key.toLatin1();
  const Setting *setting = findSetting(key);
  return setting && setting->kind == SettingKind::Number ? qRound64(settingFloat(name.constData()))
                                                         : settingInt(name.constData());
}

bool hasEffect(const QWidget &control, const QString &enabling) {
  const QVariant wanted = control.property("enabledByValue");
  const qint64 value = storedValue(enabling);
  return wanted.isValid() ? value == wanted.toLongLong() : value != 0;
}

}  // namespace

SettingBinder::SettingBinder(QObject *parent) : QObject(parent) {}

SettingBinder::~SettingBinder() = default;

void SettingBinder::bind(QWidget &form) {
  for (QWidget *control : form.findChildren<QWidget *>()) {
    const QString key = control->property("setting").toString();
    const QString enabling = control->property("enabledBy").toString();
    if (!enabling.isEmpty()) {
      m_enabled.insert(enabling, control);
      control->setEnabled(hasEffect(*control, enabling));
    }
    if (!key.isEmpty()) connectControl(*control, key);
    if (key.isEmpty() && enabling.isEmpty()) continue;
    connect(control, &QObject::destroyed, this, [this, key, enabling, control] {
      m_controls.remove(key, control);
      m_enabled.remove(enabling, control);
    });
  }
}

void SettingBinder::connectControl(QWidget &control, const QString &key) {
  m_controls.insert(key, &control);
  show(control, key);
  if (auto *button = qobject_cast<QAbstractButton *>(&control)) {
    const bool inverted = button->property("settingInverted").toBool();
    connect(button, &QAbstractButton::toggled, this,
            [this, key, inverted](bool checked) { store(key, checked != inverted); });
  } else if (auto *menu = qobject_cast<QComboBox *>(&control)) {
    connect(menu, &QComboBox::currentIndexChanged, this,
            [this, key, menu](int index) { store(key, valueOfEntry(*menu, index)); });
  } else if (auto *number = qobject_cast<QSpinBox *>(&control)) {
    connect(number, &QSpinBox::valueChanged, this, [this, key](int value) { store(key, value); });
  }
}

void SettingBinder::show(QWidget &control, const QString &key) const {
  const QSignalBlocker blocker(control);
  const qint64 value = storedValue(key);
  if (auto *button = qobject_cast<QAbstractButton *>(&control)) {
    button->setChecked((value != 0) != button->property("settingInverted").toBool());
  } else if (auto *menu = qobject_cast<QComboBox *>(&control)) {
    menu->setCurrentIndex(entryOfValue(*menu, value));
  } else if (auto *number = qobject_cast<QSpinBox *>(&control)) {
    number->setValue(static_cast<int>(value));
  }
}

void SettingBinder::refresh(const QString &key) {
  for (QWidget *control : m_controls.values(key))
    show(*control, key);
  for (QWidget *control : m_enabled.values(key))
    control->setEnabled(hasEffect(*control, key));
}

void SettingBinder::store(const QString &key, qint64 value) {
  if (value < 0) return;
  ostrak::setDefaultInt(key, value);
  refresh(key);
  Q_EMIT changed(key);
}

}  // namespace decant
