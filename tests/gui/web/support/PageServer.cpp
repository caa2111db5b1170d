#include "PageServer.h"

#include <QTcpSocket>

using namespace Qt::StringLiterals;

PageServer::PageServer() {
  if (!listen(QHostAddress::LocalHost)) qFatal("the test's web server cannot listen");
  connect(this, &QTcpServer::newConnection, this, [this] {
    while (QTcpSocket *socket = nextPendingConnection())
      connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(*socket); });
  });
}

PageServer::~PageServer() = default;

QString PageServer::address(const QString &path) const {
  return u"http://127.0.0.1:%1%2"_s.arg(serverPort()).arg(path);
}

void PageServer::put(const QString &path, const QByteArray &body, const QByteArray &type,
                     const QByteArray &status, const QByteArray &headers) {
  m_answers.insert(path, "HTTP/1.1 " + status + "\r\nContent-Type: " + type +
                             "\r\nContent-Length: " + QByteArray::number(body.size()) +
                             "\r\nConnection: close\r\n" + headers + "\r\n" + body);
}

void PageServer::redirect(const QString &path, const QString &target) {
  put(path, {}, "text/html", "302 Found", "Location: " + target.toUtf8() + "\r\n");
}

void PageServer::release() {
  m_held.clear();
  m_dropped.clear();
  for (const Waiting &each : std::exchange(m_waiting, {}))
    answer(each.path, *each.socket);
}

void PageServer::serve(QTcpSocket &socket) {
  if (!socket.peek(64 * 1024).contains("\r\n\r\n")) return;
  const QByteArray question = socket.readAll();
  const QString path = QString::fromLatin1(question.split(' ').value(1));
  asked.append(path);
  questions.append(question);
  if (m_held.contains(path))
    m_waiting.append({path, &socket});
  else
    answer(path, socket);
}

void PageServer::answer(const QString &path, QTcpSocket &socket) {
  if (!m_dropped.contains(path))
    socket.write(m_answers.value(
        path, "HTTP/1.1 404 Not Found\r\nContent-Length: 9\r\nConnection: close\r\n\r\nnot found"));
  socket.disconnectFromHost();
}
