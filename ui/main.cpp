#include <windows.h>

#include "ui/host.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR command_line, int) {
  return tarnwell::RunWindows(command_line);
}
