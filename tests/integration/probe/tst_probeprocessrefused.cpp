#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <QList>
#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>
#include <QUrl>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>

#include "Probe.h"
#include "Samples.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;

// What happens when the system makes no more processes. A program of its own, since the filter that
// plays that system stays for good.
class TestProbeProcessRefused final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }
  void isToldAndEndsTheProgram();
};

namespace {

// Calls that would make a process fail with EAGAIN from now on; threads can still be made.
bool refuseProcesses() {
  constexpr auto number = offsetof(seccomp_data, nr);
  constexpr auto flags = offsetof(seccomp_data, args);
#ifdef SYS_fork
  constexpr unsigned forkNumber = SYS_fork;
  constexpr unsigned vforkNumber = SYS_vfork;
#else  // made of clone
  constexpr unsigned forkNumber = ~0U;
  constexpr unsigned vforkNumber = ~0U;
#endif
  // A jump says how many instructions it skips when the comparison holds, and when it does not.
  std::array<sock_filter, 11> filter = {{
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, number),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, forkNumber, 7, 0),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, vforkNumber, 6, 0),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_clone3, 6, 0),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_clone, 0, 3),
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, flags),
      BPF_STMT(BPF_ALU | BPF_AND | BPF_K, 0xff),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SIGCHLD, 1, 0),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EAGAIN),
      // The C library turns to clone, whose flags can be read, when clone3 is not there.
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
  }};
  sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

}  // namespace

void TestProbeProcessRefused::isToldAndEndsTheProgram() {
  ScratchProgram program(samples::ffmpegPath());
  const QString path = samples::write(u"a.mkv"_s, "x");
  QVERIFY(refuseProcesses());

  const decant::ProbeRun run = decant::probeFile(QUrl::fromLocalFile(path), {});
  QVERIFY(run.processRefused);
  QVERIFY(!run.toolMissing && !run.outcome.record);

  QList<int> statuses;
  QVERIFY(!decant::initWithURL(QUrl::fromLocalFile(path),
                               [&statuses](int status) { statuses.append(status); }));
  QTRY_COMPARE(statuses, QList<int>{0});
  const auto &presented = program.presenter().presented;
  QCOMPARE(presented.size(), 1);
  QCOMPARE(presented.first().message,
           u"A basic system capability failed (posix_spawn). Please reboot your system and try "
           "again."_s);
  QCOMPARE(presented.first().buttons, QStringList{u"Exit"_s});
  QCOMPARE(decant::durationOfFile(QUrl::fromLocalFile(path)), -1);
}

QTEST_GUILESS_MAIN(TestProbeProcessRefused)
#include "tst_probeprocessrefused.moc"
