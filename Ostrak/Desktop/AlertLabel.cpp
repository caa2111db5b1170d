#include "AlertLabel.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>

#include "AlertTexts.h"
#include "Text.h"

namespace ostrak {
using namespace Qt::StringLiterals;

AlertLabel::AlertLabel(const QString &text, QWidget *parent) : QLabel(breakable(text), parent) {
  setAccessibleName(text);
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
}

QString AlertLabel::selection() const {
  QString text = unbroken(selectedText());
  return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

void AlertLabel::selectAll() {
  setSelection(0, static_cast<int>(text().size()));
}

void AlertLabel::copy() const {
  QGuiApplication::clipboard()->setText(selection());
}

void AlertLabel::keyPressEvent(QKeyEvent *event) {
  if (event->matches(QKeySequence::Copy) && hasSelectedText())
    copy();
  else if (event->matches(QKeySequence::SelectAll))
    selectAll();
  else
    QLabel::keyPressEvent(event);
}

// The label has put its own text there.
void AlertLabel::mouseReleaseEvent(QMouseEvent *event) {
  QLabel::mouseReleaseEvent(event);
  QClipboard *const clipboard = QGuiApplication::clipboard();
  if (clipboard->supportsSelection() && hasSelectedText())
    clipboard->setText(selection(), QClipboard::Selection);
}

void AlertLabel::contextMenuEvent(QContextMenuEvent *event) {
  auto *menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction *const copyAction = menu->addAction(localized(u"Copy"_s));
  copyAction->setEnabled(hasSelectedText());
  connect(copyAction, &QAction::triggered, this, &AlertLabel::copy);
  connect(menu->addAction(localized(u"Select All"_s)), &QAction::triggered, this,
          &AlertLabel::selectAll);
  menu->popup(event->globalPos());
}

}  // namespace ostrak
