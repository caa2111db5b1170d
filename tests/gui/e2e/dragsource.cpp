// A window that files are dragged from: `dragsource FILE…`. It says on standard output what the
// target answers while the pointer is over it ("accepted", "refused") and how the drag ends
// ("copied", "ignored").
#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <cstdio>
#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

void say(const char *word) {
  std::puts(word);
  std::fflush(stdout);
}

// Listens to the target's XdndStatus messages, of which the toolkit tells only the accepting ones.
class StatusListener final : public QAbstractNativeEventFilter {
 public:
  explicit StatusListener(xcb_connection_t *connection) {
    const QByteArray name = "XdndStatus"_ba;
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr), &std::free);
    if (reply) m_status = reply->atom;
  }

  bool nativeEventFilter(const QByteArray &, void *message, qintptr *) override {
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE) return false;
    const auto *told = static_cast<const xcb_client_message_event_t *>(message);
    if (told->type == m_status) say((told->data.data32[1] & 1U) != 0 ? "accepted" : "refused");
    return false;
  }

 private:
  xcb_atom_t m_status = XCB_ATOM_NONE;
};

class Source final : public QLabel {
 public:
  explicit Source(QList<QUrl> urls) : QLabel(u"drag me"_s), m_urls(std::move(urls)) {}

 protected:
  void mouseMoveEvent(QMouseEvent *event) override {
    if (!event->buttons().testFlag(Qt::LeftButton) || m_dragging) return;
    m_dragging = true;
    auto *files = new QMimeData;
    files->setUrls(m_urls);
    auto *drag = new QDrag(this);
    drag->setMimeData(files);
    say(drag->exec(Qt::CopyAction) == Qt::CopyAction ? "copied" : "ignored");
    m_dragging = false;
  }

 private:
  QList<QUrl> m_urls;
  bool m_dragging = false;
};

}  // namespace

int main(int argc, char **argv) {
  const QApplication application(argc, argv);
  StatusListener listener(
      qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection());
  qGuiApp->installNativeEventFilter(&listener);
  QList<QUrl> urls;
  for (const QString &path : QCoreApplication::arguments().mid(1))
    urls.append(QUrl::fromLocalFile(path));
  Source source(urls);
  source.setWindowTitle(u"dragsource"_s);
  source.setAlignment(Qt::AlignCenter);
  source.resize(200, 120);
  source.show();
  return QApplication::exec();
}
