#include "ProgressSheet.h"

#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include "AlertTexts.h"
#include "ElidedLabel.h"
#include "ScaledFont.h"
#include "Text.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

constexpr int titlePoints = 13;
constexpr int lettersWide = 56;  // of the window's own font

const QString sheetName = u"TKProgressSheet"_s;

}  // namespace

ProgressSheet::ProgressSheet(QWidget &window)
    : QDialog(&window, Qt::Sheet | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_title(new QLabel(this)),
      m_detail(new ElidedLabel(this)),
      m_indicator(new QProgressBar(this)) {
  setObjectName(sheetName);
  setWindowTitle(window.windowTitle());
  setWindowModality(Qt::WindowModal);

  QFont bold = systemFontOfAtLeast(titlePoints);
  bold.setBold(true);
  m_title->setObjectName(u"progressTitle"_s);
  m_title->setTextFormat(Qt::PlainText);
  m_title->setWordWrap(true);
  m_title->setFont(bold);
  m_detail->setObjectName(u"TKProgressDetailInfo"_s);
  m_detail->setElideMode(Qt::ElideMiddle);
  auto *note = new HintLabel(this);
  note->setObjectName(u"progressNote"_s);
  note->setText(localized(u"Please wait until the operation finishes"_s));
  m_indicator->setObjectName(u"TKProgressIndicator"_s);
  m_indicator->setTextVisible(false);
  m_detail->setMinimumHeight(m_detail->fontMetrics().lineSpacing());

  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 20);
  column->setSpacing(8);
  column->addWidget(m_title);
  column->addWidget(m_detail);
  column->addWidget(m_indicator);
  column->addWidget(note);
  setMinimumWidth(fontMetrics().averageCharWidth() * lettersWide);
}

ProgressSheet::~ProgressSheet() = default;

ProgressSheet *ProgressSheet::of(const QWidget &window) {
  return window.findChild<ProgressSheet *>(sheetName, Qt::FindDirectChildrenOnly);
}

void ProgressSheet::begin(const QString &title) {
  m_title->setText(breakable(title));
  m_title->setAccessibleName(title);
  setAccessibleName(title);
  m_indicator->setAccessibleName(title);
  setMessage({});
  // A bar without an end moves for as long as it is seen.
  m_indicator->setRange(0, 0);
  show();
  raise();
  activateWindow();
}

void ProgressSheet::setMessage(const QString &text) {
  m_detail->setFullText(text);
  setAccessibleDescription(text);
}

void ProgressSheet::end() {
  m_indicator->setRange(0, 1);
  // The window has none from here on, and may get a new one before this one has gone.
  setObjectName({});
  hide();
  QWidget *window = parentWidget();
  window->raise();
  window->activateWindow();
  deleteLater();
}

void ProgressSheet::closeEvent(QCloseEvent *event) {
  event->ignore();
}

}  // namespace ostrak
