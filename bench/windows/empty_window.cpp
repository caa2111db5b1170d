// The least that a Qt program with a window is: what bench/window_start.py compares with.
#include <QApplication>
#include <QWidget>

int main(int argc, char **argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(720, 580);
  window.show();
  return QApplication::exec();
}
