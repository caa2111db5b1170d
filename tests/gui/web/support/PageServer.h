#pragma once

#include <QHash>
#include <QStringList>
#include <QTcpServer>
#include <QUrl>

// A web server on the loopback that answers as it was told, in the event loop of the test.
class PageServer final : public QTcpServer {
  Q_OBJECT

 public:
  PageServer();
  ~PageServer() override;

  // The address of this path, which begins with a slash.
  [[nodiscard]] QString address(const QString &path) const;
  // What is answered there; everything else is not found.
  void put(const QString &path, const QByteArray &body,
           const QByteArray &type = "text/html; charset=utf-8", const QByteArray &status = "200 OK",
           const QByteArray &headers = {});
  void redirect(const QString &path, const QString &target);
  // Until `release`: answers of this path wait, and connections that ask for this one end without
  // an answer.
  void hold(const QString &path) { m_held.append(path); }
  void drop(const QString &path) { m_dropped.append(path); }
  void release();

  // The paths asked for, and the whole questions, in order.
  QStringList asked;
  QList<QByteArray> questions;

 private:
  struct Waiting {
    QString path;
    QTcpSocket *socket;
  };
  void serve(QTcpSocket &socket);
  void answer(const QString &path, QTcpSocket &socket);

  QHash<QString, QByteArray> m_answers;
  QStringList m_held;
  QStringList m_dropped;
  QList<Waiting> m_waiting;
};
