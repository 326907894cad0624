// SPDX-License-Identifier: MIT
#include "PlantsWindow.h"

int main(int argc, char** argv)
{
  QApplication application(argc, argv);
  PlantsWindow window;
  window.show();
  return application.exec();
}
