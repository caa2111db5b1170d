#include "FilePanel.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QFileInfo>
#include <QLayout>
#include <QProgressBar>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolButton>

#include "AppDelegate.h"
#include "DisplayText.h"
#include "ElidedLabel.h"
#include "Format.h"
#include "InterfaceFile.h"
#include "Text.h"

using namespace Qt::StringLiterals;
using ostrak::localized;
using ostrak::outlet;

namespace decant {

FilePanel::FilePanel(QWidget *parent) : QFrame(parent) {
  setFixedHeight(0);
  hide();
}

FilePanel::~FilePanel() = default;

void FilePanel::follow(AppDelegate &app) {
  m_app = &app;
  m_fileName = &outlet<ostrak::ElidedLabel>(*this, u"fileNameLabel"_s);
  m_information = &outlet<ostrak::ElidedLabel>(*this, u"informationLabel"_s);
  m_subtitle = &outlet<ostrak::ElidedLabel>(*this, u"subtitleLabel"_s);
  m_busy = &outlet<QProgressBar>(*this, u"busyIndicator"_s);
  m_audioPopUp = &outlet<QComboBox>(*this, u"audioPopUp"_s);
  m_destinationPopUp = &outlet<QComboBox>(*this, u"destinationPopUp"_s);
  m_addButton = &outlet<QPushButton>(*this, u"addButton"_s);
  m_skipButton = &outlet<QToolButton>(*this, u"skipButton"_s);
  QFont bold = m_fileName->font();
  bold.setWeight(QFont::DemiBold);
  m_fileName->setFont(bold);
  m_fileName->setElideMode(Qt::ElideMiddle);
  m_slide = new QPropertyAnimation(this, "shownHeight", this);
  m_slide->setDuration(style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this));
  m_slide->setEasingCurve(QEasingCurve::OutCubic);
  // The keyboard must not reach what has no height.
  connect(m_slide, &QAbstractAnimation::finished, this, [this] { setVisible(m_shown); });

  connect(&app.intake(), &Intake::changed, this, &FilePanel::update);
  connect(&app.intake(), &Intake::probed, this, &FilePanel::update);
  connect(&app, &AppDelegate::pauseTextsChanged, this, &FilePanel::update);
  connect(m_audioPopUp, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (index >= 0) m_app->intake().setAudioTrackIndex(static_cast<quint64>(index));
  });
  connect(m_addButton, &QPushButton::clicked, this, &FilePanel::addClicked);
  connect(m_skipButton, &QToolButton::clicked, this, [this] {
    m_app->intake().clearFileInfo();
    m_app->intake().cancelAdd();
  });
  update();
}

void FilePanel::update() {
  if (!m_app) return;
  const Intake &intake = m_app->intake();
  const bool busy = intake.isScanning();
  m_busy->setVisible(busy);
  m_addButton->setText(m_app->addButtonTitle());
  m_addButton->setAccessibleName(m_app->addButtonTitle());
  widenAddButton();
  const bool showsRecord = !busy && intake.fileInfo().has_value();
  const bool idle = intake.state() == Intake::State::Idle;
  if (!showsRecord && (idle || !m_skipButton->hasFocus())) giveFocusAway();
  m_skipButton->setEnabled(!idle);
  for (QWidget *control :
       {static_cast<QWidget *>(m_audioPopUp), static_cast<QWidget *>(m_destinationPopUp),
        static_cast<QWidget *>(m_addButton)}) {
    control->setEnabled(showsRecord);
  }
  if (showsRecord) {
    showRecord();
  } else if (busy) {
    m_fileName->setFullText(QFileInfo(intake.currentPath()).fileName());
    m_information->setFullText(localized(u"Looking into the file…"_s));
    m_subtitle->setFullText({});
  }
  showPanel(!idle);
}

void FilePanel::showRecord() {
  const MKVFileInfo &record = *m_app->intake().fileInfo();
  m_fileName->setFullText(record.fileName);
  m_information->setFullText(record.informationString);
  const QString subtitle = QFileInfo(record.subtitleFileURL.toLocalFile()).fileName();
  m_subtitle->setFullText(
      subtitle.isEmpty() ? QString() : ostrak::makeString(localized(u"Subtitles: %@"_s), subtitle));
  fillAudioMenu();
}

// Only anew when it has other entries: this is also told of the user's choice, by the menu itself.
void FilePanel::fillAudioMenu() {
  QStringList texts;
  for (const AudioTrackDescription &track : m_app->intake().fileInfo()->audioTrackInformation)
    texts.append(track.text);
  const QSignalBlocker blocker(m_audioPopUp);
  if (texts != m_audioTexts) {
    m_audioTexts = texts;
    m_audioPopUp->clear();
    for (const QString &text : std::as_const(texts))
      m_audioPopUp->addItem(ostrak::displayText(text, layoutDirection()));
  }
  if (m_audioPopUp->count() == 0) {
    m_audioPopUp->setEnabled(false);
    m_audioPopUp->setPlaceholderText(localized(u"No sound"_s));
    return;
  }
  m_audioPopUp->setCurrentIndex(static_cast<int>(m_app->intake().audioTrackIndex()));
}

// The most pressed of all buttons has some air beside its words.
void FilePanel::widenAddButton() {
  m_addButton->setMinimumWidth(m_addButton->sizeHint().width() +
                               2 * m_addButton->fontMetrics().averageCharWidth());
}

void FilePanel::giveFocusAway() {
  const QWidget *focus = QApplication::focusWidget();
  if (focus && isAncestorOf(focus)) Q_EMIT focusFree();
}

int FilePanel::wantedHeight() const {
  return qMax(fullHeight, layout() ? layout()->sizeHint().height() : 0);
}

void FilePanel::showPanel(bool shown) {
  if (shown == m_shown) return;
  m_shown = shown;
  if (shown) show();
  m_slide->stop();
  m_slide->setStartValue(height());
  m_slide->setEndValue(shown ? wantedHeight() : 0);
  m_slide->start();
}

bool FilePanel::event(QEvent *event) {
  const bool done = QFrame::event(event);
  // Another font, or texts that need more room.
  if (event->type() == QEvent::LayoutRequest && m_shown) {
    widenAddButton();
    if (m_slide->state() == QAbstractAnimation::Running)
      m_slide->setEndValue(wantedHeight());
    else
      setFixedHeight(wantedHeight());
  }
  return done;
}

}  // namespace decant
