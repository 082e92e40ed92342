#include "ui/host.h"

#include <ole2.h>
#include <windows.h>

#include "automation/auto_window.h"
#include "automation/switched_dialogs.h"
#include "automation/unattended_dialogs.h"
#include "imaging/jpeg_library.h"
#include "modules/frm_modules.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/instances.h"
#include "platform/picture_codec.h"
#include "platform/platform.h"
#include "platform/system.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/main_window.h"
#include "shell/module1.h"
#include "shell/occupying.h"
#include "shell/start_state.h"
#include "shell/start_up.h"
#include "shell/tips.h"
#include "ui/auto_windows.h"
#include "ui/host_clipboard.h"
#include "ui/host_dialogs.h"
#include "ui/host_tray.h"
#include "ui/main_frame.h"
#include "ui/messages.h"
#include "ui/other_windows.h"
#include "ui/wide_text.h"
#include "ui/window.h"

namespace tarnwell {
namespace {

// The user-interface thread's share of the system's components.
class ComponentsOfThread {
 public:
  ComponentsOfThread() : entered_(SUCCEEDED(OleInitialize(nullptr))) {}
  ~ComponentsOfThread() {
    if (entered_) OleUninitialize();
  }
  ComponentsOfThread(const ComponentsOfThread&) = delete;
  ComponentsOfThread& operator=(const ComponentsOfThread&) = delete;

 private:
  bool entered_;
};

// Programs of one folder have the same name for it, and no others: a photo is handed over in the
// program's folder, where a copy elsewhere would not look.
std::wstring InstanceName(std::wstring executable) {
  CharLowerW(executable.data());
  return L"Local\\TarnwellPocketRuns" + std::to_wstring(std::hash<std::wstring>()(executable));
}

// A program that runs holds a named object; the first to make it is the only one.
class NamedInstance : public RunningInstances {
 public:
  explicit NamedInstance(const std::wstring& name) {
    mutex_ = CreateMutexW(nullptr, FALSE, name.c_str());
    another_ = GetLastError() == ERROR_ALREADY_EXISTS;
  }
  ~NamedInstance() override { Release(); }
  NamedInstance(const NamedInstance&) = delete;
  NamedInstance& operator=(const NamedInstance&) = delete;

  bool AnotherIsRunning() override { return another_; }
  // Before the program starts anew, which would find itself running otherwise.
  void Release() {
    if (mutex_) CloseHandle(mutex_);
    mutex_ = nullptr;
  }

 private:
  HANDLE mutex_ = nullptr;
  bool another_ = false;
};

std::wstring ExecutablePath() {
  std::wstring path(MAX_PATH, L'\0');
  while (true) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

void StartAnew(const std::wstring& executable) {
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process = {};
  if (!CreateProcessW(executable.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &start, &process)) {
    return;
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

// Everything that lives as long as the program, wired together.
struct Host {
  std::unique_ptr<Files> files = MakeSystemFiles();
  std::unique_ptr<PictureCodec> codec = MakeSystemPictureCodec();
  std::unique_ptr<JpegLibrary> jpeg = MakeSystemJpegLibrary();
  std::unique_ptr<Clock> clock = MakeSystemClock();
  HostDialogs dialogs;
  UnattendedDialogs nobody{[this](const std::string& text) { automated.Report(text); }};
  OccupyingDialogs occupying_dialogs{dialogs, window};
  SwitchedDialogs switched_dialogs{occupying_dialogs, nobody};
  HostClipboard clipboard;
  Messages messages;
  Platform platform = {*files, *codec, *jpeg, switched_dialogs, messages, *clock, clipboard};
  Module1 app;
  frmModules modules = FirstStartPanel();
  frmProgress progress;
  Form1 form = {.app = app, .platform = platform, .modules = modules, .progress = progress};
  Tips tips;
  MainFrame frame;
  MainWindow window = {form, frame, tips};
  OtherWindows others = {window, messages};
  HostTray tray;
  AutoWindows auto_windows = {form, messages, tray};
  AutoWindow automated = {window, switched_dialogs, tray, auto_windows};

  void OpenMainWindow();
};

void Host::OpenMainWindow() {
  form.threads = SystemProcessorCount();
  LoadWindowState(window);
  ConnectTips(window);
  frame.Create(window, {others, auto_windows, automated});
  others.Attach(frame);
  tray.Create();
  auto_windows.Attach(frame, automated);
  clipboard.owner = frame.handle();
  messages.main_window = frame.handle();
  messages.on_shortcut = [this](const char* shortcut) { return frame.Shortcut(shortcut); };
  messages.on_keyboard_used = [this](bool used) { frame.KeyboardUsed(used); };
  modules.ShowZoom = [this](ZoomMode mode) {
    others.ShowZoom(mode);
    OfferZoomTip(window, mode);
  };
  frame.Open();
  automated.Load();
}

// The window in front, so that a dialog never comes up behind one of the program's own. After a
// click on the tray icon that is a window that nobody sees.
HWND DialogOwner(HWND main_window) {
  const HWND active = GetActiveWindow();
  return IsWindowVisible(active) ? active : main_window;
}

}  // namespace

int RunWindows(const std::wstring& command_line) {
  const ComponentsOfThread components;
  const std::wstring executable = ExecutablePath();
  NamedInstance instance(InstanceName(executable));
  Host host;
  host.dialogs.owner = [&host] { return DialogOwner(host.frame.handle()); };
  host.dialogs.first_folder = [&host] {
    const std::string& photo = host.app.current_file;
    return photo.substr(0, photo.find_last_of('\\') + 1);
  };
  host.dialogs.ask_text = [&host](const std::string& title, const std::string& prompt) {
    return host.others.AskText(title, prompt);
  };
  switch (
      StartProgram(host.app, host.platform, instance, Narrow(executable), Narrow(command_line))) {
    case StartUp::kEnd:
      return 0;
    case StartUp::kRestart:
      instance.Release();
      StartAnew(executable);
      return 0;
    case StartUp::kLoadMainWindow:
      break;
  }
  InitialiseControls();
  host.OpenMainWindow();
  return host.messages.RunUntilQuit();
}

}  // namespace tarnwell
