#include "AlertTexts.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextBoundaryFinder>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

constexpr QChar breakingPlace(0x200B);

}  // namespace

QString breakable(const QString &text) {
  constexpr int longestStretch = 30;  // characters as a reader counts them
  QString result;
  result.reserve(text.size() + text.size() / longestStretch);
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  int stretch = 0;
  qsizetype from = 0;
  for (qsizetype to = finder.toNextBoundary(); to > 0; to = finder.toNextBoundary()) {
    const bool blank = text.at(from).isSpace();
    stretch = blank ? 0 : stretch + 1;
    if (stretch > longestStretch) {
      result.append(breakingPlace);
      stretch = 1;
    }
    result.append(QStringView(text).mid(from, to - from));
    from = to;
  }
  return result;
}

QString unbroken(QString text) {
  return text.remove(breakingPlace);
}

QString buttonTitle(QString title) {
  return title.replace(u'&', u"&&"_s);
}

QWidget *heldToScreen(QWidget *body, QWidget *dialog) {
  constexpr double mostOfHeight = 0.6;
  constexpr double mostOfWidth = 0.8;
  const QSize screen = dialog->screen()->availableSize();
  const QSize wanted = body->sizeHint().expandedTo(body->minimumSizeHint());
  const int height =
      body->hasHeightForWidth() ? body->heightForWidth(wanted.width()) : wanted.height();
  const QSize most(qRound(screen.width() * mostOfWidth), qRound(screen.height() * mostOfHeight));
  if (height <= most.height() && wanted.width() <= most.width()) return body;
  auto *area = new QScrollArea(dialog);
  area->setObjectName(u"alertScroll"_s);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setWidget(body);
  const int bar = area->verticalScrollBar()->sizeHint().width();
  area->setMinimumSize(QSize(wanted.width() + bar, height + bar).boundedTo(most));
  return area;
}

}  // namespace ostrak
