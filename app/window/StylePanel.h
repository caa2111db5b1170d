#pragma once

#include <QObject>

class QAbstractButton;
class QWidget;

namespace decant {

class SettingBinder;

// The control of the conversion style and the panel of options that belongs to it. Main thread.
class StylePanel final : public QObject {
  Q_OBJECT

 public:
  // Finds its outlets below `window`; `binder` has bound the options already.
  StylePanel(QWidget &window, SettingBinder &binder, QObject *parent);
  ~StylePanel() override;

  // Shows the one panel of the stored style.
  void selectConversionStyle();
  // Folds the options out or in.
  void setOptionsShown(bool shown);

 private:
  void choose(int style);
  void dressButtons();
  void dressOptions();
  bool eventFilter(QObject *watched, QEvent *event) override;

  SettingBinder &m_binder;
  QList<QAbstractButton *> m_buttons;  // in the order of the styles
  QList<QWidget *> m_panels;
  QWidget &m_container;
  QAbstractButton &m_options;
};

}  // namespace decant
