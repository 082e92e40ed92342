#include "ui/shell_links.h"

#include <shlobj.h>
#include <wrl/client.h>

// Wants what the headers before it define.
#include <shellapi.h>

#include "platform/files.h"
#include "ui/wide_text.h"

namespace tarnwell {
namespace {

using Microsoft::WRL::ComPtr;

Status OpenWithSystem(const std::string& target) {
  SHELLEXECUTEINFOW info = {};
  const std::wstring file = Wide(target);
  info.cbSize = sizeof(info);
  info.fMask = SEE_MASK_FLAG_NO_UI;
  info.lpFile = file.c_str();
  info.nShow = SW_SHOWNORMAL;
  if (ShellExecuteExW(&info)) return Status::Ok();
  return Status::Error(Failure::kOther, target + ": the system has no program to open this with");
}

std::wstring KnownFolder(REFKNOWNFOLDERID id) {
  wchar_t* folder = nullptr;
  std::wstring path;
  if (SUCCEEDED(SHGetKnownFolderPath(id, KF_FLAG_CREATE, nullptr, &folder))) path = folder;
  CoTaskMemFree(folder);
  return path;
}

// Where the system does not know the folder by its name, it is made where it has always been.
std::wstring QuickLaunchFolder() {
  std::wstring path = KnownFolder(FOLDERID_QuickLaunch);
  if (!path.empty()) return path;
  path = KnownFolder(FOLDERID_RoamingAppData);
  if (path.empty()) return {};
  path += L"\\Microsoft\\Internet Explorer\\Quick Launch";
  SHCreateDirectoryExW(nullptr, path.c_str(), nullptr);
  return path;
}

}  // namespace

Status OpenHelpFile(Files& files, const std::string& help_file) {
  if (!files.FileExists(help_file)) {
    return Status::Error(Failure::kNotFound, files.Display(help_file) + ": there is no help file");
  }
  return OpenWithSystem(help_file);
}

Status OpenInBrowser(const std::string& address) { return OpenWithSystem(address); }

Status MakeShortcutInQuickLaunch() {
  const std::wstring folder = QuickLaunchFolder();
  const std::wstring shortcut = folder + L"\\Tarnwell Pocket.lnk";
  wchar_t program[MAX_PATH * 4] = {};
  GetModuleFileNameW(nullptr, program, MAX_PATH * 4);
  ComPtr<IShellLinkW> link;
  ComPtr<IPersistFile> file;
  const bool made = !folder.empty() &&
                    SUCCEEDED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER,
                                               IID_PPV_ARGS(&link))) &&
                    SUCCEEDED(link->SetPath(program)) && SUCCEEDED(link.As(&file)) &&
                    SUCCEEDED(file->Save(shortcut.c_str(), TRUE));
  if (made) return Status::Ok();
  return Status::Error(Failure::kOther, Narrow(shortcut) + ": the shortcut could not be made");
}

}  // namespace tarnwell
