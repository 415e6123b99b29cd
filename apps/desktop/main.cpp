#include <QApplication>

#include <iostream>

#include "apps/desktop/Desktop.h"
#include "hosts/qt/OutlinedStyle.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Kelvarin"));
  qt::UseOutlinedStyle();
  if (argc > 2) {
    std::cerr << "usage: kelvarin open [FILE]\n";
    return 2;
  }
  qt::DocumentWindow window;
  Desktop desktop(window);
  window.SetProgram(desktop);
  window.show();
  if (argc == 2 && !window.Open(argv[1])) return 3;
  return QApplication::exec();
}
