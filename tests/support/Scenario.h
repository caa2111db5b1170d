#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

// Writes a scenario for fakeffmpeg (see fakeffmpeg/README.md) and reads back what it was called
// with.
//
//   Scenario scenario(bundle + u"/resources/ffmpeg.scenario"_s);
//   scenario.conversion().progressAt(10).announce(u"half"_s).wait(u"go"_s).exit(1);
//   scenario.write();
//   …
//   scenario.release(u"go"_s);
class Scenario final {
 public:
  explicit Scenario(QString path) : m_path(std::move(path)) {}

  // Each begins a section for calls of this role, whose input ends with `inputEnd`. The first
  // section that fits a call is played.
  Scenario &probe(const QString &inputEnd = {}) { return section("probe", inputEnd); }
  Scenario &fixup(const QString &inputEnd = {}) { return section("fixup", inputEnd); }
  Scenario &conversion(const QString &inputEnd = {}) { return section("conversion", inputEnd); }
  Scenario &any(const QString &inputEnd = {}) { return section("any", inputEnd); }

  // Steps. Texts go out as they are, in one write, without a line end of their own; "@INPUT@"
  // stands for the input's path.
  Scenario &printError(const QByteArray &bytes) { return step("stderr", bytes); }
  Scenario &printOutput(const QByteArray &bytes) { return step("stdout", bytes); }
  Scenario &report(const QString &file) { return step("report", file.toUtf8()); }
  Scenario &defaultReport() { return step("default-report"); }
  // The text of a report; it is kept in a file of its own beside the scenario.
  Scenario &reportText(const QByteArray &text);
  Scenario &flood(int megabytes) { return step("flood", QByteArray::number(megabytes)); }
  Scenario &progress(const QByteArray &bytes) { return step("progress", bytes); }
  // One whole report of progress at this output position.
  Scenario &progressAt(double seconds);
  Scenario &announce(const QString &name) { return step("announce", name.toUtf8()); }
  Scenario &wait(const QString &name) { return step("wait", name.toUtf8()); }
  Scenario &destination(qint64 size) { return step("destination", QByteArray::number(size)); }
  Scenario &noDestination() { return step("no-destination"); }
  Scenario &deleteDestination() { return step("delete-destination"); }
  Scenario &ignoreTerm() { return step("ignore-term"); }
  Scenario &exitOnTerm(int status = 255) {
    return step("exit-on-term", QByteArray::number(status));
  }
  Scenario &grandchild(const QString &until) { return step("grandchild", until.toUtf8()); }
  Scenario &closeOutput() { return step("close-output"); }
  Scenario &hang() { return step("hang"); }
  Scenario &die(int signal) { return step("die", QByteArray::number(signal)); }
  Scenario &exit(int status) { return step("exit", QByteArray::number(status)); }

  // Writes the file, replacing an older one; false when that fails.
  bool write() const;
  // Gives the go-ahead that a `wait` or a `grandchild` waits for.
  bool release(const QString &name) const;
  // Whether an `announce` of this name has been reached.
  [[nodiscard]] bool announced(const QString &name) const;
  // Takes a go-ahead or an announcement back, so that the next call meets it anew.
  void withdraw(const QString &name) const;

  // What the tool was called with, in order. Each has "role", "arguments", "pid", "descriptors",
  // "variables".
  [[nodiscard]] QList<QJsonObject> calls() const;
  // The argument lists of the calls of one role.
  [[nodiscard]] QList<QStringList> arguments(const QString &role) const;
  void forgetCalls() const;

  [[nodiscard]] const QString &path() const { return m_path; }

 private:
  Scenario &section(const char *role, const QString &inputEnd);
  Scenario &step(const char *verb, const QByteArray &value = {});
  [[nodiscard]] QString beside(const QString &name) const;

  QString m_path;
  QByteArray m_text;
  int m_reports = 0;
};
