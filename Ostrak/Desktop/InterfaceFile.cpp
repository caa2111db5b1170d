#include "InterfaceFile.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QFile>
#include <QUiLoader>

#include "DisplayText.h"
#include "Exceptions.h"
#include "Logging.h"
#include "Ostrak.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

class Loader final : public QUiLoader {
 public:
  explicit Loader(const WidgetMaker &custom) : m_custom(custom) {
    setLanguageChangeEnabled(false);
    setTranslationEnabled(true);
  }

  QWidget *createWidget(const QString &className, QWidget *parent, const QString &name) override {
    QWidget *made = m_custom ? m_custom(className, parent) : nullptr;
    if (!made) return QUiLoader::createWidget(className, parent, name);
    made->setObjectName(name);
    return made;
  }

 private:
  const WidgetMaker &m_custom;
};

// Making a loader scans the library paths for plug-ins, which costs more than loading the form.
class NoLibraryPaths {
 public:
  NoLibraryPaths() : m_paths(QCoreApplication::libraryPaths()) {
    QCoreApplication::setLibraryPaths({});
  }
  ~NoLibraryPaths() { QCoreApplication::setLibraryPaths(m_paths); }
  NoLibraryPaths(const NoLibraryPaths &) = delete;
  NoLibraryPaths &operator=(const NoLibraryPaths &) = delete;

 private:
  QStringList m_paths;
};

void isolateMenuEntries(const QWidget &form) {
  if (form.layoutDirection() != Qt::RightToLeft) return;
  for (QComboBox *menu : form.findChildren<QComboBox *>()) {
    for (int i = 0; i < menu->count(); ++i)
      menu->setItemText(i, displayText(menu->itemText(i), form.layoutDirection()));
  }
}

}  // namespace

QWidget *loadInterface(const QString &name, QWidget *parent, const WidgetMaker &custom) {
  QFile file(tk->resDir() + u"/ui/"_s + name + u".ui"_s);
  if (!file.open(QIODevice::ReadOnly)) {
    tk_log_level(3, u"Error: the interface file %@ cannot be read"_s, file.fileName());
    return nullptr;
  }
  const NoLibraryPaths noScan;
  Loader loader(custom);
  loader.clearPluginPaths();
  QWidget *made = loader.load(&file, parent);
  if (made)
    isolateMenuEntries(*made);
  else
    tk_log_level(3, u"Error: the interface file %@ is broken: %@"_s, name, loader.errorString());
  return made;
}

void outletMissing(const QString &name) {
  exceptionHandler(Exception(u"Interface Problem"_s, u"there is no outlet named "_s + name));
}

}  // namespace ostrak
