// A window with the kinds of widgets that Decant's has and nothing behind them: menus, a toolbar
// with icons, the same interface file, a list, and a connection to the session bus.
#include <QAction>
#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QListView>
#include <QMainWindow>
#include <QPainter>
#include <QStringListModel>
#include <QSvgRenderer>
#include <QUiLoader>
#include <memory>

namespace {

// The classes of the form that are Decant's own, as the plain ones that they extend.
class PlainLoader final : public QUiLoader {
 public:
  QWidget *createWidget(const QString &name, QWidget *parent, const QString &object) override {
    QWidget *made = nullptr;
    if (name == QLatin1String("MainWindow")) made = new QMainWindow(parent);
    if (name == QLatin1String("FilePanel")) made = new QFrame(parent);
    if (name == QLatin1String("JobListView")) made = new QListView(parent);
    if (name == QLatin1String("PictureView")) made = new QWidget(parent);
    if (name == QLatin1String("ElidedLabel") || name == QLatin1String("HintLabel"))
      made = new QLabel(parent);
    if (!made) return QUiLoader::createWidget(name, parent, object);
    made->setObjectName(object);
    return made;
  }
};

QIcon drawing(const QString &path) {
  QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  QSvgRenderer(path).render(&painter);
  return QIcon(QPixmap::fromImage(image));
}

}  // namespace

// The first argument is the resources folder of the bundle.
int main(int argc, char **argv) {
  const QApplication application(argc, argv);
  const QString resources = QString::fromLocal8Bit(argv[1]);
  QDBusConnection bus = QDBusConnection::sessionBus();
  bus.registerService(QStringLiteral("org.decant.BareWindow"));
  QFile form(resources + QStringLiteral("/ui/MainWindow.ui"));
  if (!form.open(QIODevice::ReadOnly)) return 1;
  const QStringList paths = QCoreApplication::libraryPaths();
  QCoreApplication::setLibraryPaths({});
  PlainLoader loader;
  loader.clearPluginPaths();
  const std::unique_ptr<QWidget> window(loader.load(&form));
  QCoreApplication::setLibraryPaths(paths);
  if (!window) return 1;
  const QStringList pictures =
      QDir(resources + QStringLiteral("/images")).entryList({QStringLiteral("toolbar_*.svg")});
  const QList<QAction *> actions = window->findChildren<QAction *>();
  for (qsizetype i = 0; i < pictures.size() && i < actions.size(); ++i)
    actions.at(i)->setIcon(drawing(resources + QStringLiteral("/images/") + pictures.at(i)));
  QStringListModel model;
  window->findChild<QListView *>()->setModel(&model);
  window->resize(720, 580);
  window->show();
  return QApplication::exec();
}
