#pragma once

#include <QList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QUrl>
#include <functional>
#include <memory>

// A web server on the loopback address with a thread of its own, so that it answers while the test
// waits. What it got is read after the answer has arrived.
class HttpAnswer final {
 public:
  // Gives the raw answer to a raw request; an empty one leaves the connection open without a word.
  using Answer = std::function<QByteArray(const QByteArray &request)>;

  explicit HttpAnswer(Answer answer) : m_answer(std::move(answer)) {
    m_server.moveToThread(&m_thread);
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] { accept(); });
    m_thread.start();
    QMetaObject::invokeMethod(
        &m_server, [this] { m_listening = m_server.listen(QHostAddress::LocalHost); },
        Qt::BlockingQueuedConnection);
  }
  ~HttpAnswer() {
    QMetaObject::invokeMethod(
        &m_server,
        [this] {
          m_server.close();
          qDeleteAll(m_server.findChildren<QTcpSocket *>());
        },
        Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
  }
  HttpAnswer(const HttpAnswer &) = delete;
  HttpAnswer &operator=(const HttpAnswer &) = delete;

  [[nodiscard]] bool isListening() const { return m_listening; }
  [[nodiscard]] QUrl url(const QString &pathAndQuery) const {
    return QUrl(
        QStringLiteral("http://127.0.0.1:%1%2").arg(m_server.serverPort()).arg(pathAndQuery));
  }
  // Every whole request so far.
  [[nodiscard]] QList<QByteArray> requests() {
    QList<QByteArray> copy;
    QMetaObject::invokeMethod(
        &m_server, [&] { copy = m_requests; }, Qt::BlockingQueuedConnection);
    return copy;
  }

 private:
  void accept() {
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
      auto received = std::make_shared<QByteArray>();
      QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, received] {
        received->append(socket->readAll());
        if (!isWhole(*received)) return;
        m_requests.append(*received);
        const QByteArray answer = m_answer(*received);
        received->clear();
        if (answer.isEmpty()) return;
        socket->write(answer);
        socket->disconnectFromHost();
      });
    }
  }

  static bool isWhole(const QByteArray &request) {
    const qsizetype end = request.indexOf("\r\n\r\n");
    if (end < 0) return false;
    const qsizetype at = request.toLower().indexOf("content-length:");
    if (at < 0 || at > end) return true;
    const qsizetype length =
        request.mid(at + 15, request.indexOf('\r', at) - at - 15).trimmed().toLongLong();
    return request.size() >= end + 4 + length;
  }

  Answer m_answer;
  QThread m_thread;
  QTcpServer m_server;
  bool m_listening = false;
  QList<QByteArray> m_requests;
};
