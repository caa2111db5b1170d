#include "Scenario.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include "WholeFile.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray escaped(const QByteArray &bytes) {
  QByteArray text;
  for (const char byte : bytes) {
    const bool plain = byte >= ' ' && byte != '\\' && byte != '\x7f';
    if (plain) {
      text += byte;
    } else {
      text += "\\x" + QByteArray(1, byte).toHex();
    }
  }
  return text;
}

}  // namespace

Scenario &Scenario::section(const char *role, const QString &inputEnd) {
  return step(role, inputEnd.toUtf8());
}

Scenario &Scenario::step(const char *verb, const QByteArray &value) {
  m_text += verb;
  if (!value.isEmpty()) m_text += ' ' + escaped(value);
  m_text += '\n';
  return *this;
}

Scenario &Scenario::reportText(const QByteArray &text) {
  const QString name = u"report-%1.txt"_s.arg(m_reports++);
  if (!wholefile::write(beside(name), text)) qFatal("a report of the test cannot be written");
  return report(name);
}

Scenario &Scenario::progressAt(double seconds) {
  const QByteArray microseconds = QByteArray::number(qRound64(seconds * 1'000'000));
  return progress("frame=25\nfps=0.0\nbitrate=  64.0kbits/s\nout_time_us=" + microseconds +
                  "\nout_time_ms=" + microseconds + "\nspeed= 100x\nprogress=continue\n");
}

bool Scenario::write() const {
  return wholefile::write(m_path, m_text);
}

bool Scenario::release(const QString &name) const {
  return wholefile::write(beside(name));
}

bool Scenario::announced(const QString &name) const {
  return QFileInfo::exists(beside(name));
}

void Scenario::withdraw(const QString &name) const {
  QFile::remove(beside(name));
}

QList<QJsonObject> Scenario::calls() const {
  QList<QJsonObject> calls;
  QFile file(m_path + u".calls"_s);
  if (!file.open(QIODevice::ReadOnly)) return calls;
  while (!file.atEnd())
    calls.append(QJsonDocument::fromJson(file.readLine()).object());
  return calls;
}

QList<QStringList> Scenario::arguments(const QString &role) const {
  QList<QStringList> lists;
  for (const QJsonObject &call : calls()) {
    if (call["role"_L1].toString() != role) continue;
    lists.append(call["arguments"_L1].toVariant().toStringList());
  }
  return lists;
}

void Scenario::forgetCalls() const {
  QFile::remove(m_path + u".calls"_s);
}

QString Scenario::beside(const QString &name) const {
  if (name.startsWith(u'/')) return name;
  return QFileInfo(m_path).path() + u'/' + name;
}
