#include "DestinationPopUp.h"

#include <QComboBox>
#include <QEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include "DestinationFolders.h"
#include "DestinationMenu.h"
#include "DisplayText.h"
#include "Settings.h"

namespace decant {

namespace {

using Kind = DestinationMenuItem::Kind;

bool isDestination(const QComboBox &menu, int index) {
  const auto kind = static_cast<Kind>(menu.itemData(index).value<int>());
  return menu.itemData(index).isValid() && kind != Kind::Separator && kind != Kind::AddFolder;
}

}  // namespace

DestinationPopUp::DestinationPopUp(QComboBox &menu, DestinationFolders &folders, QObject *parent)
    : QObject(parent), m_menu(menu), m_folders(folders), m_paths(folders.paths()) {
  menu.installEventFilter(this);
  connect(&menu, &QComboBox::activated, this, &DestinationPopUp::activated);
  connect(&folders, &DestinationFolders::removed, this, [this](qsizetype folder) {
    m_selected = static_cast<int>(defaultAfterRemoval(m_selected, folder));
  });
  connect(&folders, &DestinationFolders::changed, this, [this] {
    m_paths = m_folders.paths();
    fill(m_selected);
  });
  rebuild();
}

DestinationPopUp::~DestinationPopUp() = default;

void DestinationPopUp::rebuild() {
  fill(static_cast<int>(settingInt("DefaultDestination")));
}

void DestinationPopUp::fill(int index) {
  const QSignalBlocker blocker(m_menu);
  const QStringList names = m_folders.names();
  m_menu.clear();
  for (const DestinationMenuItem &item : destinationMenu(names)) {
    const int at = m_menu.count();
    if (item.kind == Kind::Separator) {
      m_menu.insertSeparator(at);
      continue;
    }
    m_menu.addItem(ostrak::displayText(item.title, m_menu.layoutDirection()),
                   static_cast<int>(item.kind));
    const auto folder = folderAtMenuIndex(at, names.size());
    if (!folder) continue;
    // Folders of one name are told apart by their places.
    m_menu.setItemData(at, m_paths.value(*folder), Qt::ToolTipRole);
    m_menu.setItemData(at, m_paths.value(*folder), Qt::AccessibleDescriptionRole);
  }
  select(index);
}

void DestinationPopUp::select(int index) {
  const QSignalBlocker blocker(m_menu);
  m_selected = isDestination(m_menu, index) ? index : 0;
  m_menu.setCurrentIndex(m_selected);
  Q_EMIT selected(m_selected);
}

void DestinationPopUp::activated(int index) {
  if (!isDestination(m_menu, index)) {
    select(m_selected);
    if (!m_stepping) Q_EMIT addFolderWanted();
    return;
  }
  m_selected = index;
  Q_EMIT selected(index);
  Q_EMIT picked(index);
}

bool DestinationPopUp::eventFilter(QObject *watched, QEvent *event) {
  const bool steps =
      event->type() == QEvent::KeyPress || (event->type() == QEvent::Wheel && m_menu.hasFocus());
  if (watched != &m_menu || !steps || m_stepping) return QObject::eventFilter(watched, event);
  // The opened menu takes its events by itself.
  const QScopedValueRollback stepping(m_stepping, true);
  watched->event(event);
  return true;
}

}  // namespace decant
