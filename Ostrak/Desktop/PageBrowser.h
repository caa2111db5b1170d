#pragma once

#include <QTextBrowser>
#include <QUrl>
#include <functional>

namespace ostrak {

// A text view for pages of documentation. It shows what it is given and fetches nothing else: no
// picture, no style sheet, no file that a page names. A link within the page is followed, one to
// the web or to a mail address goes to the user's own program, every other one leads nowhere.
// Main thread.
class PageBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  explicit PageBrowser(QWidget *parent = nullptr);
  ~PageBrowser() override;

  // Shows this page, in the colours of the palette; nothing when the file cannot be read.
  void showHtmlFile(const QString &path);
  // Fetches the page at this web address in the background and replaces what is shown by it, unless
  // that fails or the page is empty.
  void replaceByOnlineCopy(const QString &address);
  // Whether no copy is on its way.
  [[nodiscard]] bool isIdle() const { return m_fetches == 0; }
  // Neither the wheel nor the keys move the page.
  void setScrolling(bool scrolls);

  // Nothing: see above.
  QVariant loadResource(int type, const QUrl &name) override;

 protected:
  // Shows what `fill` puts into the document, in the colours of the palette: at once, and again
  // when those change, as long as nothing else is shown.
  void showFilled(std::function<void()> fill);

  void changeEvent(QEvent *event) override;
  void wheelEvent(QWheelEvent *event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  void followLink(const QUrl &link);
  void showHtml(const QString &html);

  std::function<void()> m_fill;
  bool m_scrolls = true;
  int m_fetches = 0;
};

// The letters of a page as its own head or first bytes name them; UTF-8 when they do not.
[[nodiscard]] QString htmlOf(const QByteArray &content);

}  // namespace ostrak
