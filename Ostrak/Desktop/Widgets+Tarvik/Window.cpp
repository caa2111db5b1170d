#include "Window.h"

#include <QPointer>
#include <QWidget>

#include "Dispatch.h"
#include "ProgressSheet.h"

namespace ostrak {

namespace {

// Does this on the main thread unless the window has gone by then.
template <typename Act>
void later(QWidget &window, Act act) {
  dispatch_async_main([window = QPointer(&window), act = std::move(act)] {
    if (window) act(*window);
  });
}

}  // namespace

void beginProgress(QWidget &window, const QString &title) {
  later(window, [title](QWidget &over) {
    ProgressSheet *sheet = ProgressSheet::of(over);
    if (!sheet) sheet = new ProgressSheet(over);
    sheet->begin(title);
  });
}

void setProgressMessage(QWidget &window, const QString &text) {
  later(window, [text](QWidget &over) {
    if (ProgressSheet *sheet = ProgressSheet::of(over)) sheet->setMessage(text);
  });
}

void endProgress(QWidget &window) {
  later(window, [](QWidget &over) {
    if (ProgressSheet *sheet = ProgressSheet::of(over)) sheet->end();
  });
}

void performBorderlessClose(QWidget &window) {
  window.close();
}

}  // namespace ostrak
