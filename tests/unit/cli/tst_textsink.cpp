#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QObject>
#include <QTest>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "Descriptor.h"
#include "TextSink.h"

using namespace decant;

namespace {

struct Pipe {
  explicit Pipe(int flags = O_CLOEXEC) {
    int ends[2];
    if (::pipe2(ends, flags) != 0) qFatal("no pipe");
    reading = ostrak::Descriptor(ends[0]);
    writing = ostrak::Descriptor(ends[1]);
  }
  ostrak::Descriptor reading;
  ostrak::Descriptor writing;
};

}  // namespace

class TestTextSink final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { std::signal(SIGPIPE, SIG_IGN); }
  void writesAtOnce();
  void survivesAReaderThatWentAway();
  void waitsForASlowReader();
  void knowsATerminal();
};

void TestTextSink::writesAtOnce() {
  const Pipe pipe;
  DescriptorSink sink(pipe.writing.get());
  QVERIFY(!sink.isTerminal());
  QCOMPARE(sink.columns(), 80);
  sink.write("line\n");
  QByteArray read(16, '\0');
  QCOMPARE(::read(pipe.reading.get(), read.data(), 16), 5);
}

void TestTextSink::survivesAReaderThatWentAway() {
  Pipe pipe;
  DescriptorSink sink(pipe.writing.get());
  pipe.reading = ostrak::Descriptor();
  sink.write("one\n");
  sink.write("two\n");
  DescriptorSink closed(-1);
  closed.write("three\n");
}

void TestTextSink::waitsForASlowReader() {
  const Pipe pipe(O_CLOEXEC | O_NONBLOCK);
  DescriptorSink sink(pipe.writing.get());
  const QByteArray text(1024 * 1024, 'x');
  QByteArray read;
  std::thread reader([&] {
    QByteArray piece(4096, '\0');
    while (read.size() < text.size()) {
      const ssize_t count = ::read(pipe.reading.get(), piece.data(), 4096);
      if (count > 0) read += piece.first(count);
    }
  });
  sink.write(text);
  reader.join();
  QCOMPARE(read, text);
}

void TestTextSink::knowsATerminal() {
  const ostrak::Descriptor master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
  QVERIFY(master && ::grantpt(master.get()) == 0 && ::unlockpt(master.get()) == 0);
  const ostrak::Descriptor terminal(::open(::ptsname(master.get()), O_RDWR | O_NOCTTY | O_CLOEXEC));
  DescriptorSink sink(terminal.get());
  QVERIFY(sink.isTerminal());
  winsize size{};
  size.ws_row = 24;
  size.ws_col = 132;
  QCOMPARE(::ioctl(terminal.get(), TIOCSWINSZ, &size), 0);
  QCOMPARE(sink.columns(), 132);
}

QTEST_GUILESS_MAIN(TestTextSink)
#include "tst_textsink.moc"
