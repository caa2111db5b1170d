#pragma once

#include <QCoreApplication>
#include <QTranslator>

// Translates every text of the program by putting brackets around it, so that a test sees which
// texts pass through the translation. Installed as long as it lives.
class BracketingTranslator final : public QTranslator {
 public:
  BracketingTranslator() { QCoreApplication::installTranslator(this); }
  ~BracketingTranslator() override { QCoreApplication::removeTranslator(this); }

  [[nodiscard]] bool isEmpty() const override { return false; }
  [[nodiscard]] QString translate(const char *context, const char *sourceText, const char *,
                                  int) const override {
    if (qstrcmp(context, "decant") != 0) return {};
    return u'<' + QString::fromUtf8(sourceText) + u'>';
  }
};
