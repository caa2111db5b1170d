#pragma once

#include <QList>

class QPalette;
class QTextDocument;

namespace ostrak {

struct RichParagraph;

// Replaces what the document holds by these paragraphs. Links take their colour from the palette.
void fillDocument(QTextDocument &document, const QList<RichParagraph> &paragraphs,
                  const QPalette &palette);

}  // namespace ostrak
