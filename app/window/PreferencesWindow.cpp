#include "PreferencesWindow.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "Defaults.h"
#include "DestinationFolders.h"
#include "DestinationPopUp.h"
#include "DisplayText.h"
#include "ElidedLabel.h"
#include "InterfaceFile.h"
#include "SettingBinder.h"
#include "Text.h"
#include "WheelGuard.h"

using namespace Qt::StringLiterals;
using ostrak::outlet;

namespace decant {

namespace {

// Stands in the list for as long as that is empty.
QLabel *emptyListText(QListWidget &list) {
  auto *label = new ostrak::HintLabel(list.viewport());
  label->setObjectName(u"noDestinations"_s);
  label->setAlignment(Qt::AlignCenter);
  label->setText(ostrak::localized(
      u"No folders yet. Those that you add can be chosen as the place for new files."_s));
  label->setAttribute(Qt::WA_TransparentForMouseEvents);
  (new QVBoxLayout(list.viewport()))->addWidget(label);
  return label;
}

}  // namespace

PreferencesWindow::PreferencesWindow(QWidget *parent) : QDialog(parent) {}

PreferencesWindow::~PreferencesWindow() = default;

void PreferencesWindow::follow(SettingBinder &binder, DestinationFolders &folders) {
  m_folders = &folders;
  binder.bind(*this);
  m_list = &outlet<QListWidget>(*this, u"destinationList"_s);
  m_emptyListText = emptyListText(*m_list);
  m_remove = &outlet<QPushButton>(*this, u"removeDestinationButton"_s);
  m_destinations = new DestinationPopUp(outlet<QComboBox>(*this, u"preferencesDestinationPopUp"_s),
                                        folders, this);
  connect(m_destinations, &DestinationPopUp::picked, this,
          [](int index) { ostrak::setDefaultInt(u"DefaultDestination"_s, index); });
  connect(m_destinations, &DestinationPopUp::addFolderWanted, this,
          &PreferencesWindow::addFolderWanted);
  connect(&outlet<QPushButton>(*this, u"addDestinationButton"_s), &QPushButton::clicked, this,
          &PreferencesWindow::addFolderWanted);
  connect(m_remove, &QPushButton::clicked, this,
          [this] { m_folders->removeAt(m_list->currentRow()); });
  connect(m_list, &QListWidget::currentRowChanged, this,
          [this](int row) { m_remove->setEnabled(row >= 0); });
  connect(&folders, &DestinationFolders::changed, this, &PreferencesWindow::listFolders);
  (new WheelGuard(this))->guard(*this);
  listFolders();
}

void PreferencesWindow::listFolders() {
  m_list->clear();
  for (const QString &name : m_folders->names())
    m_list->addItem(ostrak::displayText(name, layoutDirection()));
  m_emptyListText->setVisible(m_list->count() == 0);
  const QStringList paths = m_folders->paths();
  for (int row = 0; row < m_list->count(); ++row) {
    m_list->item(row)->setToolTip(paths.value(row));
    m_list->item(row)->setData(Qt::AccessibleDescriptionRole, paths.value(row));
  }
  m_remove->setEnabled(m_list->currentRow() >= 0);
  m_destinations->rebuild();
}

void PreferencesWindow::hideEvent(QHideEvent *event) {
  QDialog::hideEvent(event);
  Q_EMIT closing();
}

}  // namespace decant
