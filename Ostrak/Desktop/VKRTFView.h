#pragma once

#include "PageBrowser.h"

namespace ostrak {

// A text view that shows a document of the bundle and, when the machine is online, its newer copy
// from the web. It loads both by itself when it is first about to be drawn, once. Main thread.
class VKRTFView final : public PageBrowser {
  Q_OBJECT
  // The file name, among the bundle's resources, of a document in the Rich Text Format.
  Q_PROPERTY(QString localRTFName READ localRTFName WRITE setLocalRTFName)
  // The address of a copy in HTML; empty when there is none.
  Q_PROPERTY(QString remoteHTMLURL READ remoteHTMLURL WRITE setRemoteHTMLURL)

 public:
  explicit VKRTFView(QWidget *parent = nullptr);
  ~VKRTFView() override;

  [[nodiscard]] QString localRTFName() const { return m_localRTFName; }
  void setLocalRTFName(const QString &name) { m_localRTFName = name; }
  [[nodiscard]] QString remoteHTMLURL() const { return m_remoteHTMLURL; }
  void setRemoteHTMLURL(const QString &address) { m_remoteHTMLURL = address; }

 protected:
  void paintEvent(QPaintEvent *event) override;

 private:
  void load();
  void showLocalDocument();

  QString m_localRTFName;
  QString m_remoteHTMLURL;
  bool m_loaded = false;
};

}  // namespace ostrak
