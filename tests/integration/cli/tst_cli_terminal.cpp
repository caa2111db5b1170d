#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QJsonDocument>
#include <QObject>
#include <QProcess>
#include <QStringList>
#include <QTest>
#include <cstdlib>

#include "DecantProgram.h"
#include "Descriptor.h"

using namespace Qt::StringLiterals;

namespace {

// A terminal whose other side this process reads.
class Terminal final {
 public:
  explicit Terminal(unsigned short columns)
      : m_master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {
    if (!m_master || ::grantpt(m_master.get()) != 0 || ::unlockpt(m_master.get()) != 0)
      qFatal("there is no terminal");
    m_side = ostrak::Descriptor(::open(::ptsname(m_master.get()), O_RDWR | O_NOCTTY | O_CLOEXEC));
    winsize size{};
    size.ws_row = 24;
    size.ws_col = columns;
    ::ioctl(m_master.get(), TIOCSWINSZ, &size);
  }

  [[nodiscard]] int side() const { return m_side.get(); }
  const QByteArray &read() {
    QByteArray piece(4096, '\0');
    for (ssize_t count = 0; (count = ::read(m_master.get(), piece.data(), 4096)) > 0;)
      m_text += piece.first(count);
    return m_text;
  }

 private:
  ostrak::Descriptor m_master;
  ostrak::Descriptor m_side;
  QByteArray m_text;
};

}  // namespace

class TestCliTerminal final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void oneLineAJobAndAClosingLine();
  void jsonIsTheSameOnATerminal();

 private:
  static void onto(QProcess &process, const DecantProgram &program, const Terminal &terminal,
                   const QStringList &arguments) {
    process.setProcessEnvironment(program.environment());
    process.setWorkingDirectory(program.path(QString()));
    process.setChildProcessModifier([side = terminal.side()] { ::dup2(side, STDOUT_FILENO); });
    process.start(program.program(), arguments);
  }
};

void TestCliTerminal::oneLineAJobAndAClosingLine() {
  const DecantProgram program;
  for (const auto name : {"a.mkv"_L1, "b.mkv"_L1})
    program.file(name);
  program.scenario()
      .conversion(u"a.mkv"_s)
      .progressAt(50)
      .wait(u"go"_s)
      .conversion(u"b.mkv"_s)
      .exit(1)
      .write();
  Terminal terminal(50);
  QProcess process;
  onto(process, program, terminal, {u"convert"_s, u"a.mkv"_s, u"b.mkv"_s, u"gone.mkv"_s});
  QTRY_VERIFY_WITH_TIMEOUT(terminal.read().contains(" 50%"), 30000);
  const QByteArray line = terminal.read().sliced(terminal.read().lastIndexOf("\ra.mkv") + 1);
  QVERIFY2(line.startsWith("a.mkv  [#"), line.constData());
  QVERIFY(line.contains(" left"));
  QVERIFY(line.size() - 3 < 50);  // without the code that wipes the rest
  QVERIFY(program.scenario().release(u"go"_s));
  const DecantOutcome outcome = DecantProgram::end(process);
  QCOMPARE(outcome.status, 1);
  const QByteArray shown = terminal.read();
  QVERIFY2(shown.contains("\ra.mkv  done in "), shown.constData());
  QVERIFY(shown.contains("\rb.mkv  failed\x1b[K\r\n"));
  QVERIFY(shown.endsWith("\r1 finished, 2 failed\x1b[K\r\n"));
  QCOMPARE(shown.count('\n'), 3);
  // Why something failed is no result.
  QVERIFY(outcome.error.contains("gone.mkv"));
  QVERIFY(!outcome.error.contains('\x1b'));
}

void TestCliTerminal::jsonIsTheSameOnATerminal() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  Terminal terminal(50);
  QProcess process;
  onto(process, program, terminal, {u"convert"_s, u"--json"_s, u"a.mkv"_s});
  QCOMPARE(DecantProgram::end(process).status, 0);
  const QByteArray shown = terminal.read();
  QVERIFY(!shown.contains('\x1b'));
  for (const QByteArray &line : shown.trimmed().split('\n'))
    QVERIFY2(QJsonDocument::fromJson(line.trimmed()).isObject(), line.constData());
}

QTEST_GUILESS_MAIN(TestCliTerminal)
#include "tst_cli_terminal.moc"
