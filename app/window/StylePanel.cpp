#include "StylePanel.h"

#include <QAbstractButton>
#include <QEvent>
#include <QLayout>
#include <QSignalBlocker>

#include "Defaults.h"
#include "InterfaceFile.h"
#include "SettingBinder.h"
#include "Settings.h"
#include "ThemeIcon.h"

using namespace Qt::StringLiterals;
using ostrak::outlet;

namespace decant {

StylePanel::StylePanel(QWidget &window, SettingBinder &binder, QObject *parent)
    : QObject(parent),
      m_binder(binder),
      m_container(outlet<QWidget>(window, u"customContainer"_s)),
      m_options(outlet<QAbstractButton>(window, u"styleOptionsButton"_s)) {
  for (const QString &name : {u"styleCompatible"_s, u"styleFast"_s, u"styleCustom"_s}) {
    m_buttons.append(&outlet<QAbstractButton>(window, name));
  }
  for (const QString &name : {u"containerCompatible"_s, u"containerFast"_s, u"containerCustom"_s}) {
    m_panels.append(&outlet<QWidget>(window, name));
  }
  for (int style = 0; style < m_buttons.size(); ++style) {
    connect(m_buttons.at(style), &QAbstractButton::clicked, this, [this, style] { choose(style); });
  }
  connect(&m_options, &QAbstractButton::toggled, this, &StylePanel::setOptionsShown);
  connect(&binder, &SettingBinder::changed, this, [this](const QString &key) {
    if (key == "ConversionPreset"_L1) selectConversionStyle();
  });
  m_container.installEventFilter(this);
  setOptionsShown(false);
  selectConversionStyle();
}

StylePanel::~StylePanel() = default;

void StylePanel::choose(int style) {
  ostrak::setDefaultInt(u"ConversionPreset"_s, style);
  m_binder.refresh(u"ConversionPreset"_s);
  selectConversionStyle();
}

void StylePanel::selectConversionStyle() {
  // A stored style beyond the list converts like the second.
  const qint64 stored = settingInt("ConversionPreset");
  const auto style = static_cast<int>(stored >= 0 && stored < m_panels.size() ? stored : 1);
  for (int i = 0; i < m_panels.size(); ++i) {
    m_panels.at(i)->setVisible(i == style);
    const QSignalBlocker blocker(m_buttons.at(i));
    m_buttons.at(i)->setChecked(i == style);
  }
  dressButtons();
}

// Several desktops draw a button that is down hardly darker than the others, in the dark least of
// all.
void StylePanel::dressButtons() {
  const QPalette usual = m_container.palette();
  QPalette chosen = usual;
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    chosen.setColor(group, QPalette::Button, usual.color(group, QPalette::Highlight));
    chosen.setColor(group, QPalette::ButtonText, usual.color(group, QPalette::HighlightedText));
  }
  for (QAbstractButton *button : m_buttons)
    button->setPalette(button->isChecked() ? chosen : usual);
}

bool StylePanel::eventFilter(QObject *watched, QEvent *event) {
  if (event->type() == QEvent::PaletteChange) {
    dressButtons();
    dressOptions();
  }
  return QObject::eventFilter(watched, event);
}

void StylePanel::setOptionsShown(bool shown) {
  m_container.setVisible(shown);
  m_options.setChecked(shown);
  dressOptions();
}

// A picture of our own: the arrow of a button lies under its text where controls are mirrored, and
// keeps its size beside large letters.
void StylePanel::dressOptions() {
  const bool mirrored = m_options.layoutDirection() == Qt::RightToLeft;
  const QString closed = mirrored ? u"fold_closed_mirrored"_s : u"fold_closed"_s;
  const QPalette palette = m_container.palette();
  m_options.setIcon(ostrak::shippedIcon(m_options.isChecked() ? u"fold_open"_s : closed,
                                        palette.color(QPalette::Active, QPalette::ButtonText),
                                        palette.color(QPalette::Disabled, QPalette::ButtonText)));
}

}  // namespace decant
