#pragma once

#include <QByteArrayView>
#include <QList>
#include <QRgb>
#include <QString>
#include <optional>

namespace ostrak {

// A stretch of letters that look alike.
struct RichRun {
  QString text;  // "\n" breaks the line within the paragraph
  bool bold = false;
  bool italic = false;
  bool underline = false;
  double points = 0;          // 0: the view's own size
  std::optional<QRgb> color;  // nothing: the view's own colour
  QString link;               // empty: none

  bool operator==(const RichRun &) const = default;
};

struct RichParagraph {
  enum class Alignment { Left, Center, Right, Justify };
  enum class List { None, Bullets, Numbers };

  QList<RichRun> runs;
  Alignment alignment = Alignment::Left;
  List list = List::None;
  int level = 0;      // of a list: 0 is the outermost
  double indent = 0;  // points from the left; no list's
  double before = 0;  // points of empty room above and below
  double after = 0;

  bool operator==(const RichParagraph &) const = default;
};

// Reads a document in the Rich Text Format as far as documentation needs it: bold, italic and
// underlined letters, sizes, colours, paragraphs with alignment and indents, lists, links (fields
// named HYPERLINK), letters of every script. Cells of a table are separated by tabs. Everything
// else is left out. Pure; damaged input gives what can be read of it, and what does not begin as
// such a document gives nothing.
[[nodiscard]] QList<RichParagraph> readRichText(QByteArrayView document);

}  // namespace ostrak
