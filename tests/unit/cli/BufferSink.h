#pragma once

#include <QByteArray>

#include "TextSink.h"

// Keeps what is written.
class BufferSink final : public decant::TextSink {
 public:
  explicit BufferSink(bool isTerminal = false, int columns = 60)
      : m_isTerminal(isTerminal), m_columns(columns) {}
  void write(const QByteArray &utf8) override { m_text += utf8; }
  [[nodiscard]] bool isTerminal() const override { return m_isTerminal; }
  [[nodiscard]] int columns() const override { return m_columns; }

  // What was written since the last call.
  QByteArray take() { return std::exchange(m_text, {}); }

 private:
  QByteArray m_text;
  bool m_isTerminal;
  int m_columns;
};
