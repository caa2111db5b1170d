#include "RichTextDocument.h"

#include <QPalette>
#include <QPointer>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include "RichText.h"

namespace ostrak {

namespace {

constexpr double pixelsPerPoint = 96.0 / 72;

Qt::Alignment alignmentOf(RichParagraph::Alignment alignment) {
  switch (alignment) {
    case RichParagraph::Alignment::Center:
      return Qt::AlignHCenter;
    case RichParagraph::Alignment::Right:
      return Qt::AlignRight;
    case RichParagraph::Alignment::Justify:
      return Qt::AlignJustify;
    case RichParagraph::Alignment::Left:
      break;
  }
  return Qt::AlignLeft;
}

QTextBlockFormat blockFormatOf(const RichParagraph &paragraph) {
  QTextBlockFormat format;
  format.setAlignment(alignmentOf(paragraph.alignment));
  format.setTopMargin(paragraph.before * pixelsPerPoint);
  format.setBottomMargin(paragraph.after * pixelsPerPoint);
  if (paragraph.list == RichParagraph::List::None)
    format.setLeftMargin(paragraph.indent * pixelsPerPoint);
  return format;
}

QTextCharFormat charFormatOf(const RichRun &run, const QPalette &palette) {
  QTextCharFormat format;
  if (run.bold) format.setFontWeight(QFont::Bold);
  format.setFontItalic(run.italic);
  format.setFontUnderline(run.underline);
  if (run.points > 0) format.setFontPointSize(run.points);
  if (run.color) format.setForeground(QColor::fromRgb(*run.color));
  if (!run.link.isEmpty()) {
    format.setAnchor(true);
    format.setAnchorHref(run.link);
    format.setFontUnderline(true);
    format.setForeground(palette.link());
  }
  return format;
}

QTextListFormat listFormatOf(const RichParagraph &paragraph) {
  QTextListFormat format;
  format.setStyle(paragraph.list == RichParagraph::List::Numbers ? QTextListFormat::ListDecimal
                                                                 : QTextListFormat::ListDisc);
  format.setIndent(paragraph.level + 1);
  return format;
}

}  // namespace

void fillDocument(QTextDocument &document, const QList<RichParagraph> &paragraphs,
                  const QPalette &palette) {
  document.clear();
  QTextCursor cursor(&document);
  QPointer<QTextList> list;
  bool isFirst = true;
  for (const RichParagraph &paragraph : paragraphs) {
    if (!std::exchange(isFirst, false)) cursor.insertBlock();
    cursor.setBlockFormat(blockFormatOf(paragraph));
    if (paragraph.list == RichParagraph::List::None) {
      list.clear();
    } else if (const QTextListFormat wanted = listFormatOf(paragraph);
               list && list->format().style() == wanted.style() &&
               list->format().indent() == wanted.indent()) {
      list->add(cursor.block());
    } else {
      list = cursor.createList(wanted);
    }
    for (const RichRun &run : paragraph.runs) {
      QString text = run.text;
      cursor.insertText(text.replace(u'\n', QChar::LineSeparator), charFormatOf(run, palette));
    }
  }
}

}  // namespace ostrak
