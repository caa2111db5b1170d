#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace decant {

// The windows beside the main one: loaded when they are first wanted, brought to the front while
// they are there, forgotten when they close, so that the next opening loads them anew. Main thread.
class AuxiliaryWindows final : public QObject {
  Q_OBJECT

 public:
  explicit AuxiliaryWindows(QObject *parent = nullptr);
  ~AuxiliaryWindows() override;

  // Shows the tab at index `tag`; a negative one leaves the tabs alone.
  void openDocumentationWindow(int tag);
  void openPromotion();
  // They go when the running handler is done, which may be one of theirs.
  void closeAll();

  // Null while it is closed.
  [[nodiscard]] QWidget *documentationWindow() const { return m_documentationWindow; }
  [[nodiscard]] QWidget *promotionWindow() const { return m_promotionWindow; }

 private:
  QPointer<QWidget> m_documentationWindow;
  QPointer<QWidget> m_promotionWindow;
};

}  // namespace decant
