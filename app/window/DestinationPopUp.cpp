#include "DestinationPopUp.h"

#include <QComboBox>
#include <QSignalBlocker>

#include "DestinationFolders.h"
#include "DestinationMenu.h"
#include "Settings.h"

namespace decant {

DestinationPopUp::DestinationPopUp(QComboBox &menu, DestinationFolders &folders, QObject *parent)
    : QObject(parent), m_menu(menu), m_folders(folders) {
  connect(&menu, &QComboBox::activated, this, &DestinationPopUp::activated);
  connect(&folders, &DestinationFolders::removed, this, [this](qsizetype folder) {
    m_selected = static_cast<int>(defaultAfterRemoval(m_selected, folder));
  });
  connect(&folders, &DestinationFolders::changed, this, [this] { fill(m_selected); });
  rebuild();
}

DestinationPopUp::~DestinationPopUp() = default;

void DestinationPopUp::rebuild() {
  fill(static_cast<int>(settingInt("DefaultDestination")));
}

void DestinationPopUp::fill(int index) {
  const QSignalBlocker blocker(m_menu);
  m_menu.clear();
  for (const DestinationMenuItem &item : destinationMenu(m_folders.names())) {
    if (item.kind == DestinationMenuItem::Kind::Separator) {
      m_menu.insertSeparator(m_menu.count());
    } else {
      m_menu.addItem(item.title);
    }
  }
  select(index);
}

void DestinationPopUp::select(int index) {
  const QSignalBlocker blocker(m_menu);
  m_selected = index >= 0 && index < m_menu.count() - 1 ? index : 0;
  m_menu.setCurrentIndex(m_selected);
  Q_EMIT selected(m_selected);
}

void DestinationPopUp::activated(int index) {
  if (index == m_menu.count() - 1) {
    select(m_selected);
    Q_EMIT addFolderWanted();
    return;
  }
  m_selected = index;
  Q_EMIT selected(index);
  Q_EMIT picked(index);
}

}  // namespace decant
