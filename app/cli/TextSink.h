#pragma once

#include <QByteArray>
#include <QString>

namespace decant {

// One of the two streams that the command line writes to. Main thread.
class TextSink {
 public:
  virtual ~TextSink() = default;
  // Writes UTF-8 at once, nothing is held back. A stream that nobody reads any more takes
  // everything and keeps nothing: the work goes on and the exit status tells.
  virtual void write(const QByteArray &utf8) = 0;
  [[nodiscard]] virtual bool isTerminal() const = 0;
  // Why something that was written is lost though somebody would read it: a full disk. Null when
  // all is well.
  [[nodiscard]] virtual QString failure() const { return {}; }
  // Width of the terminal in cells, as it is now.
  [[nodiscard]] virtual int columns() const = 0;
};

// Onto an open descriptor, which it does not own. SIGPIPE has to be ignored.
class DescriptorSink final : public TextSink {
 public:
  explicit DescriptorSink(int descriptor);
  void write(const QByteArray &utf8) override;
  [[nodiscard]] bool isTerminal() const override { return m_isTerminal; }
  [[nodiscard]] int columns() const override;
  [[nodiscard]] QString failure() const override { return m_failure; }

 private:
  int m_descriptor;
  bool m_isTerminal;
  bool m_closed = false;
  QString m_failure;
};

// Opens /dev/null on each standard descriptor that the caller left closed, so that no file opened
// later is mistaken for standard output, and ignores SIGPIPE. At the very start of the process.
void secureStandardStreams();

}  // namespace decant
