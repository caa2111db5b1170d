#pragma once

#include <QHash>
#include <QList>
#include <QObject>

class QWidget;

namespace decant {

// Binds the controls of the forms to settings. A control names its key in the dynamic property
// "setting"; a menu whose entries are no indexes lists their values in "settingValues"; a checkbox
// that says the opposite has "settingInverted"; a control without effect while another setting is 0
// names that in "enabledBy", or, when that must have one certain value, also this in
// "enabledByValue". Changes reach the store at once, and every other control of the same
// key. Main thread.
class SettingBinder final : public QObject {
  Q_OBJECT

 public:
  explicit SettingBinder(QObject *parent = nullptr);
  ~SettingBinder() override;

  // Binds every control below `form` that names a setting. The form may go before this.
  void bind(QWidget &form);
  // Shows what the store holds now.
  void refresh(const QString &key);

 Q_SIGNALS:
  // A control changed the setting.
  void changed(const QString &key);

 private:
  void connectControl(QWidget &control, const QString &key);
  void show(QWidget &control, const QString &key) const;
  void store(const QString &key, qint64 value);

  QMultiHash<QString, QWidget *> m_controls;  // by the key of their setting
  QMultiHash<QString, QWidget *> m_enabled;   // by the key that enables them
};

}  // namespace decant
